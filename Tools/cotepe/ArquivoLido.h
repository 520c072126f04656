// The raw bytes of a file that a command reads.
#pragma once

#include <cstddef>
#include <string>

#include "Sistema/Arquivo.h"

namespace cotepe::programa {

class ArquivoLido {
 public:
  /// Throws Falha with the status given.
  ArquivoLido(const std::string& caminho, int situacao);

  /// Fills a buffer: returns the count of bytes, 0 at the end, below 0 (errno set) when it cannot. Throws
  /// Interrupcao when a signal comes.
  long le(char* destino, std::size_t tamanho) const;

 private:
  Descritor arquivo_;
};

}  // namespace cotepe::programa
