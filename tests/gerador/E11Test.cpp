#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kPosicao[] =
    "INSERT INTO posicao_totalizadores_contadores VALUES"
    "('123456','987654','123456789','234567891','345678912','456789123','345678','1234567890123456.78');";

// The line of a bench with that position, but for `mudanca`, a list of "column = value".
std::string linhaCom(int versao, const std::string& mudanca) {
  SCOPED_TRACE(mudanca);
  Bancada bancada;
  bancada.sql(kPosicao);
  bancada.sql("UPDATE posicao_totalizadores_contadores SET " + mudanca);
  return bancada.versao(versao).linha("E11");
}

TEST(E11, WritesEveryFieldToItsLastDigitInLayout1) {
  Bancada bancada;
  bancada.sql(kPosicao);
  const std::string linha = bancada.linha("E11");
  EXPECT_EQ(linha, cabecalho("E11") +
                       "123456"
                       "987654"
                       "456789"
                       "567891"
                       "678912"
                       "000000"
                       "000000"
                       "789123"
                       "000000"
                       "345678"
                       "123456789012345678"
                       "20240131"
                       "235959");
  EXPECT_EQ(linha.size(), 136U);
}

TEST(E11, StampOverwritesTheTotalFromItsSeventhDigitOnFromLayout2On) {
  Bancada bancada;
  bancada.sql(kPosicao);
  for (const int versao : {2, 3, 0}) {
    const std::string linha = bancada.versao(versao).linha("E11");
    EXPECT_EQ(linha, cabecalho("E11") +
                         "123456"
                         "987654"
                         "123456789"
                         "234567891"
                         "345678912"
                         "000000"
                         "000000"
                         "456789123"
                         "000000"
                         "345678"
                         "123456"
                         "20240131"
                         "235959")
        << versao;
    EXPECT_EQ(linha.size(), 136U) << versao;
  }
}

TEST(E11, TailOfASmallTotalIsLostInLayout2) {
  EXPECT_EQ(posicoes(linhaCom(1, "valor_gt='1234.56'"), 105, 136),
            "000000000000123456"
            "20240131"
            "235959");
  EXPECT_EQ(posicoes(linhaCom(2, "valor_gt='1234.56'"), 117, 136),
            "000000"
            "20240131"
            "235959");
}

TEST(E11, CountersKeepTheirLastDigits) {
  constexpr char kTodos[] =
      "cont_crz='1234567', cont_cro='1234567', cont_coo='1234567', cont_gnf='1234567', cont_ccf='1234567',"
      " cont_grg='1234567', cont_cfd='1234567'";
  EXPECT_EQ(posicoes(linhaCom(1, kTodos), 45, 104),
            "234567"
            "234567"
            "234567"
            "234567"
            "234567"
            "000000"
            "000000"
            "234567"
            "000000"
            "234567");
  EXPECT_EQ(posicoes(linhaCom(2, kTodos), 45, 116),
            "234567"
            "234567"
            "001234567"
            "001234567"
            "001234567"
            "000000"
            "000000"
            "001234567"
            "000000"
            "234567");
  EXPECT_EQ(posicoes(linhaCom(2, "cont_coo='9876543210', cont_grg='1000000000'"), 57, 65), "876543210");
  EXPECT_EQ(posicoes(linhaCom(2, "cont_coo='9876543210', cont_grg='1000000000'"), 96, 104), "000000000");
}

TEST(E11, NullColumnsAreZeros) {
  EXPECT_EQ(posicoes(linhaCom(1,
                              "cont_crz=NULL, cont_cro=NULL, cont_coo=NULL, cont_gnf=NULL, cont_ccf=NULL,"
                              " cont_grg=NULL, cont_cfd=NULL, valor_gt=NULL"),
                     45, 122),
            "000000000000"
            "000000000000000000"
            "000000000000"
            "000000"
            "000000"
            "000000"
            "000000000000000000");
}

TEST(E11, TotalIsReadAsMoney) {
  const struct {
    const char* valor;
    const char* total;
  } kCasos[] = {{"'12.3'", "000000000000001230"}, {"''", "000000000000000000"},
                {"'0'", "000000000000000000"},    {"'abc'", "000000000000000000"},
                {"12.5", "000000000000001250"},   {"'1500'", "000000000000150000"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom(1, "valor_gt=" + std::string(caso.valor)), 105, 122), caso.total)
        << caso.valor;
}

