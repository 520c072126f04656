#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

constexpr char kReducao[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');";

// A coupon of nothing: counters, amounts and texts empty or zero, not cancelled.
constexpr char kCupom[] =
    "INSERT INTO cupom_fiscal(cont_ccf, cont_coo, cont_crz, data_hora_emissao, valor_subtotal, "
    "valor_desconto,"
    " valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado, nome_consumidor, cpf_cnpj_consumidor,"
    " tipo_acrescimo, tipo_desconto, perc_desconto, perc_acrescimo, texto_suplementar, texto_complementar,"
    " assinatura_documento) VALUES('0','0','7','2024-01-15 "
    "10:20:30','0','0','0','0','0','N','','','V','V','0',"
    "'0','','','');";

// The only coupon of the bench, `mudanca` being a list of "column = value".
std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql("DELETE FROM reducao_z; DELETE FROM cupom_fiscal");
  bancada.sql(kReducao);
  bancada.sql(kCupom);
  bancada.sql("UPDATE cupom_fiscal SET " + mudanca);
  return bancada.linha("E14");
}

constexpr char kTudoPreenchido[] =
    "cont_ccf='987654321', cont_coo='123456789', data_hora_emissao='2023-12-31 23:59:58',"
    "valor_subtotal='123456789012.34', valor_desconto='23456789012.35', valor_acrescimo='34567890123.46',"
    "valor_total='456789012345.67', id_cancelado='S', valor_canc_acrescimo='56789012345.78',"
    "nome_consumidor='ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abc', cpf_cnpj_consumidor='98765432109876'";

// What follows the counters in the line of that coupon, up to the consumer.
const std::string kDepoisDosContadores =
    "20231231"
    "12345678901234"
    "2345678901235"
    "V"
    "3456789012346"
    "V"
    "45678901234567"
    "S"
    "5678901234578"
    "A"
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abc "
    "98765432109876";

TEST(E14, WritesEveryFieldToItsLastDigitInLayout1) {
  Bancada bancada;
  const std::string linha = linhaCom(bancada, kTudoPreenchido);
  EXPECT_EQ(linha, cabecalhoDoUsuario("E14") +
                       "654321"
                       "456789" +
                       kDepoisDosContadores);
  EXPECT_EQ(linha.size(), 191U);
}

TEST(E14, WritesEveryFieldToItsLastDigitInLayout2) {
  const std::string suplementar = "<" + std::string(558, 's') + ">";
  const std::string complementar = "(" + std::string(82, 'c') + ")";
  const std::string assinatura = "[" + std::string(42, 'a') + "]";
  Bancada bancada;
  bancada.versao(2);
  const std::string linha = linhaCom(bancada, std::string(kTudoPreenchido) + ", texto_suplementar='" +
                                                  suplementar + "', texto_complementar='" + complementar +
                                                  "', assinatura_documento='" + assinatura + "'");
  EXPECT_EQ(linha, cabecalhoDoUsuario("E14") +
                       "987654321"
                       "123456789" +
                       kDepoisDosContadores + suplementar + complementar + assinatura);
  EXPECT_EQ(linha.size(), 885U);
}

TEST(E14, ShortTextsAreFilledWithBlanksInLayout2) {
  Bancada bancada;
  bancada.versao(2);
  const std::string linha = linhaCom(
      bancada,
      "nome_consumidor='ANA', texto_suplementar='s', texto_complementar='c', assinatura_documento='a'");
  EXPECT_EQ(posicoes(linha, 144, 183), "ANA                                     ");
  EXPECT_EQ(posicoes(linha, 198, 757), "s" + brancos(559));
  EXPECT_EQ(posicoes(linha, 758, 841), "c" + brancos(83));
  EXPECT_EQ(posicoes(linha, 842, 999), "a" + brancos(43));
}

TEST(E14, TextsAreThereInLayout2OutsideCat52Only) {
  const struct {
    int versao;
    bool cat52;
    std::size_t comprimento;
  } kCasos[] = {{1, false, 191}, {1, true, 191},  {2, false, 885},
                {2, true, 197},  {3, false, 197}, {3, true, 197}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << "layout " << caso.versao << ", CAT52 " << caso.cat52);
    Bancada bancada;
    bancada.versao(caso.versao).cat52(caso.cat52);
    const std::string linha =
        linhaCom(bancada, std::string(kTudoPreenchido) + ", texto_suplementar='s', assinatura_documento='a'");
    EXPECT_EQ(linha.size(), caso.comprimento);
    const std::string contadores = caso.versao == 1 ? "654321456789" : "987654321123456789";
    const std::string semTextos = cabecalhoDoUsuario("E14") + contadores + kDepoisDosContadores;
    EXPECT_EQ(linha.substr(0, semTextos.size()), semTextos);
  }
}

