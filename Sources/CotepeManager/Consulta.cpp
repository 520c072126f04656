#include "Consulta.h"

#include <sqlite3.h>

#include <new>

namespace cotepe {

Consulta::Consulta(sqlite3* banco, std::string_view sql) {
  // A failed preparation leaves no statement, and stepping a null one fails.
  sqlite3_prepare_v2(banco, sql.data(), static_cast<int>(sql.size() + 1), &declaracao_, nullptr);
}

Consulta::~Consulta() { sqlite3_finalize(declaracao_); }

bool Consulta::avanca() {
  resultado_ = sqlite3_step(declaracao_);
  return resultado_ == SQLITE_ROW;
}

bool Consulta::completa() const { return resultado_ == SQLITE_DONE; }

void Consulta::finaliza() {
  sqlite3_finalize(declaracao_);
  declaracao_ = nullptr;
}

// When there is no memory for a text, SQLite returns null, as it does for NULL, and fails only at the next
// step: too late for the current record.
const char* Consulta::texto(int coluna) const {
  const unsigned char* texto = sqlite3_column_text(declaracao_, coluna);
  if (texto != nullptr) return reinterpret_cast<const char*>(texto);
  if (sqlite3_errcode(sqlite3_db_handle(declaracao_)) == SQLITE_NOMEM) throw std::bad_alloc();
  return "";
}

int Consulta::bytes(int coluna) const { return sqlite3_column_bytes(declaracao_, coluna); }

}  // namespace cotepe