TEST(E11, OverlongTotalIsCutByTheStamp) {
  EXPECT_EQ(posicoes(linhaCom(1, "valor_gt='12345678901234567.89'"), 105, 200),
            "123456789012345678"
            "20240131"
            "235959");
  EXPECT_EQ(posicoes(linhaCom(1, "valor_gt='-1.00'"), 105, 200),
            "184467440737095515"
            "20240131"
            "235959");
}

TEST(E11, WithoutARowAllIsZerosInCat52ModeToo) {
  Bancada bancada;
  for (const bool cat52 : {false, true}) {
    EXPECT_EQ(bancada.versao(1).cat52(cat52).linha("E11"), cabecalho("E11") +
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "000000000000000000"
                                                               "20240131"
                                                               "235959");
    EXPECT_EQ(bancada.versao(2).cat52(cat52).linha("E11"), cabecalho("E11") +
                                                               "000000"
                                                               "000000"
                                                               "000000000"
                                                               "000000000"
                                                               "000000000"
                                                               "000000"
                                                               "000000"
                                                               "000000000"
                                                               "000000"
                                                               "000000"
                                                               "000000"
                                                               "20240131"
                                                               "235959");
  }
}

TEST(E11, OfSeveralRowsTheLastOneIsWritten) {
  Bancada bancada;
  bancada.sql(kPosicao);
  bancada.sql("INSERT INTO posicao_totalizadores_contadores VALUES('1','2','3','4','5','6','7','8.90')");
  EXPECT_EQ(bancada.linha("E11"), cabecalho("E11") +
                                      "000001"
                                      "000002"
                                      "000003"
                                      "000004"
                                      "000005"
                                      "000000"
                                      "000000"
                                      "000006"
                                      "000000"
                                      "000007"
                                      "000000000000000890"
                                      "20240131"
                                      "235959");
}

TEST(E11, StampIsTakenAtOffsets0And9WhateverTheSeparator) {
  Bancada bancada;
  g_carimbo = "19991231T010203";
  EXPECT_EQ(posicoes(bancada.linha("E11"), 123, 136),
            "19991231"
            "010203");
}

TEST(E11, LineNeverRunsBeyond137Characters) {
  Bancada bancada;
  g_carimbo = "20240131 235959987654";
  for (const int versao : {1, 2})
    EXPECT_EQ(posicoes(bancada.versao(versao).linha("E11"), 123, 200),
              "20240131"
              "2359599");
}

TEST(E11, ShortStampEndsTheLineThere) {
  Bancada bancada;
  g_carimbo = "20240131";
  EXPECT_EQ(posicoes(bancada.linha("E11"), 105, 200), "00000000000000000020240131");
  g_carimbo = "";
  EXPECT_EQ(bancada.linha("E11").size(), 122U);
  EXPECT_EQ(bancada.versao(2).linha("E11").size(), 122U);
}

TEST(E11, ReadsNoPeriod) {
  Bancada bancada;
  bancada.sql(kPosicao);
  EXPECT_EQ(posicoes(bancada.periodo("01011990", "31011990").linha("E11"), 45, 50), "123456");
}

TEST(E11, QueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE posicao_totalizadores_contadores RENAME COLUMN cont_grg TO outra",
                            "E11", "Erro no select - TipoE11");
  confereConsultaImpossivel("DROP TABLE posicao_totalizadores_contadores", "E11", "Erro no select - TipoE11");
}

TEST(E11, QueryThatFailsAfterARowLeavesNoLineAndTheRunGoesOn) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kPosicao);
  const auto inteiro = bancada.gera("TDM");
  const FalhaNaLinha falha(bancada.banco(), "SELECT cont_crz, cont_cro, cont_coo, cont_gnf", 1);
  EXPECT_EQ(bancada.gera("TDM"), dosOutros(inteiro, "E11"));
  EXPECT_EQ(bancada.resultado, 0);
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - TipoE11"});
  EXPECT_EQ(falha.abertas, std::vector<int>{1});
}

}  // namespace
