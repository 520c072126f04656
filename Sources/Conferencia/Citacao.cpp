#include "Conferencia/Citacao.h"

#include <cstdio>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

constexpr std::size_t kMaximo = 40;

// Bytes of the UTF-8 sequence that the text begins with; 0 where it begins with none.
std::size_t sequencia(std::string_view texto) {
  const auto primeiro = static_cast<unsigned char>(texto[0]);
  if (primeiro < 0x80) return 1;
  if (primeiro < 0xC2 || primeiro > 0xF4) return 0;
  const std::size_t quantos = primeiro < 0xE0 ? 2 : primeiro < 0xF0 ? 3 : 4;
  if (quantos > texto.size()) return 0;
  for (std::size_t i = 1; i < quantos; ++i)
    if ((static_cast<unsigned char>(texto[i]) & 0xC0U) != 0x80U) return 0;
  return quantos;
}

std::string escapado(char c) {
  if (c == '\n') return "\\n";
  if (c == '\r') return "\\r";
  if (c == '\t') return "\\t";
  char hexadecimal[8];
  static_cast<void>(
      std::snprintf(hexadecimal, sizeof hexadecimal, "\\x%02X", static_cast<unsigned>(c) & 0xFFU));
  return hexadecimal;
}

}  // namespace

std::string legivel(std::string_view valor) {
  std::string texto;
  std::size_t i = 0;
  while (i < valor.size()) {
    const std::size_t quantos = sequencia(valor.substr(i));
    if (i + (quantos == 0 ? 1 : quantos) > kMaximo) break;
    if (quantos == 0 || controla(valor[i])) {
      texto += escapado(valor[i++]);
      continue;
    }
    if (valor[i] == '"' || valor[i] == '\\') texto += '\\';
    texto += valor.substr(i, quantos);
    i += quantos;
  }
  return i == valor.size() ? texto : texto + "...";
}

std::string citado(std::string_view valor) {
  const std::string texto = '"' + legivel(valor) + '"';
  return valor.size() <= kMaximo ? texto : frase("{1} of {2} bytes", {texto, std::to_string(valor.size())});
}

std::string enumera(const std::vector<std::string>& itens) {
  if (itens.empty()) return {};
  std::string texto = itens[0];
  for (std::size_t i = 1; i + 1 < itens.size(); ++i) texto += ", " + itens[i];
  return itens.size() == 1 ? texto : frase("{1} and {2}", {texto, itens.back()});
}

}  // namespace cotepe
