/// @file
/// The money type: amounts in whole cents, and the conversions from text and from double to cents.
#pragma once

#include "BigInt.h"

/// Text layouts of Financial::ToString, each shown with the amount 1234,56.
enum FINANCIAL_STR_TIPO {
  FIN_STR_DEFAULT = 0,  ///< 1234,56
  FIN_STR_1 = 1,        ///< 1.234,56
  FIN_STR_2 = 2,        ///< 1234.56
  FIN_STR_3 = 3,        ///< 1,234.56
  FIN_STR_4 = 4,        ///< R$ 1.234,56
};

/// An amount of money in whole cents, exact from -2^95 to 2^95 - 1 cents. Beyond that every operation
/// saturates. What is not whole cents is rounded once, from the exact value, half away from zero. Division by
/// zero gives the limit of the range on the dividend's side, and 0 / 0 is zero. Nothing allocates, throws or
/// depends on the locale; texts end at their terminator.
class Financial {
 public:
  BigInt nr;  ///< the cents; every content is an amount

  constexpr Financial() noexcept = default;

  ///@{
  /// From whole currency units: Financial(5) is 5,00, of any integer type and BigInt alike.
  template <typename T, typename = std::enable_if_t<std::is_integral_v<T>>>
  Financial(T unidades) noexcept : nr(BigInt(unidades) * 100) {}
  Financial(const BigInt& unidades) noexcept : nr(unidades * 100) {}
  ///@}

  /// From currency units, the exact binary value rounded to cents. NaN gives zero.
  Financial(double unidades) noexcept;

  /// From whole cents.
  static constexpr Financial DeCentavos(const BigInt& centavos) noexcept {
    Financial resultado;
    resultado.nr = centavos;
    return resultado;
  }

  /// Sets the amount from text: surrounding blanks (character 32), a sign, digits with at most one comma and
  /// at least one digit, an exponent (e or E, a sign, digits). Of any length, in linear time. Any other text,
  /// including one with a point, and a null pointer give zero.
  Financial& operator=(const char* texto) noexcept;

  /// The cents of a text in which a point also counts as the comma, saturated to 64 bits: what assigning it,
  /// writing it with ToString, removing its separator and reading the rest as an integer would give.
  static std::int64_t CentavosDoBanco(const char* texto) noexcept;

  /// The cents of a number as "\%11.2f" shows it: the exact binary value rounded half to even, saturated to
  /// 64 bits. NaN and the infinities give 0.
  static std::int64_t CentavosDoDecimal(double valor) noexcept;

  /// The cents, saturated to 64 bits.
  std::int64_t Centavos() const noexcept;

  /// Currency units as the nearest double.
  double ToDouble() const noexcept;

  /// Writes the amount and a terminator, and returns the buffer. `capacity` is in bytes, terminator included:
  /// a text that does not fit is empty, never cut; a null buffer or a capacity below 1 is left alone.
  /// `decimals`: 0 writes the two of the type, 1 or more that many (one is rounded, beyond two are zeros),
  /// below 0 none (rounded to units). `flag`: any value but 0 marks amounts above zero with '+'. The sign
  /// comes first (-R$ 1,00); a layout outside the enumeration means the default one.
  char* ToString(char* out, int capacity, FINANCIAL_STR_TIPO layout, int decimals,
                 std::int16_t flag) const noexcept;

  /// ToString in the default layout with two decimals.
  char* ToStr(char* out, std::uint8_t capacity, std::int16_t flag) const noexcept;

  ///@{
  /// Rounds half away from zero, or truncates toward zero, to a number of decimal places (2 or more changes
  /// nothing). Changes the object and returns it.
  Financial& Arredonda(unsigned int casas) noexcept;
  Financial& Trunca(unsigned int casas) noexcept;
  ///@}

  ///@{
  /// Arithmetic in currency units (1,50 * 2,00 is 3,00), by the rules of the class.
  Financial operator-() const noexcept { return DeCentavos(-nr); }
  Financial& operator+=(const Financial& b) noexcept { return *this = DeCentavos(nr + b.nr); }
  Financial& operator-=(const Financial& b) noexcept { return *this = DeCentavos(nr - b.nr); }
  friend Financial operator+(Financial a, const Financial& b) noexcept { return a += b; }
  friend Financial operator-(Financial a, const Financial& b) noexcept { return a -= b; }
  friend Financial operator*(const Financial& a, const Financial& b) noexcept {
    return DeCentavos(BigInt::MultiplicaEDivide(a.nr, b.nr, 100));
  }
  friend Financial operator/(const Financial& a, const Financial& b) noexcept {
    return DeCentavos(BigInt::MultiplicaEDivide(a.nr, 100, b.nr));
  }
  ///@}

  ///@{
  /// Compares the amounts.
  friend constexpr bool operator==(const Financial& a, const Financial& b) noexcept { return a.nr == b.nr; }
  friend constexpr bool operator!=(const Financial& a, const Financial& b) noexcept { return a.nr != b.nr; }
  friend constexpr bool operator<(const Financial& a, const Financial& b) noexcept { return a.nr < b.nr; }
  friend constexpr bool operator>(const Financial& a, const Financial& b) noexcept { return a.nr > b.nr; }
  friend constexpr bool operator<=(const Financial& a, const Financial& b) noexcept { return a.nr <= b.nr; }
  friend constexpr bool operator>=(const Financial& a, const Financial& b) noexcept { return a.nr >= b.nr; }
  ///@}
};
