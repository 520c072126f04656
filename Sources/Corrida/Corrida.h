// A run of the generator inside the program, and what is reported about it afterwards.
#pragma once

#include <string>
#include <vector>

#include "Corrida/Dia.h"
#include "Corrida/HospedeiroDoPrograma.h"
#include "CotepeManager.h"
#include "Leitor/AjustesDoRelatorio.h"
#include "Sistema/ArquivoSemNome.h"

namespace cotepe::programa {

/// What a report is generated with.
struct PedidoDeGeracao {
  AjusteDoLeiaute leiaute;
  std::string comando;
  Dia de, ate;
};

/// How a run ended.
struct FimDaCorrida {
  int resultado;  ///< a cotepe::Resultado
  int erro;       ///< errno when the report could not be written; 0 when the system does not say
};

/// Writes the report into the file. When a signal came, throws Interrupcao after closing the report.
FimDaCorrida corre(sqlite3* banco, const PedidoDeGeracao& pedido, const std::string& arquivo,
                   HospedeiroDoPrograma& hospedeiro);

/// The present local time as AAAAMMDD, a blank, HHMMSS.
std::string momentoAtual();

/// A file without a name, for a report that is not delivered or not yet delivered. Throws Falha (kNaoAbre).
ArquivoSemNome arquivoTemporario();

/// The failure of a run whose database does not say which printer it belongs to.
std::string semIdentidade(const std::string& banco, const std::string& motivo);

/// The registers that are not complete, each with its reason: "E06 (no such table: moeda), E09 (...)"; empty
/// when there is none.
std::string incompletos(const std::vector<Etapa>& etapas);

}  // namespace cotepe::programa
