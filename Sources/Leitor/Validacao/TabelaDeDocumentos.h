// The coupons of a file, found by their COO: what is left to be explained of their amounts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace cotepe {

struct Documento {
  std::int64_t faltaDeItens = 0;       // cents: the subtotal less the items read so far
  std::int64_t faltaDePagamentos = 0;  // cents: the net total less the payments read so far
  std::uint32_t coo = 0;
  std::uint32_t contador = 0;  // CCF or GNF
  std::uint32_t linha = 0;     // of the file; the last number that fits where there are more
  bool cancelado = false;
  bool comItem = false;  // that is not cancelled
  bool itensIncertos = false, pagamentosIncertos = false;
};

/// Keeps documents in the order in which they came: 32 bytes each, and 8 to 16 of an index over them.
class TabelaDeDocumentos {
 public:
  /// Adds a document. Another one with its COO stays the one that is found.
  Documento& acrescenta(std::uint32_t coo);

  /// The document with the COO; null when there is none. Valid until the next one is added.
  Documento* acha(std::uint32_t coo);

  const std::vector<Documento>& todos() const { return documentos_; }

 private:
  std::size_t lugar(std::uint32_t coo) const;
  void dobra();

  std::vector<Documento> documentos_;
  std::vector<std::uint32_t>
      indice_;                 // of a document, plus 1; 0 where free. A power of two long, at most half full
  std::uint32_t recente_ = 0;  // what was found last: items of a coupon stand together
};

}  // namespace cotepe
