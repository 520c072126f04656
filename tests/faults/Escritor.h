// A printer that goes on printing: documents committed without pause, by a process of their own.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>

#include "BancoFiscal/Esquema.h"

/// How a database is written to.
struct Modo {
  const char* diario;  // of SQLite: "WAL", "DELETE", "TRUNCATE" or "PERSIST"
  bool reabre;         // the database is opened and closed for each document
};

/// A database whose state k is the one after the documents 1 to k: the last 20 of them stand in it, each in
/// every table that grows, and k itself in every table that does not. One transaction a document.
class Livro {
 public:
  /// Makes the state 0 in a database that is empty, or opens one that is not.
  Livro(const std::string& caminho, const char* diario) {
    exige(sqlite3_open(caminho.c_str(), &banco_), "open");
    sqlite3_busy_timeout(banco_, 120000);
    executa("PRAGMA synchronous = OFF; PRAGMA journal_mode = " + std::string(diario));
    if (vazio()) executa("BEGIN;" + std::string(cotepe::esquemaSql()) + kEstadoZero + "COMMIT");
    for (std::size_t i = 0; i < kPassos.size(); ++i)
      exige(sqlite3_prepare_v2(banco_, kPassos[i], -1, &passos_[i], nullptr), kPassos[i]);
  }
  ~Livro() {
    for (sqlite3_stmt* passo : passos_) sqlite3_finalize(passo);
    sqlite3_close(banco_);
  }
  Livro(const Livro&) = delete;
  Livro& operator=(const Livro&) = delete;

  sqlite3* get() const { return banco_; }

  /// Commits the document k.
  void registra(long k) {
    executa("BEGIN IMMEDIATE");
    for (sqlite3_stmt* passo : passos_) {
      sqlite3_bind_int64(passo, 1, k);
      if (sqlite3_step(passo) != SQLITE_DONE) exige(SQLITE_ERROR, sqlite3_sql(passo));
      sqlite3_reset(passo);
    }
    executa("COMMIT");
  }

  static constexpr long kDocumentos = 20;

 private:
  static constexpr char kEstadoZero[] =
      "INSERT INTO dados_ecf VALUES ('SERIAL', 'MODELO', 'ECF-IF', 'MARCA', 7);"
      "INSERT INTO dados_usuario VALUES (1, '12345678000195', '123', 'LOJA', 'RUA A', NULL, 0, 0);"
      "INSERT INTO versao_sb VALUES ('v0000000', '2023-06-15 09:20:00', 1);"
      "INSERT INTO codificacao_gt VALUES ('2023-01-02 03:04:05', 'ABCDEFGHIJ');"
      "INSERT INTO moeda VALUES ('2023-01-02 03:04:05', '0');"
      "INSERT INTO posicao_totalizadores_contadores VALUES (0, 0, 0, 0, 0, 0, 0, 0);"
      "INSERT INTO totalizador_nao_fiscal VALUES (1, 'SUPRIMENTO');"
      "INSERT INTO meio_pagamento VALUES (1, 'DINHEIRO');";

