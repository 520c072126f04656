#include "Leitor/NumeroFiscal.h"

#include <algorithm>

namespace cotepe {
namespace {

// The digit that the `quantos` digits from `inicio` on ask for: they are weighted 2, 3, ... from the last one
// back, starting again at 2 after `maiorPeso`.
char digitoDe(std::string_view digitos, std::size_t inicio, std::size_t quantos, int maiorPeso) noexcept {
  int soma = 0, peso = 2;
  for (std::size_t i = inicio + quantos; i-- > inicio;) {
    soma += (digitos[i] - '0') * peso;
    peso = peso == maiorPeso ? 2 : peso + 1;
  }
  const int resto = soma % 11;
  return static_cast<char>(resto < 2 ? '0' : '0' + 11 - resto);
}

}  // namespace

bool soZeros(std::string_view digitos) noexcept {
  return std::all_of(digitos.begin(), digitos.end(), [](char c) { return c == '0'; });
}

bool cnpjValido(std::string_view digitos) noexcept {
  return digitos.size() == 14 && digitos[12] == digitoDe(digitos, 0, 12, 9) &&
         digitos[13] == digitoDe(digitos, 0, 13, 9);
}

bool cpfValido(std::string_view digitos) noexcept {
  return digitos.size() == 14 && digitos.compare(0, 3, "000") == 0 &&
         digitos[12] == digitoDe(digitos, 3, 9, 11) && digitos[13] == digitoDe(digitos, 3, 10, 11);
}

}  // namespace cotepe
