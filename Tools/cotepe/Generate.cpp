// cotepe generate: the report of a period.
#include <memory>

#include "AjustesDaGeracao.h"
#include "Comandos.h"
#include "Idioma/Idioma.h"
#include "OpcoesComuns.h"
#include "Relatorio.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

void declaraEntrada(CLI::App& comando, OpcoesDoGenerate& o) {
  comando.add_option("--db", o.banco, traduz("Fiscal database; it is only read"))
      ->type_name("FILE")
      ->required();
  declaraPeriodo(comando, o.periodo, traduz("First day, as DD/MM/YYYY or YYYY-MM-DD"));
  comando.add_option("--command", o.comando, traduz("MF, MFD, TDM or RZ: which registers (TDM)"))
      ->type_name("COMMAND")
      ->transform(comandoDoEcf());
  comando.add_option("--layout", o.leiaute, traduz("Layout version, 1 or 2 (1)"))
      ->type_name("VERSION")
      ->transform(escolha({"1", "2"}));
  comando.add_flag("--cat52", o.cat52, traduz("CAT52 mode: no placeholder records, no texts in E14"));
  declaraEspera(comando, o.espera);
}

void declaraSaida(CLI::App& comando, OpcoesDoGenerate& o) {
  comando
      .add_option("--output", o.saida, traduz("The report; - is stdout (COMMANDserial_yyyymmdd_hhmmss.TXT)"))
      ->type_name("FILE")
      ->check([](const std::string& texto) { return texto.empty() ? traduz("empty name") : ""; });
  comando.add_flag("--force", o.substitui, traduz("Replace the report if it exists"));
  comando.add_flag("--keep-partial", o.guardaParcial, traduz("Keep an incomplete report as FILE.partial"));
  comando.add_option("--log", o.log, traduz("Append failed queries to this file (stderr)"))
      ->type_name("FILE");
  comando.add_flag("--quiet", o.calado, traduz("No summary and no progress; failures are always told"));
}

void declaraQuemEmite(CLI::App& comando, OpcoesDoGenerate& o) {
  declaraIdentidade(comando, o.identidade);
  comando
      .add_option("--sb-version", o.versaoSb, traduz("Accepted; the layout takes it from the database alone"))
      ->type_name("TEXT");
}

}  // namespace

Execucao declaraGenerate(CLI::App& comando) {
  const auto opcoes = std::make_shared<OpcoesDoGenerate>();
  declaraEntrada(comando, *opcoes);
  declaraSaida(comando, *opcoes);
  declaraQuemEmite(comando, *opcoes);
  return [opcoes] { geraRelatorio(*opcoes); };
}

}  // namespace cotepe::programa
