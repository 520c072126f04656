#include "Sistema/Descritor.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

void espera(int descritor) {
  pollfd pronto{descritor, POLLOUT, 0};
  poll(&pronto, 1, -1);
}

[[noreturn]] void naoEscreve(const char* nome, int erro) {
  if (erro == EPIPE) throw SemLeitor();
  throw Falha(kNaoEscreve, frase("cannot write to {1}: {2}", {nome, motivoDoSistema(erro)}));
}

}  // namespace

Descritor::~Descritor() {
  if (aberto()) close(numero_);
}

Descritor& Descritor::operator=(Descritor&& outro) noexcept {
  std::swap(numero_, outro.numero_);
  return *this;
}

void ocupaDescritoresPadrao() noexcept {
  for (int numero = 0; numero <= 2; ++numero) {
    if (fcntl(numero, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is the one just tried.
    open("/dev/null", numero == 0 ? O_WRONLY : O_RDONLY);  // NOLINT(android-cloexec-open)
  }
}

void escreveTudo(int descritor, std::string_view texto, const char* nome) {
  while (!texto.empty()) {
    const ssize_t escritos = write(descritor, texto.data(), texto.size());
    const int erro = errno;
    if (escritos >= 0) {
      texto.remove_prefix(static_cast<std::size_t>(escritos));
    } else if (erro == EAGAIN) {
      espera(descritor);
      paraSeInterrompido();
    } else if (erro == EINTR) {
      paraSeInterrompido();
    } else {
      naoEscreve(nome, erro);
    }
  }
}

// Closing any copy of a descriptor flushes the file.
void confirmaEscrita(int descritor, const char* nome) {
  const int copia = fcntl(descritor, F_DUPFD_CLOEXEC, 0);
  if (copia >= 0 && close(copia) != 0 && errno != EINTR) naoEscreve(nome, errno);
}

void escreveNaSaidaPadrao(std::string_view texto) {
  escreveTudo(STDOUT_FILENO, texto, "stdout");
  confirmaEscrita(STDOUT_FILENO, "stdout");
}

}  // namespace cotepe::programa
