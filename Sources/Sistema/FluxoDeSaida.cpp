#include "Sistema/FluxoDeSaida.h"

#include "Sistema/Descritor.h"

namespace cotepe::programa {

// Makes the stream pass on what its buffer throws.
FluxoDeSaida::FluxoDeSaida() : std::ostream(nullptr) {
  rdbuf(&bloco_);
  exceptions(std::ios::badbit);
}

void FluxoDeSaida::conclui() {
  flush();
  confirmaEscrita(kSaidaPadrao, "stdout");
}

FluxoDeSaida::Bloco::Bloco() { setp(bytes_.data(), bytes_.data() + bytes_.size()); }

int FluxoDeSaida::Bloco::overflow(int c) {
  sync();
  if (c == traits_type::eof()) return traits_type::not_eof(c);
  return sputc(static_cast<char>(c));
}

int FluxoDeSaida::Bloco::sync() {
  const std::string_view cheio(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  setp(bytes_.data(), bytes_.data() + bytes_.size());
  escreveTudo(kSaidaPadrao, cheio, "stdout");
  return 0;
}

}  // namespace cotepe::programa
