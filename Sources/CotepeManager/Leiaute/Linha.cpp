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

// Writes the digits of `valor` backwards, two at a time, so that they end before `fim`; returns where they
// begin. Zero has no digit here: zero-filling supplies it.
char* escreveDigitos(char* fim, std::uint64_t valor) noexcept {
  while (valor >= 10) {
    fim -= 2;
    std::memcpy(fim, &kPares[2 * (valor % 100)], 2);
    valor /= 100;
  }
  if (valor != 0) *--fim = static_cast<char>('0' + valor);
  return fim;
}

}  // namespace

void Linha::cresce(std::size_t necessario) { buffer_.resize(std::max(necessario, 2 * buffer_.size())); }

char* Linha::espaco(std::size_t tamanho) {
  const std::size_t necessario = estado_.cursor + tamanho + 1;
  if (necessario > buffer_.size()) cresce(necessario);
  return buffer_.data() + estado_.cursor;
}

void Linha::avanca(std::size_t escritos, std::size_t nominal) noexcept {
  if (!estado_.terminada) {
    estado_.fim = estado_.cursor + escritos;
    estado_.terminada = escritos < nominal;
  }
  estado_.cursor += nominal;
}

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
  std::array<char, kDigitosMaximos> digitos;
  char* const fim = digitos.data() + digitos.size();
  const char* inicio = escreveDigitos(fim, valor);
  const auto significativos = static_cast<std::size_t>(fim - inicio);
  const std::size_t total = std::max(significativos, largura);
  char* destino = espaco(total);
  std::memset(destino, '0', total - significativos);
  std::memcpy(destino + (total - significativos), inicio, significativos);
  return total;
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
