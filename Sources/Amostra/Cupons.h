// The documents of the shop before they are written: amounts in cents, quantities in thousandths.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Amostra/Produtos.h"

namespace cotepe::loja {

struct Consumidor {
  std::string_view nome;
  std::string numero;  // CPF or CNPJ, digits only; empty like the name when the consumer is not identified
};

struct Item {
  const Produto* produto;
  std::int64_t quantidade;
  Centavos desconto, acrescimo;
  Centavos total;  // quantity times price, rounded or truncated, less discount plus surcharge
  bool cancelado;
};

// The printer's means of payment, numbered from 1. The change handed back is a payment of its own, TROCO:
// what the other means brought in, less reversals and less TROCO, is the total of the coupon.
enum class FormaDePagamento : std::uint8_t { dinheiro, cheque, credito, debito, vale, troco };
constexpr std::array<std::string_view, 6> kMeios = {"DINHEIRO",      "CHEQUE",        "CARTAO CREDITO",
                                                    "CARTAO DEBITO", "VALE ALIMENTO", "TROCO"};

struct Pagamento {
  FormaDePagamento meio;
  Centavos valor;
  Centavos estornado;
};

struct Cupom {
  Consumidor consumidor;
  Centavos subtotal, desconto, acrescimo, total;
  bool cancelado;
  std::vector<Pagamento> pagamentos;
};

// A fiscal coupon. Cancelled means abandoned before it was paid: it has no payments. It adjusts the subtotal
// by a discount or surcharge only when no item is a service.
struct CupomFiscal : Cupom {
  std::vector<Item> itens;
  std::string textoSuplementar, textoComplementar, assinatura;
};

// The totalizers of non-fiscal operations, numbered from 1.
enum class NaoFiscal : std::uint8_t { suprimento, sangria, luz, agua, recarga };
constexpr std::array<std::string_view, 5> kNaoFiscais = {"SUPRIMENTO", "SANGRIA", "CONTA DE LUZ",
                                                         "CONTA DE AGUA", "RECARGA FONE"};

struct ItemNaoFiscal {
  NaoFiscal totalizador;
  Centavos valor, desconto, acrescimo;
  bool cancelado;

  Centavos liquido() const { return valor - desconto + acrescimo; }
};

// A non-fiscal coupon. Cancelled means by a document of its own, after it was paid: its payments are
// reversed. It adjusts the subtotal only when it has a single item, to whose totalizer the adjustment then
// belongs.
struct CupomNaoFiscal : Cupom {
  std::vector<ItemNaoFiscal> itens;
};

}  // namespace cotepe::loja
