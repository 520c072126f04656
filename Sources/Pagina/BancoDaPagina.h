// What only a database knows about the period of a report.
#pragma once

#include <string>

#include "Pagina/Pagina.h"

struct sqlite3;

namespace cotepe::pagina {

/// Reads the hours of the coupons and the grand totals of the days, AAAAMMDD, both included. Leaves out what
/// the database cannot provide. Borrows it.
void leDoBanco(sqlite3* banco, const std::string& de, const std::string& ate, DoBanco& lido);

}  // namespace cotepe::pagina
