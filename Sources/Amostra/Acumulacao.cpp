#include "Amostra/Acumulacao.h"

#include <algorithm>
#include <cstddef>

namespace cotepe::loja {
namespace {

using PorAliquota = std::array<Centavos, kAliquotas>;

bool servico(const Item& item) { return item.produto->totalizador == Parcial::servico; }

PorAliquota liquidosPorAliquota(const CupomFiscal& cupom) {
  PorAliquota liquidos{};
  for (const auto& item : cupom.itens) {
    if (!item.cancelado) liquidos[indice(item.produto->totalizador)] += item.total;
  }
  return liquidos;
}

// Adds to `destino` the shares of `ajuste`, which is signed, by the rule of TotaisDoEcf.
void rateia(Centavos ajuste, const PorAliquota& liquidos, Centavos subtotal, Centavos* destino) {
  const Centavos sinal = ajuste < 0 ? -1 : 1;
  const auto maior =
      static_cast<std::size_t>(std::max_element(liquidos.begin(), liquidos.end()) - liquidos.begin());
  Centavos resto = ajuste;
  for (std::size_t aliquota = 0; aliquota < kAliquotas; ++aliquota) {
    const Centavos parte = sinal * (sinal * ajuste * liquidos[aliquota] / subtotal);
    destino[aliquota] += parte;
    resto -= parte;
  }
  destino[maior] += resto;
}

}  // namespace

void TotaisDoEcf::acumula(const CupomFiscal& cupom) {
  for (const auto& item : cupom.itens) registra(item);
  vendaBruta += cupom.acrescimo;
  fiscal(Parcial::descontoIcms) += cupom.desconto;
  fiscal(Parcial::acrescimoIcms) += cupom.acrescimo;
  if (cupom.cancelado) {
    cancela(cupom);
  } else {
    vende(cupom);
  }
  recebe(cupom);
}

void TotaisDoEcf::registra(const Item& item) {
  vendaBruta += item.total + item.desconto;
  fiscal(servico(item) ? Parcial::descontoIss : Parcial::descontoIcms) += item.desconto;
  fiscal(servico(item) ? Parcial::acrescimoIss : Parcial::acrescimoIcms) += item.acrescimo;
  if (item.cancelado) {
    fiscal(servico(item) ? Parcial::cancelamentoIss : Parcial::cancelamentoIcms) += item.total;
  }
}

void TotaisDoEcf::vende(const CupomFiscal& cupom) {
  const auto liquidos = liquidosPorAliquota(cupom);
  for (std::size_t aliquota = 0; aliquota < kAliquotas; ++aliquota) fiscais[aliquota] += liquidos[aliquota];
  rateia(-cupom.desconto, liquidos, cupom.subtotal, fiscais.data());
  rateia(cupom.acrescimo, liquidos, cupom.subtotal, fiscais.data());
}

void TotaisDoEcf::cancela(const CupomFiscal& cupom) {
  const Centavos servicos = liquidosPorAliquota(cupom)[indice(Parcial::servico)];
  fiscal(Parcial::cancelamentoIss) += servicos;
  fiscal(Parcial::cancelamentoIcms) += cupom.total - servicos;
}

void TotaisDoEcf::acumula(const CupomNaoFiscal& cupom) {
  if (cupom.cancelado) return;
  for (const auto& item : cupom.itens) {
    if (item.cancelado) continue;
    naoFiscais[static_cast<std::size_t>(item.totalizador)] +=
        item.liquido() - cupom.desconto + cupom.acrescimo;
  }
  recebe(cupom);
}

void TotaisDoEcf::recebe(const Cupom& cupom) {
  for (const auto& pagamento : cupom.pagamentos) {
    meios[static_cast<std::size_t>(pagamento.meio)] += pagamento.valor - pagamento.estornado;
  }
}

}  // namespace cotepe::loja
