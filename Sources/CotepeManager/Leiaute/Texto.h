// The texts of the database and of the record: how they are cleaned, cut into dates, and read as numbers.
// Nothing here depends on the process locale or allocates.
#pragma once

#include <cstddef>
#include <cstdint>

namespace cotepe {

constexpr std::size_t kLarguraData = 8;  // AAAAMMDD
constexpr std::size_t kLarguraHora = 6;  // HHMMSS

/// A date-time text that means an absent one: 19 blanks, as the queries substitute for NULL.
inline constexpr char kSemDataHora[] = "                   ";

/// Reads a decimal integer as the C library's atoll does (white space, sign, digits up to the first other
/// character; none gives 0), saturating at the limits of 64 bits.
std::int64_t leInteiro(const char* texto) noexcept;

/// Reads a floating-point number as strtod does in the C locale; any other text gives 0.
double leDecimal(const char* texto) noexcept;

/// Halves away from zero: the integer part of x + 0.5 where x > 0, of x - 0.5 elsewhere. Saturates at the
/// limits of int; NaN gives 0.
int arredonda(double x) noexcept;

/// Cuts YYYY-MM-DD HH:MM:SS by position into the 8 characters YYYYMMDD (`formataData`) or the 6 characters
/// HHMMSS (`formataHora`) and a terminator. Where the text is shorter, the missing positions are terminators;
/// separators are not checked. `destino` holds 9 or 7 bytes.
void formataData(const char* texto, char* destino) noexcept;
void formataHora(const char* texto, char* destino) noexcept;

/// These work in place on a terminated text and return its new length in bytes.
std::size_t removeCaractere(char* texto, char caractere) noexcept;
std::size_t trocaCaractere(char* texto, char de, char para) noexcept;

/// Blanks every byte that is a control character (0 to 31) or outside ASCII (128 to 255); 127 stays.
std::size_t trocaNaoAscii(char* texto) noexcept;

/// Copies as much of `origem` (null counts as empty) as `destino` holds, always terminated; the rest of
/// `destino` becomes zero bytes.
void copiaLimitada(char* destino, std::size_t tamanho, const char* origem) noexcept;

template <std::size_t N>
void copiaLimitada(char (&destino)[N], const char* origem) noexcept {
  copiaLimitada(destino, N, origem);
}

}  // namespace cotepe
