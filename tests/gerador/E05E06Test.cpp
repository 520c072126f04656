#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kUsuario[] = "INSERT INTO dados_usuario(cnpj) VALUES('98765432109876');";
constexpr char kCodificacao[] = "INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57','ZYXWVUTSRQ');";
constexpr char kMoeda[] = "INSERT INTO moeda VALUES('2023-12-30 23:58:57','CR$ ');";

TEST(E05, WritesEveryFieldToItsLastCharacter) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(kCodificacao);
  const std::string linha = bancada.linha("E05");
  EXPECT_EQ(linha, cabecalho("E05") +
                       "98765432109876"
                       "20231230"
                       "235857"
                       "ZYXWVUTSRQ");
  EXPECT_EQ(linha.size(), 82U);
}

TEST(E06, WritesEveryFieldToItsLastCharacter) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql("INSERT INTO moeda VALUES('2023-12-30 23:58:57','NCz$')");
  const std::string linha = bancada.linha("E06");
  EXPECT_EQ(linha, cabecalho("E06") +
                       "98765432109876"
                       "20231230"
                       "235857"
                       "NCz$");
  EXPECT_EQ(linha.size(), 76U);
}

TEST(E05, CodingHasNeitherWidthNorFill) {
  const struct {
    const char* codificacao;
    const char* campo;
  } kCasos[] = {{"'ABC'", "ABC"},
                {"''", ""},
                {"NULL", ""},
                {"' A '", " A "},
                {"'ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789'", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"}};
  for (const auto& caso : kCasos) {
    Bancada bancada;
    bancada.sql(kUsuario);
    bancada.sql("INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57'," + std::string(caso.codificacao) +
                ")");
    EXPECT_EQ(bancada.linha("E05"), cabecalho("E05") +
                                        "98765432109876"
                                        "20231230"
                                        "235857" +
                                        caso.campo)
        << caso.codificacao;
  }
}

TEST(E06, SymbolIsBlankFilledToFourAndWrittenWholeWhenLonger) {
  const struct {
    const char* simbolo;
    const char* campo;
  } kCasos[] = {{"'R$'", "R$  "}, {"''", "    "}, {"NULL", "    "}, {"'CRUZEIRO REAL'", "CRUZEIRO REAL"}};
  for (const auto& caso : kCasos) {
    Bancada bancada;
    bancada.sql(kUsuario);
    bancada.sql("INSERT INTO moeda VALUES('2023-12-30 23:58:57'," + std::string(caso.simbolo) + ")");
    EXPECT_EQ(bancada.linha("E06"), cabecalho("E06") +
                                        "98765432109876"
                                        "20231230"
                                        "235857" +
                                        caso.campo)
        << caso.simbolo;
  }
}

TEST(E05, EmptyTableGivesAPlaceholderInCat52ModeToo) {
  Bancada bancada;
  bancada.sql(kUsuario);
  for (const bool cat52 : {false, true}) {
    const std::string linha = bancada.cat52(cat52).linha("E05");
    EXPECT_EQ(linha, cabecalho("E05") +
                         "98765432109876"
                         "        "
                         "      "
                         "          ");
    EXPECT_EQ(linha.size(), 82U);
  }
}

TEST(E06, EmptyTableGivesAPlaceholderInCat52ModeToo) {
  Bancada bancada;
  bancada.sql(kUsuario);
  for (const bool cat52 : {false, true}) {
    const std::string linha = bancada.cat52(cat52).linha("E06");
    EXPECT_EQ(linha, cabecalho("E06") +
                         "98765432109876"
                         "        "
                         "      "
                         "    ");
    EXPECT_EQ(linha.size(), 76U);
  }
}

// What E05 and E06 share, over tables with one recording each.
class E05E06 : public testing::TestWithParam<const char*> {
 protected:
  E05E06() {
    bancada.sql(kCodificacao);
    bancada.sql(kMoeda);
  }
  std::string cnpjs(std::size_t ate) { return posicoes(bancada.linha(GetParam()), 45, ate); }

  Bancada bancada;
};

TEST_P(E05E06, WithoutAUserTheCnpjIsZeros) {
  EXPECT_EQ(cnpjs(66),
            "00000000000000"
            "20231230");
}

TEST_P(E05E06, TwoUsersPutTwoCnpjsAndShiftTheLaterFields) {
  bancada.sql(kUsuario);
  bancada.sql("INSERT INTO dados_usuario(cnpj) VALUES('11222333000144')");
  EXPECT_EQ(cnpjs(86),
            "98765432109876"
            "11222333000144"
            "20231230"
            "235857");
}

TEST_P(E05E06, PunctuatedCnpjStopsAtItsFirstPoint) {
  bancada.sql("INSERT INTO dados_usuario(cnpj) VALUES('12.345.678/0001-90')");
  EXPECT_EQ(cnpjs(58), "00000000000012");
}

TEST_P(E05E06, OverlongCnpjIsCutByTheDateAndNullIsZeros) {
  bancada.sql("INSERT INTO dados_usuario(cnpj) VALUES('123456789012345'),(NULL)");
  EXPECT_EQ(cnpjs(80),
            "12345678901234"
            "00000000000000"
            "20231230");
}

TEST_P(E05E06, NullDateIsBlank) {
  bancada.sql("UPDATE codificacao_gt SET data_hora_gravacao=NULL; UPDATE moeda SET data_hora_gravacao=NULL");
  EXPECT_EQ(cnpjs(72),
            "00000000000000"
            "        "
            "      ");
}

TEST_P(E05E06, ShortDateEndsTheLineThere) {
  bancada.sql(
      "UPDATE codificacao_gt SET data_hora_gravacao='2023'; UPDATE moeda SET data_hora_gravacao='2023'");
  EXPECT_EQ(bancada.linha(GetParam()), cabecalho(GetParam()) +
                                           "00000000000000"
                                           "2023");
}

TEST_P(E05E06, ReadNoPeriodAndAreTheSameInEveryLayout) {
  bancada.periodo("01011990", "31011990");
  const std::string linha = bancada.linha(GetParam());
  for (const int versao : {1, 2, 3}) EXPECT_EQ(bancada.versao(versao).linha(GetParam()), linha);
  EXPECT_EQ(posicoes(linha, 59, 72), "20231230235857");
}

INSTANTIATE_TEST_SUITE_P(Os, E05E06, testing::Values("E05", "E06"),
                         [](const auto& caso) { return caso.param; });

// Line and cursor go on from row to row.
TEST(E05, SecondRowOverwritesTheCodingOfTheFirst) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(
      "INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57','PRIMEIRA CODIFICACAO BEM COMPRIDA'),"
      "('2024-01-02 03:04:05','SEGUNDA'),('2024-02-03 04:05:06','TERCEIRA')");
  const std::string primeira = cabecalho("E05") +
                               "98765432109876"
                               "20231230"
                               "235857";
  const std::string segunda = primeira +
                              "20240102"
                              "030405";
  const std::string terceira = segunda +
                               "20240203"
                               "040506";
  EXPECT_EQ(bancada.registro("E05"), (std::vector<std::string>{primeira + "PRIMEIRA CODIFICACAO BEM COMPRIDA",
                                                               segunda + "SEGUNDA", terceira + "TERCEIRA"}));
}

TEST(E06, SecondRowAppendsAGroupAfterTheFirst) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql("INSERT INTO moeda VALUES('2023-12-30 23:58:57','CRUZEIRO'),('2024-01-02 03:04:05','R$')");
  const std::string primeira = cabecalho("E06") +
                               "98765432109876"
                               "20231230"
                               "235857";
  EXPECT_EQ(bancada.registro("E06"), (std::vector<std::string>{primeira + "CRUZEIRO", primeira + "CRUZ"
                                                                                                 "20240102"
                                                                                                 "030405"
                                                                                                 "R$  "}));
}

