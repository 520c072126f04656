// Apart from its users, so that no compiler pairs an inlined new with a delete it does not know.
#include "MemoriaContada.h"

#include <cstdlib>
#include <new>

namespace cotepe::testes {

MemoriaContada g_memoria;

namespace {

void* aloca(std::size_t tamanho) noexcept {
  void* memoria = g_memoria.nega() ? nullptr : std::malloc(tamanho == 0 ? 1 : tamanho);
  if (memoria != nullptr) g_memoria.conta(1);
  return memoria;
}

void libera(void* memoria) noexcept {
  if (memoria != nullptr) g_memoria.conta(-1);
  std::free(memoria);
}

}  // namespace
}  // namespace cotepe::testes

// Every form, for the sanitizers look at the pairs.
using cotepe::testes::aloca;
using cotepe::testes::libera;

void* operator new(std::size_t tamanho) {
  if (void* memoria = aloca(tamanho)) return memoria;
  throw std::bad_alloc();
}
void* operator new[](std::size_t tamanho) { return operator new(tamanho); }
void* operator new(std::size_t tamanho, const std::nothrow_t& /*nada*/) noexcept { return aloca(tamanho); }
void* operator new[](std::size_t tamanho, const std::nothrow_t& /*nada*/) noexcept { return aloca(tamanho); }
void operator delete(void* memoria) noexcept { libera(memoria); }
void operator delete[](void* memoria) noexcept { libera(memoria); }
void operator delete(void* memoria, std::size_t /*bytes*/) noexcept { libera(memoria); }
void operator delete[](void* memoria, std::size_t /*bytes*/) noexcept { libera(memoria); }
