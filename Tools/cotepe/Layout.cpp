// cotepe layout: the field tables of the registers.

#include <cctype>
#include <memory>

#include "Comandos.h"
#include "FormatosDoLeiaute.h"
#include "Idioma/Idioma.h"
#include "Registros/Catalogo.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoLayout {
  std::string registro, formato = "text";
  int leiaute = 0;  // 0: both
  bool cat52 = false;
};

std::vector<const Registro*> registrosDe(std::string codigo) {
  if (codigo.empty()) return {kCatalogo.begin(), kCatalogo.end()};
  for (char& c : codigo) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  if (const Registro* registro = registroDe(codigo.c_str())) return {registro};
  throw Falha(kUsoErrado,
              frase("wrong usage: {1}: found {2}, expected E01 to E22; correct it", {"REGISTER", codigo}));
}

Tabelas tabelasPedidas(const OpcoesDoLayout& opcoes) {
  const std::vector<int> versoes =
      opcoes.leiaute == 0 ? std::vector<int>{1, 2} : std::vector<int>{opcoes.leiaute};
  Tabelas todas;
  for (const Registro* registro : registrosDe(opcoes.registro))
    for (TabelaDoLeiaute& tabela : tabelasDe(*registro, versoes, opcoes.cat52))
      todas.push_back(std::move(tabela));
  if (!todas.empty()) return todas;
  throw Falha(kUsoErrado,
              frase("wrong usage: --layout 1: found {1}, expected a register of layout 1; use --layout 2: no "
                    "other has it",
                    {opcoes.registro}));
}

void executa(const OpcoesDoLayout& opcoes) {
  const Tabelas tabelas = tabelasPedidas(opcoes);
  const auto formata = opcoes.formato == "json"       ? emJson
                       : opcoes.formato == "markdown" ? emMarkdown
                                                      : emTexto;
  escreveNaSaidaPadrao(formata(tabelas));
}

}  // namespace

Execucao declaraLayout(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoLayout>();
  comando.add_option("REGISTER", o->registro, traduz("E01 to E22; all of them when none is named"));
  comando.add_option("--layout", o->leiaute, traduz("Layout version, 1 or 2 (both, where they differ)"))
      ->type_name("VERSION")
      ->check(CLI::IsMember({1, 2}));
  comando.add_flag("--cat52", o->cat52, traduz("As in CAT52 mode"));
  comando.add_option("--format", o->formato, traduz("text, markdown or json (text)"))
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "markdown", "json"}));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
