// The EAD line: three letters and the digits of a signature.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace cotepe {

/// A hash by MD5, most significant byte first.
using ResumoMd5 = std::array<std::uint8_t, 16>;
/// What RSA of 1024 bits signs, and its result: a number, most significant byte first.
using BlocoRsa = std::array<std::uint8_t, 128>;

inline constexpr std::size_t kDigitosDaAssinatura = 256;
inline constexpr std::size_t kDigitosDoResumo = 32;

/// What follows the letters.
enum class FormaDaEad : std::uint8_t {
  Assinatura,       ///< 256 hexadecimal digits
  DigitosPerdidos,  ///< fewer, as when leading zeros were left out
  SoResumo,         ///< 32 digits: a hash that nobody signed
  Outra,            ///< anything else
};

struct LinhaEad {
  FormaDaEad forma = FormaDaEad::Outra;
  BlocoRsa assinatura{};    ///< of the first two forms; leading zeros where digits are missing
  ResumoMd5 resumo{};       ///< of the third
  std::size_t digitos = 0;  ///< how many there are
  std::size_t sobra = 0;    ///< bytes of the line after them
  bool misturados = false;  ///< digits in upper and in lower case
};

/// Reads a line that begins with EAD, given without its line end; it may hold any bytes.
LinhaEad leEad(std::string_view linha);

/// The line of a signature, without a line end: digits in upper case.
std::string escreveEad(const BlocoRsa& assinatura);

/// Bytes as hexadecimal digits in upper case, and a hash in lower case, as md5sum writes it.
std::string emHexadecimal(const std::uint8_t* bytes, std::size_t quantos);
std::string textoDoResumo(const ResumoMd5& resumo);

/// The value of a hexadecimal digit, in either case; below 0 for another character.
int valorDoDigito(char c) noexcept;

}  // namespace cotepe
