// The Z reductions of the period, as E01 tells their range.
#include <gtest/gtest.h>

#include "Bancada.h"

namespace {

// First and last counter, first and last day, over `reducoes`: rows of a counter, a movement and an issue.
std::string faixa(int versao, const std::string& reducoes) {
  SCOPED_TRACE(reducoes);
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO versao_sb VALUES('1','2023-12-30 23:58:57',1)");
  if (!reducoes.empty())
    bancada.sql("INSERT INTO reducao_z(cont_crz, data_movimento, data_hora_emissao) VALUES" + reducoes);
  const std::string linha = bancada.versao(versao).linha("E01");
  EXPECT_EQ(linha.size(), 166U);
  return posicoes(linha, 116, 143);
}

TEST(E01, RangeGoesFromTheLeastToTheGreatest) {
  EXPECT_EQ(
      faixa(
          1,
          "(10,'2024-01-03 00:00:00','2024-01-04 01:02:03'),(9,'2024-01-02 00:00:00','2024-01-05 01:02:03'),"
          "(8,'2024-01-04 00:00:00','2024-01-04 23:59:59')"),
      "000008"
      "000010"
      "20240102"
      "20240105");
}

TEST(E01, LastDayIsThatOfTheLastIssueEvenBehindThePeriod) {
  EXPECT_EQ(faixa(1, "(1,'2024-01-31 00:00:00','2024-02-03 01:02:03')"),
            "000001"
            "000001"
            "20240131"
            "20240203");
}

TEST(E01, WithoutAReductionInThePeriodCountersAreZeroAndDaysBlank) {
  for (const char* reducoes :
       {"", "(1,'2023-12-31 23:59:59','2024-01-01 00:00:00')", "(1,NULL,'2024-01-01 00:00:00')"})
    EXPECT_EQ(faixa(1, reducoes),
              "000000"
              "000000"
              "        "
              "        ")
        << reducoes;
}

TEST(E01, BothLimitsOfThePeriodAreIncluded) {
  const struct {
    const char* dia;
    bool conta;
  } kCasos[] = {{"2023-12-31 23:59:59", false},
                {"2024-01-01", false},
                {"2024-01-01 00:00:00", true},
                {"2024-01-31 23:59:59", true},
                {"2024-02-01 00:00:00", false}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(faixa(1, "(5,'" + std::string(caso.dia) + "',NULL)"), 1, 12),
              caso.conta ? "000005000005" : "000000000000")
        << caso.dia;
}

TEST(E01, WithoutAnIssueTimeTheLastDayIsBlank) {
  for (const char* vazio : {"NULL", "''"})
    EXPECT_EQ(faixa(1, "(7,'2024-01-02 00:00:00'," + std::string(vazio) + ")"),
              "000007"
              "000007"
              "20240102"
              "        ")
        << vazio;
}

TEST(E01, ReductionsWithoutACounterCountAsNone) {
  for (const char* vazio : {"NULL", "''"})
    EXPECT_EQ(faixa(1, "(" + std::string(vazio) + ",'2024-01-02 00:00:00','2024-01-03 00:00:00')"),
              "000000"
              "000000"
              "        "
              "        ")
        << vazio;
}

TEST(E01, ReductionCountersHaveSixDigitsInEveryLayout) {
  for (const int versao : {1, 2, 3})
    EXPECT_EQ(posicoes(faixa(versao,
                             "('1234567','2024-01-02 00:00:00',NULL),('9000008','2024-01-02 00:00:00',NULL)"),
                       1, 12),
              "234567"
              "000008")
        << versao;
}

}  // namespace
