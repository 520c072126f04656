#include "Resumo.h"

#include <cstdio>

#include "Leiaute/Registro.h"

namespace cotepe::programa {

std::string resumo(const std::vector<Etapa>& etapas, const std::string& relatorio, std::int64_t bytes,
                   double segundos) {
  char linha[120];
  std::string texto;
  long total = 0;
  for (const Etapa& etapa : etapas) {
    static_cast<void>(std::snprintf(linha, sizeof linha, "%s %11ld\n", etapa.registro->codigo, etapa.linhas));
    texto += linha;
    total += etapa.linhas;
  }
  static_cast<void>(std::snprintf(linha, sizeof linha, ": %ld lines, %lld bytes, %.1f s\n", total,
                                  static_cast<long long>(bytes), segundos));
  return texto + relatorio + linha;
}

std::string incompletos(const std::vector<Etapa>& etapas) {
  std::string texto;
  for (const Etapa& etapa : etapas) {
    if (etapa.completa) continue;
    if (!texto.empty()) texto += ", ";
    texto += std::string(etapa.registro->codigo) + " (" + etapa.motivo + ")";
  }
  return texto;
}

}  // namespace cotepe::programa
