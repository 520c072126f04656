// Pieces of a page that wait for their place: written one after the other, read back in the same order.
#pragma once

#include <cstdint>
#include <string>

#include "Validacao/Paginas.h"

namespace cotepe::pagina {

/// What a piece belongs to.
struct Pedaco {
  std::int64_t chave = 0;     ///< the counter by which the pieces are put together
  std::int64_t outra = 0;     ///< another one
  std::int64_t linha = 0;     ///< of the report, from 1
  std::uint32_t dia = 0;      ///< AAAAMMDD as a number; 0 for none
  std::uint32_t quantos = 0;  ///< bytes of the text
};

/// Stored in a file without a name in TMPDIR; memory is two blocks. Throws Falha when there is no room for
/// it.
class Fita {
 public:
  void acrescenta(Pedaco pedaco, std::string_view html);
  long quantas() const { return quantas_; }

  /// To be called after everything is written: goes to the next piece, starting with the first; false after
  /// the last.
  bool avanca();
  const Pedaco& pedaco() const { return pedaco_; }

  /// Valid until the next one.
  std::string_view html() const { return html_; }

 private:
  static constexpr std::size_t kBloco = std::size_t{1} << 16;

  void escreve(const void* bytes, std::size_t quantos);
  void despeja();
  void le(void* bytes, std::size_t quantos);

  ArquivoTemporario arquivo_;
  std::string bloco_;
  std::uint64_t gravados_ = 0, lidos_ = 0;  // bytes of the file written, and read into the block
  std::size_t cursor_ = 0;                  // in the block being read
  long quantas_ = 0, dadas_ = 0;
  bool lendo_ = false;
  Pedaco pedaco_;
  std::string html_;
};

}  // namespace cotepe::pagina
