#include "Sistema/Falha.h"

#include <cstdio>
#include <system_error>

namespace cotepe::programa {

std::string motivoDoSistema(int codigo) { return std::generic_category().message(codigo); }

void avisa(const std::string& texto) noexcept {
  static_cast<void>(std::fprintf(stderr, "cotepe: %s\n", texto.c_str()));  // there is nobody else to tell
}

}  // namespace cotepe::programa
