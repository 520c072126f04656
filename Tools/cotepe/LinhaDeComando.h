// The command line of the program.
#pragma once

#include "Comandos.h"

namespace cotepe::programa {

/// Declares the program and its commands on an empty `app`. The one that is chosen is put into `escolhida`,
/// which must outlive the parsing.
void declara(CLI::App& app, Acao& escolhida);

/// Parses the arguments, of which the first is the program's name; the function returned does what they say.
/// Both throw Falha, whose status is the exit status.
Acao leLinhaDeComando(int argc, const char* const* argv);

}  // namespace cotepe::programa
