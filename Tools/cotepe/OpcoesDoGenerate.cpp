#include "OpcoesDoGenerate.h"

#include <unistd.h>

#include <algorithm>

#include "Idioma/Idioma.h"
#include "Saida.h"
#include "Sistema/ConflitoDeArquivos.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

[[noreturn]] void usoErrado(const std::string& texto) { throw Falha(kUsoErrado, texto); }

// Anything else would break a record, or be cut in it.
void exigeTexto(const std::string& opcao, const std::string& texto, std::size_t maximo) {
  const auto estranho = [](char c) { return c < ' ' || c > '~'; };
  if (texto.size() <= maximo && std::none_of(texto.begin(), texto.end(), estranho)) return;
  usoErrado(frase("wrong usage: {1}: found {2}, expected at most {3} characters of ASCII; correct it",
                  {opcao,
                   texto.size() > maximo ? frase("{1} characters", {std::to_string(texto.size())})
                                         : traduz("a character that is not printable ASCII"),
                   std::to_string(maximo)}));
}

void exigeForaDoBanco(const std::string& opcao, const std::string& arquivo, const std::string& banco) {
  if (pertenceAoBanco(arquivo, banco))
    usoErrado(frase(
        "wrong usage: {1} {2}: found the database or a file of it, expected another file; choose another "
        "name",
        {opcao, arquivo}));
}

}  // namespace

Periodo confere(const OpcoesDoGenerate& opcoes) {
  const auto [de, ate] = exigePeriodo(opcoes.de, opcoes.ate);
  if (opcoes.guardaParcial && opcoes.paraStdout())
    usoErrado(traduz(
        "wrong usage: --keep-partial: found --output -, expected a file to keep; name a file or leave out "
        "--keep-partial"));
  exigeTexto("--serial", opcoes.identidade.serial, 20);
  exigeTexto("--model", opcoes.identidade.modelo, 20);
  exigeTexto("--type", opcoes.identidade.tipo, 7);
  exigeTexto("--sb-version", opcoes.versaoSb, 10);
  return {de, ate};
}

void exigeArquivosDistintos(const OpcoesDoGenerate& opcoes, const std::string& destino) {
  if (!opcoes.log.empty()) exigeForaDoBanco("--log", opcoes.log, opcoes.banco);
  if (opcoes.paraStdout()) {
    if (abertoComo(STDOUT_FILENO, opcoes.banco))
      usoErrado(
          traduz("wrong usage: --output -: found stdout in the database, expected another file; send it "
                 "elsewhere"));
    return;
  }
  for (const std::string& escrito : {destino, nomeDoParcial(destino)}) {
    exigeForaDoBanco("--output", escrito, opcoes.banco);
    if (!opcoes.log.empty() && mesmoArquivo(opcoes.log, escrito))
      usoErrado(frase("wrong usage: --log {1}: found the output, expected another file; choose another name",
                      {opcoes.log}));
  }
}

}  // namespace cotepe::programa
