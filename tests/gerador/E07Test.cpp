#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// The line of a bench with one version: `valores` are its text, its date-time and its sequence number.
std::string linhaDa(const std::string& valores) {
  SCOPED_TRACE(valores);
  Bancada bancada;
  bancada.sql("INSERT INTO versao_sb VALUES(" + valores + ")");
  return bancada.linha("E07");
}

TEST(E07, WritesEveryFieldToItsLastCharacter) {
  const std::string linha = linhaDa("'VERSAO4567','2023-12-30 23:58:57','1'");
  EXPECT_EQ(linha, cabecalho("E07") +
                       "VERSAO4567"
                       "20231230");
  EXPECT_EQ(linha.size(), 62U);
}

TEST(E07, VersionIsBlankFilledAndCutByItsDate) {
  const struct {
    const char* versao;
    const char* campo;
  } kCasos[] = {{"'1.0'", "1.0       "},
                {"''", "          "},
                {"NULL", "          "},
                {"'123456789012'", "1234567890"},
                {"'1234567890123456789012345678901234567890'", "1234567890"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(linhaDa(std::string(caso.versao) + ",'2023-12-30 23:58:57',1"),
              cabecalho("E07") + caso.campo + "20231230")
        << caso.versao;
}

TEST(E07, NullDateIsBlank) {
  EXPECT_EQ(linhaDa("'1.0', NULL, 1"), cabecalho("E07") +
                                           "1.0       "
                                           "        ");
}

TEST(E07, ShortDateEndsTheLineThere) {
  EXPECT_EQ(linhaDa("'1.0', '', 1"), cabecalho("E07") + "1.0       ");
  EXPECT_EQ(linhaDa("'1.0', '2023-1', 1"), cabecalho("E07") + "1.0       " + "20231");
}

TEST(E07, EveryVersionIsListedInTheOrderOfTheDatabase) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO versao_sb VALUES('3','2023-12-30 00:00:00',9),('1','1999-01-01 00:00:00',2),"
      "('2','2030-01-01 00:00:00',5)");
  EXPECT_EQ(bancada.registro("E07"),
            (std::vector<std::string>{cabecalho("E07") + "3         " + "20231230",
                                      cabecalho("E07") + "1         " + "19990101",
                                      cabecalho("E07") + "2         " + "20300101"}));
}

TEST(E07, PlaceholderIsEighteenBareBlanksInCat52ModeToo) {
  Bancada bancada;
  for (const bool cat52 : {false, true})
    for (const int versao : {1, 2})
      EXPECT_EQ(bancada.cat52(cat52).versao(versao).linha("E07"), "                  ");
}

TEST(E07, IsTheSameInEveryLayout) {
  Bancada bancada;
  bancada.sql("INSERT INTO versao_sb VALUES('1.0','2023-12-30 23:58:57',1)");
  for (const int versao : {1, 2, 3})
    EXPECT_EQ(bancada.versao(versao).cat52(true).linha("E07"), cabecalho("E07") +
                                                                   "1.0       "
                                                                   "20231230");
}

TEST(E07, QueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE versao_sb RENAME COLUMN versao TO outra", "E07",
                            "Erro no select - TipoE07");
  confereConsultaImpossivel("DROP TABLE versao_sb", "E07", "Erro no select - TipoE07");
}

TEST(E07, QueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO versao_sb VALUES('1','2023-12-30 23:58:57',1),('2','2024-01-02 03:04:05',2)");
  confereFalhaNoMeio(bancada, "E07", "'                   ') FROM versao_sb", "Erro no select - TipoE07",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
