#include <gtest/gtest.h>

#include "E14Cupom.h"
#include "Falhas.h"

namespace {

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
  bancada.semIndicesAutomaticos();
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