TEST(E14, WithoutCouponWritesOnePlaceholderOutsideCat52) {
  const std::string depoisDosContadores =
      "        "
      "00000000000000"
      "0000000000000"
      " "
      "0000000000000"
      " "
      "00000000000000"
      " "
      "0000000000000"
      " "
      "                                        "
      "00000000000000";
  const struct {
    int versao;
    const char* contadores;
    std::size_t textos;
  } kCasos[] = {
      {1, "000000000000", 0}, {2, "000000000000000000", 560 + 84 + 44}, {3, "000000000000000000", 0}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << "layout " << caso.versao);
    Bancada bancada;
    bancada.versao(caso.versao);
    EXPECT_EQ(bancada.linha("E14"),
              cabecalhoDoUsuario("E14") + caso.contadores + depoisDosContadores + brancos(caso.textos));
    EXPECT_TRUE(bancada.cat52(true).registro("E14").empty());
  }
}

TEST(E14, CouponsComeInAscendingCcf) {
  Bancada bancada;
  bancada.sql(kReducao);
  for (const char* ccf : {"3", "1", "2"}) {
    bancada.sql(kCupom);
    bancada.sql(std::string("UPDATE cupom_fiscal SET cont_ccf='") + ccf + "' WHERE cont_ccf='0'");
  }
  const auto linhas = bancada.registro("E14");
  ASSERT_EQ(linhas.size(), 3U);
  EXPECT_EQ(posicoes(linhas[0], 47, 52), "000001");
  EXPECT_EQ(posicoes(linhas[1], 47, 52), "000002");
  EXPECT_EQ(posicoes(linhas[2], 47, 52), "000003");
}

TEST(E14, TheReductionsFiscalDayDecidesOnThePeriodNotTheCouponsOwnDate) {
  const struct {
    const char* movimento;
    bool incluido;
  } kCasos[] = {{"2024-01-01 00:00:00", true},  {"2024-01-31 23:59:59", true}, {"2023-12-31 23:59:59", false},
                {"2024-02-01 00:00:00", false}, {"2024-01-01", false},         {"2024-01-02", true}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.movimento);
    Bancada bancada;
    bancada.cat52(true).sql(std::string(kReducao) + kCupom);
    bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
    EXPECT_EQ(bancada.registro("E14").size(), caso.incluido ? 1U : 0U);
  }
}

TEST(E14, ACouponWithoutItsReductionIsLeftOut) {
  Bancada bancada;
  bancada.cat52(true).sql(std::string(kReducao) + kCupom + "UPDATE cupom_fiscal SET cont_crz='8'");
  EXPECT_TRUE(bancada.registro("E14").empty());
}

TEST(E14, SurchargeWinsOverDiscount) {
  const struct {
    const char* desconto;
    const char* acrescimo;
    const char* ordem;
  } kCasos[] = {{"0.00", "0.00", " "}, {"0.01", "0.00", "D"}, {"0.00", "0.01", "A"}, {"9.99", "0.01", "A"},
                {"", "", " "},         {"0.004", "0", " "},   {"-1.00", "0", "D"},   {"1.00", "-1.00", "A"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << "discount " << caso.desconto << ", surcharge " << caso.acrescimo);
    Bancada bancada;
    const std::string linha = linhaCom(bancada, std::string("valor_desconto='") + caso.desconto +
                                                    "', valor_acrescimo='" + caso.acrescimo + "'");
    EXPECT_EQ(posicoes(linha, 137, 137), caso.ordem);
  }
}

TEST(E14, TypesAreAlwaysVAndPercentagesChangeNothing) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada,
               "tipo_desconto='P', perc_desconto='10', tipo_acrescimo='P', perc_acrescimo='20',"
               "valor_desconto='1.23', valor_acrescimo='4.56'");
  EXPECT_EQ(posicoes(linha, 81, 108),
            "0000000000123"
            "V"
            "0000000000456"
            "V");
}

TEST(E14, ConsumerNameHasThirtyNineCharactersAndABlank) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada, "nome_consumidor='ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcdefghijklmn'");
  EXPECT_EQ(posicoes(linha, 138, 177), "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abc ");
}

