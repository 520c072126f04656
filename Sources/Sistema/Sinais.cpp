#include "Sistema/Sinais.h"

#include <csignal>

#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

volatile std::sig_atomic_t g_sinal = 0;

void anota(int sinal) {
  if (g_sinal == 0) g_sinal = sinal;
}

std::string nomeDoSinal(int sinal) {
  switch (sinal) {
    case SIGINT:
      return "SIGINT";
    case SIGTERM:
      return "SIGTERM";
    case SIGHUP:
      return "SIGHUP";
    default:
      return frase("signal {1}", {std::to_string(sinal)});
  }
}

void recebe(int sinal) {
  struct sigaction anterior {};
  sigaction(sinal, nullptr, &anterior);
  if (anterior.sa_handler == SIG_IGN) return;
  struct sigaction nova {};
  nova.sa_handler = anota;
  sigaction(sinal, &nova, nullptr);
}

}  // namespace

Interrupcao::Interrupcao(int sinal) : Falha(128 + sinal, frase("interrupted by {1}", {nomeDoSinal(sinal)})) {}

void instalaSinais() {
  for (const int sinal : {SIGINT, SIGTERM, SIGHUP}) recebe(sinal);
  for (const int sinal : {SIGPIPE, SIGXFSZ}) static_cast<void>(std::signal(sinal, SIG_IGN));
}

int sinalRecebido() noexcept { return g_sinal; }

void paraSeInterrompido() {
  if (g_sinal != 0) throw Interrupcao(g_sinal);
}

}  // namespace cotepe::programa
