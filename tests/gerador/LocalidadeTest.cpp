// Runs of a process whose locale writes a decimal comma, as Brazilian applications have.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "Bancada.h"
#include "Falhas.h"
#include "Leiaute/Texto.h"

namespace {

// The locale is made in a folder of its own, among the tests; without it every test here fails (a failure
// in the set-up itself would only skip them).
class Localidade : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    pasta = std::filesystem::absolute("localidade-" + std::to_string(getpid()));
    std::filesystem::create_directories(pasta);
    const std::string comando = "localedef -i pt_BR -f UTF-8 '" + (pasta / "pt_BR.UTF-8").string() + "'";
    resultado = std::system(comando.c_str());  // NOLINT(cert-env33-c): a fixed command of our own
    setenv("LOCPATH", pasta.c_str(), 1);
  }
  static void TearDownTestSuite() { std::filesystem::remove_all(pasta); }
  void TearDown() override { ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr); }

  // Whether the decimal comma is in force: asked of the C library itself.
  static void entra() {
    ASSERT_EQ(resultado, 0) << "localedef could not make the locale";
    ASSERT_NE(std::setlocale(LC_ALL, "pt_BR.UTF-8"), nullptr);
    std::array<char, 8> texto{};
    ASSERT_EQ(std::snprintf(texto.data(), texto.size(), "%.1f", 1.5), 3);
    ASSERT_STREQ(texto.data(), "1,5");
    ASSERT_EQ(std::strtod("1.5", nullptr), 1.0);
  }

 private:
  static inline std::filesystem::path pasta;
  static inline int resultado = -1;
};

TEST_F(Localidade, DecimalNumbersAreReadWithAPoint) {
  ASSERT_NO_FATAL_FAILURE(entra());
  const struct {
    const char* texto;
    double valor;
  } kCasos[] = {{"1.5", 1.5},
                {"1,5", 1.0},
                {" 1.5", 1.5},
                {"+2.25", 2.25},
                {"-0.125", -0.125},
                {"1.25e1", 12.5},
                {"0x1.8p1", 3.0},
                {"1234567890123456.5", 1234567890123456.5},
                {"0.50000000000000000000", 0.5},
                {"1.234.567", 1.234}};
  for (const auto& caso : kCasos) EXPECT_EQ(cotepe::leDecimal(caso.texto), caso.valor) << caso.texto;
}

TEST_F(Localidade, AmountsAndQuantitiesAreWhatTheyAreWithoutIt) {
  Bancada bancada;
  bancada.comIdentidade();
  bancada.sql(R"(
    INSERT INTO reducao_z(cont_crz, data_movimento, valor_vb) VALUES(1,'2024-01-15 00:00:00','1234567.89');
    INSERT INTO meio_pagamento_reducao VALUES(1,'Dinheiro','1234.56');
    INSERT INTO cupom_fiscal(cont_ccf, cont_coo, cont_crz) VALUES(5,6,1);
    INSERT INTO item_cupom_fiscal(cont_coo, quantidade, valor_unitario, valor_desconto, valor_acrescimo, valor_total,
      casas_decimais_quantidade, casas_decimais_valor) VALUES(6,'12.345','67.891','1.25','2.5','838.11',3,3);
    INSERT INTO posicao_totalizadores_contadores(valor_gt) VALUES('9876543.21');)");
  const auto semLocalidade = bancada.gera("TDM");
  ASSERT_NO_FATAL_FAILURE(entra());
  const auto linhas = bancada.gera("TDM");
  EXPECT_EQ(linhas, semLocalidade);
  const auto linha = [&](const char* codigo) { return doRegistro(linhas, codigo).at(0); };
  EXPECT_EQ(posicoes(linha("E11"), 105, 122), "000000000987654321");
  EXPECT_EQ(posicoes(linha("E12"), 87, 100), "00000123456789");
  EXPECT_EQ(posicoes(linha("E15"), 176, 182), "0012345");
  EXPECT_EQ(posicoes(linha("E15"), 186, 223),
            "00067891"
            "00000125"
            "00000250"
            "00000000083811");
  EXPECT_EQ(posicoes(linha("E18"), 68, 80), "0000000123456");
}

TEST_F(Localidade, HighBytesAreBlankedAndBlanksAreReadAsInTheCLocale) {
  ASSERT_NO_FATAL_FAILURE(entra());
  CotepeManager gerador(nullptr);
  EXPECT_EQ(CotepeManagerTest::charRemoveNonAscii(gerador, "a\xC3\xA7\xC3\xA3o\xA0"), "a    o ");
  EXPECT_EQ(cotepe::leInteiro("\xC2\xA0"
                              "12"),
            0);
}

}  // namespace
