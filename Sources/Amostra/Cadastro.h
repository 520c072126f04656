// The tables that are written once: the printer, its user, its software, its means of payment.
#pragma once

#include <sqlite3.h>

#include "Amostra/Aleatorio.h"
#include "Amostra/Ecf.h"

namespace cotepe::loja {

// What is known before the first day, the day numbered `primeiroDia`. Throws ErroDoBanco.
void gravaCadastro(sqlite3* banco, Aleatorio& aleatorio, int primeiroDia);

// The printer's counters and totals after the last document.
void gravaPosicao(sqlite3* banco, const Ecf& ecf);

}  // namespace cotepe::loja
