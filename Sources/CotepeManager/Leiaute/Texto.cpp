#include "Leiaute/Texto.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <limits>

#include "Sistema/Numeros.h"

namespace cotepe {
namespace {

bool espaco(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool digito(char c) noexcept { return c >= '0' && c <= '9'; }

constexpr std::ptrdiff_t kDigitosSeguros = 18;  // any number of that many digits fits in 64 bits

// The value of the digits, or beyond the range the limit on the side of their sign.
std::uint64_t leDigitosSaturando(const char* digitos, bool negativo) noexcept {
  const std::uint64_t limite =
      static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + (negativo ? 1 : 0);
  std::uint64_t valor = 0;
  for (; digito(*digitos); ++digitos) {
    const auto algarismo = static_cast<std::uint64_t>(*digitos - '0');
    if (valor > (limite - algarismo) / 10) return limite;
    valor = valor * 10 + algarismo;
  }
  return valor;
}

// Up to 15 digits and a power of ten up to 10^15 are exact in a double, so one division rounds once, as
// strtod does. Returns false for any text that needs more than that.
bool leDecimalCurto(const char* texto, double& valor) noexcept {
  static constexpr double kPotencias[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negativo = *texto == '-';
  if (negativo) ++texto;
  std::int64_t digitos = 0;
  int lidos = 0, casas = 0;
  for (; digito(*texto) && lidos <= 15; ++texto, ++lidos) digitos = digitos * 10 + (*texto - '0');
  if (*texto == '.') {
    for (++texto; digito(*texto) && lidos <= 15; ++texto, ++lidos, ++casas)
      digitos = digitos * 10 + (*texto - '0');
  }
  if (*texto != '\0' || lidos == 0 || lidos > 15) return false;
  valor = static_cast<double>(digitos) / kPotencias[casas];
  if (negativo) valor = -valor;
  return true;
}

char naPosicao(const char* texto, std::size_t tamanho, std::size_t posicao) noexcept {
  return posicao < tamanho ? texto[posicao] : '\0';
}

}  // namespace

std::int64_t leInteiro(const char* texto) noexcept {
  while (espaco(*texto)) ++texto;
  const bool negativo = *texto == '-';
  if (negativo || *texto == '+') ++texto;
  const char* const inicio = texto;
  std::uint64_t valor = 0;
  for (; digito(*texto); ++texto) valor = valor * 10 + static_cast<std::uint64_t>(*texto - '0');
  if (texto - inicio > kDigitosSeguros) valor = leDigitosSaturando(inicio, negativo);
  return static_cast<std::int64_t>(negativo ? 0 - valor : valor);
}

double leDecimal(const char* texto) noexcept {
  double valor = 0;
  if (leDecimalCurto(texto, valor)) return valor;
  return leDecimalEmC(texto);
}

int arredonda(double x) noexcept {
  if (std::isnan(x)) return 0;
  const double deslocado = x > 0 ? x + 0.5 : x - 0.5;
  if (deslocado >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  if (deslocado <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  return static_cast<int>(deslocado);
}

void formataData(const char* texto, char* destino) noexcept {
  const std::size_t tamanho = strnlen(texto, 19);
  std::size_t i = 0;
  for (const std::size_t posicao : {0U, 1U, 2U, 3U, 5U, 6U, 8U, 9U})
    destino[i++] = naPosicao(texto, tamanho, posicao);
  destino[i] = '\0';
}

void formataHora(const char* texto, char* destino) noexcept {
  const std::size_t tamanho = strnlen(texto, 19);
  std::size_t i = 0;
  for (const std::size_t posicao : {11U, 12U, 14U, 15U, 17U, 18U})
    destino[i++] = naPosicao(texto, tamanho, posicao);
  destino[i] = '\0';
}

std::size_t removeCaractere(char* texto, char caractere) noexcept {
  char* fim = texto;
  for (const char* origem = texto; *origem != '\0'; ++origem)
    if (*origem != caractere) *fim++ = *origem;
  *fim = '\0';
  return static_cast<std::size_t>(fim - texto);
}

std::size_t trocaCaractere(char* texto, char de, char para) noexcept {
  char* fim = texto;
  for (; *fim != '\0'; ++fim)
    if (*fim == de) *fim = para;
  return static_cast<std::size_t>(fim - texto);
}

std::size_t trocaNaoAscii(char* texto) noexcept {
  char* fim = texto;
  for (; *fim != '\0'; ++fim)
    if (static_cast<signed char>(*fim) <= 31) *fim = ' ';
  return static_cast<std::size_t>(fim - texto);
}

void copiaLimitada(char* destino, std::size_t tamanho, const char* origem) noexcept {
  const std::size_t n = origem == nullptr ? 0 : strnlen(origem, tamanho - 1);
  if (n != 0) std::memcpy(destino, origem, n);
  std::memset(destino + n, 0, tamanho - n);
}

}  // namespace cotepe
