// A request to stop, as an exception that ends a command.
#pragma once

#include "Sistema/Falha.h"
#include "Sistema/Terminal.h"

namespace cotepe::programa {

/// Thrown when a signal stops the work; its status is 128 and the signal's number.
class Interrupcao : public Falha {
 public:
  /// By that signal.
  explicit Interrupcao(int sinal);
};

/// Throws Interrupcao when a signal came that asks the program to stop.
void paraSeInterrompido();

}  // namespace cotepe::programa
