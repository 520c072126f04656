// BigInt from decimal text and back.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <string>

#include "Modelo.h"

namespace {

std::string texto(const BigInt& valor) {
  std::array<char, 40> area{};
  return valor.ToStr(area.data(), static_cast<int>(area.size()));
}

BigInt lido(const char* texto) {
  BigInt valor = 77;
  valor = texto;
  return valor;
}

RC_GTEST_PROP(BigIntText, WritesAndReadsEveryValue, (const BigInt& a)) {
  RC_ASSERT(texto(a) == inteiro(a).str());
  RC_ASSERT(lido(texto(a).c_str()) == a);
}

TEST(BigIntText, WritesBothEnds) {
  EXPECT_EQ(texto(BigInt::Maximo()), "39614081257132168796771975167");
  EXPECT_EQ(texto(BigInt::Minimo()), "-39614081257132168796771975168");
  EXPECT_EQ(texto(0), "0");
}

TEST(BigIntText, IsNeverCut) {
  std::array<char, 6> area{};
  for (int capacidade = 1; capacidade <= 6; ++capacidade) {
    area.fill('x');
    EXPECT_EQ(BigInt(-123).ToStr(area.data(), capacidade), area.data());
    EXPECT_STREQ(area.data(), capacidade < 5 ? "" : "-123") << capacidade;
    EXPECT_EQ(area[5], 'x');
  }
}

TEST(BigIntText, LeavesAnUnusableBufferAlone) {
  char sozinho = 'x';
  EXPECT_EQ(BigInt(1).ToStr(&sozinho, 0), &sozinho);
  EXPECT_EQ(BigInt(1).ToStr(&sozinho, -1), &sozinho);
  EXPECT_EQ(sozinho, 'x');
  EXPECT_EQ(BigInt(1).ToStr(nullptr, 10), nullptr);
}

TEST(BigIntText, ReadsBlanksSignAndDigits) {
  EXPECT_EQ(lido("12"), 12);
  EXPECT_EQ(lido("  +12 "), 12);
  EXPECT_EQ(lido("-12"), -12);
  EXPECT_EQ(lido("-0"), 0);
  EXPECT_EQ(lido("00000000000000000000000000000000000000000000012"), 12);
}

TEST(BigIntText, GivesZeroForAnyOtherText) {
  for (const char* ruim :
       {"", " ", "-", "+", "- 1", "+-1", "1 1", "1,0", "1.0", "1e2", "x", "1x", "\t1", "0x1"}) {
    EXPECT_EQ(lido(ruim), 0) << '"' << ruim << '"';
  }
  EXPECT_EQ(lido(nullptr), 0);
}

TEST(BigIntText, SaturatesPastTheEnds) {
  EXPECT_EQ(lido("39614081257132168796771975168"), BigInt::Maximo());
  EXPECT_EQ(lido("39614081257132168796771975167"), BigInt::Maximo());
  EXPECT_EQ(lido("39614081257132168796771975166"), BigInt::Maximo() - 1);
  EXPECT_EQ(lido("-39614081257132168796771975169"), BigInt::Minimo());
  EXPECT_EQ(lido("-39614081257132168796771975168"), BigInt::Minimo());
  EXPECT_EQ(lido("-39614081257132168796771975167"), BigInt::Minimo() + 1);
  EXPECT_EQ(lido(std::string(100'000, '9').c_str()), BigInt::Maximo());
  EXPECT_EQ(lido(("-" + std::string(100'000, '1')).c_str()), BigInt::Minimo());
}

}  // namespace
