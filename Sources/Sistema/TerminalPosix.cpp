#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

#include "Sistema/Terminal.h"

namespace cotepe {
namespace {

volatile std::sig_atomic_t g_sinal = 0;

void anota(int sinal) {
  if (g_sinal == 0) g_sinal = sinal;
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

bool ehTerminal(int descritor) { return isatty(descritor) != 0; }

void preparaFluxosPadrao() noexcept {
  for (int numero = 0; numero <= 2; ++numero) {
    if (fcntl(numero, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is the one just tried.
    open("/dev/null", numero == 0 ? O_WRONLY : O_RDONLY);  // NOLINT(android-cloexec-open)
  }
}

void instalaSinais() {
  for (const int sinal : {SIGINT, SIGTERM, SIGHUP}) recebe(sinal);
  for (const int sinal : {SIGPIPE, SIGXFSZ}) static_cast<void>(std::signal(sinal, SIG_IGN));
}

int sinalRecebido() noexcept { return g_sinal; }

const char* nomeDoSinal(int sinal) {
  switch (sinal) {
    case SIGINT:
      return "SIGINT";
    case SIGTERM:
      return "SIGTERM";
    case SIGHUP:
      return "SIGHUP";
    default:
      return nullptr;
  }
}

char** argumentosEmUtf8(int& /*argc*/, char** argv) { return argv; }

std::string idiomaDoSistema() { return {}; }

std::string pastaDoPrograma() {
  std::error_code erro;
  const auto executavel = std::filesystem::read_symlink("/proc/self/exe", erro);
  return erro ? std::string() : executavel.parent_path().string();
}

}  // namespace cotepe
