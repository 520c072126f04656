// Why a file could not be made or given its name, for a caller to put into words.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace cotepe {

/// The step that failed.
enum class PassoDeArquivo {
  NomeDePasta,    ///< the path is the name of a folder
  Pasta,          ///< a folder has that name
  NaoRegular,     ///< something other than a regular file has that name
  Existe,         ///< a file of that name exists and is not to be replaced
  NaoCria,        ///< the file cannot be made in its folder
  NaoEscreve,     ///< it did not reach the disk, or did not get its name
  NomeNaoEscrito  ///< the file is whole and has its name, which may not have reached the disk
};

/// Says nothing to people: what() is only the path.
class FalhaDeArquivo : public std::exception {
 public:
  /// `erro`: errno, or 0 when the step says everything.
  FalhaDeArquivo(PassoDeArquivo passo, std::string caminho, int erro)
      : passo_(passo), caminho_(std::move(caminho)), erro_(erro) {}

  /// The step.
  PassoDeArquivo passo() const { return passo_; }
  /// The file's name for users.
  const std::string& caminho() const { return caminho_; }
  /// The system's reason as errno has it, or 0.
  int erro() const { return erro_; }
  const char* what() const noexcept override { return caminho_.c_str(); }

 private:
  PassoDeArquivo passo_;
  std::string caminho_;
  int erro_;
};

}  // namespace cotepe
