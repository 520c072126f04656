// One register's part of a run: queries go to the database, lines to the open report.
#pragma once

#include <cstdio>

#include "Consulta.h"
#include "Leiaute/Execucao.h"

namespace cotepe {

/// Borrows everything that it is given.
class ExecucaoSqlite final : public Execucao {
 public:
  ExecucaoSqlite(sqlite3* banco, FILE* relatorio, const Ajustes& ajustes, Hospedeiro& hospedeiro)
      : Execucao(ajustes, hospedeiro), banco_(banco), relatorio_(relatorio) {}

  std::unique_ptr<Leitura> consulta(const char* sql) override;
  void grava(Linha& linha) override;
  void falha(const char* mensagem) override;

  long linhas() const { return linhas_; }
  bool completa() const { return completa_; }

 private:
  sqlite3* banco_;
  FILE* relatorio_;
  long linhas_ = 0;
  bool completa_ = true;
};

}  // namespace cotepe
