#include "Amostra/Digitos.h"

#include <cstddef>
#include <utility>

#include "Leiaute/NumeroFiscal.h"

namespace cotepe::loja {
namespace {

std::string comDigitos(std::string base, int maiorPeso) {
  base += digitoVerificador(base, maiorPeso);
  base += digitoVerificador(base, maiorPeso);
  return base;
}

std::string sorteiaBase(Aleatorio& aleatorio, std::size_t digitos) {
  std::string base(digitos, '0');
  for (auto& digito : base) digito = static_cast<char>('0' + aleatorio.entre(0, 9));
  return base;
}

}  // namespace

std::string comDigitosCpf(std::string base) { return comDigitos(std::move(base), kMaiorPesoDoCpf); }
std::string comDigitosCnpj(std::string base) { return comDigitos(std::move(base), kMaiorPesoDoCnpj); }

std::string sorteiaCpf(Aleatorio& aleatorio) {
  auto base = sorteiaBase(aleatorio, 9);
  while (base == std::string(9, base[0])) base = sorteiaBase(aleatorio, 9);
  return comDigitosCpf(std::move(base));
}

std::string sorteiaCnpj(Aleatorio& aleatorio) { return comDigitosCnpj(sorteiaBase(aleatorio, 8) + "0001"); }

}  // namespace cotepe::loja
