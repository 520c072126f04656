#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

#include "Sistema/Arquivo.h"
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

// Turns off the terminal's echo while this exists.
class SemEco {
 public:
  explicit SemEco(int terminal) : terminal_(terminal), ligado_(tcgetattr(terminal, &antes_) == 0) {
    termios agora = antes_;
    agora.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    if (ligado_) tcsetattr(terminal_, TCSAFLUSH, &agora);
  }
  ~SemEco() {
    if (ligado_) tcsetattr(terminal_, TCSAFLUSH, &antes_);
  }
  SemEco(const SemEco&) = delete;
  SemEco& operator=(const SemEco&) = delete;

 private:
  int terminal_;
  termios antes_{};
  bool ligado_;
};

// Whether there is something to read; false where a signal came, even one before this began to wait.
bool esperaTexto(int terminal) {
  sigset_t retidos, antes;
  sigemptyset(&retidos);
  for (const int sinal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&retidos, sinal);
  sigprocmask(SIG_BLOCK, &retidos, &antes);
  pollfd pronto{terminal, POLLIN, 0};
  const bool chegou = g_sinal == 0 && ppoll(&pronto, 1, nullptr, &antes) > 0;
  sigprocmask(SIG_SETMASK, &antes, nullptr);
  return chegou;
}

bool leLinha(int terminal, std::string& linha) {
  constexpr std::size_t kMaximo = 1024;
  linha.clear();
  linha.reserve(kMaximo);  // no copy of a secret is left behind as it grows
  for (char c = 0; linha.size() < kMaximo;) {
    if (!esperaTexto(terminal) || leDe(terminal, &c, 1) <= 0) return false;
    if (c == '\n') return true;
    linha += c;
  }
  return false;
}

}  // namespace

bool perguntaEmSegredo(const std::string& pergunta, std::string& resposta) {
  const Descritor terminal(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC));
  if (!terminal.aberto()) return false;
  bool lida = false;
  {
    const SemEco semEco(terminal.numero());
    lida = escreveEm(terminal.numero(), pergunta.data(), pergunta.size()) >= 0 &&
           leLinha(terminal.numero(), resposta);
  }
  return escreveEm(terminal.numero(), "\n", 1) >= 0 && lida;
}

bool ehTerminal(int descritor) { return isatty(descritor) != 0; }

std::size_t colunasDoTerminal(int descritor) {
  winsize tamanho{};
  return ehTerminal(descritor) && ioctl(descritor, TIOCGWINSZ, &tamanho) == 0 ? tamanho.ws_col : 0;
}

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
