// What only a database tells of the period of a report.
#pragma once

#include <string>

#include "Pagina/Pagina.h"

struct sqlite3;

namespace cotepe::pagina {

/// Reads the hours of the coupons and the grand totals of the days, both included, AAAAMMDD. Leaves out what
/// the database does not give. Borrows it.
void leDoBanco(sqlite3* banco, const std::string& de, const std::string& ate, DoBanco& lido);

}  // namespace cotepe::pagina
