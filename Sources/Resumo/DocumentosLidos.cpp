#include "Resumo/DocumentosLidos.h"

#include <algorithm>

namespace cotepe {

void DocumentosLidos::anota(std::int64_t contador, std::string_view dia, bool cancelado) {
  if (!trechos_.empty()) {
    Trecho& atual = trechos_.back();
    if (contador == atual.ate + 1 && atual.documento.dia == dia && atual.documento.cancelado == cancelado) {
      atual.ate = contador;
      return;
    }
    ordenado_ = ordenado_ && contador > atual.ate;
  }
  trechos_.push_back({contador, contador, {std::string(dia), cancelado}});
}

// If a counter occurs twice, the first document counts.
void DocumentosLidos::ordena() const {
  if (ordenado_) return;
  std::stable_sort(trechos_.begin(), trechos_.end(),
                   [](const Trecho& a, const Trecho& b) { return a.de < b.de; });
  ordenado_ = true;
  ultimo_ = 0;
}

const DocumentoLido* DocumentosLidos::acha(std::int64_t contador) const {
  if (trechos_.empty()) return nullptr;
  ordena();
  const auto tem = [contador](const Trecho& t) { return contador >= t.de && contador <= t.ate; };
  if (tem(trechos_[ultimo_])) return &trechos_[ultimo_].documento;
  const auto depois = std::upper_bound(trechos_.begin(), trechos_.end(), contador,
                                       [](std::int64_t valor, const Trecho& t) { return valor < t.de; });
  if (depois == trechos_.begin() || !tem(*(depois - 1))) return nullptr;
  ultimo_ = static_cast<std::size_t>(depois - 1 - trechos_.begin());
  return &trechos_[ultimo_].documento;
}

}  // namespace cotepe
