// The settings that a report was generated with: derived from it, or given by the user.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Dia.h"
#include "HospedeiroDoPrograma.h"
#include "Leitor/AjustesDoRelatorio.h"
#include "OpcoesComuns.h"

struct sqlite3;

namespace cotepe::programa {

/// The options --serial, --model and --type.
void declaraIdentidade(CLI::App& comando, Identidade& identidade);

struct OpcoesDeAjuste {
  OpcoesDePeriodo periodo;
  std::string comando;
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

/// Of settings that give the report to the byte, the others that do too: its lines do not tell them apart.
std::vector<AjusteDoLeiaute> mesmosBytes(const std::vector<Ajuste>& possiveis, const Ajuste& certo,
                                         const AjustesDoRelatorio& lidos);

/// The settings as one line, each with "(given)", "(derived)", or that it makes no difference since `outros`
/// give the same bytes.
std::string textoDoAjuste(const Ajuste& ajuste, const OpcoesDeAjuste& opcoes,
                          const std::vector<AjusteDoLeiaute>& outros);

}  // namespace cotepe::programa
