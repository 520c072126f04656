// The command line of the program.
#pragma once

namespace cotepe::programa {

/// Reads the arguments, of which the first is the program's name, and does what they say. Throws Falha, whose
/// status is the one to exit with.
void executa(int argc, const char* const* argv);

}  // namespace cotepe::programa
