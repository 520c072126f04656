// The files of an open database.
#pragma once

struct sqlite3;

namespace cotepe {

/// Whether writing to that path would overwrite what the connection reads: one of its databases, attached
/// ones included, or the journal of one. Databases in memory have no file. Throws std::bad_alloc.
bool arruinaOBanco(sqlite3* banco, const char* caminho);

}  // namespace cotepe
