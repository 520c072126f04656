#include "Sistema/Arquivo.h"

namespace cotepe {

Descritor& Descritor::operator=(Descritor&& outro) noexcept {
  std::swap(numero_, outro.numero_);
  return *this;
}

}  // namespace cotepe
