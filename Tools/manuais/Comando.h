// The command line of the program as plain data, for the generators of its documentation.
#pragma once

#include <string>
#include <vector>

namespace cotepe::manuais {

/// What a value can be.
enum class TipoDoValor : unsigned char { Nenhum, Livre, Arquivo, Escolha };

/// An option, or a positional argument where it has no name that begins with a hyphen.
struct Argumento {
  std::vector<std::string> nomes;  // with their hyphens, short ones first; empty: positional
  std::string marca;               // what names the value in the help, such as FILE
  TipoDoValor valor = TipoDoValor::Nenhum;
  std::vector<std::string> escolhas;
  std::string descricao;
  bool obrigatorio = false;
  bool repete = false;

  bool posicional() const { return nomes.empty(); }
};

struct Comando {
  std::string nome;
  std::string descricao;
  std::string rodape;  // lines of text, as in the help
  std::vector<Argumento> argumentos;
};

/// The program itself, then its commands, in the order of its help.
std::vector<Comando> comandosDoPrograma();

}  // namespace cotepe::manuais
