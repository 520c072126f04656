// A second reading of the layout, for the tests alone: the whole report made the plain and slow way,
// sharing no code with the generator, so that the two can be compared byte for byte.
#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

namespace referencia {

// What the generator is given: its settings, its arguments, what its host knows and what the clock says.
struct Entrada {
  int versao = 1;
  bool cat52 = false;
  std::string inicial;  // first day, DDMMYYYY
  std::string final;    // last day, DDMMYYYY
  std::string comando;  // "MF", "MFD", "TDM", "RZ" or any other text
  std::string serialGlobal;
  std::string modeloGlobal;
  std::string tipoGlobal;
  std::string versaoSbGlobal;
  std::string dataHoraDoSistema;  // what the clock leaves for "yyyymmdd" and "hhmmss": "20240131 235959"
};

struct Saida {
  int codigo = 0;                // 0 done, 2 a day of fewer than 8 characters, 5 identity query failed
  std::string arquivo;           // the bytes of the report
  std::vector<std::string> log;  // the messages, in order
};

// The report of one run over `banco`, which is only read.
Saida gera(sqlite3* banco, const Entrada& entrada);

// What the writer of the register `codigo` ("E01" to "E22") alone appends to the report, whatever the
// command; "E03" and "E04" too. Throws std::out_of_range for any other code.
Saida geraRegistro(sqlite3* banco, const Entrada& entrada, const std::string& codigo);

}  // namespace referencia
