// A folder that appears under its name only when all of its files are whole.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Sistema/ArquivoSeguro.h"

namespace cotepe::programa {

/// An empty folder under a temporary name beside its destination, for others to fill with files that they
/// bring to the disk themselves. What a killed writer left behind is removed by the next one for the same
/// name. Destroyed unpublished, it removes itself and what is in it.
class PastaSegura {
 public:
  /// Says of a file in a folder whether it is one that this program makes there.
  using Conhece = std::function<bool(const std::string& nome)>;

  /// Throws Falha (kNaoAbre) where something has that name already, unless `substitui` and it is a folder in
  /// which `conhece` knows every file.
  PastaSegura(std::string destino, bool substitui, Conhece conhece);
  ~PastaSegura();
  PastaSegura(const PastaSegura&) = delete;
  PastaSegura& operator=(const PastaSegura&) = delete;

  /// Where a file of that name is to be made.
  std::string caminho(const std::string& nome) const { return temporaria_ + '/' + nome; }

  /// Gives the folder its name; one that is replaced is gone a moment earlier. Once only. Throws Falha.
  void publica();

 private:
  std::unique_ptr<ArquivoSeguro> trava() const;
  void exigeDestino() const;
  void recolheSobras() const;

  std::string destino_;
  bool substitui_;
  Conhece conhece_;
  std::unique_ptr<ArquivoSeguro> trava_;  // its lock says that the folder's writer lives
  std::string temporaria_;
};

}  // namespace cotepe::programa
