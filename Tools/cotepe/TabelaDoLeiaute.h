// The fields of a register under one setting, as a table for people and programs.
#pragma once

#include <string>
#include <vector>

#include "Leiaute/Registro.h"

namespace cotepe::programa {

struct LinhaDaTabela {
  int numero;          // from 1
  std::string rotulo;  // UTF-8
  int de, ate;         // positions from 1, both included
  int largura;         // bytes
  std::string especie;
  std::string vazio;     // what a placeholder record holds; "-" where there is none
  std::string condicao;  // when the field is there, and what is odd about where it stands; may be empty
};

struct TabelaDoLeiaute {
  const Registro* registro;
  std::vector<int> versoes;  // the layout versions that share this table
  bool cat52;
  int comprimento;    // bytes of a record
  std::string vazio;  // when the register holds a placeholder record
  std::string nota;   // what the list of fields alone does not say of it; may be empty
  std::vector<LinhaDaTabela> linhas;
};

/// The commands that write a register, as in {"MF", "TDM"}.
std::vector<std::string> comandosDe(const Registro& registro);

/// The tables of a register under the layout versions given: one for each, or one for all where they agree.
/// None for a version in which the register is not written.
std::vector<TabelaDoLeiaute> tabelasDe(const Registro& registro, const std::vector<int>& versoes, bool cat52);

}  // namespace cotepe::programa
