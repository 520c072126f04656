// What the commands that print findings share: their options, and how they print.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "Achados/Regra.h"

namespace cotepe::programa {

/// As given on the command line.
struct OpcoesDeAchados {
  static constexpr long kPadrao = -1;  // of `maximo`: 20 of each rule in text, all of them in other formats

  std::string formato = "text";
  long maximo = kPadrao;
  bool todos = false, calado = false;
  std::string cores = "auto";
  bool regras = false;
  std::vector<std::string> desligadas;
};

/// --format, --max-findings, --all, --color and --quiet.
void declaraAchados(CLI::App& comando, OpcoesDeAchados& opcoes);

/// --disable and --rules, for commands whose rules have names.
void declaraRegras(CLI::App& comando, OpcoesDeAchados& opcoes);

/// Prints the rules, one line each: name, severity, what must hold. Throws Falha when stdout fails.
void listaRegras(Regras regras);

/// The rules that --disable names. Throws Falha for an unknown name; `comando` is where the names can be
/// looked up.
Supressoes regrasDesligadas(const OpcoesDeAchados& opcoes, Regras regras, const std::string& comando);

/// "39 rules": those that are applied.
std::string quantasRegras(Regras regras, const Supressoes& desligadas);

/// Says in one line on stderr what was checked and found to be right.
void dizQueEstaCerto(const OpcoesDeAchados& opcoes, const std::string& texto);

/// Prints on stdout what `acha` finds, and returns how many findings there were. Throws Falha when stdout
/// fails. In the formats for programs nothing is translated.
long imprimeAchados(const OpcoesDeAchados& opcoes, const std::function<void(RecebeAchados&)>& acha);

}  // namespace cotepe::programa
