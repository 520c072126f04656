#include "SaidaDoDiff.h"

#include <unistd.h>

#include "Idioma/Idioma.h"
#include "Numero.h"

namespace cotepe::programa {

SaidaDeAchados::Opcoes OpcoesDeDiferencas::paraStdout() const {
  SaidaDeAchados::Opcoes opcoes = SaidaDeAchados::opcoesPara(STDOUT_FILENO);
  formatoDeAchados(formato, opcoes.formato);
  opcoes.maximo = maximo;
  return opcoes;
}

void declaraDiferencas(CLI::App& comando, OpcoesDeDiferencas& opcoes) {
  comando.add_option("--format", opcoes.formato, traduz("text, json (an object a line) or sarif (text)"))
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "json", "sarif"}));
  comando
      .add_option("--max-findings", opcoes.maximo,
                  traduz("Print no more than this many differences; the counts stay whole"))
      ->type_name("COUNT")
      ->check(numeroDesde(0));
}

}  // namespace cotepe::programa
