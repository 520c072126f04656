#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kReducao[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');";

// A non-fiscal totalizer of the reduction 7.
std::string totalizador(const std::string& nome, const std::string& valor) {
  return "INSERT INTO totalizador_reducao(cont_crz, totalizador, valor_base_calculo, id_fiscal) VALUES('7'," +
         nome + "," + valor + ",'N');";
}

// A means of payment of the reduction 7.
std::string meio(const std::string& descricao, const std::string& valor) {
  return "INSERT INTO meio_pagamento_reducao(cont_crz, descricao_meio_pagamento, valor_acumulado) "
         "VALUES('7'," +
         descricao + "," + valor + ");";
}

std::string linhaE17(const std::string& valor) {
  Bancada bancada;
  bancada.sql(kReducao + totalizador("'T'", valor));
  return bancada.linha("E17");
}

std::string linhaE18(const std::string& valor) {
  Bancada bancada;
  bancada.sql(kReducao + meio("'D'", valor));
  return bancada.linha("E18");
}

TEST(E17, WritesEveryFieldToItsLastDigitInEveryLayout) {
  for (const int versao : {1, 2, 3}) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(versao).cat52(cat52);
      bancada.sql(kReducao + totalizador("'ABCDEFGHIJKLMN'", "'98765432109.87'") +
                  "UPDATE reducao_z SET cont_crz='123456789';"
                  "UPDATE totalizador_reducao SET cont_crz='123456789'");
      const std::string linha = bancada.linha("E17");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E17") +
                           "456789"
                           "ABCDEFGHIJKLMN "
                           "9876543210987");
      EXPECT_EQ(linha.size(), 80U);
    }
  }
}

TEST(E18, WritesEveryFieldToItsLastDigitInEveryLayout) {
  for (const int versao : {1, 2, 3}) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(versao).cat52(cat52);
      bancada.sql(kReducao + meio("'ABCDEFGHIJKLMNO'", "'98765432109.87'") +
                  "UPDATE reducao_z SET cont_crz='123456789';"
                  "UPDATE meio_pagamento_reducao SET cont_crz='123456789'");
      const std::string linha = bancada.linha("E18");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E18") +
                           "456789"
                           "ABCDEFGHIJKLMNO"
                           "9876543210987");
      EXPECT_EQ(linha.size(), 80U);
    }
  }
}

TEST(E17E18, WithoutRowEachWritesOnePlaceholderOutsideCat52) {
  for (const int versao : {1, 2, 3}) {
    for (const char* codigo : {"E17", "E18"}) {
      SCOPED_TRACE(testing::Message() << codigo << " in layout " << versao);
      Bancada bancada;
      bancada.versao(versao).sql(kReducao);
      EXPECT_EQ(bancada.linha(codigo), cabecalhoDoUsuario(codigo) +
                                           "000000"
                                           "               "
                                           "0000000000000");
      EXPECT_TRUE(bancada.cat52(true).registro(codigo).empty());
    }
  }
}

TEST(E17, OnlyTotalizersMarkedNonFiscalAreTaken) {
  Bancada bancada;
  bancada.sql(kReducao + totalizador("'01T1800'", "'1'") + totalizador("'SANGRIA'", "'2'") +
              totalizador("'OUTRO'", "'3'") +
              "UPDATE totalizador_reducao SET id_fiscal='S' WHERE totalizador='01T1800';"
              "UPDATE totalizador_reducao SET id_fiscal='n' WHERE totalizador='OUTRO'");
  EXPECT_EQ(posicoes(bancada.linha("E17"), 53, 67), "SANGRIA        ");
}

TEST(E17, TotalizersComeByReductionAndThenByNameCapitalsFirst) {
  Bancada bancada;
  bancada.semIndicesAutomaticos();
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(2,'2024-01-02 00:00:00'),(10,'2024-01-10 "
      "00:00:00');"
      "INSERT INTO totalizador_reducao "
      "VALUES(10,'A','1','N'),(2,'b','2','N'),(2,'C','3','N'),(2,'a','4','N')");
  const auto linhas = bancada.registro("E17");
  ASSERT_EQ(linhas.size(), 4U);
  EXPECT_EQ(posicoes(linhas[0], 47, 80),
            "000002"
            "C              "
            "0000000000300");
  EXPECT_EQ(posicoes(linhas[1], 47, 80),
            "000002"
            "a              "
            "0000000000400");
  EXPECT_EQ(posicoes(linhas[2], 47, 80),
            "000002"
            "b              "
            "0000000000200");
  EXPECT_EQ(posicoes(linhas[3], 47, 80),
            "000010"
            "A              "
            "0000000000100");
}

