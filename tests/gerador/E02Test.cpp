#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kUsuario[] =
    "INSERT INTO dados_usuario(seq_usuario, cnpj, ie, razao_social, endereco, data_hora_gravacao, cont_cro, "
    "valor_gt) "
    "VALUES('7','98765432109876','IE345678901234','RAZAO67890123456789012345678901234567890',"
    "'ENDERECO90123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890"
    "12345678901234567890','2023-12-30 23:58:57','987654','1234567890123456.78')";

// The line of a bench whose only user is the one above, but for `mudanca`, a list of "column = value".
std::string linhaCom(const std::string& mudanca) {
  SCOPED_TRACE(mudanca);
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql("UPDATE dados_usuario SET " + mudanca);
  return bancada.linha("E02");
}

std::string totalCom(Bancada& bancada, const std::string& comando) {
  return posicoes(bancada.linha("E02", comando), 253, 270);
}

TEST(E02, WritesEveryFieldToItsLastDigit) {
  Bancada bancada;
  bancada.sql(kUsuario);
  const std::string linha = bancada.linha("E02");
  EXPECT_EQ(linha,
            "E02"
            "SERIAL              "
            " "
            "MODELO              "
            "98765432109876"
            "IE345678901234"
            "RAZAO67890123456789012345678901234567890"
            "ENDERECO90123456789012345678901234567890123456789012345678901234567890"
            "12345678901234567890123456789012345678901234567890"
            "20231230"
            "235857"
            "987654"
            "123456789012345678"
            "01");
  EXPECT_EQ(linha.size(), 272U);
}

TEST(E02, IsTheSameInEveryLayoutAndInCat52Mode) {
  Bancada bancada;
  bancada.sql(kUsuario);
  for (const int versao : {1, 2, 3}) {
    const std::string linha = bancada.versao(versao).cat52(true).linha("E02");
    EXPECT_EQ(posicoes(linha, 247, 300),
              "987654"
              "123456789012345678"
              "01")
        << versao;
  }
}

TEST(E02, PunctuatedCnpjStopsAtItsFirstPoint) {
  EXPECT_EQ(posicoes(linhaCom("cnpj='12.345.678/0001-90'"), 45, 58), "00000000000012");
}

TEST(E02, OverlongCnpjIsCutByTheStateRegistration) {
  EXPECT_EQ(posicoes(linhaCom("cnpj='123456789012345'"), 45, 72),
            "12345678901234"
            "IE345678901234");
}

TEST(E02, StateRegistrationLosesPointsAndHyphensAndIsBlankFilled) {
  const struct {
    const char* ie;
    const char* campo;
  } kCasos[] = {{"'123.456.789-00'", "12345678900   "},
                {"'ISENTO'", "ISENTO        "},
                {"'.-.-.-'", "              "},
                {"''", "              "},
                {"NULL", "              "},
                {"'-1.2-3.4-5.6-7'", "1234567       "},
                {"'12/34'", "12/34         "}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom("ie=" + std::string(caso.ie)), 59, 112),
              std::string(caso.campo) + "RAZAO67890123456789012345678901234567890")
        << caso.ie;
}

TEST(E02, StateRegistrationIsTakenFromTheFirstFourteenCharacters) {
  EXPECT_EQ(posicoes(linhaCom("ie='123.456.789-00999'"), 59, 72), "12345678900   ");
  EXPECT_EQ(posicoes(linhaCom("ie='123456789012345678'"), 59, 72), "12345678901234");
}

TEST(E02, NullNameAndAddressAreBlank) {
  EXPECT_EQ(posicoes(linhaCom("razao_social=NULL, endereco=NULL"), 59, 240),
            "IE345678901234"
            "                                        "
            "                                                            "
            "                                                            "
            "20231230");
}

TEST(E02, ShortNameAndAddressAreBlankFilled) {
  EXPECT_EQ(posicoes(linhaCom("razao_social='Empresa', endereco='Rua'"), 73, 240),
            "Empresa                                 "
            "Rua                                                         "
            "                                                            "
            "20231230");
}

