// The totals of a fiscal day, as the printer adds them up.
#pragma once

#include <array>

#include "Amostra/Cupons.h"

namespace cotepe::loja {

// The rule by which coupons enter the totals:
// - Gross sales (VB) include every registered item before its discount, and every surcharge, even of what is
//   cancelled later; the grand total (GT) grows by VB.
// - Discounts go to DT or DS, surcharges also to AT or AS, cancelled net values to Can-T or Can-S; the S ones
//   are those of services. A discount or surcharge stays there even if it is cancelled later.
// - The totalizers of the tax codes keep the net values of what was sold. An adjustment of the subtotal is
//   divided among the codes of the coupon by their net values, in whole cents rounded down; the cents left
//   over go to the code with the greatest value, the first of them if there are several.
//   So VB = the tax codes + DT + DS + Can-T + Can-S, and the tax codes = the totals of the coupons not
//   cancelled.
// - Non-fiscal totalizers and means of payment take what was neither cancelled nor reversed.
struct TotaisDoEcf {
  Centavos vendaBruta = 0;
  std::array<Centavos, kTotalizadores.size()> fiscais{};
  std::array<Centavos, kNaoFiscais.size()> naoFiscais{};
  std::array<Centavos, kMeios.size()> meios{};

  void acumula(const CupomFiscal& cupom);
  void acumula(const CupomNaoFiscal& cupom);

 private:
  Centavos& fiscal(Parcial totalizador) { return fiscais[indice(totalizador)]; }
  void registra(const Item& item);
  void vende(const CupomFiscal& cupom);
  void cancela(const CupomFiscal& cupom);
  void recebe(const Cupom& cupom);
};

}  // namespace cotepe::loja
