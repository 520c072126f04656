// What the fiscal and the non-fiscal coupons have in common.
#pragma once

#include "Financial.h"
#include "Leiaute/Execucao.h"

namespace cotepe {

/// Which adjustment a coupon carries, by its discount (column 4) and its surcharge (column 5): "D", "A" or a
/// blank. Deliberate: of a coupon with both, the surcharge wins.
inline const char* ordemDescontoAcrescimo(const Fonte& cupom, const Execucao& /*execucao*/) {
  if (Financial::CentavosDoBanco(cupom.texto(5)) != 0) return "A";
  if (Financial::CentavosDoBanco(cupom.texto(4)) != 0) return "D";
  return " ";
}

}  // namespace cotepe