TEST(E05, ShortDateEndsTheLinesOfTheLaterRowsToo) {
  Bancada bancada;
  bancada.sql("INSERT INTO codificacao_gt VALUES('','PRIMEIRA'),('2024-01-02 03:04:05','SEGUNDA')");
  const std::string curta = cabecalho("E05") + "00000000000000";
  EXPECT_EQ(bancada.registro("E05"), (std::vector<std::string>{curta, curta}));
}

TEST(E06, LineGrowsWithEveryRowWithoutBound) {
  Bancada bancada;
  bancada.sql(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000)"
      " INSERT INTO moeda SELECT '2023-12-30 23:58:57', i FROM n");
  const auto linhas = bancada.registro("E06");
  ASSERT_EQ(linhas.size(), 2000U);
  EXPECT_EQ(linhas.front().size(), 76U);
  EXPECT_EQ(linhas.back().size(), 36058U);
  EXPECT_EQ(posicoes(linhas.back(), 36037, 36058),
            "1999"
            "20231230"
            "235857"
            "2000");
}

TEST(E05, UserQueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE dados_usuario RENAME COLUMN cnpj TO outra", "E05",
                            "Erro no select 1 - TipoE05");
}

TEST(E06, UserQueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE dados_usuario RENAME COLUMN cnpj TO outra", "E06",
                            "Erro no select 1 - TipoE06");
}

TEST(E05, RecordingQueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE codificacao_gt RENAME COLUMN codificacao TO outra", "E05",
                            "Erro no select 2 - TipoE05");
  confereConsultaImpossivel("DROP TABLE codificacao_gt", "E05", "Erro no select 2 - TipoE05");
}

TEST(E06, RecordingQueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE moeda RENAME COLUMN simbolo_moeda TO outra", "E06",
                            "Erro no select 2 - TipoE06");
  confereConsultaImpossivel("DROP TABLE moeda", "E06", "Erro no select 2 - TipoE06");
}

TEST(E05, UserQueryThatFailsAfterARowLeavesNoLine) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(kCodificacao);
  const FalhaNaLinha falha(bancada.banco(), "SELECT cnpj FROM dados_usuario", 1);
  EXPECT_TRUE(bancada.registro("E05").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 1 - TipoE05"});
  EXPECT_EQ(falha.abertas, std::vector<int>{1});
}

TEST(E06, UserQueryThatFailsAfterARowLeavesNoLine) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(kMoeda);
  const FalhaNaLinha falha(bancada.banco(), "SELECT cnpj FROM dados_usuario", 1);
  EXPECT_TRUE(bancada.registro("E06").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 1 - TipoE06"});
  EXPECT_EQ(falha.abertas, std::vector<int>{1});
}

TEST(E05, RecordingQueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57','A'),('2024-01-02 03:04:05','B')");
  confereFalhaNoMeio(bancada, "E05", "FROM codificacao_gt", "Erro no select 2 - TipoE05",
                     Ordem::RegistraEFinaliza);
}

TEST(E06, RecordingQueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO moeda VALUES('2023-12-30 23:58:57','A'),('2024-01-02 03:04:05','B')");
  confereFalhaNoMeio(bancada, "E06", "FROM moeda", "Erro no select 2 - TipoE06", Ordem::RegistraEFinaliza);
}

}  // namespace
