// Any bytes as the arguments of the program, each ended by a terminator, in a folder with a database and a
// report: it ends with a status that the help documents, and the database stays as it is.
#include <algorithm>
#include <vector>

#include "Bytes.h"
#include "Pasta.h"
#include "Sistema/Falha.h"

namespace {

// No argument names anything outside the folder.
Argumentos argumentosDe(Bytes bytes) {
  Argumentos argumentos;
  while (!bytes.acabou() && argumentos.size() < 40) {
    std::string argumento = bytes.ateTerminador();
    std::replace(argumento.begin(), argumento.end(), '/', '_');
    argumentos.push_back(std::move(argumento));
  }
  return argumentos;
}

// A sample may be told to be of a hundred years.
bool demora(const Argumentos& argumentos) {
  return std::find(argumentos.begin(), argumentos.end(), "sample") != argumentos.end();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  static const Pasta pasta;
  const Argumentos argumentos = argumentosDe(Bytes(dados, tamanho));
  try {
    const auto execucao = le(argumentos);
    if (!demora(argumentos)) execucao();
  } catch (const cotepe::programa::Falha& falha) {
    EXIGE(falha.situacao() >= cotepe::programa::kIncompleto &&
          falha.situacao() <= cotepe::programa::kSemIdentidade);
    EXIGE(*falha.what() != '\0');
  }
  pasta.confere();
  pasta.arruma();
  return 0;
}
