// The check digits of the numbers of taxpayers and consumers, as fields of 14 digits.
#pragma once

#include <string_view>

namespace cotepe {

/// The fields hold 14 digits; a CPF has three zeros in front.
bool cnpjValido(std::string_view digitos) noexcept;
bool cpfValido(std::string_view digitos) noexcept;

/// An absent number.
bool soZeros(std::string_view digitos) noexcept;

}  // namespace cotepe
