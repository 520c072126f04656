#include <gtest/gtest.h>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// A coupon of nothing of the reduction 7: amounts zero, types V, not cancelled, nobody's.
constexpr char kCupom[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
    "INSERT INTO cupom_nf(cont_coo, cont_gnf, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto,"
    " valor_acrescimo, valor_total_cupom, valor_canc_acrescimo, id_cancelado, tipo_acrescimo, tipo_desconto,"
    " nome_consumidor, cpf_cnpj_consumidor)"
    " VALUES('0','0','7','2024-01-15 10:20:30','0','0','0','0','0','N','V','V','','');";

// The only coupon of the bench, `mudanca` being a list of "column = value".
std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql("DELETE FROM reducao_z; DELETE FROM cupom_nf");
  bancada.sql(kCupom);
  bancada.sql("UPDATE cupom_nf SET " + mudanca);
  return bancada.linha("E19");
}

TEST(E19, WritesEveryFieldToItsLastDigit) {
  const struct {
    int versao;
    const char* coo;
    const char* gnf;
    std::size_t comprimento;
  } kCasos[] = {
      {1, "654321", "456789", 191}, {2, "987654321", "123456789", 197}, {3, "987654321", "123456789", 197}};
  for (const auto& caso : kCasos) {
    for (const bool cat52 : {false, true}) {
      SCOPED_TRACE(testing::Message() << "layout " << caso.versao << ", CAT52 " << cat52);
      Bancada bancada;
      bancada.versao(caso.versao).cat52(cat52);
      const std::string linha = linhaCom(
          bancada,
          "cont_coo='987654321', cont_gnf='123456789', data_hora_emissao='2023-12-31 23:59:58',"
          "valor_subtotal='123456789012.34', valor_desconto='23456789012.35', tipo_desconto='P',"
          "valor_acrescimo='34567890123.46', tipo_acrescimo='Q', valor_total_cupom='456789012345.67',"
          "id_cancelado='S', valor_canc_acrescimo='56789012345.78',"
          "nome_consumidor='ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcd', cpf_cnpj_consumidor='98765432109876'");
      EXPECT_EQ(linha, cabecalhoDoUsuario("E19") + caso.coo + caso.gnf +
                           "20231231"
                           "12345678901234"
                           "2345678901235"
                           "P"
                           "3456789012346"
                           "Q"
                           "45678901234567"
                           "S"
                           "5678901234578"
                           "A"
                           "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcd"
                           "98765432109876");
      EXPECT_EQ(linha.size(), caso.comprimento);
    }
  }
}

TEST(E19, WithoutCouponWritesOnePlaceholderOutsideCat52) {
  for (const int versao : {1, 2, 3}) {
    SCOPED_TRACE(testing::Message() << "layout " << versao);
    Bancada bancada;
    bancada.versao(versao);
    EXPECT_EQ(bancada.linha("E19"), cabecalhoDoUsuario("E19") +
                                        (versao == 1 ? "000000000000" : "000000000000000000") +
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
                                        "00000000000000");
    EXPECT_TRUE(bancada.cat52(true).registro("E19").empty());
  }
}

TEST(E19, CouponsComeInAscendingGnf) {
  Bancada bancada;
  bancada.semIndicesAutomaticos();
  bancada.sql("INSERT INTO reducao_z(cont_crz, data_movimento) VALUES(7, '2024-01-15 00:00:00')");
  for (const char* contadores : {"1, 30", "2, 4", "3, 20"})
    bancada.sql(std::string("INSERT INTO cupom_nf(cont_coo, cont_gnf, data_hora_emissao, cont_crz) VALUES(") +
                contadores + ", '2024-01-15', 7)");
  const auto linhas = bancada.registro("E19");
  ASSERT_EQ(linhas.size(), 3U);
  EXPECT_EQ(posicoes(linhas[0], 47, 58), "000002000004");
  EXPECT_EQ(posicoes(linhas[1], 47, 58), "000003000020");
  EXPECT_EQ(posicoes(linhas[2], 47, 58), "000001000030");
}

