#include "OpcoesDoGenerate.h"

#include <algorithm>

#include "Idioma/Idioma.h"
#include "Saida.h"
#include "Sistema/Arquivo.h"
#include "Sistema/ConflitoDeArquivos.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

[[noreturn]] void usoErrado(const std::string& texto) { throw Falha(kUsoErrado, texto); }

// Anything else would break a record, or be cut in it.
void exigeTexto(const std::string& opcao, const std::string& texto, std::size_t maximo) {
  const auto estranho = [](char c) { return c < ' ' || c > '~'; };
  if (texto.size() <= maximo && std::none_of(texto.begin(), texto.end(), estranho)) return;
  usoErrado(texto.size() > maximo ? frase("{1} has {2} characters; the field takes {3}",
                                          {opcao, std::to_string(texto.size()), std::to_string(maximo)})
                                  : frase("{1} has a character that is not printable ASCII", {opcao}));
}

void exigeForaDoBanco(const std::string& opcao, const std::string& arquivo, const std::string& banco) {
  if (pertenceAoBanco(arquivo, banco))
    usoErrado(
        frase("{1} {2} would overwrite the database or a file of it; choose another name", {opcao, arquivo}));
}

}  // namespace

PeriodoDaGeracao confere(const OpcoesDoGenerate& opcoes) {
  const auto [de, ate] = periodoInteiro(opcoes.periodo);
  if (opcoes.guardaParcial && opcoes.paraStdout())
    usoErrado(traduz("--keep-partial needs a file to keep, and --output - is none"));
  if (!opcoes.entrega.empty() && !opcoes.semNome())
    usoErrado(traduz("--deliver names the report itself; leave out --output"));
  if (opcoes.entrega.empty() && !opcoes.chave.arquivo.empty())
    usoErrado(traduz("--key needs --deliver; cotepe sign signs a report that is there"));
  exigeTexto("--serial", opcoes.identidade.serial, 20);
  exigeTexto("--model", opcoes.identidade.modelo, 20);
  exigeTexto("--type", opcoes.identidade.tipo, 7);
  exigeTexto("--sb-version", opcoes.versaoSb, 10);
  return {de, ate};
}

void exigeArquivosDistintos(const OpcoesDoGenerate& opcoes, const std::string& destino) {
  if (!opcoes.log.empty()) exigeForaDoBanco("--log", opcoes.log, opcoes.banco);
  if (opcoes.paraStdout()) {
    if (abertoComo(kSaidaPadrao, opcoes.banco))
      usoErrado(traduz("--output -: stdout goes into the database; send it elsewhere"));
    return;
  }
  for (const std::string& escrito : {destino, nomeDoParcial(destino)}) {
    exigeForaDoBanco("--output", escrito, opcoes.banco);
    if (!opcoes.log.empty() && mesmoArquivo(opcoes.log, escrito))
      usoErrado(frase("--log {1} is the output too; choose another name", {opcoes.log}));
  }
}

}  // namespace cotepe::programa
