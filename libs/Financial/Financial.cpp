// Reading, rounding and writing of amounts. All text goes through a single parser.
#include "Financial.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>

namespace {

constexpr bool ehDigito(char c) noexcept { return c >= '0' && c <= '9'; }

// Moves past digits and appends them to the value, which wraps when there are too many for it.
const char* leDigitos(const char* p, std::uint64_t& valor) noexcept {
  for (; ehDigito(*p); ++p) valor = valor * 10 + static_cast<std::uint64_t>(*p - '0');
  return p;
}

const char* pulaBrancos(const char* p) noexcept {
  while (*p == ' ') ++p;
  return p;
}

// Reads the optional exponent and moves past it. False when it has no digits. It stops growing at a size that
// no length of text can compensate.
bool leExpoente(const char*& p, INT64& expoente) noexcept {
  constexpr INT64 kBasta = 100'000'000'000'000'000;
  if (*p != 'e' && *p != 'E') return true;
  ++p;
  const bool negativo = *p == '-';
  if (*p == '-' || *p == '+') ++p;
  if (!ehDigito(*p)) return false;
  for (; ehDigito(*p); ++p) {
    if (expoente < kBasta) expoente = expoente * 10 + (*p - '0');
  }
  if (negativo) expoente = -expoente;
  return true;
}

// A number as it is in its text. The default one is zero.
struct Numero {
  const char* digitos = nullptr;  // the first that is not zero; the separator may be among them
  const char* fim = nullptr;
  INT64 quantos = 0;        // how many digits
  INT64 ordem = 0;          // how many would make whole cents
  std::uint64_t valor = 0;  // the digits as one integer, when 64 bits hold it
  bool negativo = false;
};

// The grammar of amounts, defined only here. `outraVirgula` separates decimals like the comma.
Numero leNumero(const char* texto, char outraVirgula) noexcept {
  if (texto == nullptr) return {};
  const char* inicio = pulaBrancos(texto);
  const bool negativo = *inicio == '-';
  if (*inicio == '-' || *inicio == '+') ++inicio;
  std::uint64_t valor = 0;
  const char* const virgula = leDigitos(inicio, valor);
  const bool temVirgula = *virgula == ',' || *virgula == outraVirgula;
  const char* const fim = temVirgula ? leDigitos(virgula + 1, valor) : virgula;

  const char* p = fim;
  INT64 expoente = 0;
  if (!leExpoente(p, expoente) || *pulaBrancos(p) != '\0') return {};

  while (inicio < fim && (*inicio == '0' || inicio == virgula)) ++inicio;
  if (inicio == fim) return {};
  const INT64 decimais = temVirgula ? fim - virgula - 1 : 0;
  const INT64 quantos = fim - inicio - (temVirgula && inicio < virgula ? 1 : 0);
  return {inicio, fim, quantos, quantos - decimais + expoente + 2, valor, negativo};
}

// Hands out the digits of a number one by one, zeros after the last.
class Digitos {
 public:
  explicit Digitos(const Numero& numero) noexcept : p_(numero.digitos), fim_(numero.fim) {}

  int proximo() noexcept {
    if (p_ < fim_ && !ehDigito(*p_)) ++p_;  // the separator
    return p_ < fim_ ? *p_++ - '0' : 0;
  }

  INT64 proximos(INT64 quantos) noexcept {
    INT64 valor = 0;
    while (quantos-- > 0) valor = valor * 10 + proximo();
    return valor;
  }

