// Documents of a file, found by their COO.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Validacao/Paginas.h"

namespace cotepe {

/// Keeps documents in the order in which they came. A document has its COO in `coo` and the number of its
/// line in `linha`. Those whose COOs ascend take no memory that grows; others (a COO that was misread, a
/// counter that began again) take about 90 bytes each.
template <class Documento>
class TabelaPorCoo {
 public:
  /// Adds a document. If there is already one with its COO, that one is still the one found. Valid until the
  /// next call.
  Documento& acrescenta(std::uint32_t coo) {
    Documento novo;
    novo.coo = coo;
    if (emOrdem_.size() != 0 && coo <= maior_) {
      doCoo_.emplace(coo, deslocados_.size());
      deslocados_.push_back(novo);
      return deslocados_.back();
    }
    if (emOrdem_.size() % Paginas<Documento>::kPorPagina == 0) primeiros_.push_back(coo);
    maior_ = coo;
    return emOrdem_.acrescenta(novo);
  }

  /// The document with the COO; null when there is none. Valid until the next call.
  Documento* acha(std::uint32_t coo) {
    Documento* achado = naOrdem(coo);
    if (achado != nullptr || deslocados_.empty()) return achado;
    const auto deslocado = doCoo_.find(coo);
    return deslocado == doCoo_.end() ? nullptr : &deslocados_[deslocado->second];
  }

  /// Passes each document to `ve`, in the order in which they came.
  template <class Funcao>
  void paraCada(const Funcao& ve) {
    std::size_t i = 0;
    for (const Documento& deslocado : deslocados_) {
      for (; i < emOrdem_.size() && emOrdem_.em(i).linha < deslocado.linha; ++i) ve(emOrdem_.em(i));
      ve(deslocado);
    }
    for (; i < emOrdem_.size(); ++i) ve(emOrdem_.em(i));
  }

 private:
  // Most lookups are for the same document again, or for the next one.
  Documento* naOrdem(std::uint32_t coo) {
    if (emOrdem_.size() == 0 || coo > maior_ || coo < primeiros_[0]) return nullptr;
    for (const std::size_t perto : {recente_, recente_ + 1}) {
      if (perto >= emOrdem_.size() || emOrdem_.em(perto).coo != coo) continue;
      recente_ = perto;
      return &emOrdem_.em(perto);
    }
    const std::size_t i = primeiroDe(coo);
    if (i >= emOrdem_.size() || emOrdem_.em(i).coo != coo) return nullptr;
    recente_ = i;
    return &emOrdem_.em(i);
  }

  // The first one of the COO's page whose COO is not less.
  std::size_t primeiroDe(std::uint32_t coo) {
    const auto depois = std::upper_bound(primeiros_.begin(), primeiros_.end(), coo);
    const auto pagina = static_cast<std::size_t>(depois - primeiros_.begin()) - 1;
    std::size_t de = pagina * Paginas<Documento>::kPorPagina;
    std::size_t ate = std::min(emOrdem_.size(), de + Paginas<Documento>::kPorPagina);
    while (de < ate) {
      const std::size_t meio = de + (ate - de) / 2;
      if (emOrdem_.em(meio).coo < coo)
        de = meio + 1;
      else
        ate = meio;
    }
    return de;
  }

  Paginas<Documento> emOrdem_;            // by ascending COO
  std::vector<std::uint32_t> primeiros_;  // the first COO of each page of it
  std::uint32_t maior_ = 0;               // its last COO
  std::size_t recente_ = 0;               // what was found last in it: items of a coupon follow each other
  std::vector<Documento> deslocados_;
  std::unordered_map<std::uint32_t, std::size_t> doCoo_;  // the first one of them
};

}  // namespace cotepe
