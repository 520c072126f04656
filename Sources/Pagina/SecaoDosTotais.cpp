// Means of payment, tax codes, non-fiscal totalizers and hours, plotted and as tables.
#include <algorithm>

#include "Idioma/Idioma.h"
#include "Pagina/Grafico.h"
#include "Pagina/Html.h"
#include "Pagina/Pagina.h"

namespace cotepe::pagina {
namespace {

std::string tabela(std::initializer_list<const char*> titulos, const std::string& linhas) {
  std::string html = "<div class=\"rolo\"><table class=\"ordena\"><thead><tr>";
  bool primeiro = true;
  for (const char* titulo : titulos) {
    html += std::string(primeiro ? "<th scope=\"col\">" : "<th scope=\"col\" class=\"n\">") +
            texto(traduz(titulo)) + "</th>";
    primeiro = false;
  }
  return html + "</tr></thead><tbody>\n" + linhas + "</tbody></table></div>\n";
}

std::string linhaDe(const std::string& nome) { return "<tr><th scope=\"row\">" + texto(nome) + "</th>"; }

std::string figura(const char* titulo, std::vector<Barra> barras, const std::string& tabelaAoLado) {
  std::stable_sort(barras.begin(), barras.end(),
                   [](const Barra& a, const Barra& b) { return a.centavos > b.centavos; });
  return "<h3>" + texto(traduz(titulo)) + "</h3>\n<div class=\"lado\"><figure>" +
         graficoDeitado(traduz(titulo), barras) + "</figure>\n" + tabelaAoLado + "</div>\n";
}

// What the reductions hold, or the documents if there are no reductions.
std::string meios(const ResumoDoRelatorio& resumo) {
  if (resumo.meios.empty()) return {};
  const bool dasReducoes = resumo.registros[static_cast<std::size_t>(kCatalogo.indiceDe("E18"))] >
                           resumo.vazios[static_cast<std::size_t>(kCatalogo.indiceDe("E18"))];
  std::vector<Barra> barras;
  std::string linhas;
  for (const auto& [nome, meio] : resumo.meios) {
    const Centavos valor = dasReducoes ? meio.acumulado : meio.pago - meio.estornado;
    if (valor != 0) barras.push_back({nome, valor, ""});
    linhas += linhaDe(nome) + celulaDeReais(meio.acumulado) + celulaDeNumero(meio.pagamentos) +
              celulaDeReais(meio.pago) + celulaDeReais(meio.estornado) + "</tr>\n";
  }
  return figura(marca("Means of payment"), barras,
                tabela({marca("Means of payment"), marca("In the reductions"), marca("Payments"),
                        marca("Paid"), marca("Reversed")},
                       linhas));
}

std::string impostos(const ResumoDoRelatorio& resumo) {
  const auto e13 = static_cast<std::size_t>(kCatalogo.indiceDe("E13"));
  const bool dasReducoes = resumo.registros[e13] > resumo.vazios[e13];
  std::vector<Barra> barras;
  std::string linhas;
  for (const auto& [nome, totalizador] : resumo.totalizadores) {
    const Centavos valor = dasReducoes ? totalizador.acumulado : totalizador.dosItens;
    if (deImposto(nome) && valor != 0) barras.push_back({nome, valor, ""});
    linhas += linhaDe(nome) + celulaDeReais(totalizador.acumulado) + celulaDeNumero(totalizador.itens) +
              celulaDeReais(totalizador.dosItens) + "</tr>\n";
  }
  if (linhas.empty()) return {};
  return figura(
      marca("Tax codes and other totalizers"), barras,
      tabela({marca("Totalizer"), marca("In the reductions"), marca("Items sold"), marca("Of the items")},
             linhas));
}

std::string naoFiscais(const ResumoDoRelatorio& resumo) {
  if (resumo.naoFiscais.empty()) return {};
  std::string linhas;
  for (const auto& [nome, valor] : resumo.naoFiscais)
    linhas += linhaDe(nome) + celulaDeReais(valor) + "</tr>\n";
  return "<h3>" + texto(traduz("Non-fiscal totalizers")) + "</h3>\n" +
         tabela({marca("Totalizer"), marca("In the reductions")}, linhas);
}

}  // namespace

std::string secaoDosTotais(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  const std::string partes = meios(resumo) + impostos(resumo) + naoFiscais(resumo);
  if (partes.empty()) return {};
  return "<section id=\"totais\" aria-labelledby=\"t-totais\"><h2 id=\"t-totais\">" +
         texto(traduz("Payments and taxes")) + "</h2>\n" + partes + "</section>\n";
}

std::string secaoDasHoras(const ConteudoDaPagina& conteudo) {
  std::string html = "<section id=\"horas\" aria-labelledby=\"t-horas\"><h2 id=\"t-horas\">" +
                     texto(traduz("Sales by hour")) + "</h2>\n";
  if (conteudo.banco == nullptr || conteudo.banco->horas.empty())
    return html + "<p class=\"nota\">" +
           texto(traduz(
               conteudo.banco == nullptr
                   ? marca("A report has the day of a coupon, not its hour; give the database with --db to "
                           "have the hours.")
                   : marca("The database has no coupon of the period with an hour."))) +
           "</p>\n</section>\n";
  std::vector<Barra> barras;
  std::string linhas;
  for (const auto& [hora, vendas] : conteudo.banco->horas) {
    const std::string nome = (hora < 10 ? "0" : "") + std::to_string(hora) + " h";
    barras.push_back({nome, vendas.liquida, ""});
    linhas += linhaDe(nome) + celulaDeNumero(vendas.cupons) + celulaDeReais(vendas.liquida) + "</tr>\n";
  }
  return html + "<div class=\"lado\"><figure>" + graficoNoTempo(traduz("Net sales by hour"), barras) +
         "</figure>\n" + tabela({marca("Hour"), marca("Coupons"), marca("Net")}, linhas) +
         "</div>\n</section>\n";
}

}  // namespace cotepe::pagina
