// Every kind of field read back: what its bytes say, and whether writing the field can have produced them.
#pragma once

#include <cstdint>
#include <string_view>

#include "Leiaute/Campo.h"

namespace cotepe {

/// An amount of money in cents.
using Centavos = std::int64_t;

/// What keeps bytes from being a field of their kind.
enum class Defeito : std::uint8_t {
  Nenhum,
  Digitos,      // a number that is not only digits
  Controle,     // a text with a control character (0 to 31, 127)
  NaoAscii,     // a text with a byte from 128 on
  Alinhamento,  // a text that begins with a blank and is not blank
  Data,         // not a day that exists, as AAAAMMDD
  Hora,         // not an hour that exists, as HHMMSS
};

/// What is wrong with the bytes of a field in a data record; fast enough for a file of a hundred million
/// fields. A blank date or hour is not a defect: an absent one is blank.
Defeito defeito(Especie especie, std::string_view bytes) noexcept;

/// Kinds that are digits, and that a placeholder record fills with zeros.
constexpr bool numerica(Especie especie) {
  return especie == Especie::Numero || especie == Especie::Contador || especie == Especie::Identificador ||
         especie == Especie::Dinheiro || especie == Especie::DinheiroDuplo || especie == Especie::Decimal;
}

constexpr bool deData(Especie especie) { return especie == Especie::Data || especie == Especie::DataPronta; }
constexpr bool deHora(Especie especie) { return especie == Especie::Hora || especie == Especie::HoraPronta; }

/// A control character: 0 to 31, and 127. Bytes from 128 on are not, whether char is signed or not.
constexpr bool controla(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

bool soDigitos(std::string_view bytes) noexcept;
bool soBrancos(std::string_view bytes) noexcept;

/// Reads a number made only of digits: of a money field the cents, of a decimal the scaled integer. Returns
/// false and reads nothing for other bytes, for no bytes, and beyond 64 bits.
bool leNumero(std::string_view bytes, std::int64_t& valor) noexcept;

/// Days of a month, 1 to 12, of the Gregorian calendar.
int diasDoMes(int ano, int mes) noexcept;

/// AAAAMMDD, with leap years of the Gregorian calendar, from the year 1 on; and HHMMSS up to 235959.
bool dataPossivel(std::string_view bytes) noexcept;
bool horaPossivel(std::string_view bytes) noexcept;

/// The text without its trailing blanks.
std::string_view semBrancosNoFim(std::string_view bytes) noexcept;

}  // namespace cotepe
