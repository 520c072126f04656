#include <gtest/gtest.h>

#include "E15Item.h"
#include "Falhas.h"

namespace {

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
      bancada.sql(std::string(kCupomDoItem) + kItem + kTudoPreenchido);
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
    bancada.versao(versao).sql(kCupomDoItem);
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
  bancada.semIndicesAutomaticos();
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
    bancada.cat52(true).sql(std::string(kCupomDoItem) + kItem);
    bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
    EXPECT_EQ(bancada.registro("E15").size(), caso.incluido ? 1U : 0U);
  }
}

TEST(E15, AnItemWithoutItsCouponOrReductionIsLeftOut) {
  for (const char* mudanca :
       {"UPDATE item_cupom_fiscal SET cont_coo='11'", "UPDATE cupom_fiscal SET cont_crz='8'"}) {
    SCOPED_TRACE(mudanca);
    Bancada bancada;
    bancada.cat52(true).sql(std::string(kCupomDoItem) + kItem + mudanca);
    EXPECT_TRUE(bancada.registro("E15").empty());
  }
}

TEST(E15, OverlongTextsAreCutByTheNextField) {
  Bancada bancada;
  const std::string linha = linhaDoItemCom(
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
  const std::string linha = linhaDoItemCom(bancada, "quantidade='1', descricao='" + descricao + "'");
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
    EXPECT_EQ(posicoes(linhaDoItemCom(bancada, std::string("aliquota='") + caso.aliquota + "'"), 224, 230),
              caso.campo);
  }
}

TEST(E15, ACancelledItemCarriesNeitherItsQuantityNorItsValue) {
  Bancada bancada;
  const std::string linha = linhaDoItemCom(bancada, "id_cancelado='S', quantidade='3', valor_total='9.99'");
  EXPECT_EQ(posicoes(linha, 231, 251),
            "S"
            "0000000"
            "0000000000000");
}

TEST(E15, AnEmptyCancellationFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    SCOPED_TRACE(vazio);
    Bancada bancada;
    const std::string linha = linhaDoItemCom(bancada, std::string("aliquota='F1', id_cancelado=") + vazio);
    EXPECT_EQ(posicoes(linha, 224, 999), "F1     ");
    bancada.versao(2);
    EXPECT_EQ(linhaDoItemCom(bancada, std::string("aliquota='F1', id_cancelado=") + vazio).size(), 236U);
  }
}

TEST(E15, AnEmptyRoundingFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    SCOPED_TRACE(vazio);
    Bancada bancada;
    const std::string linha =
        linhaDoItemCom(bancada, std::string("valor_canc_acrescimo='1', id_arred_trunc_valor=") + vazio);
    EXPECT_EQ(posicoes(linha, 252, 999), "0000000000100");
  }
}

TEST(E15, OfALongFlagTheFirstCharacterStays) {
  Bancada bancada;
  const std::string linha =
      linhaDoItemCom(bancada, "id_cancelado='CANCELADO INTEIRO', id_arred_trunc_valor='TRUNCADO'");
  EXPECT_EQ(posicoes(linha, 231, 999),
            "C"
            "0000000"
            "0000000000000"
            "0000000000000"
            "T"
            "2"
            "2");
}

TEST(E15, NullColumnsAreEmpty) {
  Bancada bancada;
  EXPECT_EQ(linhaDoItemCom(bancada,
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
  bancada.sql(std::string(kCupomDoItem) + kItem + kItem + kItem);
  confereFalhaNoMeio(bancada, "E15", "item.cod_item", "Erro no select - TipoE15", Ordem::RegistraEFinaliza);
}

}  // namespace
