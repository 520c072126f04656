// The host of the differential test: what it knows and what it was told.
#pragma once

#include <string>
#include <vector>

namespace referencia {

// The messages logged since the last call.
std::vector<std::string> recolheLog();

// What the clock shows from now on, for the patterns "yyyymmdd" and "hhmmss".
void acertaRelogio(const std::string& dataHora);

// Fills the identity globals.
void identifica(const std::string& serial, const std::string& modelo, const std::string& tipo,
                const std::string& versaoSb);

}  // namespace referencia
