// Two reports side by side.
#include <set>

#include "Idioma/Idioma.h"
#include "Pagina/Desvios.h"
#include "Pagina/Grafico.h"
#include "Pagina/Html.h"
#include "Pagina/Pagina.h"

namespace cotepe::pagina {
namespace {

std::string variacao(std::int64_t de, std::int64_t para) {
  if (de == 0) return para == 0 ? "" : "\xE2\x80\x94";
  const auto diferenca = static_cast<std::int64_t>((static_cast<double>(para) - static_cast<double>(de)) /
                                                   std::abs(static_cast<double>(de)) * 10000.0);
  return (diferenca > 0 ? "+" : "") + percentual(diferenca);
}

std::string linha(const std::string& nome, std::int64_t um, std::int64_t outro, bool dinheiro) {
  const auto escrito = [dinheiro](std::int64_t valor) {
    std::string html;
    dinheiro ? poeReais(html, valor) : poeNumero(html, valor);
    return html;
  };
  return "<tr><th scope=\"row\">" + texto(nome) + "</th><td class=\"n\">" + escrito(um) +
         "</td><td class=\"n\">" + escrito(outro) + "</td><td class=\"n\">" + escrito(um - outro) +
         "</td><td class=\"n\">" + variacao(outro, um) + "</td></tr>\n";
}

std::string periodo(const LeituraDaPagina& lido) {
  const auto [de, ate] = periodoDe(lido.resumo());
  return texto(lido.nome()) + "<br><span class=\"c\">" + dataDe(de) + " \xE2\x80\x93 " + dataDe(ate) +
         "</span>";
}

std::string somas(const ResumoDoRelatorio& um, const ResumoDoRelatorio& outro) {
  const Valores &a = vendasDe(um, um.total), &b = vendasDe(outro, outro.total);
  const auto dias = [](const ResumoDoRelatorio& resumo) {
    return static_cast<std::int64_t>(resumo.dias.size());
  };
  return linha(traduz("Days"), dias(um), dias(outro), false) +
         linha(traduz("Gross sales"), a.bruta, b.bruta, true) +
         linha(traduz("Discounts"), a.descontos, b.descontos, true) +
         linha(traduz("Surcharges"), a.acrescimos, b.acrescimos, true) +
         linha(traduz("Cancellations"), a.cancelamentos, b.cancelamentos, true) +
         linha(traduz("Net sales"), a.liquida, b.liquida, true) +
         linha(traduz("Coupons"), um.total.cupons, outro.total.cupons, false) +
         linha(traduz("Cancelled"), um.total.cuponsCancelados, outro.total.cuponsCancelados, false) +
         linha(traduz("Average coupon"), um.total.media(), outro.total.media(), true);
}

template <class Mapa, class Valor>
std::string porNome(const Mapa& um, const Mapa& outro, const Valor& valor) {
  std::set<std::string> nomes;
  for (const Mapa* mapa : {&um, &outro})
    for (const auto& [nome, dado] : *mapa) nomes.insert(nome);
  std::string html;
  const auto de = [&valor](const Mapa& mapa, const std::string& nome) {
    const auto achado = mapa.find(nome);
    return achado == mapa.end() ? 0 : valor(achado->second);
  };
  for (const std::string& nome : nomes) html += linha(nome, de(um, nome), de(outro, nome), true);
  return html;
}

std::vector<Barra> barras(const ResumoDoRelatorio& resumo, std::int64_t& maior) {
  std::vector<Barra> todas;
  const bool porDia = resumo.dias.size() <= 400;
  for (const auto& [quando, movimento] : porDia ? resumo.dias : resumo.meses()) {
    todas.push_back({dataDe(quando), vendasDe(resumo, movimento).bruta, ""});
    maior = std::max(maior, todas.back().centavos);
  }
  return todas;
}

}  // namespace

std::string secaoDaComparacao(const ConteudoDaPagina& conteudo) {
  if (conteudo.outro == nullptr) return {};
  const ResumoDoRelatorio &um = conteudo.relatorio->resumo(), &outro = conteudo.outro->resumo();
  std::string html = "<section id=\"comparacao\" aria-labelledby=\"t-comparacao\"><h2 id=\"t-comparacao\">" +
                     texto(traduz("Two periods")) + "</h2>\n<div class=\"lado\">";
  std::int64_t maior = 0;
  const std::vector<Barra> deUm = barras(um, maior), doOutro = barras(outro, maior);
  html += "<figure>" + graficoNoTempo(traduz("Gross sales"), deUm, maior) + "<figcaption>" +
          periodo(*conteudo.relatorio) + "</figcaption></figure>\n<figure>" +
          graficoNoTempo(traduz("Gross sales"), doOutro, maior) + "<figcaption>" + periodo(*conteudo.outro) +
          "</figcaption></figure></div>\n";
  html += "<div class=\"rolo\"><table><thead><tr><td></td><th scope=\"col\" class=\"n\">" +
          periodo(*conteudo.relatorio) + "</th><th scope=\"col\" class=\"n\">" + periodo(*conteudo.outro) +
          "</th><th scope=\"col\" class=\"n\">" + texto(traduz("Difference")) +
          "</th><th scope=\"col\" class=\"n\">%</th></tr></thead>\n<tbody>" + somas(um, outro) +
          linha(traduz("Errors"), conteudo.relatorio->achados().erros(), conteudo.outro->achados().erros(),
                false) +
          linha(traduz("Warnings"), conteudo.relatorio->achados().avisos(),
                conteudo.outro->achados().avisos(), false);
  html += "</tbody>\n<tbody><tr><th colspan=\"5\" scope=\"rowgroup\">" + texto(traduz("Means of payment")) +
          "</th></tr>\n" + porNome(um.meios, outro.meios, [](const MeioDePagamento& meio) {
            return meio.acumulado != 0 ? meio.acumulado : meio.pago - meio.estornado;
          });
  html += "</tbody>\n<tbody><tr><th colspan=\"5\" scope=\"rowgroup\">" +
          texto(traduz("Tax codes and other totalizers")) + "</th></tr>\n" +
          porNome(um.totalizadores, outro.totalizadores, [](const Totalizador& totalizador) {
            return totalizador.acumulado != 0 ? totalizador.acumulado : totalizador.dosItens;
          });
  return html + "</tbody></table></div>\n</section>\n";
}

}  // namespace cotepe::pagina
