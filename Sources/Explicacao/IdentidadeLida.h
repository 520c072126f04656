// The printer's identity as a run reads it before its first register.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "Leiaute/Execucao.h"
#include "Leiaute/IdentidadeDoEcf.h"

struct sqlite3;

namespace cotepe {

using Fila = std::vector<std::string>;  // the texts of a row; NULL is an empty one

/// The text of each setting, as it is in the records, and the row that it comes from; without a row it is the
/// application's.
struct IdentidadeLida {
  char nrFabricacao[21] = "", modelo[21] = "", usuario[3] = "";
  std::array<Fila, 3> filas;  // by ColunaDaIdentidade
  bool completa = false;
};

/// The database's texts take precedence over the application's; of several rows the last one counts.
IdentidadeLida leIdentidade(sqlite3* banco, Hospedeiro& hospedeiro);

}  // namespace cotepe
