// The text layouts of an amount, typed by hand.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <ostream>
#include <string>

#include "Modelo.h"

namespace {

struct Caso {
  INT64 centavos;
  FINANCIAL_STR_TIPO layout;
  int decimals;
  INT16 flag;
  const char* esperado;
};

void PrintTo(const Caso& caso, std::ostream* saida) {
  *saida << caso.centavos << " cents, layout " << caso.layout << ", decimals " << caso.decimals << ", flag "
         << caso.flag;
}

std::string texto(const Financial& valor, FINANCIAL_STR_TIPO layout, int decimals, INT16 flag) {
  std::array<char, 100> area{};
  return valor.ToString(area.data(), static_cast<int>(area.size()), layout, decimals, flag);
}

class FinancialToString : public testing::TestWithParam<Caso> {};

TEST_P(FinancialToString, WritesTheAmount) {
  const Caso& caso = GetParam();
  const Financial valor = Financial::DeCentavos(caso.centavos);
  EXPECT_EQ(texto(valor, caso.layout, caso.decimals, caso.flag), caso.esperado);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, FinancialToString,
    testing::Values(
        Caso{123456, FIN_STR_DEFAULT, 0, 0, "1234,56"}, Caso{123456, FIN_STR_1, 0, 0, "1.234,56"},
        Caso{123456, FIN_STR_2, 0, 0, "1234.56"}, Caso{123456, FIN_STR_3, 0, 0, "1,234.56"},
        Caso{123456, FIN_STR_4, 0, 0, "R$ 1.234,56"}, Caso{-123456, FIN_STR_4, 0, 0, "-R$ 1.234,56"},
        Caso{123456789, FIN_STR_1, 0, 0, "1.234.567,89"}, Caso{-12345678, FIN_STR_3, 0, 0, "-123,456.78"},
        Caso{99999, FIN_STR_1, 0, 0, "999,99"}, Caso{100000, FIN_STR_1, 0, 0, "1.000,00"},
        Caso{123456, static_cast<FINANCIAL_STR_TIPO>(5), 0, 0, "1234,56"},  // the first past the last
        Caso{123456, static_cast<FINANCIAL_STR_TIPO>(7), 0, 0, "1234,56"}));

INSTANTIATE_TEST_SUITE_P(
    SmallAmounts, FinancialToString,
    testing::Values(Caso{0, FIN_STR_DEFAULT, 0, 0, "0,00"}, Caso{1, FIN_STR_DEFAULT, 0, 0, "0,01"},
                    Caso{-1, FIN_STR_DEFAULT, 0, 0, "-0,01"}, Caso{50, FIN_STR_DEFAULT, 0, 0, "0,50"},
                    Caso{-99, FIN_STR_4, 0, 0, "-R$ 0,99"}, Caso{100, FIN_STR_2, 0, 0, "1.00"}));

INSTANTIATE_TEST_SUITE_P(
    Decimals, FinancialToString,
    testing::Values(Caso{123456, FIN_STR_DEFAULT, 2, 0, "1234,56"},
                    Caso{123456, FIN_STR_DEFAULT, 1, 0, "1234,6"},
                    Caso{123455, FIN_STR_DEFAULT, 1, 0, "1234,6"},
                    Caso{123454, FIN_STR_DEFAULT, 1, 0, "1234,5"},
                    Caso{123456, FIN_STR_DEFAULT, -1, 0, "1235"}, Caso{99950, FIN_STR_1, -1, 0, "1.000"},
                    Caso{-50, FIN_STR_DEFAULT, -1, 0, "-1"}, Caso{-49, FIN_STR_DEFAULT, -1, 0, "0"},
                    Caso{-4, FIN_STR_DEFAULT, 1, 0, "0,0"}, Caso{123456, FIN_STR_3, 5, 0, "1,234.56000"},
                    Caso{7, FIN_STR_DEFAULT, 3, 0, "0,070"}));

INSTANTIATE_TEST_SUITE_P(Flag, FinancialToString,
                         testing::Values(Caso{123456, FIN_STR_DEFAULT, 0, 1, "+1234,56"},
                                         Caso{123456, FIN_STR_4, 0, -1, "+R$ 1.234,56"},
                                         Caso{0, FIN_STR_DEFAULT, 0, 1, "0,00"},
                                         Caso{4, FIN_STR_DEFAULT, 1, 1, "0,0"},
                                         Caso{-1, FIN_STR_DEFAULT, 0, 1, "-0,01"}));

TEST(FinancialToString, WritesBothEndsOfTheRange) {
  const Financial maximo = Financial::DeCentavos(BigInt::Maximo());
  const Financial minimo = Financial::DeCentavos(BigInt::Minimo());
  EXPECT_EQ(texto(maximo, FIN_STR_DEFAULT, 0, 0), "396140812571321687967719751,67");
  EXPECT_EQ(texto(minimo, FIN_STR_DEFAULT, 0, 0), "-396140812571321687967719751,68");
  EXPECT_EQ(texto(minimo, FIN_STR_4, 0, 0), "-R$ 396.140.812.571.321.687.967.719.751,68");
  EXPECT_EQ(texto(maximo, FIN_STR_DEFAULT, -1, 0), "396140812571321687967719752");
  EXPECT_EQ(texto(maximo, FIN_STR_DEFAULT, 1, 1), "+396140812571321687967719751,7");
}

TEST(FinancialToString, IsNeverCutAndNeverPassesTheCapacity) {
  const Financial valor = Financial::DeCentavos(-123456);
  std::array<char, 16> area{};
  for (int capacidade = 0; capacidade < 16; ++capacidade) {
    area.fill('x');
    EXPECT_EQ(valor.ToString(area.data(), capacidade, FIN_STR_4, 0, 0), area.data());
    const char* const esperado = capacidade == 0 ? "xxxxxxxxxxxxxxxx" : capacidade < 13 ? "" : "-R$ 1.234,56";
    EXPECT_EQ(std::string(area.data(), strnlen(area.data(), area.size())), esperado) << capacidade;
    const auto usados = static_cast<std::size_t>(capacidade);
    EXPECT_EQ(std::string(area.data() + usados, area.size() - usados), std::string(16 - usados, 'x'));
  }
}

TEST(FinancialToString, LeavesAnUnusableBufferAlone) {
  char sozinho = 'x';
  EXPECT_EQ(Financial(1).ToString(&sozinho, 0, FIN_STR_DEFAULT, 0, 0), &sozinho);
  EXPECT_EQ(Financial(1).ToString(&sozinho, -5, FIN_STR_DEFAULT, 0, 0), &sozinho);
  EXPECT_EQ(sozinho, 'x');
  EXPECT_EQ(Financial(1).ToString(nullptr, 10, FIN_STR_DEFAULT, 0, 0), nullptr);
  EXPECT_EQ(Financial(1).ToStr(nullptr, 10, 0), nullptr);
}

TEST(FinancialToString, TakesAnyNumberOfDecimals) {
  EXPECT_EQ(texto(Financial(1), FIN_STR_DEFAULT, std::numeric_limits<int>::max(), 0), "");
  EXPECT_EQ(texto(Financial(1), FIN_STR_DEFAULT, std::numeric_limits<int>::min(), 0), "1");
  EXPECT_EQ(texto(Financial(1), FIN_STR_DEFAULT, 97, 0), "1," + std::string(97, '0'));
  EXPECT_EQ(texto(Financial(1), FIN_STR_DEFAULT, 98, 0), "");
}

TEST(FinancialToStr, IsTheDefaultLayoutWithTwoDecimals) {
  std::array<char, 40> area{};
  EXPECT_STREQ(Financial::DeCentavos(123456).ToStr(area.data(), 40, 0), "1234,56");
  EXPECT_STREQ(Financial::DeCentavos(123456).ToStr(area.data(), 40, 1), "+1234,56");
  EXPECT_STREQ(Financial::DeCentavos(123456).ToStr(area.data(), 8, 0), "1234,56");
  EXPECT_STREQ(Financial::DeCentavos(123456).ToStr(area.data(), 7, 0), "");
  EXPECT_STREQ(Financial::DeCentavos(BigInt::Minimo()).ToStr(area.data(), 40, 0),
               "-396140812571321687967719751,68");
}

// Without separators, the default text is the number of cents with at least three digits.
RC_GTEST_PROP(FinancialToStringOfAny, HoldsTheCents, (const Financial& a)) {
  const Inteiro valor = inteiro(a.nr);
  std::string digitos = abs(valor).str();
  if (digitos.size() < 3) digitos.insert(0, 3 - digitos.size(), '0');
  digitos.insert(digitos.size() - 2, 1, ',');
  RC_ASSERT(texto(a, FIN_STR_DEFAULT, 0, 0) == (valor < 0 ? "-" : "") + digitos);
}

}  // namespace
