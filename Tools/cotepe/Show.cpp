// cotepe show: the records of a report by label and value.
#include <memory>
#include <optional>
#include <vector>

#include "Comandos.h"
#include "Entrada/RelatorioLido.h"
#include "Exibicao/Exibicao.h"
#include "Exibicao/Selecao.h"
#include "Idioma/Idioma.h"
#include "Leitor/Periodo.h"
#include "LugarNoRelatorio.h"
#include "OpcoesComuns.h"
#include "Sistema/Falha.h"
#include "Sistema/FluxoDeSaida.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoShow {
  std::string arquivo, formato = "text";
  OpcoesDePeriodo periodo;
  std::vector<std::string> registros;
  Selecao selecao;
  bool tabela = false, mascara = false;
};

// AAAAMMDD, or empty for an empty text.
std::string diaPedido(const std::optional<Dia>& dia) {
  if (!dia) return {};
  const std::string iso = dia->iso();
  return iso.substr(0, 4) + iso.substr(5, 2) + iso.substr(8, 2);
}

Selecao selecaoDe(const OpcoesDoShow& opcoes) {
  Selecao selecao = opcoes.selecao;
  for (const std::string& codigo : opcoes.registros) selecao.registros.push_back(kCatalogo.indiceDe(codigo));
  return selecao;
}

FormatoDeExibicao formatoDe(const OpcoesDoShow& opcoes) {
  if (opcoes.formato == "json") return FormatoDeExibicao::Json;
  if (opcoes.formato == "csv")
    return opcoes.registros.size() == 1 ? FormatoDeExibicao::CsvDeUmRegistro : FormatoDeExibicao::Csv;
  return opcoes.tabela ? FormatoDeExibicao::Tabela : FormatoDeExibicao::Texto;
}

void executa(const OpcoesDoShow& opcoes) {
  const Selecao selecao = selecaoDe(opcoes);
  const PeriodoPedido pedido = periodoPedido(opcoes.periodo);
  Periodo periodo(diaPedido(pedido.de), diaPedido(pedido.ate));
  if (opcoes.tabela && opcoes.formato != "text")
    throw Falha(kUsoErrado, frase("{1} and {2} contradict each other; give one of them",
                                  {"--table", "--format " + opcoes.formato}));
  RelatorioLido relatorio(opcoes.arquivo);
  FluxoDeSaida fluxo;
  const auto exibicao = novaExibicao(formatoDe(opcoes), fluxo, opcoes.mascara);
  LeitorDeRegistros registros(relatorio.linhas());
  long linhas = 0;
  for (RegistroLido lido; registros.proximo(lido);) {
    linhas = lido.linha.numero;
    if (periodo.aceita(lido) && selecao.aceita(lido)) exibicao->mostra(lido);
    if (selecao.linha == linhas) break;
  }
  fluxo.conclui();
  relatorio.confereLeitura();
  if (linhas < selecao.linha) naoTemLinha(relatorio.nome(), selecao.linha, linhas);
}

}  // namespace

Acao declaraShow(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoShow>();
  comando.add_option("FILE", o->arquivo, traduz("The report; - for stdin"))->required();
  comando
      .add_option("--register", o->registros, traduz("Only this register, E01 to E22; may be given again"))
      ->type_name("REGISTER")
      ->delimiter(',')
      ->expected(1)
      ->take_all()
      ->transform(codigoDeRegistro());
  comando.add_option("--line", o->selecao.linha, traduz("Only this line"))
      ->type_name("N")
      ->transform(numeroDesde(1));
  comando.add_option("--coo", o->selecao.coo, traduz("Only records with this COO"))
      ->type_name("N")
      ->transform(numeroDesde(0));
  comando.add_option("--crz", o->selecao.crz, traduz("Only records with this CRZ"))
      ->type_name("N")
      ->transform(numeroDesde(0));
  declaraPeriodo(comando, o->periodo,
                 traduz("Only records of this day or later, as DD/MM/YYYY or YYYY-MM-DD"));
  comando.add_option("--format", o->formato, traduz("text, json (an object a line) or csv (text)"))
      ->type_name("FORMAT")
      ->transform(escolha({"text", "json", "csv"}));
  comando.add_flag("--table", o->tabela, traduz("Text with one row a record"));
  comando.add_flag("--mask", o->mascara,
                   traduz("Hide what tells about consumers: name, CPF or CNPJ, texts of the coupon"));
  comando.footer(traduz(
      "With --from or --to a record without a date goes with what it is a part of: E13, E17 and E18 with "
      "their\n"
      "reduction, E15 with its coupon, E20 with its non-fiscal coupon, E21 with either. E08 goes with "
      "nothing.\n"
      "Of one --register csv has a row a record, otherwise a row a field.\n"
      "Exit status: 0 done, 2 could not run, 4 writing failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