 private:
  const char* p_;
  const char* fim_;
};

constexpr INT64 kDigitosDaPalavra = 18;  // always fit 64 bits
constexpr INT64 kDigitosDoTipo = 29;     // one more never fits 96

// The cents of a number that fills more than one word or has to be rounded. The sign goes in with every
// digit: the negative limit is one further away than the positive.
BigInt centavosPorExtenso(const Numero& numero) noexcept {
  if (numero.ordem < 0) return {};
  if (numero.ordem > kDigitosDoTipo) return numero.negativo ? BigInt::Minimo() : BigInt::Maximo();
  const INT64 sinal = numero.negativo ? -1 : 1;
  const INT64 naPalavra = std::min(numero.ordem, kDigitosDaPalavra);
  Digitos digitos(numero);
  BigInt resultado = sinal * digitos.proximos(naPalavra);
  for (INT64 i = naPalavra; i < numero.ordem; ++i) resultado = resultado * 10 + sinal * digitos.proximo();
  return digitos.proximo() >= 5 ? resultado + sinal : resultado;
}

// Whether a number is whole cents that fit in one word, as nearly all amounts are.
bool simples(const Numero& numero) noexcept {
  return numero.quantos <= numero.ordem && numero.ordem <= kDigitosDaPalavra;
}

INT64 centavosSimples(const Numero& numero) noexcept {
  auto valor = static_cast<INT64>(numero.valor);
  for (INT64 i = numero.quantos; i < numero.ordem; ++i) valor *= 10;
  return numero.negativo ? -valor : valor;
}

BigInt centavos(const Numero& numero) noexcept {
  return simples(numero) ? BigInt(centavosSimples(numero)) : centavosPorExtenso(numero);
}

enum class Arredondamento { ParaLonge, ParaPar };

// The cents of a finite number, rounded from its exact binary value.
BigInt centavos(double valor, Arredondamento meio) noexcept {
  int expoente = 0;
  const double fracao = std::frexp(std::fabs(valor), &expoente);
  const auto exato = static_cast<INT64>(std::ldexp(fracao, 53)) * 100;  // below 2^60
  const INT64 sinal = valor < 0 ? -1 : 1;
  expoente -= 53;  // the cents are exato * 2^expoente
  if (expoente > 42) return valor < 0 ? BigInt::Minimo() : BigInt::Maximo();
  if (expoente >= 0) return BigInt(sinal * exato) * (BigInt(1) << static_cast<unsigned>(expoente));
  if (expoente < -60) return {};  // less than half a cent

  const INT64 unidade = INT64{1} << static_cast<unsigned>(-expoente);
  const INT64 inteiro = exato / unidade;
  const INT64 resto = exato % unidade * 2;
  const bool meioSobe = meio == Arredondamento::ParaLonge || inteiro % 2 != 0;
  return sinal * (inteiro + (resto > unidade || (resto == unidade && meioSobe) ? 1 : 0));
}

struct Leiaute {
  char decimal;
  char milhar;  // 0: thousands are not separated
  std::string_view moeda;
};

constexpr std::array<Leiaute, 5> kLeiautes = {
    {{',', 0, ""}, {',', '.', ""}, {'.', 0, ""}, {'.', ',', ""}, {',', '.', "R$ "}}};

const Leiaute& leiaute(FINANCIAL_STR_TIPO tipo) noexcept {
  const auto indice = static_cast<unsigned>(tipo);
  return kLeiautes[indice < kLeiautes.size() ? indice : 0];
}

// Copies the digits of the whole part; returns the end of the copy.
char* copiaInteiros(const char* digitos, int quantos, char milhar, char* p) noexcept {
  while (quantos > 0) {
    *p++ = *digitos++;
    if (--quantos % 3 == 0 && quantos > 0 && milhar != 0) *p++ = milhar;
  }
  return p;
}

}  // namespace

Financial::Financial(double unidades) noexcept {
  if (std::isinf(unidades)) {
    nr = unidades < 0 ? BigInt::Minimo() : BigInt::Maximo();
  } else if (!std::isnan(unidades)) {
    nr = centavos(unidades, Arredondamento::ParaLonge);
  }
}

Financial& Financial::operator=(const char* texto) noexcept {
  nr = centavos(leNumero(texto, ','));
  return *this;
}

INT64 Financial::CentavosDoBanco(const char* texto) noexcept {
  const Numero numero = leNumero(texto, '.');
  return simples(numero) ? centavosSimples(numero) : DeCentavos(centavosPorExtenso(numero)).Centavos();
}

