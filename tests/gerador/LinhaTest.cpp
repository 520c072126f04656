// The law of the line: put, advance by the nominal width, overwrite, end at the first terminator.
#include "Leiaute/Linha.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

using cotepe::Linha;

TEST(Linha, IsEmptyAtFirst) {
  Linha linha;
  EXPECT_EQ(linha.texto(), "");
  EXPECT_EQ(linha.comFimDeLinha(), "\n");
}

TEST(Linha, SurplusOfATextIsOverwrittenByTheNext) {
  Linha linha;
  linha.poe("ABCDEFGH", 3);
  linha.poe("12", 2);
  EXPECT_EQ(linha.texto(), "ABC12");
}

TEST(Linha, SurplusIsGoneEvenWhereTheNextTextDoesNotCoverIt) {
  Linha linha;
  linha.poe(std::string(100, 'x'), 1);
  linha.poe("1", 1);
  EXPECT_EQ(linha.texto(), "x1");
  linha.poe("2", 1);
  EXPECT_EQ(linha.texto(), "x12");
}

TEST(Linha, LastTextMayRunOver) {
  Linha linha;
  linha.poe("E06", 3);
  linha.poe("CRUZEIRO", 4);
  EXPECT_EQ(linha.texto(), "E06CRUZEIRO");
}

TEST(Linha, ShorterTextEndsTheLineThere) {
  Linha linha;
  linha.poe("E09", 3);
  linha.poe("", 1);
  linha.poe("0001", 4);
  linha.poe("ABCDEFGHIJ", 2);
  EXPECT_EQ(linha.texto(), "E09");
  EXPECT_EQ(linha.comFimDeLinha(), "E09\n");
}

TEST(Linha, TextThatFillsItsWidthDoesNotEndTheLine) {
  Linha linha;
  linha.poe("AB", 2);
  linha.poe("CD", 2);
  EXPECT_EQ(linha.texto(), "ABCD");
}

TEST(Linha, TextWithoutAdvanceIsOverwrittenWhole) {
  Linha linha;
  linha.poe("AB", 2);
  linha.poe("0123456789", 0);
  EXPECT_EQ(linha.texto(), "AB0123456789");
  linha.poe("xyz", 3);
  EXPECT_EQ(linha.texto(), "ABxyz");
}

TEST(Linha, EmptyTextWithoutAdvanceCutsTheSurplusOnly) {
  Linha linha;
  linha.poe("ABCDEF", 2);
  linha.poe("", 0);
  EXPECT_EQ(linha.texto(), "AB");
  linha.poe("12", 2);
  EXPECT_EQ(linha.texto(), "AB12");
}

TEST(Linha, TextIsBlankFilledToItsWidth) {
  Linha linha;
  linha.poeTexto("AB", 5, 5);
  linha.poeTexto("", 3, 3);
  linha.poeTexto("CDEFGH", 2, 2);
  linha.poeRepetido('0', 4, 4);
  EXPECT_EQ(linha.texto(), "AB      CD0000");
}

TEST(Linha, GoingForwardPastTheEndLeavesAGapThatEndsTheLine) {
  Linha linha;
  linha.poe("ABC", 3);
  linha.vaiPara(10);
  linha.poe("DEF", 3);
  EXPECT_EQ(linha.texto(), "ABC");
}

TEST(Linha, GoingToTheEndGoesOn) {
  Linha linha;
  linha.poe("ABC", 3);
  linha.vaiPara(3);
  linha.poe("DEF", 3);
  EXPECT_EQ(linha.texto(), "ABCDEF");
}

TEST(Linha, GoingBackOverwritesAndEndsBehindWhatIsPut) {
  Linha linha;
  linha.poe("ABCDEFGHIJ", 10);
  linha.vaiPara(4);
  linha.poe("12", 2);
  EXPECT_EQ(linha.texto(), "ABCD12");
}

TEST(Linha, GoingIntoTheSurplusKeepsWhatStandsBefore) {
  Linha linha;
  linha.poe("ABCDEFGHIJ", 2);
  linha.vaiPara(6);
  linha.poe("12", 2);
  EXPECT_EQ(linha.texto(), "ABCDEF12");
}

TEST(Linha, ComesBackToAMark) {
  Linha linha;
  linha.poe("E12", 3);
  const Linha::Marca marca = linha.marca();
  linha.poe("", 5);
  linha.poe("perdido", 7);
  EXPECT_EQ(linha.comFimDeLinha(), "E12\n");
  linha.volta(marca);
  linha.poe("curta", 5);
  EXPECT_EQ(linha.texto(), "E12curta");
  linha.limpa();
  EXPECT_EQ(linha.texto(), "");
  linha.poe("E13", 3);
  EXPECT_EQ(linha.texto(), "E13");
}

