// The signals that ask the program to stop, as a flag that the long steps look at.
#pragma once

#include "Sistema/Falha.h"

namespace cotepe::programa {

/// Thrown where a signal stops the work; its status is 128 and the signal's number.
class Interrupcao : public Falha {
 public:
  explicit Interrupcao(int sinal);
};

/// Takes over SIGINT, SIGTERM and SIGHUP, those excepted that the caller of the program had ignored, so that
/// system calls end early with EINTR; ignores SIGPIPE and SIGXFSZ, so that the failed write is seen instead.
void instalaSinais();

/// The first of those signals that came, or 0.
int sinalRecebido() noexcept;

/// Throws Interrupcao when one came.
void paraSeInterrompido();

}  // namespace cotepe::programa
