// What a register's writer sees of a run: its settings, the rows of its queries, the report and the host.
#pragma once

#include <memory>

#include "Hospedeiro.h"

namespace cotepe {

class Linha;
struct Registro;

/// The settings and the identity of a run; the texts are borrowed and terminated.
struct Ajustes {
  int versao = 1;                    ///< of the layout, as CotepeManager::setVersaoAtoCotepe takes it
  bool cat52 = false;                ///< CAT52 mode
  int larguraDoContador = 0;         ///< digits
  int moduloDoContador = 0;          ///< ten to the power of that width
  const char* nrFabricacao = "";     ///< serial number of the printer
  const char* modelo = "";           ///< its model
  const char* usuario = "";          ///< order number of the user
  const char* comando = "";          ///< at most 3 characters of the command given
  const char* dataHoraInicial = "";  ///< YYYY-MM-DD 00:00:00
  const char* dataHoraFinal = "";    ///< YYYY-MM-DD 23:59:59
};

/// A row of a query; its texts are valid until the next row. NULL is an empty text.
class Fonte {
 public:
  /// The text of a column, counted from 0, terminated. Throws std::bad_alloc.
  virtual const char* texto(int coluna) const = 0;
  /// Its length in bytes, without the terminator.
  virtual int bytes(int coluna) const = 0;

 protected:
  ~Fonte() = default;
};

/// An open query, and its current row.
class Leitura : public Fonte {
 public:
  virtual ~Leitura() = default;

  /// Goes to the next row; false when there is none or it cannot be read.
  virtual bool avanca() = 0;

  /// After `avanca` returned false: whether the query ended normally.
  virtual bool completa() const = 0;

  /// Ends the query; the destructor does so at the latest.
  virtual void finaliza() = 0;
};

/// One run as its writers see it.
class Execucao {
 public:
  virtual ~Execucao() = default;

  /// The settings and the identity of the run.
  const Ajustes& ajustes() const { return ajustes_; }
  /// The application, borrowed.
  Hospedeiro& hospedeiro() const { return hospedeiro_; }

  /// Opens a query. Each "\%s" in `sql` is a bound of the period, first and last in turn. A query that cannot
  /// be prepared has no row and is not complete.
  virtual std::unique_ptr<Leitura> consulta(const char* sql) = 0;

  /// Appends the line and a line-feed to the report. A write error is reported when the report is closed.
  virtual void grava(Linha& linha) = 0;

  /// Logs the message of a failed query, if it has one (null: none); the register is then incomplete.
  virtual void falha(const char* mensagem) = 0;

 protected:
  /// The texts of `ajustes` and the host must outlive the run.
  Execucao(const Ajustes& ajustes, Hospedeiro& hospedeiro) : ajustes_(ajustes), hospedeiro_(hospedeiro) {}

 private:
  Ajustes ajustes_;
  Hospedeiro& hospedeiro_;
};

}  // namespace cotepe
