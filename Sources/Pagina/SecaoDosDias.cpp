// Days and months: a plot of gross sales, and tables.
#include "Idioma/Idioma.h"
#include "Pagina/Desvios.h"
#include "Pagina/Grafico.h"
#include "Pagina/Html.h"
#include "Pagina/Pagina.h"

namespace cotepe::pagina {
namespace {

constexpr std::size_t kMaximoDeBarras = 400;  // of a plot by day; beyond it months are plotted

/// The share above which a day is an outlier.
struct Limites {
  std::int64_t cancelamentos = -1, descontos = -1;
};

std::string faixa(const Sequencia& sequencia) {
  if (sequencia.vazia()) return "<td></td>";
  const std::string de = std::to_string(sequencia.primeiro()), ate = std::to_string(sequencia.ultimo());
  return "<td class=\"n\" data-v=\"" + de + "\">" + de + (de == ate ? "" : "\xE2\x80\x93" + ate) + "</td>";
}

std::string proporcao(Centavos parte, Centavos bruta, std::int64_t limite) {
  const std::int64_t valor = proporcaoDe(parte, bruta);
  const bool fora = limite >= 0 && valor > limite;
  std::string html = "<td class=\"n" + std::string(fora ? " fora" : "") + "\" data-v=\"" +
                     std::to_string(valor) + "\">" + percentual(valor);
  if (fora) html += " <span class=\"marca\">" + texto(traduz("outlier")) + "</span>";
  return html + "</td>";
}

std::string titulos(const char* primeiro, bool comTotalGeral) {
  std::string html = "<tr><th scope=\"col\">" + texto(traduz(primeiro)) + "</th>";
  for (const char* nome : {marca("Gross"), marca("Discounts"), marca("Surcharges"), marca("Cancellations"),
                           marca("Net"), marca("Coupons"), marca("Cancelled"), marca("Average"),
                           marca("Discounts %"), marca("Cancellations %")})
    html += "<th scope=\"col\" class=\"n\">" + texto(traduz(nome)) + "</th>";
  for (const char* contador : {"CRZ", "COO", "CCF", "GNF"})
    html += std::string("<th scope=\"col\" class=\"n\">") + contador + "</th>";
  if (comTotalGeral) html += "<th scope=\"col\" class=\"n\">GT</th>";
  return html + "</tr>";
}

std::string celulas(const ResumoDoRelatorio& resumo, const Movimento& m, const Limites& limites) {
  const Valores& v = vendasDe(resumo, m);
  return celulaDeReais(v.bruta) + celulaDeReais(v.descontos) + celulaDeReais(v.acrescimos) +
         celulaDeReais(v.cancelamentos) + celulaDeReais(v.liquida) + celulaDeNumero(m.cupons) +
         celulaDeNumero(m.cuponsCancelados) + celulaDeReais(m.media()) +
         proporcao(v.descontos, v.bruta, limites.descontos) +
         proporcao(v.cancelamentos, v.bruta, limites.cancelamentos) + faixa(m.crz) + faixa(m.coo) +
         faixa(m.ccf) + faixa(m.gnf);
}

Limites limitesDe(const ResumoDoRelatorio& resumo) {
  std::vector<std::int64_t> cancelamentos, descontos;
  for (const auto& [dia, movimento] : resumo.dias) {
    const Valores& v = vendasDe(resumo, movimento);
    if (v.bruta <= 0) continue;
    cancelamentos.push_back(proporcaoDe(v.cancelamentos, v.bruta));
    descontos.push_back(proporcaoDe(v.descontos, v.bruta));
  }
  return {limiteDosDesvios(cancelamentos), limiteDosDesvios(descontos)};
}

std::string totalGeral(const ConteudoDaPagina& conteudo, const std::string& dia) {
  if (conteudo.banco == nullptr || conteudo.banco->totaisGerais.empty()) return {};
  const auto achado = conteudo.banco->totaisGerais.find(dia);
  return achado == conteudo.banco->totaisGerais.end() ? "<td></td>" : celulaDeReais(achado->second);
}

std::string tabelaDosDias(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  const Limites limites = limitesDe(resumo);
  const bool comGt = conteudo.banco != nullptr && !conteudo.banco->totaisGerais.empty();
  std::string html = "<div class=\"rolo\"><table class=\"ordena dias\"><thead>" +
                     titulos(marca("Day"), comGt) + "</thead><tbody>\n";
  for (const auto& [dia, movimento] : resumo.dias)
    html += "<tr><th scope=\"row\" data-v=\"" + dia + "\">" + dataDe(dia) + "</th>" +
            celulas(resumo, movimento, limites) + totalGeral(conteudo, dia) + "</tr>\n";
  return html + "</tbody><tfoot><tr><th scope=\"row\">" + texto(traduz("Total")) + "</th>" +
         celulas(resumo, resumo.total, {}) + (comGt ? "<td></td>" : "") + "</tr></tfoot></table></div>\n";
}

std::string tabelaDosMeses(const ResumoDoRelatorio& resumo, const std::map<std::string, Movimento>& meses) {
  std::string html = "<div class=\"rolo\"><table class=\"ordena\"><thead>" + titulos(marca("Month"), false) +
                     "</thead><tbody>\n";
  for (const auto& [mes, movimento] : meses)
    html += "<tr><th scope=\"row\" data-v=\"" + mes + "\">" + dataDe(mes) + "</th>" +
            celulas(resumo, movimento, {}) + "</tr>\n";
  return html + "</tbody></table></div>\n";
}

std::vector<Barra> barras(const ResumoDoRelatorio& resumo,
                          const std::map<std::string, Movimento>& movimentos) {
  std::vector<Barra> todas;
  todas.reserve(movimentos.size());
  for (const auto& [quando, movimento] : movimentos)
    todas.push_back({dataDe(quando), vendasDe(resumo, movimento).bruta, ""});
  return todas;
}

}  // namespace

std::string secaoDosDias(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  if (resumo.dias.empty()) return {};
  const std::map<std::string, Movimento> meses = resumo.meses();
  std::string html =
      "<section id=\"dias\" aria-labelledby=\"t-dias\"><h2 id=\"t-dias\">" +
      texto(traduz("Days and months")) + "</h2>\n<p class=\"nota\">" +
      texto(traduz(resumo.total.reducoes != 0
                       ? marca("Amounts are those of the Z reductions, by the day of their movement; "
                               "coupons and counters are of the day on which they were issued.")
                       : marca("The report has no Z reductions: amounts are those of the coupons, by the "
                               "day on which they were issued."))) +
      "</p>\n<figure>";
  html += resumo.dias.size() <= kMaximoDeBarras
              ? graficoNoTempo(traduz("Gross sales by day"), barras(resumo, resumo.dias)) + "<figcaption>" +
                    texto(traduz("Gross sales by day"))
              : graficoNoTempo(traduz("Gross sales by month"), barras(resumo, meses)) + "<figcaption>" +
                    texto(traduz("Gross sales by month"));
  html += "</figcaption></figure>\n";
  if (meses.size() > 1) html += "<h3>" + texto(traduz("Months")) + "</h3>\n" + tabelaDosMeses(resumo, meses);
  html += "<h3>" + texto(traduz("Days")) + "</h3>\n" + tabelaDosDias(conteudo);
  if (conteudo.banco == nullptr)
    html +=
        "<p class=\"nota\">" +
        texto(traduz(
            "The grand total after each day is not in a report; give the database with --db to have it.")) +
        "</p>\n";
  return html + "</section>\n";
}

}  // namespace cotepe::pagina
