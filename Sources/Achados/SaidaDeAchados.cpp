#include "Achados/SaidaDeAchados.h"

#include <unistd.h>

#include <cstdlib>
#include <ostream>

#include "Achados/Json.h"
#include "Idioma/Idioma.h"
#include "Leitor/Trecho.h"

namespace cotepe {
namespace {

constexpr char kAbreSarif[] =
    R"({"$schema":"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",)"
    R"("version":"2.1.0","runs":[{"results":[)";

constexpr char kVermelho[] = "\033[1;31m", kAmarelo[] = "\033[1;33m", kVerde[] = "\033[1;32m",
               kNormal[] = "\033[0m";

// For programs; for people it is translated.
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
  opcoes.comLinha = isatty(descritor) != 0;
  const char* semCores = std::getenv("NO_COLOR");
  opcoes.cores = opcoes.comLinha && (semCores == nullptr || *semCores == '\0');
  return opcoes;
}

SaidaDeAchados::SaidaDeAchados(std::ostream& saida, const Opcoes& opcoes) : saida_(saida), opcoes_(opcoes) {}

void SaidaDeAchados::recebe(const Achado& achado) {
  ++(achado.severidade == Severidade::Erro ? erros_ : avisos_);
  if (opcoes_.maximo >= 0 && escritos_ >= opcoes_.maximo) return;
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
  const Trecho trecho = trechoDaLinha(achado.conteudo, achado.de, achado.ate);
  saida_ << "  " << trecho.linha << '\n';
  if (trecho.marca.empty()) return;
  saida_ << "  " << (opcoes_.cores ? kVerde : "") << trecho.marca << (opcoes_.cores ? kNormal : "") << '\n';
}

void SaidaDeAchados::terminaTexto() {
  if (total() == 0) return;
  const std::string contagem =
      fraseDe("{n} error", "{n} errors", erros_) + ", " + fraseDe("{n} warning", "{n} warnings", avisos_);
  saida_ << (escritos_ < total() ? frase("{1} ({2} shown)", {contagem, std::to_string(escritos_)}) : contagem)
         << '\n';
}

void SaidaDeAchados::escreveJson(const Achado& achado) {
  ObjetoJson objeto(saida_);
  objeto.texto("severity", palavra(achado.severidade)).texto("rule", achado.regra);
  objeto.textoSeHouver("file", achado.arquivo).numeroSeHouver("line", achado.linha);
  if (achado.de > 0) objeto.numero("from", achado.de).numero("to", achado.ate);
  objeto.textoSeHouver("table", achado.tabela).textoSeHouver("key", achado.chave);
  objeto.textoSeHouver("column", achado.coluna).textoSeHouver("register", achado.registro);
  objeto.numeroSeHouver("field", achado.numero).textoSeHouver("label", achado.campo);
  objeto.textoSeHouver("found", achado.encontrado).textoSeHouver("expected", achado.esperado);
  objeto.textoSeHouver("fix", achado.conserto);
  objeto.fecha();
  saida_ << '\n';
}

void SaidaDeAchados::terminaJson() {
  saida_ << R"({"summary":)";
  ObjetoJson(saida_).numero("errors", erros_).numero("warnings", avisos_).numero("shown", escritos_).fecha();
  saida_ << "}\n";
}

void SaidaDeAchados::escreveSarif(const Achado& achado) {
  regras_.insert(achado.regra);
  saida_ << (escritos_ == 0 ? kAbreSarif : ",") << '\n';
  saida_ << R"({"ruleId":)" << textoJson(achado.regra) << R"(,"level":")" << palavra(achado.severidade)
         << R"(","message":{"text":)" << textoJson(mensagem(achado))
         << R"(},"locations":[{"physicalLocation":{)"
         << R"("artifactLocation":{"uri":)" << textoJson(uriDoArquivo(achado.arquivo)) << '}';
  if (achado.linha > 0) {
    saida_ << R"(,"region":{"startLine":)" << achado.linha;
    if (achado.de > 0) saida_ << R"(,"startColumn":)" << achado.de << R"(,"endColumn":)" << achado.ate + 1;
    saida_ << '}';
  }
  saida_ << '}';
  if (!achado.tabela.empty())
    saida_ << R"(,"logicalLocations":[{"fullyQualifiedName":)" << textoJson(lugarNoBanco(achado)) << "}]";
  saida_ << "}]}";
}

void SaidaDeAchados::terminaSarif() {
  if (escritos_ == 0) saida_ << kAbreSarif;
  saida_ << '\n' << R"(],"tool":{"driver":{"name":"cotepe","rules":[)";
  bool primeira = true;
  for (const std::string& regra : regras_) {
    saida_ << (primeira ? "" : ",") << R"({"id":)" << textoJson(regra) << '}';
    primeira = false;
  }
  saida_ << R"(]}},"properties":{"errors":)" << erros_ << R"(,"warnings":)" << avisos_ << R"(,"shown":)"
         << escritos_ << "}}]}\n";
}

}  // namespace cotepe
