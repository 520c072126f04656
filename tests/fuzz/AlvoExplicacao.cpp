// Any change of any line of a report, which is then traced back to the database: explain ends with a status
// that its help documents. The first two bytes choose the line, the next two a place in it, one how many
// bytes are taken out there; what follows is put in their place.
#include <algorithm>

#include "Pasta.h"
#include "Sistema/Falha.h"

namespace {

std::vector<std::string> linhasDe(const std::string& texto) {
  std::vector<std::string> linhas;
  for (std::size_t de = 0, ate; (ate = texto.find('\n', de)) != std::string::npos; de = ate + 1)
    linhas.push_back(texto.substr(de, ate - de));
  return linhas;
}

// Returns the line's number, from 1.
std::size_t escreveMudado(Bytes bytes, std::vector<std::string> linhas) {
  const std::size_t qual = bytes.numero<std::uint16_t>() % linhas.size();
  std::string& linha = linhas[qual];
  const std::size_t de = bytes.numero<std::uint16_t>() % (linha.size() + 1);
  const std::size_t quantos = bytes.byte();
  std::string posto;
  while (!bytes.acabou()) posto += bytes.pega(256);
  linha.replace(de, quantos, posto);
  std::ofstream arquivo("r.txt", std::ios::binary);
  for (const std::string& escrita : linhas) arquivo << escrita << '\n';
  return qual + 1 + static_cast<std::size_t>(std::count(posto.begin(), posto.end(), '\n'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  static const Pasta pasta;
  static const std::vector<std::string> linhas = linhasDe(pasta.relatorio());
  const std::size_t linha = escreveMudado(Bytes(dados, tamanho), linhas);
  try {
    le({"explain", "--db", "base.db", "r.txt:" + std::to_string(linha)})();
  } catch (const cotepe::programa::Falha& falha) {
    EXIGE(falha.situacao() == cotepe::programa::kIncompleto ||
          falha.situacao() == cotepe::programa::kUsoErrado);
    EXIGE(*falha.what() != '\0');
  }
  pasta.confere();
  pasta.arruma();
  return 0;
}
