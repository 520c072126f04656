// Numbers with check digits.
#pragma once

#include <string>

#include "Amostra/Aleatorio.h"

namespace cotepe::loja {

// The 9 digits of a CPF with their 2 check digits, and the 12 of a CNPJ with theirs (modulo 11).
std::string comDigitosCpf(std::string base);
std::string comDigitosCnpj(std::string base);

// Drawn at random; never a single repeated digit, whose check digits are right but which is refused all the
// same.
std::string sorteiaCpf(Aleatorio& aleatorio);
std::string sorteiaCnpj(Aleatorio& aleatorio);

}  // namespace cotepe::loja
