// Every operator of BigInt against integers without bounds.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <type_traits>

#include "Modelo.h"

namespace {

const Inteiro kDoisA96 = Inteiro(1) << 96;

// The bits of a value as an unsigned number, and the value of such a number.
Inteiro bits(const BigInt& valor) { return (inteiro(valor) + kDoisA96) % kDoisA96; }
Inteiro deBits(const Inteiro& valor) { return valor >= kDoisA96 / 2 ? valor - kDoisA96 : valor; }

const BigInt kMaximo = BigInt::Maximo();
const BigInt kMinimo = BigInt::Minimo();

static_assert(std::is_trivially_copyable_v<BigInt> && std::is_standard_layout_v<BigInt>);
static_assert(sizeof(BigInt) == 12);
static_assert(BigInt(-1) < BigInt(1) && BigInt(5).Signal() == 1 && ~BigInt(0) == -1);
static_assert(std::is_nothrow_constructible_v<BigInt, int> && !std::is_constructible_v<BigInt, double>);

template <typename T>
void mantemExtremos() {
  using Limites = std::numeric_limits<T>;
  EXPECT_EQ(inteiro(BigInt(Limites::min())), Inteiro(Limites::min()));
  EXPECT_EQ(inteiro(BigInt(Limites::max())), Inteiro(Limites::max()));
}

template <typename... T>
void todosMantemExtremos() {
  (mantemExtremos<T>(), ...);
}

TEST(BigInt, KeepsBothEndsOfEveryIntegerType) {
  todosMantemExtremos<UINT8, UINT16, UINT32, INT8, INT16, INT32, char, bool>();
  todosMantemExtremos<long, unsigned long, long long, unsigned long long>();
}

TEST(BigInt, IsZeroByDefault) {
  const BigInt zero;
  EXPECT_EQ(zero.number[0], 0U);
  EXPECT_EQ(zero.number[1], 0U);
  EXPECT_EQ(zero.number[2], 0U);
}

TEST(BigInt, HoldsTwosComplementLeastSignificantWordFirst) {
  const BigInt valor = BigInt().Load(1, 2, 3);
  EXPECT_EQ(inteiro(valor), Inteiro("55340232229718589441"));
  EXPECT_EQ(BigInt(-2).number[0], 0xFFFFFFFEU);
  EXPECT_EQ(BigInt(-2).number[1], 0xFFFFFFFFU);
  EXPECT_EQ(BigInt(-2).number[2], 0xFFFFFFFFU);
  EXPECT_EQ(inteiro(kMaximo), Inteiro("39614081257132168796771975167"));
  EXPECT_EQ(inteiro(kMinimo), Inteiro("-39614081257132168796771975168"));
}

TEST(BigInt, SaturatesAtTheEndsOfTheRange) {
  EXPECT_EQ(kMaximo + 1, kMaximo);
  EXPECT_EQ(kMaximo + kMaximo, kMaximo);
  EXPECT_EQ(kMinimo - 1, kMinimo);
  EXPECT_EQ(kMinimo + kMinimo, kMinimo);
  EXPECT_EQ(-kMinimo, kMaximo);
  EXPECT_EQ(-kMaximo, kMinimo + 1);
  EXPECT_EQ(0 - kMinimo, kMaximo);
  EXPECT_EQ(kMinimo * -1, kMaximo);
  EXPECT_EQ(kMinimo / -1, kMaximo);
  EXPECT_EQ(kMinimo % -1, 0);
  EXPECT_EQ(kMinimo * kMinimo, kMaximo);
  EXPECT_EQ(kMaximo * kMinimo, kMinimo);
  EXPECT_EQ((BigInt(1) << 94) * -2, kMinimo);
}

TEST(BigInt, DividedByZeroGivesTheEndOnTheDividendsSide) {
  EXPECT_EQ(BigInt(7) / 0, kMaximo);
  EXPECT_EQ(BigInt(-7) / 0, kMinimo);
  EXPECT_EQ(BigInt(0) / 0, 0);
  EXPECT_EQ(BigInt(7) % 0, 7);
  EXPECT_EQ(BigInt(-7) % 0, -7);
  EXPECT_EQ(BigInt::MultiplicaEDivide(3, -5, 0), kMinimo);
  EXPECT_EQ(BigInt::MultiplicaEDivide(-3, -5, 0), kMaximo);
  EXPECT_EQ(BigInt::MultiplicaEDivide(0, -5, 0), 0);
}

TEST(BigInt, AProductOfZeroDividedIsZero) {
  EXPECT_EQ(BigInt::MultiplicaEDivide(5, 0, 3), 0);
  EXPECT_EQ(BigInt::MultiplicaEDivide(0, 5, -3), 0);
  EXPECT_EQ(BigInt::MultiplicaEDivide(-5, 0, 0), 0);
  EXPECT_EQ(BigInt::MultiplicaEDivide(0, 0, 7), 0);
}

TEST(BigInt, TruncatesAQuotientTowardZero) {
  EXPECT_EQ(BigInt(7) / 2, 3);
  EXPECT_EQ(BigInt(-7) / 2, -3);
  EXPECT_EQ(BigInt(7) % -2, 1);
  EXPECT_EQ(BigInt(-7) % 2, -1);
}

TEST(BigInt, AcceptsItselfOnBothSides) {
  BigInt valor = 12;
  const BigInt& eleMesmo = valor;
  EXPECT_EQ(valor += eleMesmo, 24);
  EXPECT_EQ(valor *= eleMesmo, 576);
  EXPECT_EQ(valor /= eleMesmo, 1);
  EXPECT_EQ(valor -= eleMesmo, 0);
  valor = 9;
  EXPECT_EQ(valor %= eleMesmo, 0);
}

TEST(BigInt, GivesTheRemainderIntoItselfOrTheDivisor) {
  BigInt valor = 17;
  EXPECT_EQ(valor.DivisaoComResto(5, valor), 3);
  EXPECT_EQ(valor, 2);
  BigInt divisor = -5;
  EXPECT_EQ(BigInt(17).DivisaoComResto(divisor, divisor), -3);
  EXPECT_EQ(divisor, 2);
  divisor = BigInt();
  EXPECT_EQ(BigInt(17).DivisaoComResto(divisor, divisor), kMaximo);
  EXPECT_EQ(divisor, 17);
}

TEST(BigInt, SetsAndClearsEveryBitAndNoOther) {
  for (unsigned posicao = 0; posicao < 96; ++posicao) {
    EXPECT_EQ(bits(BigInt().SetBit(posicao)), Inteiro(1) << posicao) << posicao;
    EXPECT_EQ(bits(BigInt(-1).SetBit(posicao, false)), kDoisA96 - 1 - (Inteiro(1) << posicao)) << posicao;
  }
  EXPECT_EQ(BigInt(5).SetBit(0), 5);
  EXPECT_EQ(BigInt(5).SetBit(96), 5);
  EXPECT_EQ(BigInt(5).SetBit(~0U, false), 5);
}

TEST(BigInt, ShiftsByAnyNumberOfBits) {
  EXPECT_EQ(BigInt(1) << 95, kMinimo);
  EXPECT_EQ(BigInt(3) << 95, kMinimo);
  EXPECT_EQ(BigInt(-1) << 96, 0);
  EXPECT_EQ(kMinimo >> 95, -1);
  EXPECT_EQ(kMinimo >> ~0U, -1);
  EXPECT_EQ(kMaximo >> 96, 0);
  EXPECT_EQ(BigInt(-5) >> 1, -3);
}

RC_GTEST_PROP(BigInt, AddsAndSubtractsLikeIntegers, (const BigInt& a, const BigInt& b)) {
  RC_ASSERT(inteiro(a + b) == satura(inteiro(a) + inteiro(b)));
  RC_ASSERT(inteiro(a - b) == satura(inteiro(a) - inteiro(b)));
  RC_ASSERT(inteiro(-a) == satura(-inteiro(a)));
}

RC_GTEST_PROP(BigInt, MultipliesLikeIntegers, (const BigInt& a, const BigInt& b)) {
  RC_ASSERT(inteiro(a * b) == satura(inteiro(a) * inteiro(b)));
  const BigInt curto = a >> 48;
  RC_ASSERT(inteiro(curto * (b >> 48)) == inteiro(curto) * inteiro(b >> 48));
}

RC_GTEST_PROP(BigInt, DividesLikeIntegers, (const BigInt& a, const BigInt& b)) {
  RC_PRE(b != 0);
  BigInt resto;
  RC_ASSERT(inteiro(a.DivisaoComResto(b, resto)) == satura(inteiro(a) / inteiro(b)));
  RC_ASSERT(inteiro(resto) == inteiro(a) % inteiro(b));
  RC_ASSERT(a / b == a.DivisaoComResto(b, resto));
  RC_ASSERT(a % b == resto);
}

RC_GTEST_PROP(BigInt, MultipliesAndDividesRoundingOnce, (const BigInt& a, const BigInt& b, const BigInt& c)) {
  RC_PRE(c != 0);
  const Inteiro exato = arredonda(inteiro(a) * inteiro(b), inteiro(c));
  RC_ASSERT(inteiro(BigInt::MultiplicaEDivide(a, b, c)) == satura(exato));
}

RC_GTEST_PROP(BigInt, CombinesBitsLikeUnsignedNumbers, (const BigInt& a, const BigInt& b)) {
  RC_ASSERT(bits(a & b) == (bits(a) & bits(b)));
  RC_ASSERT(bits(a | b) == (bits(a) | bits(b)));
  RC_ASSERT(bits(a ^ b) == (bits(a) ^ bits(b)));
  RC_ASSERT(bits(~a) == kDoisA96 - 1 - bits(a));
}

RC_GTEST_PROP(BigInt, ShiftsLikeUnsignedNumbers, (const BigInt& a)) {
  const auto quantos = *rc::gen::inRange(0U, 100U);
  RC_ASSERT(inteiro(a << quantos) == deBits((bits(a) << quantos) % kDoisA96));
  const Inteiro divisor = Inteiro(1) << quantos;
  const Inteiro piso = (inteiro(a) - ((inteiro(a) % divisor + divisor) % divisor)) / divisor;
  RC_ASSERT(inteiro(a >> quantos) == piso);
}

RC_GTEST_PROP(BigInt, ComparesLikeIntegers, (const BigInt& a, const BigInt& outro)) {
  const BigInt b = *rc::gen::element(outro, a, a + 1, a - 1);
  const Inteiro x = inteiro(a);
  const Inteiro y = inteiro(b);
  RC_ASSERT((a == b) == (x == y));
  RC_ASSERT((a != b) == (x != y));
  RC_ASSERT((a < b) == (x < y));
  RC_ASSERT((a > b) == (x > y));
  RC_ASSERT((a <= b) == (x <= y));
  RC_ASSERT((a >= b) == (x >= y));
  RC_ASSERT(a.Signal() == x.sign());
}

RC_GTEST_PROP(BigInt, DropsDecimalDigits, (const BigInt& a)) {
  const auto digitos = *rc::gen::inRange(0U, 33U);
  RC_ASSERT(inteiro(BigInt(a).Trunca(digitos)) == inteiro(a) / potenciaDeDez(digitos));
  RC_ASSERT(inteiro(BigInt(a).Arredonda(digitos)) == arredonda(inteiro(a), potenciaDeDez(digitos)));
}

TEST(BigInt, RoundsHalfAwayFromZeroWhenItDropsDigits) {
  EXPECT_EQ(BigInt(12350).Arredonda(2), 124);
  EXPECT_EQ(BigInt(12349).Arredonda(2), 123);
  EXPECT_EQ(BigInt(-12350).Arredonda(2), -124);
  EXPECT_EQ(BigInt(12399).Trunca(2), 123);
  EXPECT_EQ(BigInt(-12399).Trunca(2), -123);
  EXPECT_EQ(BigInt(kMaximo).Arredonda(28), 4);
  EXPECT_EQ(BigInt(kMaximo).Trunca(28), 3);
  EXPECT_EQ(BigInt(kMinimo).Arredonda(29), 0);
  EXPECT_EQ(BigInt(kMinimo).Arredonda(~0U), 0);
}

}  // namespace
