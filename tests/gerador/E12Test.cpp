#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kReducao[] =
    "INSERT INTO reducao_z(cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao, valor_vb) ";
constexpr char kCheia[] =
    "VALUES('123456','987654321','876543','2024-01-30 00:00:00','2024-01-31 01:02:03','123456789012.34')";

// The line of a bench whose only reduction is the one above, but for `mudanca`, a list of "column = value".
std::string linhaCom(int versao, const std::string& mudanca) {
  SCOPED_TRACE(mudanca);
  Bancada bancada;
  bancada.sql(std::string(kReducao) + kCheia);
  bancada.sql("UPDATE reducao_z SET " + mudanca);
  return bancada.versao(versao).linha("E12");
}

TEST(E12, WritesEveryFieldToItsLastDigitInLayout1) {
  Bancada bancada;
  bancada.sql(std::string(kReducao) + kCheia);
  const std::string linha = bancada.linha("E12");
  EXPECT_EQ(linha, cabecalhoDoUsuario("E12") +
                       "123456"
                       "654321"
                       "876543"
                       "20240130"
                       "20240131"
                       "010203"
                       "12345678901234"
                       "S");
  EXPECT_EQ(linha.size(), 101U);
}

TEST(E12, WritesEveryFieldToItsLastDigitFromLayout2On) {
  Bancada bancada;
  bancada.sql(std::string(kReducao) + kCheia);
  for (const int versao : {2, 3, 0}) {
    const std::string linha = bancada.versao(versao).linha("E12");
    EXPECT_EQ(linha, cabecalhoDoUsuario("E12") +
                         "123456"
                         "987654321"
                         "876543"
                         "20240130"
                         "20240131"
                         "010203"
                         "12345678901234"
                         "S")
        << versao;
    EXPECT_EQ(linha.size(), 104U) << versao;
  }
}

TEST(E12, OnlyTheCooFollowsTheLayout) {
  constexpr char kTodos[] = "cont_crz='1234567', cont_coo='1234567', cont_cro='1234567'";
  EXPECT_EQ(posicoes(linhaCom(1, kTodos), 47, 64),
            "234567"
            "234567"
            "234567");
  EXPECT_EQ(posicoes(linhaCom(2, kTodos), 47, 67),
            "234567"
            "001234567"
            "234567");
}

TEST(E12, CountersAreReadAsIntegers) {
  const struct {
    const char* valor;
    const char* campo;
  } kCasos[] = {{"''", "000000"},   {"NULL", "000000"}, {"7", "000007"},         {"'7x'", "000007"},
                {"'x7'", "000000"}, {"'-7'", "-00007"}, {"'-1234567'", "-23456"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom(1, "cont_cro=" + std::string(caso.valor)), 59, 64), caso.campo) << caso.valor;
}

TEST(E12, GrossSalesAreReadAsMoney) {
  const struct {
    const char* valor;
    const char* campo;
  } kCasos[] = {{"'1234.5'", "00000000123450"}, {"'0'", "00000000000000"},  {"''", "00000000000000"},
                {"NULL", "00000000000000"},     {"12.3", "00000000001230"}, {"'abc'", "00000000000000"},
                {"1500", "00000000150000"},     {"'0.5'", "00000000000050"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom(1, "valor_vb=" + std::string(caso.valor)), 87, 101),
              std::string(caso.campo) + "S")
        << caso.valor;
}

TEST(E12, OverlongGrossSalesAreCutByTheFlag) {
  EXPECT_EQ(posicoes(linhaCom(1, "valor_vb='1234567890123.45'"), 87, 200),
            "12345678901234"
            "S");
  EXPECT_EQ(posicoes(linhaCom(1, "valor_vb='-1.00'"), 87, 200),
            "18446744073709"
            "S");
}

TEST(E12, NullIssueTimeIsBlank) {
  EXPECT_EQ(posicoes(linhaCom(1, "data_hora_emissao=NULL"), 65, 101),
            "20240130"
            "        "
            "      "
            "12345678901234"
            "S");
}

TEST(E12, ShortDatesEndTheLineThere) {
  EXPECT_EQ(posicoes(linhaCom(1, "data_movimento='2024-01-1'"), 65, 200), "2024011");
  EXPECT_EQ(posicoes(linhaCom(1, "data_hora_emissao=''"), 65, 200), "20240130");
  EXPECT_EQ(posicoes(linhaCom(1, "data_hora_emissao='2024-01-31'"), 65, 200),
            "20240130"
            "20240131");
}

