// A generator of the C interface, and the report that it writes.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "Bancada.h"
#include "cotepe.h"

class Gerador {
 public:
  explicit Gerador(sqlite3* banco) { EXPECT_EQ(cotepe_create(banco, &gerador_), COTEPE_DONE); }
  ~Gerador() {
    EXPECT_EQ(cotepe_destroy(gerador_), COTEPE_DONE);
    unlink(nome_.c_str());
  }
  Gerador(const Gerador&) = delete;
  Gerador& operator=(const Gerador&) = delete;

  operator cotepe_generator*() const { return gerador_; }  // NOLINT(google-explicit-constructor)

  /// Writes January 2024 and returns the result.
  int gera(const char* comando) {
    return cotepe_generate(gerador_, nome_.c_str(), "01012024", "31012024", comando);
  }

  /// The report that stands there.
  std::string relatorio() const {
    std::ostringstream texto;
    texto << std::ifstream(nome_, std::ios::binary).rdbuf();
    return texto.str();
  }
  std::vector<std::string> linhas() const { return linhasDe(relatorio()); }

 private:
  static std::string novoNome() {
    static int quantos = 0;
    return "interface-c-" + std::to_string(getpid()) + "-" + std::to_string(++quantos) + ".txt";
  }

  const std::string nome_ = novoNome();
  cotepe_generator* gerador_ = nullptr;
};

/// The line of a report that begins with a code; empty when there is not exactly one.
inline std::string linhaDo(const std::string& codigo, const std::vector<std::string>& linhas) {
  std::string achada;
  int quantas = 0;
  for (const std::string& linha : linhas)
    if (linha.compare(0, 3, codigo) == 0 && ++quantas == 1) achada = linha;
  return quantas == 1 ? achada : "";
}
