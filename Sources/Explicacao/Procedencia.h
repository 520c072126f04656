// Where the fields of a line come from: table, row and column.
#pragma once

#include <string>
#include <vector>

#include "Explicacao/Rastro.h"
#include "Explicacao/Varredura.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// The origin of one field: a column's row, or where there is none, in words, what else it is.
struct Procedencia {
  Achada coluna;
  std::string texto;
};

/// Of each field of the line, in its order, or of one of them alone (`so`, from 0; below 0 for all). `rastro`
/// has found the line. A column is looked for with a query over the period, once for each of them.
std::vector<Procedencia> procedencias(sqlite3* banco, const RegistroLido& lido, const Rastro& rastro,
                                      const IdentidadeLida& identidade, int so);

}  // namespace cotepe
