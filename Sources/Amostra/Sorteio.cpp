#include "Amostra/Sorteio.h"

#include <algorithm>
#include <string>

#include "Amostra/Digitos.h"

namespace cotepe::loja {
namespace {

constexpr std::array kQuantosItens = {1, 1, 2, 2, 3, 3, 4, 4, 5, 6, 7, 10};  // four on average
constexpr std::array kNotas = {500, 1000, 2000, 5000, 10000, 20000};
constexpr std::array<std::string_view, 8> kPessoas = {
    "ANA BEATRIZ DE SOUZA",        "ANTONIO CARLOS PEREIRA",  "FRANCISCA DAS CHAGAS LIMA",
    "JOAO BATISTA FERREIRA",       "JOSE ROBERTO DOS SANTOS", "LUCIA HELENA RODRIGUES ALVES",
    "MARIA APARECIDA DE OLIVEIRA", "RAIMUNDO NONATO DA SILVA"};
constexpr std::array<std::string_view, 4> kEmpresas = {
    "CONSTRUTORA PEDRA ALTA LTDA", "PADARIA PAO DA MANHA ME", "TRANSPORTES ROTA DO VALE LTDA",
    "CONDOMINIO EDIFICIO DAS ACACIAS"};
constexpr std::string_view kBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

Consumidor sorteiaConsumidor(Aleatorio& aleatorio) {
  const int sorte = aleatorio.entre(1, 100);
  if (sorte <= 12) return {aleatorio.um(kPessoas), sorteiaCpf(aleatorio)};
  if (sorte <= 15) return {aleatorio.um(kEmpresas), sorteiaCnpj(aleatorio)};
  return {};
}

// One to ten per cent of an amount, in whole cents.
Centavos partePequena(Aleatorio& aleatorio, Centavos valor) { return valor * aleatorio.entre(1, 10) / 100; }

// Quantity and price in thousandths make millionths, ten thousand of them a cent.
Centavos valorBruto(const Produto& produto, std::int64_t quantidade) {
  const std::int64_t produtoExato = quantidade * produto.preco;
  return (produtoExato + (produto.arredondamento == "A" ? 5000 : 0)) / 10000;
}

Item sorteiaItem(Aleatorio& aleatorio) {
  const Produto& produto = aleatorio.um(kTabelaDeProdutos);
  const Venda& venda = *produto.venda;
  Item item{&produto, 0, 0, 0, 0, false};
  item.quantidade =
      venda.minimo + aleatorio.entre(0, (venda.maximo - venda.minimo) / venda.passo) * venda.passo;
  const Centavos bruto = valorBruto(produto, item.quantidade);
  if (aleatorio.chance(40)) item.desconto = partePequena(aleatorio, bruto);
  if (aleatorio.chance(10)) item.acrescimo = partePequena(aleatorio, bruto);
  item.total = bruto - item.desconto + item.acrescimo;
  return item;
}

// The first item is never cancelled, so that something is left to pay.
template <class Itens>
void cancelaAlguns(Aleatorio& aleatorio, Itens& itens, int porMil) {
  for (std::size_t item = 1; item < itens.size(); ++item) itens[item].cancelado = aleatorio.chance(porMil);
}

void ajustaSubtotal(Aleatorio& aleatorio, Cupom& cupom) {
  if (aleatorio.chance(60)) cupom.desconto = partePequena(aleatorio, cupom.subtotal);
  if (aleatorio.chance(20)) cupom.acrescimo = partePequena(aleatorio, cupom.subtotal);
}

void pagaEmDinheiro(Aleatorio& aleatorio, Cupom& cupom, Centavos valor) {
  Centavos entregue = valor;
  if (aleatorio.chance(700)) {
    const Centavos nota = aleatorio.um(kNotas);
    entregue = (valor + nota - 1) / nota * nota;
  }
  cupom.pagamentos.push_back({FormaDePagamento::dinheiro, entregue, 0});
  if (entregue > valor) cupom.pagamentos.push_back({FormaDePagamento::troco, entregue - valor, 0});
}

// What the customer takes back from the card is paid in cash instead.
void estorna(Aleatorio& aleatorio, Cupom& cupom) {
  Pagamento& cartao = cupom.pagamentos.back();
  cartao.estornado = aleatorio.chance(500) ? cartao.valor : (cartao.valor + 1) / 2;
  pagaEmDinheiro(aleatorio, cupom, cartao.estornado);
}

void paga(Aleatorio& aleatorio, Cupom& cupom) {
  const int sorte = aleatorio.entre(1, 100);
  if (sorte <= 46) {
    pagaEmDinheiro(aleatorio, cupom, cupom.total);
  } else if (sorte <= 90) {
    cupom.pagamentos.push_back(
        {sorte <= 65 ? FormaDePagamento::credito : FormaDePagamento::debito, cupom.total, 0});
    if (aleatorio.chance(20)) estorna(aleatorio, cupom);
  } else if (sorte <= 95) {
    cupom.pagamentos.push_back(
        {sorte <= 92 ? FormaDePagamento::cheque : FormaDePagamento::vale, cupom.total, 0});
  } else {
    const Centavos parte = cupom.total / 2;  // not zero: the cheapest item costs 50 cents
    cupom.pagamentos.push_back({FormaDePagamento::vale, parte, 0});
    pagaEmDinheiro(aleatorio, cupom, cupom.total - parte);
  }
}

void sorteiaTextos(Aleatorio& aleatorio, CupomFiscal& cupom) {
  if (aleatorio.chance(100)) {
    const Centavos tributos = cupom.total * 13 / 100;
    const auto centavos = std::to_string(100 + tributos % 100);
    cupom.textoSuplementar = "VALOR APROXIMADO DOS TRIBUTOS R$ " + std::to_string(tributos / 100) + "," +
                             centavos.substr(1) + " (13,00%). PROCON: DISQUE 151.";
  }
  if (aleatorio.chance(100))
    cupom.textoComplementar = "TROCAS EM ATE 7 DIAS COM ESTE CUPOM. OBRIGADO, VOLTE SEMPRE";
  if (aleatorio.chance(250)) {  // 32 bytes in base 64: 43 characters, the last of 4 bits, and the filling
    cupom.assinatura.resize(42);
    for (auto& letra : cupom.assinatura) letra = aleatorio.um(kBase64);
    cupom.assinatura += kBase64[static_cast<std::size_t>(aleatorio.entre(0, 15)) * 4];
    cupom.assinatura += '=';
  }
}

}  // namespace

CupomFiscal sorteiaCupomFiscal(Aleatorio& aleatorio) {
  CupomFiscal cupom{};
  cupom.consumidor = sorteiaConsumidor(aleatorio);
  const int quantos = aleatorio.um(kQuantosItens);
  for (int item = 0; item < quantos; ++item) cupom.itens.push_back(sorteiaItem(aleatorio));
  cancelaAlguns(aleatorio, cupom.itens, 20);
  bool temServico = false;
  for (const auto& item : cupom.itens) {
    if (!item.cancelado) cupom.subtotal += item.total;
    temServico = temServico || item.produto->totalizador == Parcial::servico;
  }
  if (!temServico) ajustaSubtotal(aleatorio, cupom);
  cupom.total = cupom.subtotal - cupom.desconto + cupom.acrescimo;
  cupom.cancelado = aleatorio.chance(15);
  if (!cupom.cancelado) paga(aleatorio, cupom);
  sorteiaTextos(aleatorio, cupom);
  return cupom;
}

CupomNaoFiscal sorteiaRecebimento(Aleatorio& aleatorio) {
  CupomNaoFiscal cupom{};
  if (aleatorio.chance(300)) cupom.consumidor = {aleatorio.um(kPessoas), sorteiaCpf(aleatorio)};
  const int quantos = aleatorio.entre(1, 3);
  for (int item = 0; item < quantos; ++item) {
    const auto totalizador = static_cast<NaoFiscal>(aleatorio.entre(2, 4));
    ItemNaoFiscal novo{totalizador, aleatorio.entre(1500, 35000), 0, 0, false};
    if (aleatorio.chance(60)) novo.desconto = partePequena(aleatorio, novo.valor);
    if (aleatorio.chance(60)) novo.acrescimo = partePequena(aleatorio, novo.valor);
    cupom.itens.push_back(novo);
  }
  cancelaAlguns(aleatorio, cupom.itens, 40);
  for (const auto& item : cupom.itens) cupom.subtotal += item.cancelado ? 0 : item.liquido();
  if (quantos == 1) ajustaSubtotal(aleatorio, cupom);
  cupom.total = cupom.subtotal - cupom.desconto + cupom.acrescimo;
  paga(aleatorio, cupom);
  cupom.cancelado = aleatorio.chance(80);
  return cupom;
}

CupomNaoFiscal movimentoDeCaixa(NaoFiscal totalizador, Centavos valor) {
  CupomNaoFiscal cupom{};
  cupom.itens.push_back({totalizador, valor, 0, 0, false});
  cupom.subtotal = cupom.total = valor;
  cupom.pagamentos.push_back({FormaDePagamento::dinheiro, valor, 0});
  return cupom;
}

}  // namespace cotepe::loja
