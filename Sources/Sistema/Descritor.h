// What a command writes to a descriptor.
#pragma once

#include <string_view>

#include "Sistema/Arquivo.h"

namespace cotepe::programa {

/// Writes all of `texto` to a descriptor. Throws Interrupcao when a signal came, and Falha (kNaoEscreve),
/// which says why `nome` could not be written.
void escreveTudo(int descritor, std::string_view texto, const char* nome);

/// After the last write: asks for the errors that some file systems report only when a file is closed. Throws
/// Falha as `escreveTudo`; the descriptor stays open.
void confirmaEscrita(int descritor, const char* nome);

/// Writes everything that a command prints on stdout. Throws as the two above.
void escreveNaSaidaPadrao(std::string_view texto);

}  // namespace cotepe::programa
