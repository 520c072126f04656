#include "Amostra/Acumulacao.h"

#include <algorithm>
#include <cstddef>

namespace cotepe::loja {
namespace {

using PorAliquota = std::array<Centavos, kAliquotas>;

bool servico(const Item& item) { return item.produto->totalizador == Totalizador::servico; }

PorAliquota liquidosPorAliquota(const CupomFiscal& cupom) {
  PorAliquota liquidos{};
  for (const auto& item : cupom.itens) {
    if (!item.cancelado) liquidos[indice(item.produto->totalizador)] += item.total;
  }
  return liquidos;
}

// Adds to `destino` the shares of `ajuste`, which is signed, by the rule of Totais.
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

void Totais::acumula(const CupomFiscal& cupom) {
  for (const auto& item : cupom.itens) registra(item);
  vendaBruta += cupom.acrescimo;
  fiscal(Totalizador::descontoIcms) += cupom.desconto;
  fiscal(Totalizador::acrescimoIcms) += cupom.acrescimo;
  if (cupom.cancelado) {
    cancela(cupom);
  } else {
    vende(cupom);
  }
  recebe(cupom);
}

void Totais::registra(const Item& item) {
  vendaBruta += item.total + item.desconto;
  fiscal(servico(item) ? Totalizador::descontoIss : Totalizador::descontoIcms) += item.desconto;
  fiscal(servico(item) ? Totalizador::acrescimoIss : Totalizador::acrescimoIcms) += item.acrescimo;
  if (item.cancelado) {
    fiscal(servico(item) ? Totalizador::cancelamentoIss : Totalizador::cancelamentoIcms) += item.total;
  }
}

void Totais::vende(const CupomFiscal& cupom) {
  const auto liquidos = liquidosPorAliquota(cupom);
  for (std::size_t aliquota = 0; aliquota < kAliquotas; ++aliquota) fiscais[aliquota] += liquidos[aliquota];
  rateia(-cupom.desconto, liquidos, cupom.subtotal, fiscais.data());
  rateia(cupom.acrescimo, liquidos, cupom.subtotal, fiscais.data());
}

void Totais::cancela(const CupomFiscal& cupom) {
  const Centavos servicos = liquidosPorAliquota(cupom)[indice(Totalizador::servico)];
  fiscal(Totalizador::cancelamentoIss) += servicos;
  fiscal(Totalizador::cancelamentoIcms) += cupom.total - servicos;
}

void Totais::acumula(const CupomNaoFiscal& cupom) {
  if (cupom.cancelado) return;
  for (const auto& item : cupom.itens) {
    if (item.cancelado) continue;
    naoFiscais[static_cast<std::size_t>(item.totalizador)] +=
        item.liquido() - cupom.desconto + cupom.acrescimo;
  }
  recebe(cupom);
}

void Totais::recebe(const Cupom& cupom) {
  for (const auto& pagamento : cupom.pagamentos) {
    meios[static_cast<std::size_t>(pagamento.meio)] += pagamento.valor - pagamento.estornado;
  }
}

}  // namespace cotepe::loja
