// The check digits of the numbers of taxpayers and consumers, as fields of 14 digits.
#pragma once

#include <string_view>

namespace cotepe {

///@{
/// The weights of the digits before a check digit rise from 2 at the last one up to this, and then start
/// again.
constexpr int kMaiorPesoDoCnpj = 9, kMaiorPesoDoCpf = 11;
///@}

/// The check digit (modulo 11) that belongs to the digits.
char digitoVerificador(std::string_view digitos, int maiorPeso) noexcept;

/// The fields hold 14 digits; a CPF has three leading zeros.
bool cnpjValido(std::string_view digitos) noexcept;
bool cpfValido(std::string_view digitos) noexcept;

/// An absent number.
bool soZeros(std::string_view digitos) noexcept;

}  // namespace cotepe
