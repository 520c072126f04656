#include "Amostra/Digitos.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace cotepe::loja {
namespace {

// The weights rise from 2 at the last digit and begin again after `pesoMaximo`.
char digitoModulo11(const std::string& numero, int pesoMaximo) {
  int soma = 0;
  int peso = 2;
  for (auto digito = numero.rbegin(); digito != numero.rend(); ++digito) {
    soma += (*digito - '0') * peso;
    peso = peso == pesoMaximo ? 2 : peso + 1;
  }
  const int resto = soma % 11;
  return static_cast<char>('0' + (resto < 2 ? 0 : 11 - resto));
}

std::string comDigitos(std::string base, int pesoMaximo) {
  base += digitoModulo11(base, pesoMaximo);
  base += digitoModulo11(base, pesoMaximo);
  return base;
}

std::string sorteiaBase(Aleatorio& aleatorio, std::size_t digitos) {
  std::string base(digitos, '0');
  for (auto& digito : base) digito = static_cast<char>('0' + aleatorio.entre(0, 9));
  return base;
}

}  // namespace

std::string comDigitosCpf(std::string base) { return comDigitos(std::move(base), 11); }
std::string comDigitosCnpj(std::string base) { return comDigitos(std::move(base), 9); }

std::string sorteiaCpf(Aleatorio& aleatorio) {
  auto base = sorteiaBase(aleatorio, 9);
  while (base == std::string(9, base[0])) base = sorteiaBase(aleatorio, 9);
  return comDigitosCpf(std::move(base));
}

std::string sorteiaCnpj(Aleatorio& aleatorio) { return comDigitosCnpj(sorteiaBase(aleatorio, 8) + "0001"); }

}  // namespace cotepe::loja
