#include "Sugestao.h"

#include <algorithm>
#include <numeric>

#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

constexpr std::size_t kMaximo = 40;  // of a word worth comparing

char minuscula(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string minusculas(std::string_view texto) {
  std::string todas(texto);
  std::transform(todas.begin(), todas.end(), todas.begin(), minuscula);
  return todas;
}

// How many letters must be inserted, deleted, replaced or swapped with their neighbour.
std::size_t distancia(const std::string& a, const std::string& b) {
  std::vector<std::size_t> antes, linha(b.size() + 1), nova(b.size() + 1);
  std::iota(linha.begin(), linha.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    nova[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      nova[j] = std::min({linha[j] + 1, nova[j - 1] + 1, linha[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        nova[j] = std::min(nova[j], antes[j - 2] + 1);
    }
    antes = linha;
    linha = nova;
  }
  return linha[b.size()];
}

bool comeca(const std::string& texto, const std::string& inicio) {
  return inicio.size() > 1 && texto.compare(0, inicio.size(), inicio) == 0;
}

}  // namespace

std::string maisParecida(std::string_view palavra, const std::vector<std::string>& candidatas) {
  const std::string procurada = minusculas(palavra.substr(0, kMaximo));
  std::size_t menor = std::max<std::size_t>(1, procurada.size() / 3) + 1;
  std::string achada;
  if (procurada.size() < 2) return achada;
  for (const std::string& candidata : candidatas) {
    const std::string outra = minusculas(candidata);
    const std::size_t quantas = comeca(outra, procurada) ? 1 : distancia(procurada, outra);
    if (quantas >= menor) continue;
    menor = quantas;
    achada = candidata;
  }
  return achada;
}

std::string voceQuisDizer(std::string_view palavra, const std::vector<std::string>& candidatas) {
  const std::string achada = maisParecida(palavra, candidatas);
  return achada.empty() ? achada : frase(" (did you mean {1}?)", {achada});
}

}  // namespace cotepe::programa
