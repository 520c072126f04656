// A test with a folder of its own and an empty fiscal database in it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Banco.h"
#include "BancoFiscal/Esquema.h"

namespace cotepe::testes {

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
