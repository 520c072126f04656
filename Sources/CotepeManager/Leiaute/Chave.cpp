#include "Leiaute/Chave.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace cotepe {
namespace {

constexpr struct {
  std::string_view escrito, ascii;
} kEmAscii[] = {{"Nº", "numero"}, {"á", "a"}, {"â", "a"}, {"ã", "a"}, {"à", "a"}, {"ç", "c"},
                {"é", "e"},       {"ê", "e"}, {"í", "i"}, {"ó", "o"}, {"ô", "o"}, {"õ", "o"},
                {"ú", "u"},       {"É", "e"}, {"Í", "i"}, {"Ó", "o"}};

bool maiuscula(char c) { return c >= 'A' && c <= 'Z'; }
char minuscula(char c) { return maiuscula(c) ? static_cast<char>(c - 'A' + 'a') : c; }

// Takes the character, or the abbreviation, that the label begins with.
std::string tira(std::string_view& rotulo) {
  for (const auto& [escrito, ascii] : kEmAscii) {
    if (rotulo.substr(0, escrito.size()) != escrito) continue;
    rotulo.remove_prefix(escrito.size());
    return std::string(ascii);
  }
  const char c = minuscula(rotulo.front());
  rotulo.remove_prefix(1);
  return {c};
}

void junta(std::string& chave, const std::string& palavra) {
  static constexpr std::array<std::string_view, 6> kLigacoes = {"de", "do", "da", "dos", "das", "e"};
  if (palavra.empty() || std::find(kLigacoes.begin(), kLigacoes.end(), palavra) != kLigacoes.end()) return;
  chave += (chave.empty() ? "" : "_") + palavra;
}

bool daPalavra(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

}  // namespace

std::string chaveDe(const Campo& campo) {
  std::string_view rotulo = campo.rotulo;
  if (const std::size_t abre = rotulo.find('('); abre != std::string_view::npos) {
    const std::string_view sigla = rotulo.substr(abre + 1, rotulo.find(')') - abre - 1);
    const bool abrevia = std::all_of(sigla.begin(), sigla.end(), maiuscula);
    rotulo = abrevia ? sigla : rotulo.substr(0, abre);
  }
  std::string chave, palavra;
  while (!rotulo.empty()) {
    const std::string letras = tira(rotulo);
    if (daPalavra(letras.front())) {
      palavra += letras;
      continue;
    }
    junta(chave, std::exchange(palavra, {}));
  }
  junta(chave, palavra);
  return chave;
}

}  // namespace cotepe
