// The days of the shop, one after the other.
#pragma once

#include "Amostra/Aleatorio.h"
#include "Amostra/Amostra.h"
#include "Amostra/Ecf.h"

namespace cotepe::loja {

// Fills a database that has the schema and no rows. `primeiroDia` is the number of the day `opcoes.inicio`.
// Throws ErroDoBanco, and what `opcoes.progresso` throws.
ResumoDaAmostra preencheBanco(sqlite3* banco, const OpcoesDaAmostra& opcoes, int primeiroDia);

}  // namespace cotepe::loja
