#include "Comando.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "LinhaDeComando.h"
#include "Registros/Catalogo.h"

namespace cotepe::manuais {
namespace {

// "VERSION:{1,2}" has the choices 1 and 2.
std::vector<std::string> escolhasDe(const std::string& tipo) {
  const auto inicio = tipo.find('{'), fim = tipo.find('}');
  if (inicio == std::string::npos || fim == std::string::npos) return {};
  return CLI::detail::split(tipo.substr(inicio + 1, fim - inicio - 1), ',');
}

std::vector<std::string> codigosDosRegistros() {
  std::vector<std::string> codigos(kCatalogo.size());
  std::transform(kCatalogo.begin(), kCatalogo.end(), codigos.begin(),
                 [](const Registro* registro) { return registro->codigo; });
  return codigos;
}

// Positional arguments are files, except for the code of a register.
TipoDoValor especieDoValor(const Argumento& argumento) {
  if (!argumento.escolhas.empty()) return TipoDoValor::Escolha;
  return argumento.posicional() || argumento.marca == "FILE" ? TipoDoValor::Arquivo : TipoDoValor::Livre;
}

Argumento argumentoDe(const CLI::Option& opcao) {
  Argumento a;
  for (const auto& curto : opcao.get_snames()) a.nomes.push_back("-" + curto);
  for (const auto& longo : opcao.get_lnames()) a.nomes.push_back("--" + longo);
  a.descricao = opcao.get_description();
  a.obrigatorio = opcao.get_required();
  if (opcao.get_items_expected_max() == 0) return a;
  const std::string tipo = opcao.get_type_name();
  a.marca = a.posicional() ? opcao.get_name() : tipo.substr(0, tipo.find(':'));
  a.escolhas = a.marca == "REGISTER" ? codigosDosRegistros() : escolhasDe(tipo);
  a.valor = especieDoValor(a);
  a.repete = opcao.get_items_expected_max() > 1;
  return a;
}

Comando comandoDe(const CLI::App& app) {
  Comando comando{app.get_name(), app.get_description(), app.get_footer(), {}};
  for (const CLI::Option* opcao : app.get_options()) comando.argumentos.push_back(argumentoDe(*opcao));
  return comando;
}

}  // namespace

std::vector<Comando> comandosDoPrograma() {
  CLI::App app;
  programa::Acao nenhuma;
  programa::declara(app, nenhuma);
  std::vector<Comando> comandos = {comandoDe(app)};
  for (const CLI::App* sub : std::as_const(app).get_subcommands({})) comandos.push_back(comandoDe(*sub));
  return comandos;
}

}  // namespace cotepe::manuais
