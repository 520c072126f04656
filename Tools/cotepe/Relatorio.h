// The run of the command generate.
#pragma once

#include "OpcoesDoGenerate.h"

namespace cotepe::programa {

/// Generates the report and delivers it when it is whole; says on stderr what it did. Throws Falha.
void geraRelatorio(const OpcoesDoGenerate& opcoes);

}  // namespace cotepe::programa
