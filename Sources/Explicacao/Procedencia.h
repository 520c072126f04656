// Where the fields of a line come from: table, row and column.
#pragma once

#include <string>
#include <vector>

#include "Explicacao/Rastro.h"
#include "Explicacao/Varredura.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// The origin of one field: a column's row or, if there is none, its origin in words.
struct Procedencia {
  Achada coluna;
  std::string texto;
};

/// The origins of the fields of the line, in their order, or of only one (`so`, from 0; below 0 for all).
/// `rastro` must have found the line. A column is looked for with a query over the period, once for each of
/// them.
std::vector<Procedencia> procedencias(sqlite3* banco, const RegistroLido& lido, const Rastro& rastro,
                                      const IdentidadeLida& identidade, int so);

}  // namespace cotepe
