// Completion of the command line, for the shells that support it.
#pragma once

#include <string>
#include <vector>

#include "Comando.h"

namespace cotepe::manuais {

/// The text of a completion file: commands, options, the choices of those that have some, and file names.
std::string completacaoDoBash(const std::vector<Comando>& comandos);
std::string completacaoDoZsh(const std::vector<Comando>& comandos);
std::string completacaoDoFish(const std::vector<Comando>& comandos);

}  // namespace cotepe::manuais
