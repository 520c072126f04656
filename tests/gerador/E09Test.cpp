#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kIntervencao[] =
    "INSERT INTO intervencao VALUES('987654','2023-12-30 23:58:57','S','X','9876','987654321');";

// The line of a bench whose only intervention is the one above, but for `mudanca`, a list of "column =
// value".
std::string linhaCom(int versao, const std::string& mudanca) {
  SCOPED_TRACE(mudanca);
  Bancada bancada;
  bancada.sql(kIntervencao);
  bancada.sql("UPDATE intervencao SET " + mudanca);
  return bancada.versao(versao).linha("E09");
}

TEST(E09, WritesEveryFieldToItsLastDigitInLayout1) {
  Bancada bancada;
  bancada.sql(kIntervencao);
  const std::string linha = bancada.linha("E09");
  EXPECT_EQ(linha, cabecalho("E09") +
                       "987654"
                       "20231230"
                       "235857"
                       "S");
  EXPECT_EQ(linha.size(), 65U);
}

TEST(E09, WritesEveryFieldToItsLastDigitInLayout2) {
  Bancada bancada;
  bancada.sql(kIntervencao);
  const std::string linha = bancada.versao(2).linha("E09");
  EXPECT_EQ(linha, cabecalho("E09") +
                       "987654"
                       "20231230"
                       "235857"
                       "S"
                       "X"
                       "9876"
                       "987654321");
  EXPECT_EQ(linha.size(), 79U);
}

TEST(E09, TypeAndCountersAreThereInExactlyLayout2) {
  for (const int versao : {0, 1, 3}) EXPECT_EQ(linhaCom(versao, "cont_cro='1'").size(), 65U) << versao;
}

TEST(E09, CountersKeepTheirLastDigits) {
  EXPECT_EQ(posicoes(linhaCom(1, "cont_cro='1234567'"), 45, 50), "234567");
  EXPECT_EQ(posicoes(linhaCom(2, "cont_cro='1000000'"), 45, 50), "000000");
  EXPECT_EQ(posicoes(linhaCom(2, "cont_crz='12345'"), 67, 70), "2345");
  EXPECT_EQ(posicoes(linhaCom(2, "cont_coo='1234567890'"), 71, 79), "234567890");
  EXPECT_EQ(posicoes(linhaCom(2, "cont_coo='1000000000'"), 71, 79), "000000000");
}

TEST(E09, CountersAreReadAsIntegers) {
  const struct {
    const char *valor, *crz, *coo;
  } kCasos[] = {{"''", "0000", "000000000"},   {"NULL", "0000", "000000000"}, {"7", "0007", "000000007"},
                {"'7x'", "0007", "000000007"}, {"'x7'", "0000", "000000000"}, {"'-7'", "-007", "-00000007"}};
  for (const auto& caso : kCasos) {
    EXPECT_EQ(posicoes(linhaCom(2, "cont_crz=" + std::string(caso.valor)), 67, 70), caso.crz) << caso.valor;
    EXPECT_EQ(posicoes(linhaCom(2, "cont_coo=" + std::string(caso.valor)), 71, 79), caso.coo) << caso.valor;
  }
}

TEST(E09, LeadingTOfTheTypeBecomesF) {
  const struct {
    const char* tipo;
    const char* campo;
  } kCasos[] = {{"'T'", "F"}, {"'TECNICA'", "F"}, {"'F'", "F"}, {"'X'", "X"},
                {"'t'", "t"}, {"' T'", " "},      {"'FT'", "F"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom(2, "id_tipo_intervencao=" + std::string(caso.tipo)), 65, 79),
              "S" + std::string(caso.campo) +
                  "9876"
                  "987654321")
        << caso.tipo;
}

TEST(E09, EmptyTypeEndsTheLineThere) {
  for (const char* vazio : {"''", "NULL"})
    EXPECT_EQ(linhaCom(2, "id_tipo_intervencao=" + std::string(vazio)), cabecalho("E09") +
                                                                            "987654"
                                                                            "20231230"
                                                                            "235857"
                                                                            "S")
        << vazio;
}

