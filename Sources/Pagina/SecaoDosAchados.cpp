// What was found in the report, by rule, each finding with a link to its record.
#include <algorithm>

#include "Idioma/Idioma.h"
#include "Pagina/Html.h"
#include "Pagina/Pagina.h"
#include "Validacao/RegrasDoRelatorio.h"

namespace cotepe::pagina {
namespace {

// What a rule requires, if it is a listed one.
std::string resumoDaRegra(const std::string& nome) {
  const Regra* regra = Regras(validacao::kRegras).acha(nome);
  return regra != nullptr && regra->resumo != nullptr ? texto(traduz(regra->resumo)) : std::string();
}

std::string lugar(const Achado& achado, const Folhas& folhas) {
  if (achado.linha == 0) return texto(traduz("the file"));
  std::string palavras = frase("line {1}", {std::to_string(achado.linha)});
  if (achado.de != 0) palavras += ':' + std::to_string(achado.de) + '-' + std::to_string(achado.ate);
  const std::string endereco = folhas.endereco(achado.linha);
  return endereco.empty() ? texto(palavras) : "<a href=\"" + endereco + "\">" + texto(palavras) + "</a>";
}

std::string linhaDoAchado(const Achado& achado, const Folhas& folhas) {
  std::string html = "<tr><td>" + lugar(achado, folhas) + "</td><td>" + texto(achado.registro);
  if (!achado.campo.empty()) html += ' ' + texto(achado.campo);
  return html + "</td><td>" + texto(achado.encontrado) + "</td><td>" + texto(achado.esperado) +
         "</td></tr>\n";
}

std::string grupo(const std::string& nome, const AchadosAgrupados::Grupo& grupo, const Folhas& folhas) {
  const bool erro = grupo.severidade == Severidade::Erro;
  const std::string resumo = resumoDaRegra(nome);
  std::string html =
      std::string("<details class=\"regra\" open><summary><span class=\"") + (erro ? "mau" : "medio") +
      "\">" + texto(traduz(erro ? marca("error") : marca("warning"))) + "</span> " +
      (resumo.empty() ? "<code>" + texto(nome) + "</code>" : resumo + " <code>" + texto(nome) + "</code>") +
      " <span class=\"quantos\">";
  poeNumero(html, grupo.quantos);
  html += "</span></summary>\n";
  if (!grupo.conserto.empty()) html += "<p class=\"conserto\">" + texto(grupo.conserto) + "</p>\n";
  html += "<div class=\"rolo\"><table><thead><tr><th>" + texto(traduz("Where")) + "</th><th>" +
          texto(traduz("Field")) + "</th><th>" + texto(traduz("Found")) + "</th><th>" +
          texto(traduz("Expected")) + "</th></tr></thead><tbody>\n";
  for (const Achado& achado : grupo.primeiros) html += linhaDoAchado(achado, folhas);
  html += "</tbody></table></div>\n";
  const long restantes = grupo.quantos - static_cast<long>(grupo.primeiros.size());
  if (restantes > 0)
    html += "<p class=\"resto\">" +
            texto(fraseDe(
                "{n} more of this rule is not shown; cotepe validate and cotepe verify list all of them",
                "{n} more of this rule are not shown; cotepe validate and cotepe verify list all of them",
                restantes)) +
            "</p>\n";
  return html + "</details>\n";
}

std::string todos(const AchadosAgrupados& achados, const Folhas& folhas) {
  std::string erros, avisos;
  for (const auto& [nome, doGrupo] : achados.grupos())
    (doGrupo.severidade == Severidade::Erro ? erros : avisos) += grupo(nome, doGrupo, folhas);
  return erros + avisos;
}

}  // namespace

std::string secaoDosAchados(const ConteudoDaPagina& conteudo, const Folhas& folhas) {
  const AchadosAgrupados& achados = conteudo.relatorio->achados();
  const DoBanco* banco = conteudo.banco;
  std::string html = "<section id=\"achados\" aria-labelledby=\"t-achados\"><h2 id=\"t-achados\">" +
                     texto(traduz("Findings")) + "</h2>\n";
  html += achados.total() == 0
              ? "<p class=\"bom\">\xE2\x9C\x93 " + texto(traduz("The report keeps all the rules.")) + "</p>\n"
              : todos(achados, folhas);
  if (banco != nullptr && banco->diferencas != nullptr) {
    html += "<h3>" + texto(frase("Compared with the database {1}", {banco->nome})) + "</h3>\n<p>" +
            texto(banco->ajuste) + "</p>\n";
    html += banco->diferencas->total() == 0
                ? "<p class=\"bom\">\xE2\x9C\x93 " + texto(traduz("The report is what the database says.")) +
                      "</p>\n"
                : todos(*banco->diferencas, folhas);
  }
  const ResumoDoRelatorio& resumo = conteudo.relatorio->resumo();
  if (resumo.ilegiveis != 0)
    html +=
        "<p class=\"resto\">" +
        texto(fraseDe("{n} record is in no sum, since a number in it cannot be read",
                      "{n} records are in no sum, since a number in them cannot be read", resumo.ilegiveis)) +
        "</p>\n";
  if (resumo.semDia != 0)
    html += "<p class=\"resto\">" +
            texto(fraseDe("{n} record is in no day, since its day cannot be told",
                          "{n} records are in no day, since theirs cannot be told", resumo.semDia)) +
            "</p>\n";
  return html + "</section>\n";
}

}  // namespace cotepe::pagina
