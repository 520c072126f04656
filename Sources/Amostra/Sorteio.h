// Draws the documents of the shop: what is bought, by whom, and how it is paid.
#pragma once

#include "Amostra/Aleatorio.h"
#include "Amostra/Cupons.h"

namespace cotepe::loja {

CupomFiscal sorteiaCupomFiscal(Aleatorio& aleatorio);

// Bills that the shop collects for others: one to three items.
CupomNaoFiscal sorteiaRecebimento(Aleatorio& aleatorio);

// Cash put into or taken out of the drawer: one item, paid in cash.
CupomNaoFiscal movimentoDeCaixa(NaoFiscal totalizador, Centavos valor);

}  // namespace cotepe::loja
