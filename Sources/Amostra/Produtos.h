// What the shop sells, and the totalizers to which the printer adds it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Leiaute/Releitura.h"

namespace cotepe::loja {

// The fiscal totalizers of the printer: those of the tax codes first, then discounts, surcharges,
// cancellations.
enum class Parcial : std::uint8_t {
  t18,
  t12,
  t07,
  servico,
  substituicao,
  isento,
  naoTributado,
  descontoIcms,
  descontoIss,
  acrescimoIcms,
  acrescimoIss,
  cancelamentoIcms,
  cancelamentoIss
};
constexpr std::array<std::string_view, 13> kTotalizadores = {
    "01T1800", "02T1200", "03T0700", "04S0500", "F1", "I1", "N1", "DT", "DS", "AT", "AS", "Can-T", "Can-S"};
constexpr std::size_t kAliquotas = 7;

constexpr std::size_t indice(Parcial totalizador) { return static_cast<std::size_t>(totalizador); }

// How a quantity is drawn: in thousandths, from `minimo` to `maximo` in steps of `passo`, printed with
// `casas` decimals.
struct Venda {
  int minimo, maximo, passo, casas;
};

struct Produto {
  std::string_view codigo;  // GTIN, or the short code of the shop
  std::string_view descricao;
  std::string_view unidade;
  int preco;  // in thousandths of the currency
  int casas;  // decimals of the price, 2 or 3
  const Venda* venda;
  Parcial totalizador;
  std::string_view arredondamento;  // "A" rounds, "T" truncates quantity times price
};

constexpr std::size_t kProdutos = 107;
extern const std::array<Produto, kProdutos> kTabelaDeProdutos;

}  // namespace cotepe::loja
