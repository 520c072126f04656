#include "Achados/Citacao.h"

#include <algorithm>
#include <cstdio>

#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"

namespace cotepe {
namespace {

constexpr std::size_t kMaximo = 40;         // bytes of a value
constexpr std::size_t kMaximoDeBytes = 60;  // of a report

bool controla(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

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

std::string mostravel(std::string_view bytes) {
  std::string texto(bytes);
  std::replace_if(
      texto.begin(), texto.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return texto;
}

std::string entreAspas(std::string_view bytes) {
  const bool cabe = bytes.size() <= kMaximoDeBytes;
  return '"' + mostravel(bytes.substr(0, kMaximoDeBytes)) + (cabe ? "\"" : "...\"");
}

std::string legivel(std::string_view valor) {
  std::string texto;
  std::size_t i = 0;
  while (i < valor.size()) {
    const std::size_t quantos = sequenciaUtf8(valor.substr(i));
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
