// Reports as rows of tables.
#pragma once

#include <functional>

#include "Exportacao/DestinoDaExportacao.h"

namespace cotepe::exportacao {

/// Reads a report to its end and gives every line to `destino`; `pulsa` is called from time to time. A read
/// error is in LeitorDeLinhas::erro. Throws Falha when a line is longer than the reader keeps, since it could
/// not be rebuilt.
void exporta(LeitorDeLinhas& linhas, long numero, const std::string& nome, DestinoDaExportacao& destino,
             const std::function<void()>& pulsa);

}  // namespace cotepe::exportacao
