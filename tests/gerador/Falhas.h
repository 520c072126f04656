// Queries that fail half-way, and what such a failure must leave behind.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Bancada.h"

/// While it lives, the query whose text contains `trecho` fails at the step after its row `ultima` (from 1).
/// Counts the statements that are open whenever a message is logged.
class FalhaNaLinha {
 public:
  FalhaNaLinha(sqlite3* banco, std::string trecho, int ultima)
      : banco_(banco), trecho_(std::move(trecho)), faltam_(ultima) {
    viva_ = this;
    g_aoRegistrar = [] { viva_->abertas.push_back(viva_->contaAbertas()); };
    sqlite3_trace_v2(banco_, SQLITE_TRACE_ROW, aCadaLinha, this);
  }
  ~FalhaNaLinha() {
    sqlite3_trace_v2(banco_, 0, nullptr, nullptr);
    g_aoRegistrar = nullptr;
    viva_ = nullptr;
  }
  FalhaNaLinha(const FalhaNaLinha&) = delete;
  FalhaNaLinha& operator=(const FalhaNaLinha&) = delete;

  std::vector<int> abertas;  // one count a message

 private:
  static int aCadaLinha(unsigned /*tipo*/, void* este, void* declaracao, void* /*nada*/) {
    auto& falha = *static_cast<FalhaNaLinha*>(este);
    const std::string sql = sqlite3_sql(static_cast<sqlite3_stmt*>(declaracao));
    if (sql.find(falha.trecho_) != std::string::npos && --falha.faltam_ == 0) sqlite3_interrupt(falha.banco_);
    return 0;
  }

  int contaAbertas() const {
    int quantas = 0;
    for (sqlite3_stmt* s = nullptr; (s = sqlite3_next_stmt(banco_, s)) != nullptr;) ++quantas;
    return quantas;
  }

  static inline FalhaNaLinha* viva_ = nullptr;
  sqlite3* banco_;
  std::string trecho_;
  int faltam_;
};

/// The lines of one register, and those of all others, in their order.
inline std::vector<std::string> doRegistro(std::vector<std::string> linhas, const std::string& codigo) {
  const auto deOutro = [&](const std::string& linha) { return linha.compare(0, 3, codigo) != 0; };
  linhas.erase(std::remove_if(linhas.begin(), linhas.end(), deOutro), linhas.end());
  return linhas;
}
inline std::vector<std::string> dosOutros(std::vector<std::string> linhas, const std::string& codigo) {
  const auto dele = [&](const std::string& linha) { return linha.compare(0, 3, codigo) == 0; };
  linhas.erase(std::remove_if(linhas.begin(), linhas.end(), dele), linhas.end());
  return linhas;
}

enum class Ordem { RegistraEFinaliza, FinalizaERegistra };

/// Over a bench with two rows or more for the register: its query, the one with `trecho`, fails after the
/// first. That one line stays, no placeholder follows, the message is logged before or after the statement
/// is finalized, and the rest of the run is as it was.
inline void confereFalhaNoMeio(Bancada& bancada, const std::string& codigo, const std::string& trecho,
                               const std::string& mensagem, Ordem ordem) {
  const auto inteiro = bancada.gera("TDM");
  ASSERT_GE(doRegistro(inteiro, codigo).size(), 2U);
  ASSERT_TRUE(g_mensagens.empty());

  FalhaNaLinha falha(bancada.banco(), trecho, 1);
  const auto comFalha = bancada.gera("TDM");
  EXPECT_EQ(bancada.resultado, 0);
  EXPECT_EQ(g_mensagens, std::vector<std::string>{mensagem});
  EXPECT_EQ(falha.abertas, std::vector<int>{ordem == Ordem::RegistraEFinaliza ? 1 : 0});
  EXPECT_EQ(doRegistro(comFalha, codigo), std::vector<std::string>{doRegistro(inteiro, codigo).front()});
  EXPECT_EQ(dosOutros(comFalha, codigo), dosOutros(inteiro, codigo));
}

/// After `estrago`, SQL that breaks the register's query, its writer logs the message and writes nothing, no
/// placeholder either.
inline void confereConsultaImpossivel(const std::string& estrago, const std::string& codigo,
                                      const std::string& mensagem) {
  SCOPED_TRACE(estrago);
  Bancada bancada;
  bancada.sql(estrago);
  EXPECT_TRUE(bancada.registro(codigo).empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{mensagem});
}
