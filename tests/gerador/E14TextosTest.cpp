#include <gtest/gtest.h>

#include "E14Cupom.h"

namespace {

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
    std::string semTextos = cabecalhoDoUsuario("E14");
    semTextos += caso.versao == 1 ? "654321456789" : "987654321123456789";
    semTextos += kDepoisDosContadores;
    EXPECT_EQ(linha.substr(0, semTextos.size()), semTextos);
  }
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

}  // namespace
