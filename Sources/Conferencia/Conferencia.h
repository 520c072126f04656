// Checks a fiscal database against what the registers need of it.
#pragma once

#include <string>

#include "Achados/Achado.h"
#include "Conferencia/Destinos.h"
#include "Conferencia/RegrasDoBanco.h"

struct sqlite3;

namespace cotepe {

struct OpcoesDaConferencia {
  std::string arquivo;  // its name in the findings
  Alcance alcance;      // which reports to check for
  std::string de, ate;  // the period, YYYY-MM-DD; both empty for all that is stored
  Supressoes desligadas;
};

/// Reads every table that the selected reports read, once and row by row, then queries for what does not
/// match between them; gives every finding to `recebe`. The database is only read. Memory does not grow with
/// the rows; SQLite may sort keys in temporary files. Throws ErroDoBanco when the database cannot be read.
void confereBanco(sqlite3* banco, const OpcoesDaConferencia& opcoes, RecebeAchados& recebe);

}  // namespace cotepe
