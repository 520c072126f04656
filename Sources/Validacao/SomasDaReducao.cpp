#include "Validacao/SomasDaReducao.h"

#include <algorithm>

namespace cotepe {

bool ReducoesPorCoo::acrescenta(std::int64_t crz, std::int64_t coo, long linha) {
  if (!reducoes_.empty() && (crz <= crzs_.back() || coo <= reducoes_.back().coo)) servem_ = false;
  if (!servem_) return false;
  crzs_.push_back(crz);
  reducoes_.push_back({coo, linha, {}, {}, {}, {}});
  return true;
}

ReducaoComTotais* ReducoesPorCoo::doCrz(std::int64_t crz) {
  const auto achada = std::lower_bound(crzs_.begin(), crzs_.end(), crz);
  if (achada == crzs_.end() || *achada != crz) return nullptr;
  return &reducoes_[static_cast<std::size_t>(achada - crzs_.begin())];
}

ReducaoComTotais* ReducoesPorCoo::doDocumento(std::int64_t coo) {
  const auto achada = std::lower_bound(reducoes_.begin(), reducoes_.end(), coo,
                                       [](const ReducaoComTotais& r, std::int64_t c) { return r.coo < c; });
  return achada == reducoes_.end() ? nullptr : &*achada;
}

}  // namespace cotepe
