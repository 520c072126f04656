#include "NomeDoRelatorio.h"

#include <algorithm>
#include <cctype>

#include "Consulta.h"

namespace cotepe::programa {
namespace {

constexpr std::size_t kMaximoDoNumero = 20;

bool permitido(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-'; }

std::string semFinalEmBranco(std::string texto) { return texto.erase(texto.find_last_not_of(' ') + 1); }

}  // namespace

std::string numeroDeFabricacao(sqlite3* banco, const std::string& dada) {
  std::string numero = dada;
  for (Consulta serial(banco, "SELECT num_serie FROM dados_ecf"); serial.avanca();)
    if (*serial.texto(0) != '\0') numero = serial.texto(0);
  return numero.substr(0, kMaximoDoNumero);
}

NomeDoRelatorio::NomeDoRelatorio(const std::string& comando, const std::string& numero, std::string momento)
    : origem(comando + semFinalEmBranco(numero)) {
  std::replace_if(
      origem.begin(), origem.end(), [](char c) { return !permitido(c); }, '_');
  std::replace(momento.begin(), momento.end(), ' ', '_');
  completo = origem + '_' + momento + ".TXT";
}

}  // namespace cotepe::programa
