// The second reading against lines typed by hand: who judges must be judged first.
#include "referencia/Referencia.h"

#include <gtest/gtest.h>

#include "referencia/BancoAleatorio.h"
#include "referencia/BancoDeTeste.h"
#include "referencia/Texto.h"

namespace referencia {
namespace {

const std::string kSerie = "SERIE1              ";
const std::string kModelo = "MODELO1             ";
const std::string kCabeca = kSerie + " " + kModelo;

class Referencia : public testing::Test {
 protected:
  Referencia() {
    entrada_.inicial = "01012024";
    entrada_.final = "31012024";
    entrada_.comando = "TDM";
    entrada_.dataHoraDoSistema = "20240131 235959";
    banco_.executa("CREATE TABLE dados_ecf (num_serie, modelo, tipo, marca, num_caixa)");
    banco_.executa(
        "CREATE TABLE dados_usuario (seq_usuario, cnpj, ie, razao_social, endereco, data_hora_gravacao, "
        "cont_cro, valor_gt)");
    banco_.executa("INSERT INTO dados_ecf VALUES ('SERIE1', 'MODELO1', 'ECF-IF', 'MARCA', '7')");
    banco_.executa(
        "INSERT INTO dados_usuario VALUES ('3', '12345678000190', '123.456.789-00', 'NOME', 'RUA', "
        "'2023-05-06 07:08:09', '1000001', '10.5')");
  }

  void executa(const std::string& sql) { banco_.executa(sql); }

  void criaReducoes() {
    executa(
        "CREATE TABLE reducao_z (cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao, valor_vb, "
        "valor_gt)");
  }

  std::string registro(const std::string& codigo) {
    const Saida saida = geraRegistro(banco_.get(), entrada_, codigo);
    log_ = saida.log;
    return saida.arquivo;
  }

