// What the commands that compare reports share: how differences are printed.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "Achados/SaidaDeAchados.h"

namespace cotepe::programa {

struct OpcoesDeDiferencas {
  std::string formato = "text";
  long maximo = -1;

  /// For stdout.
  SaidaDeAchados::Opcoes paraStdout() const;
};

/// --format and --max-findings.
void declaraDiferencas(CLI::App& comando, OpcoesDeDiferencas& opcoes);

}  // namespace cotepe::programa
