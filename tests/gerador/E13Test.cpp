#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kReducao[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('987654','2024-01-15 00:00:00');";

// The lines of a bench with that reduction and `totalizadores`, rows of totalizador_reducao.
std::vector<std::string> linhasDosTotalizadores(const std::string& totalizadores) {
  SCOPED_TRACE(totalizadores);
  Bancada bancada;
  bancada.sql(kReducao);
  bancada.sql("INSERT INTO totalizador_reducao VALUES" + totalizadores);
  return bancada.registro("E13");
}

// The same with one fiscal totalizer: its line.
std::string linhaDoFiscal(const std::string& totalizador, const std::string& valor) {
  const auto linhas = linhasDosTotalizadores("('987654'," + totalizador + "," + valor + ",'S')");
  EXPECT_EQ(linhas.size(), 2U);
  return linhas.empty() ? "" : linhas.front();
}

const std::string kVazioFiscal = cabecalhoDoUsuario("E13") +
                                 "000000"
                                 "       "
                                 "0000000000000";
const std::string kVazioNaoFiscal = cabecalhoDoUsuario("E13") +
                                    "000000"
                                    "OPNF   "
                                    "0000000000000";

TEST(E13, WritesEveryFieldToItsLastDigitInEveryLayout) {
  Bancada bancada;
  bancada.sql(kReducao);
  bancada.sql(
      "INSERT INTO totalizador_reducao VALUES('987654','01T1899','12345678901.23','S'),"
      "('987654','OUTRO','98765432109.87','N')");
  for (const int versao : {1, 2, 3}) {
    const auto linhas = bancada.versao(versao).registro("E13");
    EXPECT_EQ(linhas, (std::vector<std::string>{cabecalhoDoUsuario("E13") + "987654"
                                                                            "01T1899"
                                                                            "1234567890123",
                                                cabecalhoDoUsuario("E13") + "987654"
                                                                            "OPNF   "
                                                                            "9876543210987"}))
        << versao;
    EXPECT_EQ(linhas.front().size(), 72U);
  }
}

TEST(E13, FiscalTotalizersComeTaxedThenServicesThenOthers) {
  const auto linhas = linhasDosTotalizadores(
      "('987654','F1','1.00','S'),('987654','02S0500','2.00','S'),"
      "('987654','01T1800','3.00','S')");
  ASSERT_EQ(linhas.size(), 4U);
  EXPECT_EQ(posicoes(linhas[0], 53, 72),
            "01T1800"
            "0000000000300");
  EXPECT_EQ(posicoes(linhas[1], 53, 72),
            "02S0500"
            "0000000000200");
  EXPECT_EQ(posicoes(linhas[2], 53, 72),
            "F1     "
            "0000000000100");
  EXPECT_EQ(linhas[3], kVazioNaoFiscal);
}

TEST(E13, ReductionsComeByTheirCounterAndTheNonFiscalSumsAfterAllOfThem) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(10,'2024-01-02 00:00:00'),"
      "(9,'2024-01-03 00:00:00');"
      "INSERT INTO totalizador_reducao VALUES(10,'F1','1.00','S'),(10,'01T1800','2.00','S'),"
      "(9,'I1','3.00','S'),(9,'02S0500','4.00','S'),(10,'X','5.00','N'),(9,'Y','6.00','N')");
  const auto linhas = bancada.registro("E13");
  ASSERT_EQ(linhas.size(), 6U);
  EXPECT_EQ(posicoes(linhas[0], 47, 72),
            "000009"
            "02S0500"
            "0000000000400");
  EXPECT_EQ(posicoes(linhas[1], 47, 72),
            "000009"
            "I1     "
            "0000000000300");
  EXPECT_EQ(posicoes(linhas[2], 47, 72),
            "000010"
            "01T1800"
            "0000000000200");
  EXPECT_EQ(posicoes(linhas[3], 47, 72),
            "000010"
            "F1     "
            "0000000000100");
  EXPECT_EQ(posicoes(linhas[4], 47, 72),
            "000009"
            "OPNF   "
            "0000000000600");
  EXPECT_EQ(posicoes(linhas[5], 47, 72),
            "000010"
            "OPNF   "
            "0000000000500");
}

