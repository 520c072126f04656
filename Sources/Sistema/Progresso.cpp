#include "Sistema/Progresso.h"

#include <cstdio>
#include <utility>

#include "Sistema/Arquivo.h"
#include "Sistema/Terminal.h"

namespace cotepe::programa {
namespace {

constexpr auto kIntervalo = std::chrono::milliseconds(100);
constexpr char kApagaLinha[] = "\r\033[K";

}  // namespace

Progresso::Progresso(bool calado)
    : ligado_(!calado && ehTerminal(kErrosPadrao)), inicio_(Relogio::now()), ultima_(inicio_) {}

void Progresso::etapa(std::string texto) {
  etapa_ = std::move(texto);
  pulsa();
}

void Progresso::pulsa() noexcept {
  if (!ligado_ || Relogio::now() - ultima_ < kIntervalo) return;
  static_cast<void>(std::fprintf(stderr, "%scotepe: %s, %.1f s", kApagaLinha, etapa_.c_str(), segundos()));
  ultima_ = Relogio::now();
  aparece_ = true;
}

void Progresso::limpa() noexcept {
  if (std::exchange(aparece_, false)) static_cast<void>(std::fputs(kApagaLinha, stderr));
}

double Progresso::segundos() const noexcept {
  return std::chrono::duration<double>(Relogio::now() - inicio_).count();
}

}  // namespace cotepe::programa
