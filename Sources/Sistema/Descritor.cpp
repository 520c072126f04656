#include "Sistema/Descritor.h"

#include <cerrno>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

[[noreturn]] void naoEscreve(const char* nome, int erro) {
  if (erro == EPIPE) throw SemLeitor();
  throw Falha(kNaoEscreve, frase("cannot write to {1}: {2}", {nome, motivoDoSistema(erro)}));
}

}  // namespace

void escreveTudo(int descritor, std::string_view texto, const char* nome) {
  while (!texto.empty()) {
    const long escritos = escreveEm(descritor, texto.data(), texto.size());
    const int erro = errno;
    if (escritos >= 0) {
      texto.remove_prefix(static_cast<std::size_t>(escritos));
    } else if (erro == EAGAIN) {
      esperaLugar(descritor);
      paraSeInterrompido();
    } else if (erro == EINTR) {
      paraSeInterrompido();
    } else {
      naoEscreve(nome, erro);
    }
  }
}

void confirmaEscrita(int descritor, const char* nome) {
  if (!confirmaFechamento(descritor)) naoEscreve(nome, errno);
}

void escreveNaSaidaPadrao(std::string_view texto) {
  escreveTudo(kSaidaPadrao, texto, "stdout");
  confirmaEscrita(kSaidaPadrao, "stdout");
}

}  // namespace cotepe::programa