TEST(Linha, GoesOnAfterItsLineFeedAsIfThereWereNone) {
  Linha linha;
  linha.poe("E06", 3);
  EXPECT_EQ(linha.comFimDeLinha(), "E06\n");
  linha.poe("R$", 2);
  EXPECT_EQ(linha.comFimDeLinha(), "E06R$\n");
  EXPECT_EQ(linha.texto(), "E06R$");
}

TEST(Linha, GrowsToMegabytesAndKeepsEveryByte) {
  constexpr std::size_t kGrande = 5U << 20;
  Linha linha;
  linha.poe("E05", 3);
  linha.poe(std::string(kGrande, 'c'), kGrande);
  linha.poe("fim", 3);
  EXPECT_EQ(linha.texto(), "E05" + std::string(kGrande, 'c') + "fim");
  for (int i = 0; i < 100000; ++i) linha.poe("0123456789", 10);
  EXPECT_EQ(linha.texto().size(), 3 + kGrande + 3 + 1000000);
  EXPECT_EQ(linha.texto().substr(linha.texto().size() - 13), "7890123456789");
}

TEST(Linha, RoomIsThereForTheTextAndItsTerminator) {
  Linha linha;
  for (const std::size_t tamanho : {0U, 1U, 1023U, 1024U, 1025U, 100000U}) {
    std::fill_n(linha.espaco(tamanho), tamanho + 1, 'x');
    linha.avanca(tamanho, 0);
    EXPECT_EQ(linha.texto(), std::string(tamanho, 'x'));
  }
}

std::string comoPrintf(std::int64_t valor, int largura) {
  char texto[64];
  const int bytes = std::snprintf(texto, sizeof texto, "%0*lld", largura, static_cast<long long>(valor));
  return {texto, static_cast<std::size_t>(bytes)};
}

std::string comoPrintfSemSinal(std::uint64_t valor, int largura) {
  char texto[64];
  const int bytes =
      std::snprintf(texto, sizeof texto, "%0*llu", largura, static_cast<unsigned long long>(valor));
  return {texto, static_cast<std::size_t>(bytes)};
}

std::string numero(std::int64_t valor, std::size_t largura) {
  Linha linha;
  linha.avanca(linha.escreveNumero(valor, largura), 0);
  return std::string(linha.texto());
}

std::string semSinal(std::uint64_t valor, std::size_t largura) {
  Linha linha;
  linha.avanca(linha.escreveSemSinal(valor, largura), 0);
  return std::string(linha.texto());
}

TEST(Numero, IsZeroFilledWithItsSignWithinTheWidth) {
  EXPECT_EQ(numero(0, 6), "000000");
  EXPECT_EQ(numero(7, 6), "000007");
  EXPECT_EQ(numero(-7, 6), "-00007");
  EXPECT_EQ(numero(-123456, 6), "-123456");
  EXPECT_EQ(numero(1234567, 6), "1234567");
  EXPECT_EQ(numero(-1, 1), "-1");
  EXPECT_EQ(numero(-1, 2), "-1");
}

TEST(Numero, WithItsSignHasRoomForTheLineFeedWhereverItStands) {
  for (std::size_t antes = 950; antes < 1030; ++antes) {
    Linha linha;
    linha.poe(std::string(antes, 'a'), antes);
    linha.avanca(linha.escreveNumero(-1, 30), 30);
    EXPECT_EQ(linha.comFimDeLinha(), std::string(antes, 'a') + "-" + std::string(28, '0') + "1\n") << antes;
  }
}

TEST(Numero, WithoutSignOfANegativeOneIsItsTwosComplement) {
  EXPECT_EQ(semSinal(static_cast<std::uint64_t>(std::int64_t{-100}), 13), "18446744073709551516");
}

TEST(Numero, IsPrintedAsPrintfDoes) {
  std::mt19937_64 sorteio(20240131);
  for (int i = 0; i < 100000; ++i) {
    const std::uint64_t sem = sorteio() >> (sorteio() % 64);
    const auto com = static_cast<std::int64_t>(sorteio() % 2 == 0 ? sem : 0 - sem);
    const int largura = 1 + static_cast<int>(sorteio() % 22);
    ASSERT_EQ(numero(com, static_cast<std::size_t>(largura)), comoPrintf(com, largura));
    ASSERT_EQ(semSinal(sem, static_cast<std::size_t>(largura)), comoPrintfSemSinal(sem, largura));
  }
}

