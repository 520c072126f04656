// The commands of the program. Each declares its options and returns what runs it, to be called when the
// command line is read; that throws Falha.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace cotepe::programa {

using Execucao = std::function<void()>;

Execucao declaraGenerate(CLI::App& comando);
Execucao declaraSample(CLI::App& comando);
Execucao declaraSchema(CLI::App& comando);
Execucao declaraLayout(CLI::App& comando);
Execucao declaraCheck(CLI::App& comando);
Execucao declaraValidate(CLI::App& comando);
Execucao declaraShow(CLI::App& comando);
Execucao declaraDiff(CLI::App& comando);
Execucao declaraExport(CLI::App& comando);
Execucao declaraExplain(CLI::App& comando);
Execucao declaraVerify(CLI::App& comando);

}  // namespace cotepe::programa
