#include "Pagina/Html.h"

#include <algorithm>

#include "Idioma/Utf8.h"
#include "Leiaute/Releitura.h"

namespace cotepe::pagina {
namespace {

constexpr std::string_view kSubstituto = "\xEF\xBF\xBD";

bool simples(char c) {
  return c >= ' ' && c <= '~' && c != '&' && c != '<' && c != '>' && c != '"' && c != '\'';
}

std::uint32_t codigo(std::string_view sequencia) {
  const auto byte = [&sequencia](std::size_t i) { return static_cast<unsigned char>(sequencia[i]); };
  if (sequencia.size() == 1) return byte(0);
  std::uint32_t valor = byte(0) & (0x7FU >> sequencia.size());
  for (std::size_t i = 1; i < sequencia.size(); ++i) valor = valor << 6 | (byte(i) & 0x3FU);
  return valor;
}

bool direciona(std::uint32_t c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

bool semCaracter(std::uint32_t c) {
  return (c >= 0x80 && c < 0xA0) || (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFE) == 0xFFFE || c == 0xFEFF;
}

void poeCaracter(std::string& html, std::string_view sequencia) {
  const char c = sequencia.front();
  if (sequencia.size() > 1) {
    const std::uint32_t valor = codigo(sequencia);
    html += direciona(valor) || semCaracter(valor) ? kSubstituto : sequencia;
  } else if (c == '&') {
    html += "&amp;";
  } else if (c == '<') {
    html += "&lt;";
  } else if (c == '>') {
    html += "&gt;";
  } else if (c == '"') {
    html += "&quot;";
  } else if (c == '\'') {
    html += "&#39;";
  } else {  // a control character: U+2400 and on
    html += "\xE2\x90";
    html += static_cast<char>(c == 0x7F ? 0xA1 : 0x80 + c);
  }
}

void poeMilhares(std::string& html, std::uint64_t numero) {
  const std::string digitos = std::to_string(numero);
  for (std::size_t i = 0; i < digitos.size(); ++i) {
    if (i != 0 && (digitos.size() - i) % 3 == 0) html += '.';
    html += digitos[i];
  }
}

// Without the sign; also for the least number.
std::uint64_t modulo(std::int64_t numero) {
  return numero < 0 ? ~static_cast<std::uint64_t>(numero) + 1 : static_cast<std::uint64_t>(numero);
}

}  // namespace

void poeTexto(std::string& html, std::string_view bytes) {
  if (std::all_of(bytes.begin(), bytes.end(), simples)) {
    html += bytes;
    return;
  }
  const std::string utf8 = emUtf8(bytes);
  for (std::string_view resto = utf8; !resto.empty();) {
    const std::size_t n = std::max<std::size_t>(1, sequenciaUtf8(resto));
    if (n == 1 && simples(resto.front()))
      html += resto.front();
    else
      poeCaracter(html, resto.substr(0, n));
    resto.remove_prefix(n);
  }
}

std::string texto(std::string_view bytes) {
  std::string html;
  poeTexto(html, bytes);
  return html;
}

void poeReais(std::string& html, std::int64_t centavos) {
  const std::uint64_t valor = modulo(centavos);
  if (centavos < 0) html += "\xE2\x88\x92";  // a minus sign
  poeMilhares(html, valor / 100);
  html += ',';
  html += static_cast<char>('0' + valor / 10 % 10);
  html += static_cast<char>('0' + valor % 10);
}

std::string reaisDe(std::int64_t centavos) {
  std::string html;
  poeReais(html, centavos);
  return html;
}

void poeNumero(std::string& html, std::int64_t numero) {
  if (numero < 0) html += "\xE2\x88\x92";
  poeMilhares(html, modulo(numero));
}

std::string celulaDeReais(std::int64_t centavos) {
  return "<td class=\"n\" data-v=\"" + std::to_string(centavos) + "\">" + reaisDe(centavos) + "</td>";
}

std::string celulaDeNumero(std::int64_t numero) {
  std::string html = "<td class=\"n\">";
  poeNumero(html, numero);
  return html + "</td>";
}

std::string milesimosDe(std::int64_t milesimos) {
  std::string html;
  poeNumero(html, milesimos / 1000);
  std::string fracao = std::to_string(1000 + milesimos % 1000).substr(1);
  while (!fracao.empty() && fracao.back() == '0') fracao.pop_back();
  return fracao.empty() ? html : html + ',' + fracao;
}

std::string percentual(std::int64_t centesimos) {
  std::string html;
  poeReais(html, centesimos);
  return html + " %";
}

std::string dataDe(std::string_view digitos) {
  std::string d(digitos);
  if (!soDigitos(d)) return d;
  if (d.size() == 8) return d.substr(6, 2) + '/' + d.substr(4, 2) + '/' + d.substr(0, 4);
  if (d.size() == 6) return d.substr(4, 2) + '/' + d.substr(0, 4);
  return d;
}

std::string dataIso(std::string_view digitos) {
  const std::string d(digitos);
  return d.size() == 8 ? d.substr(0, 4) + '-' + d.substr(4, 2) + '-' + d.substr(6, 2) : d;
}

}  // namespace cotepe::pagina
