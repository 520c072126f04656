#include "Validacao/TabelaDeDocumentos.h"

#include <algorithm>

namespace cotepe {

// Where the COO stands in the index, or where it would.
std::size_t TabelaDeDocumentos::lugar(std::uint32_t coo) const {
  const std::size_t mascara = indice_.size() - 1;
  std::size_t i = static_cast<std::size_t>(coo * std::uint64_t{0x9E3779B97F4A7C15U} >> 32) & mascara;
  while (indice_[i] != 0 && documentos_[indice_[i] - 1].coo != coo) i = (i + 1) & mascara;
  return i;
}

void TabelaDeDocumentos::dobra() {
  indice_.assign(std::max<std::size_t>(1024, 2 * indice_.size()), 0);
  for (std::uint32_t i = 0; i < documentos_.size(); ++i) {
    const std::size_t livre = lugar(documentos_[i].coo);
    if (indice_[livre] == 0) indice_[livre] = i + 1;
  }
}

Documento& TabelaDeDocumentos::acrescenta(std::uint32_t coo) {
  if (2 * (documentos_.size() + 1) > indice_.size()) dobra();
  documentos_.emplace_back();
  documentos_.back().coo = coo;
  const std::size_t livre = lugar(coo);
  if (indice_[livre] == 0) indice_[livre] = static_cast<std::uint32_t>(documentos_.size());
  return documentos_.back();
}

Documento* TabelaDeDocumentos::acha(std::uint32_t coo) {
  if (documentos_.empty()) return nullptr;
  if (documentos_[recente_].coo != coo) {
    const std::size_t achado = lugar(coo);
    if (indice_[achado] == 0) return nullptr;
    recente_ = indice_[achado] - 1;
  }
  return &documentos_[recente_];
}

}  // namespace cotepe
