// The reference schema of the fiscal database, as one SQL text.
#pragma once

namespace cotepe {

// The text of esquema.sql: CREATE TABLE and CREATE INDEX statements, to be run with sqlite3_exec on an empty
// database. It opens no transaction. Static storage.
const char* esquemaSql() noexcept;

}  // namespace cotepe
