#include "Achados/SaidaDeAchados.h"

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>

#include "Achados/Json.h"
#include "Achados/Trecho.h"
#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"
#include "Sistema/Terminal.h"

namespace cotepe {
namespace {

using nlohmann::ordered_json;

constexpr char kAbreSarif[] =
    R"({"$schema":"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",)"
    R"("version":"2.1.0","runs":[{"results":[)";

constexpr char kVermelho[] = "\033[1;31m", kAmarelo[] = "\033[1;33m", kVerde[] = "\033[1;32m",
               kNormal[] = "\033[0m";

constexpr std::size_t kRecuo = 2;               // of the line under a finding
constexpr std::size_t kColunasMinimas = 20;     // of that line
constexpr std::size_t kLarguraDaContagem = 11;  // of the table of rules

// For programs; translated for people.
const char* palavra(Severidade severidade) {
  return severidade == Severidade::Erro ? marca("error") : marca("warning");
}

std::string lugarNoBanco(const Achado& achado) {
  std::string lugar = achado.tabela;
  if (!achado.chave.empty()) lugar += '[' + achado.chave + ']';
  if (!achado.coluna.empty()) lugar += '.' + achado.coluna;
  return lugar;
}

std::string lugar(const Achado& achado) {
  std::string texto = achado.arquivo;
  if (achado.linha > 0) texto += ':' + std::to_string(achado.linha);
  if (achado.de > 0) texto += ':' + std::to_string(achado.de) + '-' + std::to_string(achado.ate);
  if (achado.tabela.empty()) return texto;
  return (texto.empty() ? texto : texto + ": ") + lugarNoBanco(achado);
}

std::string doCampo(const Achado& achado) {
  std::string texto = achado.registro;
  if (achado.numero > 0) texto += '.' + std::to_string(achado.numero);
  if (!achado.campo.empty()) texto += (texto.empty() ? "\"" : " \"") + achado.campo + '"';
  return texto;
}

// Found, expected and what to do, as one sentence.
std::string sentenca(const Achado& achado) {
  std::string texto;
  const auto junta = [&texto](const char* separador, const std::string& parte) {
    texto += (texto.empty() ? "" : separador) + parte;
  };
  if (!achado.encontrado.empty()) junta("", frase("found {1}", {achado.encontrado}));
  if (!achado.esperado.empty()) junta(", ", frase("expected {1}", {achado.esperado}));
  if (!achado.conserto.empty()) junta(" ", '(' + achado.conserto + ')');
  return texto;
}

std::string mensagem(const Achado& achado) {
  const std::string campo = doCampo(achado);
  return campo.empty() ? sentenca(achado) : campo + ": " + sentenca(achado);
}

std::string depoisDaSeveridade(const Achado& achado) {
  const std::string campo = doCampo(achado);
  return ' ' + achado.regra + (campo.empty() ? "" : ' ' + campo) + ": " + sentenca(achado);
}

}  // namespace

bool formatoDeAchados(const std::string& nome, FormatoDeAchados& formato) {
  if (nome == "text")
    formato = FormatoDeAchados::Texto;
  else if (nome == "json")
    formato = FormatoDeAchados::Json;
  else if (nome == "sarif")
    formato = FormatoDeAchados::Sarif;
  else
    return false;
  return true;
}

std::string textoDoAchado(const Achado& achado) {
  const std::string onde = lugar(achado);
  return (onde.empty() ? onde : onde + ": ") + traduz(palavra(achado.severidade)) +
         depoisDaSeveridade(achado);
}

SaidaDeAchados::Opcoes SaidaDeAchados::opcoesPara(int descritor) {
  Opcoes opcoes;
  opcoes.comLinha = ehTerminal(descritor);
  const char* semCores = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  opcoes.cores = opcoes.comLinha && (semCores == nullptr || *semCores == '\0') &&
                 (terminal == nullptr || std::string_view(terminal) != "dumb");
  if (const std::size_t colunas = colunasDoTerminal(descritor); colunas > kRecuo)
    opcoes.colunas = std::max(colunas - kRecuo, kColunasMinimas);
  return opcoes;
}

SaidaDeAchados::SaidaDeAchados(std::ostream& saida, const Opcoes& opcoes) : saida_(saida), opcoes_(opcoes) {}

void SaidaDeAchados::recebe(const Achado& achado) {
  ++(achado.severidade == Severidade::Erro ? erros_ : avisos_);
  Contagem& contagem = regras_[achado.regra];
  ++contagem.todos;
  if (opcoes_.maximo >= 0 && contagem.escritos >= opcoes_.maximo) return;
  ++contagem.escritos;
  switch (opcoes_.formato) {
    case FormatoDeAchados::Texto:
      escreveTexto(achado);
      break;
    case FormatoDeAchados::Json:
      escreveJson(achado);
      break;
    case FormatoDeAchados::Sarif:
      escreveSarif(achado);
      break;
  }
  ++escritos_;
}

void SaidaDeAchados::termina() {
  switch (opcoes_.formato) {
    case FormatoDeAchados::Texto:
      return terminaTexto();
    case FormatoDeAchados::Json:
      return terminaJson();
    case FormatoDeAchados::Sarif:
      return terminaSarif();
  }
}

void SaidaDeAchados::escreveTexto(const Achado& achado) {
  if (opcoes_.cores) {
    const std::string onde = lugar(achado);
    saida_ << (onde.empty() ? onde : onde + ": ")
           << (achado.severidade == Severidade::Erro ? kVermelho : kAmarelo)
           << traduz(palavra(achado.severidade)) << kNormal << depoisDaSeveridade(achado) << '\n';
  } else {
    saida_ << textoDoAchado(achado) << '\n';
  }
  if (!opcoes_.comLinha || achado.conteudo.empty()) return;
  const Trecho trecho = trechoDaLinha(achado.conteudo, achado.de, achado.ate, opcoes_.colunas);
  saida_ << "  " << trecho.linha << '\n';
  if (trecho.marca.empty()) return;
  saida_ << "  " << (opcoes_.cores ? kVerde : "") << trecho.marca << (opcoes_.cores ? kNormal : "") << '\n';
}

// The rules and how often each was broken, the names in one column.
void SaidaDeAchados::escreveTabela() {
  std::size_t largura = 0;
  for (const auto& [nome, contagem] : regras_) largura = std::max(largura, nome.size());
  for (const auto& [nome, contagem] : regras_) {
    const std::string quantos = contado(contagem.todos);
    saida_ << "  " << nome << std::string(largura - nome.size() + 2, ' ')
           << std::string(kLarguraDaContagem - std::min(kLarguraDaContagem, quantos.size()), ' ') << quantos
           << '\n';
  }
}

void SaidaDeAchados::terminaTexto() {
  if (total() == 0) return;
  for (const auto& [nome, contagem] : regras_)
    if (contagem.escritos > 0 && contagem.escritos < contagem.todos)
      saida_ << frase("{1}: ... and {2} more like this; --all shows them",
                      {nome, contado(contagem.todos - contagem.escritos)})
             << '\n';
  if (regras_.size() > 1) escreveTabela();
  const std::string contagem = fraseDe("{1} error", "{1} errors", erros_, {contado(erros_)}) + ", " +
                               fraseDe("{1} warning", "{1} warnings", avisos_, {contado(avisos_)});
  saida_ << (escritos_ < total() ? frase("{1} ({2} shown)", {contagem, contado(escritos_)}) : contagem)
         << '\n';
}

void SaidaDeAchados::escreveJson(const Achado& achado) {
  ordered_json objeto = {{"severity", palavra(achado.severidade)}, {"rule", achado.regra}};
  const auto texto = [&objeto](const char* nome, const std::string& valor) {
    if (!valor.empty()) objeto[nome] = emUtf8(valor);
  };
  texto("file", achado.arquivo);
  if (achado.linha != 0) objeto["line"] = achado.linha;
  if (achado.de > 0) objeto["columns"] = {achado.de, achado.ate};
  if (achado.outraLinha != 0) objeto["other_line"] = achado.outraLinha;
  texto("table", achado.tabela);
  texto("key", achado.chave);
  texto("column", achado.coluna);
  texto("register", achado.registro);
  if (achado.numero != 0) objeto["field"] = achado.numero;
  texto("label", achado.campo);
  texto("found", achado.encontrado);
  texto("expected", achado.esperado);
  texto("fix", achado.conserto);
  saida_ << objeto.dump() << '\n';
}

void SaidaDeAchados::terminaJson() {
  const ordered_json contagens = {{"errors", erros_}, {"warnings", avisos_}, {"shown", escritos_}};
  saida_ << ordered_json({{"summary", contagens}}).dump() << '\n';
}

void SaidaDeAchados::escreveSarif(const Achado& achado) {
  ordered_json fisico = {{"artifactLocation", {{"uri", uriDoArquivo(achado.arquivo)}}}};
  if (achado.linha > 0) {
    ordered_json& regiao = fisico["region"] = {{"startLine", achado.linha}};
    if (achado.de > 0) regiao["startColumn"] = achado.de, regiao["endColumn"] = achado.ate + 1;
  }
  ordered_json lugar = {{"physicalLocation", std::move(fisico)}};
  if (!achado.tabela.empty())
    lugar["logicalLocations"] =  // braces alone would be the object itself to some compilers
        ordered_json::array({ordered_json({{"fullyQualifiedName", emUtf8(lugarNoBanco(achado))}})});
  ordered_json resultado = {{"ruleId", achado.regra}, {"level", palavra(achado.severidade)}};
  resultado["message"]["text"] = emUtf8(mensagem(achado));
  resultado["locations"] = ordered_json::array({std::move(lugar)});
  saida_ << (escritos_ == 0 ? kAbreSarif : ",") << '\n' << resultado.dump();
}

// The document is written as its results come; what follows them closes what kAbreSarif opened.
void SaidaDeAchados::terminaSarif() {
  auto regras = ordered_json::array();
  for (const auto& [nome, contagem] : regras_)
    if (contagem.escritos > 0) regras.push_back({{"id", nome}});
  ordered_json fim;
  fim["tool"]["driver"] = {{"name", "cotepe"}, {"rules", std::move(regras)}};
  fim["properties"] = {{"errors", erros_}, {"warnings", avisos_}, {"shown", escritos_}};
  saida_ << (escritos_ == 0 ? kAbreSarif : "") << "\n]," << fim.dump().substr(1) << "]}\n";
}

}  // namespace cotepe
