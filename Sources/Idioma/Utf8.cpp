#include "Idioma/Utf8.h"

#include <algorithm>

namespace cotepe {
namespace {

bool continua(char c) noexcept { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

std::size_t sequenciaUtf8(std::string_view texto) noexcept {
  if (texto.empty()) return 0;
  const auto primeiro = static_cast<unsigned char>(texto[0]);
  if (primeiro < 0x80) return 1;
  const std::size_t quantos = primeiro >= 0xF0 ? 4 : primeiro >= 0xE0 ? 3 : 2;
  if (primeiro < 0xC2 || primeiro > 0xF4 || quantos > texto.size()) return 0;
  const std::string_view resto = texto.substr(1, quantos - 1);
  if (!std::all_of(resto.begin(), resto.end(), continua)) return 0;
  // Longer than the character needs, a surrogate, or beyond the last character.
  const auto segundo = static_cast<unsigned char>(resto[0]);
  const bool fora = (primeiro == 0xE0 && segundo < 0xA0) || (primeiro == 0xED && segundo > 0x9F) ||
                    (primeiro == 0xF0 && segundo < 0x90) || (primeiro == 0xF4 && segundo > 0x8F);
  return fora ? 0 : quantos;
}

std::size_t caracteresUtf8(std::string_view texto) noexcept {
  return texto.size() - static_cast<std::size_t>(std::count_if(texto.begin(), texto.end(), continua));
}

std::string emUtf8(std::string_view texto) {
  std::string saida;
  saida.reserve(texto.size());
  while (!texto.empty()) {
    const std::size_t quantos = sequenciaUtf8(texto);
    if (quantos != 0) {
      saida += texto.substr(0, quantos);
    } else {
      const auto byte = static_cast<unsigned char>(texto[0]);
      saida += static_cast<char>(0xC0U | (byte >> 6U));
      saida += static_cast<char>(0x80U | (byte & 0x3FU));
    }
    texto.remove_prefix(std::max<std::size_t>(quantos, 1));
  }
  return saida;
}

}  // namespace cotepe
