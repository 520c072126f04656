// cotepe validate: a report held to the rules.
#include <unistd.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <vector>

#include "Comandos.h"
#include "Descritor.h"
#include "Falha.h"
#include "FluxoDeSaida.h"
#include "Numero.h"
#include "RelatorioLido.h"
#include "SaidaDeAchados.h"
#include "Validacao/Validador.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoValidate {
  std::string arquivo, formato = "text";
  long maximo = -1;
  std::vector<std::string> desligadas;
  bool regras = false;
};

void listaRegras() {
  std::ostringstream lista;
  for (std::size_t i = 0; i < kQuantasRegras; ++i) {
    const DescricaoDaRegra& regra = descricao(static_cast<Regra>(i));
    lista << std::left << std::setw(21) << regra.nome << std::setw(9)
          << (regra.severidade == Severidade::Erro ? "error" : "warning") << regra.resumo << '\n';
  }
  escreveNaSaidaPadrao(lista.str());
}

ConjuntoDeRegras desliga(const std::vector<std::string>& nomes) {
  ConjuntoDeRegras desligadas;
  for (const std::string& nome : nomes) {
    Regra regra{};
    if (!regraDe(nome, regra))
      throw Falha(kUsoErrado, "wrong usage", "--disable", nome, "the name of a rule",
                  "see cotepe validate --rules");
    desligadas.set(static_cast<std::size_t>(regra));
  }
  return desligadas;
}

void executa(const OpcoesDoValidate& opcoes) {
  if (opcoes.regras) return listaRegras();
  if (opcoes.arquivo.empty())
    throw Falha(kUsoErrado, "wrong usage", "FILE", "nothing", "a report, or - for stdin", "name it");
  const ConjuntoDeRegras desligadas = desliga(opcoes.desligadas);
  RelatorioLido relatorio(opcoes.arquivo);

  FluxoDeSaida fluxo;
  SaidaDeAchados::Opcoes comoSai = SaidaDeAchados::opcoesPara(STDOUT_FILENO);
  formatoDeAchados(opcoes.formato, comoSai.formato);
  comoSai.maximo = opcoes.maximo;
  SaidaDeAchados saida(fluxo, comoSai);

  Validador validador(saida, {relatorio.nome(), desligadas});
  validador.valida(relatorio.linhas());
  saida.termina();
  fluxo.conclui();
  relatorio.confereLeitura();
  if (saida.total() > 0)
    throw Falha(kIncompleto,
                relatorio.nome() + ": not clean; cotepe validate --rules says what the rules are");
}

}  // namespace

Execucao declaraValidate(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoValidate>();
  comando.add_option("FILE", o->arquivo, "The report; - for stdin");
  comando.add_option("--format", o->formato, "text, json (an object a line) or sarif (text)")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "json", "sarif"}));
  comando.add_option("--max-findings", o->maximo, "Print no more than this many; the counts stay whole")
      ->type_name("COUNT")
      ->check(numeroDesde(0));
  comando.add_option("--disable", o->desligadas, "Switch off a rule; may be given again")
      ->type_name("RULE")
      ->delimiter(',')
      ->expected(1)
      ->take_all();
  comando.add_flag("--rules", o->regras, "List the rules and exit");
  comando.footer(
      "Exit status: 0 nothing found, 1 findings, 2 could not run, 4 writing failed.\n"
      "Memory does not grow with the report: what it must remember of coupons stands in a temporary file.");
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
