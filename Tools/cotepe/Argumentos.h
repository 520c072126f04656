// Checks the arguments against what the commands declare, from left to right, before they are parsed.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace cotepe::programa {

/// The command whose help is asked for, by --help or as `help [COMMAND]`; null if none. Throws Falha
/// (kUsoErrado) when there is no such command.
const CLI::App* ajudaPedida(const CLI::App& app, const std::vector<std::string>& argumentos);

/// Throws the Falha (kUsoErrado) of the first argument that is wrong, or of the first one that is missing.
/// The program's name is not among the arguments.
void confereArgumentos(CLI::App& app, const std::vector<std::string>& argumentos);

}  // namespace cotepe::programa
