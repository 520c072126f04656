#include "FormatosDoLeiaute.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"

namespace cotepe::programa {
namespace {

constexpr std::size_t kColunas = 8;
using Celulas = std::array<std::string, kColunas>;

constexpr std::array<const char*, kColunas> kTitulos = {
    marca("No."),   marca("Label"), marca("Key"),         marca("Positions"),
    marca("Width"), marca("Kind"),  marca("Placeholder"), marca("Condition")};
constexpr std::array<bool, kColunas> kADireita = {true, false, false, false, true, false, false, false};

std::string posicoes(const LinhaDaTabela& linha) {
  if (linha.de == linha.ate) return std::to_string(linha.de);
  return std::to_string(linha.de) + '-' + std::to_string(linha.ate);
}

template <class Itens, class Texto>
std::string lista(const Itens& itens, const char* separador, const Texto& texto) {
  std::string junto;
  for (const auto& item : itens) (junto += junto.empty() ? "" : separador) += texto(item);
  return junto;
}

// How the words of a table are written: by `frase` for people, by `preenche` for programs, always in English.
using Fala = std::string (*)(const char*, Partes);

std::string condicao(const LinhaDaTabela& linha, Fala fala) {
  return lista(linha.condicoes, "; ", [fala](const Dito& dito) { return fala(dito.modelo, {dito.parte}); });
}

Celulas titulos() {
  Celulas celulas;
  std::transform(kTitulos.begin(), kTitulos.end(), celulas.begin(), traduz);
  return celulas;
}

Celulas celulasDe(const LinhaDaTabela& linha) {
  return {std::to_string(linha.numero),
          linha.rotulo,
          linha.chave,
          posicoes(linha),
          std::to_string(linha.largura),
          traduz(linha.especie),
          frase(linha.vazio.modelo, {linha.vazio.parte}),
          condicao(linha, frase)};
}

std::string comandos(const Registro& registro) {
  const auto nomes = comandosDe(registro);
  return nomes.empty() ? traduz("none") : lista(nomes, ", ", [](const std::string& nome) { return nome; });
}

// What holds for all tables of a register.
std::string cabecalho(const TabelaDoLeiaute& tabela) {
  const std::string nota = traduz(tabela.nota);
  return frase("Commands: {1}. Placeholder record: {2}.",
               {comandos(*tabela.registro), traduz(tabela.vazio)}) +
         (nota.empty() ? "" : " " + nota) + "\n";
}

std::string ajuste(const TabelaDoLeiaute& tabela) {
  const std::string bytes = std::to_string(tabela.comprimento);
  const std::string de = std::to_string(tabela.versoes.front()), ate = std::to_string(tabela.versoes.back());
  if (tabela.versoes.size() > 1)
    return frase(tabela.cat52 ? marca("Layouts {1} and {2}, CAT52 mode: {3} bytes.")
                              : marca("Layouts {1} and {2}: {3} bytes."),
                 {de, ate, bytes});
  return frase(tabela.cat52 ? marca("Layout {1}, CAT52 mode: {2} bytes.") : marca("Layout {1}: {2} bytes."),
               {de, bytes});
}

std::string alinhado(const Celulas& celulas, const std::array<std::size_t, kColunas>& larguras) {
  std::string linha;
  for (std::size_t i = 0; i < kColunas; ++i) {
    const std::string brancos(larguras[i] - caracteresUtf8(celulas[i]), ' ');
    linha += i == 0 ? "" : "  ";
    linha += kADireita[i] ? brancos + celulas[i] : celulas[i] + brancos;
  }
  return linha.erase(linha.find_last_not_of(' ') + 1) + '\n';
}

std::string tabelaEmTexto(const TabelaDoLeiaute& tabela) {
  std::vector<Celulas> todas = {titulos()};
  for (const LinhaDaTabela& linha : tabela.linhas) todas.push_back(celulasDe(linha));
  std::array<std::size_t, kColunas> larguras{};
  for (const Celulas& celulas : todas)
    for (std::size_t i = 0; i < kColunas; ++i)
      larguras[i] = std::max(larguras[i], caracteresUtf8(celulas[i]));
  return lista(todas, "", [&](const Celulas& celulas) { return alinhado(celulas, larguras); });
}

std::string emLinhaDeMarkdown(const Celulas& celulas) {
  return "| " + lista(celulas, " | ", [](const std::string& c) { return c.empty() ? std::string(" ") : c; }) +
         " |\n";
}

std::string tabelaEmMarkdown(const TabelaDoLeiaute& tabela) {
  return emLinhaDeMarkdown(titulos()) + "|---:|---|---|---|---:|---|---|---|\n" +
         lista(tabela.linhas, "",
               [](const LinhaDaTabela& linha) { return emLinhaDeMarkdown(celulasDe(linha)); });
}

// Whether the table is the first one of its register.
bool primeira(const Tabelas& tabelas, std::size_t i) {
  return i == 0 || tabelas[i - 1].registro != tabelas[i].registro;
}

nlohmann::ordered_json campoEmJson(const LinhaDaTabela& linha) {
  return {{"number", linha.numero},
          {"label", linha.rotulo},
          {"key", linha.chave},
          {"from", linha.de},
          {"to", linha.ate},
          {"width", linha.largura},
          {"kind", linha.especie},
          {"placeholder", preenche(linha.vazio.modelo, {linha.vazio.parte})},
          {"condition", condicao(linha, preenche)}};
}

}  // namespace

std::string emTexto(const Tabelas& tabelas) {
  std::string texto;
  for (std::size_t i = 0; i < tabelas.size(); ++i) {
    const TabelaDoLeiaute& tabela = tabelas[i];
    texto += i == 0 ? "" : "\n";
    if (primeira(tabelas, i)) {
      texto += std::string(tabela.registro->codigo) + "  " + tabela.registro->nome + '\n' +
               cabecalho(tabela) + '\n';
    }
    texto += ajuste(tabela) + "\n" + tabelaEmTexto(tabela);
  }
  return texto;
}

std::string emMarkdown(const Tabelas& tabelas) {
  std::string texto = traduz(
      "# Registers of the type-E file\n\n"
      "Made by `cotepe layout --format markdown` from the lists that the generator writes by. Widths are in "
      "bytes,\n"
      "positions count from 1. A placeholder record stands for a register that has no row.");
  texto += '\n';
  for (std::size_t i = 0; i < tabelas.size(); ++i) {
    const TabelaDoLeiaute& tabela = tabelas[i];
    if (primeira(tabelas, i)) {
      texto += std::string("\n## ") + tabela.registro->codigo + " " + tabela.registro->nome + "\n\n" +
               cabecalho(tabela);
    }
    texto += '\n' + ajuste(tabela) + "\n\n" + tabelaEmMarkdown(tabela);
  }
  return texto;
}

std::string emJson(const Tabelas& tabelas) {
  auto todas = nlohmann::ordered_json::array();
  for (const TabelaDoLeiaute& tabela : tabelas) {
    auto campos = nlohmann::ordered_json::array();
    for (const LinhaDaTabela& linha : tabela.linhas) campos.push_back(campoEmJson(linha));
    todas.push_back({{"register", tabela.registro->codigo},
                     {"name", tabela.registro->nome},
                     {"commands", comandosDe(*tabela.registro)},
                     {"layouts", tabela.versoes},
                     {"cat52", tabela.cat52},
                     {"length", tabela.comprimento},
                     {"placeholder", tabela.vazio},
                     {"note", tabela.nota},
                     {"fields", campos}});
  }
  return todas.dump(2) + '\n';
}

}  // namespace cotepe::programa
