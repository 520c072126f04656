// Writes a register again to find one line and the rows that were read for it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "ExecucaoSqlite.h"
#include "Explicacao/IdentidadeLida.h"
#include "Leiaute/Registro.h"

namespace cotepe {

/// Hands the register's queries to the database and compares each record with the line wanted. Once it has
/// been written `vez` times (from 1), queries return no more rows. Memory: one row of each query and those
/// that made equal lines; all rows in registers whose lines grow with them (E01, E05, E06, E08).
class Rastro final : public Execucao {
 public:
  Rastro(sqlite3* banco, const Registro& registro, const Ajustes& ajustes, Hospedeiro& hospedeiro,
         std::string procurada, long vez);

  std::unique_ptr<Leitura> consulta(const char* sql) override;
  void grava(Linha& linha) override;
  void falha(const char* mensagem) override;

  bool achada() const { return achada_; }
  bool completa() const { return completa_; }

  /// The rows that were read of a query of the register when the line was written: the last one, or all.
  const std::vector<Fila>& filas(int consulta) const { return filas_[static_cast<std::size_t>(consulta)]; }
  /// A query of a register with the period's bounds in it.
  std::string comPeriodo(std::string sql) const;

  /// The query that was opened last before the line was written; below 0 for none.
  int ultimaConsulta() const { return ultima_; }
  /// How many rows like this one have been read from the query up to and including it, as far as can be told.
  long vezDaFila(int consulta, std::size_t fila) const;

 private:
  class LeituraLembrada;

  void lembra(int consulta, const Fonte& fonte, int colunas);

  const Registro& registro_;
  ExecucaoSqlite banco_;
  std::string procurada_;
  long vez_;
  bool guardaTodas_;
  std::array<std::vector<Fila>, Registro::kConsultas> filas_;
  std::vector<Fila> iguais_;  // the rows behind the lines like the one wanted
  int ultima_ = -1;
  long vezes_ = 0;
  bool achada_ = false, completa_ = true;
};

}  // namespace cotepe
