// An export as a spreadsheet.
#pragma once

#include <functional>
#include <string>

struct sqlite3;

namespace cotepe::exportacao {

/// Whether this build writes spreadsheets.
bool fazPlanilhas() noexcept;

/// Writes a whole exported database into the file `caminho`: a sheet a view, then a sheet a register that has
/// lines, and what else the database holds; a table of more rows than a sheet goes on in a second one. `nome`
/// is what messages call the file; `pulsa` is called now and then. Throws Falha.
void escrevePlanilha(sqlite3* banco, const std::string& caminho, const std::string& nome,
                     const std::function<void()>& pulsa);

}  // namespace cotepe::exportacao
