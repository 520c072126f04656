#include "LugarNoRelatorio.h"

#include <charconv>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

// Removes the last part if it is a number.
bool tiraNumero(std::string& texto, long& numero) {
  const std::size_t doisPontos = texto.rfind(':');
  if (doisPontos == std::string::npos) return false;
  const char* inicio = texto.data() + doisPontos + 1;
  const char* fim = texto.data() + texto.size();
  long lido = 0;
  const auto [ate, erro] = std::from_chars(inicio, fim, lido);
  if (inicio == fim || *inicio == '-' || ate != fim || erro != std::errc()) return false;
  numero = lido;
  texto.erase(doisPontos);
  return true;
}

}  // namespace

LugarNoRelatorio lugarNoRelatorio(const std::string& texto) {
  LugarNoRelatorio lugar;
  lugar.arquivo = texto;
  bool certo = tiraNumero(lugar.arquivo, lugar.linha);
  bool comColuna = false;
  if (long linha = 0; certo && tiraNumero(lugar.arquivo, linha)) {
    lugar.coluna = lugar.linha;
    lugar.linha = linha;
    comColuna = true;
  }
  certo = certo && !lugar.arquivo.empty() && lugar.linha > 0 && (!comColuna || lugar.coluna > 0);
  if (certo) return lugar;
  throw Falha(
      kUsoErrado,
      frase("{1}: no line is named; write a report and a line, as in report.txt:12, or also a column, as in "
            "report.txt:12:50",
            {texto.empty() ? traduz("nothing") : texto}));
}

void naoTemLinha(const std::string& nome, long linha, long linhas) {
  const std::string onde = nome + ':' + std::to_string(linha);
  if (linhas == 0) throw Falha(kUsoErrado, frase("{1}: the report has no lines", {onde}));
  throw Falha(kUsoErrado, fraseDe("{1}: the report has only {n} line", "{1}: the report has only {n} lines",
                                  linhas, {onde}));
}

}  // namespace cotepe::programa
