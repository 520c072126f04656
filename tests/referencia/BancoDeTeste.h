// A database in memory for one test.
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace referencia {

class BancoDeTeste {
 public:
  BancoDeTeste() {
    if (sqlite3_open(":memory:", &banco_) != SQLITE_OK) throw std::runtime_error("sqlite3_open");
  }
  ~BancoDeTeste() { sqlite3_close(banco_); }
  BancoDeTeste(const BancoDeTeste&) = delete;
  BancoDeTeste& operator=(const BancoDeTeste&) = delete;

  void executa(const std::string& sql) {
    if (sqlite3_exec(banco_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sql + ": " + sqlite3_errmsg(banco_));
  }

  sqlite3* get() { return banco_; }

 private:
  sqlite3* banco_ = nullptr;
};

}  // namespace referencia
