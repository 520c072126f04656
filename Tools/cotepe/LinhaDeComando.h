// The command line of the program.
#pragma once

#include "Comandos.h"

namespace cotepe::programa {

/// Declares the program and its commands on an empty `app`. The one that is read is put into `escolhida`,
/// which must outlive the reading.
void declara(CLI::App& app, Acao& escolhida);

/// Reads the arguments, of which the first is the program's name; what is returned does what they say. Both
/// throw Falha, whose status is the one to exit with.
Acao leLinhaDeComando(int argc, const char* const* argv);

}  // namespace cotepe::programa
