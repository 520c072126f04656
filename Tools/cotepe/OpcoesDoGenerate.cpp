#include "OpcoesDoGenerate.h"

#include <unistd.h>

#include <algorithm>

#include "ConflitoDeArquivos.h"
#include "Falha.h"
#include "Saida.h"

namespace cotepe::programa {
namespace {

[[noreturn]] void usoErrado(const std::string& onde, const std::string& encontrado,
                            const std::string& esperado, const std::string& oQueFazer) {
  throw Falha(kUsoErrado, "wrong usage", onde, encontrado, esperado, oQueFazer);
}

// Anything else would break a record, or be cut in it.
void exigeTexto(const std::string& opcao, const std::string& texto, std::size_t maximo) {
  const auto estranho = [](char c) { return c < ' ' || c > '~'; };
  if (texto.size() <= maximo && std::none_of(texto.begin(), texto.end(), estranho)) return;
  const bool longo = texto.size() > maximo;
  usoErrado(opcao,
            longo ? std::to_string(texto.size()) + " characters" : "a character that is not printable ASCII",
            "at most " + std::to_string(maximo) + " characters of ASCII", "correct it");
}

void exigeForaDoBanco(const std::string& opcao, const std::string& arquivo, const std::string& banco) {
  if (pertenceAoBanco(arquivo, banco))
    usoErrado(opcao + " " + arquivo, "the database or a file of it", "another file", "choose another name");
}

}  // namespace

Periodo confere(const OpcoesDoGenerate& opcoes) {
  const auto [de, ate] = exigePeriodo(opcoes.de, opcoes.ate);
  if (opcoes.guardaParcial && opcoes.paraStdout())
    usoErrado("--keep-partial", "--output -", "a file to keep", "name a file or leave out --keep-partial");
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
      usoErrado("--output -", "stdout in the database", "another file", "send it elsewhere");
    return;
  }
  for (const std::string& escrito : {destino, nomeDoParcial(destino)}) {
    exigeForaDoBanco("--output", escrito, opcoes.banco);
    if (!opcoes.log.empty() && mesmoArquivo(opcoes.log, escrito))
      usoErrado("--log " + opcoes.log, "the output", "another file", "choose another name");
  }
}

}  // namespace cotepe::programa
