// The words that the lists of fields are written in, and the heads that the registers share.
#pragma once

#include "Leiaute/Campo.h"
#include "Leiaute/Execucao.h"

namespace cotepe {

constexpr Campo texto(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::Texto, largura, origem};
}

constexpr Campo comoEsta(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::ComoEsta, largura, origem};
}

/// A flag of one character, copied as it stands: an empty one ends the line, a longer one is cut by the next
/// field.
constexpr Campo letra(const char* rotulo, Origem origem) { return comoEsta(rotulo, 1, origem); }

constexpr Campo preenchido(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::Preenchido, largura, origem};
}

constexpr Campo numero(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::Numero, largura, origem};
}

constexpr Campo numeroModulo(const char* rotulo, int largura, std::int64_t modulo, Origem origem) {
  Campo c = numero(rotulo, largura, origem);
  c.modulo = modulo;
  return c;
}

/// Six digits in every layout: CRZ, CRO, CFD.
constexpr Campo contador6(const char* rotulo, Origem origem) {
  return numeroModulo(rotulo, 6, 1000000, origem);
}

/// A document counter, as wide as the layout version makes it.
constexpr Campo contador(const char* rotulo, Origem origem) {
  return {rotulo, Especie::Contador, Campo::kLarguraDoContador, origem};
}

constexpr Campo identificador(const char* rotulo, Origem origem) {
  return {rotulo, Especie::Identificador, 14, origem};
}

constexpr Campo dinheiro(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::Dinheiro, largura, origem};
}

constexpr Campo dinheiroDuplo(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::DinheiroDuplo, largura, origem};
}

constexpr Campo decimal(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::Decimal, largura, origem};
}

constexpr Campo data(const char* rotulo, Origem origem) { return {rotulo, Especie::Data, 8, origem}; }
constexpr Campo hora(const char* rotulo, Origem origem) { return {rotulo, Especie::Hora, 6, origem}; }
constexpr Campo dataPronta(const char* rotulo, Origem origem) {
  return {rotulo, Especie::DataPronta, 8, origem};
}
constexpr Campo horaPronta(const char* rotulo, Origem origem) {
  return {rotulo, Especie::HoraPronta, 6, origem};
}

namespace leiaute {

// clang-format off
inline constexpr Campo kNumeroDeFabricacao = texto  ("Nº de fabricação do ECF", 20, ajuste(&Ajustes::nrFabricacao));
inline constexpr Campo kMfAdicional        = letra  ("MF adicional",                constante(" "));
inline constexpr Campo kModelo             = texto  ("Modelo do ECF",           20, ajuste(&Ajustes::modelo));
inline constexpr Campo kNumeroDoUsuario    = numero ("Nº de ordem do usuário",   2, ajuste(&Ajustes::usuario));
// clang-format on

constexpr Campo tipoDoRegistro(const char* codigo) {
  return comoEsta("Tipo do registro", 3, constante(codigo));
}

}  // namespace leiaute

/// Two lists as one.
template <std::size_t N, std::size_t M>
constexpr std::array<Campo, N + M> junta(const std::array<Campo, N>& a, const Campo (&b)[M]) {
  std::array<Campo, N + M> tudo;
  for (std::size_t i = 0; i < N; ++i) tudo[i] = a[i];
  for (std::size_t i = 0; i < M; ++i) tudo[N + i] = b[i];
  return tudo;
}

/// The list of a register: the head of most registers, then its own fields.
template <std::size_t N>
constexpr auto registroComum(const char* codigo, const Campo (&campos)[N]) {
  using namespace leiaute;
  return junta(std::array<Campo, 4>{tipoDoRegistro(codigo), kNumeroDeFabricacao, kMfAdicional, kModelo},
               campos);
}

/// The same with the user's order number in the head: the registers of the Z reductions and documents.
template <std::size_t N>
constexpr auto registroDoUsuario(const char* codigo, const Campo (&campos)[N]) {
  using namespace leiaute;
  return junta(std::array<Campo, 5>{tipoDoRegistro(codigo), kNumeroDeFabricacao, kMfAdicional, kModelo,
                                    kNumeroDoUsuario},
               campos);
}

}  // namespace cotepe
