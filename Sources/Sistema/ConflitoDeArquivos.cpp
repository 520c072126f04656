#include "Sistema/ConflitoDeArquivos.h"

#include <sys/stat.h>
#include <algorithm>
#include <array>

#include <filesystem>
#include <initializer_list>
#include <system_error>

namespace cotepe {
namespace {

namespace fs = std::filesystem;

// The path without links and dots as far as it exists; as it stands when even that cannot be told.
fs::path resolvido(const std::string& caminho) {
  std::error_code erro;
  const fs::path inteiro = fs::absolute(caminho, erro);
  const fs::path canonico = fs::weakly_canonical(erro ? fs::path(caminho) : inteiro, erro);
  return erro ? inteiro : canonico;
}

bool mesmo(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

bool mesmoArquivo(const std::string& a, const std::string& b) {
  struct stat deA {
  }, deB{};
  if (stat(a.c_str(), &deA) == 0 && stat(b.c_str(), &deB) == 0) return mesmo(deA, deB);
  return resolvido(a) == resolvido(b);
}

bool pertenceAoBanco(const std::string& caminho, const std::string& banco) {
  const std::string base = resolvido(banco).string();  // SQLite follows links before it names those files
  constexpr std::array<const char*, 4> kSufixos = {"", "-wal", "-shm", "-journal"};
  return std::any_of(kSufixos.begin(), kSufixos.end(),
                     [&](const char* sufixo) { return mesmoArquivo(caminho, base + sufixo); });
}

bool abertoComo(int descritor, const std::string& caminho) {
  struct stat aberto {
  }, nomeado{};
  return fstat(descritor, &aberto) == 0 && stat(caminho.c_str(), &nomeado) == 0 && mesmo(aberto, nomeado);
}

}  // namespace cotepe
