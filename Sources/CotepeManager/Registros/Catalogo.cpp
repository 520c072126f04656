#include "Registros/Catalogo.h"

#include <cstring>

namespace cotepe {

const Registro* registroDe(const char* codigo) {
  for (const Registro* registro : kCatalogo)
    if (std::strcmp(registro->codigo, codigo) == 0) return registro;
  return nullptr;
}

}  // namespace cotepe