TEST(E02, OverlongNameAndAddressAreCutByTheNextField) {
  EXPECT_EQ(
      posicoes(linhaCom("razao_social=razao_social||'EXCESSO', endereco=endereco||razao_social||endereco"),
               73, 240),
      "RAZAO67890123456789012345678901234567890"
      "ENDERECO90123456789012345678901234567890123456789012345678901234567890"
      "12345678901234567890123456789012345678901234567890"
      "20231230");
}

TEST(E02, NullRegistrationDateIsBlank) {
  EXPECT_EQ(posicoes(linhaCom("data_hora_gravacao=NULL"), 233, 252),
            "        "
            "      "
            "987654");
}

TEST(E02, ShortRegistrationDateEndsTheLineThere) {
  EXPECT_EQ(linhaCom("data_hora_gravacao=''").size(), 232U);
  EXPECT_EQ(linhaCom("data_hora_gravacao='2023-12-30'").size(), 240U);
}

TEST(E02, RestartCounterHasSixDigits) {
  EXPECT_EQ(posicoes(linhaCom("cont_cro='1000001'"), 247, 252), "000001");
  EXPECT_EQ(posicoes(linhaCom("cont_cro=NULL"), 247, 252), "000000");
  EXPECT_EQ(posicoes(linhaCom("cont_cro='-5'"), 247, 252), "-00005");
}

TEST(E02, UserNumberIsAlways01) {
  EXPECT_EQ(posicoes(linhaCom("seq_usuario='42'"), 271, 300), "01");
  EXPECT_EQ(posicoes(linhaCom("seq_usuario=''"), 271, 300), "01");
}

TEST(E02, GrandTotalIsThatOfTheReductionsForMfAndOfThePositionElsewhere) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(
      "INSERT INTO reducao_z(valor_gt) VALUES('1234.56');"
      "INSERT INTO posicao_totalizadores_contadores(valor_gt) VALUES('9999.99')");
  EXPECT_EQ(totalCom(bancada, "MF"), "000000000000123456");
  for (const char* comando : {"MFD", "TDM", "RZ", "mf", ""})
    EXPECT_EQ(totalCom(bancada, comando), "000000000000999999") << comando;
}

TEST(E02, GrandTotalIsTheLargestOfAllReductionsWhateverThePeriod) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(
      "INSERT INTO reducao_z(valor_gt, data_movimento) VALUES"
      "('1234.56','2024-01-15 00:00:00'),('2345.67','1999-01-01 00:00:00'),('0.99','2024-01-16 00:00:00')");
  EXPECT_EQ(totalCom(bancada, "MF"), "000000000000234567");
}

TEST(E02, LargestTotalIsTheDatabasesTextsByTextNumbersByValue) {
  const struct {
    const char* valores;
    const char* total;
  } kCasos[] = {{"('9.50'),('10.25')", "000000000000000950"}, {"(9.50),(10.25)", "000000000000001025"}};
  for (const auto& caso : kCasos) {
    Bancada bancada;
    bancada.sql(kUsuario);
    bancada.sql("INSERT INTO posicao_totalizadores_contadores(valor_gt) VALUES" + std::string(caso.valores));
    EXPECT_EQ(totalCom(bancada, "TDM"), caso.total) << caso.valores;
  }
}

TEST(E02, LargestTotalIsUsedUpTo17CharactersCutAt18AndLeftOutBeyond) {
  const struct {
    const char* maximo;
    const char* total;
  } kCasos[] = {
      {"'12345678901234.56'", "001234567890123456"},    // 17
      {"'123456789012345.67'", "012345678901234560"},   // 18: the 7 is lost
      {"'876543210987654321'", "876543210987654320"},   // 18: the 1 is lost, the cents fill 19 digits
      {"'1234567890123456.99'", "123456789012345678"},  // 19: the user's own
      {"''", "123456789012345678"},
      {"NULL", "123456789012345678"}};
  for (const auto& caso : kCasos) {
    Bancada bancada;
    bancada.sql(kUsuario);
    bancada.sql("INSERT INTO posicao_totalizadores_contadores(valor_gt) VALUES(" + std::string(caso.maximo) +
                ")");
    EXPECT_EQ(totalCom(bancada, "TDM"), caso.total) << caso.maximo;
  }
}

