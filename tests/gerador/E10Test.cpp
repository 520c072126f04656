#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kUsuario[] = "INSERT INTO dados_usuario(cnpj) VALUES('98765432109876');";
constexpr char kFita[] =
    "INSERT INTO fita_detalhe VALUES('987654','2024-01-30 23:58:57','123456789','987654321');";

// The line of a bench with that user and that tape after `mudanca`.
std::string linhaCom(int versao, const std::string& mudanca) {
  SCOPED_TRACE(mudanca);
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(kFita);
  bancada.sql(mudanca);
  return bancada.versao(versao).linha("E10");
}

TEST(E10, WritesEveryFieldToItsLastDigitInLayout1) {
  const std::string linha = linhaCom(1, "");
  EXPECT_EQ(linha, cabecalho("E10") +
                       "987654"
                       "20240130"
                       "456789"
                       "654321"
                       "98765432109876");
  EXPECT_EQ(linha.size(), 84U);
}

TEST(E10, WritesEveryFieldToItsLastDigitFromLayout2On) {
  for (const int versao : {2, 3, 0}) {
    const std::string linha = linhaCom(versao, "");
    EXPECT_EQ(linha, cabecalho("E10") +
                         "987654"
                         "20240130"
                         "123456789"
                         "987654321"
                         "98765432109876")
        << versao;
    EXPECT_EQ(linha.size(), 90U) << versao;
  }
}

TEST(E10, CountersKeepTheirLastDigits) {
  EXPECT_EQ(
      posicoes(linhaCom(1, "UPDATE fita_detalhe SET coo_inicial='1234567', coo_final='1000000'"), 59, 70),
      "234567"
      "000000");
  EXPECT_EQ(
      posicoes(linhaCom(2, "UPDATE fita_detalhe SET coo_inicial='1234567', coo_final='1000000000'"), 59, 76),
      "001234567"
      "000000000");
}

TEST(E10, TapeCounterHasSixDigitsInEveryLayout) {
  for (const int versao : {1, 2})
    EXPECT_EQ(posicoes(linhaCom(versao, "UPDATE fita_detalhe SET cont_cfd='1234567'"), 45, 50), "234567");
}

TEST(E10, CountersAreReadAsIntegers) {
  const struct {
    const char *valor, *campo;
  } kCasos[] = {{"''", "000000"},   {"NULL", "000000"}, {"7", "000007"},
                {"'7x'", "000007"}, {"'x7'", "000000"}, {"'-7'", "-00007"}};
  for (const auto& caso : kCasos) {
    const std::string valor = caso.valor;
    EXPECT_EQ(posicoes(linhaCom(1, "UPDATE fita_detalhe SET cont_cfd=" + valor), 45, 50), caso.campo)
        << valor;
    EXPECT_EQ(posicoes(linhaCom(1, "UPDATE fita_detalhe SET coo_inicial=" + valor), 59, 64), caso.campo)
        << valor;
    EXPECT_EQ(posicoes(linhaCom(1, "UPDATE fita_detalhe SET coo_final=" + valor), 65, 70), caso.campo)
        << valor;
  }
}

TEST(E10, PeriodIsThatOfTheIssueWithBothLimitsIncluded) {
  const struct {
    const char* emissao;
    bool incluida;
  } kCasos[] = {{"'2023-12-31 23:59:59'", false}, {"'2024-01-01'", false},
                {"'2024-01-01 00:00:00'", true},  {"'2024-01-31 23:59:59'", true},
                {"'2024-02-01 00:00:00'", false}, {"NULL", false}};
  for (const auto& caso : kCasos) {
    Bancada bancada;
    bancada.sql("INSERT INTO fita_detalhe VALUES('1'," + std::string(caso.emissao) + ",'2','3')");
    EXPECT_EQ(bancada.cat52(true).registro("E10").size(), caso.incluida ? 1U : 0U) << caso.emissao;
  }
}

TEST(E10, ShortIssueTimeWithinThePeriodEndsTheLineThere) {
  EXPECT_EQ(linhaCom(1, "UPDATE fita_detalhe SET data_hora_emissao='2024-01-1'"), cabecalho("E10") +
                                                                                      "987654"
                                                                                      "2024011");
}

