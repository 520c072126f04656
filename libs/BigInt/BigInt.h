/// @file
/// Signed integer of 96 bits, for amounts whose cents do not fit in 64 bits.
#pragma once

#include <cstdint>
#include <type_traits>

///@{
/// The integer names that users of this type write. An application that has such names for other types, INT64
/// for long long say, defines COTEPE_SEM_INTEIROS before including this file: nothing below needs them.
#ifndef COTEPE_SEM_INTEIROS
using UINT8 = std::uint8_t;
using UINT16 = std::uint16_t;
using UINT32 = std::uint32_t;
using INT8 = std::int8_t;
using INT16 = std::int16_t;
using INT32 = std::int32_t;
using INT64 = std::int64_t;
///@}
#endif

/// A signed integer of 96 bits, two's complement, -2^95 to 2^95 - 1. Arithmetic saturates at Minimo() and
/// Maximo(); the bitwise operators and the shifts work on the raw bits. Division truncates toward zero and
/// the remainder has the dividend's sign; by zero, the quotient is the limit of the range on the dividend's
/// side (0 / 0 is 0) and the remainder the dividend. Nothing allocates, throws or depends on the locale.
class BigInt {
 public:
  std::uint32_t number[3] = {0, 0, 0};  ///< least significant word first; every content is a value

  constexpr BigInt() noexcept = default;

  /// From an integer of any type up to 64 bits, by value.
  template <typename T, typename = std::enable_if_t<std::is_integral_v<T> && sizeof(T) <= 8>>
  constexpr BigInt(T valor) noexcept
      : number{static_cast<std::uint32_t>(valor),
               static_cast<std::uint32_t>(static_cast<std::uint64_t>(valor) >> 32U),
               static_cast<std::int64_t>(valor) < 0 && std::is_signed_v<T> ? ~std::uint32_t{0}
                                                                           : std::uint32_t{0}} {}

  ///@{
  /// The limits of the range: -2^95 and 2^95 - 1.
  static constexpr BigInt Minimo() noexcept { return BigInt().Load(0, 0, 0x80000000U); }
  static constexpr BigInt Maximo() noexcept { return ~Minimo(); }
  ///@}

  /// Sets the value from decimal text of any length, saturating: surrounding blanks, a sign, digits. Any
  /// other text, the empty one included, and a null pointer give zero.
  BigInt& operator=(const char* texto) noexcept;

  /// Sets the three words, least significant first.
  constexpr BigInt& Load(std::uint32_t baixa, std::uint32_t media, std::uint32_t alta) noexcept {
    number[0] = baixa;
    number[1] = media;
    number[2] = alta;
    return *this;
  }

  /// Sets or clears one bit, position 0 (least significant) to 95 (the sign); others are left alone.
  constexpr BigInt& SetBit(unsigned posicao, bool ligado = true) noexcept {
    if (posicao >= 96) return *this;
    const std::uint32_t mascara = std::uint32_t{1} << posicao % 32;
    std::uint32_t& palavra = number[posicao / 32];
    palavra = ligado ? palavra | mascara : palavra & ~mascara;
    return *this;
  }

  /// -1, 0 or 1: the sign of the value.
  constexpr int Signal() const noexcept {
    if ((number[2] >> 31U) != 0) return -1;
    return (number[0] | number[1] | number[2]) != 0 ? 1 : 0;
  }

  /// Writes the value in decimal and a terminator; returns the buffer. When the capacity (bytes, terminator
  /// included) is too small the text is empty. A null buffer or a capacity below 1 is left alone.
  char* ToStr(char* texto, int capacidade) const noexcept;

  ///@{
  /// Drops the last decimal digits, as a division by 10^digitos: 12355 without two is 123 when truncated
  /// (toward zero), 124 when rounded (half away from zero). Changes the object and returns it.
  BigInt& Trunca(unsigned digitos) noexcept;
  BigInt& Arredonda(unsigned digitos) noexcept;
  ///@}

  /// Quotient and remainder in one division, by the rules of the class. `resto` may be any object.
  BigInt DivisaoComResto(const BigInt& divisor, BigInt& resto) const noexcept;

