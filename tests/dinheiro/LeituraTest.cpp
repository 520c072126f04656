// Amounts from text: operator= with the comma, CentavosDoBanco with the point as well.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "Modelo.h"

namespace {

constexpr INT64 kMaior = std::numeric_limits<INT64>::max();
constexpr INT64 kMenor = std::numeric_limits<INT64>::min();

BigInt lido(const char* texto) {
  Financial valor = 77;
  valor = texto;
  return valor.nr;
}

// The long way from the database's text to cents, step by step.
INT64 pelaCadeia(const std::string& texto) {
  std::array<char, 64> area{};
  Financial valor;
  valor = troca(texto, '.', ',').c_str();
  std::string escrito = valor.ToString(area.data(), 64, FIN_STR_DEFAULT, 0, 0);
  escrito.erase(std::remove(escrito.begin(), escrito.end(), '.'), escrito.end());
  escrito.erase(std::remove(escrito.begin(), escrito.end(), ','), escrito.end());
  return std::strtoll(escrito.c_str(), nullptr, 10);
}

testing::AssertionResult confere(const std::string& texto) {
  const BigInt comVirgula = lido(texto.c_str());
  if (inteiro(comVirgula) != leTexto(texto)) {
    return testing::AssertionFailure() << '"' << texto << "\" was read as " << inteiro(comVirgula);
  }
  const INT64 doBanco = Financial::CentavosDoBanco(texto.c_str());
  if (doBanco != satura64(leTexto(troca(texto, '.', ','))) || doBanco != pelaCadeia(texto)) {
    return testing::AssertionFailure() << '"' << texto << "\" of the database was read as " << doBanco;
  }
  return testing::AssertionSuccess();
}

// All texts that start with `texto` and have up to `mais` characters more.
void confereTodos(std::string& texto, int mais) {
  static const std::string kAlfabeto = "0123456789,.+- e";
  ASSERT_TRUE(confere(texto));
  if (mais == 0) return;
  for (const char c : kAlfabeto) {
    texto.push_back(c);
    ASSERT_NO_FATAL_FAILURE(confereTodos(texto, mais - 1));
    texto.pop_back();
  }
}

TEST(FinancialText, ReadsEveryTextOfUpToFourCharacters) {
  std::string texto;
  confereTodos(texto, 4);
}

class Sorte {
 public:
  std::size_t ate(std::size_t maximo) {
    return std::uniform_int_distribution<std::size_t>(0, maximo)(gerador_);
  }

  // Up to so many characters out of an alphabet.
  std::string pedaco(const std::string& alfabeto, std::size_t maximo) {
    std::string texto(ate(maximo), ' ');
    for (char& c : texto) c = letra(alfabeto);
    return texto;
  }

  char letra(const std::string& alfabeto) { return alfabeto[ate(alfabeto.size() - 1)]; }

