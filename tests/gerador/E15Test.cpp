#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kCupom[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
    "INSERT INTO cupom_fiscal(cont_ccf, cont_coo, cont_crz) VALUES('20', '10', '7');";

// An item of nothing: amounts zero, texts empty, two decimal places, not cancelled.
constexpr char kItem[] =
    "INSERT INTO item_cupom_fiscal(cont_coo, seq_item, cod_item, descricao, quantidade, valor_unitario,"
    " un_medida, valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, aliquota, id_cancelado,"
    " id_arred_trunc_valor, casas_decimais_quantidade, casas_decimais_valor, perc_acrescimo, perc_desconto)"
    " VALUES('10','1','','','0','0','','0','0','0','0','','N','A','2','2','0','0');";

// The only item of the only coupon of the bench, `mudanca` being a list of "column = value".
std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql("DELETE FROM reducao_z; DELETE FROM cupom_fiscal; DELETE FROM item_cupom_fiscal");
  bancada.sql(kCupom);
  bancada.sql(kItem);
  bancada.sql("UPDATE item_cupom_fiscal SET " + mudanca);
  return bancada.linha("E15");
}

// The item that fills every field, and its line after the two counters.
constexpr char kTudoPreenchido[] =
    "UPDATE cupom_fiscal SET cont_coo='987654321', cont_ccf='123456789';"
    "UPDATE item_cupom_fiscal SET cont_coo='987654321', seq_item='123', cod_item='ABCDEFGHIJKLMN',"
    "descricao='"
    "Dabcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijklmno"
    "pqrsZ', quantidade='98765.43', un_medida='PCT', valor_unitario='123456.78', valor_desconto='234567.89',"
    "valor_acrescimo='345678.91', valor_total='123456789012.34', aliquota='01T1899', id_cancelado='S',"
    "valor_canc_acrescimo='98765432109.87', id_arred_trunc_valor='T', casas_decimais_quantidade='2',"
    "casas_decimais_valor='9'";
const std::string kDepoisDosContadores =
    "123"
    "ABCDEFGHIJKLMN"
    "DabcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrsZ "
    "9876543"
    "PCT"
    "12345678"
    "23456789"
    "34567891"
    "12345678901234"
    "01T1899"
    "S"
    "0000000"
    "0000000000000"
    "9876543210987"
    "T"
    "2"
    "9";

TEST(E15, WritesEveryFieldToItsLastDigit) {
  const struct {
    int versao;
    const char* coo;
    const char* ccf;
    std::size_t comprimento;
  } kCasos[] = {
      {1, "654321", "456789", 267}, {2, "987654321", "123456789", 273}, {3, "987654321", "123456789", 273}};
  for (const auto& caso : kCasos) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << caso.versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(caso.versao).cat52(cat52);
      bancada.sql(std::string(kCupom) + kItem + kTudoPreenchido);
      const std::string linha = bancada.linha("E15");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E15") + caso.coo + caso.ccf + kDepoisDosContadores);
      EXPECT_EQ(linha.size(), caso.comprimento);
    }
  }
}

TEST(E15, WithoutItemWritesOnePlaceholderOutsideCat52) {
  for (const int versao : {1, 2, 3}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(kCupom);
    EXPECT_EQ(bancada.linha("E15"), cabecalhoDoUsuario("E15") +
                                        (versao == 1 ? "000000000000" : "000000000000000000") +
                                        "000"
                                        "              " +
                                        brancos(100) +
                                        "0000000"
                                        "   "
                                        "00000000"
                                        "00000000"
                                        "00000000"
                                        "00000000000000"
                                        "       "
                                        " "
                                        "0000000"
                                        "0000000000000"
                                        "0000000000000"
                                        " "
                                        "0"
                                        "0");
    EXPECT_TRUE(bancada.cat52(true).registro("E15").empty());
  }
}

TEST(E15, ItemsComeByCouponAndThenByItemNumber) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
      "INSERT INTO cupom_fiscal(cont_ccf, cont_coo, cont_crz) VALUES(2,11,'7'),(1,12,'7');");
  for (const char* item : {"11, 2", "11, 1", "12, 2", "12, 10"})
    bancada.sql(std::string("INSERT INTO item_cupom_fiscal(cont_coo, seq_item) VALUES(") + item + ")");
  const auto linhas = bancada.registro("E15");
  ASSERT_EQ(linhas.size(), 4U);
  EXPECT_EQ(posicoes(linhas[0], 47, 61),
            "000012"
            "000001"
            "002");
  EXPECT_EQ(posicoes(linhas[1], 47, 61),
            "000012"
            "000001"
            "010");
  EXPECT_EQ(posicoes(linhas[2], 47, 61),
            "000011"
            "000002"
            "001");
  EXPECT_EQ(posicoes(linhas[3], 47, 61),
            "000011"
            "000002"
            "002");
}

