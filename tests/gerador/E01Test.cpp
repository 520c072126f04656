#include <gtest/gtest.h>

#include <cstring>

#include "Bancada.h"
#include "Falhas.h"
#include "Identidade.h"
#include "Leiaute/Texto.h"

namespace {

constexpr char kEcf[] =
    "INSERT INTO dados_ecf VALUES('SERIE','MODELO DO BANCO 1234','ECF-IFZ','MARCA DO FABRICANTE1','987');";
constexpr char kVersao[] = "INSERT INTO versao_sb VALUES('VERSAO4567','2023-12-30 23:58:57','7');";
constexpr char kUsuario[] = "INSERT INTO dados_usuario(cnpj) VALUES('98765432109876');";
constexpr char kReducoes[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento, data_hora_emissao) VALUES"
    "('123456','2024-01-02 00:00:00','2024-01-03 01:02:03'),('654321','2024-01-30 00:00:00','2024-01-31 "
    "04:05:06');";

// The printer, its software, its user and two reductions.
void preenche(Bancada& bancada) {
  for (const char* parte : {kEcf, kVersao, kUsuario, kReducoes}) bancada.sql(parte);
}

// The line of a bench in which nothing but `mudanca` differs from those.
std::string linhaCom(const std::string& mudanca) {
  SCOPED_TRACE(mudanca);
  Bancada bancada;
  preenche(bancada);
  bancada.sql(mudanca);
  return bancada.linha("E01");
}

const std::string kIdentidade =
    "E01"
    "SERIAL              "
    " ";
const std::string kTipoMarcaModelo =
    "ECF-IFZ"
    "MARCA DO FABRICANTE1"
    "MODELO DO BANCO 1234";
const std::string kSoftware =
    "VERSAO4567"
    "20231230"
    "235857";
const std::string kPeriodo =
    "123456"
    "654321"
    "20240102"
    "20240131";
const std::string kFim =
    "02.00.02"
    "AC1704 01.00.00";

TEST(E01, WritesEveryFieldToItsLastDigit) {
  Bancada bancada;
  preenche(bancada);
  const std::string linha = bancada.linha("E01");
  EXPECT_EQ(linha,
            "E01"
            "SERIAL              "
            " "
            "ECF-IFZ"
            "MARCA DO FABRICANTE1"
            "MODELO DO BANCO 1234"
            "VERSAO4567"
            "20231230"
            "235857"
            "987"
            "98765432109876"
            "TDM"
            "123456"
            "654321"
            "20240102"
            "20240131"
            "02.00.02"
            "AC1704 01.00.00");
  EXPECT_EQ(linha.size(), 166U);
}

TEST(E01, ShortTextsAreBlankFilled) {
  EXPECT_EQ(linhaCom("UPDATE dados_ecf SET tipo='T', marca='M', modelo='', num_caixa='1';"
                     "UPDATE versao_sb SET versao='1'; UPDATE dados_usuario SET cnpj='5'"),
            kIdentidade +
                "T      "
                "M                   "
                "                    "
                "1         "
                "20231230"
                "235857"
                "001"
                "00000000000005"
                "TDM" +
                kPeriodo + kFim);
}

TEST(E01, OverlongTextsAreCutByTheNextField) {
  EXPECT_EQ(linhaCom("UPDATE dados_ecf SET tipo='TIPO567890123456789012345678901234567890',"
                     " marca='MARCA678901234567890123456789012345678901234567890',"
                     " modelo='MODELO78901234567890123456789012345678901234567890', num_caixa='9876';"
                     "UPDATE versao_sb SET versao='VERSAO78901234567890123456789012345678901234567890';"
                     "UPDATE dados_usuario SET cnpj='123456789012345'"),
            kIdentidade +
                "TIPO567"
                "MARCA678901234567890"
                "MODELO78901234567890"
                "VERSAO7890"
                "20231230"
                "235857"
                "987"
                "12345678901234"
                "TDM" +
                kPeriodo + kFim);
}

TEST(E01, OverlongModelIsCutWithoutASoftwareVersionToo) {
  EXPECT_EQ(
      posicoes(linhaCom("UPDATE dados_ecf SET modelo='MODELO78901234567890123456789012345678901234567890';"
                        "DELETE FROM versao_sb"),
               52, 88),
      "MODELO78901234567890"
      "              "
      "987");
}

TEST(E01, NullTextsCountAsEmpty) {
  EXPECT_EQ(linhaCom("UPDATE dados_ecf SET tipo=NULL, marca=NULL, modelo=NULL, num_caixa=NULL;"
                     "UPDATE versao_sb SET versao=NULL; UPDATE dados_usuario SET cnpj=NULL"),
            kIdentidade +
                "       "
                "                    "
                "                    "
                "          "
                "20231230"
                "235857"
                "000"
                "00000000000000"
                "TDM" +
                kPeriodo + kFim);
}

TEST(E01, DatabasesTypeGoesBeforeTheHosts) {
  Bancada bancada;
  preenche(bancada);
  cotepe::copiaLimitada(g_Tipo, "HOSPEDE");
  EXPECT_EQ(posicoes(bancada.linha("E01"), 25, 31), "ECF-IFZ");
}

TEST(E01, EmptyTypeIsTakenFromTheHost) {
  for (const char* vazio : {"''", "NULL"}) {
    Bancada bancada;
    preenche(bancada);
    bancada.sql("UPDATE dados_ecf SET tipo=" + std::string(vazio));
    EXPECT_EQ(posicoes(bancada.linha("E01"), 25, 31), "       ") << vazio;
    cotepe::copiaLimitada(g_Tipo, "ECF-MR");
    EXPECT_EQ(posicoes(bancada.linha("E01"), 25, 31), "ECF-MR ") << vazio;
  }
}

TEST(E01, HostsTypeWithoutTerminatorIsCutByTheBrand) {
  Bancada bancada;
  preenche(bancada);
  bancada.sql("UPDATE dados_ecf SET tipo=''");
  std::memcpy(g_Tipo, "TIPO56789012345", sizeof g_Tipo);
  EXPECT_EQ(posicoes(bancada.linha("E01"), 25, 51),
            "TIPO567"
            "MARCA DO FABRICANTE1");
}

TEST(E01, HostsSoftwareVersionNeverReachesTheLine) {
  Bancada bancada;
  preenche(bancada);
  cotepe::copiaLimitada(g_VersaoSB, "SB DO HOSPEDE");
  EXPECT_EQ(posicoes(bancada.linha("E01"), 72, 95), kSoftware);
  bancada.sql("DELETE FROM versao_sb");
  EXPECT_EQ(posicoes(bancada.linha("E01"), 72, 88),
            "              "
            "987");
}

TEST(E01, WithoutASoftwareVersionTheLineIsTenShorter) {
  const std::string linha = linhaCom("DELETE FROM versao_sb");
  EXPECT_EQ(linha, kIdentidade + kTipoMarcaModelo +
                       "        "
                       "      "
                       "987"
                       "98765432109876"
                       "TDM" +
                       kPeriodo + kFim);
  EXPECT_EQ(linha.size(), 156U);
}

TEST(E01, SoftwareVersionOfTheHighestSequenceIsTaken) {
  EXPECT_EQ(
      posicoes(linhaCom("DELETE FROM versao_sb; INSERT INTO versao_sb VALUES('NOVE','2024-01-09 09:09:09',9),"
                        "('DEZ','2024-01-10 10:10:10',10),('OITO','2024-01-08 08:08:08',8)"),
               72, 98),
      "DEZ       "
      "20240110"
      "101010"
      "987");
}

TEST(E01, TwoVersionsOfTheHighestSequenceMoveTheLaterFields) {
  EXPECT_EQ(linhaCom("INSERT INTO versao_sb VALUES('OUTRA','2024-01-09 09:08:07','7')"),
            kIdentidade + kTipoMarcaModelo + kSoftware +
                "OUTRA     "
                "20240109"
                "090807"
                "987"
                "98765432109876"
                "TDM" +
                kPeriodo + kFim);
}

TEST(E01, NullDateOfTheSoftwareVersionIsBlank) {
  EXPECT_EQ(posicoes(linhaCom("UPDATE versao_sb SET data_hora_gravacao=NULL"), 72, 98),
            "VERSAO4567"
            "        "
            "      "
            "987");
}

TEST(E01, ShortDateOfTheSoftwareVersionEndsTheLineThere) {
  EXPECT_EQ(linhaCom("UPDATE versao_sb SET data_hora_gravacao=''"),
            kIdentidade + kTipoMarcaModelo + "VERSAO4567");
  EXPECT_EQ(linhaCom("UPDATE versao_sb SET data_hora_gravacao='2023-12-30'"), kIdentidade + kTipoMarcaModelo +
                                                                                  "VERSAO4567"
                                                                                  "20231230");
}

TEST(E01, WithoutAPrinterTheLineIs47ShorterAndTheSequenceNumberZero) {
  const std::string linha = linhaCom("DELETE FROM dados_ecf");
  EXPECT_EQ(linha, kIdentidade + kSoftware +
                       "000"
                       "98765432109876"
                       "TDM" +
                       kPeriodo + kFim);
  EXPECT_EQ(linha.size(), 119U);
}

TEST(E01, TwoPrintersRepeatTypeBrandAndModelAndTheLastNumberCounts) {
  EXPECT_EQ(linhaCom("INSERT INTO dados_ecf VALUES('','MODELO 2','TIPO 2','MARCA 2','12')"),
            kIdentidade + kTipoMarcaModelo +
                "TIPO 2 "
                "MARCA 2             "
                "MODELO 2            " +
                kSoftware +
                "012"
                "98765432109876"
                "TDM" +
                kPeriodo + kFim);
}

TEST(E01, SequenceNumberIsReadAsAnInteger) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {{"''", "000"},    {"'7'", "007"},  {"7", "007"},     {"'-7'", "-07"},
                {"'abc'", "000"}, {"'4x'", "004"}, {"'1234'", "123"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaCom("UPDATE dados_ecf SET num_caixa=" + std::string(caso.numero)), 96, 98),
              caso.campo)
        << caso.numero;
}

