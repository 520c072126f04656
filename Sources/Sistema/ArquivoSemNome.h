// A file that disappears with its owner, even if the owner is killed.
#pragma once

#include <string>

#include "Sistema/Arquivo.h"

namespace cotepe {

/// An empty file without a name, readable only by its owner.
class ArquivoSemNome {
 public:
  /// In that folder. Throws FalhaDeArquivo (NaoCria, of the folder).
  explicit ArquivoSemNome(const std::string& pasta);

  /// The open file, to be read and written.
  int numero() const { return arquivo_.numero(); }

  /// A path by which this process can open it again.
  std::string caminho() const;

 private:
  Descritor arquivo_;
  std::string caminho_;  // if the system has no path for a file without a name
};

}  // namespace cotepe
