// An export as a spreadsheet.
#pragma once

#include <functional>
#include <string>

struct sqlite3;

namespace cotepe::exportacao {

/// Whether this build writes spreadsheets.
bool fazPlanilhas() noexcept;

/// Writes a whole exported database into the file `caminho`: a sheet per view, then a sheet per register that
/// has lines, and whatever else the database holds; a table too long for one sheet continues in a second one.
/// `nome` is the file's name in messages; `pulsa` is called from time to time. Throws Falha.
void escrevePlanilha(sqlite3* banco, const std::string& caminho, const std::string& nome,
                     const std::function<void()>& pulsa);

}  // namespace cotepe::exportacao