TEST(Numero, AtTheLimitsIsPrintedAsPrintfDoes) {
  for (const int largura : {1, 18, 19, 20, 21, 40}) {
    const auto colunas = static_cast<std::size_t>(largura);
    for (const std::int64_t valor :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(), std::int64_t{0},
          std::int64_t{9}, std::int64_t{10}, std::int64_t{99}, std::int64_t{100}, std::int64_t{-10}})
      EXPECT_EQ(numero(valor, colunas), comoPrintf(valor, largura));
    EXPECT_EQ(semSinal(std::numeric_limits<std::uint64_t>::max(), colunas),
              comoPrintfSemSinal(std::numeric_limits<std::uint64_t>::max(), largura));
  }
}

// The law as it reads: a buffer of zeros, texts copied with their terminator, a cursor.
class LinhaIngenua {
 public:
  void poe(const std::string& texto, std::size_t nominal) {
    for (std::size_t i = 0; i <= texto.size(); ++i) buffer_[cursor_ + i] = texto.c_str()[i];
    cursor_ += nominal;
  }
  void vaiPara(std::size_t posicao) { cursor_ = posicao; }
  std::string texto() const { return buffer_.substr(0, buffer_.find('\0')); }

 private:
  std::string buffer_ = std::string(20000, '\0');
  std::size_t cursor_ = 0;
};

TEST(Linha, FollowsTheLawThroughAnySequence) {
  std::mt19937 sorteio(20240131);
  for (int rodada = 0; rodada < 5000; ++rodada) {
    Linha linha;
    LinhaIngenua ingenua;
    std::string roteiro;
    for (std::size_t passo = 0, passos = sorteio() % 12; passo < passos; ++passo) {
      if (sorteio() % 6 == 0) {
        const std::size_t posicao = sorteio() % 40;
        linha.vaiPara(posicao);
        ingenua.vaiPara(posicao);
        roteiro += " >" + std::to_string(posicao);
      } else {
        const std::string texto(sorteio() % 8, static_cast<char>('a' + passo));
        const std::size_t nominal = sorteio() % 2 == 0 ? texto.size() : sorteio() % 8;
        linha.poe(texto, nominal);
        ingenua.poe(texto, nominal);
        roteiro += " " + texto + "/" + std::to_string(nominal);
      }
      ASSERT_EQ(linha.texto(), ingenua.texto()) << roteiro;
    }
  }
}

TEST(Linha, NumberInNoWidthTakesWhatItNeeds) {
  Linha linha;
  EXPECT_EQ(linha.escreveNumero(-5, 0), 2U);
  linha.avanca(2, 2);
  EXPECT_EQ(linha.escreveNumero(0, 0), 0U);
  EXPECT_EQ(linha.texto(), "-5");
}

// "no" where the text is left to those who read numbers.
std::string digitos(const char* texto, std::size_t casas, std::size_t largura) {
  Linha linha;
  if (!linha.escreveDigitos(texto, casas, largura)) return "no";
  linha.avanca(largura, largura);
  return std::string(linha.texto());
}

TEST(Digitos, FillTheFieldFromTheRightWithTheirDecimals) {
  EXPECT_EQ(digitos("", 0, 6), "000000");
  EXPECT_EQ(digitos("43679", 0, 6), "043679");
  EXPECT_EQ(digitos("007", 0, 3), "007");
  EXPECT_EQ(digitos("226.06", 2, 14), "00000000022606");
  EXPECT_EQ(digitos("39.9", 2, 7), "0003990");
  EXPECT_EQ(digitos("39.9", 3, 7), "0039900");
  EXPECT_EQ(digitos("5.", 2, 4), "0500");
  EXPECT_EQ(digitos(".5", 2, 4), "0050");
  EXPECT_EQ(digitos("12", 2, 4), "1200");
  EXPECT_EQ(digitos("123456789012345678.99", 2, 20), "12345678901234567899");
}

TEST(Digitos, AreNoneWhereTheTextIsMoreThanDigitsThatFit) {
  for (const char* texto : {"1234", "-1", "+1", " 1", "1 ", "1.0", "1,0", "1e1", "."})
    EXPECT_EQ(digitos(texto, 0, 3), "no") << texto;
  for (const char* texto : {"12345", "0.125", "1.2.3", "-0.5", "1,5", "100.00", ".5x"})
    EXPECT_EQ(digitos(texto, 2, 4), "no") << texto;
  EXPECT_EQ(digitos("1", 0, 21), "no");
  EXPECT_EQ(digitos("1", 2, 1), "no");
}

}  // namespace
