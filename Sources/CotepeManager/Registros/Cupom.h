// What the fiscal and the non-fiscal coupons have in common.
#pragma once

#include "Financial.h"
#include "Leiaute/Especies.h"

namespace cotepe {

/// The columns of a coupon's query that both read.
inline constexpr std::int8_t kColunaDesconto = 4, kColunaAcrescimo = 5;

/// What the field for the order of discount and surcharge may hold.
inline constexpr Codigo kOrdens[] = {{"", marca("neither discount nor surcharge"), kColunaAcrescimo},
                                     {"D", marca("a discount"), kColunaDesconto},
                                     {"A", marca("a surcharge"), kColunaAcrescimo}};

/// Which adjustment a coupon carries, by its discount and its surcharge: "D", "A" or a
/// blank. Deliberate: of a coupon with both, the surcharge wins.
inline const char* ordemDescontoAcrescimo(const Fonte& cupom, const Execucao& /*execucao*/) {
  if (Financial::CentavosDoBanco(cupom.texto(kColunaAcrescimo)) != 0) return "A";
  if (Financial::CentavosDoBanco(cupom.texto(kColunaDesconto)) != 0) return "D";
  return " ";
}

}  // namespace cotepe
