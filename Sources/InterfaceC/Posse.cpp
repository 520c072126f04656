#include "Posse.h"

namespace cotepe {
namespace {

thread_local char g_marcaDaLinhaDeExecucao;  // its address tells one thread from another

std::uintptr_t lugarNaPilha() { return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)); }

}  // namespace

bool Posse::toma() noexcept {
  if (tomada_.test_and_set()) return false;
  limite_ = lugarNaPilha() - kFolga;
  linhaDeExecucao_ = &g_marcaDaLinhaDeExecucao;
  return true;
}

bool Posse::abandonada() const noexcept {
  return linhaDeExecucao_ == &g_marcaDaLinhaDeExecucao && lugarNaPilha() > limite_;
}

}  // namespace cotepe
