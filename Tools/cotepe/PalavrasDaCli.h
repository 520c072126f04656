// The help of the commands in the user's language.
#pragma once

#include <CLI/CLI.hpp>

namespace cotepe::programa {

/// Makes the help of an app without commands, and of those it gets afterwards, speak the user's language.
void falaOIdioma(CLI::App& app);

}  // namespace cotepe::programa
