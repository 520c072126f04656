#include "Modelo.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <ostream>
#include <regex>

namespace {

// Properties run over more cases than RapidCheck's hundred, unless the caller says how many.
[[maybe_unused]] const int kCasos = setenv("RC_PARAMS", "max_success=1000", 0);

const Inteiro kMaximo = (Inteiro(1) << 95) - 1;
const Inteiro kMinimo = -kMaximo - 1;

// Leading zeros would make an octal number.
Inteiro deDigitos(std::string digitos) {
  digitos.erase(0, std::min(digitos.find_first_not_of('0'), digitos.size()));
  return digitos.empty() ? Inteiro(0) : Inteiro(digitos);
}

BigInt deslocado(unsigned bits, int perto) { return bigInt(satura((Inteiro(1) << bits) + perto)); }

}  // namespace

Inteiro inteiro(const BigInt& valor) {
  Inteiro resultado = valor.number[2];
  resultado = (resultado << 32) + valor.number[1];
  resultado = (resultado << 32) + valor.number[0];
  return resultado > kMaximo ? resultado - (Inteiro(1) << 96) : resultado;
}

BigInt bigInt(const Inteiro& valor) {
  const Inteiro bits = valor < 0 ? valor + (Inteiro(1) << 96) : valor;
  const auto palavra = [&](unsigned i) { return static_cast<UINT32>((bits >> (32 * i)) & 0xFFFFFFFFU); };
  return BigInt().Load(palavra(0), palavra(1), palavra(2));
}

Inteiro satura(const Inteiro& valor) { return std::clamp(valor, kMinimo, kMaximo); }

INT64 satura64(const Inteiro& valor) {
  using Limites = std::numeric_limits<INT64>;
  return static_cast<INT64>(std::clamp(valor, Inteiro(Limites::min()), Inteiro(Limites::max())));
}

Inteiro arredonda(const Inteiro& numerador, const Inteiro& denominador) {
  const Inteiro n = abs(numerador);
  const Inteiro d = abs(denominador);
  const Inteiro q = (2 * n + d) / (2 * d);
  return (numerador < 0) != (denominador < 0) ? -q : q;
}

const Inteiro kEscala = Inteiro(1) << 1074;

Inteiro escalado(double valor) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &valor, sizeof bits);
  const auto expoente = static_cast<unsigned>(bits >> 52U & 0x7FFU);
  const std::uint64_t fracao = bits & ((std::uint64_t{1} << 52U) - 1);
  const Inteiro modulo =
      expoente == 0 ? Inteiro(fracao) : Inteiro(fracao | std::uint64_t{1} << 52U) << (expoente - 1);
  return bits >> 63U != 0 ? -modulo : modulo;
}

Inteiro potenciaDeDez(unsigned expoente) { return pow(Inteiro(10), expoente); }

Inteiro leTexto(const std::string& texto) {
  static const std::regex kNumero(" *([+-]?)(?:([0-9]+)(?:,([0-9]*))?|,([0-9]+))(?:[eE]([+-]?)([0-9]+))? *");
  std::smatch partes;
  if (!std::regex_match(texto, partes, kNumero)) return 0;
  const std::string decimais = partes[3].str() + partes[4].str();
  Inteiro valor = deDigitos(partes[2].str() + decimais);
  if (partes[1] == "-") valor = -valor;
  // No text of a test has the thousand digits that a larger exponent could still move into range.
  const int expoente = static_cast<int>(std::min(deDigitos(partes[6]), Inteiro(1000)));
  const int casas = (partes[5] == "-" ? -expoente : expoente) + 2 - static_cast<int>(decimais.size());
  return satura(casas >= 0 ? valor * potenciaDeDez(static_cast<unsigned>(casas))
                           : arredonda(valor, potenciaDeDez(static_cast<unsigned>(-casas))));
}

std::string troca(std::string texto, char de, char para) {
  std::replace(texto.begin(), texto.end(), de, para);
  return texto;
}

void showValue(const BigInt& valor, std::ostream& saida) { saida << inteiro(valor); }
void showValue(const Financial& valor, std::ostream& saida) { saida << inteiro(valor.nr) << " cents"; }
void PrintTo(const BigInt& valor, std::ostream* saida) { showValue(valor, *saida); }
void PrintTo(const Financial& valor, std::ostream* saida) { showValue(valor, *saida); }

rc::Gen<BigInt> rc::Arbitrary<BigInt>::arbitrary() {
  const auto qualquer = gen::map(gen::arbitrary<std::array<UINT32, 3>>(),
                                 [](const auto& p) { return BigInt().Load(p[0], p[1], p[2]); });
  const auto pequeno = gen::map(gen::arbitrary<INT32>(), [](INT32 v) { return BigInt(v); });
  const auto medio = gen::map(gen::arbitrary<INT64>(), [](INT64 v) { return BigInt(v); });
  const auto potencia =
      gen::apply(deslocado, gen::inRange(0U, 96U), gen::inRange(-3, 4));  // the last one is the upper end
  const auto oposto = gen::map(potencia, [](const BigInt& v) { return bigInt(-inteiro(v)); });
  const auto embaixo = gen::map(gen::inRange(0, 5), [](int v) { return bigInt(kMinimo + v); });
  return gen::oneOf(qualquer, pequeno, medio, potencia, oposto, embaixo);
}

rc::Gen<Financial> rc::Arbitrary<Financial>::arbitrary() {
  return gen::map(gen::arbitrary<BigInt>(), [](const BigInt& v) { return Financial::DeCentavos(v); });
}