INT64 Financial::CentavosDoDecimal(double valor) noexcept {
  return std::isfinite(valor) ? DeCentavos(centavos(valor, Arredondamento::ParaPar)).Centavos() : 0;
}

INT64 Financial::Centavos() const noexcept {
  const auto baixo = static_cast<INT64>(std::uint64_t{nr.number[1]} << 32U | nr.number[0]);
  if (nr.number[2] == (baixo < 0 ? ~UINT32{0} : 0)) return baixo;
  return nr.Signal() < 0 ? INT64_MIN : INT64_MAX;
}

double Financial::ToDouble() const noexcept {
  BigInt valor = nr.Signal() > 0 ? -nr : nr;  // the negative side holds every magnitude
  if (valor.Signal() == 0) return 0;
  int expoente = 32;
  for (; (valor.number[2] >> 30U & 1U) != 0; --expoente) valor <<= 1;
  BigInt resto;
  const BigInt quociente = -valor.DivisaoComResto(100, resto);  // 88 or 89 bits
  // The upper 56 or 57 bits, an odd last one where any below or the remainder are set, round as the exact
  // value.
  const bool inexato = quociente.number[0] != 0 || resto.Signal() != 0;
  const auto alto = static_cast<INT64>(std::uint64_t{quociente.number[2]} << 32U | quociente.number[1]);
  return std::ldexp(static_cast<double>((inexato ? alto | 1 : alto) * nr.Signal()), expoente);
}

char* Financial::ToString(char* out, int capacity, FINANCIAL_STR_TIPO layout, int decimals,
                          INT16 flag) const noexcept {
  if (out == nullptr || capacity < 1) return out;
  *out = '\0';
  const int casas = decimals == 0 ? 2 : std::max(decimals, 0);
  const int proprias = std::min(casas, 2);  // what the type holds; zeros follow
  const BigInt valor = BigInt(nr).Arredonda(static_cast<unsigned>(2 - proprias));
  const std::string_view sinal = valor.Signal() < 0 ? "-" : flag != 0 && valor.Signal() > 0 ? "+" : "";
  const Leiaute& como = leiaute(layout);

  std::array<char, 36> area{};
  area.fill('0');
  char* digitos = area.data() + 2;  // the leading zeros serve amounts below one unit
  valor.ToStr(digitos, 34);
  if (valor.Signal() < 0) *digitos++ = '0';
  int inteiros = static_cast<int>(std::strlen(digitos)) - proprias;
  for (; inteiros < 1; ++inteiros) --digitos;

  const INT64 tamanho = INT64{inteiros} + (como.milhar != 0 ? (inteiros - 1) / 3 : 0) +
                        (casas > 0 ? INT64{casas} + 1 : 0) +
                        static_cast<INT64>(sinal.size() + como.moeda.size());
  if (tamanho >= capacity) return out;
  char* p = std::copy(sinal.begin(), sinal.end(), out);
  p = std::copy(como.moeda.begin(), como.moeda.end(), p);
  p = copiaInteiros(digitos, inteiros, como.milhar, p);
  if (casas > 0) {
    *p++ = como.decimal;
    p = std::copy_n(digitos + inteiros, proprias, p);
    p = std::fill_n(p, casas - proprias, '0');
  }
  *p = '\0';
  return out;
}

char* Financial::ToStr(char* out, UINT8 capacity, INT16 flag) const noexcept {
  return ToString(out, capacity, FIN_STR_DEFAULT, 0, flag);
}

Financial& Financial::Arredonda(unsigned int casas) noexcept {
  if (casas < 2) nr = nr.Arredonda(2 - casas) * (casas == 0 ? 100 : 10);
  return *this;
}

Financial& Financial::Trunca(unsigned int casas) noexcept {
  if (casas < 2) nr = nr.Trunca(2 - casas) * (casas == 0 ? 100 : 10);
  return *this;
}
