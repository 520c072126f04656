// Failures of an output, in words.
#pragma once

#include "Sistema/Falha.h"
#include "Sistema/FalhaDeArquivo.h"

namespace cotepe::programa {

/// The failure of a command whose output is that file: kNaoAbre or kNaoEscreve, and the sentence.
Falha falhaDaSaida(const FalhaDeArquivo& falha);

/// Runs steps with an output and turns the failures of a file into words.
template <class Passos>
auto emPalavras(const Passos& passos) {
  try {
    return passos();
  } catch (const FalhaDeArquivo& falha) {
    throw falhaDaSaida(falha);
  }
}

}  // namespace cotepe::programa
