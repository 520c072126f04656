#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// A fiscal coupon (COO 10) and a non-fiscal one (COO 11) of the reduction 7, and a means of payment.
constexpr char kCupons[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
    "INSERT INTO cupom_fiscal(cont_coo, cont_ccf, cont_crz) VALUES('10', '20', '7');"
    "INSERT INTO cupom_nf(cont_coo, cont_gnf, cont_crz) VALUES('11', '30', '7');"
    "INSERT INTO meio_pagamento(num_indice, descricao) VALUES(1, 'DINHEIRO');";

std::string pagamento(const std::string& coo, const std::string& indice = "1",
                      const std::string& pago = "'0'") {
  return "INSERT INTO pagamento_cupom(cont_coo, indice_meio_pagamento, valor_pagamento, valor_estornado,"
         " id_estornado) VALUES('" +
         coo + "'," + indice + "," + pago + ",'0','N');";
}

// The line of a payment of the fiscal coupon, the only one, `mudanca` being a list of "column = value".
std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql(
      "DELETE FROM reducao_z; DELETE FROM cupom_fiscal; DELETE FROM cupom_nf; DELETE FROM meio_pagamento;"
      "DELETE FROM pagamento_cupom");
  bancada.sql(kCupons + pagamento("10"));
  bancada.sql("UPDATE pagamento_cupom SET " + mudanca);
  return bancada.linha("E21");
}

TEST(E21, WritesEveryFieldOfAFiscalCouponsPaymentToItsLastDigit) {
  const struct {
    int versao;
    const char* coo;
    const char* ccf;
    const char* gnf;
    std::size_t comprimento;
  } kCasos[] = {{1, "654321", "456789", "000000", 106},
                {2, "987654321", "123456789", "000000000", 115},
                {3, "987654321", "123456789", "000000000", 115}};
  for (const auto& caso : kCasos) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << caso.versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(caso.versao).cat52(cat52);
      bancada.sql(kCupons + pagamento("10") +
                  "UPDATE cupom_fiscal SET cont_coo='987654321', cont_ccf='123456789';"
                  "UPDATE meio_pagamento SET descricao='ABCDEFGHIJKLMNO';"
                  "UPDATE pagamento_cupom SET cont_coo='987654321', valor_pagamento='12345678901.23',"
                  "id_estornado='S', valor_estornado='98765432109.87'");
      const std::string linha = bancada.linha("E21");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E21") + caso.coo + caso.ccf + caso.gnf +
                           "ABCDEFGHIJKLMNO"
                           "1234567890123"
                           "S"
                           "9876543210987");
      EXPECT_EQ(linha.size(), caso.comprimento);
    }
  }
}

TEST(E21, WritesEveryFieldOfANonFiscalCouponsPaymentToItsLastDigit) {
  const struct {
    int versao;
    const char* coo;
    const char* ccf;
    const char* gnf;
  } kCasos[] = {{1, "654321", "000000", "456789"}, {2, "987654321", "000000000", "123456789"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << "layout " << caso.versao);
    Bancada bancada;
    bancada.versao(caso.versao);
    bancada.sql(kCupons + pagamento("11") +
                "UPDATE cupom_nf SET cont_coo='987654321', cont_gnf='123456789';"
                "UPDATE meio_pagamento SET descricao='ABCDEFGHIJKLMNO';"
                "UPDATE pagamento_cupom SET cont_coo='987654321', valor_pagamento='12345678901.23',"
                "id_estornado='S', valor_estornado='98765432109.87'");
    EXPECT_EQ(bancada.linha("E21"), cabecalhoDoUsuario("E21") + caso.coo + caso.ccf + caso.gnf +
                                        "ABCDEFGHIJKLMNO"
                                        "1234567890123"
                                        "S"
                                        "9876543210987");
  }
}

TEST(E21, WithoutPaymentWritesOnePlaceholderOutsideCat52) {
  for (const int versao : {1, 2, 3}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(kCupons);
    EXPECT_EQ(bancada.linha("E21"), cabecalhoDoUsuario("E21") +
                                        (versao == 1 ? "000000000000000000" : "000000000000000000000000000") +
                                        "               "
                                        "0000000000000"
                                        " "
                                        "0000000000000");
    EXPECT_TRUE(bancada.cat52(true).registro("E21").empty());
  }
}

