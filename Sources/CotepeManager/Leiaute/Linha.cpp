#include "Leiaute/Linha.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace cotepe {
namespace {

constexpr std::size_t kDigitosMaximos = 20;  // of 2^64 - 1

constexpr auto kPares = [] {
  std::array<char, 200> pares{};
  for (std::size_t i = 0; i < 100; ++i) {
    pares[2 * i] = static_cast<char>('0' + i / 10);
    pares[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pares;
}();

// The smallest number of more digits than the index.
constexpr auto kPotencias = [] {
  std::array<std::uint64_t, kDigitosMaximos> potencias{};
  std::uint64_t potencia = 1;
  for (std::uint64_t& p : potencias) {
    p = potencia;
    potencia *= 10;
  }
  return potencias;
}();

// How many digits `valor` has; none for zero, which zero-filling supplies.
std::size_t digitosDe(std::uint64_t valor) noexcept {
  std::size_t digitos = 0;
  while (digitos < kPotencias.size() && valor >= kPotencias[digitos]) ++digitos;
  return digitos;
}

// Writes the digits of `valor` backwards, two at a time, so that they end before `fim`.
void poeDigitos(char* fim, std::uint64_t valor) noexcept {
  while (valor >= 10) {
    fim -= 2;
    std::memcpy(fim, &kPares[2 * static_cast<std::size_t>(valor % 100)], 2);
    valor /= 100;
  }
  if (valor != 0) *--fim = static_cast<char>('0' + valor);
}

// Copies the digits that `texto` begins with, `maximo` at most, and returns how many there were.
std::size_t copiaDigitos(char* destino, const char* texto, std::size_t maximo) noexcept {
  std::size_t digitos = 0;
  for (char c = *texto; c >= '0' && c <= '9' && digitos < maximo; c = texto[digitos]) destino[digitos++] = c;
  return digitos;
}

}  // namespace

void Linha::cresce(std::size_t necessario) { buffer_.resize(std::max(necessario, 2 * buffer_.size())); }

void Linha::vaiPara(std::size_t posicao) noexcept {
  estado_.cursor = posicao;
  estado_.terminada = posicao > estado_.fim;
}

void Linha::poe(std::string_view texto, std::size_t nominal) {
  char* destino = espaco(texto.size());
  if (!texto.empty()) std::memcpy(destino, texto.data(), texto.size());
  avanca(texto.size(), nominal);
}

void Linha::poeTexto(std::string_view texto, std::size_t largura, std::size_t nominal) {
  const std::size_t total = std::max(texto.size(), largura);
  char* destino = espaco(total);
  if (!texto.empty()) std::memcpy(destino, texto.data(), texto.size());
  std::memset(destino + texto.size(), ' ', total - texto.size());
  avanca(total, nominal);
}

void Linha::poeRepetido(char c, std::size_t quantos, std::size_t nominal) {
  std::memset(espaco(quantos), c, quantos);
  avanca(quantos, nominal);
}

std::size_t Linha::escreveSemSinal(std::uint64_t valor, std::size_t largura) {
  const bool cabe = largura < kPotencias.size() && valor < kPotencias[largura];
  const std::size_t total = cabe ? largura : std::max(largura, digitosDe(valor));
  char* destino = espaco(std::max(total, kDigitosMaximos));
  if (total <= kDigitosMaximos)
    std::memset(destino, '0', kDigitosMaximos);  // a size known at compile time: two instructions
  else
    std::memset(destino, '0', total);
  poeDigitos(destino + total, valor);
  return total;
}

bool Linha::escreveDigitos(const char* texto, std::size_t casas, std::size_t largura) {
  if (largura < casas || largura > kDigitosMaximos) return false;
  char area[2 * kDigitosMaximos];  // zeros, the digits without their point, zeros
  std::memset(area, '0', sizeof area);
  char* fim = area + kDigitosMaximos;
  const std::size_t inteiros = copiaDigitos(fim, texto, largura - casas);
  texto += inteiros;
  fim += inteiros;
  if (casas != 0 && *texto == '.') texto += copiaDigitos(fim, texto + 1, casas) + 1;
  if (*texto != '\0') return false;
  // A size known at compile time, including the zeros after the field: two instructions.
  std::memcpy(espaco(kDigitosMaximos), fim + casas - largura, kDigitosMaximos);
  return true;
}

std::size_t Linha::escreveNumero(std::int64_t valor, std::size_t largura) {
  if (valor >= 0) return escreveSemSinal(static_cast<std::uint64_t>(valor), largura);
  const std::size_t total =
      escreveSemSinal(0 - static_cast<std::uint64_t>(valor), largura == 0 ? 0 : largura - 1);
  char* destino = espaco(total + 1);
  std::memmove(destino + 1, destino, total);
  *destino = '-';
  return total + 1;
}

std::string_view Linha::comFimDeLinha() noexcept {
  buffer_[estado_.fim] = '\n';
  return {buffer_.data(), estado_.fim + 1};
}

}  // namespace cotepe
