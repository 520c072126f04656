#include "Validacao/Paginas.h"

#include <stdexcept>

#include "Idioma/Idioma.h"
#include "Sistema/ArquivoSemNome.h"
#include "Sistema/FalhaDeArquivo.h"

namespace cotepe {

ArquivoTemporario::ArquivoTemporario() = default;
ArquivoTemporario::~ArquivoTemporario() = default;

bool ArquivoTemporario::escreve(std::uint64_t posicao, const void* bytes, std::size_t quantos) {
  if (!tentado_) abre();
  return arquivo_ != nullptr && escreveEm(arquivo_->numero(), posicao, bytes, quantos);
}

void ArquivoTemporario::abre() {
  tentado_ = true;
  try {
    arquivo_ = std::make_unique<ArquivoSemNome>(pastaTemporaria());
  } catch (const FalhaDeArquivo&) {  // everything stays in memory
  }
}

void ArquivoTemporario::le(std::uint64_t posicao, void* bytes, std::size_t quantos) const {
  if (leEm(arquivo_->numero(), posicao, bytes, quantos)) return;
  throw std::runtime_error(traduz("cannot read a temporary file again; set TMPDIR to another folder"));
}

}  // namespace cotepe