TEST(E19, TheReductionsFiscalDayDecidesOnThePeriodNotTheCouponsOwnDate) {
  const struct {
    const char* movimento;
    bool incluido;
  } kCasos[] = {{"2024-01-01 00:00:00", true},
                {"2024-01-31 23:59:59", true},
                {"2023-12-31 23:59:59", false},
                {"2024-02-01 00:00:00", false},
                {"2024-01-01", false}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.movimento);
    Bancada bancada;
    bancada.cat52(true).sql(kCupom);
    bancada.sql(std::string("UPDATE reducao_z SET data_movimento='") + caso.movimento + "'");
    EXPECT_EQ(bancada.registro("E19").size(), caso.incluido ? 1U : 0U);
  }
}

TEST(E19, SurchargeWinsOverDiscount) {
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

TEST(E19, EachTypeIsCopiedAsItStands) {
  Bancada bancada;
  const std::string linha = linhaCom(bancada, "tipo_desconto='%', tipo_acrescimo=' '");
  EXPECT_EQ(posicoes(linha, 81, 108),
            "0000000000000"
            "%"
            "0000000000000"
            " ");
}

TEST(E19, AnEmptyTypeOrFlagEndsTheLineThere) {
  const struct {
    const char* coluna;
    const char* depoisDaData;
  } kCasos[] = {{"tipo_desconto", "000000000001230000000000456"},
                {"tipo_acrescimo", "000000000001230000000000456V0000000000789"},
                {"id_cancelado", "000000000001230000000000456V0000000000789V00000000000012"}};
  for (const auto& caso : kCasos) {
    for (const char* vazio : {"=''", "=NULL"}) {
      SCOPED_TRACE(std::string(caso.coluna) + vazio);
      const std::string mudanca =
          "cont_coo='1', cont_gnf='2', valor_subtotal='1.23', valor_desconto='4.56', valor_acrescimo='7.89',"
          "valor_total_cupom='0.12', " +
          (caso.coluna + std::string(vazio));
      Bancada bancada;
      EXPECT_EQ(linhaCom(bancada, mudanca), cabecalhoDoUsuario("E19") +
                                                "000001"
                                                "000002"
                                                "20240115" +
                                                caso.depoisDaData);
      bancada.versao(2);
      EXPECT_EQ(linhaCom(bancada, mudanca), cabecalhoDoUsuario("E19") +
                                                "000000001"
                                                "000000002"
                                                "20240115" +
                                                caso.depoisDaData);
    }
  }
}

TEST(E19, OfALongTypeOrFlagTheFirstCharacterStays) {
  Bancada bancada;
  const std::string linha =
      linhaCom(bancada,
               "tipo_desconto='PERCENTUAL DE DESCONTO', tipo_acrescimo='QUALQUER UM DELES',"
               "id_cancelado='SIM, CANCELADO ONTEM'");
  EXPECT_EQ(posicoes(linha, 81, 137),
            "0000000000000"
            "P"
            "0000000000000"
            "Q"
            "00000000000000"
            "S"
            "0000000000000"
            " ");
}

TEST(E19, ConsumerNameHasFortyCharacters) {
  Bancada bancada;
  const std::string linha = linhaCom(bancada,
                                     "nome_consumidor='ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcdefghijklmn"
                                     "opqrstuvwxyz0123456789', cpf_cnpj_consumidor='12345678901'");
  EXPECT_EQ(posicoes(linha, 138, 999),
            "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcd"
            "00012345678901");
}

TEST(E19, ConsumerNumberEndsAtTheFirstSeparatorAndRunsOver) {
  const struct {
    const char* numero;
    const char* campo;
  } kCasos[] = {{"123.456.789-01", "00000000000123"},
                {"", "00000000000000"},
                {"98765432109876", "98765432109876"},
                {"12345678901234567", "12345678901234567"},
                {"-1", "18446744073709551615"}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.numero);
    Bancada bancada;
    EXPECT_EQ(posicoes(linhaCom(bancada, std::string("cpf_cnpj_consumidor='") + caso.numero + "'"), 178, 999),
              caso.campo);
  }
}