TEST(E18, MeansComeByReductionAndThenByDescriptionWithoutRegardToCase) {
  Bancada bancada;
  bancada.semIndicesAutomaticos();
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(2,'2024-01-02 00:00:00'),(10,'2024-01-10 "
      "00:00:00');"
      "INSERT INTO meio_pagamento_reducao VALUES(10,'A','1'),(2,'b','2'),(2,'C','3'),(2,'a','4')");
  const auto linhas = bancada.registro("E18");
  ASSERT_EQ(linhas.size(), 4U);
  EXPECT_EQ(posicoes(linhas[0], 47, 80),
            "000002"
            "a              "
            "0000000000400");
  EXPECT_EQ(posicoes(linhas[1], 47, 80),
            "000002"
            "b              "
            "0000000000200");
  EXPECT_EQ(posicoes(linhas[2], 47, 80),
            "000002"
            "C              "
            "0000000000300");
  EXPECT_EQ(posicoes(linhas[3], 47, 80),
            "000010"
            "A              "
            "0000000000100");
}

TEST(E17E18, TheReductionsFiscalDayDecidesOnThePeriodBothBoundsIncluded) {
  const struct {
    const char* movimento;
    bool incluido;
  } kCasos[] = {{"2024-01-01 00:00:00", true},
                {"2024-01-31 23:59:59", true},
                {"2023-12-31 23:59:59", false},
                {"2024-02-01 00:00:00", false},
                {"2024-01-01", false}};
  for (const auto& caso : kCasos) {
    for (const char* codigo : {"E17", "E18"}) {
      SCOPED_TRACE(testing::Message() << codigo << " on " << caso.movimento);
      Bancada bancada;
      bancada.cat52(true).sql(kReducao + totalizador("'T'", "'1'") + meio("'D'", "'1'"));
      bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
      EXPECT_EQ(bancada.registro(codigo).size(), caso.incluido ? 1U : 0U);
    }
  }
}

TEST(E17, OfATotalizerNameFourteenCharactersAndABlankAreWritten) {
  Bancada bancada;
  bancada.sql(kReducao + totalizador("'ABCDEFGHIJKLMNOPQRST'", "'12.34'"));
  EXPECT_EQ(posicoes(bancada.linha("E17"), 53, 80),
            "ABCDEFGHIJKLMN "
            "0000000001234");
}

TEST(E17, ANameOfManyBytesIsCutByTheAmount) {
  Bancada bancada;
  bancada.sql(kReducao + totalizador("'ÇÇÇÇÇÇÇÇÇÇÇÇÇÇÇÇ'", "'12.34'"));
  EXPECT_EQ(posicoes(bancada.linha("E17"), 53, 999),
            "ÇÇÇÇÇÇÇ\xC3"
            "0000000001234");
}

TEST(E18, OfADescriptionFifteenCharactersAreWritten) {
  Bancada bancada;
  bancada.sql(kReducao + meio("'ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789'", "'12.34'"));
  EXPECT_EQ(posicoes(bancada.linha("E18"), 53, 999),
            "ABCDEFGHIJKLMNO"
            "0000000001234");
}

// The same stored text on both roads: E17 reads the text, E18 the nearest double, rounded as printf does.
TEST(E17E18, TheTwoAmountsAreRoundedOnDifferentRoads) {
  const struct {
    const char* valor;
    const char* e17;
    const char* e18;
  } kCasos[] = {
      {"'12.34'", "0000000001234", "0000000001234"},
      {"'0'", "0000000000000", "0000000000000"},
      {"''", "0000000000000", "0000000000000"},
      {"NULL", "0000000000000", "0000000000000"},
      {"'1.005'", "0000000000101", "0000000000100"},  // the double lies below the half
      {"'2.675'", "0000000000268", "0000000000267"},  // so does this one
      {"'0.125'", "0000000000013", "0000000000012"},  // an exact half goes to the even cent
      {"'0.375'", "0000000000038", "0000000000038"},
      {"'12.345'", "0000000001235", "0000000001235"},  // the double lies above the half
      {"'1,5'", "0000000000150", "0000000000100"},
      {"'1.5 reais'", "0000000000000", "0000000000150"},
      {"'1.2e3'", "0000000120000", "0000000120000"},
      {"' +7.25'", "0000000000725", "0000000000725"},
      {"'isento'", "0000000000000", "0000000000000"},
      {"12.5", "0000000001250", "0000000001250"},
      {"10", "0000000001000", "0000000001000"},
      {"'nan'", "0000000000000", "0000000000000"},
      {"'inf'", "0000000000000", "0000000000000"},
      {"'99999999999.99'", "9999999999999", "9999999999999"},
  };
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.valor);
    EXPECT_EQ(posicoes(linhaE17(caso.valor), 68, 999), caso.e17);
    EXPECT_EQ(posicoes(linhaE18(caso.valor), 68, 999), caso.e18);
  }
}