TEST(E12, PeriodIsThatOfTheMovementWithBothLimitsIncluded) {
  const struct {
    const char* movimento;
    bool incluida;
  } kCasos[] = {{"'2024-01-31 23:59:59'", false}, {"'2024-02-01'", false},
                {"'2024-02-01 00:00:00'", true},  {"'2024-02-29 23:59:59'", true},
                {"'2024-03-01 00:00:00'", false}, {"NULL", false}};
  for (const auto& caso : kCasos) {
    Bancada bancada;
    bancada.sql("INSERT INTO reducao_z(cont_crz, data_movimento, data_hora_emissao) VALUES('1'," +
                std::string(caso.movimento) + ",'2024-02-15 00:00:00')");
    EXPECT_EQ(bancada.periodo("01022024", "29022024").cat52(true).registro("E12").size(),
              caso.incluida ? 1U : 0U)
        << caso.movimento;
  }
}

TEST(E12, ReductionsComeByTheirCounterThenByTheRestartCounter) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, cont_cro, data_movimento) VALUES(10,2,'2024-01-01 00:00:00'),"
      "(10,1,'2024-01-02 00:00:00'),(9,3,'2024-01-03 00:00:00')");
  const auto linhas = bancada.registro("E12");
  ASSERT_EQ(linhas.size(), 3U);
  EXPECT_EQ(posicoes(linhas[0], 47, 64),
            "000009"
            "000000"
            "000003");
  EXPECT_EQ(posicoes(linhas[1], 47, 64),
            "000010"
            "000000"
            "000001");
  EXPECT_EQ(posicoes(linhas[2], 47, 64),
            "000010"
            "000000"
            "000002");
}

TEST(E12, PlaceholderEndsInABlankInsteadOfTheFlag) {
  Bancada bancada;
  EXPECT_EQ(bancada.linha("E12"), cabecalhoDoUsuario("E12") +
                                      "000000"
                                      "000000"
                                      "000000"
                                      "        "
                                      "        "
                                      "      "
                                      "00000000000000"
                                      " ");
  EXPECT_EQ(bancada.versao(2).linha("E12"), cabecalhoDoUsuario("E12") +
                                                "000000"
                                                "000000000"
                                                "000000"
                                                "        "
                                                "        "
                                                "      "
                                                "00000000000000"
                                                " ");
}

TEST(E12, Cat52ModeHasNoPlaceholderButKeepsRecords) {
  Bancada bancada;
  EXPECT_TRUE(bancada.cat52(true).registro("E12").empty());
  bancada.sql(std::string(kReducao) + kCheia);
  EXPECT_EQ(bancada.linha("E12").size(), 101U);
}

TEST(E12, QueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE reducao_z RENAME COLUMN valor_vb TO outra", "E12",
                            "Erro no select - TipoE12");
  confereConsultaImpossivel("DROP TABLE reducao_z", "E12", "Erro no select - TipoE12");
}

TEST(E12, QueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(1,'2024-01-01 00:00:00'),"
      "(2,'2024-01-02 00:00:00')");
  confereFalhaNoMeio(bancada, "E12", "ORDER BY cont_crz, cont_cro", "Erro no select - TipoE12",
                     Ordem::RegistraEFinaliza);
}

// An error of the database itself, in a row that an index hands out after another one.
TEST(E12, ErrorInARowKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, data_movimento, valor_vb) VALUES(1,'2024-01-01 00:00:00',10),"
      "(2,'2024-01-02 00:00:00',-9223372036854775808);"
      "ALTER TABLE reducao_z RENAME TO reducoes; CREATE INDEX por_crz ON reducoes(cont_crz, cont_cro);"
      "CREATE VIEW reducao_z AS SELECT cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao,"
      " abs(valor_vb) AS valor_vb, valor_gt FROM reducoes");
  EXPECT_EQ(bancada.registro("E12"), std::vector<std::string>{cabecalhoDoUsuario("E12") + "000001"
                                                                                          "000000"
                                                                                          "000000"
                                                                                          "20240101"
                                                                                          "        "
                                                                                          "      "
                                                                                          "00000000001000"
                                                                                          "S"});
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - TipoE12"});
}

}  // namespace