  static constexpr std::array<const char*, 31> kPassos = {
      "UPDATE dados_usuario SET cont_cro = ?1, valor_gt = ?1 * 0.25",
      "UPDATE versao_sb SET versao = printf('v%07d', ?1)",
      "UPDATE codificacao_gt SET codificacao = printf('%010d', ?1)",
      "UPDATE moeda SET simbolo_moeda = ?1 % 10000",
      "UPDATE posicao_totalizadores_contadores SET cont_crz = ?1, cont_cro = ?1, cont_coo = ?1, cont_gnf = "
      "?1,"
      " cont_ccf = ?1, cont_grg = ?1, cont_cfd = ?1, valor_gt = ?1 * 0.25",
      "UPDATE totalizador_nao_fiscal SET descricao = 'NF ' || ?1",
      "UPDATE meio_pagamento SET descricao = 'MP ' || ?1",
      "INSERT INTO tentativas_sb VALUES (?1 % 10000, 'v', '2024-01-10 09:00:00', 'OK')",
      "INSERT INTO intervencao VALUES (?1, '2024-01-10 09:00:00', 'N', 'T', ?1, ?1)",
      "INSERT INTO fita_detalhe VALUES (?1, '2024-01-10 09:00:00', ?1, ?1)",
      "INSERT INTO reducao_z VALUES (?1, ?1, 1, '2024-01-10 00:00:00', '2024-01-10 22:00:00', ?1 * 0.25,"
      " ?1 * 0.25)",
      "INSERT INTO totalizador_reducao VALUES (?1, '01T1800', ?1 * 0.25, 'S')",
      "INSERT INTO meio_pagamento_reducao VALUES (?1, 'DINHEIRO', ?1 * 0.25)",
      "INSERT INTO cupom_fiscal (cont_coo, cont_ccf, cont_crz, data_hora_emissao, valor_subtotal,"
      " valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado, tipo_acrescimo,"
      " tipo_desconto) VALUES (?1, ?1, ?1, '2024-01-10 10:00:00', ?1 * 0.25, 0, 0, ?1 * 0.25, 0, 'N', 'V',"
      " 'V')",
      "INSERT INTO item_cupom_fiscal VALUES (?1, 1, 'A' || ?1, 'BOLA ' || ?1, 1, 'UN', 0.25, 0, 0, ?1 * 0.25,"
      " 0, '01T1800', 'N', 'A', 2, 2, NULL, NULL)",
      "INSERT INTO outros_documentos VALUES (?1, ?1, ?1, ?1, ?1, 'CC', '2024-01-10 11:00:00')",
      "INSERT INTO cupom_nf VALUES (?1, ?1, ?1, '2024-01-10 12:00:00', ?1 * 0.25, 0, 0, ?1 * 0.25, 0, 'N',"
      " 'V', 'V', '', '')",
      "INSERT INTO item_cupom_nf VALUES (?1, 1, 1, ?1 * 0.25, 0, 0, ?1 * 0.25, 0, 'N')",
      "INSERT INTO pagamento_cupom VALUES (?1, 1, ?1 * 0.25, 0, 'N')",
      "DELETE FROM tentativas_sb WHERE num_tentativa = (?1 - 20) % 10000",
      "DELETE FROM intervencao WHERE cont_cro = ?1 - 20",
      "DELETE FROM fita_detalhe WHERE cont_cfd = ?1 - 20",
      "DELETE FROM reducao_z WHERE cont_crz = ?1 - 20",
      "DELETE FROM totalizador_reducao WHERE cont_crz = ?1 - 20",
      "DELETE FROM meio_pagamento_reducao WHERE cont_crz = ?1 - 20",
      "DELETE FROM pagamento_cupom WHERE cont_coo = ?1 - 20",
      "DELETE FROM outros_documentos WHERE cont_coo = ?1 - 20",
      "DELETE FROM item_cupom_fiscal WHERE cont_coo = ?1 - 20",
      "DELETE FROM cupom_fiscal WHERE cont_coo = ?1 - 20",
      "DELETE FROM item_cupom_nf WHERE cont_coo = ?1 - 20",
      "DELETE FROM cupom_nf WHERE cont_coo = ?1 - 20"};

  // The tests run this in a process where nothing can fail a test: what goes wrong ends that process.
  void exige(int resultado, const char* oQue) const {
    if (resultado == SQLITE_OK) return;
    static_cast<void>(std::fprintf(stderr, "%s: %s\n", oQue, sqlite3_errmsg(banco_)));
    std::abort();
  }

  void executa(const std::string& sql) const {
    exige(sqlite3_exec(banco_, sql.c_str(), nullptr, nullptr, nullptr), sql.c_str());
  }

  bool vazio() const {
    sqlite3_stmt* consulta = nullptr;
    exige(sqlite3_prepare_v2(banco_, "SELECT count(*) FROM sqlite_schema", -1, &consulta, nullptr), "schema");
    exige(sqlite3_step(consulta) == SQLITE_ROW ? SQLITE_OK : SQLITE_ERROR, "schema");
    const bool nada = sqlite3_column_int(consulta, 0) == 0;
    sqlite3_finalize(consulta);
    return nada;
  }

  sqlite3* banco_ = nullptr;
  std::array<sqlite3_stmt*, kPassos.size()> passos_{};
};

/// The process that writes, from its construction to its end. Whoever makes one has the database not open.
class Escritor {
 public:
  Escritor(const std::string& caminho, const Modo& modo)
      : quadro_(new (mmap(nullptr, sizeof(Quadro), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
                    Quadro) {
    { const Livro novo(caminho, modo.diario); }
    filho_ = fork();
    if (filho_ == 0) escreve(caminho, modo);
    while (confirmados() == 0) usleep(1000);
  }
  ~Escritor() {
    quadro_->para = true;
    int estado = 0;
    EXPECT_EQ(waitpid(filho_, &estado, 0), filho_);
    EXPECT_EQ(estado, 0) << "the writer failed";
    munmap(quadro_, sizeof(Quadro));
  }
  Escritor(const Escritor&) = delete;
  Escritor& operator=(const Escritor&) = delete;

  /// The last document whose commit has returned.
  long confirmados() const { return quadro_->confirmados; }

 private:
  struct Quadro {
    std::atomic<long> confirmados{0};
    std::atomic<bool> para{false};
  };

  [[noreturn]] void escreve(const std::string& caminho, const Modo& modo) const {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (long k = 0; !quadro_->para;) {
      Livro livro(caminho, modo.diario);
      do {
        livro.registra(++k);
        quadro_->confirmados = k;
      } while (!modo.reabre && !quadro_->para);
    }
    _exit(0);
  }

  Quadro* quadro_;
  pid_t filho_ = -1;
};
