// The files of an open database.
#pragma once

struct sqlite3;

namespace cotepe {

/// Whether what is written to that path would be written over what the connection reads: a database of it,
/// attached ones included, or a journal of one. Those in memory have no file. Throws std::bad_alloc.
bool arruinaOBanco(sqlite3* banco, const char* caminho);

}  // namespace cotepe