TEST(E13, RowsThatAreTheSameComeOnce) {
  EXPECT_EQ(linhasDosTotalizadores(
                "('987654','F1','1.00','S'),('987654','F1','1.00','S'),('987654','F1','1.01','S')")
                .size(),
            3U);
}

TEST(E13, NonFiscalTotalizersOfAReductionAreSummed) {
  const struct {
    const char* totalizadores;
    const char* soma;
  } kCasos[] = {{"('987654','A','10.25','N'),('987654','B','2.25','N')", "0000000001250"},
                {"('987654','A',10,'N')", "0000000001000"},
                {"('987654','A',4,'N'),('987654','A',4,'N')", "0000000000800"},
                {"('987654','A',12.5,'N')", "0000000001250"},
                {"('987654','A',NULL,'N')", "0000000000000"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(linhasDosTotalizadores(caso.totalizadores),
              (std::vector<std::string>{kVazioFiscal,
                                        cabecalhoDoUsuario("E13") + "987654" + "OPNF   " + caso.soma}))
        << caso.totalizadores;
}

TEST(E13, CodeLosesItsPointsAndIsCutByTheValue) {
  const struct {
    const char* codigo;
    const char* campo;
  } kCasos[] = {{"'01T18.00'", "01T1800"},
                {"'...F.1...'", "F1     "},
                {"'01T18.00.EXCESSO DE TEXTO ATRAS DO CODIGO'", "01T1800"},
                {"''", "       "}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(linhaDoFiscal(caso.codigo, "'1.00'"),
              cabecalhoDoUsuario("E13") + "987654" + caso.campo + "0000000000100")
        << caso.codigo;
}

TEST(E13, ValueIsReadAsMoney) {
  const struct {
    const char* valor;
    const char* campo;
  } kCasos[] = {{"'12.3'", "0000000001230"}, {"''", "0000000000000"},   {"NULL", "0000000000000"},
                {"1500", "0000000150000"},   {"12.5", "0000000001250"}, {"'x'", "0000000000000"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaDoFiscal("'F1'", caso.valor), 60, 100), caso.campo) << caso.valor;
}

TEST(E13, OverlongValueMakesTheLineLonger) {
  EXPECT_EQ(posicoes(linhaDoFiscal("'F1'", "'1234567890123.45'"), 53, 100),
            "F1     "
            "123456789012345");
  EXPECT_EQ(posicoes(linhaDoFiscal("'F1'", "'-1.00'"), 53, 100),
            "F1     "
            "18446744073709551516");
}

TEST(E13, ReductionCounterHasSixDigitsInEveryLayout) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('1234567','2024-01-15 00:00:00');"
      "INSERT INTO totalizador_reducao VALUES('1234567','F1','1.00','S'),('1234567','X','1.00','N')");
  for (const int versao : {1, 2})
    for (const auto& linha : bancada.versao(versao).registro("E13"))
      EXPECT_EQ(posicoes(linha, 47, 52), "234567");
}

TEST(E13, OtherMarksThanFiscalAndNonFiscalAreLeftOut) {
  EXPECT_EQ(linhasDosTotalizadores(
                "('987654','F1','1.00','s'),('987654','F1','1.00','n'),('987654','F1','1.00','X'),"
                "('987654','F1','1.00',''),('987654','F1','1.00',NULL)"),
            (std::vector<std::string>{kVazioFiscal, kVazioNaoFiscal}));
}

TEST(E13, NullCodeOfAFiscalTotalizerIsInNoGroup) {
  EXPECT_EQ(linhasDosTotalizadores("('987654',NULL,'1.00','S')"),
            (std::vector<std::string>{kVazioFiscal, kVazioNaoFiscal}));
}

TEST(E13, TotalizersOfReductionsOutsideThePeriodAreLeftOut) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(1,'2023-12-31 23:59:59'),"
      "(2,'2024-01-01 00:00:00'),(3,'2024-01-31 23:59:59'),(4,'2024-02-01 00:00:00');"
      "INSERT INTO totalizador_reducao SELECT n.cont_crz, t.codigo, '1.00', t.marca FROM reducao_z n,"
      " (SELECT '01T1800' codigo, 'S' marca UNION SELECT '01S0500', 'S' UNION SELECT 'F1', 'S'"
      "  UNION SELECT 'X', 'N') t;"
      "INSERT INTO totalizador_reducao VALUES(5,'F1','1.00','S')");
  std::vector<std::string> chaves;
  for (const auto& linha : bancada.registro("E13")) chaves.push_back(posicoes(linha, 47, 59));
  EXPECT_EQ(chaves,
            (std::vector<std::string>{"00000201T1800", "00000201S0500", "000002F1     ", "00000301T1800",
                                      "00000301S0500", "000003F1     ", "000002OPNF   ", "000003OPNF   "}));
}