TEST(E21, PaymentsOfBothKindsComeTogetherByCooAndThenByMeans) {
  Bancada bancada;
  bancada.semIndicesAutomaticos();
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(7, '2024-01-15 00:00:00');"
      "INSERT INTO cupom_fiscal(cont_coo, cont_ccf, cont_crz) VALUES(9, 1, 7), (30, 2, 7);"
      "INSERT INTO cupom_nf(cont_coo, cont_gnf, cont_crz) VALUES(20, 5, 7), (4, 6, 7);"
      "INSERT INTO meio_pagamento VALUES(1, 'DINHEIRO'), (2, 'CARTAO'), (3, 'cheque');");
  for (const char* p : {"30, 1", "20, 3", "20, 1", "9, 1", "9, 2", "4, 1"})
    bancada.sql(std::string("INSERT INTO pagamento_cupom(cont_coo, indice_meio_pagamento) VALUES(") + p +
                ")");
  const auto linhas = bancada.registro("E21");
  ASSERT_EQ(linhas.size(), 6U);
  EXPECT_EQ(posicoes(linhas[0], 47, 79),
            "000004"
            "000000"
            "000006"
            "DINHEIRO       ");
  EXPECT_EQ(posicoes(linhas[1], 47, 79),
            "000009"
            "000001"
            "000000"
            "CARTAO         ");
  EXPECT_EQ(posicoes(linhas[2], 47, 79),
            "000009"
            "000001"
            "000000"
            "DINHEIRO       ");
  EXPECT_EQ(posicoes(linhas[3], 47, 79),
            "000020"
            "000000"
            "000005"
            "DINHEIRO       ");
  EXPECT_EQ(posicoes(linhas[4], 47, 79),
            "000020"
            "000000"
            "000005"
            "cheque         ");
  EXPECT_EQ(posicoes(linhas[5], 47, 79),
            "000030"
            "000002"
            "000000"
            "DINHEIRO       ");
}

TEST(E21, APaymentWhoseCooIsThatOfACouponOfEachKindIsWrittenForBoth) {
  Bancada bancada;
  bancada.sql(kCupons + pagamento("10") + "UPDATE cupom_nf SET cont_coo='10'");
  EXPECT_EQ(bancada.registro("E21").size(), 2U);
}

TEST(E21, EqualPaymentsAreAllWritten) {
  Bancada bancada;
  bancada.sql(kCupons + pagamento("10") + pagamento("10"));
  const auto linhas = bancada.registro("E21");
  ASSERT_EQ(linhas.size(), 2U);
  for (const std::string& linha : linhas)
    EXPECT_EQ(posicoes(linha, 47, 79), "000010000020000000DINHEIRO       ");
}

TEST(E21, APaymentWithoutItsCouponMeansOrReductionIsLeftOut) {
  for (const char* mudanca :
       {"UPDATE pagamento_cupom SET cont_coo='12'", "UPDATE pagamento_cupom SET indice_meio_pagamento=2",
        "UPDATE pagamento_cupom SET indice_meio_pagamento=NULL", "UPDATE cupom_fiscal SET cont_crz='8'"}) {
    SCOPED_TRACE(mudanca);
    Bancada bancada;
    bancada.cat52(true).sql(kCupons + pagamento("10") + mudanca);
    EXPECT_TRUE(bancada.registro("E21").empty());
  }
}

TEST(E21, TheReductionsFiscalDayDecidesOnThePeriodForBothKinds) {
  const struct {
    const char* movimento;
    bool incluido;
  } kCasos[] = {{"2024-01-01 00:00:00", true},
                {"2024-01-31 23:59:59", true},
                {"2023-12-31 23:59:59", false},
                {"2024-02-01 00:00:00", false},
                {"2024-01-01", false}};
  for (const auto& caso : kCasos) {
    for (const char* coo : {"10", "11"}) {
      SCOPED_TRACE(testing::Message() << "COO " << coo << " on " << caso.movimento);
      Bancada bancada;
      bancada.cat52(true).sql(kCupons + pagamento(coo));
      bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
      EXPECT_EQ(bancada.registro("E21").size(), caso.incluido ? 1U : 0U);
    }
  }
}

TEST(E21, OfALongMeansFifteenCharactersAreWritten) {
  Bancada bancada;
  bancada.sql(kCupons + pagamento("10", "1", "'1.23'") +
              "UPDATE meio_pagamento SET descricao='ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz'");
  EXPECT_EQ(posicoes(bancada.linha("E21"), 65, 999),
            "ABCDEFGHIJKLMNO"
            "0000000000123"
            "N"
            "0000000000000");
}

