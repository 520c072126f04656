// What the commands that print findings share: their options, and how they print.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "Achados/Regra.h"

namespace cotepe::programa {

/// As the command line gives them.
struct OpcoesDeAchados {
  std::string formato = "text";
  long maximo = -1;
  bool regras = false;
  std::vector<std::string> desligadas;
};

/// --format and --max-findings.
void declaraAchados(CLI::App& comando, OpcoesDeAchados& opcoes);

/// --disable and --rules, for commands whose rules have names.
void declaraRegras(CLI::App& comando, OpcoesDeAchados& opcoes);

/// Prints the rules, a line each: name, severity, what must hold. Throws Falha where stdout fails.
void listaRegras(Regras regras);

/// The rules that --disable names. Throws Falha for a name that is none; `comando` is where it can be looked
/// up.
Supressoes regrasDesligadas(const OpcoesDeAchados& opcoes, Regras regras, const std::string& comando);

/// Prints on stdout what `acha` finds, and returns how many findings there were. Throws Falha where stdout
/// fails.
long imprimeAchados(const OpcoesDeAchados& opcoes, const std::function<void(RecebeAchados&)>& acha);

}  // namespace cotepe::programa
