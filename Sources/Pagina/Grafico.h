// Charts as inline SVG: numbers on hover, no script.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cotepe::pagina {

/// A bar.
struct Barra {
  std::string nome;  ///< for people, without markup
  std::int64_t centavos = 0;
  std::string alvo;  ///< of a link, or nothing
};

/// Vertical bars along time, of the class `serie`; the greatest amount takes the whole height, or `maximo` if
/// that is greater.
std::string graficoNoTempo(const std::string& titulo, const std::vector<Barra>& barras,
                           std::int64_t maximo = 0);

/// Horizontal bars, each after its name.
std::string graficoDeitado(const std::string& titulo, const std::vector<Barra>& barras);

}  // namespace cotepe::pagina
