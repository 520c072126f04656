// cotepe verify: a report held to the database that it came from.
#include <sqlite3.h>

#include <memory>
#include <optional>

#include "AjustesDoRelatorio.h"
#include "ArquivoDeLog.h"
#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Consulta.h"
#include "Dia.h"
#include "Diferenca.h"
#include "Falha.h"
#include "FluxoDeSaida.h"
#include "Geracao.h"
#include "HospedeiroDoPrograma.h"
#include "NomeDoRelatorio.h"
#include "Progresso.h"
#include "RelatorioLido.h"
#include "Resumo.h"
#include "Saida.h"
#include "SaidaDoDiff.h"
#include "Sinais.h"

namespace cotepe::programa {
namespace {

constexpr int kPassosEntrePulsos = 10000;  // virtual-machine instructions of SQLite
constexpr char kDiaSemNada[] = "0001-01-01";

struct OpcoesDoVerify {
  std::string banco, relatorio, de, ate, comando;
  std::optional<int> leiaute;
  std::optional<bool> cat52;
  Identidade identidade;
  int espera = 5000;  // milliseconds
  bool calado = false;
  OpcoesDeDiferencas saida;
};

/// What a report is generated with.
struct Ajuste {
  AjusteDoLeiaute leiaute;
  std::string comando;
  Dia de, ate;
};

Dia diaDe(const std::string& iso) { return *Dia::le(iso); }

std::string comHifens(const std::string& aaaammdd) {
  return aaaammdd.substr(0, 4) + '-' + aaaammdd.substr(4, 2) + '-' + aaaammdd.substr(6, 2);
}

// The last day of movement of a report whose E12 does not tell: that of E01's last reduction, which the
// database knows. E01 itself tells only when that was issued, often after midnight.
std::string ultimoMovimento(sqlite3* banco, const AjustesDoRelatorio& lidos) {
  if (lidos.ultimoCrz.empty() || lidos.primeiro.empty() || lidos.ultimaEmissao.empty()) return {};
  Consulta consulta(
      banco, "SELECT MAX(SUBSTR(data_movimento, 1, 10)) FROM reducao_z WHERE data_movimento >= '" +
                 comHifens(lidos.primeiro) + "' AND data_hora_emissao <= '" + comHifens(lidos.ultimaEmissao) +
                 " 23:59:59' AND CAST(cont_crz AS INTEGER) % 1000000 = " + lidos.ultimoCrz);
  return consulta.avanca() ? consulta.texto(0) : "";
}

Dia ultimoDia(sqlite3* banco, const AjustesDoRelatorio& lidos) {
  const std::string hifens = lidos.ultimo.empty() ? kDiaSemNada : comHifens(lidos.ultimo);
  const std::optional<Dia> movimento = Dia::le(ultimoMovimento(banco, lidos));
  const Dia ultimo = diaDe(hifens);
  return movimento && ultimo < *movimento ? *movimento : ultimo;
}

std::vector<Ajuste> possiveis(sqlite3* banco, const AjustesDoRelatorio& lidos, const OpcoesDoVerify& opcoes) {
  const Dia de = !opcoes.de.empty()       ? exigeDia("--from", opcoes.de)
                 : lidos.primeiro.empty() ? diaDe(kDiaSemNada)
                                          : diaDe(comHifens(lidos.primeiro));
  const Dia ate = !opcoes.ate.empty() ? exigeDia("--to", opcoes.ate) : ultimoDia(banco, lidos);
  const std::string comando = opcoes.comando.empty() ? lidos.comando : opcoes.comando;
  std::vector<Ajuste> todos;
  for (AjusteDoLeiaute leiaute : lidos.leiautes) {
    leiaute.versao = opcoes.leiaute.value_or(leiaute.versao);
    leiaute.cat52 = opcoes.cat52.value_or(leiaute.cat52);
    bool novo = true;
    for (const Ajuste& outro : todos) novo = novo && !(outro.leiaute == leiaute);
    if (novo) todos.push_back({leiaute, comando, de, ate});
  }
  return todos;
}

std::string texto(const Ajuste& ajuste, const OpcoesDoVerify& opcoes) {
  const auto de = [](bool dado) { return dado ? " (given)" : " (derived)"; };
  return "layout " + std::to_string(ajuste.leiaute.versao) + de(opcoes.leiaute.has_value()) + ", CAT52 " +
         (ajuste.leiaute.cat52 ? "on" : "off") + de(opcoes.cat52.has_value()) + ", command " +
         (ajuste.comando.empty() ? "none" : ajuste.comando) + de(!opcoes.comando.empty()) + ", from " +
         ajuste.de.iso() + de(!opcoes.de.empty()) + " to " + ajuste.ate.iso() + de(!opcoes.ate.empty());
}

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
    RelatorioLido esperado(gerado->temporario()), encontrado(opcoes_.relatorio);
    progresso_.limpa();
    Diferenca(saida, {"the report of " + opcoes_.banco, encontrado.nome(), false})
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
    HospedeiroDoPrograma hospedeiro(opcoes_.identidade, momento, banco_, log, progresso_);
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
      throw Falha(kSemIdentidade, "cannot read the printer's identity", opcoes_.banco, hospedeiro.motivo(),
                  "the tables dados_ecf and dados_usuario", "check that --db is a fiscal database");
    if (resultado != kGerado)
      throw Falha(kNaoEscreve, "cannot write the temporary file", opcoes_.relatorio,
                  "a failure of result " + std::to_string(resultado), "room for the whole report",
                  "free some space or set TMPDIR to a folder with more");
    const std::string faltam = incompletos(hospedeiro.etapas());
    if (!faltam.empty())
      throw Falha(kUsoErrado, "cannot verify: the database gives no whole report: " + faltam);
  }

