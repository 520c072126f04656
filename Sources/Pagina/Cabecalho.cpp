// The head of the page: whose report it is, what was found, and the sums in one line.
#include "Idioma/Idioma.h"
#include "Pagina/Html.h"
#include "Pagina/Pagina.h"

namespace cotepe::pagina {
namespace {

void poeDado(std::string& html, const char* nome, const std::string& valor) {
  if (valor.empty()) return;
  html += "<dl><dt>" + texto(traduz(nome)) + "</dt><dd>" + valor + "</dd></dl>\n";
}

std::string veredito(const AchadosAgrupados& achados, const char* limpo) {
  if (achados.total() == 0) return "<span class=\"bom\">\xE2\x9C\x93 " + texto(traduz(limpo)) + "</span>";
  std::string palavras;
  if (achados.erros() != 0) palavras = fraseDe("{n} error", "{n} errors", achados.erros());
  if (achados.avisos() != 0)
    palavras += (palavras.empty() ? "" : ", ") + fraseDe("{n} warning", "{n} warnings", achados.avisos());
  return "<a class=\"" + std::string(achados.erros() != 0 ? "mau" : "medio") +
         "\" href=\"#achados\">\xE2\x9A\xA0 " + texto(palavras) + "</a>";
}

std::string cnpj(const std::string& digitos) {
  if (digitos.size() != 14) return texto(digitos);
  return texto(digitos.substr(0, 2) + '.' + digitos.substr(2, 3) + '.' + digitos.substr(5, 3) + '/' +
               digitos.substr(8, 4) + '-' + digitos.substr(12));
}

std::string leiauteDe(const ResumoDoRelatorio& resumo) {
  std::string palavras = resumo.leiaute.versao == 1   ? "1"
                         : resumo.leiaute.versao == 2 ? "2"
                                                      : traduz("neither 1 nor 2");
  if (resumo.leiaute.cat52) palavras += ", CAT52";
  if (!resumo.identificacao.versaoDoLeiaute.empty())
    palavras += " (" + resumo.identificacao.versaoDoLeiaute + ')';
  return texto(palavras);
}

std::string geradoEm(const Identificacao& quem) {
  if (quem.dataDeGeracao.empty()) return {};
  const std::string& h = quem.horaDeGeracao;
  return texto(dataDe(quem.dataDeGeracao) +
               (h.size() == 6 ? ' ' + h.substr(0, 2) + ':' + h.substr(2, 2) + ':' + h.substr(4) : ""));
}

std::string digesto(const std::string& hexadecimal, bool disponiveis) {
  if (!hexadecimal.empty()) return "<code>" + hexadecimal + "</code>";
  return texto(traduz(disponiveis ? marca("not known: a line is too long, or the system does not offer it")
                                  : marca("left out: this cotepe was built without OpenSSL")));
}

std::string arquivo(const LeituraDaPagina& lido) {
  std::string html = texto(lido.nome()) + ", ";
  html += texto(fraseDe("{n} line", "{n} lines", lido.resumo().linhas)) + ", ";
  poeNumero(html, static_cast<std::int64_t>(lido.resumo().bytes));
  return html + " bytes";
}

std::string dados(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  const Identificacao& quem = resumo.identificacao;
  std::string html = "<div class=\"dados\">\n";
  poeDado(html, marca("Printer"), texto(quem.marca + ' ' + quem.modelo + ' ' + quem.fabricacao));
  poeDado(html, marca("Type and basic software"), texto(quem.tipo + ' ' + quem.versaoSb));
  poeDado(html, marca("User"), texto(quem.razaoSocial));
  poeDado(html, marca("CNPJ"), cnpj(quem.cnpj));
  poeDado(html, marca("State registration"), texto(quem.inscricao));
  poeDado(html, marca("Address"), texto(quem.endereco));
  poeDado(html, marca("Command"), texto(quem.comando));
  poeDado(html, marca("Layout"), leiauteDe(resumo));
  poeDado(html, marca("Generated"), geradoEm(quem));
  if (quem.totalGeral >= 0) poeDado(html, marca("Grand total (GT)"), reaisDe(quem.totalGeral));
  poeDado(html, marca("File"), arquivo(*conteudo.relatorio));
  poeDado(html, "MD5", digesto(conteudo.relatorio->digestos().md5(), Digestos::disponiveis()));
  poeDado(html, "SHA-256", digesto(conteudo.relatorio->digestos().sha256(), Digestos::disponiveis()));
  poeDado(html, marca("Signature"), texto(conteudo.assinatura));
  poeDado(html, marca("Page made"), texto(conteudo.momento + ", " + conteudo.feitaPor));
  return html + "</div>\n";
}

std::string vereditos(const ConteudoDaPagina& conteudo) {
  std::string html = "<p class=\"vereditos\"><span>" + texto(traduz("Rules of the report")) + ": " +
                     veredito(conteudo.relatorio->achados(), marca("nothing found")) + "</span>";
  if (conteudo.banco != nullptr) {
    html += " <span>" + texto(frase("Database {1}", {conteudo.banco->nome})) + ": ";
    html += conteudo.banco->diferencas != nullptr
                ? veredito(*conteudo.banco->diferencas, marca("the report is what it says"))
                : texto(frase("not compared: {1}", {conteudo.banco->semVerificar}));
    html += "</span>";
  }
  return html + "</p>\n";
}

void poeNumeroGrande(std::string& html, const char* nome, const std::string& valor) {
  html += "<dl><dt>" + texto(traduz(nome)) + "</dt><dd>" + valor + "</dd></dl>\n";
}

std::string grandes(const ResumoDoRelatorio& resumo) {
  const Valores& vendas = vendasDe(resumo, resumo.total);
  std::string cupons;
  poeNumero(cupons, resumo.total.cupons);
  std::string html = "<div class=\"grandes\">\n";
  poeNumeroGrande(html, marca("Gross sales"), reaisDe(vendas.bruta));
  poeNumeroGrande(html, marca("Net sales"), reaisDe(vendas.liquida));
  poeNumeroGrande(html, marca("Discounts"), reaisDe(vendas.descontos));
  poeNumeroGrande(html, marca("Cancellations"), reaisDe(vendas.cancelamentos));
  poeNumeroGrande(html, marca("Coupons"), cupons);
  poeNumeroGrande(html, marca("Average coupon"), reaisDe(resumo.total.media()));
  return html + "</div>\n";
}

}  // namespace

std::string cabecalho(const ConteudoDaPagina& conteudo) {
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  const Identificacao& quem = resumo.identificacao;
  const auto [de, ate] = periodoDe(resumo);
  std::string html = "<header>\n<p class=\"acima\">" + texto(traduz("Fiscal printer report")) + "</p>\n<h1>" +
                     texto(quem.razaoSocial.empty() ? conteudo.relatorio->nome() : quem.razaoSocial) +
                     "</h1>\n";
  html += "<p class=\"periodo\">" +
          (de.empty() ? texto(traduz("no day in it"))
                      : "<time datetime=\"" + dataIso(de) + "\">" + dataDe(de) +
                            "</time> \xE2\x80\x93 <time datetime=\"" + dataIso(ate) + "\">" + dataDe(ate) +
                            "</time>") +
          "</p>\n";
  return html + vereditos(conteudo) + grandes(resumo) + "<details class=\"identidade\" open><summary>" +
         texto(traduz("Printer, user and file")) + "</summary>\n" + dados(conteudo) +
         "</details>\n</header>\n";
}

}  // namespace cotepe::pagina
