// The settings that a report was generated with: derived from it, or given by the user.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "AjustesDoRelatorio.h"
#include "Dia.h"
#include "HospedeiroDoPrograma.h"

struct sqlite3;

namespace cotepe::programa {

struct OpcoesDeAjuste {
  std::string de, ate, comando;
  std::optional<int> leiaute;
  std::optional<bool> cat52;
  Identidade identidade;
};

void declaraAjustes(CLI::App& comando, OpcoesDeAjuste& opcoes);

/// What a report is generated with.
struct Ajuste {
  AjusteDoLeiaute leiaute;
  std::string comando;
  Dia de, ate;
};

/// Those that the report leaves possible and the user's options agree with, the likeliest first; at least
/// one. The database tells the last day where the report does not.
std::vector<Ajuste> ajustesPossiveis(sqlite3* banco, const AjustesDoRelatorio& lidos,
                                     const OpcoesDeAjuste& opcoes);

/// The settings as one line, each with "(given)" or "(derived)".
std::string textoDoAjuste(const Ajuste& ajuste, const OpcoesDeAjuste& opcoes);

}  // namespace cotepe::programa
