// A place in a report as users write it: FILE:LINE[:COLUMN].
#pragma once

#include <string>

namespace cotepe::programa {

struct LugarNoRelatorio {
  std::string arquivo;
  long linha = 0;   // from 1
  long coluna = 0;  // a byte of the line, from 1; 0 if none is given
};

/// Reads the last two parts as line and column if both are numbers, otherwise the last one as the line; the
/// rest is the file, whose name may contain colons. Throws Falha (kUsoErrado).
LugarNoRelatorio lugarNoRelatorio(const std::string& texto);

/// Throws the Falha (kUsoErrado) for a line that a report of `linhas` lines does not have.
[[noreturn]] void naoTemLinha(const std::string& nome, long linha, long linhas);

}  // namespace cotepe::programa
