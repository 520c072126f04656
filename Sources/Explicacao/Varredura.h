// The rows of the tables behind a row of a query.
#pragma once

#include <string>
#include <vector>

#include "BancoFiscal/ConsultaAnalisada.h"
#include "Explicacao/IdentidadeLida.h"

struct sqlite3;

namespace cotepe {

/// Where a column's value comes from.
struct Achada {
  std::string tabela, coluna;  // empty for a constant of the query
  std::string chave;           // the primary key as "cont_coo=12, seq_item=1"; empty when there is none
  std::string rowid;           // empty when the table has none, as with a view
  std::string valor;           // as an SQL literal: 12, 'JOSE', NULL
  long linhas = 0;             // how many rows a sum is made of; 0 for anything else
  std::string rowids;          // of a sum, the first ten
};

/// Looks for the `vez`-th row (from 1; the last one if there are fewer) that gives the row `fila` of a query,
/// and in it for what its column `coluna` (from 0) was made of. `sql` is the query with the period's bounds
/// in it. Returns false when there is none, or the database fails.
bool procura(sqlite3* banco, const std::string& sql, const Fila& fila, std::size_t coluna, long vez,
             Achada& achada);

}  // namespace cotepe
