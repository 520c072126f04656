#include "Sistema/Sinais.h"

#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

std::string nome(int sinal) {
  const char* conhecido = nomeDoSinal(sinal);
  return conhecido != nullptr ? conhecido : frase("signal {1}", {std::to_string(sinal)});
}

}  // namespace

Interrupcao::Interrupcao(int sinal) : Falha(128 + sinal, frase("interrupted by {1}", {nome(sinal)})) {}

void paraSeInterrompido() {
  const int sinal = sinalRecebido();
  if (sinal != 0) throw Interrupcao(sinal);
}

}  // namespace cotepe::programa
