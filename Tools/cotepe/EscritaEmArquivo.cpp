#include "EscritaEmArquivo.h"

#include <cerrno>
#include <utility>

#include "Idioma/Idioma.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

[[noreturn]] void naoEscreve(const std::string& nome) {
  const int erro = errno;
  paraSeInterrompido();
  throw Falha(kNaoEscreve,
              frase("cannot write {1}: {2}; free some space and try again", {nome, motivoDoSistema(erro)}));
}

}  // namespace

EscritaEmArquivo::EscritaEmArquivo(const std::string& caminho, std::string nome)
    : nome_(std::move(nome)), fluxo_(abreFluxo(caminho, "wb")) {
  if (fluxo_ == nullptr)
    throw Falha(kNaoAbre,
                frase("cannot open the temporary file of {1}: {2}", {nome_, motivoDoSistema(errno)}));
  static_cast<void>(std::setvbuf(fluxo_.get(), nullptr, _IONBF, 0));  // the data already comes in blocks
}

void EscritaEmArquivo::escreve(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), fluxo_.get()) != bytes.size()) naoEscreve(nome_);
}

void EscritaEmArquivo::conclui() {
  if (std::fclose(fluxo_.release()) != 0) naoEscreve(nome_);
}

}  // namespace cotepe::programa
