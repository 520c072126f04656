#include "Completacao.h"

namespace cotepe::manuais {
namespace {

std::string lista(const std::vector<std::string>& itens) {
  std::string texto;
  for (const auto& item : itens) texto += (texto.empty() ? "" : " ") + item;
  return texto;
}

// Puts a backslash before each of `especiais`.
std::string escapado(const std::string& texto, const std::string& especiais) {
  std::string saida;
  for (const char c : texto) {
    if (especiais.find(c) != std::string::npos) saida += '\\';
    saida += c;
  }
  return saida;
}

// For a text between single quotes of bash and zsh, where a quote itself is not allowed.
std::string entreAspas(const std::string& texto) {
  std::string saida = "'";
  for (const char c : texto) saida += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return saida + "'";
}

std::string nomesDosComandos(const std::vector<Comando>& comandos, const char* separador) {
  std::string texto;
  for (std::size_t i = 1; i < comandos.size(); ++i) texto += (i == 1 ? "" : separador) + comandos[i].nome;
  return texto;
}

std::string opcoesDe(const Comando& comando) {
  std::string texto;
  for (const auto& a : comando.argumentos)
    for (const auto& nome : a.nomes) texto += (texto.empty() ? "" : " ") + nome;
  return texto;
}

const Argumento* posicionalDe(const Comando& comando) {
  for (const auto& a : comando.argumentos)
    if (a.posicional()) return &a;
  return nullptr;
}

std::string respostaDoBash(const Argumento& a) {
  if (a.valor == TipoDoValor::Arquivo) return "_cotepe_arquivos";
  if (a.valor == TipoDoValor::Escolha) return "_cotepe_palavras \"" + lista(a.escolhas) + "\"";
  return ":";
}

std::string especificacaoDoZsh(const Argumento& a) {
  static constexpr char kEspeciais[] = "\\:[]";
  std::string valor;
  if (a.valor != TipoDoValor::Nenhum) {
    valor = ":" + escapado(a.marca, kEspeciais) + ":";
    if (a.valor == TipoDoValor::Arquivo) valor += "_files";
    if (a.valor == TipoDoValor::Escolha) valor += "(" + lista(a.escolhas) + ")";
    if (a.valor == TipoDoValor::Livre) valor += " ";
  }
  if (a.posicional()) return " " + entreAspas(valor);
  const std::string depoisDoNome = "[" + escapado(a.descricao, kEspeciais) + "]" + valor;
  std::string texto;
  for (const auto& nome : a.nomes) {
    std::string uma = a.repete ? "*" : "";
    uma += nome;
    uma += depoisDoNome;
    texto += " " + entreAspas(uma);
  }
  return texto;
}

std::string linhaDoFish(const std::string& condicao, const Argumento& a) {
  std::string texto = "complete -c cotepe -n " + entreAspas(condicao);
  for (const auto& nome : a.nomes)
    texto += nome[1] == '-' ? " -l " + nome.substr(2) : " -s " + nome.substr(1);
  if (a.valor == TipoDoValor::Arquivo) texto += a.posicional() ? " -F" : " -r -F";
  if (a.valor == TipoDoValor::Escolha)
    texto += (a.posicional() ? " -a " : " -x -a ") + entreAspas(lista(a.escolhas));
  if (a.valor == TipoDoValor::Livre) texto += " -x";
  return a.posicional() ? texto + "\n" : texto + " -d " + entreAspas(a.descricao) + "\n";
}

}  // namespace

std::string completacaoDoBash(const std::vector<Comando>& comandos) {
  std::string valores, opcoes, posicionais;
  for (std::size_t i = 1; i < comandos.size(); ++i) {
    const Comando& comando = comandos[i];
    for (const auto& a : comando.argumentos)
      for (const auto& nome : a.nomes)
        if (a.valor != TipoDoValor::Nenhum)
          valores += "    " + comando.nome + ":" + nome + ") " + respostaDoBash(a) + "; return ;;\n";
    opcoes += "    " + comando.nome + ":-*) _cotepe_palavras \"" + opcoesDe(comando) + "\" ;;\n";
    if (const Argumento* a = posicionalDe(comando))
      posicionais += "    " + comando.nome + ":*) " + respostaDoBash(*a) + " ;;\n";
  }
  return "# Made from the program's command line; changes here are lost.\n"
         "_cotepe_palavras() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$palavra\"); }\n"
         "_cotepe_arquivos() {\n  mapfile -t COMPREPLY < <(compgen -f -- \"$palavra\")\n"
         "  compopt -o filenames 2>/dev/null\n}\n"
         "_cotepe() {\n  local palavra=${COMP_WORDS[COMP_CWORD]} anterior=${COMP_WORDS[COMP_CWORD - 1]} "
         "comando=\n"
         "  COMPREPLY=()\n  if ((COMP_CWORD > 1)); then comando=${COMP_WORDS[1]}; fi\n"
         "  case $comando:$anterior in\n" +
         valores + "  esac\n  case $comando:$palavra in\n    :*) _cotepe_palavras \"" +
         nomesDosComandos(comandos, " ") + " " + opcoesDe(comandos[0]) + "\" ;;\n" + opcoes + posicionais +
         "  esac\n}\ncomplete -F _cotepe cotepe\n";
}

std::string completacaoDoZsh(const std::vector<Comando>& comandos) {
  std::string texto =
      "#compdef cotepe\n# Made from the program's command line; changes here are lost.\n"
      "local -a comandos\ncomandos=(\n";
  for (std::size_t i = 1; i < comandos.size(); ++i)
    texto += "  " + entreAspas(comandos[i].nome + ":" + escapado(comandos[i].descricao, ":\\")) + "\n";
  texto += ")\nif (( CURRENT == 2 )); then\n  _describe command comandos\n  _arguments";
  for (const auto& a : comandos[0].argumentos) texto += especificacaoDoZsh(a);
  texto += "\n  return\nfi\nshift words\n(( CURRENT-- ))\ncase $words[1] in\n";
  for (std::size_t i = 1; i < comandos.size(); ++i) {
    texto += "  " + comandos[i].nome + ") _arguments";
    for (const auto& a : comandos[i].argumentos) texto += especificacaoDoZsh(a);
    texto += " ;;\n";
  }
  return texto + "esac\n";
}

std::string completacaoDoFish(const std::vector<Comando>& comandos) {
  std::string texto =
      "# Made from the program's command line; changes here are lost.\ncomplete -c cotepe -f\n";
  for (const auto& a : comandos[0].argumentos) texto += linhaDoFish("__fish_use_subcommand", a);
  for (std::size_t i = 1; i < comandos.size(); ++i) {
    const Comando& comando = comandos[i];
    texto += "complete -c cotepe -n __fish_use_subcommand -a " + comando.nome + " -d " +
             entreAspas(comando.descricao) + "\n";
    for (const auto& a : comando.argumentos)
      texto += linhaDoFish("__fish_seen_subcommand_from " + comando.nome, a);
  }
  return texto;
}

}  // namespace cotepe::manuais
