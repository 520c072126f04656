// A folder that appears under its name only when all of its files are complete.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Sistema/ArquivoSeguro.h"

namespace cotepe::programa {

/// An empty folder under a temporary name beside its destination, for others to fill with files that they
/// flush to disk themselves. What a killed writer left behind is removed by the next one for the same name.
/// Destroyed unpublished, it removes itself and its contents.
class PastaSegura {
 public:
  /// Says whether a file in a folder is one that this program creates there.
  using Conhece = std::function<bool(const std::string& nome)>;

  /// Throws Falha (kNaoAbre) when something has that name already, unless `substitui` and it is a folder in
  /// which `conhece` recognizes every file.
  PastaSegura(std::string destino, bool substitui, Conhece conhece);
  ~PastaSegura();
  PastaSegura(const PastaSegura&) = delete;
  PastaSegura& operator=(const PastaSegura&) = delete;

  /// Where to create a file of that name.
  std::string caminho(const std::string& nome) const { return temporaria_ + '/' + nome; }

  /// Gives the folder its name; a folder that it replaces is removed just before. To be called once. Throws
  /// Falha.
  void publica();

 private:
  std::unique_ptr<ArquivoSeguro> trava() const;
  void exigeDestino() const;
  void recolheSobras() const;

  std::string destino_;
  bool substitui_;
  Conhece conhece_;
  std::unique_ptr<ArquivoSeguro> trava_;  // its lock shows that the folder's writer is alive
  std::string temporaria_;
};

}  // namespace cotepe::programa
