#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// A document with a number of its own in every counter, of the reduction 7.
constexpr char kDocumento[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
    "INSERT INTO outros_documentos(cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento,"
    " data_hora_fim_emissao) VALUES('11', '22', '33', '44', '7', 'CN', '2024-01-15 10:20:30');";

// The only document of the bench, `mudanca` being a list of "column = value".
std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql("DELETE FROM reducao_z; DELETE FROM outros_documentos");
  bancada.sql(kDocumento);
  bancada.sql("UPDATE outros_documentos SET " + mudanca);
  return bancada.linha("E16");
}

TEST(E16, WritesEveryFieldOfACreditVoucherToItsLastDigit) {
  const struct {
    int versao;
    const char* contadores;
    std::size_t comprimento;
  } kCasos[] = {{1, "654321456789000000", 90},
                {2, "987654321123456789000000000", 99},
                {3, "987654321123456789000000000", 99}};
  for (const auto& caso : kCasos) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << caso.versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(caso.versao).cat52(cat52);
      const std::string linha =
          linhaCom(bancada,
                   "cont_coo='987654321', cont_gnf='123456789', cont_grg='777777777', cont_cdc='9876',"
                   "id_tipo_documento='CC', data_hora_fim_emissao='2023-12-31 23:59:58'");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E16") + caso.contadores +
                           "9876"
                           "000000"
                           "CC"
                           "20231231"
                           "235958");
      EXPECT_EQ(linha.size(), caso.comprimento);
    }
  }
}

TEST(E16, WritesTheReportCounterToItsLastDigit) {
  Bancada bancada;
  const char* const relatorio =
      "cont_coo='987654321', cont_gnf='123456789', cont_grg='192837465', id_tipo_documento='RG'";
  EXPECT_EQ(posicoes(linhaCom(bancada, relatorio), 47, 76),
            "654321"
            "456789"
            "837465"
            "0000"
            "000000"
            "RG");
  bancada.versao(2);
  EXPECT_EQ(posicoes(linhaCom(bancada, relatorio), 47, 85),
            "987654321"
            "123456789"
            "192837465"
            "0000"
            "000000"
            "RG");
}

TEST(E16, WritesTheReductionCounterInSixDigitsWhateverTheLayout) {
  for (const int versao : {1, 2, 3}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(kDocumento);
    bancada.sql(
        "UPDATE reducao_z SET cont_crz='987654321';"
        "UPDATE outros_documentos SET cont_crz='987654321', id_tipo_documento='RZ'");
    EXPECT_EQ(bancada.linha("E16"), cabecalhoDoUsuario("E16") +
                                        (versao == 1 ? "000011000000000000" : "000000011000000000000000000") +
                                        "0000"
                                        "654321"
                                        "RZ"
                                        "20240115"
                                        "102030");
  }
}

TEST(E16, OnlyTheTypeThatOwnsACounterWritesIt) {
  const struct {
    const char* tipo;
    const char* gnf;
    const char* grg;
    const char* cdc;
    const char* crz;
    const char* simbolo;
  } kCasos[] = {{"CN", "000022", "000000", "0000", "000000", "CN"},
                {"RG", "000022", "000033", "0000", "000000", "RG"},
                {"CC", "000022", "000000", "0044", "000000", "CC"},
                {"NC", "000022", "000000", "0000", "000000", "NC"},
                {"RZ", "000000", "000000", "0000", "000007", "RZ"},
                {"cc", "000000", "000000", "0000", "000000", "cc"},
                {"XX", "000000", "000000", "0000", "000000", "XX"},
                {"", "000000", "000000", "0000", "000000", "  "},
                {"C", "000000", "000000", "0000", "000000", "C "},
                {"CCD", "000000", "000000", "0000", "000000", "CC"},
                {"RZ ", "000000", "000000", "0000", "000000", "RZ"},
                {" RZ", "000000", "000000", "0000", "000000", " R"},
                {"RELATORIO GERENCIAL", "000000", "000000", "0000", "000000", "RE"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << "type '" << caso.tipo << "'");
    Bancada bancada;
    EXPECT_EQ(linhaCom(bancada, std::string("id_tipo_documento='") + caso.tipo + "'"),
              cabecalhoDoUsuario("E16") + "000011" + caso.gnf + caso.grg + caso.cdc + caso.crz +
                  caso.simbolo +
                  "20240115"
                  "102030");
  }
}

TEST(E16, AVoucherCounterIsNeverClippedAndMovesTheLaterFields) {
  const struct {
    const char* cdc;
    const char* campo;
  } kCasos[] = {{"9999", "9999"},
                {"12345", "12345"},
                {"1234567890", "1234567890"},
                {"99999999999999999999", "9223372036854775807"},
                {"-1", "-001"},
                {"-12345", "-12345"},
                {"12x", "0012"},
                {"", "0000"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.cdc);
    Bancada bancada;
    EXPECT_EQ(linhaCom(bancada, std::string("id_tipo_documento='CC', cont_cdc='") + caso.cdc + "'"),
              cabecalhoDoUsuario("E16") +
                  "000011"
                  "000022"
                  "000000" +
                  caso.campo +
                  "000000"
                  "CC"
                  "20240115"
                  "102030");
  }
}

