#include "Sistema/Fluxo.h"

#include <stdio_ext.h>
#include <unistd.h>

namespace cotepe {

// What is buffered goes first, for closing would write it.
void esvazia(std::FILE* fluxo) noexcept {
  __fpurge(fluxo);
  if (ftruncate(fileno(fluxo), 0) != 0) return;  // a pipe has no length
}

}  // namespace cotepe
