// Which records of a report are wanted.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// Every criterion given must hold; those not given are ignored.
struct Selecao {
  std::vector<int> registros;  ///< places in the catalogue; empty for all
  long linha = 0;              ///< from 1; 0 for all
  std::int64_t coo = -1;       ///< of the field COO; below 0 for all
  std::int64_t crz = -1;       ///< of the field CRZ; below 0 for all

  /// Whether the record is wanted.
  bool aceita(const RegistroLido& lido) const;
};

}  // namespace cotepe
