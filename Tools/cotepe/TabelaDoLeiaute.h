// The fields of a register under one setting, as a table for people and programs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Leiaute/Registro.h"

namespace cotepe::programa {

/// Words of a table, in English: the model of a message and what fills its place, so that they can be
/// translated or printed as they are.
struct Dito {
  const char* modelo;
  std::string parte;

  friend bool operator==(const Dito& a, const Dito& b) {
    return std::string_view(a.modelo) == b.modelo && a.parte == b.parte;
  }
};

struct LinhaDaTabela {
  int numero;                   // from 1
  std::string rotulo;           // UTF-8
  std::string chave;            // its name for programs
  int de, ate;                  // positions from 1, both included
  int largura;                  // bytes
  const char* especie;          // a message
  Dito vazio;                   // what a placeholder record holds; "-" if there is none
  std::vector<Dito> condicoes;  // when the field is present, and what is odd about its place
};

struct TabelaDoLeiaute {
  const Registro* registro;
  std::vector<int> versoes;  // the layout versions that share this table
  bool cat52;
  int comprimento;    // bytes of a record
  const char* vazio;  // when the register has a placeholder record: a message
  const char* nota;   // what the list of fields alone does not say about it: a message, may be empty
  std::vector<LinhaDaTabela> linhas;
};

/// The commands that write a register, as in {"MF", "TDM"}.
std::vector<std::string> comandosDe(const Registro& registro);

/// The tables of a register under the layout versions given: one for each, or one for all if they agree. None
/// for a version in which the register is not written.
std::vector<TabelaDoLeiaute> tabelasDe(const Registro& registro, const std::vector<int>& versoes, bool cat52);

}  // namespace cotepe::programa
