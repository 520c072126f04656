// Apart from its users, so that no compiler pairs an inlined new with a delete it does not know.
#include "Alocacao.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<unsigned long> quantas = 0;
}

unsigned long alocacoes() { return quantas; }

void* operator new(std::size_t tamanho) {
  ++quantas;
  if (void* memoria = std::malloc(tamanho == 0 ? 1 : tamanho)) return memoria;
  throw std::bad_alloc();
}

void operator delete(void* memoria) noexcept { std::free(memoria); }
void operator delete(void* memoria, std::size_t) noexcept { std::free(memoria); }
