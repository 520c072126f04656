#include "OpcoesDeAchados.h"

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <optional>
#include <sstream>

#include "Achados/SaidaDeAchados.h"
#include "Idioma/Idioma.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"
#include "Sistema/FluxoDeSaida.h"
#include "Sugestao.h"
#include "Valores.h"

namespace cotepe::programa {

namespace {

void declaraAparencia(CLI::App& comando, OpcoesDeAchados& opcoes) {
  comando.add_flag("--all", opcoes.todos, traduz("Print all findings"));
  comando.add_option("--color", opcoes.cores, traduz("Colours: auto, always or never (auto: on a terminal)"))
      ->type_name("WHEN")
      ->transform(escolha({"auto", "always", "never"}));
  comando.add_flag("--quiet", opcoes.calado, traduz("Say nothing where all is well"));
}

}  // namespace

void declaraAchados(CLI::App& comando, OpcoesDeAchados& opcoes) {
  comando.add_option("--format", opcoes.formato, traduz("text, json (an object a line) or sarif (text)"))
      ->type_name("FORMAT")
      ->transform(escolha({"text", "json", "sarif"}));
  comando
      .add_option("--max-findings", opcoes.maximo,
                  traduz("Print no more than this many of each rule; the counts stay whole (20 of text)"))
      ->type_name("COUNT")
      ->transform(numeroDesde(0));
  declaraAparencia(comando, opcoes);
}

void declaraRegras(CLI::App& comando, OpcoesDeAchados& opcoes) {
  comando.add_option("--disable", opcoes.desligadas, traduz("Switch off a rule; may be given again"))
      ->type_name("RULE")
      ->delimiter(',')
      ->allow_extra_args(false);
  comando.add_flag("--rules", opcoes.regras, traduz("List the rules and exit"));
}

void listaRegras(Regras regras) {
  std::size_t largura = 0;
  for (const Regra* regra : regras) largura = std::max(largura, std::strlen(regra->nome) + 2);
  std::ostringstream lista;
  for (const Regra* regra : regras)
    lista << std::left << std::setw(static_cast<int>(largura)) << regra->nome << std::setw(9)
          << traduz(regra->severidade == Severidade::Erro ? marca("error") : marca("warning"))
          << traduz(regra->resumo) << '\n';
  escreveNaSaidaPadrao(lista.str());
}

namespace {

long maximoDe(const OpcoesDeAchados& opcoes, FormatoDeAchados formato) {
  constexpr long kDeTexto = 20;
  if (opcoes.todos) return -1;
  if (opcoes.maximo != OpcoesDeAchados::kPadrao) return opcoes.maximo;
  return formato == FormatoDeAchados::Texto ? kDeTexto : -1;
}

std::vector<std::string> nomesDe(Regras regras) {
  std::vector<std::string> nomes;
  for (const Regra* regra : regras) nomes.emplace_back(regra->nome);
  return nomes;
}

}  // namespace

Supressoes regrasDesligadas(const OpcoesDeAchados& opcoes, Regras regras, const std::string& comando) {
  Supressoes supressoes;
  for (const std::string& nome : opcoes.desligadas) {
    const Regra* regra = regras.acha(nome);
    if (regra == nullptr)
      throw Falha(kUsoErrado, frase("--disable: unknown rule {1}", {nome}) +
                                  voceQuisDizer(nome, nomesDe(regras)) +
                                  frase("; see {1}", {"cotepe " + comando + " --rules"}));
    supressoes.desliga(*regra);
  }
  return supressoes;
}

std::string quantasRegras(Regras regras, const Supressoes& desligadas) {
  return fraseDe("{n} rule", "{n} rules",
                 std::count_if(regras.begin(), regras.end(),
                               [&](const Regra* regra) { return desligadas.ligada(*regra); }));
}

void dizQueEstaCerto(const OpcoesDeAchados& opcoes, const std::string& texto) {
  if (!opcoes.calado) avisa(texto);
}

long imprimeAchados(const OpcoesDeAchados& opcoes, const std::function<void(RecebeAchados&)>& acha) {
  FluxoDeSaida fluxo;
  SaidaDeAchados::Opcoes comoSai = SaidaDeAchados::opcoesPara(kSaidaPadrao);
  formatoDeAchados(opcoes.formato, comoSai.formato);
  comoSai.maximo = maximoDe(opcoes, comoSai.formato);
  if (opcoes.cores != "auto") comoSai.cores = opcoes.cores == "always";
  std::optional<EmIngles> paraProgramas;
  if (comoSai.formato != FormatoDeAchados::Texto) paraProgramas.emplace();
  SaidaDeAchados saida(fluxo, comoSai);
  acha(saida);
  saida.termina();
  fluxo.conclui();
  return saida.total();
}

}  // namespace cotepe::programa
