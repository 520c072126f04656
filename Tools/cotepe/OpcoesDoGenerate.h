// The options of the command generate.
#pragma once

#include <chrono>
#include <string>

#include "Corrida/Dia.h"
#include "Corrida/HospedeiroDoPrograma.h"
#include "OpcoesComuns.h"
#include "OpcoesDaChave.h"

namespace cotepe::programa {

/// As given on the command line.
struct OpcoesDoGenerate {
  std::string entrega;  // the folder of --deliver
  OpcoesDaChave chave;
  std::string banco, comando = "TDM", saida, log, versaoSb;
  OpcoesDePeriodo periodo;
  Identidade identidade;
  int leiaute = 1;
  int espera = 5000;  // milliseconds
  bool cat52 = false, substitui = false, guardaParcial = false, calado = false;

  bool semNome() const { return saida.empty(); }
  bool paraStdout() const { return saida == "-"; }
};

struct PeriodoDaGeracao {
  Dia de, ate;
};

/// Checks what can be checked before a file is touched. Throws Falha (kUsoErrado).
PeriodoDaGeracao confere(const OpcoesDoGenerate& opcoes);

/// Throws Falha (kUsoErrado) when the report, which goes to `destino`, or the log would overwrite the
/// database or each other.
void exigeArquivosDistintos(const OpcoesDoGenerate& opcoes, const std::string& destino);

}  // namespace cotepe::programa