  const OpcoesDoVerify& opcoes_;
  sqlite3* banco_;
  Progresso progresso_;
};

// The settings that leave the fewest differences, the first of them; a report that is right needs but one
// try.
const Ajuste& melhor(Verificacao& verificacao, const std::vector<Ajuste>& ajustes) {
  const Ajuste* escolhido = &ajustes.front();
  long menos = -1;
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
  if (opcoes.relatorio == "-")
    throw Falha(kUsoErrado, "wrong usage", "REPORT", "stdin", "a file, which is read twice", "name it");
  RelatorioLido relatorio(opcoes.relatorio);
  const AjustesDoRelatorio lidos = ajustesDe(relatorio.linhas());
  relatorio.confereLeitura();
  const BancoSomenteLeitura banco(opcoes.banco, std::chrono::milliseconds(opcoes.espera));
  const std::vector<Ajuste> ajustes = possiveis(banco.banco(), lidos, opcoes);
  Verificacao verificacao(opcoes, banco.banco());
  const Ajuste& ajuste = melhor(verificacao, ajustes);
  if (!opcoes.calado) avisa(relatorio.nome() + ": " + texto(ajuste, opcoes));

  FluxoDeSaida fluxo;
  SaidaDeAchados saida(fluxo, opcoes.saida.paraStdout());
  verificacao.confronta(ajuste, saida);
  saida.termina();
  fluxo.flush();
  if (saida.total() > 0) throw Falha(kIncompleto, relatorio.nome() + ": not what the database says");
}

void declaraAjustes(CLI::App& comando, OpcoesDoVerify& o) {
  comando.add_option("--from", o.de, "First day, DDMMYYYY or YYYY-MM-DD")->type_name("DAY");
  comando.add_option("--to", o.ate, "Last day, the same forms")->type_name("DAY");
  comando.add_option("--command", o.comando, "The command as generate was given it")->type_name("COMMAND");
  comando.add_option("--layout", o.leiaute, "Layout version")
      ->type_name("VERSION")
      ->check(CLI::IsMember({1, 2, 3}));
  comando.add_flag_callback(
      "--cat52", [&o] { o.cat52 = true; }, "CAT52 mode");
  comando.add_flag_callback(
      "--no-cat52", [&o] { o.cat52 = false; }, "No CAT52 mode");
  comando.add_option("--serial", o.identidade.serial, "Manufacture number, if the database has none")
      ->type_name("TEXT");
  comando.add_option("--model", o.identidade.modelo, "Model, if the database has none")->type_name("TEXT");
  comando.add_option("--type", o.identidade.tipo, "Type, if the database has none")->type_name("TEXT");
}

}  // namespace

Execucao declaraVerify(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoVerify>();
  comando.add_option("--db", o->banco, "Fiscal database; it is only read")->type_name("FILE")->required();
  comando.add_option("REPORT", o->relatorio, "The report, a file")->required();
  declaraAjustes(comando, *o);
  comando
      .add_option("--busy-timeout", o->espera,
                  "How long to wait for a locked database, in milliseconds (5000)")
      ->type_name("MS")
      ->check(CLI::Range(0, 86400000));
  comando.add_flag("--quiet", o->calado, "Do not say what was derived");
  declaraDiferencas(comando, o->saida);
  comando.footer(
      "What is not given is derived from the report: layout and CAT52 mode from its lines (where they leave\n"
      "a choice, what fits best), the command from E01, the period from the first day of E01, the movements "
      "of\n"
      "E12, the tapes of E10 and the last reduction of E01 as the database has it. The period asked for may\n"
      "have been longer; days without anything in them leave no trace. The time stamp of E11 is not "
      "compared.\n"
      "Exit status: 0 the report is what the database says, 1 it is not, 2 could not run, 3 the database\n"
      "cannot be opened, 4 no room for the temporary file, 5 the identity query failed.");
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
