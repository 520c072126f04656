// A database for tests: every failure of SQLite shows as a text.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Amostra/Amostra.h"
#include "BancoFiscal/Esquema.h"

namespace cotepe::testes {

class Banco {
 public:
  explicit Banco(const std::string& arquivo) {
    sqlite3* aberto = nullptr;
    sqlite3_open(arquivo.c_str(), &aberto);
    banco_.reset(aberto);
  }

  sqlite3* aberto() const { return banco_.get(); }

  // "" when all went well, else SQLite's message.
  std::string executa(const std::string& sql) {
    const int resultado = sqlite3_exec(banco_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    return resultado == SQLITE_OK ? "" : sqlite3_errmsg(banco_.get());
  }

  // Each row as its columns joined by '|', NULL as "NULL"; after a failure the last one is the message.
  std::vector<std::string> linhas(const std::string& sql) {
    std::vector<std::string> resultado;
    sqlite3_stmt* comando = nullptr;
    sqlite3_prepare_v2(banco_.get(), sql.c_str(), -1, &comando, nullptr);
    int passo = sqlite3_step(comando);
    for (; passo == SQLITE_ROW; passo = sqlite3_step(comando)) {
      std::string linha;
      for (int coluna = 0; coluna < sqlite3_column_count(comando); ++coluna) {
        const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(comando, coluna));
        linha += (coluna == 0 ? "" : "|") + std::string(texto == nullptr ? "NULL" : texto);
      }
      resultado.push_back(linha);
    }
    if (passo != SQLITE_DONE) resultado.emplace_back(sqlite3_errmsg(banco_.get()));
    sqlite3_finalize(comando);
    return resultado;
  }

  // The only column of the only row; as a number it is not negative.
  std::string valor(const std::string& sql) {
    const auto todas = linhas(sql);
    return todas.size() == 1 ? todas[0] : std::to_string(todas.size()) + " rows";
  }

  std::int64_t numero(const std::string& sql) {
    const auto texto = valor(sql);
    const bool inteiro = !texto.empty() && texto.find_first_not_of("0123456789") == std::string::npos;
    EXPECT_TRUE(inteiro) << texto << " from " << sql;
    return inteiro ? std::stoll(texto) : -1;
  }

 private:
  struct Fecha {
    void operator()(sqlite3* banco) const { sqlite3_close(banco); }
  };
  std::unique_ptr<sqlite3, Fecha> banco_;
};

// A folder that is empty at first and disappears with its contents.
class Pasta {
 public:
  Pasta() {
    std::string modelo = (std::filesystem::temp_directory_path() / "bancoXXXXXX").string();
    caminho_ = mkdtemp(modelo.data());
  }
  ~Pasta() { std::filesystem::remove_all(caminho_); }
  Pasta(const Pasta&) = delete;
  Pasta& operator=(const Pasta&) = delete;

  std::string arquivo(const std::string& nome) const { return (caminho_ / nome).string(); }
  std::vector<std::string> nomes() const {
    std::vector<std::string> resultado;
    for (const auto& entrada : std::filesystem::directory_iterator(caminho_)) {
      resultado.push_back(entrada.path().filename().string());
    }
    return resultado;
  }

 private:
  std::filesystem::path caminho_;
};

// An empty database file with the reference schema.
class ComEsquema : public testing::Test {
 protected:
  ComEsquema() : banco_(pasta_.arquivo("fiscal.db")) {
    EXPECT_EQ(banco_.executa("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY"), "");
    EXPECT_EQ(banco_.executa(esquemaSql()), "");
  }

  Pasta pasta_;
  Banco banco_;
};

}  // namespace cotepe::testes
