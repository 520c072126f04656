// How the printer keeps each kind of document.
#include <cstdint>

#include "Amostra/Ecf.h"

namespace cotepe::loja {
namespace {

constexpr std::int64_t kUltimoCdc = 9999;

constexpr std::string_view kEmValor = "V";  // a discount or surcharge that is not a percentage
constexpr int kNenhum = 0;                  // of the percentages
constexpr std::string_view letra(bool condicao) { return condicao ? "S" : "N"; }
constexpr Decimal seCancelado(bool cancelado, Centavos valor) { return dinheiro(cancelado ? valor : 0); }

}  // namespace

// Advances the counters that the type owns and keeps those; the others stay zero in the row, as in the
// register.
void Ecf::documento(std::string_view tipo, const DataHora& quando) {
  const bool contaGnf = tipo != "RZ";
  const bool contaGrg = tipo == "RG";
  const bool contaCdc = tipo == "CC";
  ++contadores_.coo;
  if (contaGnf) ++contadores_.gnf;
  if (contaGrg) ++contadores_.grg;
  if (contaCdc) contadores_.cdc = contadores_.cdc % kUltimoCdc + 1;
  memoria_.outroDocumento.grava(contadores_.coo, contaGnf ? contadores_.gnf : 0,
                                contaGrg ? contadores_.grg : 0, contaCdc ? contadores_.cdc : 0,
                                reducaoAberta(), tipo, texto(quando));
  ++resumo_.outrosDocumentos;
}

void Ecf::emite(const CupomFiscal& cupom, const DataHora& quando) {
  ++contadores_.coo;
  ++contadores_.ccf;
  const std::string_view cancelado = letra(cupom.cancelado);
  const auto& quem = cupom.consumidor;
  memoria_.cupomFiscal.grava(contadores_.coo, contadores_.ccf, reducaoAberta(), texto(quando),
                             dinheiro(cupom.subtotal), dinheiro(cupom.desconto), dinheiro(cupom.acrescimo),
                             dinheiro(cupom.total), seCancelado(cupom.cancelado, cupom.acrescimo), cancelado,
                             quem.nome, quem.numero, kEmValor, kEmValor, kNenhum, kNenhum,
                             cupom.textoSuplementar, cupom.textoComplementar, cupom.assinatura);
  guardaItens(cupom);
  guardaPagamentos(cupom, false);
  totais_.acumula(cupom);
  ++resumo_.cupons;
  emiteComprovantes(cupom, quando);
}

void Ecf::guardaItens(const CupomFiscal& cupom) {
  std::int64_t sequencia = 0;
  for (const auto& item : cupom.itens) {
    const Produto& produto = *item.produto;
    memoria_.itemFiscal.grava(contadores_.coo, ++sequencia, produto.codigo, produto.descricao,
                              milesimos(item.quantidade), produto.unidade, milesimos(produto.preco),
                              dinheiro(item.desconto), dinheiro(item.acrescimo), dinheiro(item.total),
                              seCancelado(item.cancelado, item.acrescimo),
                              kTotalizadores[indice(produto.totalizador)], letra(item.cancelado),
                              produto.arredondamento, produto.venda->casas, produto.casas, 0, 0);
  }
  resumo_.itens += sequencia;
}

void Ecf::emite(const CupomNaoFiscal& cupom, const DataHora& quando) {
  documento("CN", quando);
  const std::string_view cancelado = letra(cupom.cancelado);
  memoria_.cupomNaoFiscal.grava(contadores_.coo, contadores_.gnf, reducaoAberta(), texto(quando),
                                dinheiro(cupom.subtotal), dinheiro(cupom.desconto), dinheiro(cupom.acrescimo),
                                dinheiro(cupom.total), seCancelado(cupom.cancelado, cupom.acrescimo),
                                cancelado, kEmValor, kEmValor, cupom.consumidor.nome,
                                cupom.consumidor.numero);
  guardaItens(cupom);
  guardaPagamentos(cupom, cupom.cancelado);
  totais_.acumula(cupom);
  emiteComprovantes(cupom, quando);
  if (cupom.cancelado) documento("NC", quando);
}

void Ecf::guardaItens(const CupomNaoFiscal& cupom) {
  std::int64_t sequencia = 0;
  for (const auto& item : cupom.itens) {
    memoria_.itemNaoFiscal.grava(contadores_.coo, ++sequencia, static_cast<int>(item.totalizador) + 1,
                                 dinheiro(item.valor), dinheiro(item.desconto), dinheiro(item.acrescimo),
                                 dinheiro(item.liquido()), seCancelado(item.cancelado, item.acrescimo),
                                 letra(item.cancelado));
  }
}

void Ecf::guardaPagamentos(const Cupom& cupom, bool estornados) {
  for (const auto& pagamento : cupom.pagamentos) {
    const Centavos estornado = estornados ? pagamento.valor : pagamento.estornado;
    memoria_.pagamento.grava(contadores_.coo, static_cast<int>(pagamento.meio) + 1, dinheiro(pagamento.valor),
                             dinheiro(estornado), letra(estornado != 0));
    ++resumo_.pagamentos;
  }
}

void Ecf::emiteComprovantes(const Cupom& cupom, const DataHora& quando) {
  for (const auto& pagamento : cupom.pagamentos) {
    if (pagamento.meio == FormaDePagamento::credito || pagamento.meio == FormaDePagamento::debito)
      documento("CC", quando);
  }
}

}  // namespace cotepe::loja
