#include "Sistema/ArquivoSeguro.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

constexpr char kMarca[] = ".cotepe-";
constexpr char kFim[] = ".tmp";
constexpr std::size_t kSorteados = 6;
constexpr std::size_t kMaximoDoNome = 200;  // so that marks and random characters fit into a file name

std::string pastaDe(const std::string& caminho) {
  const auto barra = caminho.rfind('/');
  return barra == std::string::npos ? "./" : caminho.substr(0, barra + 1);
}

std::string nomeDe(const std::string& caminho) { return caminho.substr(caminho.rfind('/') + 1); }

std::string sorteia() {
  static constexpr char kLetras[] = "0123456789abcdefghijklmnopqrstuvwxyz";
  std::random_device acaso;
  std::uniform_int_distribution<std::size_t> letra(0, sizeof kLetras - 2);
  std::string texto;
  while (texto.size() < kSorteados) texto += kLetras[letra(acaso)];
  return texto;
}

bool ehTemporarioDe(const std::string& nome, const std::string& base) {
  return nome.size() == base.size() + kSorteados + sizeof kFim - 1 &&
         nome.compare(0, base.size(), base) == 0 &&
         nome.compare(nome.size() + 1 - sizeof kFim, std::string::npos, kFim) == 0;
}

int tranca(int arquivo, int modo) {
  int resultado;
  do resultado = flock(arquivo, modo);
  while (resultado != 0 && errno == EINTR);
  return resultado;
}

// The lock of a writer that lives is refused.
void removeSeMorto(const std::string& caminho) {
  const Descritor arquivo(open(caminho.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (arquivo.aberto() && tranca(arquivo.numero(), LOCK_EX | LOCK_NB) == 0) unlink(caminho.c_str());
}

void recolheSobras(const std::string& pasta, const std::string& base) {
  const std::unique_ptr<DIR, int (*)(DIR*)> lista(opendir(pasta.c_str()), closedir);
  if (lista == nullptr) return;
  while (const dirent* item = readdir(lista.get()))
    if (ehTemporarioDe(item->d_name, base)) removeSeMorto(pasta + item->d_name);
}

bool aindaTemNome(int arquivo) {
  struct stat situacao {};
  return fstat(arquivo, &situacao) == 0 && situacao.st_nlink != 0;
}

[[noreturn]] void naoCria(const std::string& onde, int erro) {
  throw Falha(kNaoAbre, frase("cannot create the output {1}: {2}; choose another --output",
                              {onde, motivoDoSistema(erro)}));
}

[[noreturn]] void naoServe(const std::string& onde, const char* encontrado) {
  throw Falha(kNaoAbre, frase("cannot create the output {1}: {2}; choose another --output",
                              {onde, traduz(encontrado)}));
}

[[noreturn]] void existe(const std::string& onde) {
  throw Falha(
      kNaoAbre,
      frase(
          "cannot create the output {1}: the file exists; choose another --output, or --force to replace it",
          {onde}));
}

[[noreturn]] void naoEscreve(const std::string& onde, int erro) {
  throw Falha(kNaoEscreve, frase("cannot write the output {1}: {2}; check the disk and try again",
                                 {onde, motivoDoSistema(erro)}));
}

// Two steps where the file system cannot do it in one; a temporary name that stays is the next run's to
// remove.
bool renomeiaSemSubstituir(const char* de, const char* para) {
  if (renameat2(AT_FDCWD, de, AT_FDCWD, para, RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (link(de, para) != 0) return false;
  static_cast<void>(unlink(de));
  return true;
}

}  // namespace

ArquivoSeguro::ArquivoSeguro(const std::string& destino, const std::string& apelido, mode_t modo)
    : pasta_(pastaDe(destino)) {
  descritorDaPasta_ = Descritor(open(pasta_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descritorDaPasta_.aberto()) naoCria(destino, errno);
  const std::string nome = apelido.empty() ? nomeDe(destino) : apelido;
  const std::string base = '.' + nome.substr(0, kMaximoDoNome) + kMarca;
  recolheSobras(pasta_, base);
  do cria(base, modo);
  while (!aindaTemNome(arquivo_.numero()));  // another run took it for a leftover before it was locked
}

// Without locks on the file system all goes on as with them, but leftovers stay.
void ArquivoSeguro::cria(const std::string& base, mode_t modo) {
  do {
    temporario_ = pasta_ + base + sorteia() + kFim;
    arquivo_ = Descritor(open(temporario_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, modo));
  } while (!arquivo_.aberto() && errno == EEXIST);
  if (!arquivo_.aberto()) {
    const int erro = errno;
    naoCria(std::exchange(temporario_, ""), erro);
  }
  tranca(arquivo_.numero(), LOCK_EX);
}

ArquivoSeguro::~ArquivoSeguro() { descarta(); }

std::int64_t ArquivoSeguro::tamanho() const {
  struct stat situacao {};
  return fstat(arquivo_.numero(), &situacao) == 0 ? situacao.st_size : 0;
}

void ArquivoSeguro::publica(const std::string& destino, bool substitui) {
  if (fsync(arquivo_.numero()) != 0) naoEscreve(destino, errno);
  const bool renomeado = substitui ? std::rename(temporario_.c_str(), destino.c_str()) == 0
                                   : renomeiaSemSubstituir(temporario_.c_str(), destino.c_str());
  if (!renomeado && errno == EEXIST) existe(destino);
  if (!renomeado) naoEscreve(destino, errno);
  temporario_.clear();
  if (fsync(descritorDaPasta_.numero()) == 0 || errno == EINVAL) return;  // some file systems have it not
  throw Falha(kNaoEscreve, frase("cannot be sure that the name {1} is on the disk: {2}; the file itself is "
                                 "whole; check the disk, and that the file is there",
                                 {destino, motivoDoSistema(errno)}));
}

bool ArquivoSeguro::descarta() noexcept {
  if (temporario_.empty()) return true;
  const bool removido = unlink(temporario_.c_str()) == 0;
  temporario_.clear();
  return removido;
}

Descritor ArquivoSeguro::soltaSemNome() { return descarta() ? std::move(arquivo_) : Descritor(); }

void exigeDestino(const std::string& destino, bool substitui) {
  struct stat situacao {};
  if (destino.empty() || destino.back() == '/') naoServe(destino, marca("it is the name of a folder"));
  if (lstat(destino.c_str(), &situacao) != 0) return;  // whatever else is wrong shows when it is made
  if (S_ISDIR(situacao.st_mode)) naoServe(destino, marca("it is a folder"));
  if (!S_ISREG(situacao.st_mode)) naoServe(destino, marca("it is not a regular file"));
  if (!substitui) existe(destino);
}

}  // namespace cotepe::programa
