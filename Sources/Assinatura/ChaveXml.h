// A public key as makers and software houses hand it in: XML with the modulus and the exponent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cotepe {

struct ChaveXml {
  std::string nome;      ///< of the key's owner, in UTF-8; may be empty
  std::string modulo;    ///< hexadecimal digits in upper case, without leading zeros
  std::string expoente;  ///< the same
};

/// Why a text is not such a key.
enum class FaltaDaChaveXml : std::uint8_t {
  Nenhuma,
  NaoEXml,
  SemModulo,
  SemExpoente,
  Repetida,
  NaoEHexadecimal
};

/// Reads a key under any root: digits in either case, with blanks and line breaks between them and leading
/// zeros.
FaltaDaChaveXml leChaveXml(std::string_view texto, ChaveXml& chave);

/// The whole text: modulus of 256 digits, exponent of an even number of them, and a line-feed.
std::string escreveChaveXml(const ChaveXml& chave);

}  // namespace cotepe
