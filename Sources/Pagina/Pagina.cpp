#include "Pagina/Pagina.h"

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Pagina/Html.h"
#include "Pagina/Modelo.h"

namespace cotepe::pagina {
namespace {

std::set<long> linhasDosAchados(const ConteudoDaPagina& conteudo) {
  std::set<long> linhas;
  const auto junta = [&linhas](const AchadosAgrupados& achados) {
    for (const auto& [nome, grupo] : achados.grupos())
      for (const Achado& achado : grupo.primeiros) linhas.insert(achado.linha);
  };
  junta(conteudo.relatorio->achados());
  if (conteudo.banco != nullptr && conteudo.banco->diferencas != nullptr) junta(*conteudo.banco->diferencas);
  return linhas;
}

std::string indiceDasSecoes(const std::string& secoes) {
  static constexpr struct {
    const char* id;
    const char* nome;
  } kSecoes[] = {{"achados", marca("Findings")},
                 {"comparacao", marca("Two periods")},
                 {"dias", marca("Days and months")},
                 {"totais", marca("Payments and taxes")},
                 {"contadores", marca("Counters and interventions")},
                 {"artigos", marca("Articles")},
                 {"horas", marca("Sales by hour")}};
  std::string html = "<nav aria-label=\"" + texto(traduz("Sections")) + "\"><ul>\n";
  for (const auto& [id, nome] : kSecoes)
    if (secoes.find("<section id=\"" + std::string(id) + '"') != std::string::npos)
      html += "<li><a href=\"#" + std::string(id) + "\">" + texto(traduz(nome)) + "</a></li>\n";
  return html + "<li><a href=\"#documentos\">" + texto(traduz("Documents")) +
         "</a></li>\n<li><a href=\"#registros\">" + texto(traduz("Other records")) +
         "</a></li>\n</ul></nav>\n";
}

std::string abreSecao(const char* id, const char* titulo) {
  const std::string nome(id);
  return "<section id=\"" + nome + "\" aria-labelledby=\"t-" + nome + "\"><h2 id=\"t-" + nome + "\">" +
         texto(traduz(titulo)) + "</h2>\n";
}

std::string secoesDe(const ConteudoDaPagina& conteudo, const Folhas& folhas) {
  return secaoDosAchados(conteudo, folhas) + secaoDaComparacao(conteudo) + secaoDosDias(conteudo) +
         secaoDosTotais(conteudo) + secaoDosContadores(conteudo) + secaoDosArtigos(conteudo) +
         secaoDasHoras(conteudo);
}

}  // namespace

const Valores& vendasDe(const ResumoDoRelatorio& resumo, const Movimento& movimento) {
  return resumo.total.reducoes != 0 ? movimento.dasReducoes : movimento.dosCupons;
}

std::pair<std::string, std::string> periodoDe(const ResumoDoRelatorio& resumo) {
  const Identificacao& quem = resumo.identificacao;
  if (!resumo.dias.empty()) return {resumo.dias.begin()->first, resumo.dias.rbegin()->first};
  if (dataPossivel(quem.dataInicial) && dataPossivel(quem.dataFinal))
    return {quem.dataInicial, quem.dataFinal};
  return {};
}

void escrevePagina(const ConteudoDaPagina& conteudo, Folhas& folhas) {
  LeituraDaPagina& relatorio = *conteudo.relatorio;
  const ResumoDoRelatorio& resumo = relatorio.resumo();
  folhas.procura(linhasDosAchados(conteudo));
  if (folhas.dividida()) {
    relatorio.documentos().escreve(folhas, resumo);
    relatorio.registros().escreve(folhas);
  }
  const std::string& nome = resumo.identificacao.razaoSocial;
  folhas.abre(Folhas::kIndice, frase("Report: {1}", {nome.empty() ? relatorio.nome() : nome}));
  const std::string secoes = secoesDe(conteudo, folhas);
  folhas.escreve(cabecalho(conteudo) + indiceDasSecoes(secoes) + "<main>\n" + secoes);
  folhas.escreve(abreSecao("documentos", marca("Documents")));
  if (folhas.dividida()) {
    folhas.escreve("<ul class=\"folhas\">\n" + relatorio.documentos().sumario() + "</ul>\n");
  } else {
    folhas.escreve(filtro());
    relatorio.documentos().escreve(folhas, resumo);
  }
  folhas.escreve("</section>\n" + abreSecao("registros", marca("Other records")));
  if (folhas.dividida())
    folhas.escreve("<ul class=\"folhas\">\n" + relatorio.registros().sumario() + "</ul>\n");
  else
    relatorio.registros().escreve(folhas);
  folhas.escreve("</section>\n</main>\n");
  folhas.fecha();
  folhas.conclui();
}

}  // namespace cotepe::pagina
