#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// The line of a bench with the users whose rows are `cnpjs`.
std::string linhaDe(const std::string& cnpjs) {
  SCOPED_TRACE(cnpjs);
  Bancada bancada;
  bancada.sql("INSERT INTO dados_usuario(cnpj) VALUES" + cnpjs);
  return bancada.linha("E08");
}

TEST(E08, WritesTheCnpjToItsLastDigitAndTwentyBlanks) {
  const std::string linha = linhaDe("('98765432109876')");
  EXPECT_EQ(linha, cabecalho("E08") +
                       "98765432109876"
                       "                    ");
  EXPECT_EQ(linha.size(), 78U);
}

TEST(E08, WithoutAUserTheCnpjIsZerosInCat52ModeToo) {
  Bancada bancada;
  for (const bool cat52 : {false, true})
    EXPECT_EQ(bancada.cat52(cat52).linha("E08"), cabecalho("E08") +
                                                     "00000000000000"
                                                     "                    ");
}

TEST(E08, EachUserAddsItsCnpjToTheOneLine) {
  const std::string linha = linhaDe("('98765432109876'),('11222333000144'),('7')");
  EXPECT_EQ(linha, cabecalho("E08") +
                       "98765432109876"
                       "11222333000144"
                       "00000000000007"
                       "                    ");
  EXPECT_EQ(linha.size(), 106U);
}

TEST(E08, CnpjIsReadAsAnInteger) {
  const struct {
    const char* cnpj;
    const char* campo;
  } kCasos[] = {{"('12.345.678/0001-90')", "00000000000012"},
                {"(NULL)", "00000000000000"},
                {"('')", "00000000000000"},
                {"(12345678000190)", "12345678000190"},
                {"('123456789012345')", "12345678901234"},
                {"('-1')", "18446744073709"},
                {"('99999999999999999999')", "92233720368547"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(linhaDe(caso.cnpj), cabecalho("E08") + caso.campo + "                    ") << caso.cnpj;
}

TEST(E08, IsTheSameInEveryLayout) {
  Bancada bancada;
  for (const int versao : {1, 2, 3}) EXPECT_EQ(bancada.versao(versao).linha("E08").size(), 78U) << versao;
}

TEST(E08, QueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE dados_usuario RENAME COLUMN cnpj TO outra", "E08",
                            "Erro no select - TipoE08");
  confereConsultaImpossivel("DROP TABLE dados_usuario", "E08", "Erro no select - TipoE08");
}

TEST(E08, QueryThatFailsAfterARowLeavesNoLine) {
  Bancada bancada;
  bancada.sql("INSERT INTO dados_usuario(cnpj) VALUES('1'),('2')");
  const FalhaNaLinha falha(bancada.banco(), "SELECT cnpj FROM dados_usuario", 1);
  EXPECT_TRUE(bancada.registro("E08").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - TipoE08"});
  EXPECT_EQ(falha.abertas, std::vector<int>{1});
}

}  // namespace
