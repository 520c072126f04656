#include "Sistema/PalavrasDoArquivo.h"

#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

Falha naoCria(const std::string& onde, const std::string& motivo) {
  return {kNaoAbre, frase("cannot create the output {1}: {2}; choose another --output", {onde, motivo})};
}

}  // namespace

Falha falhaDaSaida(const FalhaDeArquivo& falha) {
  const std::string& onde = falha.caminho();
  const auto motivo = [&falha] { return motivoDoSistema(falha.erro()); };
  switch (falha.passo()) {
    case PassoDeArquivo::NomeDePasta:
      return naoCria(onde, traduz("it is the name of a folder"));
    case PassoDeArquivo::Pasta:
      return naoCria(onde, traduz("it is a folder"));
    case PassoDeArquivo::NaoRegular:
      return naoCria(onde, traduz("it is not a regular file"));
    case PassoDeArquivo::Existe:
      return {kNaoAbre, frase("cannot create the output {1}: the file exists; choose another --output, or "
                              "--force to replace it",
                              {onde})};
    case PassoDeArquivo::NaoCria:
      return naoCria(onde, motivo());
    case PassoDeArquivo::NomeNaoEscrito:
      return {kNaoEscreve, frase("cannot be sure that the name {1} is on the disk: {2}; the file itself is "
                                 "whole; check the disk, and that the file is there",
                                 {onde, motivo()})};
    case PassoDeArquivo::NaoEscreve:
      break;
  }
  return {kNaoEscreve,
          frase("cannot write the output {1}: {2}; check the disk and try again", {onde, motivo()})};
}

}  // namespace cotepe::programa
