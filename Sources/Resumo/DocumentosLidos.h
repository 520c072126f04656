// What the parts of a document must know about it: on which day it was issued, and whether it was cancelled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cotepe {

/// What the items and payments of a document, which are elsewhere in the file, do not say themselves.
struct DocumentoLido {
  std::string dia;  ///< AAAAMMDD
  bool cancelado = false;
};

/// Documents by their counter, in the order of the file. Memory: one entry for each run of counters of one
/// day that were all cancelled or all not.
class DocumentosLidos {
 public:
  void anota(std::int64_t contador, std::string_view dia, bool cancelado);

  /// Null for a counter that no document had; valid until the next one is noted.
  const DocumentoLido* acha(std::int64_t contador) const;

 private:
  struct Trecho {
    std::int64_t de, ate;
    DocumentoLido documento;
  };

  void ordena() const;

  mutable std::vector<Trecho> trechos_;
  mutable bool ordenado_ = true;
  mutable std::size_t ultimo_ = 0;  // the last one found
};

}  // namespace cotepe
