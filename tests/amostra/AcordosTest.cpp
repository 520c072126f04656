// The sample adds up: every total of a reduction is the sum of its documents, to the cent.
#include "Amostras.h"

namespace cotepe::testes {
namespace {

using Acordos = DaAmostra;
INSTANTIATE_TEST_SUITE_P(Amostras, Acordos, testing::ValuesIn(casos()), nomeDoCaso);

// The sum over totalizers of a reduction, and the sum over coupons or items of one.
std::string totalizadores(const std::string& codigos) {
  return "(SELECT SUM(centavos(valor_base_calculo)) FROM totalizador_reducao t WHERE t.cont_crz = r.cont_crz "
         "AND "
         "id_fiscal = 'S' AND totalizador IN (" +
         codigos + "))";
}
std::string cupons(const std::string& valor) {
  return "(SELECT TOTAL(" + valor + ") FROM cupom_fiscal c WHERE c.cont_crz = r.cont_crz)";
}
std::string itens(const std::string& valor) {
  return "(SELECT TOTAL(" + valor +
         ") FROM cupom_fiscal c JOIN item_cupom_fiscal i USING (cont_coo) WHERE c.cont_crz = r.cont_crz)";
}
std::string porReducao(const std::string& um, const std::string& outro) {
  return "SELECT r.cont_crz, CAST(" + um + " AS INTEGER), CAST(" + outro + " AS INTEGER) FROM reducao_z r";
}

const std::string kAliquotas = "'01T1800', '02T1200', '03T0700', '04S0500', 'F1', 'I1', 'N1'";

TEST_P(Acordos, GrossSalesAreTheRegisteredItemsAndSurcharges) {
  concorda("VB",
           porReducao("centavos(r.valor_vb)", itens("centavos(i.valor_total) + centavos(i.valor_desconto)") +
                                                  " + " + cupons("centavos(c.valor_acrescimo)")),
           dias());
}

TEST_P(Acordos, GrossSalesAreTaxCodesDiscountsAndCancellations) {
  concorda("VB",
           porReducao("centavos(r.valor_vb)", totalizadores(kAliquotas + ", 'DT', 'DS', 'Can-T', 'Can-S'")));
}

TEST_P(Acordos, TaxCodesAreTheTotalsOfTheCouponsThatStand) {
  concorda("tax codes",
           porReducao(totalizadores(kAliquotas),
                      cupons("CASE c.id_cancelado WHEN 'N' THEN centavos(c.valor_total) ELSE 0 END")));
}

TEST_P(Acordos, DiscountAndSurchargeTotalizersAreThoseOfTheDocuments) {
  concorda("DT",
           porReducao(totalizadores("'DT'"),
                      itens("CASE WHEN i.aliquota LIKE '__S%' THEN 0 ELSE centavos(i.valor_desconto) END") +
                          " + " + cupons("centavos(c.valor_desconto)")));
  concorda("DS",
           porReducao(totalizadores("'DS'"),
                      itens("CASE WHEN i.aliquota LIKE '__S%' THEN centavos(i.valor_desconto) ELSE 0 END")));
  concorda("AT",
           porReducao(totalizadores("'AT'"),
                      itens("CASE WHEN i.aliquota LIKE '__S%' THEN 0 ELSE centavos(i.valor_acrescimo) END") +
                          " + " + cupons("centavos(c.valor_acrescimo)")));
  concorda("AS",
           porReducao(totalizadores("'AS'"),
                      itens("CASE WHEN i.aliquota LIKE '__S%' THEN centavos(i.valor_acrescimo) ELSE 0 END")));
}

// Of a cancelled coupon the items that stood until then, with its adjustment, which a coupon with services
// never has.
TEST_P(Acordos, CancellationTotalizersAreTheCancelledItemsAndCoupons) {
  const std::string cancelado = "(i.id_cancelado = 'S' OR c.id_cancelado = 'S')";
  concorda("Can-S",
           porReducao(totalizadores("'Can-S'"), itens("CASE WHEN i.aliquota LIKE '__S%' AND " + cancelado +
                                                      " THEN centavos(i.valor_total) ELSE 0 END")));
  concorda("Can-T", porReducao(totalizadores("'Can-T'"),
                               itens("CASE WHEN i.aliquota NOT LIKE '__S%' AND " + cancelado +
                                     " THEN centavos(i.valor_total) ELSE 0 END") +
                                   " + " +
                                   cupons("CASE c.id_cancelado WHEN 'S' THEN centavos(c.valor_acrescimo) - "
                                          "centavos(c.valor_desconto) "
                                          "ELSE 0 END")));
}

TEST_P(Acordos, TheGrandTotalGrowsByTheGrossSalesOfEachDay) {
  concorda("GT",
           "SELECT cont_crz, centavos(valor_gt), LAG(centavos(valor_gt), 1, centavos(valor_gt) - "
           "centavos(valor_vb)) "
           "OVER (ORDER BY cont_crz) + centavos(valor_vb) FROM reducao_z",
           dias());
  concorda("position",
           "SELECT 1, centavos(valor_gt), (SELECT MAX(centavos(valor_gt)) FROM reducao_z) "
           "FROM posicao_totalizadores_contadores");
}

TEST_P(Acordos, ItemTotalIsQuantityTimesPriceRoundedOrTruncatedAndAdjusted) {
  concorda("item",
           "SELECT cont_coo, centavos(valor_total), (milesimos(quantidade) * milesimos(valor_unitario) + "
           "CASE id_arred_trunc_valor WHEN 'A' THEN 5000 WHEN 'T' THEN 0 END) / 10000 - "
           "centavos(valor_desconto) + "
           "centavos(valor_acrescimo) FROM item_cupom_fiscal",
           resumo_.itens);
  concorda("decimals",
           "SELECT cont_coo, 0, CASE casas_decimais_quantidade WHEN 2 THEN milesimos(quantidade) % 10 ELSE 0 "
           "END + "
           "CASE casas_decimais_valor WHEN 2 THEN milesimos(valor_unitario) % 10 ELSE 0 END FROM "
           "item_cupom_fiscal");
  concorda("cancelled surcharge",
           "SELECT cont_coo, centavos(valor_canc_acrescimo), CASE id_cancelado WHEN 'S' THEN "
           "centavos(valor_acrescimo) "
           "ELSE 0 END FROM item_cupom_fiscal");
}

TEST_P(Acordos, CouponsAreTheirItemsAndAdjustments) {
  concorda("subtotal",
           "SELECT c.cont_coo, centavos(c.valor_subtotal), SUM(CASE i.id_cancelado WHEN 'N' THEN "
           "centavos(i.valor_total) "
           "ELSE 0 END) FROM cupom_fiscal c JOIN item_cupom_fiscal i USING (cont_coo) GROUP BY c.cont_coo",
           resumo_.cupons);
  concorda(
      "non-fiscal subtotal",
      "SELECT c.cont_coo, centavos(c.valor_subtotal), SUM(CASE i.id_cancelado WHEN 'N' THEN "
      "centavos(i.valor_total_liquido) ELSE 0 END) FROM cupom_nf c JOIN item_cupom_nf i USING (cont_coo) "
      "GROUP BY c.cont_coo",
      2 * dias());
  concorda(
      "non-fiscal item",
      "SELECT cont_coo, centavos(valor_total_liquido), centavos(valor_total) - centavos(valor_desconto) + "
      "centavos(valor_acrescimo) FROM item_cupom_nf");
  for (const std::string tabela : {"cupom_fiscal", "cupom_nf"}) {
    concorda(tabela,
             "SELECT cont_coo, centavos(" +
                 std::string(tabela == "cupom_nf" ? "valor_total_cupom" : "valor_total") +
                 "), centavos(valor_subtotal) - centavos(valor_desconto) + centavos(valor_acrescimo) FROM " +
                 tabela);
    concorda(tabela,
             "SELECT cont_coo, centavos(valor_canc_acrescimo), CASE id_cancelado WHEN 'S' THEN "
             "centavos(valor_acrescimo) ELSE 0 END FROM " +
                 tabela);
  }
}

TEST_P(Acordos, SubtotalsAreAdjustedOnlyWhereTheRuleAllows) {
  concorda("no services",
           "SELECT cont_coo, 0, (SELECT COUNT(*) FROM item_cupom_fiscal i WHERE i.cont_coo = c.cont_coo AND "
           "i.aliquota "
           "LIKE '__S%') FROM cupom_fiscal c WHERE valor_desconto > 0 OR valor_acrescimo > 0",
           0);
  concorda("a single non-fiscal item",
           "SELECT cont_coo, 1, (SELECT COUNT(*) FROM item_cupom_nf i WHERE i.cont_coo = c.cont_coo) FROM "
           "cupom_nf c "
           "WHERE valor_desconto > 0 OR valor_acrescimo > 0",
           0);
}

// TROCO is what was handed back. A cancelled fiscal coupon was never paid, a cancelled non-fiscal one is
// reversed.
TEST_P(Acordos, PaymentsLessReversalsLessChangeAreTheTotalOfTheCoupon) {
  const std::string pago =
      "(SELECT COALESCE(SUM((centavos(valor_pagamento) - centavos(valor_estornado)) * "
      "CASE m.descricao WHEN 'TROCO' THEN -1 ELSE 1 END), 0) FROM pagamento_cupom p "
      "JOIN meio_pagamento m ON m.num_indice = p.indice_meio_pagamento WHERE p.cont_coo = c.cont_coo)";
  concorda("fiscal",
           "SELECT c.cont_coo, CASE id_cancelado WHEN 'N' THEN centavos(valor_total) ELSE 0 END, " + pago +
               " FROM cupom_fiscal c",
           resumo_.cupons);
  concorda("non-fiscal",
           "SELECT c.cont_coo, CASE id_cancelado WHEN 'N' THEN centavos(valor_total_cupom) ELSE 0 END, " +
               pago + " FROM cupom_nf c");
  concorda("paid at all",
           "SELECT c.cont_coo, id_cancelado = 'N', EXISTS(SELECT 1 FROM pagamento_cupom p "
           "WHERE p.cont_coo = c.cont_coo) FROM cupom_fiscal c");
  concorda("reversal flag",
           "SELECT cont_coo, id_estornado = 'S', centavos(valor_estornado) > 0 FROM pagamento_cupom");
  concorda("reversed at most",
           "SELECT cont_coo, centavos(valor_estornado) > centavos(valor_pagamento), 0 FROM pagamento_cupom");
}

TEST_P(Acordos, MeansOfPaymentOfAReductionAreItsPaymentsLessReversals) {
  const std::string documentos =
      "(SELECT cont_coo, cont_crz FROM cupom_fiscal UNION ALL SELECT cont_coo, cont_crz FROM cupom_nf)";
  concorda("means",
           "SELECT t.cont_crz || t.descricao_meio_pagamento, centavos(t.valor_acumulado), (SELECT "
           "COALESCE(SUM(centavos(valor_pagamento) - centavos(valor_estornado)), 0) FROM " +
               documentos +
               " d JOIN pagamento_cupom p USING (cont_coo) JOIN meio_pagamento m ON m.num_indice = "
               "p.indice_meio_pagamento "
               "WHERE d.cont_crz = t.cont_crz AND m.descricao = t.descricao_meio_pagamento) FROM "
               "meio_pagamento_reducao t",
           6 * dias());
}

// An adjustment of the subtotal belongs to the only item that such a coupon has.
TEST_P(Acordos, NonFiscalTotalizersAreTheItemsThatStand) {
  concorda(
      "items",
      "SELECT t.cont_crz || t.totalizador, centavos(t.valor_base_calculo), (SELECT "
      "COALESCE(SUM(centavos(i.valor_total_liquido) - centavos(c.valor_desconto) + "
      "centavos(c.valor_acrescimo)), 0) "
      "FROM cupom_nf c JOIN item_cupom_nf i USING (cont_coo) JOIN totalizador_nao_fiscal n ON n.num_indice = "
      "i.indice_totalizador_nf WHERE c.cont_crz = t.cont_crz AND n.descricao = t.totalizador AND "
      "c.id_cancelado = 'N' AND i.id_cancelado = 'N') FROM totalizador_reducao t WHERE t.id_fiscal = 'N'",
      5 * dias());
  concorda("coupons",
           "SELECT r.cont_crz, (SELECT SUM(centavos(valor_base_calculo)) FROM totalizador_reducao t WHERE "
           "t.cont_crz = "
           "r.cont_crz AND id_fiscal = 'N'), (SELECT SUM(centavos(valor_total_cupom)) FROM cupom_nf c WHERE "
           "c.cont_crz = "
           "r.cont_crz AND c.id_cancelado = 'N') FROM reducao_z r");
}

}  // namespace
}  // namespace cotepe::testes
