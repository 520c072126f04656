// The coupons of a file, found by their COO: what is left to be explained of their amounts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Validacao/Paginas.h"

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

/// Keeps documents in the order in which they came. Those whose COOs ascend take no memory that grows; others
/// (a COO that was misread, a counter that began again) take about 90 bytes each.
class TabelaDeDocumentos {
 public:
  /// Adds a document. Another one with its COO stays the one that is found. Valid until the next call.
  Documento& acrescenta(std::uint32_t coo);

  /// The document with the COO; null when there is none. Valid until the next call.
  Documento* acha(std::uint32_t coo);

  /// Gives each document to `ve`, in the order in which they came.
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
  Documento* naOrdem(std::uint32_t coo);

  Paginas<Documento> emOrdem_;            // by ascending COO
  std::vector<std::uint32_t> primeiros_;  // the first COO of each page of it
  std::uint32_t maior_ = 0;               // its last COO
  std::size_t recente_ = 0;               // what was found last in it: items of a coupon stand together
  std::vector<Documento> deslocados_;
  std::unordered_map<std::uint32_t, std::size_t> doCoo_;  // of them, the first one
};

}  // namespace cotepe
