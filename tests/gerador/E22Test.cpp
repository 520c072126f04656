#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// No blank of the additional fiscal memory and no user number here.
const std::string kCabecalho =
    "E22"
    "SERIAL              "
    "MODELO              ";

// The line of a bench with one attempt: `numero` and `data`, as SQL.
std::string linhaDe(const std::string& numero, const std::string& data) {
  Bancada bancada;
  bancada.sql("INSERT INTO tentativas_sb VALUES(" + numero + ",'nao lida'," + data + ",'nao lida')");
  return bancada.versao(2).linha("E22");
}

TEST(E22, WritesEveryFieldToItsLastDigit) {
  const std::string linha = linhaDe("'9876'", "'2023-12-30 23:58:57'");
  EXPECT_EQ(linha,
            "E22"
            "SERIAL              "
            "MODELO              "
            "9876"
            "20231230");
  EXPECT_EQ(linha.size(), 55U);
}

TEST(E22, NumberIsNeverClippedAndMovesTheDate) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {{"'12345'", "12345"},
                {"'10000'", "10000"},
                {"'1234567890123456789'", "1234567890123456789"},
                {"'99999999999999999999'", "9223372036854775807"},
                {"'-12345'", "-12345"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(linhaDe(caso.numero, "'2023-12-30 23:58:57'"), kCabecalho + caso.campo + "20231230")
        << caso.numero;
}

TEST(E22, NumberIsReadAsAnInteger) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {{"''", "0000"},   {"NULL", "0000"}, {"7", "0007"},
                {"'7x'", "0007"}, {"'x7'", "0000"}, {"'-7'", "-007"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(linhaDe(caso.numero, "'2023-12-30 23:58:57'"), kCabecalho + caso.campo + "20231230")
        << caso.numero;
}

TEST(E22, EmptyOrShortDateEndsTheLineThere) {
  EXPECT_EQ(linhaDe("'1'", "''"), kCabecalho + "0001");
  EXPECT_EQ(linhaDe("'1'", "NULL"), kCabecalho + "0001");
  EXPECT_EQ(linhaDe("'1'", "'2023-12'"), kCabecalho + "0001" + "202312");
}

TEST(E22, BlankDateIsBlank) {
  EXPECT_EQ(linhaDe("'1'", "'                   '"), kCabecalho + "0001" + "        ");
}

TEST(E22, ColumnsAreTakenByPosition) {
  Bancada bancada;
  bancada.sql(
      "DROP TABLE tentativas_sb; CREATE TABLE tentativas_sb(a, b, c);"
      "INSERT INTO tentativas_sb VALUES('1','2','2023-12-30 23:58:57')");
  EXPECT_EQ(bancada.versao(2).linha("E22"), kCabecalho + "0001" + "20231230");
}

TEST(E22, EveryAttemptIsListedInTheTablesOrderWhateverThePeriod) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO tentativas_sb VALUES(3,'','2030-01-01 00:00:00',''),(1,'','1999-12-31 23:59:59',''),"
      "(2,'','2024-01-15 00:00:00','')");
  EXPECT_EQ(bancada.versao(2).registro("E22"),
            (std::vector<std::string>{kCabecalho + "0003" + "20300101", kCabecalho + "0001" + "19991231",
                                      kCabecalho + "0002" + "20240115"}));
}

TEST(E22, EmptyTableGivesNoLineInAnyMode) {
  Bancada bancada;
  for (const bool cat52 : {false, true}) EXPECT_TRUE(bancada.versao(2).cat52(cat52).registro("E22").empty());
  EXPECT_TRUE(g_mensagens.empty());
}

TEST(E22, IsTheLastLineOfARunInLayout2OnlyForMfAndTdm) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO tentativas_sb VALUES(1,'','2030-01-01 00:00:00','')");
  const struct {
    const char* comando;
    int versao;
    bool presente;
  } kCasos[] = {{"MF", 1, false}, {"TDM", 1, false}, {"MF", 3, false}, {"TDM", 3, false}, {"MF", 2, true},
                {"TDM", 2, true}, {"MFD", 2, false}, {"RZ", 2, false}, {"mf", 2, false}};
  for (const auto& caso : kCasos) {
    const auto linhas = bancada.versao(caso.versao).gera(caso.comando);
    EXPECT_EQ(doRegistro(linhas, "E22").size(), caso.presente ? 1U : 0U) << caso.versao << caso.comando;
    EXPECT_EQ(posicoes(linhas.back(), 1, 3) == "E22", caso.presente) << caso.versao << caso.comando;
  }
}

TEST(E22, MissingTableIsLoggedWithTheMessageOfE21) {
  Bancada bancada;
  bancada.sql("DROP TABLE tentativas_sb");
  EXPECT_TRUE(bancada.versao(2).registro("E22").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - TipoE21"});
}

TEST(E22, QueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(
      "INSERT INTO tentativas_sb VALUES('1','','2024-01-15 00:00:00',''),('2','','2024-01-15 00:00:00','')");
  confereFalhaNoMeio(bancada.versao(2), "E22", "FROM tentativas_sb", "Erro no select - TipoE21",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
