// Amounts from double: rounded from the exact binary value, away from zero or as printf does.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "Modelo.h"

namespace {

constexpr double kInfinito = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The long way: print, drop the blanks, comma for point, assign, write, drop the comma, read.
INT64 pelaImpressora(double valor) {
  std::array<char, 400> area{};
  (void)std::snprintf(area.data(), area.size(), "%11.2f", valor);
  std::string texto = area.data();
  texto.erase(0, texto.find_first_not_of(' '));
  Financial lido;
  lido = troca(texto, '.', ',').c_str();
  texto = lido.ToString(area.data(), 400, FIN_STR_DEFAULT, 0, 0);
  texto.erase(texto.find(','), 1);
  return std::strtoll(texto.c_str(), nullptr, 10);
}

double deBits(std::uint64_t bits) {
  double valor = 0;
  std::memcpy(&valor, &bits, sizeof valor);
  return valor;
}

// Doubles of every kind: any bits, amounts of a till, exact ties of half a cent.
double algum(std::mt19937_64& sorte, unsigned tipo) {
  const std::uint64_t bits = sorte();
  const auto curto = static_cast<double>(static_cast<INT64>(bits) >> (20U + bits % 40));
  switch (tipo % 5) {
    case 0:
      return deBits(bits);
    case 1:
      return curto / 100;
    case 2:
      return curto / 1000;
    case 3:
      return curto / 8;  // eighths: a quarter of them are ties
    default:
      return std::ldexp(curto, static_cast<int>(bits % 120) - 60);
  }
}

TEST(CentavosDoDecimal, RoundsLikePrintfOverRandomDoubles) {
  std::mt19937_64 sorte(std::random_device{}());
  for (unsigned i = 0; i < 200'000; ++i) {
    const double valor = algum(sorte, i);
    ASSERT_EQ(Financial::CentavosDoDecimal(valor), pelaImpressora(valor)) << std::hexfloat << valor;
  }
}

TEST(CentavosDoDecimal, RoundsLikePrintfAtEveryExponent) {
  for (int expoente = -1074; expoente < 1024; ++expoente) {
    for (const double fracao : {1.0, 1.5, 1.9999999999999998, 1.25, 1.28, 1.125}) {
      const double valor = std::ldexp(fracao, expoente);
      ASSERT_EQ(Financial::CentavosDoDecimal(valor), pelaImpressora(valor)) << fracao << " * 2^" << expoente;
      ASSERT_EQ(Financial::CentavosDoDecimal(-valor), pelaImpressora(-valor))
          << fracao << " * 2^" << expoente;
    }
  }
}

TEST(CentavosDoDecimal, RoundsExactTiesToEven) {
  EXPECT_EQ(Financial::CentavosDoDecimal(0.125), 12);
  EXPECT_EQ(Financial::CentavosDoDecimal(0.375), 38);
  EXPECT_EQ(Financial::CentavosDoDecimal(-0.125), -12);
  EXPECT_EQ(Financial::CentavosDoDecimal(-0.375), -38);
  EXPECT_EQ(Financial::CentavosDoDecimal(1e15 + 0.125), 100000000000000012);
  EXPECT_EQ(Financial::CentavosDoDecimal(1e15 + 0.5), 100000000000000050);
}

TEST(CentavosDoDecimal, FollowsTheBinaryValueNotTheDecimalOne) {
  EXPECT_EQ(Financial::CentavosDoDecimal(12.345), 1235);  // 12.3450000000000006...
  EXPECT_EQ(Financial::CentavosDoDecimal(1.005), 100);    // 1.00499999999999989...
  EXPECT_EQ(Financial::CentavosDoDecimal(0.005), 1);      // 0.00500000000000000010...
  EXPECT_EQ(Financial::CentavosDoDecimal(12.34), 1234);
}

TEST(CentavosDoDecimal, GivesZeroForWhatIsNoAmount) {
  EXPECT_EQ(Financial::CentavosDoDecimal(kNaN), 0);
  EXPECT_EQ(Financial::CentavosDoDecimal(-kNaN), 0);
  EXPECT_EQ(Financial::CentavosDoDecimal(kInfinito), 0);
  EXPECT_EQ(Financial::CentavosDoDecimal(-kInfinito), 0);
  EXPECT_EQ(Financial::CentavosDoDecimal(-0.0), 0);
  EXPECT_EQ(Financial::CentavosDoDecimal(-0.001), 0);
}

TEST(CentavosDoDecimal, SaturatesTo64Bits) {
  using Limites = std::numeric_limits<INT64>;
  EXPECT_EQ(Financial::CentavosDoDecimal(1e300), Limites::max());
  EXPECT_EQ(Financial::CentavosDoDecimal(-1e300), Limites::min());
  EXPECT_EQ(Financial::CentavosDoDecimal(92233720368547760.0), Limites::max());
  EXPECT_EQ(Financial::CentavosDoDecimal(92233720368547744.0), 9223372036854774400);
}

TEST(FinancialFromDouble, RoundsTheBinaryValueHalfAwayFromZero) {
  std::mt19937_64 sorte(std::random_device{}());
  for (unsigned i = 0; i < 50'000; ++i) {
    const double valor = algum(sorte, i);
    if (!std::isfinite(valor)) continue;
    const Inteiro esperado = satura(arredonda(escalado(valor) * 100, kEscala));
    ASSERT_EQ(Financial(valor).nr, bigInt(esperado)) << std::hexfloat << valor;
  }
}

TEST(FinancialFromDouble, RoundsKnownValues) {
  EXPECT_EQ(Financial(0.125).Centavos(), 13);
  EXPECT_EQ(Financial(-0.125).Centavos(), -13);
  EXPECT_EQ(Financial(1.005).Centavos(), 100);
  EXPECT_EQ(Financial(1234.56).Centavos(), 123456);
  EXPECT_EQ(Financial(0.1F).Centavos(), 10);
  EXPECT_EQ(Financial(std::ldexp(1, 80)).nr, (BigInt(1) << 80) * 100);
}

TEST(FinancialFromDouble, SaturatesAndTakesNotANumberAsZero) {
  EXPECT_EQ(Financial(kNaN).nr, BigInt(0));
  EXPECT_EQ(Financial(kInfinito).nr, BigInt::Maximo());
  EXPECT_EQ(Financial(-kInfinito).nr, BigInt::Minimo());
  EXPECT_EQ(Financial(std::numeric_limits<double>::max()).nr, BigInt::Maximo());
  EXPECT_EQ(Financial(std::numeric_limits<double>::lowest()).nr, BigInt::Minimo());
  EXPECT_EQ(Financial(std::numeric_limits<double>::denorm_min()).nr, BigInt(0));
}

// Within 2^53 cents a double tells every amount from its neighbours.
RC_GTEST_PROP(FinancialFromDouble, TurnsBackWhatToDoubleGave, ()) {
  constexpr INT64 kUltimo = INT64{1} << 52;
  const Financial valor = Financial::DeCentavos(*rc::gen::inRange<INT64>(-kUltimo, kUltimo));
  RC_ASSERT(Financial(valor.ToDouble()) == valor);
}

}  // namespace
