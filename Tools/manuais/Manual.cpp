#include "Manual.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace cotepe::manuais {
namespace {

// Text escaped for roff: hyphens stay hyphens, and no line begins with a request.
std::string roff(const std::string& texto) {
  std::string saida;
  for (const char c : texto) {
    if (c == '\\')
      saida += "\\e";
    else if (c == '-')
      saida += "\\-";
    else
      saida += c;
  }
  return saida.empty() || (saida[0] != '.' && saida[0] != '\'') ? saida : "\\&" + saida;
}

std::string negrito(const std::string& texto) { return "\\fB" + roff(texto) + "\\fR"; }
std::string italico(const std::string& texto) { return "\\fI" + roff(texto) + "\\fR"; }

std::string maiusculas(std::string texto) {
  std::transform(texto.begin(), texto.end(), texto.begin(), [](unsigned char c) { return std::toupper(c); });
  return texto;
}

std::string linhaDeComando(const std::string& pagina) {
  std::string texto = pagina;
  std::replace(texto.begin(), texto.end(), '-', ' ');
  return texto;
}

std::string comValor(const Argumento& a) {
  if (a.posicional()) return italico(a.marca);
  std::string texto;
  for (const auto& nome : a.nomes) texto += (texto.empty() ? "" : ", ") + negrito(nome);
  return a.valor == TipoDoValor::Nenhum ? texto : texto + " " + italico(a.marca);
}

// Required arguments, and optional ones.
std::string sinopse(const Comando& comando) {
  std::string texto = " [" + italico("options") + "]";
  for (const auto& a : comando.argumentos)
    if (a.obrigatorio && !a.posicional()) texto += " " + comValor(a);
  for (const auto& a : comando.argumentos)
    if (a.posicional()) texto += a.obrigatorio ? " " + comValor(a) : " [" + comValor(a) + "]";
  return texto;
}

std::string lista(const std::vector<std::string>& itens) {
  std::string texto;
  for (const auto& item : itens) texto += (texto.empty() ? "" : ", ") + item;
  return texto;
}

std::string argumentos(const Comando& comando, bool posicionais) {
  std::string texto;
  for (const auto& a : comando.argumentos) {
    if (a.posicional() != posicionais) continue;
    texto += ".TP\n" + comValor(a) + "\n" + roff(a.descricao) + "\n";
    if (!a.escolhas.empty()) texto += ".br\n" + roff("One of " + lista(a.escolhas) + ".") + "\n";
    if (a.obrigatorio && !a.posicional()) texto += ".br\nRequired.\n";
  }
  return texto;
}

// Lines are joined, except for those that are indented and those after a finished sentence.
std::string notas(const std::string& rodape) {
  std::istringstream linhas(rodape);
  std::string texto, anterior;
  for (std::string linha; std::getline(linhas, linha); anterior = linha) {
    if (linha.empty()) continue;
    const bool nova =
        linha[0] == ' ' || (!anterior.empty() && (anterior.back() == '.' || anterior.back() == ':'));
    if (nova) texto += ".br\n";
    texto += roff(linha.substr(linha.find_first_not_of(' '))) + "\n";
  }
  return texto;
}

std::string secao(const std::string& titulo, const std::string& texto) {
  return texto.empty() ? "" : ".SH " + titulo + "\n" + texto;
}

std::string outrasPaginas(const std::vector<Comando>& comandos, std::size_t qual) {
  std::string texto;
  for (std::size_t i = 0; i < comandos.size(); ++i)
    if (i != qual)
      texto += ".BR " + roff(nomeDaPagina(comandos, i)) + " (1)\n" + roff(comandos[i].descricao) + "\n.br\n";
  return texto;
}

}  // namespace

std::string nomeDaPagina(const std::vector<Comando>& comandos, std::size_t qual) {
  return qual == 0 ? comandos[0].nome : comandos[0].nome + "-" + comandos[qual].nome;
}

std::string pagina(const std::vector<Comando>& comandos, std::size_t qual, const std::string& versao) {
  const Comando& comando = comandos[qual];
  const std::string nome = nomeDaPagina(comandos, qual);
  const std::string titulo = roff(maiusculas(nome)) + R"( 1 "" ")" + roff(comandos[0].nome + " " + versao) +
                             R"(" "User Commands")" + "\n";
  const std::string sinopseInteira =
      negrito(linhaDeComando(nome)) + sinopse(comando) + (qual == 0 ? " " + italico("command") + " ..." : "");
  return ".\\\" Made from the program's command line; changes here are lost.\n.TH " + titulo +
         secao("NAME", roff(nome) + " \\- " + roff(comando.descricao) + "\n") +
         secao("SYNOPSIS", sinopseInteira + "\n") + secao("ARGUMENTS", argumentos(comando, true)) +
         secao("OPTIONS", argumentos(comando, false)) + secao("NOTES", notas(comando.rodape)) +
         secao("SEE ALSO", outrasPaginas(comandos, qual));
}

}  // namespace cotepe::manuais
