#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kCupom[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
    "INSERT INTO cupom_nf(cont_coo, cont_gnf, cont_crz) VALUES('10', '20', '7');"
    "INSERT INTO totalizador_nao_fiscal(num_indice, descricao) VALUES(5, 'SANGRIA');";
constexpr char kItem[] =
    "INSERT INTO item_cupom_nf(cont_coo, seq_item, indice_totalizador_nf, valor_total, valor_desconto,"
    " valor_acrescimo, valor_total_liquido, valor_canc_acrescimo, id_cancelado)"
    " VALUES('10','1',5,'0','0','0','0','0','N');";

// The only item of the bench, `mudanca` being a list of "column = value".
std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql(
      "DELETE FROM reducao_z; DELETE FROM cupom_nf; DELETE FROM totalizador_nao_fiscal;"
      "DELETE FROM item_cupom_nf");
  bancada.sql(kCupom);
  bancada.sql(kItem);
  bancada.sql("UPDATE item_cupom_nf SET " + mudanca);
  return bancada.linha("E20");
}

TEST(E20, WritesEveryFieldToItsLastDigit) {
  const struct {
    int versao;
    const char* coo;
    const char* gnf;
    std::size_t comprimento;
  } kCasos[] = {
      {1, "654321", "456789", 142}, {2, "987654321", "123456789", 148}, {3, "987654321", "123456789", 148}};
  for (const auto& caso : kCasos) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << caso.versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(caso.versao).cat52(cat52);
      bancada.sql(
          std::string(kCupom) + kItem +
          "UPDATE cupom_nf SET cont_coo='987654321', cont_gnf='123456789';"
          "UPDATE totalizador_nao_fiscal SET descricao='ABCDEFGHIJKLMNO';"
          "UPDATE item_cupom_nf SET cont_coo='987654321', seq_item='987', valor_total='12345678901.23',"
          "valor_desconto='23456789012.35', valor_acrescimo='34567890123.46',"
          "valor_total_liquido='45678901234.57', id_cancelado='S', valor_canc_acrescimo='56789012345.68'");
      const std::string linha = bancada.linha("E20");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E20") + caso.coo + caso.gnf +
                           "987"
                           "ABCDEFGHIJKLMNO"
                           "1234567890123"
                           "2345678901235"
                           "3456789012346"
                           "4567890123457"
                           "S"
                           "5678901234568");
      EXPECT_EQ(linha.size(), caso.comprimento);
    }
  }
}

TEST(E20, WithoutItemWritesOnePlaceholderOutsideCat52) {
  for (const int versao : {1, 2, 3}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(kCupom);
    EXPECT_EQ(bancada.linha("E20"), cabecalhoDoUsuario("E20") +
                                        (versao == 1 ? "000000000000" : "000000000000000000") +
                                        "000"
                                        "               "
                                        "0000000000000"
                                        "0000000000000"
                                        "0000000000000"
                                        "0000000000000"
                                        " "
                                        "0000000000000");
    EXPECT_TRUE(bancada.cat52(true).registro("E20").empty());
  }
}

TEST(E20, ItemsComeByGnfAndThenByItemNumber) {
  Bancada bancada;
  bancada.semIndicesAutomaticos();
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(7, '2024-01-15 00:00:00');"
      "INSERT INTO totalizador_nao_fiscal VALUES(5, 'SANGRIA');"
      "INSERT INTO cupom_nf(cont_coo, cont_gnf, cont_crz) VALUES(11, 30, 7), (12, 4, 7)");
  for (const char* item : {"11, 2", "12, 10", "11, 3", "11, 1", "12, 9"})
    bancada.sql(std::string("INSERT INTO item_cupom_nf(cont_coo, seq_item, indice_totalizador_nf) VALUES(") +
                item + ", 5)");
  const auto linhas = bancada.registro("E20");
  ASSERT_EQ(linhas.size(), 5U);
  EXPECT_EQ(posicoes(linhas[0], 47, 61), "000012000004009");
  EXPECT_EQ(posicoes(linhas[1], 47, 61), "000012000004010");
  EXPECT_EQ(posicoes(linhas[2], 47, 61), "000011000030001");
  EXPECT_EQ(posicoes(linhas[3], 47, 61), "000011000030002");
  EXPECT_EQ(posicoes(linhas[4], 47, 61), "000011000030003");
}

TEST(E20, AnItemWithoutItsTotalizerCouponOrReductionIsLeftOut) {
  for (const char* mudanca : {"UPDATE item_cupom_nf SET indice_totalizador_nf=6",
                              "UPDATE item_cupom_nf SET indice_totalizador_nf=NULL",
                              "UPDATE item_cupom_nf SET cont_coo='11'", "UPDATE cupom_nf SET cont_crz='8'"}) {
    SCOPED_TRACE(mudanca);
    Bancada bancada;
    bancada.cat52(true).sql(std::string(kCupom) + kItem + mudanca);
    EXPECT_TRUE(bancada.registro("E20").empty());
  }
}

TEST(E20, TheReductionsFiscalDayDecidesOnThePeriod) {
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
    EXPECT_EQ(bancada.registro("E20").size(), caso.incluido ? 1U : 0U);
  }
}

