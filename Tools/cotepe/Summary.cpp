// cotepe summary: reports in sums.
#include <filesystem>
#include <memory>
#include <vector>

#include "Comandos.h"
#include "Entrada/RelatorioLido.h"
#include "Idioma/Idioma.h"
#include "SaidaDoResumo.h"
#include "Sistema/Falha.h"
#include "Sistema/FluxoDeSaida.h"
#include "Validacao/Validacao.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoSummary {
  std::vector<std::string> arquivos;
  std::string formato = "text";
  OpcoesDoResumo resumo;
};

class SoConta final : public RecebeAchados {
 public:
  void recebe(const Achado& achado) override { ++(achado.severidade == Severidade::Erro ? erros : avisos); }
  long erros = 0, avisos = 0;
};

// What validate says, in a line; empty for input that cannot be read again.
std::string validacaoEmUmaLinha(const std::string& arquivo) {
  std::error_code erro;
  if (!std::filesystem::is_regular_file(arquivo, erro)) return {};
  RelatorioLido relatorio(arquivo);
  SoConta contagem;
  Validacao(contagem, {relatorio.nome(), {}}).valida(relatorio.linhas());
  relatorio.confereLeitura();
  if (contagem.erros + contagem.avisos == 0) return traduz("validate: OK");
  return frase("validate: {1}, {2}",
               {fraseDe("{1} error", "{1} errors", contagem.erros, {contado(contagem.erros)}),
                fraseDe("{1} warning", "{1} warnings", contagem.avisos, {contado(contagem.avisos)})});
}

void escreveUm(const OpcoesDoSummary& opcoes, const std::string& arquivo, FluxoDeSaida& fluxo) {
  RelatorioLido relatorio(arquivo);
  const ResumoDoRelatorio resumo = resume(relatorio.linhas());
  relatorio.confereLeitura();
  if (opcoes.formato == "json") return escreveResumoJson(fluxo, relatorio.nome(), resumo, opcoes.resumo);
  if (opcoes.formato == "csv") return escreveResumoCsv(fluxo, relatorio.nome(), resumo, opcoes.resumo);
  escreveResumo(fluxo, relatorio.nome(), resumo, validacaoEmUmaLinha(arquivo), opcoes.resumo);
}

void executa(const OpcoesDoSummary& opcoes) {
  FluxoDeSaida fluxo;
  if (opcoes.formato == "csv") escreveCabecalhoCsv(fluxo);
  int pior = kFeito;
  bool primeiro = true;
  for (const std::string& arquivo : opcoes.arquivos) {
    if (!primeiro && opcoes.formato == "text") fluxo << '\n';
    primeiro = false;
    if (opcoes.arquivos.size() == 1) {
      escreveUm(opcoes, arquivo, fluxo);
      continue;
    }
    try {
      escreveUm(opcoes, arquivo, fluxo);
    } catch (const Falha& falha) {
      if (falha.situacao() != kUsoErrado) throw;
      avisaErro(falha.what());
      pior = falha.situacao();
    }
  }
  fluxo.conclui();
  if (pior != kFeito) throw Falha(pior, traduz("not all of the reports could be read"));
}

}  // namespace

Acao declaraSummary(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoSummary>();
  comando.add_option("REPORT", o->arquivos, traduz("The reports; - for stdin"))->required();
  comando.add_flag("--by-month", o->resumo.porMes, traduz("Months instead of days"));
  comando.add_option("--format", o->formato, traduz("text, json (an object a report, cents) or csv (text)"))
      ->type_name("FORMAT")
      ->transform(escolha({"text", "json", "csv"}));
  comando.add_flag("--mask", o->resumo.mascara, traduz("Hide the user's name and CNPJ"));
  comando.footer(
      traduz("Sales are what the Z reductions say of their day, or the coupons where a day has none.\n"
             "Exit status: 0 done, 2 a report cannot be read, 4 writing failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