TEST(E02, WithoutAMaximumEachUserHasItsOwnTotal) {
  Bancada bancada;
  bancada.sql("INSERT INTO dados_usuario(cnpj, valor_gt) VALUES('1','10.01'),('2','20.02')");
  const auto linhas = bancada.registro("E02");
  ASSERT_EQ(linhas.size(), 2U);
  EXPECT_EQ(posicoes(linhas[0], 45, 58), "00000000000001");
  EXPECT_EQ(posicoes(linhas[0], 253, 272),
            "000000000000001001"
            "01");
  EXPECT_EQ(posicoes(linhas[1], 45, 58), "00000000000002");
  EXPECT_EQ(posicoes(linhas[1], 253, 272),
            "000000000000002002"
            "01");
}

TEST(E02, MaximumReplacesTheTotalOfEveryUser) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO dados_usuario(cnpj, valor_gt) VALUES('1','10.01'),('2','20.02');"
      "INSERT INTO posicao_totalizadores_contadores(valor_gt) VALUES('30.03')");
  const auto linhas = bancada.registro("E02");
  ASSERT_EQ(linhas.size(), 2U);
  for (const auto& linha : linhas) EXPECT_EQ(posicoes(linha, 253, 270), "000000000000003003");
}

TEST(E02, UsersOwnTotalIsReadAsMoney) {
  const struct {
    const char* valor;
    const char* total;
  } kCasos[] = {
      {"'12.3'", "000000000000001230"}, {"'0'", "000000000000000000"},    {"''", "000000000000000000"},
      {"NULL", "000000000000000000"},   {"'1500'", "000000000000150000"}, {"1500.5", "000000000000150050"},
      {"'1,5'", "000000000000000150"},  {"'R$ 1'", "000000000000000000"}, {"'0.995'", "000000000000000100"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom("valor_gt=" + std::string(caso.valor)), 253, 272),
              std::string(caso.total) + "01")
        << caso.valor;
}

TEST(E02, NegativeTotalIsItsTwosComplementCutByTheUserNumber) {
  EXPECT_EQ(posicoes(linhaCom("valor_gt='-1.00'"), 253, 300),
            "184467440737095515"
            "01");
}

TEST(E02, WithoutAUserThereIsNoLineAndNoMessage) {
  Bancada bancada;
  EXPECT_TRUE(bancada.registro("E02").empty());
  EXPECT_TRUE(g_mensagens.empty());
}

TEST(E02, FailedTotalQueryIsNotLoggedAndLeavesTheUsersOwn) {
  Bancada bancada;
  bancada.sql(kUsuario);
  bancada.sql(
      "ALTER TABLE reducao_z RENAME COLUMN valor_gt TO outra; DROP TABLE posicao_totalizadores_contadores");
  EXPECT_EQ(totalCom(bancada, "MF"), "123456789012345678");
  EXPECT_EQ(totalCom(bancada, "TDM"), "123456789012345678");
  EXPECT_TRUE(g_mensagens.empty());
}

TEST(E02, QueryThatCannotRunIsLoggedAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE dados_usuario RENAME COLUMN endereco TO outra", "E02",
                            "Erro no select - TipoE02");
  confereConsultaImpossivel("DROP TABLE dados_usuario", "E02", "Erro no select - TipoE02");
}

TEST(E02, QueryThatFailsHalfWayKeepsTheLinesBeforeIt) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO dados_ecf VALUES('SERIAL','MODELO','','','');"
      "INSERT INTO dados_usuario(cnpj) VALUES('1'),('2')");
  confereFalhaNoMeio(bancada, "E02", "SUBSTR(ie, 0, 15)", "Erro no select - TipoE02",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