TEST(E14, ConsumerNameOfManyBytesIsCutByTheDocumentNumber) {
  Bancada bancada;
  const std::string linha = linhaCom(
      bancada,
      "nome_consumidor='ÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚ', cpf_cnpj_consumidor='12345678901234'");
  EXPECT_EQ(posicoes(linha, 138, 191),
            "ÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚÁÉÍÓÚ"
            "12345678901234");
  EXPECT_EQ(linha.size(), 191U);
}

TEST(E14, ConsumerNumberEndsAtTheFirstSeparator) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {
      {"123.456.789-01", "00000000000123"}, {"", "00000000000000"},    {"12345678901", "00012345678901"},
      {"12345678000190", "12345678000190"}, {" 42", "00000000000042"}, {"isento", "00000000000000"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.numero);
    Bancada bancada;
    EXPECT_EQ(posicoes(linhaCom(bancada, std::string("cpf_cnpj_consumidor='") + caso.numero + "'"), 178, 999),
              caso.campo);
  }
}

TEST(E14, AnOverlongConsumerNumberMakesTheLineLongerWhereItIsTheLastField) {
  Bancada bancada;
  const char* const numero = "cpf_cnpj_consumidor='12345678901234567'";
  EXPECT_EQ(posicoes(linhaCom(bancada, numero), 178, 999), "12345678901234567");
  bancada.versao(2);
  EXPECT_EQ(posicoes(linhaCom(bancada, numero), 184, 999), "12345678901234" + brancos(688));
  bancada.cat52(true);
  EXPECT_EQ(posicoes(linhaCom(bancada, numero), 184, 999), "12345678901234567");
}

TEST(E14, AnEmptyCancellationFlagEndsTheLine) {
  for (const char* vazio : {"''", "NULL"}) {
    for (const int versao : {1, 2, 3}) {
      SCOPED_TRACE(testing::Message() << vazio << " in layout " << versao);
      Bancada bancada;
      bancada.versao(versao);
      EXPECT_EQ(linhaCom(bancada, std::string("valor_total='1.23', id_cancelado=") + vazio),
                cabecalhoDoUsuario("E14") + (versao == 1 ? "000000000000" : "000000000000000000") +
                    "20240115"
                    "00000000000000"
                    "0000000000000"
                    "V"
                    "0000000000000"
                    "V"
                    "00000000000123");
    }
  }
}

TEST(E14, OfALongCancellationFlagTheFirstCharacterStays) {
  Bancada bancada;
  EXPECT_EQ(
      posicoes(linhaCom(bancada, "id_cancelado='SIM, FOI CANCELADO', valor_canc_acrescimo='1'"), 123, 137),
      "S"
      "0000000000100"
      " ");
}

TEST(E14, TextsLoseWhatIsNotAsciiAndTheSignatureKeepsIt) {
  Bancada bancada;
  bancada.versao(2);
  const std::string linha =
      linhaCom(bancada,
               "texto_suplementar='A' || char(9) || 'ção' || char(10) || char(127) || '~',"
               "texto_complementar='já', assinatura_documento='é' || char(9) || 'z'");
  EXPECT_EQ(posicoes(linha, 198, 757), "A     o \x7f~" + brancos(550));
  EXPECT_EQ(posicoes(linha, 758, 841), "j  " + brancos(81));
  EXPECT_EQ(posicoes(linha, 842, 999), "é\tz" + brancos(40));
}

TEST(E14, OverlongTextsAreCutByTheNextAndOnlyTheSignatureRunsOver) {
  Bancada bancada;
  bancada.versao(2);
  const std::string linha =
      linhaCom(bancada, "texto_suplementar='" + std::string(700, 's') + "', texto_complementar='" +
                            std::string(200, 'c') + "', assinatura_documento='" + std::string(50, 'a') + "'");
  EXPECT_EQ(posicoes(linha, 198, 9999), std::string(560, 's') + std::string(84, 'c') + std::string(50, 'a'));
}

TEST(E14, ATextOfAMillionCharactersIsCutToo) {
  Bancada bancada;
  bancada.versao(2);
  const std::string linha =
      linhaCom(bancada, "texto_suplementar='" + std::string(1000000, 's') + "', assinatura_documento='a'");
  EXPECT_EQ(posicoes(linha, 198, 9999), std::string(560, 's') + brancos(84) + "a" + brancos(43));
}

