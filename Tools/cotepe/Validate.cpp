// cotepe validate: a report held to the rules.
#include <unistd.h>

#include <memory>
#include <vector>

#include "Achados/SaidaDeAchados.h"
#include "Comandos.h"
#include "Idioma/Idioma.h"
#include "Numero.h"
#include "RegrasNomeadas.h"
#include "RelatorioLido.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"
#include "Sistema/FluxoDeSaida.h"
#include "Validacao/Validacao.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoValidate {
  std::string arquivo, formato = "text";
  long maximo = -1;
  std::vector<std::string> desligadas;
  bool regras = false;
};

void executa(const OpcoesDoValidate& opcoes) {
  if (opcoes.regras) return listaRegras<Regra>(kQuantasRegras, 21);
  if (opcoes.arquivo.empty())
    throw Falha(kUsoErrado,
                traduz("wrong usage: FILE: found nothing, expected a report, or - for stdin; name it"));
  const ConjuntoDeRegras desligadas =
      regrasDesligadas<Regra, ConjuntoDeRegras>(opcoes.desligadas, "validate");
  RelatorioLido relatorio(opcoes.arquivo);

  FluxoDeSaida fluxo;
  SaidaDeAchados::Opcoes comoSai = SaidaDeAchados::opcoesPara(STDOUT_FILENO);
  formatoDeAchados(opcoes.formato, comoSai.formato);
  comoSai.maximo = opcoes.maximo;
  SaidaDeAchados saida(fluxo, comoSai);

  Validacao validador(saida, {relatorio.nome(), desligadas});
  validador.valida(relatorio.linhas());
  saida.termina();
  fluxo.conclui();
  relatorio.confereLeitura();
  if (saida.total() > 0)
    throw Falha(kIncompleto, frase("{1}: not clean; cotepe {2} --rules says what the rules are",
                                   {relatorio.nome(), "validate"}));
}

}  // namespace

Execucao declaraValidate(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoValidate>();
  comando.add_option("FILE", o->arquivo, traduz("The report; - for stdin"));
  comando.add_option("--format", o->formato, traduz("text, json (an object a line) or sarif (text)"))
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "json", "sarif"}));
  comando
      .add_option("--max-findings", o->maximo, traduz("Print no more than this many; the counts stay whole"))
      ->type_name("COUNT")
      ->check(numeroDesde(0));
  comando.add_option("--disable", o->desligadas, traduz("Switch off a rule; may be given again"))
      ->type_name("RULE")
      ->delimiter(',')
      ->allow_extra_args(false);
  comando.add_flag("--rules", o->regras, traduz("List the rules and exit"));
  comando.footer(traduz(
      "Exit status: 0 nothing found, 1 findings, 2 could not run, 4 writing failed.\n"
      "Memory does not grow with the report: what it must remember of coupons stands in a temporary file."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