  BancoDeTeste banco_;
  Entrada entrada_;
  std::vector<std::string> log_;
};

TEST_F(Referencia, E01CarriesTheIdentification) {
  criaReducoes();
  executa("CREATE TABLE versao_sb (versao, data_hora_gravacao, num_sequencia)");
  executa("INSERT INTO versao_sb VALUES ('01.00', '2022-03-04 05:06:07', 2), ('00.99', NULL, 1)");
  executa("INSERT INTO reducao_z VALUES (1234567, 1, 1, '2024-01-02 00:00:00', '2024-01-03 04:05:06', 0, 0)");
  EXPECT_EQ(registro("E01"),
            "E01SERIE1               ECF-IF MARCA               MODELO1             "
            "01.00     20220304050607"
            "00712345678000190TDM2345672345672024010220240103"
            "02.00.02AC1704 01.00.00\n");
}

TEST_F(Referencia, E01WithoutAVersionIsTenShorter) {
  criaReducoes();
  executa("CREATE TABLE versao_sb (versao, data_hora_gravacao, num_sequencia)");
  entrada_.versao = 3;
  EXPECT_EQ(registro("E01"),
            "E01SERIE1               ECF-IF MARCA               MODELO1             "
            "              "
            "00712345678000190TDM000000000000                "
            "02.00.02AC1704 02.00.00\n");
}

TEST_F(Referencia, E01TellsWhichQueryFailed) {
  EXPECT_EQ(registro("E01"), "");
  EXPECT_EQ(log_, std::vector<std::string>{"Erro no select 2 - TipoE01"});
}

TEST_F(Referencia, E02UsesSeventeenCharactersOfTheGrandTotal) {
  executa("CREATE TABLE posicao_totalizadores_contadores (valor_gt)");
  executa("INSERT INTO posicao_totalizadores_contadores VALUES ('123456789012345.67')");
  EXPECT_EQ(registro("E02"), "E02" + kCabeca + "1234567800019012345678900   " + "NOME" +
                                 std::string(36, ' ') + "RUA" + std::string(117, ' ') +
                                 "20230506070809"
                                 "000001"
                                 "012345678901234560"
                                 "01\n");
}

TEST_F(Referencia, E03AndE04ArePlaceholders) {
  const std::string blanks(14, ' ');
  EXPECT_EQ(registro("E03"),
            "E03" + kCabeca + "00" + blanks + "0000000000000000000000000000000000000000000000\n");
  EXPECT_EQ(registro("E04"),
            "E04" + kCabeca + "03" + blanks + "0000000000000000000000000000000000000000000000000000\n");
  entrada_.cat52 = true;
  EXPECT_EQ(registro("E04"), "");
}

TEST_F(Referencia, E05GoesOnWhereTheFirstRowLeftOff) {
  executa("CREATE TABLE codificacao_gt (data_hora_gravacao, codificacao)");
  executa("INSERT INTO codificacao_gt VALUES ('2024-01-02 03:04:05', 'ABCDEFGHIJKLMNOPQRS'), (NULL, 'Z')");
  EXPECT_EQ(registro("E05"), "E05" + kCabeca +
                                 "1234567800019020240102030405ABCDEFGHIJKLMNOPQRS\n"
                                 "E05" +
                                 kCabeca + "1234567800019020240102030405              Z\n");
}

TEST_F(Referencia, E07PlaceholderIsEighteenBlanks) {
  executa("CREATE TABLE versao_sb (versao, data_hora_gravacao)");
  EXPECT_EQ(registro("E07"), "                  \n");
}

TEST_F(Referencia, E08HasTwentyBlanksAfterTheCnpj) {
  EXPECT_EQ(registro("E08"), "E08" + kCabeca + "12345678000190                    \n");
}

TEST_F(Referencia, E09PlaceholderOfVersionTwoIsOneShorter) {
  executa(
      "CREATE TABLE intervencao (cont_cro, data_hora_intervencao, id_perda_dados_mt, id_tipo_intervencao, "
      "cont_crz, cont_coo)");
  entrada_.versao = 2;
  EXPECT_EQ(registro("E09"), "E09" + kCabeca + "000000               0000000000000\n");
  executa("INSERT INTO intervencao VALUES (1234567, '2024-01-02 03:04:05', 'N', 'T', 12345, 10000000007)");
  EXPECT_EQ(registro("E09"), "E09" + kCabeca + "23456720240102030405NF2345000000007\n");
  executa("UPDATE intervencao SET id_tipo_intervencao = ''");
  EXPECT_EQ(registro("E09"), "E09" + kCabeca + "23456720240102030405N\n");
}

TEST_F(Referencia, E11StampTakesTheTailOfTheTotalInVersionTwo) {
  executa(
      "CREATE TABLE posicao_totalizadores_contadores (cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, "
      "cont_grg, cont_cfd, valor_gt)");
  executa("INSERT INTO posicao_totalizadores_contadores VALUES (1, 2, 1234567, 4, 5, 6, 7, '1234.56')");
  EXPECT_EQ(registro("E11"), "E11" + kCabeca +
                                 "000001000002234567000004000005000000000000000006000000000007"
                                 "00000000000012345620240131235959\n");
  entrada_.versao = 2;
  EXPECT_EQ(registro("E11"), "E11" + kCabeca +
                                 "000001000002001234567000000004000000005000000000000000000006000000000007"
                                 "00000020240131235959\n");
}

TEST_F(Referencia, E13OnlyTheFirstPlaceholderHeedsCat52) {
  criaReducoes();
  executa("CREATE TABLE totalizador_reducao (cont_crz, totalizador, valor_base_calculo, id_fiscal)");
  const std::string opnf = "E13" + kCabeca + "03000000OPNF   0000000000000\n";
  EXPECT_EQ(registro("E13"), "E13" + kCabeca + "03000000       0000000000000\n" + opnf);
  entrada_.cat52 = true;
  EXPECT_EQ(registro("E13"), opnf);
}

TEST_F(Referencia, E16WideCdcMovesTheFieldsAfterIt) {
  criaReducoes();
  executa("INSERT INTO reducao_z VALUES (9, 1, 1, '2024-01-31 23:59:59', '', 0, 0)");
  executa(
      "CREATE TABLE outros_documentos (cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento, "
      "data_hora_fim_emissao)");
  executa("INSERT INTO outros_documentos VALUES (21, 22, 23, 12345, 9, 'CC', '2024-01-31 01:02:03')");
  EXPECT_EQ(registro("E16"), "E16" + kCabeca + "0300002100002200000012345000000CC20240131010203\n");
}

TEST_F(Referencia, E17HasItsOwnMessage) {
  EXPECT_EQ(registro("E17"), "");
  EXPECT_EQ(log_, std::vector<std::string>{"Erro no select - TipoE"});
}

TEST_F(Referencia, E22HasNoBlankBeforeTheModel) {
  executa("CREATE TABLE tentativas_sb (a, b, c)");
  executa("INSERT INTO tentativas_sb VALUES (7, '', '2024-01-02 03:04:05'), (12345, '', '2024-01')");
  EXPECT_EQ(registro("E22"),
            "E22" + kSerie + kModelo + "000720240102\n" + "E22" + kSerie + kModelo + "12345202401\n");
}

TEST_F(Referencia, FailedIdentityGivesFiveAndAnEmptyFile) {
  executa("DROP TABLE dados_usuario");
  const Saida saida = gera(banco_.get(), entrada_);
  EXPECT_EQ(saida.codigo, 5);
  EXPECT_EQ(saida.arquivo, "");
  EXPECT_EQ(saida.log, std::vector<std::string>{"Erro no select - GeraRegistrosTipoE"});
}

TEST_F(Referencia, UnknownCommandGivesTheHeaderAlone) {
  criaReducoes();
  executa("CREATE TABLE versao_sb (versao, data_hora_gravacao, num_sequencia)");
  entrada_.comando = "TDMX";
  const Saida saida = gera(banco_.get(), entrada_);
  EXPECT_EQ(saida.codigo, 0);
  EXPECT_EQ(saida.arquivo, registro("E01") + registro("E02"));
}

struct CasoDeDinheiro {
  const char* texto;
  std::int64_t centavos;
};

class ReferenciaDinheiro : public testing::TestWithParam<CasoDeDinheiro> {};

TEST_P(ReferenciaDinheiro, IsReadInCents) {
  EXPECT_EQ(centavos(GetParam().texto), GetParam().centavos) << GetParam().texto;
}

INSTANTIATE_TEST_SUITE_P(
    Textos, ReferenciaDinheiro,
    testing::Values(CasoDeDinheiro{"", 0}, CasoDeDinheiro{"12.3", 1230}, CasoDeDinheiro{"1234,56", 123456},
                    CasoDeDinheiro{"1500", 150000}, CasoDeDinheiro{" 0.5 ", 50}, CasoDeDinheiro{".5", 50},
                    CasoDeDinheiro{"5.", 500}, CasoDeDinheiro{".", 0}, CasoDeDinheiro{"-1", -100},
                    CasoDeDinheiro{"0.005", 1}, CasoDeDinheiro{"-0.005", -1}, CasoDeDinheiro{"0.0049999", 0},
                    CasoDeDinheiro{"1.995", 200}, CasoDeDinheiro{"9.994999", 999},
                    CasoDeDinheiro{"1e3", 100000}, CasoDeDinheiro{"12345E-3", 1235}, CasoDeDinheiro{"1e", 0},
                    CasoDeDinheiro{"1.2.3", 0}, CasoDeDinheiro{"12x", 0}, CasoDeDinheiro{"inf", 0},
                    CasoDeDinheiro{"1e-99999999999999999999", 0}, CasoDeDinheiro{"0e99999999999999999999", 0},
                    CasoDeDinheiro{"92233720368547758.065", 9223372036854775807},
                    CasoDeDinheiro{"1e99999999999999999999", 9223372036854775807},
                    CasoDeDinheiro{"-1e30", -9223372036854775807 - 1}));

TEST(ReferenciaTexto, RoundsHalvesAwayFromZeroAndStaysInTheInt) {
  EXPECT_EQ(arredonda(0.5), 1);
  EXPECT_EQ(arredonda(-0.5), -1);
  EXPECT_EQ(arredonda(0.49), 0);
  EXPECT_EQ(arredonda(-2.5), -3);
  EXPECT_EQ(arredonda(1e300), 2147483647);
  EXPECT_EQ(arredonda(-1e300), -2147483647 - 1);
  EXPECT_EQ(arredonda(decimal("nan")), 0);
}

TEST(ReferenciaTexto, IntegersSaturate) {
  EXPECT_EQ(inteiro(" +12x"), 12);
  EXPECT_EQ(inteiro("99999999999999999999"), 9223372036854775807);
  EXPECT_EQ(semSinal(-100, 14), "18446744073709551516");
}

TEST(BancoAleatorio, SameSeedGivesTheSameReport) {
  Entrada entrada;
  entrada.inicial = "01012024";
  entrada.final = "31012024";
  entrada.comando = "TDM";
  BancoDeTeste um;
  BancoDeTeste outro;
  criaBancoAleatorio(um.get(), 7, Nivel::Limpo);
  criaBancoAleatorio(outro.get(), 7, Nivel::Limpo);
  const Saida saida = gera(um.get(), entrada);
  EXPECT_EQ(saida.arquivo, gera(outro.get(), entrada).arquivo);
  EXPECT_TRUE(saida.log.empty());
  EXPECT_NE(saida.arquivo.find("\nE21"), std::string::npos);
}

}  // namespace
}  // namespace referencia
