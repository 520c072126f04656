#include "Resumo.h"

#include <cstdio>

#include "Idioma/Idioma.h"

namespace cotepe::programa {

std::string resumo(const std::vector<Etapa>& etapas, const std::string& relatorio, std::int64_t bytes,
                   double segundos) {
  char linha[120];
  std::string texto;
  long total = 0;
  for (const Etapa& etapa : etapas) {
    static_cast<void>(std::snprintf(linha, sizeof linha, "%s %11ld\n", etapa.registro, etapa.linhas));
    texto += linha;
    total += etapa.linhas;
  }
  static_cast<void>(std::snprintf(linha, sizeof linha, "%.1f", segundos));
  return texto +
         frase("{1}: {2} lines, {3} bytes, {4} s",
               {relatorio, std::to_string(total), std::to_string(bytes), linha}) +
         '\n';
}

std::string semIdentidade(const std::string& banco, const std::string& motivo) {
  return frase(
      "cannot read the printer's identity in {1}: {2}; a fiscal database has it in the tables dados_ecf and "
      "dados_usuario",
      {banco, motivo});
}

std::string incompletos(const std::vector<Etapa>& etapas) {
  std::string texto;
  for (const Etapa& etapa : etapas) {
    if (etapa.completa) continue;
    if (!texto.empty()) texto += ", ";
    texto += std::string(etapa.registro) + " (" + etapa.motivo + ")";
  }
  return texto;
}

}  // namespace cotepe::programa
