// What goes wrong with keys and signatures, in the user's language.
#pragma once

#include <string>

#include "Assinatura/ErroDaAssinatura.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {

/// `onde`: the file that was read, a key or a report.
Falha falhaDaAssinatura(const ErroDaAssinatura& erro, const std::string& onde, int situacao);

/// Why a file is not a report, as the end of a sentence.
std::string textoDaEstranheza(long estranheza, long linha);

}  // namespace cotepe::programa
