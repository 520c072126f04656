// cotepe check: checks a fiscal database against what the registers need of it.
#include <sqlite3.h>

#include <memory>

#include "BancoFiscal/ErroDoBanco.h"
#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Conferencia/Conferencia.h"
#include "Idioma/Idioma.h"
#include "OpcoesComuns.h"
#include "OpcoesDeAchados.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoCheck {
  std::string banco, comando;
  OpcoesDePeriodo periodo;
  int leiaute = 0;
  int espera = 5000;  // milliseconds
  bool cat52 = false;
  OpcoesDeAchados achados;
};

OpcoesDaConferencia confere(const OpcoesDoCheck& opcoes) {
  if (opcoes.banco.empty()) throw Falha(kUsoErrado, traduz("--db is missing; name a fiscal database"));
  OpcoesDaConferencia verificacao{opcoes.banco,
                                  {opcoes.comando, opcoes.leiaute, opcoes.cat52},
                                  "",
                                  "",
                                  regrasDesligadas(opcoes.achados, conferencia::kRegras, "check")};
  if (opcoes.periodo.vazio()) return verificacao;
  const auto [de, ate] = periodoInteiro(opcoes.periodo);
  verificacao.de = de.iso();
  verificacao.ate = ate.iso();
  return verificacao;
}

void verifica(const OpcoesDoCheck& opcoes, const OpcoesDaConferencia& verificacao, RecebeAchados& saida) {
  const BancoSomenteLeitura aberto(opcoes.banco, std::chrono::milliseconds(opcoes.espera), kUsoErrado);
  aberto.paraComSinal();
  try {
    confereBanco(aberto.banco(), verificacao, saida);
  } catch (const ErroDoBanco& erro) {
    paraSeInterrompido();
    const ErroDoBanco::Partes& partes = erro.partes();
    throw Falha(kUsoErrado,
                frase("{1}: {2}: found {3}, expected {4}; {5}",
                      {partes.oQue, opcoes.banco, partes.encontrado, partes.esperado, partes.oQueFazer}));
  }
}

// What is said of a database without findings.
std::string emOrdem(const OpcoesDoCheck& opcoes, const OpcoesDaConferencia& verificacao) {
  std::string texto =
      frase("{1}: OK, {2}", {opcoes.banco, quantasRegras(conferencia::kRegras, verificacao.desligadas)});
  if (verificacao.de.empty()) return texto;
  return frase("{1}, {2} to {3}",
               {texto, Dia::le(verificacao.de)->paraPessoas(), Dia::le(verificacao.ate)->paraPessoas()});
}

void executa(const OpcoesDoCheck& opcoes) {
  if (opcoes.achados.regras) return listaRegras(conferencia::kRegras);
  const OpcoesDaConferencia verificacao = confere(opcoes);
  const long total =
      imprimeAchados(opcoes.achados, [&](RecebeAchados& saida) { verifica(opcoes, verificacao, saida); });
  if (total > 0)
    throw Veredito(frase("{1}: problems found; cotepe {2} --rules lists the rules", {opcoes.banco, "check"}));
  dizQueEstaCerto(opcoes.achados, emOrdem(opcoes, verificacao));
}

}  // namespace

Acao declaraCheck(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoCheck>();
  comando.add_option("--db", o->banco, traduz("Fiscal database; it is only read"))->type_name("FILE");
  declaraPeriodo(comando, o->periodo, traduz("First day, as DD/MM/YYYY or YYYY-MM-DD (all that is stored)"));
  comando
      .add_option("--command", o->comando,
                  traduz("MF, MFD, TDM or RZ: what only others write is left out (all)"))
      ->type_name("COMMAND")
      ->transform(comandoDoEcf());
  comando
      .add_option("--layout", o->leiaute, traduz("Layout version, 1 or 2 (both: fields of 2, counters of 1)"))
      ->type_name("VERSION")
      ->transform(escolha({"1", "2"}));
  comando.add_flag("--cat52", o->cat52, traduz("CAT52 mode: no texts in E14"));
  declaraEspera(comando, o->espera);
  declaraAchados(comando, o->achados);
  declaraRegras(comando, o->achados);
  comando.footer(
      traduz("Exit status: 0 nothing found, 1 findings, 2 could not run, 4 writing failed.\n"
             "With a period the documents of its Z reductions are looked at; reductions, detail tapes, small "
             "tables\n"
             "and what does not match between tables always whole."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
