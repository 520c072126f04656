#include "Pagina/Fita.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "Idioma/Idioma.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"

namespace cotepe::pagina {

void Fita::escreve(const void* bytes, std::size_t quantos) {
  bloco_.append(static_cast<const char*>(bytes), quantos);
  if (bloco_.size() >= kBloco) despeja();
}

void Fita::despeja() {
  if (!arquivo_.escreve(gravados_, bloco_.data(), bloco_.size()))
    throw programa::Falha(
        programa::kNaoEscreve,
        frase("cannot write a temporary file in {1}: {2}; free some space, or set TMPDIR to a "
              "folder with more",
              {pastaTemporaria(), motivoDoSistema(errno)}));
  gravados_ += bloco_.size();
  bloco_.clear();
}

void Fita::acrescenta(Pedaco pedaco, std::string_view html) {
  pedaco.quantos = static_cast<std::uint32_t>(html.size());
  escreve(&pedaco, sizeof pedaco);
  escreve(html.data(), html.size());
  ++quantas_;
}

void Fita::le(void* bytes, std::size_t quantos) {
  auto* destino = static_cast<char*>(bytes);
  while (quantos != 0) {
    if (cursor_ == bloco_.size()) {
      bloco_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kBloco, gravados_ - lidos_)));
      arquivo_.le(lidos_, bloco_.data(), bloco_.size());
      lidos_ += bloco_.size();
      cursor_ = 0;
    }
    const std::size_t n = std::min(quantos, bloco_.size() - cursor_);
    std::memcpy(destino, bloco_.data() + cursor_, n);
    cursor_ += n;
    destino += n;
    quantos -= n;
  }
}

bool Fita::avanca() {
  if (!lendo_) {
    if (gravados_ != 0 && !bloco_.empty()) despeja();
    lendo_ = true;  // what never left the block is read from there
  }
  if (dadas_ == quantas_) return false;
  le(&pedaco_, sizeof pedaco_);
  html_.resize(pedaco_.quantos);
  le(html_.data(), html_.size());
  ++dadas_;
  return true;
}

}  // namespace cotepe::pagina
