// A line of a report in words: each field's rule, its source, its bytes and what they mean.
#pragma once

#include <string>
#include <vector>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

struct ExplicacaoDoCampo {
  int numero = 0;       // in the register's list, from 1
  std::string rotulo;   // repeated fields have their number from the second one on
  int de = 0, ate = 0;  // bytes of the line, from 1, both included
  std::string regra;    // how it is written, what happens to a longer value, when it is present
  std::string fonte;    // what is written there
  std::string bytes;    // as they are; fewer when the line ends early
  std::string significado;
  std::string nota;  // what is odd about it; may be empty
};

struct ExplicacaoDaLinha {
  const Registro* registro = nullptr;
  AjusteDoLeiaute leiaute;         // under which it was read; CAT52 if the lines up to it show it
  std::vector<std::string> notas;  // about the line as a whole
  std::vector<ExplicacaoDoCampo> campos;
};

/// Of a line with a register. The line need not outlive the call.
ExplicacaoDaLinha explica(const RegistroLido& lido, const AjusteDoLeiaute& leiaute);

/// The parts, for the tests: how the field is written under the layout; `ultimo`: no field follows on the
/// line.
std::string regraDe(const Campo& campo, const Registro& registro, int versao, bool ultimo);
/// What is written in a field of the register, in words.
std::string fonteDe(const Campo& campo, const Registro& registro);
/// What a field of the line means, the money in reais; flags and types in words where they are known.
std::string significadoDe(const RegistroLido& lido, std::size_t campo);

}  // namespace cotepe
