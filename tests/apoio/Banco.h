// A database that the test itself has open.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <vector>

class Banco {
 public:
  explicit Banco(const std::string& arquivo = ":memory:") {
    EXPECT_EQ(sqlite3_open(arquivo.c_str(), &banco_), SQLITE_OK);
  }
  ~Banco() { EXPECT_EQ(sqlite3_close(banco_), SQLITE_OK) << "a statement was left open"; }
  Banco(const Banco&) = delete;
  Banco& operator=(const Banco&) = delete;

  sqlite3* aberto() const { return banco_; }

  /// The result of sqlite3_exec.
  int tenta(const std::string& sql) { return sqlite3_exec(banco_, sql.c_str(), nullptr, nullptr, nullptr); }
  /// "" when all went well, else SQLite's message.
  std::string executa(const std::string& sql) {
    return tenta(sql) == SQLITE_OK ? "" : sqlite3_errmsg(banco_);
  }
  /// Fails the test when it cannot.
  void sql(const std::string& texto) { EXPECT_EQ(executa(texto), "") << "in: " << texto; }

  /// Each row as its columns joined by '|', NULL as "NULL"; after a failure the last one is the message.
  std::vector<std::string> linhas(const std::string& sql) {
    std::vector<std::string> resultado;
    sqlite3_stmt* comando = nullptr;
    sqlite3_prepare_v2(banco_, sql.c_str(), -1, &comando, nullptr);
    int passo = sqlite3_step(comando);
    for (; passo == SQLITE_ROW; passo = sqlite3_step(comando)) {
      std::string linha;
      for (int coluna = 0; coluna < sqlite3_column_count(comando); ++coluna) {
        const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(comando, coluna));
        linha += (coluna == 0 ? "" : "|") + std::string(texto == nullptr ? "NULL" : texto);
      }
      resultado.push_back(linha);
    }
    if (passo != SQLITE_DONE) resultado.emplace_back(sqlite3_errmsg(banco_));
    sqlite3_finalize(comando);
    return resultado;
  }

  /// The only column of the only row.
  std::string valor(const std::string& sql) {
    const auto todas = linhas(sql);
    return todas.size() == 1 ? todas[0] : std::to_string(todas.size()) + " rows";
  }

  /// The same as a number, which is not negative.
  std::int64_t numero(const std::string& sql) {
    const auto texto = valor(sql);
    const bool inteiro = !texto.empty() && texto.find_first_not_of("0123456789") == std::string::npos;
    EXPECT_TRUE(inteiro) << texto << " from " << sql;
    return inteiro ? std::stoll(texto) : -1;
  }

 private:
  sqlite3* banco_ = nullptr;
};
