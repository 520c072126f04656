// cotepe show: the records of a report by label and value.
#include <cctype>
#include <memory>
#include <vector>

#include "Comandos.h"
#include "Dia.h"
#include "Exibicao/Exibicao.h"
#include "Exibicao/Selecao.h"
#include "Idioma/Idioma.h"
#include "Leitor/Periodo.h"
#include "LugarNoRelatorio.h"
#include "Numero.h"
#include "RelatorioLido.h"
#include "Sistema/Falha.h"
#include "Sistema/FluxoDeSaida.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoShow {
  std::string arquivo, formato = "text", de, ate;
  std::vector<std::string> registros;
  Selecao selecao;
  bool tabela = false, mascara = false;
};

// AAAAMMDD, or nothing for nothing.
std::string diaPedido(const char* opcao, const std::string& texto) {
  if (texto.empty()) return {};
  const std::string iso = exigeDia(opcao, texto).iso();
  return iso.substr(0, 4) + iso.substr(5, 2) + iso.substr(8, 2);
}

Selecao selecaoDe(const OpcoesDoShow& opcoes) {
  Selecao selecao = opcoes.selecao;
  for (std::string codigo : opcoes.registros) {
    for (char& c : codigo) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const int indice = indiceDoRegistro(codigo);
    if (indice < 0)
      throw Falha(kUsoErrado, frase("wrong usage: {1}: found {2}, expected E01 to E22; correct it",
                                    {"--register", codigo}));
    selecao.registros.push_back(indice);
  }
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
  if (!opcoes.de.empty() && !opcoes.ate.empty()) exigePeriodo(opcoes.de, opcoes.ate);
  Periodo periodo(diaPedido("--from", opcoes.de), diaPedido("--to", opcoes.ate));
  if (opcoes.tabela && opcoes.formato != "text")
    throw Falha(kUsoErrado,
                frase("wrong usage: --table: found --format {1}, expected text; leave one of them out",
                      {opcoes.formato}));
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

Execucao declaraShow(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoShow>();
  comando.add_option("FILE", o->arquivo, traduz("The report; - for stdin"))->required();
  comando
      .add_option("--register", o->registros, traduz("Only this register, E01 to E22; may be given again"))
      ->type_name("REGISTER")
      ->delimiter(',')
      ->expected(1)
      ->take_all();
  comando.add_option("--line", o->selecao.linha, traduz("Only this line"))
      ->type_name("N")
      ->check(numeroDesde(1));
  comando.add_option("--coo", o->selecao.coo, traduz("Only records with this COO"))
      ->type_name("N")
      ->check(numeroDesde(0));
  comando.add_option("--crz", o->selecao.crz, traduz("Only records with this CRZ"))
      ->type_name("N")
      ->check(numeroDesde(0));
  comando.add_option("--from", o->de, traduz("Only records of this day or later, DDMMYYYY or YYYY-MM-DD"))
      ->type_name("DAY");
  comando.add_option("--to", o->ate, traduz("Only records of this day or earlier"))->type_name("DAY");
  comando.add_option("--format", o->formato, traduz("text, json (an object a line) or csv (text)"))
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "json", "csv"}));
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
