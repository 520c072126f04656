// cotepe layout: the field tables of the registers.

#include <memory>

#include "Comandos.h"
#include "FormatosDoLeiaute.h"
#include "Idioma/Idioma.h"
#include "Registros/Catalogo.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoLayout {
  std::string registro, formato = "text";
  int leiaute = 0;  // 0: both
  bool cat52 = false;
};

std::vector<const Registro*> registrosDe(const std::string& codigo) {
  if (codigo.empty()) return {kCatalogo.begin(), kCatalogo.end()};
  return {registroDe(codigo.c_str())};
}

Tabelas tabelasPedidas(const OpcoesDoLayout& opcoes) {
  const std::vector<int> versoes =
      opcoes.leiaute == 0 ? std::vector<int>{1, 2} : std::vector<int>{opcoes.leiaute};
  Tabelas todas;
  for (const Registro* registro : registrosDe(opcoes.registro))
    for (TabelaDoLeiaute& tabela : tabelasDe(*registro, versoes, opcoes.cat52))
      todas.push_back(std::move(tabela));
  if (!todas.empty()) return todas;
  throw Falha(kUsoErrado, frase("{1} is a register of layout 2 alone; give --layout 2", {opcoes.registro}));
}

void executa(const OpcoesDoLayout& opcoes) {
  const Tabelas tabelas = tabelasPedidas(opcoes);
  const auto formata = opcoes.formato == "json"       ? emJson
                       : opcoes.formato == "markdown" ? emMarkdown
                                                      : emTexto;
  escreveNaSaidaPadrao(formata(tabelas));
}

}  // namespace

Acao declaraLayout(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoLayout>();
  comando.add_option("REGISTER", o->registro, traduz("E01 to E22; all of them when none is named"))
      ->transform(codigoDeRegistro());
  comando.add_option("--layout", o->leiaute, traduz("Layout version, 1 or 2 (both, where they differ)"))
      ->type_name("VERSION")
      ->transform(escolha({"1", "2"}));
  comando.add_flag("--cat52", o->cat52, traduz("As in CAT52 mode"));
  comando.add_option("--format", o->formato, traduz("text, markdown or json (text)"))
      ->type_name("FORMAT")
      ->transform(escolha({"text", "markdown", "json"}));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
