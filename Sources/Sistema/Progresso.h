// One line on the terminal that shows how far a long step has got.
#pragma once

#include <chrono>
#include <string>

namespace cotepe::programa {

/// Shows the step and the seconds since the start, at most ten times a second, in one line of stderr that
/// each update replaces. When stderr is not a terminal, or it is told to be silent, it does nothing.
class Progresso {
 public:
  explicit Progresso(bool calado);
  ~Progresso() { limpa(); }
  Progresso(const Progresso&) = delete;
  Progresso& operator=(const Progresso&) = delete;

  void etapa(std::string texto);
  void pulsa() noexcept;  // to be called often

  /// Removes the line so that others can write.
  void limpa() noexcept;

  double segundos() const noexcept;

 private:
  using Relogio = std::chrono::steady_clock;

  bool ligado_;
  bool aparece_ = false;
  std::string etapa_;
  Relogio::time_point inicio_, ultima_;
};

}  // namespace cotepe::programa
