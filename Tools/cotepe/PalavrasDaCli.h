// The help of the commands in the user's language.
#pragma once

#include <CLI/CLI.hpp>

namespace cotepe::programa {

/// Translates the help of an app that has no commands yet, and of those it gets afterwards, into the user's
/// language.
void falaOIdioma(CLI::App& app);

}  // namespace cotepe::programa