TEST(E15, TheReductionsFiscalDayDecidesOnThePeriod) {
  const struct {
    const char* movimento;
    bool incluido;
  } kCasos[] = {{"2024-01-01 00:00:00", true},
                {"2024-01-31 23:59:59", true},
                {"2023-12-31 23:59:59", false},
                {"2024-02-01 00:00:00", false},
                {"2024-01-01", false}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.movimento);
    Bancada bancada;
    bancada.cat52(true).sql(std::string(kCupom) + kItem);
    bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
    EXPECT_EQ(bancada.registro("E15").size(), caso.incluido ? 1U : 0U);
  }
}

TEST(E15, AnItemWithoutItsCouponOrReductionIsLeftOut) {
  for (const char* mudanca :
       {"UPDATE item_cupom_fiscal SET cont_coo='11'", "UPDATE cupom_fiscal SET cont_crz='8'"}) {
    SCOPED_TRACE(mudanca);
    Bancada bancada;
    bancada.cat52(true).sql(std::string(kCupom) + kItem + mudanca);
    EXPECT_TRUE(bancada.registro("E15").empty());
  }
}

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
    const std::string linha =
        linhaCom(bancada, std::string("quantidade='") + caso.quantidade + "', casas_decimais_quantidade='" +
                              caso.casas + "', casas_decimais_valor='0'");
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
        linhaCom(bancada, std::string("valor_unitario='") + caso.valor + "', casas_decimais_valor='" +
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
    const std::string linha =
        linhaCom(bancada, std::string("valor_desconto='") + caso.valor + "', valor_acrescimo='" + caso.valor +
                              "', casas_decimais_quantidade='3', casas_decimais_valor='3'");
    EXPECT_EQ(posicoes(linha, 194, 209), std::string(caso.campo) + caso.campo);
  }
}

TEST(E15, TotalAndCancelledSurchargeAreMoneyTexts) {
  Bancada bancada;
  const std::string linha = linhaCom(bancada, "valor_total='1.005', valor_canc_acrescimo='12.3'");
  EXPECT_EQ(posicoes(linha, 210, 223), "00000000000101");
  EXPECT_EQ(posicoes(linha, 252, 264), "0000000001230");
}

TEST(E15, NegativeMoneyFillsItsFieldAndIsCutByTheNext) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada, "valor_total='-1.00', aliquota='F1', valor_canc_acrescimo='-1.00'");
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
        linhaCom(bancada, std::string("cod_item='CODIGO', seq_item='") + caso.numero + "'");
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
    bancada.versao(caso.versao).sql(std::string(kCupom) + kItem);
    bancada.sql(std::string("UPDATE cupom_fiscal SET cont_ccf='") + caso.contador + "', cont_coo='" +
                caso.contador + "'; UPDATE item_cupom_fiscal SET cont_coo='" + caso.contador + "'");
    EXPECT_EQ(posicoes(bancada.linha("E15"), 47, caso.versao == 1 ? 58 : 64),
              std::string(caso.campo) + caso.campo);
  }
}

TEST(E15, NegativeCountersOfAFullFieldAreCutByTheNextField) {
  Bancada bancada;
  bancada.sql(std::string(kCupom) + kItem);
  bancada.sql(
      "UPDATE cupom_fiscal SET cont_ccf='-1234567', cont_coo='-7654321';"
      "UPDATE item_cupom_fiscal SET cont_coo='-7654321'");
  EXPECT_EQ(posicoes(bancada.linha("E15"), 47, 61),
            "-65432"
            "-23456"
            "001");
}

TEST(E15, OverlongTextsAreCutByTheNextField) {
  Bancada bancada;
  const std::string linha = linhaCom(
      bancada, "cod_item='ABCDEFGHIJKLMNOPQRSTUVWXYZ', descricao='D" + std::string(149, 'd') +
                   "', quantidade='1', un_medida='CAIXA', valor_unitario='2', aliquota='01T18.00 extra'");
  EXPECT_EQ(posicoes(linha, 62, 193),
            "ABCDEFGHIJKLMN"
            "D" +
                std::string(98, 'd') +
                " "
                "0000100"
                "CAI"
                "00000200");
  EXPECT_EQ(posicoes(linha, 224, 231),
            "01T1800"
            "N");
}

TEST(E15, ADescriptionOfManyBytesIsCutByTheQuantity) {
  std::string descricao;
  for (int i = 0; i < 60; ++i) descricao += "Ç";
  Bancada bancada;
  const std::string linha = linhaCom(bancada, "quantidade='1', descricao='" + descricao + "'");
  EXPECT_EQ(posicoes(linha, 76, 182), descricao.substr(0, 100) + "0000100");
  EXPECT_EQ(linha.size(), 267U);
}

TEST(E15, TaxCodeLosesItsPointsAndIsFilledWithBlanks) {
  const struct {
    const char* aliquota;
    const char* campo;
  } kCasos[] = {{"T18.00", "T1800  "},
                {"01T18.00", "01T1800"},
                {"..F.1..", "F1     "},
                {"", "       "},
                {"...", "       "}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.aliquota);
    Bancada bancada;
    EXPECT_EQ(posicoes(linhaCom(bancada, std::string("aliquota='") + caso.aliquota + "'"), 224, 230),
              caso.campo);
  }
}