TEST(E09, EmptyDataLossFlagEndsTheLineThere) {
  for (const int versao : {1, 2})
    for (const char* vazio : {"''", "NULL"})
      EXPECT_EQ(linhaCom(versao, "id_perda_dados_mt=" + std::string(vazio)), cabecalho("E09") +
                                                                                 "987654"
                                                                                 "20231230"
                                                                                 "235857")
          << versao << vazio;
}

TEST(E09, SurplusOfTheDataLossFlagStaysInLayout1AndIsOverwrittenInLayout2) {
  EXPECT_EQ(posicoes(linhaCom(1, "id_perda_dados_mt='SIM, TODOS OS DADOS'"), 65, 200), "SIM, TODOS OS DADOS");
  EXPECT_EQ(posicoes(linhaCom(2, "id_perda_dados_mt='SIM, TODOS OS DADOS'"), 65, 200),
            "S"
            "X"
            "9876"
            "987654321");
}

TEST(E09, NullDateIsBlank) {
  EXPECT_EQ(posicoes(linhaCom(1, "data_hora_intervencao=NULL"), 51, 65),
            "        "
            "      "
            "S");
}

TEST(E09, ShortDateEndsTheLineThere) {
  EXPECT_EQ(linhaCom(2, "data_hora_intervencao=''"), cabecalho("E09") + "987654");
  EXPECT_EQ(linhaCom(2, "data_hora_intervencao='2023-12-30 23'"), cabecalho("E09") +
                                                                      "987654"
                                                                      "20231230"
                                                                      "23");
}

TEST(E09, EveryInterventionIsListedByRestartCounterWhateverThePeriod) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO intervencao VALUES(10,'2030-01-01 00:00:00','N','F',1,1),"
      "(9,'1999-12-31 23:59:59','S','F',1,1),(11,'2024-01-15 12:00:00','N','F',1,1)");
  EXPECT_EQ(bancada.registro("E09"),
            (std::vector<std::string>{cabecalho("E09") + "000009" + "19991231" + "235959" + "S",
                                      cabecalho("E09") + "000010" + "20300101" + "000000" + "N",
                                      cabecalho("E09") + "000011" + "20240115" + "120000" + "N"}));
}

TEST(E09, PlaceholderOfLayout1HasTheLengthOfARecord) {
  Bancada bancada;
  const std::string linha = bancada.linha("E09");
  EXPECT_EQ(linha, cabecalho("E09") +
                       "000000"
                       "        "
                       "      "
                       " ");
  EXPECT_EQ(linha.size(), 65U);
}

TEST(E09, PlaceholderOfLayout2IsOneShorterWithoutAnInterventionType) {
  Bancada bancada;
  const std::string linha = bancada.versao(2).linha("E09");
  EXPECT_EQ(linha, cabecalho("E09") +
                       "000000"
                       "        "
                       "      "
                       " "
                       "0000"
                       "000000000");
  EXPECT_EQ(linha.size(), 78U);
}

TEST(E09, Cat52ModeHasNoPlaceholderButKeepsRecords) {
  Bancada bancada;
  for (const int versao : {1, 2}) EXPECT_TRUE(bancada.versao(versao).cat52(true).registro("E09").empty());
  bancada.sql(kIntervencao);
  EXPECT_EQ(bancada.linha("E09").size(), 79U);
}

TEST(E09, QueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE intervencao RENAME COLUMN cont_coo TO outra", "E09",
                            "Erro no select - TipoE09");
  confereConsultaImpossivel("DROP TABLE intervencao", "E09", "Erro no select - TipoE09");
}

TEST(E09, QueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO intervencao(cont_cro, id_perda_dados_mt) VALUES('1','S'),('2','N')");
  confereFalhaNoMeio(bancada, "E09", "FROM intervencao", "Erro no select - TipoE09",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
