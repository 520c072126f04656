#include "Exportacao/TabelaDoRegistro.h"

#include "Leiaute/Chave.h"
#include "Leiaute/Releitura.h"
#include "Leitor/ChaveNatural.h"

namespace cotepe::exportacao {
namespace {

Tipo tipoDe(const Campo& campo) {
  if (deData(campo.especie)) return Tipo::Data;
  if (deHora(campo.especie)) return Tipo::Hora;
  if (campo.especie == Especie::Identificador) return Tipo::Digitos;
  if (campo.especie == Especie::Dinheiro || campo.especie == Especie::DinheiroDuplo) return Tipo::Centavos;
  if (campo.especie == Especie::Decimal) return campo.colunaDasCasas < 0 ? Tipo::Centavos : Tipo::Decimal;
  return numerica(campo.especie) ? Tipo::Inteiro : Tipo::Texto;
}

int colunaDasCasas(const Registro& registro, const Campo& campo) {
  for (std::size_t i = 0; i < registro.campos.size(); ++i) {
    const Origem& origem = registro.campos[i].origem;
    if (origem.tipo == Origem::Tipo::Coluna && origem.coluna == campo.colunaDasCasas)
      return static_cast<int>(i);
  }
  return -1;
}

TabelaDoRegistro tabelaDe(std::size_t indice) {
  TabelaDoRegistro tabela;
  tabela.registro = kCatalogo[indice];
  for (const std::int8_t campo : tabela.registro->chave)
    if (campo >= 0) tabela.chave.push_back(chaveDe(tabela.registro->campos[static_cast<std::size_t>(campo)]));
  for (const Campo& campo : tabela.registro->campos) {
    ColunaDaTabela coluna{&campo, chaveDe(campo), tipoDe(campo)};
    if (coluna.tipo == Tipo::Decimal) coluna.casas = colunaDasCasas(*tabela.registro, campo);
    coluna.indexada = campo.especie == Especie::Contador || coluna.nome == "crz";
    tabela.colunas.push_back(std::move(coluna));
  }
  return tabela;
}

std::array<TabelaDoRegistro, kCatalogo.size()> fazTodas() {
  std::array<TabelaDoRegistro, kCatalogo.size()> todas;
  for (std::size_t i = 0; i < todas.size(); ++i) todas[i] = tabelaDe(i);
  return todas;
}

}  // namespace

const char* nomeDoTipo(Tipo tipo) {
  static constexpr const char* kNomes[] = {"inteiro", "centavos", "decimal", "digitos",
                                           "data",    "hora",     "texto"};
  return kNomes[static_cast<std::size_t>(tipo)];
}

const std::array<TabelaDoRegistro, kCatalogo.size()>& tabelas() {
  static const auto todas = fazTodas();
  return todas;
}

}  // namespace cotepe::exportacao