TEST(E17E18, AnAmountWiderThanItsFieldMakesTheLineLonger) {
  const struct {
    const char* valor;
    const char* campo;
  } kCasos[] = {{"'123456789012.34'", "12345678901234"},
                {"'-1.00'", "18446744073709551516"},
                {"'-0.01'", "18446744073709551615"},
                {"'1e30'", "9223372036854775807"},
                {"'-1e30'", "9223372036854775808"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.valor);
    EXPECT_EQ(posicoes(linhaE17(caso.valor), 68, 999), caso.campo);
    EXPECT_EQ(posicoes(linhaE18(caso.valor), 68, 999), caso.campo);
  }
}

TEST(E17E18, OfALargeReductionCounterTheLastSixDigitsAreWritten) {
  for (const int versao : {1, 2}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(
        "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(1000001,'2024-01-02 00:00:00');"
        "INSERT INTO totalizador_reducao VALUES(1000001,'T','1','N');"
        "INSERT INTO meio_pagamento_reducao VALUES(1000001,'D','1')");
    EXPECT_EQ(posicoes(bancada.linha("E17"), 47, 52), "000001");
    EXPECT_EQ(posicoes(bancada.linha("E18"), 47, 52), "000001");
  }
}

TEST(E17E18, ANullNameIsBlank) {
  Bancada bancada;
  bancada.sql(kReducao + totalizador("NULL", "'1'") + meio("NULL", "'1'"));
  EXPECT_EQ(posicoes(bancada.linha("E17"), 53, 67), "               ");
  EXPECT_EQ(posicoes(bancada.linha("E18"), 53, 67), "               ");
}

TEST(E17E18, AreWrittenForMfdAndTdmInThisOrderAfterE16) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM"}) {
    SCOPED_TRACE(comando);
    const auto linhas = bancada.gera(comando);
    std::size_t i = 0;
    while (i < linhas.size() && posicoes(linhas[i], 1, 3) != "E16") ++i;
    ASSERT_LT(i + 2, linhas.size());
    EXPECT_EQ(posicoes(linhas[i + 1], 1, 3), "E17");
    EXPECT_EQ(posicoes(linhas[i + 2], 1, 3), "E18");
  }
  for (const char* comando : {"MF", "RZ"}) {
    EXPECT_TRUE(doRegistro(bancada.gera(comando), "E17").empty()) << comando;
    EXPECT_TRUE(doRegistro(bancada.gera(comando), "E18").empty()) << comando;
  }
}

TEST(E17, AMissingTableOrColumnIsLoggedWithoutANumberAndGivesNoPlaceholder) {
  for (const char* estrago : {"DROP TABLE totalizador_reducao", "DROP TABLE reducao_z",
                              "ALTER TABLE totalizador_reducao DROP COLUMN id_fiscal"})
    confereConsultaImpossivel(estrago, "E17", "Erro no select - TipoE");
}

TEST(E18, AMissingTableOrColumnIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago : {"DROP TABLE meio_pagamento_reducao", "DROP TABLE reducao_z",
                              "ALTER TABLE meio_pagamento_reducao DROP COLUMN valor_acumulado"})
    confereConsultaImpossivel(estrago, "E18", "Erro no select - TipoE18");
}

TEST(E17, AQueryThatFailsHalfWayKeepsItsLinesAndLogsBeforeItFinalizes) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kReducao + totalizador("'A'", "'1'") + totalizador("'B'", "'2'") + totalizador("'C'", "'3'"));
  confereFalhaNoMeio(bancada, "E17", "SUBSTR(totalizador.totalizador, 0, 15)", "Erro no select - TipoE",
                     Ordem::RegistraEFinaliza);
}

TEST(E18, AQueryThatFailsHalfWayKeepsItsLinesAndFinalizesBeforeItLogs) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kReducao + meio("'A'", "'1'") + meio("'B'", "'2'") + meio("'C'", "'3'"));
  confereFalhaNoMeio(bancada, "E18", "FROM meio_pagamento_reducao", "Erro no select - TipoE18",
                     Ordem::FinalizaERegistra);
}

}  // namespace
