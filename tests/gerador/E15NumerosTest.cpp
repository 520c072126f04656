#include <gtest/gtest.h>

#include "E15Item.h"

namespace {

TEST(E15, QuantityHasThreePlacesOnlyWhereItsPlacesAreThree) {
  const struct {
    const char* quantidade;
    const char* casas;
    const char* campo;
  } kCasos[] = {{"1.5", "2", "0000150"},     {"1.5", "3", "0001500"},    {"0.0625", "3", "0000063"},
                {"0.0625", "2", "0000006"},  {"1.5", "0", "0000150"},    {"1.5", "1", "0000150"},
                {"1.5", "", "0000150"},      {"1.5", "4", "0000150"},    {"1.5", "33", "0000150"},
                {"1.5", "3.9", "0001500"},   {"1.5", " 03", "0001500"},  {"9999.999", "3", "9999999"},
                {"0.125", "2", "0000013"},   {"-0.125", "2", "-000013"}, {"2.5", "tres", "0000250"},
                {"99999.99", "2", "9999999"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << caso.quantidade << " with places " << caso.casas);
    Bancada bancada;
    const std::string linha = linhaDoItemCom(bancada, std::string("quantidade='") + caso.quantidade +
                                                          "', casas_decimais_quantidade='" + caso.casas +
                                                          "', casas_decimais_valor='0'");
    EXPECT_EQ(posicoes(linha, 176, 182), caso.campo);
  }
}

TEST(E15, UnitValueHasThreePlacesOnlyWhereItsPlacesAreThree) {
  const struct {
    const char* valor;
    const char* casas;
    const char* campo;
  } kCasos[] = {{"12.345", "3", "00012345"},   {"12.345", "2", "00001235"}, {"0.125", "2", "00000013"},
                {"0.125", "", "00000013"},     {"0.125", "0", "00000013"},  {"0.125", "3", "00000125"},
                {"99999.999", "3", "99999999"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << caso.valor << " with places " << caso.casas);
    Bancada bancada;
    const std::string linha =
        linhaDoItemCom(bancada, std::string("valor_unitario='") + caso.valor + "', casas_decimais_valor='" +
                                    caso.casas + "', casas_decimais_quantidade='0'");
    EXPECT_EQ(posicoes(linha, 186, 193), caso.campo);
  }
}

// 1.005 is a little less than it says, and a hundred times it is too; 2.675 times a hundred is a half again.
TEST(E15, DiscountAndSurchargeAreRoundedAsDoublesHalvesAwayFromZero) {
  const struct {
    const char* valor;
    const char* campo;
  } kCasos[] = {{"0.10", "00000010"},      {"-0.05", "-0000005"},       {"1.005", "00000100"},
                {"2.675", "00000268"},     {"0.005", "00000001"},       {"-0.005", "-0000001"},
                {"0.0049", "00000000"},    {"999999.99", "99999999"},   {"1e2", "00010000"},
                {" +1.5x", "00000150"},    {"1,5", "00000100"},         {"", "00000000"},
                {"isento", "00000000"},    {"99999999.99", "21474836"}, {"-99999999.99", "-2147483"},
                {"1e400", "21474836"},     {"nan", "00000000"},         {"-1234567.89", "-1234567"},
                {"1234567.89", "12345678"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.valor);
    Bancada bancada;
    const std::string linha = linhaDoItemCom(
        bancada, std::string("valor_desconto='") + caso.valor + "', valor_acrescimo='" + caso.valor +
                     "', casas_decimais_quantidade='3', casas_decimais_valor='3'");
    EXPECT_EQ(posicoes(linha, 194, 209), std::string(caso.campo) + caso.campo);
  }
}

TEST(E15, TotalAndCancelledSurchargeAreMoneyTexts) {
  Bancada bancada;
  const std::string linha = linhaDoItemCom(bancada, "valor_total='1.005', valor_canc_acrescimo='12.3'");
  EXPECT_EQ(posicoes(linha, 210, 223), "00000000000101");
  EXPECT_EQ(posicoes(linha, 252, 264), "0000000001230");
}

TEST(E15, NegativeMoneyFillsItsFieldAndIsCutByTheNext) {
  Bancada bancada;
  const std::string linha =
      linhaDoItemCom(bancada, "valor_total='-1.00', aliquota='F1', valor_canc_acrescimo='-1.00'");
  EXPECT_EQ(posicoes(linha, 210, 999),
            "18446744073709"
            "F1     "
            "N"
            "0000000"
            "0000000000000"
            "1844674407370"
            "A"
            "2"
            "2");
}

TEST(E15, ItemNumberKeepsSixDigitsInAFieldOfThree) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {{"999", "999"}, {"1234", "123"}, {"1234567", "234"}, {"1000001", "001"},
                {"", "000"},    {"-1", "-01"},   {"7a", "007"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.numero);
    Bancada bancada;
    const std::string linha =
        linhaDoItemCom(bancada, std::string("cod_item='CODIGO', seq_item='") + caso.numero + "'");
    EXPECT_EQ(posicoes(linha, 59, 75), caso.campo + std::string("CODIGO        "));
  }
}

TEST(E15, CountersKeepTheirLastDigits) {
  const struct {
    int versao;
    const char* contador;
    const char* campo;
  } kCasos[] = {{1, "1234567", "234567"}, {2, "1234567", "001234567"}, {2, "1234567890", "234567890"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << caso.contador << " in layout " << caso.versao);
    Bancada bancada;
    bancada.versao(caso.versao).sql(std::string(kCupomDoItem) + kItem);
    bancada.sql(std::string("UPDATE cupom_fiscal SET cont_ccf='") + caso.contador + "', cont_coo='" +
                caso.contador + "'; UPDATE item_cupom_fiscal SET cont_coo='" + caso.contador + "'");
    EXPECT_EQ(posicoes(bancada.linha("E15"), 47, caso.versao == 1 ? 58 : 64),
              std::string(caso.campo) + caso.campo);
  }
}

TEST(E15, NegativeCountersOfAFullFieldAreCutByTheNextField) {
  Bancada bancada;
  bancada.sql(std::string(kCupomDoItem) + kItem);
  bancada.sql(
      "UPDATE cupom_fiscal SET cont_ccf='-1234567', cont_coo='-7654321';"
      "UPDATE item_cupom_fiscal SET cont_coo='-7654321'");
  EXPECT_EQ(posicoes(bancada.linha("E15"), 47, 61),
            "-65432"
            "-23456"
            "001");
}

TEST(E15, PlacesOfTwoDigitsAreCutInTheFirstFieldAndRunOverInTheLast) {
  Bancada bancada;
  EXPECT_EQ(
      posicoes(linhaDoItemCom(bancada, "casas_decimais_quantidade='10', casas_decimais_valor='3'"), 265, 999),
      "A"
      "1"
      "3");
  EXPECT_EQ(
      posicoes(linhaDoItemCom(bancada, "casas_decimais_quantidade='3', casas_decimais_valor='12'"), 265, 999),
      "A"
      "3"
      "12");
  EXPECT_EQ(
      posicoes(linhaDoItemCom(bancada, "casas_decimais_quantidade='', casas_decimais_valor='-2'"), 265, 999),
      "A"
      "0"
      "-2");
}

TEST(E15, PercentagesAreNotUsed) {
  Bancada bancada;
  const std::string sem = linhaDoItemCom(bancada, "valor_desconto='1.00'");
  EXPECT_EQ(linhaDoItemCom(bancada, "valor_desconto='1.00', perc_desconto='50', perc_acrescimo='70'"), sem);
}

}  // namespace
