// A run of the generator whose application is an object, for programs that follow the run or have no globals.
#pragma once

#include "CotepeManager.h"
#include "Hospedeiro.h"

namespace cotepe {

/// As CotepeManager, with log, identity, clock and padding taken from `hospedeiro`, which is also notified of
/// each register's start and end. Borrows both for as long as it exists.
class Geracao {
 public:
  /// Over an open database, which is only read; layout version 1, CAT52 mode off.
  Geracao(sqlite3* banco, Hospedeiro& hospedeiro) : gerador_(banco), hospedeiro_(hospedeiro) {}

  /// As CotepeManager::setVersaoAtoCotepe.
  void setVersaoAtoCotepe(int versao) { gerador_.setVersaoAtoCotepe(versao); }
  /// As CotepeManager::setCAT52.
  void setCAT52(bool cat52) { gerador_.setCAT52(cat52); }

  /// As CotepeManager::GeraRegistrosTipoE. An exception thrown by the host leaves it after the report has
  /// been closed, empty.
  int gera(const char* arquivo, const char* dataInicial, const char* dataFinal, const char* comando) {
    return gerador_.gera(arquivo, dataInicial, dataFinal, comando, hospedeiro_);
  }

 private:
  CotepeManager gerador_;
  Hospedeiro& hospedeiro_;
};

}  // namespace cotepe
