// The commands of the program. Each declares its options and returns the function that runs it, to be called
// once the command line is read; that function throws Falha.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace cotepe::programa {

/// Runs a command whose options have been read.
using Acao = std::function<void()>;

Acao declaraGenerate(CLI::App& comando);
Acao declaraSample(CLI::App& comando);
Acao declaraSchema(CLI::App& comando);
Acao declaraLayout(CLI::App& comando);
Acao declaraCheck(CLI::App& comando);
Acao declaraValidate(CLI::App& comando);
Acao declaraShow(CLI::App& comando);
Acao declaraSummary(CLI::App& comando);
Acao declaraDiff(CLI::App& comando);
Acao declaraExport(CLI::App& comando);
Acao declaraReport(CLI::App& comando);
Acao declaraExplain(CLI::App& comando);
Acao declaraVerify(CLI::App& comando);
Acao declaraSign(CLI::App& comando);
Acao declaraVerifySignature(CLI::App& comando);
Acao declaraPublicKey(CLI::App& comando);

}  // namespace cotepe::programa