TEST(E16, WithoutDocumentWritesOnePlaceholderOutsideCat52) {
  for (const int versao : {1, 2, 3}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao);
    EXPECT_EQ(bancada.linha("E16"), cabecalhoDoUsuario("E16") +
                                        (versao == 1 ? "000000000000000000" : "000000000000000000000000000") +
                                        "0000"
                                        "000000"
                                        "  "
                                        "        "
                                        "      ");
    EXPECT_TRUE(bancada.cat52(true).registro("E16").empty());
  }
}

TEST(E16, DocumentsComeInAscendingCoo) {
  Bancada bancada;
  bancada.semIndicesAutomaticos();
  bancada.sql("INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(7, '2024-01-15 00:00:00')");
  for (const char* coo : {"30", "4", "20"})
    bancada.sql(std::string("INSERT INTO outros_documentos(cont_coo, cont_crz) VALUES(") + coo + ", 7)");
  const auto linhas = bancada.registro("E16");
  ASSERT_EQ(linhas.size(), 3U);
  EXPECT_EQ(posicoes(linhas[0], 47, 52), "000004");
  EXPECT_EQ(posicoes(linhas[1], 47, 52), "000020");
  EXPECT_EQ(posicoes(linhas[2], 47, 52), "000030");
}

TEST(E16, TheReductionsFiscalDayDecidesOnThePeriodNotTheDocumentsOwnTime) {
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
    bancada.cat52(true).sql(kDocumento);
    bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
    EXPECT_EQ(bancada.registro("E16").size(), caso.incluido ? 1U : 0U);
  }
}

TEST(E16, CountersKeepTheirLastDigits) {
  Bancada bancada;
  const char* const contadores =
      "cont_coo='1234567890', cont_gnf='9876543210', cont_grg='-9', id_tipo_documento='RG'";
  EXPECT_EQ(posicoes(linhaCom(bancada, contadores), 47, 64),
            "567890"
            "543210"
            "-00009");
  bancada.versao(2);
  EXPECT_EQ(posicoes(linhaCom(bancada, contadores), 47, 73),
            "234567890"
            "876543210"
            "-00000009");
}

TEST(E16, OfAShortDateTheLineEndsAtTheFirstMissingCharacter) {
  const struct {
    const char* data;
    const char* campos;
  } kCasos[] = {{"'2024-01-15 10:20:30.5'", "20240115102030"},
                {"'2024-01-15 10:20'", "202401151020"},
                {"'2024-01-15 1'", "202401151"},
                {"'2024-01-15'", "20240115"},
                {"'2024-1-5 10:20:30'", "20241- 1:2:3"},
                {"'2024-01'", "202401"},
                {"''", ""},
                {"NULL", ""}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.data);
    Bancada bancada;
    EXPECT_EQ(posicoes(linhaCom(bancada, std::string("data_hora_fim_emissao=") + caso.data), 77, 999),
              caso.campos);
  }
}

TEST(E16, NullColumnsAreEmpty) {
  Bancada bancada;
  EXPECT_EQ(linhaCom(bancada,
                     "cont_coo=NULL, cont_gnf=NULL, cont_grg=NULL, cont_cdc=NULL,"
                     "id_tipo_documento=NULL"),
            cabecalhoDoUsuario("E16") +
                "000000"
                "000000"
                "000000"
                "0000"
                "000000"
                "  "
                "20240115"
                "102030");
}

TEST(E16, IsWrittenForMfdTdmAndRz) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM", "RZ"})
    EXPECT_EQ(doRegistro(bancada.gera(comando), "E16").size(), 1U) << comando;
  EXPECT_TRUE(doRegistro(bancada.gera("MF"), "E16").empty());
}

TEST(E16, AMissingTableOrColumnIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago : {"DROP TABLE outros_documentos", "DROP TABLE reducao_z",
                              "ALTER TABLE outros_documentos DROP COLUMN cont_cdc"})
    confereConsultaImpossivel(estrago, "E16", "Erro no select - TipoE16");
}

TEST(E16, AQueryThatFailsHalfWayKeepsItsLinesAndFinalizesBeforeItLogs) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kDocumento);
  bancada.sql(
      "INSERT INTO outros_documentos SELECT * FROM outros_documentos;"
      "INSERT INTO outros_documentos SELECT * FROM outros_documentos");
  confereFalhaNoMeio(bancada, "E16", "FROM outros_documentos", "Erro no select - TipoE16",
                     Ordem::FinalizaERegistra);
}

}  // namespace
