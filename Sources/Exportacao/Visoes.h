// The views of an exported database.
#pragma once

namespace cotepe::exportacao {

/// The SQL that makes them.
const char* visoesSql() noexcept;

/// Their names, in the order in which people look at them.
inline constexpr const char* kVisoes[] = {"dia", "cupom", "item", "pagamento_por_meio",
                                          "totalizador_por_aliquota"};

}  // namespace cotepe::exportacao
