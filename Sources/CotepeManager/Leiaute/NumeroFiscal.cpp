#include "Leiaute/NumeroFiscal.h"

#include <algorithm>

namespace cotepe {

char digitoVerificador(std::string_view digitos, int maiorPeso) noexcept {
  int soma = 0, peso = 2;
  for (std::size_t i = digitos.size(); i-- > 0;) {
    soma += (digitos[i] - '0') * peso;
    peso = peso == maiorPeso ? 2 : peso + 1;
  }
  const int resto = soma % 11;
  return static_cast<char>(resto < 2 ? '0' : '0' + 11 - resto);
}

bool soZeros(std::string_view digitos) noexcept {
  return std::all_of(digitos.begin(), digitos.end(), [](char c) { return c == '0'; });
}

bool cnpjValido(std::string_view digitos) noexcept {
  return digitos.size() == 14 && digitos[12] == digitoVerificador(digitos.substr(0, 12), kMaiorPesoDoCnpj) &&
         digitos[13] == digitoVerificador(digitos.substr(0, 13), kMaiorPesoDoCnpj);
}

bool cpfValido(std::string_view digitos) noexcept {
  return digitos.size() == 14 && digitos.compare(0, 3, "000") == 0 &&
         digitos[12] == digitoVerificador(digitos.substr(3, 9), kMaiorPesoDoCpf) &&
         digitos[13] == digitoVerificador(digitos.substr(3, 10), kMaiorPesoDoCpf);
}

}  // namespace cotepe
