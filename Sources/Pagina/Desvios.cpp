#include "Pagina/Desvios.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace cotepe::pagina {
namespace {

constexpr std::size_t kMenosDias = 5;
constexpr std::int64_t kUmPorCento = 100;

// For an even number, the lower of the two in the middle.
std::int64_t mediana(std::vector<std::int64_t>& valores) {
  const auto meio = valores.begin() + static_cast<std::ptrdiff_t>((valores.size() - 1) / 2);
  std::nth_element(valores.begin(), meio, valores.end());
  return *meio;
}

}  // namespace

std::int64_t proporcaoDe(std::int64_t parte, std::int64_t bruta) {
  if (bruta <= 0) return 0;
  return std::llround(static_cast<double>(parte) / static_cast<double>(bruta) * 10000.0);
}

std::int64_t limiteDosDesvios(std::vector<std::int64_t> proporcoes) {
  if (proporcoes.size() < kMenosDias) return -1;
  const std::int64_t meio = mediana(proporcoes);
  for (std::int64_t& proporcao : proporcoes) proporcao = std::abs(proporcao - meio);
  const std::int64_t desvio = mediana(proporcoes) * 44478 / 10000;  // three times 1.4826
  return meio + std::max(desvio, kUmPorCento);
}

}  // namespace cotepe::pagina