 private:
  std::mt19937_64 gerador_{std::random_device{}()};
};

// Texts near the grammar: all its pieces at random sizes, then perhaps one character changed.
TEST(FinancialText, ReadsLongTextsLikeTheModel) {
  const std::string digitos = "0123456789";
  Sorte sorte;
  for (int i = 0; i < 30'000; ++i) {
    std::string texto = sorte.pedaco(" ", 2) + sorte.pedaco("+-", 1) + sorte.pedaco("0", 3) +
                        sorte.pedaco(digitos, 32) + sorte.pedaco(",.", 1) + sorte.pedaco("0", 3) +
                        sorte.pedaco(digitos, 32);
    if (i % 2 == 0) texto += sorte.letra("eE") + sorte.pedaco("+-", 1) + sorte.pedaco(digitos, 2);
    texto += sorte.pedaco(" ", 2);
    if (i % 4 == 0 && !texto.empty()) texto[sorte.ate(texto.size() - 1)] = sorte.letra("0 ,.+-eEx\t\xA0");
    ASSERT_TRUE(confere(texto));
  }
}

RC_GTEST_PROP(FinancialText, ReadsEveryAmountAsWritten, (const Financial& a)) {
  std::array<char, 64> area{};
  RC_ASSERT(lido(a.ToString(area.data(), 64, FIN_STR_DEFAULT, 0, 0)) == a.nr);
  RC_ASSERT(Financial::CentavosDoBanco(a.ToString(area.data(), 64, FIN_STR_2, 0, 0)) == a.Centavos());
}

// Adds one cent to an amount with a point; `ultimo` is its last digit, zeros stand in front.
void somaUm(char* ultimo) {
  for (; *ultimo == '9' || *ultimo == '.'; --ultimo) {
    if (*ultimo == '9') *ultimo = '0';
  }
  ++*ultimo;
}

TEST(FinancialText, KeepsEveryAmountUpTo99999Comma99) {
  std::array<char, 16> escrito{};
  std::array<char, 10> area{"000000.00"};
  char* texto = area.data() + 5;
  char* const separador = area.data() + 6;
  for (INT64 centavos = 0; centavos < 10'000'000; ++centavos) {
    Financial valor;
    *separador = ',';
    valor = texto;
    valor.ToString(escrito.data(), 16, FIN_STR_DEFAULT, 0, 0);
    ASSERT_TRUE(std::strcmp(escrito.data(), texto) == 0 && valor.Centavos() == centavos) << texto;
    *separador = '.';
    ASSERT_TRUE(Financial::CentavosDoBanco(texto) == centavos) << texto;
    somaUm(separador + 2);
    if (texto[-1] != '0') --texto;
  }
  EXPECT_STREQ(texto, "100000.00");
}

TEST(FinancialText, RoundsHalfAwayFromZeroOnce) {
  EXPECT_EQ(lido("0,00499999"), 0);
  EXPECT_EQ(lido("0,005"), 1);
  EXPECT_EQ(lido("-0,005"), -1);
  EXPECT_EQ(lido("-0,00499999"), 0);
  EXPECT_EQ(lido("0,0049999999999999999999999999999999999999999999"), 0);
  EXPECT_EQ(lido("12,344999999999999999999999999999"), 1234);
  EXPECT_EQ(lido("12,345"), 1235);
  EXPECT_EQ(lido("99,995"), 10000);
  EXPECT_EQ(lido(",005"), 1);
  EXPECT_EQ(lido("5e-3"), 1);
  EXPECT_EQ(lido("4,9e-3"), 0);
  EXPECT_EQ(lido("9999999999999999,995"), 1'000'000'000'000'000'000);
}

TEST(FinancialText, ReadsTheFormsOfAnAmount) {
  EXPECT_EQ(lido("1234,56"), 123456);
  EXPECT_EQ(lido("0,5"), 50);
  EXPECT_EQ(lido("1500"), 150000);
  EXPECT_EQ(lido("1500,"), 150000);
  EXPECT_EQ(lido("  -1,00  "), -100);
  EXPECT_EQ(lido("+,5"), 50);
  EXPECT_EQ(lido("1,5E+2"), 15000);
  EXPECT_EQ(lido("150e-2"), 150);
  EXPECT_EQ(lido("-0,00"), 0);
}

TEST(FinancialText, GivesZeroForAnyOtherText) {
  for (const char* ruim :
       {"",    " ",   ",",    "-",   "-,",  "1.5",       "1.234,56", "1,2,3", "1 2",  "- 1",
        "+-1", "1e",  "1e+",  "e5",  ",e5", "1e5,0",     "1e 5",     "1,5x",  "x1,5", "R$ 1",
        "\t1", "1\n", "0x10", "nan", "inf", "1\xC2\xA0", "1,5 e2",   "1d5"}) {
    EXPECT_EQ(lido(ruim), 0) << '"' << ruim << '"';
  }
  EXPECT_EQ(lido(nullptr), 0);
}

TEST(FinancialText, TakesNoneOfTheNeighboursOfTheDigits) {
  for (const char* texto : {":", "/", "1:", ":1", "1/", "/1", "1,:", "1,/", "1e:", "1e/", "1e1:", "1e1/"})
    EXPECT_TRUE(lido(texto) == 0 && Financial::CentavosDoBanco(texto) == 0) << texto;
}

TEST(CentavosDoBanco, ReadsThePointAsTheComma) {
  EXPECT_EQ(Financial::CentavosDoBanco("1234.56"), 123456);
  EXPECT_EQ(Financial::CentavosDoBanco("1234,56"), 123456);
  EXPECT_EQ(Financial::CentavosDoBanco("12.3"), 1230);
  EXPECT_EQ(Financial::CentavosDoBanco("0"), 0);
  EXPECT_EQ(Financial::CentavosDoBanco(""), 0);
  EXPECT_EQ(Financial::CentavosDoBanco(nullptr), 0);
  EXPECT_EQ(Financial::CentavosDoBanco("-1.00"), -100);
  EXPECT_EQ(Financial::CentavosDoBanco("1.234,56"), 0);
  EXPECT_EQ(Financial::CentavosDoBanco("1.0e+15"), 100'000'000'000'000'000);
  EXPECT_EQ(Financial::CentavosDoBanco("0.30000000000000004"), 30);
}

TEST(CentavosDoBanco, SaturatesTo64Bits) {
  EXPECT_EQ(Financial::CentavosDoBanco("92233720368547758.06"), kMaior - 1);
  EXPECT_EQ(Financial::CentavosDoBanco("92233720368547758.07"), kMaior);
  EXPECT_EQ(Financial::CentavosDoBanco("92233720368547758.08"), kMaior);
  EXPECT_EQ(Financial::CentavosDoBanco("-92233720368547758.07"), kMenor + 1);
  EXPECT_EQ(Financial::CentavosDoBanco("-92233720368547758.08"), kMenor);
  EXPECT_EQ(Financial::CentavosDoBanco("-92233720368547758.09"), kMenor);
  EXPECT_EQ(Financial::CentavosDoBanco("1e300"), kMaior);
}

TEST(FinancialText, KeepsBothEndsOfTheRangeAndSaturatesBeyond) {
  EXPECT_EQ(lido("396140812571321687967719751,67"), BigInt::Maximo());
  EXPECT_EQ(lido("396140812571321687967719751,66"), BigInt::Maximo() - 1);
  EXPECT_EQ(lido("396140812571321687967719751,664"), BigInt::Maximo() - 1);
  EXPECT_EQ(lido("396140812571321687967719751,68"), BigInt::Maximo());
  EXPECT_EQ(lido("-396140812571321687967719751,68"), BigInt::Minimo());
  EXPECT_EQ(lido("-396140812571321687967719751,67"), BigInt::Minimo() + 1);
  EXPECT_EQ(lido("-396140812571321687967719751,675"), BigInt::Minimo());
  EXPECT_EQ(lido("-396140812571321687967719751,69"), BigInt::Minimo());
  EXPECT_EQ(lido("999999999999999999999999999,99"), BigInt::Maximo());
  EXPECT_EQ(lido("1e27"), BigInt::Maximo());
  EXPECT_EQ(lido("-1e27"), BigInt::Minimo());
  EXPECT_EQ(lido("1e26"),
            BigInt::Minimo() / BigInt::Minimo() * BigInt(10'000'000'000'000'000) * 1'000'000'000'000);
}

TEST(FinancialText, TakesExponentsOfAnySize) {
  EXPECT_EQ(lido("1e99999999999999999999999999"), BigInt::Maximo());
  EXPECT_EQ(lido("-1e9223372036854775807"), BigInt::Minimo());
  EXPECT_EQ(lido("-1e9223372036854775808"), BigInt::Minimo());
  EXPECT_EQ(lido("1e-99999999999999999999999999"), 0);
  EXPECT_EQ(lido("1e-9223372036854775808"), 0);
  EXPECT_EQ(lido("0e99999999999999999999999999"), 0);
  EXPECT_EQ(lido("1e00000000000000000000000000001"), 1000);
  EXPECT_EQ(lido(("1e" + std::string(1'000'000, '0') + "2").c_str()), 10000);
}

TEST(FinancialText, TakesMegabytesOfDigits) {
  const std::string zeros(3'000'000, '0');
  const std::string noves(3'000'000, '9');
  EXPECT_EQ(lido((zeros + "12,34").c_str()), 1234);
  EXPECT_EQ(lido(("12,34" + zeros).c_str()), 1234);
  EXPECT_EQ(lido(("0," + noves).c_str()), 100);
  EXPECT_EQ(lido(("0,00" + zeros + "1").c_str()), 0);
  EXPECT_EQ(lido(noves.c_str()), BigInt::Maximo());
  EXPECT_EQ(lido(("-" + noves + ",5").c_str()), BigInt::Minimo());
  EXPECT_EQ(lido(("0," + zeros + "1234e3000002").c_str()), 1234);
  EXPECT_EQ(lido(("1234" + zeros + "e-3000002").c_str()), 1234);
  EXPECT_EQ(lido((noves + "x").c_str()), 0);
  EXPECT_EQ(lido((std::string(3'000'000, ' ') + "1" + std::string(3'000'000, ' ')).c_str()), 100);
}

}  // namespace
