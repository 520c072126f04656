// Options that mean the same to every command that has them.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <utility>

#include "Corrida/Dia.h"

namespace cotepe::programa {

/// A period as given on the command line: days as YYYY-MM-DD, a month as YYYY-MM, empty if not given.
struct OpcoesDePeriodo {
  std::string de, ate, dia, mes;

  bool vazio() const { return de.empty() && ate.empty() && dia.empty() && mes.empty(); }
};

/// Declares --from, --to, --day and --month. `alem` is what the help adds to the first one, in brackets.
void declaraPeriodo(CLI::App& comando, OpcoesDePeriodo& opcoes, const std::string& ajudaDoPrimeiro);

/// A period that may be open at either end.
struct PeriodoPedido {
  std::optional<Dia> de, ate;
};

/// What the options mean together. Throws Falha (kUsoErrado) when they contradict each other.
PeriodoPedido periodoPedido(const OpcoesDePeriodo& opcoes);

/// The same for a command that needs both ends. Throws Falha (kUsoErrado) when one is missing.
std::pair<Dia, Dia> periodoInteiro(const OpcoesDePeriodo& opcoes);

/// Declares --busy-timeout, in milliseconds.
void declaraEspera(CLI::App& comando, int& espera);

}  // namespace cotepe::programa
