// The vocabulary of the lists of fields, and the heads that the registers share.
#pragma once

#include "Idioma/Idioma.h"
#include "Leiaute/Campo.h"
#include "Leiaute/Execucao.h"
#include "Leiaute/IdentidadeDoEcf.h"

namespace cotepe {

constexpr Campo texto(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::Texto, largura, origem};
}

constexpr Campo comoEsta(const char* rotulo, int largura, Origem origem) {
  return {rotulo, Especie::ComoEsta, largura, origem};
}

/// A flag of one character, copied unchanged: an empty one ends the line, a longer one is cut by the next
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

/// The number of a user.
constexpr Campo cnpj(const char* rotulo, Origem origem) {
  return {rotulo, Especie::Identificador, 14, origem};
}

/// The number of a consumer.
constexpr Campo cpfOuCnpj(const char* rotulo, Origem origem) {
  Campo c = cnpj(rotulo, origem);
  c.podeSerCpf = true;
  return c;
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

constexpr Campo numeroDeFabricacao(const char* rotulo) {
  return texto(rotulo, 20, ajuste(&Ajustes::nrFabricacao, kColunaSerie))
      .fonte(marca("dados_ecf.num_serie, where that is empty the application's serial number"));
}

constexpr Campo numeroDoUsuario(const char* rotulo) {
  return numero(rotulo, 2, ajuste(&Ajustes::usuario, kColunaUsuario))
      .fonte(marca("dados_usuario.seq_usuario, of several users the last"));
}

inline constexpr Campo kNumeroDeFabricacao = numeroDeFabricacao("Nº de fabricação do ECF");
inline constexpr Campo kMfAdicional = letra("MF adicional", constante(" "));
inline constexpr Campo kModelo =
    texto("Modelo do ECF", 20, ajuste(&Ajustes::modelo, kColunaModelo))
        .fonte(marca("dados_ecf.modelo, where that is empty the application's model"));
inline constexpr Campo kNumeroDoUsuario = numeroDoUsuario("Nº de ordem do usuário");

constexpr Campo tipoDoRegistro(const char* codigo) {
  return comoEsta("Tipo do registro", 3, constante(codigo));
}

/// What flags of a coupon's amounts may be.
inline constexpr Codigo kCancelado[] = {{"S", marca("cancelled")}, {"N", marca("not cancelled")}};
inline constexpr Codigo kValorOuPercentual[] = {{"V", marca("a value")}, {"P", marca("a percentage")}};
inline constexpr Codigo kOperacoesNaoFiscais[] = {{"OPNF", "operações não fiscais"}};

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
