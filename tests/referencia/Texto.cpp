// Plain text helpers of the second reading.
#include "referencia/Texto.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <vector>

namespace referencia {
namespace {

// The C locale, whatever the process has set.
locale_t localeC() {
  static const locale_t kLocaleC = newlocale(LC_ALL_MASK, "C", nullptr);
  if (kLocaleC == nullptr) throw std::runtime_error("no C locale");
  return kLocaleC;
}

// What printf writes; nothing here is wider than a double with all its digits.
template <typename... Valores>
std::string imprime(const char* formato, Valores... valores) {
  std::array<char, 1000> texto{};
  const int tamanho = std::snprintf(texto.data(), texto.size(), formato, valores...);
  if (tamanho < 0 || static_cast<std::size_t>(tamanho) >= texto.size()) throw std::runtime_error("snprintf");
  return texto.data();
}

// The characters of `texto` at the positions given, up to the first one that lies beyond its end.
std::string posicoes(const std::string& texto, const std::vector<std::size_t>& quais) {
  std::string escolhidos;
  for (const std::size_t posicao : quais) {
    if (posicao >= texto.size()) break;
    escolhidos += texto[posicao];
  }
  return escolhidos;
}

}  // namespace

std::string esquerda(const std::string& texto, int largura) {
  std::string campo = texto;
  while (campo.size() < static_cast<std::size_t>(largura)) campo += ' ';
  return campo;
}

std::string brancos(int largura) { return esquerda(" ", largura); }

std::string zeros(std::int64_t valor, int largura) {
  return imprime("%0*lld", largura, static_cast<long long>(valor));
}

std::string semSinal(std::int64_t valor, int largura) {
  return imprime("%0*llu", largura, static_cast<unsigned long long>(valor));
}

std::int64_t inteiro(const std::string& texto) { return std::strtoll(texto.c_str(), nullptr, 10); }

double decimal(const std::string& texto) { return strtod_l(texto.c_str(), nullptr, localeC()); }

int arredonda(double x) {
  if (std::isnan(x)) return 0;
  const double inteira = std::trunc(x > 0 ? x + 0.5 : x - 0.5);
  if (inteira >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  if (inteira <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  return static_cast<int>(inteira);
}

std::string duasCasas(double valor) {
  const locale_t anterior = uselocale(localeC());
  std::string texto = imprime("%11.2f", valor);
  uselocale(anterior);
  return texto;
}

std::string formataData(const std::string& texto) { return posicoes(texto, {0, 1, 2, 3, 5, 6, 8, 9}); }

std::string formataHora(const std::string& texto) { return posicoes(texto, {11, 12, 14, 15, 17, 18}); }

std::string remove(const std::string& texto, char c) {
  std::string resto;
  for (const char letra : texto)
    if (letra != c) resto += letra;
  return resto;
}

std::string troca(const std::string& texto, char de, char para) {
  std::string trocado = texto;
  for (char& letra : trocado)
    if (letra == de) letra = para;
  return trocado;
}

std::string removeNaoAscii(const std::string& texto) {
  std::string limpo = texto;
  for (char& letra : limpo)
    if (static_cast<signed char>(letra) <= 31) letra = ' ';
  return limpo;
}

std::string preenche(const std::string& texto, int largura) {
  return limita(esquerda(texto, largura), static_cast<std::size_t>(largura));
}

std::string limita(const std::string& texto, std::size_t maximo) { return texto.substr(0, maximo); }

}  // namespace referencia
