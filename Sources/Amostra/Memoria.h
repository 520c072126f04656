// The tables of the fiscal database that every document adds rows to, open for writing.
#pragma once

#include <sqlite3.h>

#include "Amostra/Insercao.h"

namespace cotepe::loja {

// One prepared INSERT for each table. Borrows the database.
struct Memoria {
  explicit Memoria(sqlite3* banco);

  Insercao cupomFiscal, itemFiscal, cupomNaoFiscal, itemNaoFiscal, pagamento, outroDocumento;
  Insercao reducao, totalizador, meioDaReducao, intervencao, fita;
};

}  // namespace cotepe::loja
