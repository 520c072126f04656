#include "ArquivoLido.h"

#include <cerrno>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {

ArquivoLido::ArquivoLido(const std::string& caminho, int situacao) : arquivo_(abreParaLer(caminho)) {
  const int erro = errno;
  const bool pasta = arquivo_.aberto() && tipoDoAberto(arquivo_.numero()) == TipoDeArquivo::Pasta;
  if (arquivo_.aberto() && !pasta) return;
  throw Falha(situacao, frase("cannot open the report {1}: {2}",
                              {caminho, pasta ? traduz("it is a folder") : motivoDoSistema(erro)}));
}

long ArquivoLido::le(char* destino, std::size_t tamanho) const {
  for (;;) {
    paraSeInterrompido();
    const long lidos = leDe(arquivo_.numero(), destino, tamanho);
    if (lidos >= 0 || errno != EINTR) return lidos;
  }
}

}  // namespace cotepe::programa
