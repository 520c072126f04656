#include "Validacao/TabelaDeDocumentos.h"

#include <algorithm>

namespace cotepe {

Documento& TabelaDeDocumentos::acrescenta(std::uint32_t coo) {
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

Documento* TabelaDeDocumentos::acha(std::uint32_t coo) {
  Documento* achado = naOrdem(coo);
  if (achado != nullptr || deslocados_.empty()) return achado;
  const auto deslocado = doCoo_.find(coo);
  return deslocado == doCoo_.end() ? nullptr : &deslocados_[deslocado->second];
}

Documento* TabelaDeDocumentos::naOrdem(std::uint32_t coo) {
  if (emOrdem_.size() == 0 || coo > maior_ || coo < primeiros_[0]) return nullptr;
  for (const std::size_t perto : {recente_, recente_ + 1}) {
    if (perto >= emOrdem_.size() || emOrdem_.em(perto).coo != coo) continue;
    recente_ = perto;
    return &emOrdem_.em(perto);
  }
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
  if (de >= emOrdem_.size() || emOrdem_.em(de).coo != coo) return nullptr;
  recente_ = de;
  return &emOrdem_.em(de);
}

}  // namespace cotepe
