#include "Validacao/Paginas.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "Idioma/Idioma.h"

namespace cotepe {
namespace {

int semNome() {
  const char* dada = std::getenv("TMPDIR");
  std::string nome = std::string(dada != nullptr && *dada != '\0' ? dada : "/tmp") + "/cotepe-XXXXXX";
  const int descritor = mkstemp(nome.data());
  if (descritor >= 0) unlink(nome.c_str());
  return descritor;
}

}  // namespace

ArquivoTemporario::~ArquivoTemporario() {
  if (descritor_ >= 0) close(descritor_);
}

bool ArquivoTemporario::escreve(std::uint64_t posicao, const void* bytes, std::size_t quantos) {
  if (!tentado_) descritor_ = semNome();
  tentado_ = true;
  if (descritor_ < 0) return false;
  for (std::size_t feitos = 0; feitos < quantos;) {
    const ssize_t escritos = pwrite(descritor_, static_cast<const char*>(bytes) + feitos, quantos - feitos,
                                    static_cast<off_t>(posicao + feitos));
    if (escritos < 0 && errno == EINTR) continue;
    if (escritos <= 0) return false;
    feitos += static_cast<std::size_t>(escritos);
  }
  return true;
}

void ArquivoTemporario::le(std::uint64_t posicao, void* bytes, std::size_t quantos) const {
  for (std::size_t feitos = 0; feitos < quantos;) {
    const ssize_t lidos = pread(descritor_, static_cast<char*>(bytes) + feitos, quantos - feitos,
                                static_cast<off_t>(posicao + feitos));
    if (lidos < 0 && errno == EINTR) continue;
    if (lidos <= 0)
      throw std::runtime_error(traduz("cannot read a temporary file again; set TMPDIR to another folder"));
    feitos += static_cast<std::size_t>(lidos);
  }
}

}  // namespace cotepe
