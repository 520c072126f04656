#include "Leitor/Valor.h"

#include <algorithm>

#include "Achados/Citacao.h"
#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

// The number of decimal places of a scaled field is in another field of the record.
std::size_t casasDe(const RegistroLido& lido, const Campo& campo) {
  const bool tres = std::any_of(lido.campos, lido.campos + lido.quantos, [&](const CampoLido& outro) {
    const Origem& origem = outro.campo->origem;
    return origem.tipo == Origem::Tipo::Coluna && origem.coluna == campo.colunaDasCasas &&
           outro.em(lido.linha.texto) == "3";
  });
  return tres ? 3 : 2;
}

std::string semZeros(std::string_view digitos) {
  const std::size_t primeiro = digitos.find_first_not_of('0');
  return std::string(primeiro == std::string_view::npos ? "0" : digitos.substr(primeiro));
}

std::string comPonto(std::string_view digitos, std::size_t casas) {
  const std::size_t inteiros = digitos.size() - casas;
  return semZeros(digitos.substr(0, inteiros)) + '.' + std::string(digitos.substr(inteiros));
}

std::string pedacos(std::string_view bytes, std::string_view molde) {
  std::string texto;
  std::size_t i = 0;
  for (const char c : molde) texto += c == '#' ? bytes[i++] : c;
  return texto;
}

bool deDinheiro(Especie especie) { return especie == Especie::Dinheiro || especie == Especie::DinheiroDuplo; }

Valor valorBemFormado(const RegistroLido& lido, const Campo& campo, std::string_view bytes) {
  if (deData(campo.especie))
    return soBrancos(bytes) ? Valor{TipoDeValor::Ausente, ""}
                            : Valor{TipoDeValor::Data, pedacos(bytes, "####-##-##")};
  if (deHora(campo.especie))
    return soBrancos(bytes) ? Valor{TipoDeValor::Ausente, ""}
                            : Valor{TipoDeValor::Hora, pedacos(bytes, "##:##:##")};
  if (deDinheiro(campo.especie)) return {TipoDeValor::Decimal, comPonto(bytes, 2)};
  if (campo.especie == Especie::Decimal) return {TipoDeValor::Decimal, comPonto(bytes, casasDe(lido, campo))};
  if (campo.especie == Especie::Identificador) return {TipoDeValor::Identificador, std::string(bytes)};
  if (numerica(campo.especie)) return {TipoDeValor::Inteiro, semZeros(bytes)};
  return {TipoDeValor::Texto, std::string(semBrancosNoFim(bytes))};
}

bool temFormaPropria(Especie especie) { return numerica(especie) || deData(especie) || deHora(especie); }

}  // namespace

Valor valorDe(const RegistroLido& lido, std::size_t campo) {
  const CampoLido& lugar = lido.campos[campo];
  const Campo& descrito = *lugar.campo;
  const std::string_view bytes = lugar.em(lido.linha.texto);
  const bool inteiro = bytes.size() == static_cast<std::size_t>(lugar.largura);
  const bool coberto = descrito.largura > 0 && lugar.largura < descrito.largura;
  const bool malFormado =
      temFormaPropria(descrito.especie) && defeito(descrito.especie, bytes) != Defeito::Nenhum;
  if (!inteiro || coberto || malFormado) return {TipoDeValor::Bytes, std::string(bytes)};
  return valorBemFormado(lido, descrito, bytes);
}

std::string comMilhares(std::string decimal) {
  std::size_t ponto = decimal.find('.');
  decimal[ponto] = ',';
  for (; ponto > 3; ponto -= 3) decimal.insert(ponto - 3, 1, '.');
  return decimal;
}

std::string paraPessoas(const Valor& valor, std::string_view bytes) {
  switch (valor.tipo) {
    case TipoDeValor::Decimal:
      return comMilhares(valor.texto);
    case TipoDeValor::Data:
      return valor.texto.substr(8, 2) + '/' + valor.texto.substr(5, 2) + '/' + valor.texto.substr(0, 4);
    case TipoDeValor::Inteiro:
      return std::string(bytes);
    case TipoDeValor::Texto:
    case TipoDeValor::Bytes:
      return mostravel(valor.texto);
    default:
      return valor.texto;
  }
}

std::string mascarado(std::string_view bytes) {
  std::string texto(semBrancosNoFim(bytes));
  std::replace_if(
      texto.begin(), texto.end(), [](char c) { return c != ' '; }, '*');
  return texto;
}

std::string rotuloUnico(const RegistroLido& lido, std::size_t campo) {
  int ordem = 1;
  for (std::size_t i = 0; i < campo; ++i)
    if (lido.campos[i].campo == lido.campos[campo].campo) ++ordem;
  const std::string rotulo = lido.campos[campo].campo->rotulo;
  return ordem == 1 ? rotulo : rotulo + " (" + std::to_string(ordem) + ')';
}

}  // namespace cotepe
