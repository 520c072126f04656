// Arithmetic of 96-bit integers on 32-bit words; products and dividends have 192 bits.
#include "BigInt.h"

#include <array>
#include <cstring>

namespace {

// An unsigned magnitude of 192 bits, least significant word first.
using Largo = std::array<UINT32, 6>;

Largo modulo(const BigInt& valor) noexcept {
  const bool negativo = valor.Signal() < 0;
  Largo resultado{};
  std::uint64_t vai = negativo ? 1 : 0;
  for (unsigned i = 0; i < 3; ++i) {
    vai += negativo ? ~valor.number[i] : valor.number[i];
    resultado[i] = static_cast<UINT32>(vai);
    vai >>= 32U;
  }
  return resultado;
}

BigInt extremo(bool negativo) noexcept { return negativo ? BigInt::Minimo() : BigInt::Maximo(); }

// The signed value of a magnitude, saturated. 2^95 itself is the negative limit and beyond the positive one.
BigInt comSinal(const Largo& valor, bool negativo) noexcept {
  if ((valor[3] | valor[4] | valor[5] | valor[2] >> 31U) != 0) return extremo(negativo);
  const BigInt positivo = BigInt().Load(valor[0], valor[1], valor[2]);
  return negativo ? -positivo : positivo;
}

// a + b + vai; out of range exactly when both have the same sign and the sum has the other.
BigInt soma(const BigInt& a, const BigInt& b, std::uint64_t vai) noexcept {
  BigInt resultado;
  for (unsigned i = 0; i < 3; ++i) {
    vai += std::uint64_t{a.number[i]} + b.number[i];
    resultado.number[i] = static_cast<UINT32>(vai);
    vai >>= 32U;
  }
  const UINT32 estouro = (a.number[2] ^ resultado.number[2]) & (b.number[2] ^ resultado.number[2]);
  return (estouro >> 31U) != 0 ? extremo(a.Signal() < 0) : resultado;
}

// The product of two magnitudes of 96 bits.
Largo produto(const Largo& a, const Largo& b) noexcept {
  Largo resultado{};
  for (unsigned i = 0; i < 3; ++i) {
    std::uint64_t vai = 0;
    for (unsigned j = 0; j < 3; ++j) {
      vai += std::uint64_t{a[i]} * b[j] + resultado[i + j];
      resultado[i + j] = static_cast<UINT32>(vai);
      vai >>= 32U;
    }
    resultado[i + 3] = static_cast<UINT32>(vai);
  }
  return resultado;
}

// Divides in place by one word that is not zero; returns the remainder.
UINT32 divideCurto(Largo& valor, UINT32 divisor) noexcept {
  unsigned i = 6;
  while (i > 0 && valor[i - 1] == 0) --i;  // most amounts are one word
  std::uint64_t resto = 0;
  while (i-- > 0) {
    resto = resto << 32U | valor[i];
    valor[i] = static_cast<UINT32>(resto / divisor);
    resto %= divisor;
  }
  return static_cast<UINT32>(resto);
}

bool menor(const Largo& a, const Largo& b) noexcept {
  unsigned i = 5;
  while (i > 0 && a[i] == b[i]) --i;
  return a[i] < b[i];
}

void dobra(Largo& valor, UINT32 entra) noexcept {
  for (UINT32& palavra : valor) {
    const UINT32 sai = palavra >> 31U;
    palavra = palavra << 1U | entra;
    entra = sai;
  }
}

void subtrai(Largo& a, const Largo& b) noexcept {
  std::uint64_t empresta = 0;
  for (unsigned i = 0; i < 6; ++i) {
    const std::uint64_t diferenca = std::uint64_t{a[i]} - b[i] - empresta;
    a[i] = static_cast<UINT32>(diferenca);
    empresta = diferenca >> 63U;
  }
}

// Divides in place by a magnitude of 96 bits that is not zero; returns the remainder.
Largo divide(Largo& valor, const Largo& divisor) noexcept {
  if ((divisor[1] | divisor[2]) == 0) return {divideCurto(valor, divisor[0])};
  Largo resto{};
  for (unsigned bit = 0; bit < 192; ++bit) {
    dobra(resto, valor[5] >> 31U);
    const bool cabe = !menor(resto, divisor);
    if (cabe) subtrai(resto, divisor);
    dobra(valor, cabe ? 1 : 0);
  }
  return resto;
}

constexpr unsigned kMaiorPotencia = 28;  // 10^28 fits, 10^29 is more than twice the range

BigInt potenciaDeDez(unsigned expoente) noexcept {
  BigInt resultado = 1;
  while (expoente-- > 0) resultado *= 10;
  return resultado;
}

}  // namespace