TEST(E10, TapesAreListedByTheirCounter) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO fita_detalhe VALUES(10,'2024-01-01 00:00:00',1,2),(9,'2024-01-03 00:00:00',3,4),"
      "(11,'2024-01-02 00:00:00',5,6)");
  EXPECT_EQ(bancada.registro("E10"),
            (std::vector<std::string>{
                cabecalho("E10") + "000009" + "20240103" + "000003" + "000004" + "00000000000000",
                cabecalho("E10") + "000010" + "20240101" + "000001" + "000002" + "00000000000000",
                cabecalho("E10") + "000011" + "20240102" + "000005" + "000006" + "00000000000000"}));
}

TEST(E10, CnpjIsReadAsAnInteger) {
  const struct {
    const char* cnpj;
    const char* campo;
  } kCasos[] = {{"'12.345.678/0001-90'", "00000000000012"},
                {"''", "00000000000000"},
                {"NULL", "00000000000000"},
                {"12345678000190", "12345678000190"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom(1, "UPDATE dados_usuario SET cnpj=" + std::string(caso.cnpj)), 71, 100),
              caso.campo)
        << caso.cnpj;
}

TEST(E10, CnpjOfMoreDigitsIsWrittenInFullAtTheEndOfTheLine) {
  EXPECT_EQ(posicoes(linhaCom(1, "UPDATE dados_usuario SET cnpj='1234567890123456'"), 71, 100),
            "1234567890123456");
}

TEST(E10, LastUserCounts) {
  EXPECT_EQ(posicoes(linhaCom(1, "INSERT INTO dados_usuario(cnpj) VALUES('11222333000144')"), 71, 100),
            "11222333000144");
  EXPECT_EQ(posicoes(linhaCom(1, "INSERT INTO dados_usuario(cnpj) VALUES(NULL)"), 71, 100), "00000000000000");
}

TEST(E10, WithoutAUserTheCnpjIsZeros) {
  EXPECT_EQ(posicoes(linhaCom(1, "DELETE FROM dados_usuario"), 71, 100), "00000000000000");
}

TEST(E10, PlaceholderHasZerosForTheCnpjEvenWhereThereIsAUser) {
  Bancada bancada;
  bancada.sql(kUsuario);
  EXPECT_EQ(bancada.linha("E10"), cabecalho("E10") +
                                      "000000"
                                      "        "
                                      "000000"
                                      "000000"
                                      "00000000000000");
  EXPECT_EQ(bancada.versao(2).linha("E10"), cabecalho("E10") +
                                                "000000"
                                                "        "
                                                "000000000"
                                                "000000000"
                                                "00000000000000");
}

TEST(E10, Cat52ModeHasNoPlaceholderButKeepsRecords) {
  Bancada bancada;
  EXPECT_TRUE(bancada.cat52(true).registro("E10").empty());
  bancada.sql(kFita);
  EXPECT_EQ(bancada.linha("E10").size(), 84U);
}

TEST(E10, UserQueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE dados_usuario RENAME COLUMN cnpj TO outra", "E10",
                            "Erro no select 1 - TipoE10");
}

TEST(E10, TapeQueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE fita_detalhe RENAME COLUMN coo_final TO outra", "E10",
                            "Erro no select 2 - TipoE10");
  confereConsultaImpossivel("DROP TABLE fita_detalhe", "E10", "Erro no select 2 - TipoE10");
}

TEST(E10, UserQueryThatFailsAfterARowLeavesNoLine) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(kFita);
  const FalhaNaLinha falha(bancada.banco(), "SELECT cnpj FROM dados_usuario", 1);
  EXPECT_TRUE(bancada.registro("E10").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 1 - TipoE10"});
  EXPECT_EQ(falha.abertas, std::vector<int>{1});
}

TEST(E10, TapeQueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql("INSERT INTO fita_detalhe VALUES(1,'2024-01-01 00:00:00',1,2),(2,'2024-01-02 00:00:00',3,4)");
  confereFalhaNoMeio(bancada, "E10", "FROM fita_detalhe", "Erro no select 2 - TipoE10",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