TEST(E01, WithoutAUserTheCnpjIsZeros) {
  EXPECT_EQ(posicoes(linhaCom("DELETE FROM dados_usuario"), 96, 115),
            "987"
            "00000000000000"
            "TDM");
}

TEST(E01, TwoUsersMoveTheLaterFieldsFourteenToTheRight) {
  const std::string linha = linhaCom("INSERT INTO dados_usuario(cnpj) VALUES('11222333000144')");
  EXPECT_EQ(linha, kIdentidade + kTipoMarcaModelo + kSoftware +
                       "987"
                       "98765432109876"
                       "11222333000144"
                       "TDM" +
                       kPeriodo + kFim);
  EXPECT_EQ(linha.size(), 180U);
}

TEST(E01, PunctuatedCnpjStopsAtItsFirstPoint) {
  EXPECT_EQ(posicoes(linhaCom("UPDATE dados_usuario SET cnpj='12.345.678/0001-90'"), 99, 112),
            "00000000000012");
}

TEST(E01, CommandIsBlankFilledToThree) {
  Bancada bancada;
  preenche(bancada);
  const struct {
    const char* comando;
    const char* campo;
  } kCasos[] = {{"MF", "MF "}, {"MFD", "MFD"}, {"RZ", "RZ "}, {"", "   "}, {"mf", "mf "}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(bancada.linha("E01", caso.comando), 113, 121), std::string(caso.campo) + "123456");
}

