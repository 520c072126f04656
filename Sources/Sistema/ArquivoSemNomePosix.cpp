#include <fcntl.h>

#include <cerrno>

#include "Sistema/ArquivoSeguro.h"
#include "Sistema/ArquivoSemNome.h"
#include "Sistema/FalhaDeArquivo.h"

namespace cotepe {
namespace {

// If the file system has no such files, it has a name for a moment, one that the next run recognizes as a
// leftover. Closed, with errno set, on failure.
Descritor semNome(const std::string& pasta) {
  constexpr mode_t kSoDoDono = 0600;
  Descritor arquivo(open(pasta.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kSoDoDono));
  if (arquivo.aberto() || (errno != EOPNOTSUPP && errno != EISDIR)) return arquivo;
  return ArquivoSeguro(pasta + "/stdout", "", true).soltaSemNome();
}

}  // namespace

ArquivoSemNome::ArquivoSemNome(const std::string& pasta) : arquivo_(semNome(pasta)) {
  if (!arquivo_.aberto()) throw FalhaDeArquivo(PassoDeArquivo::NaoCria, pasta, errno);
}

std::string ArquivoSemNome::caminho() const { return "/proc/self/fd/" + std::to_string(numero()); }

}  // namespace cotepe
