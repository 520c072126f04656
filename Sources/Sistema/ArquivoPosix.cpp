#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <stdio_ext.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "Sistema/Arquivo.h"

namespace cotepe {
namespace {

TipoDeArquivo tipoDe(const struct stat& situacao) {
  if (S_ISREG(situacao.st_mode)) return TipoDeArquivo::Regular;
  return S_ISDIR(situacao.st_mode) ? TipoDeArquivo::Pasta : TipoDeArquivo::Outra;
}

int tranca(int descritor, int modo) {
  int resultado;
  do resultado = flock(descritor, modo);
  while (resultado != 0 && errno == EINTR);
  return resultado;
}

// If the file system supports neither a rename that refuses nor links, the name is checked beforehand.
bool renomeiaSemSubstituir(const char* de, const char* para) {
  if (renameat2(AT_FDCWD, de, AT_FDCWD, para, RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (link(de, para) == 0) {
    static_cast<void>(unlink(de));  // a temporary name left behind is removed by the next run
    return true;
  }
  if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) return false;
  if (tipoDoNome(para) == TipoDeArquivo::Nenhuma) return errno == ENOENT && std::rename(de, para) == 0;
  errno = EEXIST;
  return false;
}

template <class Passo>
bool tudo(std::size_t quantos, const Passo& passo) {
  for (std::size_t feitos = 0; feitos < quantos;) {
    const ssize_t agora = passo(feitos);
    if (agora < 0 && errno == EINTR) continue;
    if (agora <= 0) return false;
    feitos += static_cast<std::size_t>(agora);
  }
  return true;
}

}  // namespace

Descritor::~Descritor() {
  if (!aberto()) return;
  const int erro = errno;  // that of the failure because of which the file is removed
  close(numero_);
  errno = erro;
}

TipoDeArquivo tipoDoArquivo(const std::string& caminho) {
  struct stat situacao {};
  return stat(caminho.c_str(), &situacao) == 0 ? tipoDe(situacao) : TipoDeArquivo::Nenhuma;
}

TipoDeArquivo tipoDoNome(const std::string& caminho) {
  struct stat situacao {};
  return lstat(caminho.c_str(), &situacao) == 0 ? tipoDe(situacao) : TipoDeArquivo::Nenhuma;
}

TipoDeArquivo tipoDoAberto(int descritor) {
  struct stat situacao {};
  return fstat(descritor, &situacao) == 0 ? tipoDe(situacao) : TipoDeArquivo::Nenhuma;
}

bool podeLer(const std::string& caminho) { return access(caminho.c_str(), R_OK) == 0; }

Descritor abreParaLer(const std::string& caminho) {
  return Descritor(open(caminho.c_str(), O_RDONLY | O_CLOEXEC));
}

std::FILE* abreFluxo(const std::string& caminho, const char* modo) {
  return std::fopen(caminho.c_str(), modo);
}

// Discard what is buffered first, since closing would write it.
void esvazia(std::FILE* fluxo) noexcept {
  __fpurge(fluxo);
  if (ftruncate(fileno(fluxo), 0) != 0) return;  // a pipe has no length
}

Descritor criaNovo(const std::string& caminho, bool soDoDono) {
  return Descritor(open(caminho.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, soDoDono ? 0600 : 0666));
}

Descritor abrePasta(const std::string& caminho) {
  return Descritor(open(caminho.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool tranca(int descritor) { return tranca(descritor, LOCK_EX) == 0; }

void removeSeMorto(const std::string& caminho) {
  const Descritor arquivo(open(caminho.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (arquivo.aberto() && tranca(arquivo.numero(), LOCK_EX | LOCK_NB) == 0) unlink(caminho.c_str());
}

bool aindaTemNome(int descritor) {
  struct stat situacao {};
  return fstat(descritor, &situacao) == 0 && situacao.st_nlink != 0;
}

bool levaAoDisco(int descritor) { return fsync(descritor) == 0; }

bool renomeia(const std::string& de, const std::string& para, bool substitui) {
  return substitui ? std::rename(de.c_str(), para.c_str()) == 0
                   : renomeiaSemSubstituir(de.c_str(), para.c_str());
}

bool removeArquivo(const std::string& caminho) { return unlink(caminho.c_str()) == 0; }

std::vector<std::string> nomesNaPasta(const std::string& caminho) {
  std::vector<std::string> nomes;
  const std::unique_ptr<DIR, int (*)(DIR*)> lista(opendir(caminho.c_str()), closedir);
  if (lista == nullptr) return nomes;
  while (const dirent* item = readdir(lista.get())) nomes.emplace_back(item->d_name);
  return nomes;
}

std::int64_t tamanhoDe(int descritor) {
  struct stat situacao {};
  return fstat(descritor, &situacao) == 0 ? situacao.st_size : 0;
}

long leDe(int descritor, void* bytes, std::size_t quantos) { return read(descritor, bytes, quantos); }

long escreveEm(int descritor, const void* bytes, std::size_t quantos) {
  return write(descritor, bytes, quantos);
}

void esperaLugar(int descritor) {
  pollfd pronto{descritor, POLLOUT, 0};
  poll(&pronto, 1, -1);
}

// Closing any copy of a descriptor flushes the file.
bool confirmaFechamento(int descritor) {
  const int copia = fcntl(descritor, F_DUPFD_CLOEXEC, 0);
  return copia < 0 || close(copia) == 0 || errno == EINTR;
}

bool leEm(int descritor, std::uint64_t posicao, void* bytes, std::size_t quantos) {
  return tudo(quantos, [&](std::size_t feitos) {
    return pread(descritor, static_cast<char*>(bytes) + feitos, quantos - feitos,
                 static_cast<off_t>(posicao + feitos));
  });
}

bool escreveEm(int descritor, std::uint64_t posicao, const void* bytes, std::size_t quantos) {
  return tudo(quantos, [&](std::size_t feitos) {
    return pwrite(descritor, static_cast<const char*>(bytes) + feitos, quantos - feitos,
                  static_cast<off_t>(posicao + feitos));
  });
}

bool lugarDoArquivo(const std::string& caminho, LugarNoDisco& lugar) {
  struct stat situacao {};
  if (stat(caminho.c_str(), &situacao) != 0) return false;
  lugar = {situacao.st_dev, situacao.st_ino};
  return true;
}

bool lugarDoAberto(int descritor, LugarNoDisco& lugar) {
  struct stat situacao {};
  if (fstat(descritor, &situacao) != 0) return false;
  lugar = {situacao.st_dev, situacao.st_ino};
  return true;
}

bool mesmoCaminho(const std::string& a, const std::string& b) { return a == b; }

std::string pastaTemporaria() {
  const char* dada = std::getenv("TMPDIR");
  return dada != nullptr && *dada != '\0' ? dada : "/tmp";
}

std::string comPasta(const std::string& caminho) {
  return !caminho.empty() && caminho.front() == '/' ? caminho : "./" + caminho;
}

std::string caminhoDoBanco(const std::string& caminho) { return comPasta(caminho); }

const char* vfsDoBanco() { return nullptr; }

std::string pastaDe(const std::string& caminho) {
  const auto barra = caminho.rfind('/');
  return barra == std::string::npos ? "./" : caminho.substr(0, barra + 1);
}

}  // namespace cotepe
