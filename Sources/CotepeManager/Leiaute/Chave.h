// What a field is called by programs.
#pragma once

#include <string>

#include "Leiaute/Campo.h"

namespace cotepe {

/// The field's name for JSON, SQL and CSV, unique within its register, derived from its label: the capitals
/// in its parentheses ("Totalizador geral (GT)" is `gt`), otherwise its words in lower case without accents,
/// joined by '_'; "Nº" is `numero`; anything else in parentheses and the words de, do, da, dos, das and e are
/// left out ("Data de emissão" is `data_emissao`, "Cancelado (S/N)" is `cancelado`).
std::string chaveDe(const Campo& campo);

}  // namespace cotepe
