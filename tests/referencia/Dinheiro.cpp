// The money text of the second reading, worked out on the decimal digits themselves.
#include <algorithm>
#include <cstdlib>

#include "referencia/Texto.h"

namespace referencia {
namespace {

// A number as it is written: its sign, its digits and the power of ten of the last one.
struct Numero {
  bool negativo = false;
  std::string digitos;  // empty: the text is no number
  long long expoente = 0;
};

bool digito(char c) { return c >= '0' && c <= '9'; }

std::string tiraDigitos(const std::string& texto, std::size_t& posicao) {
  std::string digitos;
  while (posicao < texto.size() && digito(texto[posicao])) digitos += texto[posicao++];
  return digitos;
}

bool sinal(const std::string& texto, std::size_t& posicao) {
  if (posicao >= texto.size()) return false;
  if (texto[posicao] != '+' && texto[posicao] != '-') return false;
  return texto[posicao++] == '-';
}

// Enough for every text: whoever is this far from zero is zero or saturated, whatever its digits.
constexpr long long kExpoenteMaximo = 1'000'000'000'000;

// Blanks around; a sign; digits with at most one comma, on one side of it at least; "e" or "E" with a sign
// and digits. Anything else is no number.
Numero le(const std::string& texto) {
  const std::string kBrancos = " ";
  const std::size_t primeiro = texto.find_first_not_of(kBrancos);
  if (primeiro == std::string::npos) return {};
  const std::string miolo = texto.substr(primeiro, texto.find_last_not_of(kBrancos) - primeiro + 1);

  Numero numero;
  std::size_t posicao = 0;
  numero.negativo = sinal(miolo, posicao);
  const std::string inteira = tiraDigitos(miolo, posicao);
  std::string fracao;
  if (posicao < miolo.size() && miolo[posicao] == ',') {
    posicao++;
    fracao = tiraDigitos(miolo, posicao);
  }
  if (inteira.empty() && fracao.empty()) return {};

  long long expoente = 0;
  if (posicao < miolo.size() && (miolo[posicao] == 'e' || miolo[posicao] == 'E')) {
    posicao++;
    const bool negativo = sinal(miolo, posicao);
    const std::string digitos = tiraDigitos(miolo, posicao);
    if (digitos.empty()) return {};
    expoente = std::min(std::strtoll(digitos.c_str(), nullptr, 10), kExpoenteMaximo);
    if (negativo) expoente = -expoente;
  }
  if (posicao != miolo.size()) return {};

  numero.digitos = inteira + fracao;
  numero.expoente = expoente - static_cast<long long>(fracao.size());
  return numero;
}

std::string semZerosAEsquerda(const std::string& digitos) {
  const std::size_t primeiro = digitos.find_first_not_of('0');
  return primeiro == std::string::npos ? "0" : digitos.substr(primeiro);
}

std::string maisUm(std::string digitos) {
  for (std::size_t i = digitos.size(); i-- > 0;) {
    if (digitos[i] != '9') {
      digitos[i]++;
      return digitos;
    }
    digitos[i] = '0';
  }
  return "1" + digitos;
}

// The digits without their last `quantos`; the first digit cut decides the rounding, half away from zero.
std::string corta(const std::string& digitos, long long quantos) {
  const auto tamanho = static_cast<long long>(digitos.size());
  if (quantos > tamanho) return "0";
  const std::string ficam = "0" + digitos.substr(0, static_cast<std::size_t>(tamanho - quantos));
  const char primeiroCortado = digitos[static_cast<std::size_t>(tamanho - quantos)];
  return primeiroCortado >= '5' ? maisUm(ficam) : ficam;
}

bool maior(const std::string& a, const std::string& b) {
  return a.size() != b.size() ? a.size() > b.size() : a > b;
}

}  // namespace

std::int64_t centavos(const std::string& texto) {
  const Numero numero = le(troca(texto, '.', ','));
  if (semZerosAEsquerda(numero.digitos) == "0") return 0;

  // In cents: two places to the left.
  std::string digitos = semZerosAEsquerda(numero.digitos);
  const long long deslocamento = numero.expoente + 2;
  if (deslocamento < 0)
    digitos = semZerosAEsquerda(corta(digitos, -deslocamento));
  else
    digitos += std::string(static_cast<std::size_t>(std::min(deslocamento, 100LL)), '0');

  // The type holds 96 bits with sign: from -2^95 to 2^95 - 1 cents.
  const std::string limite =
      numero.negativo ? "39614081257132168796771975168" : "39614081257132168796771975167";
  if (maior(digitos, limite)) digitos = limite;

  return inteiro((numero.negativo ? "-" : "") + digitos);
}

}  // namespace referencia
