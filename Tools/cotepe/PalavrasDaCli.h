// The words of the library that reads the command line, in the user's language.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

namespace cotepe::programa {

/// Makes the help of an app without commands, and of those it gets afterwards, speak the user's language.
void falaOIdioma(CLI::App& app);

/// What the library says is wrong with the arguments; as it stands where it is none of its sentences.
std::string traduzDaBiblioteca(std::string_view texto);

}  // namespace cotepe::programa
