#include "Entrada/RelatorioLido.h"

#include <cerrno>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

Descritor abre(const std::string& caminho) {
  if (caminho == "-") return {};
  Descritor arquivo = abreParaLer(caminho);
  const bool pasta = arquivo.aberto() && tipoDoAberto(arquivo.numero()) == TipoDeArquivo::Pasta;
  if (arquivo.aberto() && !pasta) return arquivo;
  throw Falha(kUsoErrado, frase("cannot open the report {1}: {2}",
                                {caminho, pasta ? traduz("it is a folder") : motivoDoSistema(errno)}));
}

}  // namespace

RelatorioLido::RelatorioLido(const std::string& caminho, bool vazioServe)
    : nome_(caminho == "-" ? "stdin" : caminho),
      arquivo_(abre(caminho)),
      conteudo_([this](char* destino, std::size_t tamanho) { return le(destino, tamanho); }, nome_,
                vazioServe),
      linhas_([this](char* destino, std::size_t tamanho) { return conteudo_.le(destino, tamanho); }) {}

long RelatorioLido::le(char* destino, std::size_t tamanho) const {
  for (;;) {
    paraSeInterrompido();
    const long lidos = leDe(arquivo_.aberto() ? arquivo_.numero() : kEntradaPadrao, destino, tamanho);
    if (lidos >= 0 || errno != EINTR) return lidos;
  }
}

void RelatorioLido::confereLeitura() const {
  if (linhas_.erro() == 0) return;
  throw Falha(kUsoErrado,
              frase("cannot read the report {1} to its end: {2}", {nome_, motivoDoSistema(linhas_.erro())}));
}

void exigeRelatorioRelivel(const std::string& caminho) {
  if (caminho != "-" && tipoDoArquivo(caminho) != TipoDeArquivo::Outra) return;
  throw Falha(kUsoErrado, frase("{1}: the report is read more than once, so it must be a file",
                                {caminho == "-" ? "stdin" : caminho}));
}

}  // namespace cotepe::programa