TEST(E14, CountersKeepTheirLastDigits) {
  const struct {
    const char* contador;
    const char* layout1;
    const char* layout2;
  } kCasos[] = {{"1234567", "234567", "001234567"},     {"1234567890", "567890", "234567890"},
                {"12345678901", "678901", "345678901"}, {"99999999999999999999", "775807", "854775807"},
                {"-5", "-00005", "-00000005"},          {"12x34", "000012", "000000012"},
                {" 7", "000007", "000000007"},          {"", "000000", "000000000"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.contador);
    Bancada bancada;
    const std::string mudanca =
        std::string("cont_ccf='") + caso.contador + "', cont_coo='" + caso.contador + "'";
    EXPECT_EQ(posicoes(linhaCom(bancada, mudanca), 47, 58), std::string(caso.layout1) + caso.layout1);
    bancada.versao(2);
    EXPECT_EQ(posicoes(linhaCom(bancada, mudanca), 47, 64), std::string(caso.layout2) + caso.layout2);
  }
}

TEST(E14, AmountsWiderThanTheirFieldsAreCutByTheNext) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada,
               "valor_subtotal='1234567890123.45', valor_desconto='-1.00',"
               "valor_acrescimo='1234567890123.45', valor_total='-1.00', valor_canc_acrescimo='-0.01'");
  EXPECT_EQ(posicoes(linha, 67, 137),
            "12345678901234"
            "1844674407370"
            "V"
            "1234567890123"
            "V"
            "18446744073709"
            "N"
            "1844674407370"
            "A");
}

TEST(E14, OfAShortDateTheLineEndsAtTheFirstMissingCharacter) {
  const struct {
    const char* data;
    const char* campo;
  } kCasos[] = {
      {"'2024-01-15'", "20240115"}, {"'2024-01-1'", "2024011"}, {"'2024'", "2024"}, {"''", ""}, {"NULL", ""}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.data);
    Bancada bancada;
    const std::string linha = linhaCom(bancada, std::string("data_hora_emissao=") + caso.data);
    EXPECT_EQ(posicoes(linha, 59, 66), caso.campo);
    EXPECT_EQ(linha.size(), std::string(caso.campo).size() == 8 ? 191U : 58 + std::string(caso.campo).size());
  }
}

TEST(E14, NullCountersAmountsAndTextsAreEmpty) {
  Bancada bancada;
  bancada.versao(2);
  EXPECT_EQ(linhaCom(bancada,
                     "cont_ccf=NULL, cont_coo=NULL, valor_subtotal=NULL, valor_desconto=NULL,"
                     "valor_acrescimo=NULL, valor_total=NULL, valor_canc_acrescimo=NULL,"
                     "nome_consumidor=NULL, cpf_cnpj_consumidor=NULL, texto_suplementar=NULL,"
                     "texto_complementar=NULL, assinatura_documento=NULL"),
            cabecalhoDoUsuario("E14") +
                "000000000"
                "000000000"
                "20240115"
                "00000000000000"
                "0000000000000"
                "V"
                "0000000000000"
                "V"
                "00000000000000"
                "N"
                "0000000000000"
                " " +
                brancos(40) + "00000000000000" + brancos(560 + 84 + 44));
}

TEST(E14, IsWrittenForMfdTdmAndRz) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM", "RZ"})
    EXPECT_EQ(doRegistro(bancada.gera(comando), "E14").size(), 1U) << comando;
  for (const char* comando : {"MF", "mfd", "RZ ", ""})
    EXPECT_TRUE(doRegistro(bancada.gera(comando), "E14").empty()) << comando;
}

TEST(E14, AMissingTableOrColumnIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago : {"DROP TABLE cupom_fiscal", "DROP TABLE reducao_z",
                              "ALTER TABLE cupom_fiscal RENAME COLUMN assinatura_documento TO outra",
                              "ALTER TABLE cupom_fiscal DROP COLUMN perc_acrescimo"})
    confereConsultaImpossivel(estrago, "E14", "Erro no select - TipoE14");
}

TEST(E14, AnAmountThatTheDatabaseCannotComputeFailsTheQuery) {
  Bancada bancada;
  bancada.sql(std::string(kReducao) + kCupom);
  bancada.sql(
      "ALTER TABLE cupom_fiscal RENAME TO guardados;"
      "ALTER TABLE guardados RENAME COLUMN valor_total TO guardado;"
      "CREATE VIEW cupom_fiscal AS SELECT *, abs(-9223372036854775808) AS valor_total FROM guardados");
  EXPECT_TRUE(bancada.registro("E14").empty());
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - TipoE14"});
}

TEST(E14, AQueryThatFailsHalfWayKeepsItsLinesAndLogsBeforeItFinalizes) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(std::string(kReducao) + kCupom + kCupom + kCupom);
  confereFalhaNoMeio(bancada, "E14", "cupom.texto_suplementar", "Erro no select - TipoE14",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