  /// a * b / divisor from the exact product, rounded once, half away from zero, then saturated. A divisor of
  /// zero gives the limit of the range on the product's side, 0 for a product of 0.
  static BigInt MultiplicaEDivide(const BigInt& a, const BigInt& b, const BigInt& divisor) noexcept;

  ///@{
  /// Arithmetic, by the rules of the class.
  BigInt operator-() const noexcept { return BigInt() -= *this; }
  BigInt& operator+=(const BigInt& b) noexcept;
  BigInt& operator-=(const BigInt& b) noexcept;
  BigInt& operator*=(const BigInt& b) noexcept;
  BigInt& operator/=(const BigInt& b) noexcept;
  BigInt& operator%=(const BigInt& b) noexcept;
  friend BigInt operator+(BigInt a, const BigInt& b) noexcept { return a += b; }
  friend BigInt operator-(BigInt a, const BigInt& b) noexcept { return a -= b; }
  friend BigInt operator*(BigInt a, const BigInt& b) noexcept { return a *= b; }
  friend BigInt operator/(BigInt a, const BigInt& b) noexcept { return a /= b; }
  friend BigInt operator%(BigInt a, const BigInt& b) noexcept { return a %= b; }
  ///@}

  ///@{
  /// Bit by bit.
  constexpr BigInt operator~() const noexcept { return BigInt().Load(~number[0], ~number[1], ~number[2]); }
  constexpr BigInt& operator&=(const BigInt& b) noexcept {
    return Load(number[0] & b.number[0], number[1] & b.number[1], number[2] & b.number[2]);
  }
  constexpr BigInt& operator|=(const BigInt& b) noexcept {
    return Load(number[0] | b.number[0], number[1] | b.number[1], number[2] | b.number[2]);
  }
  constexpr BigInt& operator^=(const BigInt& b) noexcept {
    return Load(number[0] ^ b.number[0], number[1] ^ b.number[1], number[2] ^ b.number[2]);
  }
  friend constexpr BigInt operator&(BigInt a, const BigInt& b) noexcept { return a &= b; }
  friend constexpr BigInt operator|(BigInt a, const BigInt& b) noexcept { return a |= b; }
  friend constexpr BigInt operator^(BigInt a, const BigInt& b) noexcept { return a ^= b; }
  ///@}

  ///@{
  /// Shifts by any number of bits. The left one fills with zeros and drops what leaves the 96 bits; the right
  /// one repeats the sign, so it divides by a power of two, rounding toward minus infinity.
  BigInt& operator<<=(unsigned bits) noexcept;
  BigInt& operator>>=(unsigned bits) noexcept;
  friend BigInt operator<<(BigInt a, unsigned bits) noexcept { return a <<= bits; }
  friend BigInt operator>>(BigInt a, unsigned bits) noexcept { return a >>= bits; }
  ///@}

  ///@{
  /// Compares the values, signed.
  friend constexpr bool operator==(const BigInt& a, const BigInt& b) noexcept {
    return a.number[0] == b.number[0] && a.number[1] == b.number[1] && a.number[2] == b.number[2];
  }
  friend constexpr bool operator<(const BigInt& a, const BigInt& b) noexcept {
    constexpr std::uint32_t kSinal = 0x80000000U;  // flipped, the signed order is that of unsigned words
    if (a.number[2] != b.number[2]) return (a.number[2] ^ kSinal) < (b.number[2] ^ kSinal);
    if (a.number[1] != b.number[1]) return a.number[1] < b.number[1];
    return a.number[0] < b.number[0];
  }
  friend constexpr bool operator!=(const BigInt& a, const BigInt& b) noexcept { return !(a == b); }
  friend constexpr bool operator>(const BigInt& a, const BigInt& b) noexcept { return b < a; }
  friend constexpr bool operator<=(const BigInt& a, const BigInt& b) noexcept { return !(b < a); }
  friend constexpr bool operator>=(const BigInt& a, const BigInt& b) noexcept { return !(a < b); }
  ///@}
};
