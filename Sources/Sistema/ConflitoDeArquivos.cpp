#include "Sistema/ConflitoDeArquivos.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "Sistema/Arquivo.h"

namespace cotepe {
namespace {

namespace fs = std::filesystem;

// The path without links and dots as far as it exists; unchanged if even that cannot be determined.
std::string resolvido(const std::string& caminho) {
  std::error_code erro;
  const fs::path dado = fs::u8path(caminho);
  const fs::path inteiro = fs::absolute(dado, erro);
  const fs::path canonico = fs::weakly_canonical(erro ? dado : inteiro, erro);
  return (erro ? inteiro : canonico).u8string();
}

bool mesmo(const LugarNoDisco& a, const LugarNoDisco& b) {
  return a.disco == b.disco && a.numero == b.numero;
}

}  // namespace

bool mesmoArquivo(const std::string& a, const std::string& b) {
  LugarNoDisco deA, deB;
  if (lugarDoArquivo(a, deA) && lugarDoArquivo(b, deB)) return mesmo(deA, deB);
  return mesmoCaminho(resolvido(a), resolvido(b));
}

bool pertenceAoBanco(const std::string& caminho, const std::string& banco) {
  const std::string base = resolvido(banco);  // SQLite follows links before it names those files
  constexpr std::array<const char*, 4> kSufixos = {"", "-wal", "-shm", "-journal"};
  return std::any_of(kSufixos.begin(), kSufixos.end(),
                     [&](const char* sufixo) { return mesmoArquivo(caminho, base + sufixo); });
}

bool abertoComo(int descritor, const std::string& caminho) {
  LugarNoDisco aberto, nomeado;
  return lugarDoAberto(descritor, aberto) && lugarDoArquivo(caminho, nomeado) && mesmo(aberto, nomeado);
}

}  // namespace cotepe