TEST(E01, LayoutIdentifierIsThatOfLayout2ForAnyVersionBut1) {
  Bancada bancada;
  preenche(bancada);
  const struct {
    int versao;
    const char* leiaute;
  } kCasos[] = {
      {1, "AC1704 01.00.00"}, {2, "AC1704 02.00.00"}, {3, "AC1704 02.00.00"}, {0, "AC1704 02.00.00"}};
  for (const auto& caso : kCasos) {
    const std::string linha = bancada.versao(caso.versao).linha("E01");
    EXPECT_EQ(posicoes(linha, 152, 200), caso.leiaute) << caso.versao;
    EXPECT_EQ(linha.size(), 166U) << caso.versao;
  }
}

TEST(E01, IsTheSameInCat52Mode) {
  Bancada bancada;
  preenche(bancada);
  EXPECT_EQ(bancada.cat52(true).linha("E01"), kIdentidade + kTipoMarcaModelo + kSoftware +
                                                  "987"
                                                  "98765432109876"
                                                  "TDM" +
                                                  kPeriodo + kFim);
}

TEST(E01, EachQueryThatCannotRunHasItsOwnMessageAndLeavesNoLine) {
  confereConsultaImpossivel("ALTER TABLE dados_ecf RENAME COLUMN marca TO outra", "E01",
                            "Erro no select 1 - TipoE01");
  confereConsultaImpossivel("DROP TABLE dados_ecf", "E01", "Erro no select 1 - TipoE01");
  confereConsultaImpossivel("ALTER TABLE versao_sb RENAME COLUMN num_sequencia TO outra", "E01",
                            "Erro no select 2 - TipoE01");
  confereConsultaImpossivel("ALTER TABLE dados_usuario RENAME COLUMN cnpj TO outra", "E01",
                            "Erro no select 3 - TipoE01");
  confereConsultaImpossivel("ALTER TABLE reducao_z RENAME COLUMN data_hora_emissao TO outra", "E01",
                            "Erro no select 4 - TipoE01");
}

TEST(E01, QueryThatFailsAfterItsFirstRowLeavesNoLineAndTheRunGoesOn) {
  const struct {
    const char* trecho;
    const char* mensagem;
  } kCasos[] = {{"SELECT tipo, marca", "Erro no select 1 - TipoE01"},
                {"SELECT versao, ifnull(data_hora_gravacao, '                   ')                  FROM",
                 "Erro no select 2 - TipoE01"},
                {"SELECT MIN(cont_crz)", "Erro no select 4 - TipoE01"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.mensagem);
    Bancada bancada;
    preenche(bancada);
    const auto inteiro = bancada.gera("TDM");
    const FalhaNaLinha falha(bancada.banco(), caso.trecho, 1);
    EXPECT_EQ(bancada.gera("TDM"), dosOutros(inteiro, "E01"));
    EXPECT_EQ(bancada.resultado, 0);
    EXPECT_EQ(g_mensagens, std::vector<std::string>{caso.mensagem});
    EXPECT_EQ(falha.abertas, std::vector<int>{1});
  }
}

TEST(E01, UserQueryThatFailsAfterItsFirstRowLeavesNoLine) {
  Bancada bancada;
  preenche(bancada);
  const FalhaNaLinha falha(bancada.banco(), "SELECT cnpj FROM dados_usuario", 1);
  EXPECT_TRUE(bancada.registro("E01").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 3 - TipoE01"});
}

TEST(E01, QueriesAfterAFailedOneAreNotRun) {
  Bancada bancada;
  bancada.sql("DROP TABLE versao_sb; DROP TABLE dados_usuario; DROP TABLE reducao_z");
  EXPECT_TRUE(bancada.registro("E01").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select 2 - TipoE01"});
}

}  // namespace
