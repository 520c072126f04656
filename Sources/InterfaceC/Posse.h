// Who uses a generator: nobody, a call, or a run that was left without returning.
#pragma once

#include <atomic>
#include <cstdint>

namespace cotepe {

/// Taken by one call at a time. A call that longjmp or an exception of another language leaves without
/// returning never gives it back; `abandonada` detects that on the thread of that call from the position on
/// the stack, which grows downwards on every supported system.
class Posse {
 public:
  /// False when it is taken.
  bool toma() noexcept;
  void solta() noexcept { tomada_.clear(); }

  /// Whether the call that took it, on this thread, and through `comFolga`, is gone.
  bool abandonada() const noexcept;

  /// Calls `funcao` further down on the stack than anything that may ask `abandonada` from outside it.
  template <class Funcao>
  [[gnu::noinline]] static int comFolga(const Funcao& funcao) {
    volatile char folga[kFolga];
    folga[0] = 0;
    const int resultado = funcao();
    folga[kFolga - 1] = folga[0];  // the space is needed until here
    return resultado;
  }

 private:
  static constexpr std::uintptr_t kFolga = 16384;

  std::atomic_flag tomada_ = ATOMIC_FLAG_INIT;
  std::atomic<std::uintptr_t> limite_{0};  // anything below it belongs to the call
  std::atomic<const void*> linhaDeExecucao_{nullptr};
};

}  // namespace cotepe
