// A report in sums, written for people (one screen) and for programs.
#pragma once

#include <iosfwd>
#include <string>

#include "Resumo/ResumoDoRelatorio.h"

namespace cotepe::programa {

/// How it is written, and what it includes.
struct OpcoesDoResumo {
  bool porMes = false;   ///< months instead of days
  bool mascara = false;  ///< hides the CNPJ and name of the user
};

/// Blocks of labels and amounts in reais. `validacao` is what validate says, in a line; empty for none.
void escreveResumo(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                   const std::string& validacao, const OpcoesDoResumo& opcoes);

/// One object in one line: amounts in cents.
void escreveResumoJson(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                       const OpcoesDoResumo& opcoes);

/// The names of the columns of the rows below.
void escreveCabecalhoCsv(std::ostream& saida);

/// One row per day or month; amounts as decimals.
void escreveResumoCsv(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                      const OpcoesDoResumo& opcoes);

}  // namespace cotepe::programa
