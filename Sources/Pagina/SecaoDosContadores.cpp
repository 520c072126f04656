// Counters from and to, their gaps, interventions, days without reduction, and articles.
#include "Idioma/Idioma.h"
#include "Pagina/Html.h"
#include "Pagina/Pagina.h"

namespace cotepe::pagina {
namespace {

constexpr std::size_t kMaximoDeLacunas = 100;  // shown of each counter
constexpr std::size_t kMaioresArtigos = 20;

std::string entre(std::int64_t de, std::int64_t ate) {
  return de == ate ? std::to_string(de) : std::to_string(de) + "\xE2\x80\x93" + std::to_string(ate);
}

std::string lacunasDe(const Sequencia& sequencia) {
  const std::vector<Faixa> lacunas = sequencia.lacunas();
  if (lacunas.empty()) return "<span class=\"bom\">" + texto(traduz("none")) + "</span>";
  std::int64_t faltam = 0;
  std::string lista;
  for (std::size_t i = 0; i < lacunas.size(); ++i) {
    faltam += lacunas[i].ate - lacunas[i].de + 1;
    if (i < kMaximoDeLacunas) lista += (i == 0 ? "" : ", ") + entre(lacunas[i].de, lacunas[i].ate);
  }
  if (lacunas.size() > kMaximoDeLacunas)
    lista += ", " + fraseDe("{n} more gap", "{n} more gaps",
                            static_cast<long long>(lacunas.size() - kMaximoDeLacunas));
  return "<span class=\"mau\">" + texto(fraseDe("{n} missing", "{n} missing", faltam)) + "</span> " +
         texto(lista);
}

std::string linhaDoContador(const char* nome, const char* significado, const Sequencia& sequencia) {
  if (sequencia.vazia()) return {};
  std::string quantos;
  poeNumero(quantos, sequencia.quantos());
  return "<tr><th scope=\"row\">" + std::string(nome) + " <span class=\"c\">" + texto(traduz(significado)) +
         "</span></th><td class=\"n\">" + std::to_string(sequencia.primeiro()) + "</td><td class=\"n\">" +
         std::to_string(sequencia.ultimo()) + "</td><td class=\"n\">" + quantos + "</td><td>" +
         lacunasDe(sequencia) +
         (sequencia.recomecou() ? " " + texto(traduz("(the counter began again)")) : "") + "</td></tr>\n";
}

std::string contadores(const ResumoDoRelatorio& resumo) {
  const std::string linhas = linhaDoContador("CRZ", marca("Z reductions"), resumo.total.crz) +
                             linhaDoContador("CRO", marca("restarts of operation"), resumo.cro) +
                             linhaDoContador("COO", marca("all documents"), resumo.total.coo) +
                             linhaDoContador("CCF", marca("coupons"), resumo.total.ccf) +
                             linhaDoContador("GNF", marca("non-fiscal documents"), resumo.total.gnf);
  if (linhas.empty()) return {};
  std::string html =
      "<div class=\"rolo\"><table><thead><tr><th scope=\"col\">" + texto(traduz("Counter")) + "</th>";
  for (const char* titulo : {marca("First"), marca("Last"), marca("Values")})
    html += "<th scope=\"col\" class=\"n\">" + texto(traduz(titulo)) + "</th>";
  return html + "<th scope=\"col\">" + texto(traduz("Gaps")) + "</th></tr></thead><tbody>\n" + linhas +
         "</tbody></table></div>\n";
}

std::string intervencoes(const ResumoDoRelatorio& resumo) {
  std::string html = "<h3>" + texto(traduz("Technical interventions")) + "</h3>\n";
  if (resumo.intervencoes.empty()) return html + "<p>" + texto(traduz("none")) + "</p>\n";
  html += "<div class=\"rolo\"><table><thead><tr><th scope=\"col\">CRO</th><th scope=\"col\">" +
          texto(traduz("Day")) + "</th><th scope=\"col\">" + texto(traduz("Working memory")) +
          "</th></tr></thead><tbody>\n";
  for (const Intervencao& intervencao : resumo.intervencoes)
    html += "<tr><td>" + std::to_string(intervencao.cro) + "</td><td>" + texto(dataDe(intervencao.data)) +
            "</td><td>" +
            texto(intervencao.perda == "S"   ? traduz("lost")
                  : intervencao.perda == "N" ? traduz("kept")
                                             : intervencao.perda.c_str()) +
            "</td></tr>\n";
  return html + "</tbody></table></div>\n";
}

std::string semReducao(const ResumoDoRelatorio& resumo) {
  std::string html = "<h3>" + texto(traduz("Days without a Z reduction")) + "</h3>\n";
  if (resumo.total.reducoes == 0)
    return html + "<p class=\"nota\">" + texto(traduz("The report has no Z reductions.")) + "</p>\n";
  const auto intervalos = resumo.diasSemReducao();
  if (intervalos.empty()) return html + "<p>" + texto(traduz("none")) + "</p>\n";
  html += "<ul class=\"linha\">\n";
  for (const auto& intervalo : intervalos) {
    html += "<li>" + dataDe(intervalo.de);
    if (intervalo.dias > 1)
      html += " \xE2\x80\x93 " + dataDe(intervalo.ate) + " (" + std::to_string(intervalo.dias) + ')';
    html += "</li>\n";
  }
  return html + "</ul>\n";
}

std::string artigos(const char* titulo, const std::vector<Artigo>& maiores) {
  std::string html =
      "<div><h3>" + texto(traduz(titulo)) + "</h3>\n<div class=\"rolo\"><table class=\"ordena\"><thead><tr>" +
      "<th scope=\"col\">" + texto(traduz("Code")) + "</th><th scope=\"col\">" + texto(traduz("Article")) +
      "</th><th scope=\"col\" class=\"n\">" + texto(traduz("Quantity")) + "</th><th scope=\"col\">" +
      texto(traduz("Unit")) + "</th><th scope=\"col\" class=\"n\">" + texto(traduz("Value")) +
      "</th></tr></thead><tbody>\n";
  for (const Artigo& artigo : maiores)
    html += "<tr><td>" + texto(artigo.codigo) + "</td><td>" + texto(artigo.descricao) +
            "</td><td class=\"n\" data-v=\"" + std::to_string(artigo.milesimos) + "\">" +
            milesimosDe(artigo.milesimos) + "</td><td>" + texto(artigo.unidade) +
            "</td><td class=\"n\" data-v=\"" + std::to_string(artigo.valor) + "\">" + reaisDe(artigo.valor) +
            "</td></tr>\n";
  return html + "</tbody></table></div></div>\n";
}

}  // namespace

std::string secaoDosContadores(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  return "<section id=\"contadores\" aria-labelledby=\"t-contadores\"><h2 id=\"t-contadores\">" +
         texto(traduz("Counters and interventions")) + "</h2>\n" + contadores(resumo) + intervencoes(resumo) +
         semReducao(resumo) + "</section>\n";
}

std::string secaoDosArtigos(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  if (resumo.artigos.empty()) return {};
  std::string html = "<section id=\"artigos\" aria-labelledby=\"t-artigos\"><h2 id=\"t-artigos\">" +
                     texto(traduz("Articles")) + "</h2>\n<div class=\"lado\">" +
                     artigos(marca("Greatest in value"), resumo.maioresEmValor(kMaioresArtigos)) +
                     artigos(marca("Greatest in quantity"), resumo.maioresEmQuantidade(kMaioresArtigos)) +
                     "</div>\n";
  std::string quantos;
  poeNumero(quantos, static_cast<std::int64_t>(resumo.artigos.size()));
  html += "<p class=\"nota\">" + texto(frase("of {1} articles", {quantos}));
  if (resumo.itensDeOutrosArtigos != 0)
    html += "; " +
            texto(fraseDe("{n} item is of more articles than can be told apart, and is in neither table",
                          "{n} items are of more articles than can be told apart, and are in neither table",
                          resumo.itensDeOutrosArtigos));
  return html + "</p>\n</section>\n";
}

}  // namespace cotepe::pagina
