#include <gtest/gtest.h>

#include <cstdio>

#include "Bancada.h"

namespace {

TEST(E03, WritesOnePlaceholder) {
  Bancada bancada;
  const std::string linha = bancada.linha("E03");
  EXPECT_EQ(linha,
            "E03"
            "SERIAL              "
            " "
            "MODELO              "
            "00"
            "        "
            "      "
            "00000000000000"
            "00000000000000"
            "000000000000000000");
  EXPECT_EQ(linha.size(), 106U);
}

TEST(E04, WritesOnePlaceholderWithTheUserNumberAndACounter) {
  Bancada bancada;
  const std::string linha = bancada.linha("E04");
  EXPECT_EQ(linha,
            "E04"
            "SERIAL              "
            " "
            "MODELO              "
            "01"
            "        "
            "      "
            "00000000000000"
            "00000000000000"
            "000000"
            "000000000000000000");
  EXPECT_EQ(linha.size(), 112U);
}

// The only line of a writer under an identity of its own.
std::string linhaDe(const std::string& codigo, const char* serie, const char* modelo, const char* usuario) {
  CotepeManager gerador(nullptr);
  CotepeManagerTest::fixaIdentidade(gerador, serie, modelo, usuario, "TDM");
  FILE* arquivo = std::tmpfile();
  CotepeManagerTest::escreve(gerador, codigo, arquivo);
  char linha[200] = "";
  std::rewind(arquivo);
  EXPECT_NE(std::fgets(linha, sizeof linha, arquivo), nullptr);
  EXPECT_EQ(std::fgetc(arquivo), EOF);
  EXPECT_EQ(std::fclose(arquivo), 0);
  return linha;
}

TEST(E03, IdentityFillsItsFieldsAndTheUserNumberStaysZero) {
  EXPECT_EQ(linhaDe("E03", "SERIE678901234567890", "MODELO78901234567890", "98"),
            "E03"
            "SERIE678901234567890"
            " "
            "MODELO78901234567890"
            "00"
            "        "
            "      "
            "00000000000000"
            "00000000000000"
            "000000000000000000"
            "\n");
}

TEST(E04, IdentityAndUserNumberFillTheirFields) {
  EXPECT_EQ(linhaDe("E04", "SERIE678901234567890", "MODELO78901234567890", "98"),
            "E04"
            "SERIE678901234567890"
            " "
            "MODELO78901234567890"
            "98"
            "        "
            "      "
            "00000000000000"
            "00000000000000"
            "000000"
            "000000000000000000"
            "\n");
}

TEST(E04, UserNumberIsReadAsAnInteger) {
  const struct {
    const char* usuario;
    const char* campo;
  } kCasos[] = {{"", "00"}, {"3", "03"}, {"03", "03"}, {"x", "00"}, {"5x", "05"}, {"-4", "-4"}};
  for (const auto& caso : kCasos)
    EXPECT_EQ(posicoes(linhaDe("E04", "", "", caso.usuario), 45, 46), caso.campo) << caso.usuario;
}

TEST(E03, IsWrittenInCat52ModeToo) {
  Bancada bancada;
  EXPECT_EQ(bancada.cat52(true).registro("E03").size(), 1U);
}

TEST(E04, IsNotWrittenInCat52Mode) {
  Bancada bancada;
  EXPECT_TRUE(bancada.cat52(true).registro("E04").empty());
}

TEST(E03E04, AreTheSameInEveryLayout) {
  Bancada bancada;
  for (const int versao : {1, 2, 3}) {
    EXPECT_EQ(bancada.versao(versao).linha("E03").size(), 106U) << versao;
    EXPECT_EQ(bancada.versao(versao).linha("E04").size(), 112U) << versao;
  }
}

TEST(E03E04, ReadNoDatabase) {
  EXPECT_EQ(linhaDe("E03", "", "", "").size(), 107U);
  EXPECT_EQ(linhaDe("E04", "", "", "").size(), 113U);
}

}  // namespace
