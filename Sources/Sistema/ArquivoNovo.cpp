#include "Sistema/ArquivoNovo.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "BancoFiscal/ErroDoBanco.h"
#include "Idioma/Idioma.h"

namespace cotepe {
namespace {

constexpr int kTentativas = 100;

std::string temporarioDe(const std::string& caminho, int tentativa) {
  return caminho + ".incompleto" + std::to_string(tentativa);
}

// The lock of a writer that lives is refused.
void recolheSobras(const std::string& caminho) {
  for (int tentativa = 0; tentativa < kTentativas; ++tentativa) {
    const std::string sobra = temporarioDe(caminho, tentativa);
    const int arquivo = ::open(sobra.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (arquivo < 0) continue;
    if (::flock(arquivo, LOCK_EX | LOCK_NB) == 0) ::unlink(sobra.c_str());
    ::close(arquivo);
  }
}

// False also where the system cannot tell.
bool aindaTemNome(int arquivo) {
  struct stat situacao {};
  static_cast<void>(::fstat(arquivo, &situacao));
  return situacao.st_nlink != 0;
}

[[noreturn]] void falhaDoSistema(const std::string& onde, int codigo) {
  throw ErroDoBanco({traduz("cannot create the database"), onde, std::generic_category().message(codigo),
                     traduz("a folder that can be written and has room"),
                     traduz("choose another place or free some space")});
}

[[noreturn]] void falhaPorExistir(const std::string& onde) {
  throw ErroDoBanco({traduz("cannot create the database"), onde, traduz("a file that exists already"),
                     traduz("a name that is free"), traduz("choose another name, or move the file away")});
}

// A journal left behind by an earlier database of that name would be played back into the new one.
void exigeLivre(const std::string& caminho) {
  for (const char* sufixo : {"", "-journal", "-wal", "-shm"}) {
    struct stat situacao {};
    if (::lstat((caminho + sufixo).c_str(), &situacao) == 0) falhaPorExistir(caminho + sufixo);
    if (errno != ENOENT) falhaDoSistema(caminho + sufixo, errno);
  }
}

// Brings the contents of a file, or the names in a folder, to the disk.
void sincroniza(const std::string& caminho, int modo) {
  const int arquivo = ::open(caminho.c_str(), modo | O_CLOEXEC);
  if (arquivo < 0) falhaDoSistema(caminho, errno);
  const int falha = ::fsync(arquivo) == 0 ? 0 : errno;
  if (::close(arquivo) != 0 || falha != 0) falhaDoSistema(caminho, falha != 0 ? falha : errno);
}

}  // namespace

ArquivoNovo::ArquivoNovo(std::string caminho) : caminho_(std::move(caminho)) {
  if (caminho_.empty()) falhaDoSistema("''", ENOENT);
  if (caminho_.front() != '/') caminho_.insert(0, "./");
  recolheSobras(caminho_);
  exigeLivre(caminho_);
  for (int tentativa = 0; tentativa < kTentativas; ++tentativa) {
    temporario_ = temporarioDe(caminho_, tentativa);
    if (cria()) return;
  }
  falhaPorExistir(temporario_);
}

// False where the name is taken, by another writer or by one that removed ours before it was locked. Without
// locks on the file system all goes on as with them, but leftovers stay.
bool ArquivoNovo::cria() {
  trava_ = ::open(temporario_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
  if (trava_ < 0 && errno != EEXIST) falhaDoSistema(temporario_, errno);
  if (trava_ < 0) return false;
  ::flock(trava_, LOCK_EX);
  if (aindaTemNome(trava_)) return true;
  ::close(std::exchange(trava_, -1));
  return false;
}

ArquivoNovo::~ArquivoNovo() {
  if (!temporario_.empty()) ::unlink(temporario_.c_str());
  ::close(trava_);
}

void ArquivoNovo::publica() {
  sincroniza(temporario_, O_RDONLY);
  // A link, unlike a rename, refuses a name that came into being meanwhile. Some removable disks have no
  // links.
  if (::link(temporario_.c_str(), caminho_.c_str()) == 0) {
    ::unlink(temporario_.c_str());
  } else if (errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS) {
    exigeLivre(caminho_);
    if (std::rename(temporario_.c_str(), caminho_.c_str()) != 0) falhaDoSistema(caminho_, errno);
  } else if (errno == EEXIST) {
    falhaPorExistir(caminho_);
  } else {
    falhaDoSistema(caminho_, errno);
  }
  temporario_.clear();
  sincroniza(caminho_.substr(0, caminho_.rfind('/') + 1), O_RDONLY | O_DIRECTORY);
}

}  // namespace cotepe
