#include "Assinatura/LinhaEad.h"

namespace cotepe {
namespace {

constexpr std::string_view kLetras = "EAD";

// Digits into the end of a number; an odd leading digit is the lower half of its byte.
template <std::size_t N>
void poe(std::string_view digitos, std::array<std::uint8_t, N>& numero) {
  std::size_t meio = 2 * N - digitos.size();
  for (const char c : digitos) {
    const unsigned valor = static_cast<unsigned>(valorDoDigito(c)) << (meio % 2 == 0 ? 4U : 0U);
    numero[meio / 2] = static_cast<std::uint8_t>(numero[meio / 2] | valor);
    ++meio;
  }
}

std::string digitosDe(const std::uint8_t* bytes, std::size_t quantos, const char* alfabeto) {
  std::string texto;
  texto.reserve(2 * quantos);
  for (std::size_t i = 0; i < quantos; ++i) {
    texto += alfabeto[bytes[i] >> 4];
    texto += alfabeto[bytes[i] & 15];
  }
  return texto;
}

bool temDeAmbas(std::string_view digitos) {
  bool maiuscula = false, minuscula = false;
  for (const char c : digitos) {
    maiuscula = maiuscula || (c >= 'A' && c <= 'F');
    minuscula = minuscula || (c >= 'a' && c <= 'f');
  }
  return maiuscula && minuscula;
}

}  // namespace

int valorDoDigito(char c) noexcept {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

LinhaEad leEad(std::string_view linha) {
  LinhaEad lida;
  if (linha.substr(0, kLetras.size()) != kLetras) return lida;
  const std::string_view resto = linha.substr(kLetras.size());
  std::size_t quantos = 0;
  while (quantos < resto.size() && valorDoDigito(resto[quantos]) >= 0) ++quantos;
  const bool demais = quantos > kDigitosDaAssinatura;
  if (demais) quantos = kDigitosDaAssinatura;
  const std::string_view digitos = resto.substr(0, quantos);
  lida.digitos = quantos;
  lida.sobra = resto.size() - quantos;
  lida.misturados = temDeAmbas(digitos);
  if (quantos == kDigitosDaAssinatura) {
    lida.forma = FormaDaEad::Assinatura;
  } else if (quantos == kDigitosDoResumo) {
    lida.forma = FormaDaEad::SoResumo;
    poe(digitos, lida.resumo);
    return lida;
  } else if (quantos > kDigitosDoResumo && lida.sobra == 0) {
    lida.forma = FormaDaEad::DigitosPerdidos;
  } else {
    return lida;
  }
  poe(digitos, lida.assinatura);
  return lida;
}

std::string emHexadecimal(const std::uint8_t* bytes, std::size_t quantos) {
  return digitosDe(bytes, quantos, "0123456789ABCDEF");
}

std::string textoDoResumo(const ResumoMd5& resumo) {
  return digitosDe(resumo.data(), resumo.size(), "0123456789abcdef");
}

std::string escreveEad(const BlocoRsa& assinatura) {
  return std::string(kLetras) + emHexadecimal(assinatura.data(), assinatura.size());
}

}  // namespace cotepe
