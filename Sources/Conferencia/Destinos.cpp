#include "Conferencia/Destinos.h"

#include <algorithm>
#include <iterator>

#include "Achados/Citacao.h"
#include "BancoFiscal/ConsultaAnalisada.h"
#include "Leiaute/IdentidadeDoEcf.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Finds among SELECTs the one whose result column of that number is the column.
const Expressao* daColuna(const std::vector<SelectAnalisado>& selects, int numero, std::string_view tabela,
                          std::string_view coluna) {
  static const Expressao porPosicao;
  for (const SelectAnalisado& select : selects) {
    if (select.lista.empty() && select.tabelas.front().nome == tabela && std::to_string(numero) == coluna)
      return &porPosicao;
    if (static_cast<std::size_t>(numero) >= select.lista.size()) continue;
    const Expressao& lida = select.lista[static_cast<std::size_t>(numero)];
    if (lida.tabela == tabela && lida.coluna == coluna) return &lida;
  }
  return nullptr;
}

// How the field reads the column: by its own query, by one whose maximum takes precedence over it, or as a
// part of the printer's identity.
const Expressao* lidaPelo(const Registro& registro, const Campo& campo, std::string_view tabela,
                          std::string_view coluna) {
  const Origem& origem = campo.origem;
  if (origem.tipo == Origem::Tipo::Ajuste && origem.coluna >= 0)
    return daColuna(analisada(kConsultaDaIdentidade), origem.coluna, tabela, coluna);
  if (!origem.deColuna()) return nullptr;
  for (int q = 0; q < static_cast<int>(Registro::kConsultas); ++q) {
    const bool deMaximo = campo.maximos >= 0 && q >= campo.maximos;
    if (!deMaximo && q != origem.consulta && origem.consulta != Origem::kDeCadaConsulta) continue;
    const Expressao* lida =
        daColuna(analisada(registro.consultas[q].sql), deMaximo ? 0 : origem.coluna, tabela, coluna);
    if (lida != nullptr) return lida;
  }
  return nullptr;
}

void junta(const Registro& registro, std::string_view tabela, std::string_view coluna, const Alcance& alcance,
           std::vector<Destino>& destinos) {
  for (std::size_t i = 0; i < registro.campos.size(); ++i) {
    const Campo& campo = registro.campos[i];
    const Expressao* lida = alcance.existe(campo) ? lidaPelo(registro, campo, tabela, coluna) : nullptr;
    if (lida == nullptr) continue;
    Destino destino{&registro, &campo, static_cast<int>(i) + 1, lida->usados(), {}};
    if (campo.colunaDasCasas >= 0)
      destino.casas = analisada(registro.consultas[campo.origem.consulta].sql)[0]
                          .lista[static_cast<std::size_t>(campo.colunaDasCasas)]
                          .coluna;
    destinos.push_back(std::move(destino));
  }
}

bool le(const ConsultaDoRegistro& consulta, std::string_view tabela, std::string_view coluna) {
  const std::vector<SelectAnalisado>& selects = analisada(consulta.sql);
  return std::any_of(selects.begin(), selects.end(),
                     [&](const SelectAnalisado& select) { return select.nomeia(tabela, coluna); });
}

}  // namespace

bool Alcance::escreve(const Registro& registro) const {
  return std::any_of(std::begin(kNomesDosComandos), std::end(kNomesDosComandos), [&](const char* nome) {
    return (comando.empty() || comando == nome) && registro.despachado(nome, leiaute == 0 ? 2 : leiaute);
  });
}

bool Alcance::existe(const Campo& campo) const {
  if (leiaute != 0) return campo.existe(leiaute, cat52);
  return campo.existe(1, cat52) || campo.existe(2, cat52);
}

std::vector<Destino> destinosDe(std::string_view tabela, std::string_view coluna, const Alcance& alcance) {
  std::vector<Destino> destinos;
  for (const Registro* registro : kCatalogo)
    if (alcance.escreve(*registro)) junta(*registro, tabela, coluna, alcance, destinos);
  return destinos;
}

std::string registrosQueLeem(std::string_view tabela, std::string_view coluna, const Alcance& alcance) {
  std::vector<std::string> codigos;
  for (const Registro* registro : kCatalogo) {
    const auto daConsulta = [&](const ConsultaDoRegistro& consulta) { return le(consulta, tabela, coluna); };
    if (alcance.escreve(*registro) &&
        std::any_of(std::begin(registro->consultas), std::end(registro->consultas), daConsulta))
      codigos.emplace_back(registro->codigo);
  }
  return enumera(codigos);
}

}  // namespace cotepe