BigInt& BigInt::operator=(const char* texto) noexcept {
  *this = BigInt();
  if (texto == nullptr) return *this;
  while (*texto == ' ') ++texto;
  const bool negativo = *texto == '-';
  if (*texto == '-' || *texto == '+') ++texto;
  const char* const inicio = texto;
  BigInt lido;
  for (; *texto >= '0' && *texto <= '9'; ++texto) {
    const int algarismo = *texto - '0';
    lido = lido * 10 + (negativo ? -algarismo : algarismo);
  }
  if (texto == inicio) return *this;
  while (*texto == ' ') ++texto;
  if (*texto == '\0') *this = lido;
  return *this;
}

char* BigInt::ToStr(char* texto, int capacidade) const noexcept {
  if (texto == nullptr || capacidade < 1) return texto;
  std::array<char, 37> algarismos{};  // four groups of nine digits and a sign
  char* const fim = algarismos.data() + algarismos.size();
  char* inicio = fim;
  Largo valor = modulo(*this);
  do {
    UINT32 grupo = divideCurto(valor, 1'000'000'000);
    for (int i = 0; i < 9; ++i, grupo /= 10) *--inicio = static_cast<char>('0' + grupo % 10);
  } while (valor != Largo{});
  while (inicio + 1 < fim && *inicio == '0') ++inicio;
  if (Signal() < 0) *--inicio = '-';
  const auto tamanho = static_cast<std::size_t>(fim - inicio);
  const bool cabe = tamanho < static_cast<std::size_t>(capacidade);
  if (cabe) std::memcpy(texto, inicio, tamanho);
  texto[cabe ? tamanho : 0] = '\0';
  return texto;
}

BigInt& BigInt::Trunca(unsigned digitos) noexcept {
  return *this = digitos > kMaiorPotencia ? BigInt() : *this / potenciaDeDez(digitos);
}

BigInt& BigInt::Arredonda(unsigned digitos) noexcept {
  if (digitos == 0) return *this;
  return *this = digitos > kMaiorPotencia ? BigInt() : MultiplicaEDivide(*this, 1, potenciaDeDez(digitos));
}

BigInt BigInt::DivisaoComResto(const BigInt& divisor, BigInt& resto) const noexcept {
  const bool negativo = Signal() < 0;
  if (divisor.Signal() == 0) {
    resto = *this;
    return Signal() == 0 ? BigInt() : extremo(negativo);
  }
  Largo quociente = modulo(*this);
  const Largo sobra = divide(quociente, modulo(divisor));
  const bool negativa = negativo != (divisor.Signal() < 0);  // asked before `resto`, which may be the divisor
  resto = comSinal(sobra, negativo);
  return comSinal(quociente, negativa);
}

BigInt BigInt::MultiplicaEDivide(const BigInt& a, const BigInt& b, const BigInt& divisor) noexcept {
  const int sinal = a.Signal() * b.Signal();
  if (sinal == 0) return {};
  if (divisor.Signal() == 0) return extremo(sinal < 0);
  const Largo denominador = modulo(divisor);
  Largo quociente = produto(modulo(a), modulo(b));
  Largo sobra = divide(quociente, denominador);
  dobra(sobra, 0);
  const BigInt truncado = comSinal(quociente, sinal != divisor.Signal());
  return menor(sobra, denominador) ? truncado : truncado + sinal * divisor.Signal();
}

BigInt& BigInt::operator+=(const BigInt& b) noexcept { return *this = soma(*this, b, 0); }

BigInt& BigInt::operator-=(const BigInt& b) noexcept { return *this = soma(*this, ~b, 1); }

BigInt& BigInt::operator*=(const BigInt& b) noexcept {
  return *this = comSinal(produto(modulo(*this), modulo(b)), Signal() * b.Signal() < 0);
}

BigInt& BigInt::operator/=(const BigInt& b) noexcept {
  BigInt resto;
  return *this = DivisaoComResto(b, resto);
}

BigInt& BigInt::operator%=(const BigInt& b) noexcept {
  DivisaoComResto(b, *this);
  return *this;
}

BigInt& BigInt::operator<<=(unsigned bits) noexcept {
  if (bits >= 96) return Load(0, 0, 0);
  for (; bits >= 32; bits -= 32) Load(0, number[0], number[1]);
  for (unsigned i = 2; i > 0; --i) {
    const std::uint64_t par = std::uint64_t{number[i]} << 32U | number[i - 1];
    number[i] = static_cast<UINT32>(par << bits >> 32U);
  }
  number[0] <<= bits;
  return *this;
}

BigInt& BigInt::operator>>=(unsigned bits) noexcept {
  const UINT32 sinal = Signal() < 0 ? ~UINT32{0} : 0;
  if (bits >= 96) return Load(sinal, sinal, sinal);
  for (; bits >= 32; bits -= 32) Load(number[1], number[2], sinal);
  const std::array<UINT32, 3> acima = {number[1], number[2], sinal};
  for (unsigned i = 0; i < 3; ++i) {
    const std::uint64_t par = std::uint64_t{acima[i]} << 32U | number[i];
    number[i] = static_cast<UINT32>(par >> bits);
  }
  return *this;
}
