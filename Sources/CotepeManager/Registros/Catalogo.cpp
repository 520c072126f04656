#include "Registros/Catalogo.h"

namespace cotepe {

// The number in most codes is their place in the list: look there first.
int Catalogo::indiceDe(std::string_view codigo) const noexcept {
  if (codigo.size() != 3) return -1;
  const auto numero = static_cast<std::size_t>((codigo[1] - '0') * 10 + (codigo[2] - '0') - 1);
  if (numero < quantos_ && codigo == inicio_[numero]->codigo) return static_cast<int>(numero);
  for (std::size_t i = 0; i < quantos_; ++i)
    if (codigo == inicio_[i]->codigo) return static_cast<int>(i);
  return -1;
}

}  // namespace cotepe
