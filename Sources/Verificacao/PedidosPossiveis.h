// The settings that a report was generated with: derived from it, or given by the user.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Corrida/Corrida.h"

struct sqlite3;

namespace cotepe::programa {

/// What the user says about them; nothing, or an empty command, for what is to be derived.
struct PedidoParcial {
  std::optional<Dia> de, ate;
  std::string comando;
  std::optional<int> leiaute;
  std::optional<bool> cat52;
};

/// Those that the report leaves possible and the user's options agree with, the most likely first; at least
/// one. The database gives the last day if the report does not.
std::vector<PedidoDeGeracao> pedidosPossiveis(sqlite3* banco, const AjustesDoRelatorio& lidos,
                                              const PedidoParcial& dado);

/// For settings that reproduce the report byte for byte, the others that do too: its lines do not tell them
/// apart.
std::vector<AjusteDoLeiaute> mesmosBytes(const std::vector<PedidoDeGeracao>& possiveis,
                                         const PedidoDeGeracao& certo, const AjustesDoRelatorio& lidos);

/// The settings as one line, each with "(given)", "(derived)", or that it makes no difference since `outros`
/// give the same bytes.
std::string textoDoPedido(const PedidoDeGeracao& pedido, const PedidoParcial& dado,
                          const std::vector<AjusteDoLeiaute>& outros);

}  // namespace cotepe::programa
