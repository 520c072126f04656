// One SQLite statement from its text to its end.
#pragma once

#include <string_view>

#include "Leiaute/Execucao.h"

struct sqlite3;
struct sqlite3_stmt;

namespace cotepe {

/// Prepares at once, steps row by row, and is always finalized. A statement that cannot be prepared behaves
/// as one whose first step fails.
class Consulta final : public Leitura {
 public:
  Consulta(sqlite3* banco, std::string_view sql);  // sql: terminated
  ~Consulta() override;
  Consulta(const Consulta&) = delete;
  Consulta& operator=(const Consulta&) = delete;

  bool avanca() override;
  bool completa() const override;
  void finaliza() override;
  const char* texto(int coluna) const override;
  int bytes(int coluna) const override;

 private:
  sqlite3_stmt* declaracao_ = nullptr;
  int resultado_ = 0;
};

}  // namespace cotepe
