// cotepe verify: verifies a report against the database that it came from.
#include <memory>

#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Entrada/RelatorioLido.h"
#include "Idioma/Idioma.h"
#include "OpcoesComuns.h"
#include "OpcoesDeAchados.h"
#include "OpcoesDoPedido.h"
#include "Sistema/Falha.h"
#include "Verificacao/Verificacao.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoVerify {
  std::string banco, relatorio;
  OpcoesDoPedido pedido;
  int espera = 5000;  // milliseconds
  OpcoesDeAchados achados;
};

void executa(const OpcoesDoVerify& opcoes) {
  exigeRelatorioRelivel(opcoes.relatorio);
  RelatorioLido relatorio(opcoes.relatorio);
  const AjustesDoRelatorio lidos = ajustesDe(relatorio.linhas());
  relatorio.confereLeitura();
  const BancoSomenteLeitura banco(opcoes.banco, std::chrono::milliseconds(opcoes.espera), kUsoErrado);
  Verificacao verificacao(
      {opcoes.relatorio, opcoes.banco, opcoes.pedido.identidade, opcoes.pedido.dado(), opcoes.achados.calado},
      lidos, banco.banco());
  if (!opcoes.achados.calado) avisa(relatorio.nome() + ": " + verificacao.pedidoEmPalavras());
  const long total =
      imprimeAchados(opcoes.achados, [&](RecebeAchados& saida) { verificacao.compara(saida); });
  if (total > 0)
    throw Veredito(
        frase("{1}: not what the database gives; cotepe check looks for faults in the database, cotepe "
              "validate in the report",
              {relatorio.nome()}));
  dizQueEstaCerto(opcoes.achados,
                  frase("{1}: OK, identical to what {2} gives", {relatorio.nome(), opcoes.banco}));
}

}  // namespace

Acao declaraVerify(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoVerify>();
  comando.add_option("--db", o->banco, traduz("Fiscal database; it is only read"))
      ->type_name("FILE")
      ->required();
  comando.add_option("REPORT", o->relatorio, traduz("The report, a file"))->required();
  declaraPedido(comando, o->pedido);
  declaraEspera(comando, o->espera);
  declaraAchados(comando, o->achados);
  comando.footer(traduz(
      "What is not given is derived from the report: layout and CAT52 mode from its lines (where they leave\n"
      "a choice, what fits best), the command from E01, the period from the first day of E01, the movements "
      "of\n"
      "E12, the tapes of E10 and the last reduction of E01 as the database has it. The period asked for may\n"
      "have been longer; days without anything in them leave no trace. The time stamp of E11 is not "
      "compared.\n"
      "Exit status: 0 the report is what the database says, 1 it is not, 2 could not run, 4 writing\n"
      "failed, also for want of room for the temporary file."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