TEST(E19, ANullDateIsBlank) {
  Bancada bancada;
  EXPECT_EQ(posicoes(linhaCom(bancada, "data_hora_emissao=NULL, valor_subtotal='1.23'"), 59, 80),
            "        "
            "00000000000123");
}

TEST(E19, OfAShortDateTheLineEndsAtTheFirstMissingCharacter) {
  const struct {
    const char* data;
    const char* campo;
  } kCasos[] = {{"2024-01-1", "2024011"}, {"20", "20"}, {"", ""}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(caso.data);
    Bancada bancada;
    EXPECT_EQ(posicoes(linhaCom(bancada, std::string("data_hora_emissao='") + caso.data + "'"), 59, 999),
              caso.campo);
  }
}

TEST(E19, CountersKeepTheirLastDigits) {
  Bancada bancada;
  const char* const contadores = "cont_coo='1234567890', cont_gnf='9876543210'";
  EXPECT_EQ(posicoes(linhaCom(bancada, contadores), 47, 58),
            "567890"
            "543210");
  bancada.versao(2);
  EXPECT_EQ(posicoes(linhaCom(bancada, contadores), 47, 64),
            "234567890"
            "876543210");
}

TEST(E19, AmountsWiderThanTheirFieldsAreCutByTheNext) {
  Bancada bancada;
  const std::string linha = linhaCom(
      bancada,
      "valor_subtotal='1234567890123.45', valor_desconto='-1.00', valor_acrescimo='1234567890123.45',"
      "valor_total_cupom='-1.00', valor_canc_acrescimo='-0.01'");
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

TEST(E19, NullCountersAmountsAndConsumerAreEmpty) {
  Bancada bancada;
  EXPECT_EQ(linhaCom(bancada,
                     "cont_coo=NULL, cont_gnf=NULL, valor_subtotal=NULL, valor_desconto=NULL,"
                     "valor_acrescimo=NULL, valor_total_cupom=NULL, valor_canc_acrescimo=NULL,"
                     "nome_consumidor=NULL, cpf_cnpj_consumidor=NULL"),
            cabecalhoDoUsuario("E19") +
                "000000"
                "000000"
                "20240115"
                "00000000000000"
                "0000000000000"
                "V"
                "0000000000000"
                "V"
                "00000000000000"
                "N"
                "0000000000000"
                " "
                "                                        "
                "00000000000000");
}

TEST(E19, IsWrittenForMfdAndTdm) {
  Bancada bancada;
  bancada.comIdentidade();
  for (const char* comando : {"MFD", "TDM"})
    EXPECT_EQ(doRegistro(bancada.gera(comando), "E19").size(), 1U) << comando;
  for (const char* comando : {"MF", "RZ"})
    EXPECT_TRUE(doRegistro(bancada.gera(comando), "E19").empty()) << comando;
}

TEST(E19, AMissingTableOrColumnIsLoggedAndGivesNoPlaceholder) {
  for (const char* estrago : {"DROP TABLE cupom_nf", "DROP TABLE reducao_z",
                              "ALTER TABLE cupom_nf RENAME COLUMN valor_total_cupom TO valor_total"})
    confereConsultaImpossivel(estrago, "E19", "Erro no select - TipoE19");
}

TEST(E19, AQueryThatFailsHalfWayKeepsItsLinesAndLogsBeforeItFinalizes) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(kCupom);
  bancada.sql(
      "INSERT INTO cupom_nf SELECT * FROM cupom_nf;"
      "INSERT INTO cupom_nf SELECT * FROM cupom_nf");
  confereFalhaNoMeio(bancada, "E19", "cupom.valor_total_cupom", "Erro no select - TipoE19",
                     Ordem::RegistraEFinaliza);
}

}  // namespace