TEST(E20, ItemNumberIsNeverClippedAndMovesTheLaterFields) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {{"999", "999"}, {"1000", "1000"},   {"12345678901", "12345678901"},
                {"-1", "-01"},  {"-1234", "-1234"}, {"1x", "001"},
                {"", "000"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.numero);
    Bancada bancada;
    EXPECT_EQ(linhaCom(bancada, std::string("seq_item='") + caso.numero + "'"), cabecalhoDoUsuario("E20") +
                                                                                    "000010"
                                                                                    "000020" +
                                                                                    caso.campo +
                                                                                    "SANGRIA        "
                                                                                    "0000000000000"
                                                                                    "0000000000000"
                                                                                    "0000000000000"
                                                                                    "0000000000000"
                                                                                    "N"
                                                                                    "0000000000000");
  }
}

TEST(E20, OfALongTotalizerNameFifteenCharactersAreWritten) {
  Bancada bancada;
  bancada.sql(
      std::string(kCupom) + kItem +
      "UPDATE totalizador_nao_fiscal SET descricao='ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz'");
  EXPECT_EQ(posicoes(bancada.linha("E20"), 62, 999),
            "ABCDEFGHIJKLMNO"
            "0000000000000"
            "0000000000000"
            "0000000000000"
            "0000000000000"
            "N"
            "0000000000000");
}

TEST(E20, CountersKeepTheirLastDigits) {
  for (const int versao : {1, 2}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(std::string(kCupom) + kItem +
                               "UPDATE cupom_nf SET cont_coo='1234567890', cont_gnf='9876543210';"
                               "UPDATE item_cupom_nf SET cont_coo='1234567890'");
    EXPECT_EQ(posicoes(bancada.linha("E20"), 47, versao == 1 ? 58 : 64),
              versao == 1 ? "567890543210" : "234567890876543210");
  }
}

TEST(E20, AmountsWiderThanTheirFieldsAreCutByTheNextAndTheLastRunsOver) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada,
               "valor_total='123456789012.34', valor_desconto='-1.00', valor_acrescimo='-0.01',"
               "valor_total_liquido='1e30', valor_canc_acrescimo='-1.00'");
  EXPECT_EQ(posicoes(linha, 77, 999),
            "1234567890123"
            "1844674407370"
            "1844674407370"
            "9223372036854"
            "N"
            "18446744073709551516");
}

TEST(E20, AnEmptyCancellationFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    SCOPED_TRACE(vazio);
    Bancada bancada;
    const std::string mudanca = std::string("valor_total_liquido='1.23', id_cancelado=") + vazio;
    EXPECT_EQ(linhaCom(bancada, mudanca), cabecalhoDoUsuario("E20") +
                                              "000010"
                                              "000020"
                                              "001"
                                              "SANGRIA        "
                                              "0000000000000"
                                              "0000000000000"
                                              "0000000000000"
                                              "0000000000123");
    bancada.versao(2);
    EXPECT_EQ(linhaCom(bancada, mudanca).size(), 134U);
  }
}

TEST(E20, OfALongCancellationFlagTheFirstCharacterStays) {
  Bancada bancada;
  EXPECT_EQ(
      posicoes(linhaCom(bancada, "id_cancelado='SIM, CANCELADO ONTEM', valor_canc_acrescimo='1'"), 129, 999),
      "S"
      "0000000000100");
}

TEST(E20, NullColumnsAreEmpty) {
  Bancada bancada;
  bancada.sql(std::string(kCupom) + kItem +
              "UPDATE totalizador_nao_fiscal SET descricao=NULL; UPDATE cupom_nf SET cont_gnf=NULL;"
              "UPDATE item_cupom_nf SET seq_item=NULL, valor_total=NULL, valor_desconto=NULL,"
              "valor_acrescimo=NULL, valor_total_liquido=NULL, valor_canc_acrescimo=NULL");
  EXPECT_EQ(bancada.linha("E20"), cabecalhoDoUsuario("E20") +
                                      "000010"
                                      "000000"
                                      "000"
                                      "               "
                                      "0000000000000"
                                      "0000000000000"
                                      "0000000000000"
                                      "0000000000000"
                                      "N"
                                      "0000000000000");
}

TEST(E20, IsWrittenForMfdAndTdm) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM"})
    EXPECT_EQ(doRegistro(bancada.gera(comando), "E20").size(), 1U) << comando;
  for (const char* comando : {"MF", "RZ"})
    EXPECT_TRUE(doRegistro(bancada.gera(comando), "E20").empty()) << comando;
}

TEST(E20, AMissingTableOrColumnIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago :
       {"DROP TABLE item_cupom_nf", "DROP TABLE cupom_nf", "DROP TABLE totalizador_nao_fiscal",
        "DROP TABLE reducao_z", "ALTER TABLE item_cupom_nf DROP COLUMN valor_total_liquido"})
    confereConsultaImpossivel(estrago, "E20", "Erro no select - TipoE20");
}

TEST(E20, AQueryThatFailsHalfWayKeepsItsLinesAndLogsBeforeItFinalizes) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(std::string(kCupom) + kItem + kItem + kItem);
  confereFalhaNoMeio(bancada, "E20", "item.valor_total_liquido", "Erro no select - TipoE20",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
