// The floor of a run: what SQLite alone takes to hand over the rows that the writers read.
#pragma once

#include <sqlite3.h>

#include <string>

#include "Registros/Catalogo.h"

namespace bench {

// First and last moment of the period, YYYY-MM-DD HH:MM:SS.
struct Periodo {
  std::string inicial, final;
};

// Prepares and steps the identity query to its end, and reads the text of each of its columns.
void pisoDaIdentidade(sqlite3* banco);

// The same for every query of a register, reading of each row the columns that the register's writer reads,
// once each. Returns the number of rows. Throws std::runtime_error when a query fails.
long pisoDoRegistro(sqlite3* banco, const cotepe::Registro& registro, const std::string& comando,
                    const Periodo& periodo);

}  // namespace bench