TEST(E21, TheReversalFlagSteersNothing) {
  const struct {
    const char* mudanca;
    const char* campos;
  } kCasos[] = {{"id_estornado='S', valor_estornado='1.23'", "S0000000000123"},
                {"id_estornado='N', valor_estornado='0.00'", "N0000000000000"},
                {"id_estornado='N', valor_estornado='4.56'", "N0000000000456"},
                {"id_estornado='S', valor_estornado='0'", "S0000000000000"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.mudanca);
    Bancada bancada;
    EXPECT_EQ(posicoes(linhaCom(bancada, caso.mudanca), 93, 999), caso.campos);
  }
}

TEST(E21, AnEmptyReversalFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    SCOPED_TRACE(vazio);
    Bancada bancada;
    const std::string mudanca = std::string("valor_pagamento='1.23', id_estornado=") + vazio;
    EXPECT_EQ(linhaCom(bancada, mudanca), cabecalhoDoUsuario("E21") +
                                              "000010"
                                              "000020"
                                              "000000"
                                              "DINHEIRO       "
                                              "0000000000123");
    bancada.versao(2);
    EXPECT_EQ(linhaCom(bancada, mudanca).size(), 101U);
  }
}

TEST(E21, OfALongReversalFlagTheFirstCharacterStays) {
  Bancada bancada;
  EXPECT_EQ(posicoes(linhaCom(bancada, "id_estornado='SIM, ESTORNADO ONTEM', valor_estornado='1'"), 93, 999),
            "S"
            "0000000000100");
}

TEST(E21, AmountPaidIsCutByTheFlagAndAmountReversedRunsOver) {
  const struct {
    const char* valor;
    const char* pago;
    const char* estornado;
  } kCasos[] = {{"123456789012.34", "1234567890123", "12345678901234"},
                {"-1.00", "1844674407370", "18446744073709551516"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.valor);
    Bancada bancada;
    const std::string linha = linhaCom(
        bancada, std::string("valor_pagamento='") + caso.valor + "', valor_estornado='" + caso.valor + "'");
    EXPECT_EQ(posicoes(linha, 80, 999), std::string(caso.pago) + "N" + caso.estornado);
  }
}

TEST(E21, CountersKeepTheirLastDigits) {
  for (const int versao : {1, 2}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao).sql(kCupons + pagamento("1234567890") +
                               "UPDATE cupom_fiscal SET cont_coo='1234567890', cont_ccf='9876543210'");
    EXPECT_EQ(posicoes(bancada.linha("E21"), 47, versao == 1 ? 64 : 73),
              versao == 1 ? "567890543210000000" : "234567890876543210000000000");
  }
}

TEST(E21, NullColumnsAreEmpty) {
  Bancada bancada;
  bancada.sql(kCupons + pagamento("10", "1", "NULL") +
              "UPDATE cupom_fiscal SET cont_ccf=NULL; UPDATE meio_pagamento SET descricao=NULL;"
              "UPDATE pagamento_cupom SET valor_estornado=NULL");
  EXPECT_EQ(bancada.linha("E21"), cabecalhoDoUsuario("E21") +
                                      "000010"
                                      "000000"
                                      "000000"
                                      "               "
                                      "0000000000000"
                                      "N"
                                      "0000000000000");
}

TEST(E21, IsWrittenForMfdAndTdm) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM"})
    EXPECT_EQ(doRegistro(bancada.gera(comando), "E21").size(), 1U) << comando;
  for (const char* comando : {"MF", "RZ"})
    EXPECT_TRUE(doRegistro(bancada.gera(comando), "E21").empty()) << comando;
}

TEST(E21, AMissingTableOrColumnOfEitherHalfIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago : {"DROP TABLE pagamento_cupom", "DROP TABLE cupom_fiscal", "DROP TABLE cupom_nf",
                              "DROP TABLE meio_pagamento", "DROP TABLE reducao_z",
                              "ALTER TABLE cupom_nf RENAME COLUMN cont_gnf TO outra"})
    confereConsultaImpossivel(estrago, "E21", "Erro no select - TipoE21");
}

TEST(E21, AQueryThatFailsHalfWayKeepsItsLinesAndLogsBeforeItFinalizes) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kCupons + pagamento("10") + pagamento("11") + pagamento("11"));
  confereFalhaNoMeio(bancada, "E21", "UNION ALL", "Erro no select - TipoE21", Ordem::RegistraEFinaliza);
}

}  // namespace