TEST(E15, ACancelledItemCarriesNeitherItsQuantityNorItsValue) {
  Bancada bancada;
  const std::string linha = linhaCom(bancada, "id_cancelado='S', quantidade='3', valor_total='9.99'");
  EXPECT_EQ(posicoes(linha, 231, 251),
            "S"
            "0000000"
            "0000000000000");
}

TEST(E15, AnEmptyCancellationFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    SCOPED_TRACE(vazio);
    Bancada bancada;
    const std::string linha = linhaCom(bancada, std::string("aliquota='F1', id_cancelado=") + vazio);
    EXPECT_EQ(posicoes(linha, 224, 999), "F1     ");
    bancada.versao(2);
    EXPECT_EQ(linhaCom(bancada, std::string("aliquota='F1', id_cancelado=") + vazio).size(), 236U);
  }
}

TEST(E15, AnEmptyRoundingFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    SCOPED_TRACE(vazio);
    Bancada bancada;
    const std::string linha =
        linhaCom(bancada, std::string("valor_canc_acrescimo='1', id_arred_trunc_valor=") + vazio);
    EXPECT_EQ(posicoes(linha, 252, 999), "0000000000100");
  }
}

TEST(E15, OfALongFlagTheFirstCharacterStays) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada, "id_cancelado='CANCELADO INTEIRO', id_arred_trunc_valor='TRUNCADO'");
  EXPECT_EQ(posicoes(linha, 231, 999),
            "C"
            "0000000"
            "0000000000000"
            "0000000000000"
            "T"
            "2"
            "2");
}

TEST(E15, PlacesOfTwoDigitsAreCutInTheFirstFieldAndRunOverInTheLast) {
  Bancada bancada;
  EXPECT_EQ(posicoes(linhaCom(bancada, "casas_decimais_quantidade='10', casas_decimais_valor='3'"), 265, 999),
            "A"
            "1"
            "3");
  EXPECT_EQ(posicoes(linhaCom(bancada, "casas_decimais_quantidade='3', casas_decimais_valor='12'"), 265, 999),
            "A"
            "3"
            "12");
  EXPECT_EQ(posicoes(linhaCom(bancada, "casas_decimais_quantidade='', casas_decimais_valor='-2'"), 265, 999),
            "A"
            "0"
            "-2");
}

TEST(E15, PercentagesAreNotUsed) {
  Bancada bancada;
  const std::string sem = linhaCom(bancada, "valor_desconto='1.00'");
  EXPECT_EQ(linhaCom(bancada, "valor_desconto='1.00', perc_desconto='50', perc_acrescimo='70'"), sem);
}

TEST(E15, NullColumnsAreEmpty) {
  Bancada bancada;
  EXPECT_EQ(linhaCom(bancada,
                     "seq_item=NULL, cod_item=NULL, descricao=NULL, quantidade=NULL, un_medida=NULL,"
                     "valor_unitario=NULL, valor_desconto=NULL, valor_acrescimo=NULL, valor_total=NULL,"
                     "aliquota=NULL, valor_canc_acrescimo=NULL, casas_decimais_quantidade=NULL,"
                     "casas_decimais_valor=NULL"),
            cabecalhoDoUsuario("E15") +
                "000010"
                "000020"
                "000"
                "              " +
                brancos(100) +
                "0000000"
                "   "
                "00000000"
                "00000000"
                "00000000"
                "00000000000000"
                "       "
                "N"
                "0000000"
                "0000000000000"
                "0000000000000"
                "A"
                "0"
                "0");
}

TEST(E15, IsWrittenForMfdTdmAndRzRightAfterE14) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM", "RZ"}) {
    SCOPED_TRACE(comando);
    const auto linhas = bancada.gera(comando);
    std::size_t i = 0;
    while (i < linhas.size() && posicoes(linhas[i], 1, 3) != "E14") ++i;
    ASSERT_LT(i + 1, linhas.size());
    EXPECT_EQ(posicoes(linhas[i + 1], 1, 3), "E15");
  }
  EXPECT_TRUE(doRegistro(bancada.gera("MF"), "E15").empty());
}

TEST(E15, AMissingTableOrColumnIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago :
       {"DROP TABLE item_cupom_fiscal", "DROP TABLE cupom_fiscal", "DROP TABLE reducao_z",
        "ALTER TABLE item_cupom_fiscal DROP COLUMN perc_desconto",
        "ALTER TABLE item_cupom_fiscal RENAME COLUMN aliquota TO outra"})
    confereConsultaImpossivel(estrago, "E15", "Erro no select - TipoE15");
}

TEST(E15, AQueryThatFailsHalfWayKeepsItsLinesAndLogsBeforeItFinalizes) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(std::string(kCupom) + kItem + kItem + kItem);
  confereFalhaNoMeio(bancada, "E15", "item.cod_item", "Erro no select - TipoE15", Ordem::RegistraEFinaliza);
}

}  // namespace
