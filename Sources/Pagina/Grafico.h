// Plots as inline SVG: numbers on hover, no script.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cotepe::pagina {

/// A bar.
struct Barra {
  std::string nome;  ///< as people read it, no markup
  std::int64_t centavos = 0;
  std::string alvo;  ///< of a link, or nothing
};

/// Standing bars along time, of the class `serie`; the greatest amount of any takes the whole height, or
/// `maximo` where that is greater.
std::string graficoNoTempo(const std::string& titulo, const std::vector<Barra>& barras,
                           std::int64_t maximo = 0);

/// Lying bars, the name before each.
std::string graficoDeitado(const std::string& titulo, const std::vector<Barra>& barras);

}  // namespace cotepe::pagina
