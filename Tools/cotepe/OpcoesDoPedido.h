// The settings of a report on the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "Corrida/HospedeiroDoPrograma.h"
#include "OpcoesComuns.h"
#include "Verificacao/PedidosPossiveis.h"

namespace cotepe::programa {

/// Declares --serial, --model and --type.
void declaraIdentidade(CLI::App& comando, Identidade& identidade);

/// As given on the command line.
struct OpcoesDoPedido {
  OpcoesDePeriodo periodo;
  std::string comando;
  std::optional<int> leiaute;
  std::optional<bool> cat52;
  Identidade identidade;

  /// What they mean together. Throws Falha (kUsoErrado) when they contradict each other.
  PedidoParcial dado() const;
};

/// Declares the period, --command, --layout, --cat52, --no-cat52 and the identity.
void declaraPedido(CLI::App& comando, OpcoesDoPedido& opcoes);

}  // namespace cotepe::programa
