// The six text helpers of the generator, and the readers of numbers behind every field.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

#include "Bancada.h"
#include "Leiaute/Texto.h"

namespace {

using namespace std::string_literals;

class AjudantesDeTexto : public testing::Test {
 protected:
  std::string formataData(const std::string& texto) {
    return CotepeManagerTest::formataData(gerador_, texto);
  }
  std::string formataHora(const std::string& texto) {
    return CotepeManagerTest::formataHora(gerador_, texto);
  }
  int roundInteger(double x) { return CotepeManagerTest::roundInteger(gerador_, x); }
  std::string charRemove(const std::string& texto, char c) {
    return CotepeManagerTest::charRemove(gerador_, texto, c);
  }
  std::string charReplace(const std::string& texto, char de, char para) {
    return CotepeManagerTest::charReplace(gerador_, texto, de, para);
  }
  std::string charRemoveNonAscii(const std::string& texto) {
    return CotepeManagerTest::charRemoveNonAscii(gerador_, texto);
  }

 private:
  CotepeManager gerador_{nullptr};
};

TEST_F(AjudantesDeTexto, DateAndHourAreCutByPositionAndTerminated) {
  EXPECT_EQ(formataData("2024-01-31 12:34:56"), "20240131\0"s);
  EXPECT_EQ(formataHora("2024-01-31 12:34:56"), "123456\0"s);
}

TEST_F(AjudantesDeTexto, SeparatorsAreNotLookedAt) {
  EXPECT_EQ(formataData("abcdXefXghXijXklXmn"), "abcdefgh\0"s);
  EXPECT_EQ(formataHora("abcdXefXghXijXklXmn"), "ijklmn\0"s);
}

TEST_F(AjudantesDeTexto, CharactersAfterTheNineteenthAreNotRead) {
  EXPECT_EQ(formataData("2024-01-31 12:34:56.789"), "20240131\0"s);
  EXPECT_EQ(formataHora("2024-01-31 12:34:56.789"), "123456\0"s);
}

TEST_F(AjudantesDeTexto, NineteenBlanksGiveBlanks) {
  EXPECT_EQ(formataData("                   "), "        \0"s);
  EXPECT_EQ(formataHora("                   "), "      \0"s);
}

TEST_F(AjudantesDeTexto, MissingPositionsOfAShorterTextAreTerminators) {
  const struct {
    const char* texto;
    std::string data, hora;
  } kCasos[] = {
      {"", "\0\0\0\0\0\0\0\0\0"s, "\0\0\0\0\0\0\0"s},    {"2024", "2024\0\0\0\0\0"s, "\0\0\0\0\0\0\0"s},
      {"2024-0", "20240\0\0\0\0"s, "\0\0\0\0\0\0\0"s},   {"2024-01-31", "20240131\0"s, "\0\0\0\0\0\0\0"s},
      {"2024-01-31 12", "20240131\0"s, "12\0\0\0\0\0"s}, {"2024-01-31 12:34:5", "20240131\0"s, "12345\0\0"s},
  };
  for (const auto& caso : kCasos) {
    EXPECT_EQ(formataData(caso.texto), caso.data) << caso.texto;
    EXPECT_EQ(formataHora(caso.texto), caso.hora) << caso.texto;
  }
}

TEST_F(AjudantesDeTexto, RoundIntegerRoundsHalvesAwayFromZero) {
  const struct {
    double x;
    int inteiro;
  } kCasos[] = {{0, 0},
                {-0.0, 0},
                {0.49, 0},
                {-0.49, 0},
                {0.5, 1},
                {-0.5, -1},
                {1.49, 1},
                {2.5, 3},
                {-2.5, -3},
                {3.5, 4},
                {-3.5, -4},
                {122.5, 123},
                {1e-9, 0},
                {-1e-9, 0},
                {99.5, 100},
                {-99.5, -100},
                {123456789.4, 123456789}};
  for (const auto& caso : kCasos) EXPECT_EQ(roundInteger(caso.x), caso.inteiro) << caso.x;
}

TEST_F(AjudantesDeTexto, RoundIntegerSaturatesAtTheLimitsOfInt) {
  constexpr double kInfinito = std::numeric_limits<double>::infinity();
  const struct {
    double x;
    int inteiro;
  } kCasos[] = {
      {2147483646.49, 2147483646},      {2147483646.5, 2147483647},       {2147483647.0, 2147483647},
      {2147483647.5, 2147483647},       {2147483648.0, 2147483647},       {1e300, 2147483647},
      {kInfinito, 2147483647},          {-2147483647.49, -2147483647},    {-2147483647.5, -2147483647 - 1},
      {-2147483648.0, -2147483647 - 1}, {-2147483649.0, -2147483647 - 1}, {-1e300, -2147483647 - 1},
      {-kInfinito, -2147483647 - 1}};
  for (const auto& caso : kCasos) EXPECT_EQ(roundInteger(caso.x), caso.inteiro) << std::fixed << caso.x;
}

TEST_F(AjudantesDeTexto, RoundIntegerOfNotANumberIsZero) {
  EXPECT_EQ(roundInteger(std::numeric_limits<double>::quiet_NaN()), 0);
  EXPECT_EQ(roundInteger(-std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST_F(AjudantesDeTexto, CharRemoveTakesOutEveryOccurrenceAndKeepsTheOrder) {
  EXPECT_EQ(charRemove("1.234,56", '.'), "1234,56");
  EXPECT_EQ(charRemove("..a..b..", '.'), "ab");
  EXPECT_EQ(charRemove("....", '.'), "");
  EXPECT_EQ(charRemove("", '.'), "");
  EXPECT_EQ(charRemove("sem nenhum", '.'), "sem nenhum");
}

TEST_F(AjudantesDeTexto, CharReplaceReplacesEveryOccurrence) {
  EXPECT_EQ(charReplace("1.234.567", '.', ','), "1,234,567");
  EXPECT_EQ(charReplace("....", '.', ','), ",,,,");
  EXPECT_EQ(charReplace("", '.', ','), "");
  EXPECT_EQ(charReplace("abc", '.', ','), "abc");
}

TEST_F(AjudantesDeTexto, CharReplaceByTheSameCharacterEnds) {
  EXPECT_EQ(charReplace("a.b", '.', '.'), "a.b");
}

TEST_F(AjudantesDeTexto, CharRemoveNonAsciiBlanksControlsAndHighBytesAndKeepsTheLength) {
  EXPECT_EQ(charRemoveNonAscii("a\tb\xE7"
                               "c"),
            "a b c");
  EXPECT_EQ(charRemoveNonAscii("a\xC3\xA7\xC3\xA3o"), "a    o");
  EXPECT_EQ(charRemoveNonAscii("\x01\x1F\x20\x7E\x7F\x80\xFF"), "   \x7E\x7F  ");
  EXPECT_EQ(charRemoveNonAscii(""), "");
}

TEST_F(AjudantesDeTexto, CharRemoveNonAsciiKeepsAllOfPrintableAsciiAndDelete) {
  for (int byte = 1; byte <= 255; ++byte) {
    const std::string texto(1, static_cast<char>(byte));
    EXPECT_EQ(charRemoveNonAscii(texto), byte >= 32 && byte <= 127 ? texto : " ") << byte;
  }
}

TEST(Inteiro, StopsAtTheFirstOtherCharacter) {
  const struct {
    const char* texto;
    std::int64_t valor;
  } kCasos[] = {{"", 0},
                {"0", 0},
                {"7", 7},
                {"007", 7},
                {"+12", 12},
                {"-12", -12},
                {"12abc", 12},
                {"12.999", 12},
                {"1 2", 1},
                {"abc", 0},
                {"+-5", 0},
                {"--5", 0},
                {"- 5", 0},
                {"0x10", 0},
                {".5", 0},
                {"1e3", 1},
                {" \t\n\v\f\r42", 42},
                {"12.345.678/0001-90", 12},
                {"98765432109876", 98765432109876}};
  for (const auto& caso : kCasos) EXPECT_EQ(cotepe::leInteiro(caso.texto), caso.valor) << caso.texto;
}

TEST(Inteiro, SaturatesAtTheLimitsOf64Bits) {
  constexpr auto kMaior = std::numeric_limits<std::int64_t>::max();
  constexpr auto kMenor = std::numeric_limits<std::int64_t>::min();
  const struct {
    std::string texto;
    std::int64_t valor;
  } kCasos[] = {{"9223372036854775806", kMaior - 1},  {"9223372036854775807", kMaior},
                {"9223372036854775808", kMaior},      {"9223372036854775810", kMaior},
                {"92233720368547758070", kMaior},     {"18446744073709551616", kMaior},
                {"-9223372036854775807", kMenor + 1}, {"-9223372036854775808", kMenor},
                {"-9223372036854775809", kMenor},     {"-92233720368547758080", kMenor},
                {std::string(400, '9'), kMaior},      {"-" + std::string(400, '9'), kMenor},
                {std::string(400, '0') + "5", 5}};
  for (const auto& caso : kCasos) EXPECT_EQ(cotepe::leInteiro(caso.texto.c_str()), caso.valor) << caso.texto;
}

// The same number to its last bit; the process is in the C locale here.
void leComoStrtod(const std::string& texto) {
  const double lido = cotepe::leDecimal(texto.c_str());
  const double esperado = std::strtod(texto.c_str(), nullptr);
  if (std::isnan(esperado)) {
    EXPECT_TRUE(std::isnan(lido)) << texto;
    return;
  }
  EXPECT_EQ(lido, esperado) << texto;
  EXPECT_EQ(std::signbit(lido), std::signbit(esperado)) << texto;
}

TEST(Decimal, IsReadAsStrtodDoes) {
  for (const char* texto : {"",
                            " ",
                            "0",
                            "-0",
                            "+0",
                            "0.0",
                            "-0.0",
                            "1",
                            "-1",
                            "+1",
                            "1.",
                            ".5",
                            "-.5",
                            "+.5",
                            ".",
                            "-",
                            "+",
                            "-.",
                            "1.5",
                            "12.34",
                            "1,5",
                            "1/5",
                            "1.2.3",
                            "1.5abc",
                            "abc",
                            " 1.5",
                            "\t\n\v\f\r 2.25",
                            "1.5 ",
                            "1e3",
                            "1E3",
                            "1e+3",
                            "1e-3",
                            "1e",
                            "1e+",
                            "1e5x",
                            "1.5e308",
                            "1e309",
                            "-1e309",
                            "1e-320",
                            "1e-400",
                            "0x10",
                            "0X1.8p3",
                            "0x",
                            "0x.8",
                            "-0x1p-1074",
                            "inf",
                            "-inf",
                            "INFINITY",
                            "infinit",
                            "nan",
                            "-nan",
                            "NaN(123)",
                            "na",
                            "123456789012345",
                            "1234567890123456",
                            "12345678901234.5",
                            "1234567890.12345",
                            "0.000000000000001",
                            "999999999999999",
                            "99999999999999.9",
                            "0.1",
                            "0.2",
                            "0.3",
                            "1.005",
                            "2.675",
                            "1.15",
                            "8.345",
                            "9007199254740993",
                            "0.30000000000000004",
                            "179769313486231580793728971405301e277",
                            "00000000000000000.5",
                            "000000000000001.25",
                            "4.35",
                            "--1",
                            "+-1",
                            "1-2"})
    leComoStrtod(texto);
}

TEST(Decimal, OfAnyLengthIsReadAsStrtodDoes) {
  leComoStrtod(std::string(400, '9'));
  leComoStrtod("-" + std::string(400, '9'));
  leComoStrtod("0." + std::string(400, '3'));
  leComoStrtod("0." + std::string(400, '0') + "7");
  leComoStrtod(std::string(400, '0') + "1.5");
  leComoStrtod("1" + std::string(400, '0') + "e-400");
  leComoStrtod(std::string(400, ' ') + "1.5");
}

TEST(Decimal, OfEveryShapeIsReadAsStrtodDoes) {
  std::mt19937 sorteio(20240131);
  constexpr char kCaracteres[] = "0123456789012345678901234567890.-+e xnif";
  for (int i = 0; i < 200000; ++i) {
    std::string texto(sorteio() % 24, ' ');
    for (char& c : texto) c = kCaracteres[sorteio() % (sizeof kCaracteres - 1)];
    leComoStrtod(texto);
  }
}

TEST(Decimal, WithTwoOrThreePlacesIsReadAsStrtodDoes) {
  std::mt19937_64 sorteio(20240131);
  for (int i = 0; i < 200000; ++i) {
    std::string texto = std::to_string(sorteio() >> (sorteio() % 64));
    const auto casas = static_cast<std::size_t>(sorteio() % 5);
    if (casas < texto.size()) texto.insert(texto.size() - casas, ".");
    leComoStrtod(texto);
  }
}

TEST(CopiaLimitada, CutsToTheRoomAndClearsTheRest) {
  char destino[5] = {'x', 'x', 'x', 'x', 'x'};
  cotepe::copiaLimitada(destino, "abcdefgh");
  EXPECT_EQ(std::string(destino, sizeof destino), "abcd\0"s);
  cotepe::copiaLimitada(destino, "a");
  EXPECT_EQ(std::string(destino, sizeof destino), "a\0\0\0\0"s);
  cotepe::copiaLimitada(destino, nullptr);
  EXPECT_EQ(std::string(destino, sizeof destino), "\0\0\0\0\0"s);
}

}  // namespace
