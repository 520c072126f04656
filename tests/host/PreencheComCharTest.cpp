#include "PreencheComChar.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What becomes of ten bytes '#' when the first `tamanho` are filled.
std::string preenchido(std::string texto, int tamanho, char caractere, int modo) {
  std::string destino(10, '#');
  PreencheComChar(texto.data(), destino.data(), tamanho, caractere, modo);
  return destino;
}

TEST(PreencheComChar, Mode1FillsOnTheRight) {
  EXPECT_EQ(preenchido("abc", 6, ' ', 1), "abc   ####");
  EXPECT_EQ(preenchido("abc", 6, '0', 1), "abc000####");
  EXPECT_EQ(preenchido("", 6, ' ', 1), "      ####");
}

TEST(PreencheComChar, AnyOtherModeFillsOnTheLeft) {
  for (const int modo : {0, 2, -1}) {
    EXPECT_EQ(preenchido("abc", 6, ' ', modo), "   abc####") << modo;
    EXPECT_EQ(preenchido("42", 6, '0', modo), "000042####") << modo;
    EXPECT_EQ(preenchido("", 6, '0', modo), "000000####") << modo;
  }
}

TEST(PreencheComChar, TextOfTheExactWidthIsNotTerminated) {
  EXPECT_EQ(preenchido("abcdef", 6, ' ', 1), "abcdef####");
  EXPECT_EQ(preenchido("abcdef", 6, ' ', 0), "abcdef####");
}

TEST(PreencheComChar, LongerTextIsCutAfterItsFirstBytes) {
  EXPECT_EQ(preenchido("abcdefghijkl", 6, ' ', 1), "abcdef####");
  EXPECT_EQ(preenchido("abcdefghijkl", 6, ' ', 0), "abcdef####");
}

TEST(PreencheComChar, NoWidthFillsNothing) {
  for (const int tamanho : {0, -1, -1000})
    EXPECT_EQ(preenchido("abc", tamanho, ' ', 1), "##########") << tamanho;
}

}  // namespace
