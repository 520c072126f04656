// A process that stops at each of its system calls, where the call can be made to fail, to do half of its
// work, or to be the last one.
#pragma once

#include <sys/types.h>

#include <array>
#include <functional>
#include <optional>
#include <string>

/// A system call of the process `quem` that is about to be made.
struct Chamada {
  pid_t quem = 0;
  long numero = 0;  // SYS_write ...
  std::array<unsigned long, 6> argumentos{};

  /// What the descriptor in the first argument stands for: the path of a file, "pipe:[...]" ...
  std::string alvo() const;
};

/// What becomes of a call.
struct Destino {
  enum Tipo { Segue, MataAntes, MataDepois, Erra, Encurta };
  Tipo tipo = Segue;
  int erro = 0;  // Erra: the value of errno; the call is not made
};

/// Decides over each call. Encurta halves the third argument, the count of bytes of a write.
using Regra = std::function<Destino(const Chamada&)>;

/// Follows a child that asked for it (PTRACE_TRACEME) and stopped, until it ends or is killed. Returns its
/// state as waitpid gives it where it was collected here; else the caller has to.
std::optional<int> rastreia(pid_t filho, const Regra& regra);

/// Whether the call writes to a file, brings one to the disk, closes it, or changes a name.
bool grava(const Chamada& chamada);