TEST(E13, WithoutReductionsThereAreTwoPlaceholders) {
  Bancada bancada;
  EXPECT_EQ(bancada.registro("E13"), (std::vector<std::string>{kVazioFiscal, kVazioNaoFiscal}));
}

TEST(E13, Cat52ModeHoldsBackTheFiscalPlaceholderOnly) {
  Bancada bancada;
  EXPECT_EQ(bancada.cat52(true).registro("E13"), std::vector<std::string>{kVazioNaoFiscal});
}

TEST(E13, FiscalQueryThatCannotRunLeavesOutTheSecondPassToo) {
  confereConsultaImpossivel("ALTER TABLE totalizador_reducao RENAME COLUMN totalizador TO outra", "E13",
                            "Erro no select 1 - TipoE13");
  confereConsultaImpossivel("DROP TABLE totalizador_reducao", "E13", "Erro no select 1 - TipoE13");
}

TEST(E13, FiscalQueryThatFailsHalfWayKeepsTheLinesBeforeItAndLeavesOutTheSecondPass) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kReducao);
  bancada.sql(
      "INSERT INTO totalizador_reducao VALUES('987654','F1','1.00','S'),('987654','I1','1.00','S'),"
      "('987654','X','1.00','N')");
  confereFalhaNoMeio(bancada, "E13", "'0' as ORD", "Erro no select 1 - TipoE13", Ordem::RegistraEFinaliza);
}

// Two non-fiscal sums and a third that SQLite cannot make: integers beyond 64 bits.
TEST(E13, NonFiscalQueryThatFailsKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(1,'2024-01-01 00:00:00'),"
      "(2,'2024-01-02 00:00:00');"
      "INSERT INTO totalizador_reducao VALUES(1,'F1','3.00','S'),(1,'X',4,'N'),"
      "(2,'X',9223372036854775807,'N'),(2,'Y',9223372036854775807,'N')");
  EXPECT_EQ(bancada.registro("E13"), (std::vector<std::string>{cabecalhoDoUsuario("E13") + "000001"
                                                                                           "F1     "
                                                                                           "0000000000300",
                                                               cabecalhoDoUsuario("E13") + "000001"
                                                                                           "OPNF   "
                                                                                           "0000000000400"}));
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 2 - TipoE13"});
}

TEST(E13, NonFiscalQueryThatFailsAfterARowHasNoPlaceholderAndTheRunGoesOn) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kReducao);
  bancada.sql("INSERT INTO totalizador_reducao VALUES('987654','F1','1.00','S'),('987654','X','1.00','N')");
  const auto inteiro = bancada.gera("TDM");
  const FalhaNaLinha falha(bancada.banco(), "'OPNF'", 1);
  EXPECT_EQ(bancada.gera("TDM"), inteiro);
  EXPECT_EQ(bancada.resultado, 0);
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 2 - TipoE13"});
  EXPECT_EQ(falha.abertas, std::vector<int>{1});
}

}  // namespace
