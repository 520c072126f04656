// Construction, arithmetic, comparison and rounding of amounts, against integers without bounds.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "Modelo.h"

namespace {

const Financial kMaximo = Financial::DeCentavos(BigInt::Maximo());
const Financial kMinimo = Financial::DeCentavos(BigInt::Minimo());

Financial centavos(const BigInt& valor) { return Financial::DeCentavos(valor); }
Inteiro inteiro(const Financial& valor) { return inteiro(valor.nr); }

static_assert(std::is_trivially_copyable_v<Financial> && std::is_standard_layout_v<Financial>);
static_assert(sizeof(Financial) == sizeof(BigInt));

template <typename T>
void tomaUnidades() {
  using Limites = std::numeric_limits<T>;
  EXPECT_EQ(inteiro(Financial(Limites::min())), Inteiro(Limites::min()) * 100);
  EXPECT_EQ(inteiro(Financial(Limites::max())), Inteiro(Limites::max()) * 100);
}

template <typename... T>
void todosTomamUnidades() {
  (tomaUnidades<T>(), ...);
}

TEST(Financial, TakesIntegersOfEveryTypeAsCurrencyUnits) {
  todosTomamUnidades<UINT8, UINT16, UINT32, INT8, INT16, INT32>();
  todosTomamUnidades<long, unsigned long, long long, unsigned long long>();
}

TEST(Financial, IsZeroByDefault) { EXPECT_EQ(Financial().nr, BigInt(0)); }

TEST(Financial, TakesABigIntAsCurrencyUnitsToo) {
  EXPECT_EQ(Financial(BigInt(5)), Financial(5));
  EXPECT_EQ(Financial(BigInt::Maximo()), kMaximo);
  EXPECT_EQ(Financial(BigInt::Minimo()), kMinimo);
}

TEST(Financial, IsAssignedFromLiterals) {
  Financial valor = 3;
  EXPECT_EQ(valor, centavos(300));
  valor = 0;  // NOLINT(modernize-use-nullptr): taken as the null text, which is zero as well
  EXPECT_EQ(valor, centavos(0));
  valor = 7;
  EXPECT_EQ(valor, centavos(700));
  valor = 0.25;
  EXPECT_EQ(valor, centavos(25));
}

TEST(Financial, SaturatesAtTheEndsOfTheRange) {
  EXPECT_EQ(kMaximo + centavos(1), kMaximo);
  EXPECT_EQ(kMinimo - centavos(1), kMinimo);
  EXPECT_EQ(-kMinimo, kMaximo);
  EXPECT_EQ(kMinimo * -1, kMaximo);
  EXPECT_EQ(kMaximo * kMinimo, kMinimo);
  EXPECT_EQ(kMaximo * centavos(101), kMaximo);
  EXPECT_EQ(kMaximo / centavos(99), kMaximo);
  EXPECT_EQ(kMinimo / centavos(99), kMinimo);
  EXPECT_EQ(kMaximo * 1, kMaximo);
  EXPECT_EQ(kMinimo / 1, kMinimo);
}

TEST(Financial, DividedByZeroGivesTheEndOnTheDividendsSide) {
  EXPECT_EQ(Financial(1) / 0, kMaximo);
  EXPECT_EQ(Financial(-1) / 0, kMinimo);
  EXPECT_EQ(Financial(0) / 0, Financial(0));
}

TEST(Financial, TimesZeroIsZeroAndSoIsZeroDivided) {
  EXPECT_EQ(Financial(5) * Financial(0), Financial(0));
  EXPECT_EQ(Financial(0) * Financial(-5), Financial(0));
  EXPECT_EQ(Financial(0) / Financial(5), Financial(0));
}

TEST(Financial, RoundsProductAndQuotientHalfAwayFromZeroOnce) {
  EXPECT_EQ(centavos(5) * centavos(10), centavos(1));     // 0,05 * 0,10 = 0,005
  EXPECT_EQ(centavos(-5) * centavos(10), centavos(-1));   // -0,005
  EXPECT_EQ(centavos(7) * centavos(7), centavos(0));      // 0,0049
  EXPECT_EQ(centavos(1) / centavos(200), centavos(1));    // 0,01 / 2,00 = 0,005
  EXPECT_EQ(centavos(-1) / centavos(200), centavos(-1));  // -0,005
  EXPECT_EQ(centavos(1) / centavos(201), centavos(0));    // 0,00497...
  EXPECT_EQ(Financial(2) / 3, centavos(67));
  EXPECT_EQ(centavos(123456) * centavos(250), centavos(308640));
}

RC_GTEST_PROP(Financial, AddsAndSubtractsExactly, (const Financial& a, const Financial& b)) {
  RC_ASSERT(inteiro(a + b) == satura(inteiro(a) + inteiro(b)));
  RC_ASSERT(inteiro(a - b) == satura(inteiro(a) - inteiro(b)));
  RC_ASSERT(inteiro(-a) == satura(-inteiro(a)));
  Financial c = a;
  RC_ASSERT((c += b) == a + b);
  c = a;
  RC_ASSERT((c -= b) == a - b);
}

RC_GTEST_PROP(Financial, MultipliesAndDividesRoundingOnce, (const Financial& a, const Financial& b)) {
  RC_ASSERT(inteiro(a * b) == satura(arredonda(inteiro(a) * inteiro(b), 100)));
  RC_PRE(b != 0);
  RC_ASSERT(inteiro(a / b) == satura(arredonda(inteiro(a) * 100, inteiro(b))));
}

RC_GTEST_PROP(Financial, ComparesLikeIntegers, (const Financial& a, const Financial& outro)) {
  const Financial b = *rc::gen::element(outro, a, a + centavos(1), a - centavos(1));
  const Inteiro x = inteiro(a);
  const Inteiro y = inteiro(b);
  RC_ASSERT((a == b) == (x == y));
  RC_ASSERT((a != b) == (x != y));
  RC_ASSERT((a < b) == (x < y));
  RC_ASSERT((a > b) == (x > y));
  RC_ASSERT((a <= b) == (x <= y));
  RC_ASSERT((a >= b) == (x >= y));
}

RC_GTEST_PROP(Financial, RoundsAndTruncatesToPlaces, (const Financial& a)) {
  for (unsigned casas = 0; casas < 4; ++casas) {
    const Inteiro passo = casas >= 2 ? 1 : potenciaDeDez(2 - casas);
    RC_ASSERT(inteiro(Financial(a).Arredonda(casas)) == satura(arredonda(inteiro(a), passo) * passo));
    RC_ASSERT(inteiro(Financial(a).Trunca(casas)) == inteiro(a) / passo * passo);
  }
}

TEST(Financial, RoundsAndTruncatesInPlace) {
  Financial valor = centavos(1255);
  EXPECT_EQ(&valor.Arredonda(1), &valor);
  EXPECT_EQ(valor, centavos(1260));
  EXPECT_EQ(valor.Arredonda(0), Financial(13));
  valor = centavos(-1299);
  EXPECT_EQ(&valor.Trunca(1), &valor);
  EXPECT_EQ(valor, centavos(-1290));
  EXPECT_EQ(valor.Trunca(0), Financial(-12));
  EXPECT_EQ(centavos(-50).Arredonda(0), Financial(-1));
  EXPECT_EQ(centavos(-49).Arredonda(0), Financial(0));
  EXPECT_EQ(centavos(1234).Arredonda(~0U), centavos(1234));
}

RC_GTEST_PROP(Financial, GivesCentsSaturatedTo64Bits, (const Financial& a)) {
  RC_ASSERT(a.Centavos() == satura64(inteiro(a)));
}

TEST(Financial, GivesTheEndsOf64Bits) {
  using Limites = std::numeric_limits<INT64>;
  EXPECT_EQ(centavos(Limites::max()).Centavos(), Limites::max());
  EXPECT_EQ(centavos(Limites::min()).Centavos(), Limites::min());
  EXPECT_EQ((centavos(Limites::max()) + centavos(1)).Centavos(), Limites::max());
  EXPECT_EQ((centavos(Limites::min()) - centavos(1)).Centavos(), Limites::min());
  EXPECT_EQ(kMaximo.Centavos(), Limites::max());
  EXPECT_EQ(kMinimo.Centavos(), Limites::min());
}

// No double is nearer to the amount than the one given.
RC_GTEST_PROP(Financial, GivesTheNearestDouble, (const Financial& a)) {
  const auto erro = [&](double valor) { return abs(escalado(valor) * 100 - inteiro(a) * kEscala); };
  const double dado = a.ToDouble();
  RC_ASSERT(erro(dado) <= erro(std::nextafter(dado, -1e300)));
  RC_ASSERT(erro(dado) <= erro(std::nextafter(dado, 1e300)));
}

TEST(Financial, GivesKnownDoubles) {
  EXPECT_EQ(centavos(0).ToDouble(), 0.0);
  EXPECT_EQ(centavos(1).ToDouble(), 0.01);
  EXPECT_EQ(centavos(-123456).ToDouble(), -1234.56);
  EXPECT_EQ(centavos(123456789012345678).ToDouble(), 1234567890123456.78);
  // One cent past the middle of two doubles, 2^35 apart, goes to the upper one.
  const BigInt meio = (BigInt(3) << 86) + (BigInt(1) << 34);
  EXPECT_EQ(centavos(meio * 100).ToDouble(), std::ldexp(3, 86));
  EXPECT_EQ(centavos(meio * 100 + 1).ToDouble(), std::ldexp(3, 86) + std::ldexp(1, 35));
  EXPECT_EQ(centavos(meio * -100 - 1).ToDouble(), -std::ldexp(3, 86) - std::ldexp(1, 35));
  EXPECT_EQ(kMaximo.ToDouble(), 396140812571321687967719751.67);
  EXPECT_EQ(kMinimo.ToDouble(), -396140812571321687967719751.68);
}

}  // namespace
