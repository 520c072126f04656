// cotepe verify: a report held to the database that it came from.
#include <sqlite3.h>

#include <memory>

#include "AjustesDaGeracao.h"
#include "ArquivoDeLog.h"
#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Comparacao/Comparacao.h"
#include "Geracao.h"
#include "HospedeiroDoPrograma.h"
#include "Idioma/Idioma.h"
#include "NomeDoRelatorio.h"
#include "OpcoesComuns.h"
#include "OpcoesDeAchados.h"
#include "RelatorioLido.h"
#include "Resumo.h"
#include "Saida.h"
#include "Sistema/Falha.h"
#include "Sistema/Progresso.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

constexpr int kPassosEntrePulsos = 10000;  // virtual-machine instructions of SQLite

struct OpcoesDoVerify {
  std::string banco, relatorio;
  OpcoesDeAjuste ajuste;
  int espera = 5000;  // milliseconds
  bool calado = false;
  OpcoesDeAchados achados;
};

class Contagem final : public RecebeAchados {
 public:
  void recebe(const Achado& /*achado*/) override { ++total; }
  long total = 0;
};

/// Generates again, as often as it is asked to, and compares.
class Verificacao {
 public:
  Verificacao(const OpcoesDoVerify& opcoes, sqlite3* banco)
      : opcoes_(opcoes), banco_(banco), progresso_(opcoes.calado) {}

  void confronta(const Ajuste& ajuste, RecebeAchados& saida) {
    const auto gerado = gera(ajuste);
    RelatorioLido esperado(gerado->temporario(), true), encontrado(opcoes_.relatorio);
    progresso_.limpa();
    Comparacao(saida, {frase("the report of {1}", {opcoes_.banco}), encontrado.nome(), false, true})
        .compara(esperado.linhas(), encontrado.linhas());
    esperado.confereLeitura();
    encontrado.confereLeitura();
  }

 private:
  // The output that would go to stdout stands in a file without a name until it is delivered: here it never
  // is.
  std::unique_ptr<Saida> gera(const Ajuste& ajuste) {
    auto saida = saidaPadrao();
    ArquivoDeLog log;
    const std::string momento = momentoAtual();
    HospedeiroDoPrograma hospedeiro(opcoes_.ajuste.identidade, momento, banco_, log, progresso_);
    const auto continua = [](void* quem) {
      return static_cast<HospedeiroDoPrograma*>(quem)->continua() ? 0 : 1;
    };
    sqlite3_progress_handler(banco_, kPassosEntrePulsos, continua, &hospedeiro);
    Geracao geracao(banco_, hospedeiro);
    geracao.setVersaoAtoCotepe(ajuste.leiaute.versao);
    geracao.setCAT52(ajuste.leiaute.cat52);
    const int resultado = geracao.gera(saida->temporario().c_str(), ajuste.de.ddmmaaaa().c_str(),
                                       ajuste.ate.ddmmaaaa().c_str(), ajuste.comando.c_str());
    sqlite3_progress_handler(banco_, 0, nullptr, nullptr);
    paraSeInterrompido();
    exigeInteiro(resultado, hospedeiro);
    return saida;
  }

  void exigeInteiro(int resultado, const HospedeiroDoPrograma& hospedeiro) const {
    if (resultado == kIdentidadeFalhou)
      throw Falha(kUsoErrado, semIdentidade(opcoes_.banco, hospedeiro.motivo()));
    if (resultado != kGerado)
      throw Falha(kNaoEscreve, frase("cannot write the temporary file of {1} (result {2}); free some space, "
                                     "or set TMPDIR to a folder with more",
                                     {opcoes_.relatorio, std::to_string(resultado)}));
    const std::string faltam = incompletos(hospedeiro.etapas());
    if (!faltam.empty())
      throw Falha(kUsoErrado, frase("cannot verify: the database gives no whole report: {1}", {faltam}));
  }

  const OpcoesDoVerify& opcoes_;
  sqlite3* banco_;
  Progresso progresso_;
};

// The settings that leave the fewest differences, the first of them; a report that is right needs but one
// try. `menos`: how many they leave where there was a choice, below 0 where there was none.
const Ajuste& melhor(Verificacao& verificacao, const std::vector<Ajuste>& ajustes, long& menos) {
  const Ajuste* escolhido = &ajustes.front();
  menos = -1;
  for (const Ajuste& ajuste : ajustes) {
    if (ajustes.size() == 1) break;
    Contagem contagem;
    verificacao.confronta(ajuste, contagem);
    if (menos >= 0 && contagem.total >= menos) continue;
    menos = contagem.total;
    escolhido = &ajuste;
    if (menos == 0) break;
  }
  return *escolhido;
}

void executa(const OpcoesDoVerify& opcoes) {
  exigeRelatorioRelivel(opcoes.relatorio);
  RelatorioLido relatorio(opcoes.relatorio);
  const AjustesDoRelatorio lidos = ajustesDe(relatorio.linhas());
  relatorio.confereLeitura();
  const BancoSomenteLeitura banco(opcoes.banco, std::chrono::milliseconds(opcoes.espera), kUsoErrado);
  const std::vector<Ajuste> ajustes = ajustesPossiveis(banco.banco(), lidos, opcoes.ajuste);
  Verificacao verificacao(opcoes, banco.banco());
  long diferencas = 0;
  const Ajuste& ajuste = melhor(verificacao, ajustes, diferencas);
  std::vector<AjusteDoLeiaute> outros;
  if (diferencas == 0) outros = mesmosBytes(ajustes, ajuste, lidos);
  if (!opcoes.calado) avisa(relatorio.nome() + ": " + textoDoAjuste(ajuste, opcoes.ajuste, outros));

  const long total =
      imprimeAchados(opcoes.achados, [&](RecebeAchados& saida) { verificacao.confronta(ajuste, saida); });
  if (total > 0)
    throw Veredito(
        frase("{1}: not what the database gives; cotepe check looks for faults in the database, cotepe "
              "validate in the report",
              {relatorio.nome()}));
}

}  // namespace

Execucao declaraVerify(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoVerify>();
  comando.add_option("--db", o->banco, traduz("Fiscal database; it is only read"))
      ->type_name("FILE")
      ->required();
  comando.add_option("REPORT", o->relatorio, traduz("The report, a file"))->required();
  declaraAjustes(comando, o->ajuste);
  declaraEspera(comando, o->espera);
  comando.add_flag("--quiet", o->calado, traduz("Do not say what was derived"));
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
