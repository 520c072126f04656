// Lines of every length and end.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "Leitor/LeitorDeLinhas.h"

namespace cotepe {
namespace {

std::vector<std::string> linhasDe(LeitorDeLinhas& leitor) {
  std::vector<std::string> textos;
  for (LinhaLida linha; leitor.proxima(linha);) textos.emplace_back(linha.texto);
  return textos;
}

std::vector<std::string> linhasDe(const std::string& texto) {
  LeitorDeLinhas leitor{std::string_view(texto)};
  return linhasDe(leitor);
}

using Textos = std::vector<std::string>;

TEST(LeitorDeLinhas, EndsAtEachLineFeed) {
  EXPECT_EQ(linhasDe(""), Textos());
  EXPECT_EQ(linhasDe("a\nbc\n"), (Textos{"a", "bc"}));
  EXPECT_EQ(linhasDe("\n\n"), (Textos{"", ""}));
}

TEST(LeitorDeLinhas, ReadsADescriptorAndTellsItsErrors) {
  int tubo[2];
  ASSERT_EQ(pipe(tubo), 0);
  ASSERT_EQ(write(tubo[1], "a\nbc\n", 5), 5);
  close(tubo[1]);
  LeitorDeLinhas leitor(tubo[0]);
  EXPECT_EQ(linhasDe(leitor), (Textos{"a", "bc"}));
  EXPECT_EQ(leitor.erro(), 0);
  close(tubo[0]);
  LeitorDeLinhas fechado(-1);
  EXPECT_EQ(linhasDe(fechado), Textos());
  EXPECT_EQ(fechado.erro(), EBADF);
}

TEST(LeitorDeLinhas, LastLineMayLackItsEnd) {
  const std::string texto = "a\nbc";
  LeitorDeLinhas leitor{std::string_view(texto)};
  LinhaLida linha;
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_FALSE(linha.semFim);
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, "bc");
  EXPECT_TRUE(linha.semFim);
  EXPECT_EQ(linha.numero, 2);
  EXPECT_EQ(linha.posicao, 2U);
  EXPECT_FALSE(leitor.proxima(linha));
  EXPECT_EQ(leitor.erro(), 0);
}

TEST(LeitorDeLinhas, LeavesOutTheCarriageReturnAndSaysSo) {
  const std::string texto = "a\r\n\r\nb\rc\n";
  LeitorDeLinhas leitor{std::string_view(texto)};
  LinhaLida linha;
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, "a");
  EXPECT_EQ(linha.tamanho, 1U);
  EXPECT_TRUE(linha.comCr);
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, "");
  EXPECT_TRUE(linha.comCr);
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, "b\rc");
  EXPECT_EQ(linha.posicao, 5U);
  EXPECT_FALSE(linha.comCr);
}

TEST(LeitorDeLinhas, KeepsNulBytes) {
  const std::string texto("a\0b\n", 4);
  EXPECT_EQ(linhasDe(texto), (Textos{std::string("a\0b", 3)}));
}

// Whatever pieces the file comes in, and wherever a block ends.
TEST(LeitorDeLinhas, PiecesMakeNoDifference) {
  std::string texto;
  for (int i = 0; i < 3000; ++i)
    texto += std::string(static_cast<std::size_t>(i % 997), 'x') + std::to_string(i) + '\n';
  const Textos esperadas = linhasDe(texto);
  ASSERT_EQ(esperadas.size(), 3000U);
  EXPECT_EQ(esperadas[996], std::string(996, 'x') + "996");
  for (const std::size_t pedaco : {1U, 7U, 1000U, 262144U, 262145U}) {
    std::size_t lidos = 0;
    LeitorDeLinhas leitor([&](char* destino, std::size_t tamanho) {
      const std::size_t n = std::min({pedaco, tamanho, texto.size() - lidos});
      std::copy_n(texto.data() + lidos, n, destino);
      lidos += n;
      return static_cast<long>(n);
    });
    EXPECT_EQ(linhasDe(leitor), esperadas) << pedaco;
  }
}

TEST(LeitorDeLinhas, GivesTheBeginningOfALineThatIsTooLong) {
  const std::size_t tamanho = 3 * LeitorDeLinhas::kMaximo + 12345;
  const std::string texto = std::string(tamanho - 1, 'x') + "y\nz\n";
  LeitorDeLinhas leitor{std::string_view(texto)};
  LinhaLida linha;
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, std::string(LeitorDeLinhas::kGuardado, 'x'));
  EXPECT_EQ(linha.tamanho, tamanho);
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, "z");
  EXPECT_EQ(linha.tamanho, 1U);
  EXPECT_EQ(linha.posicao, tamanho + 1);
}

TEST(LeitorDeLinhas, GivesALongLineWholeUpToTheLimit) {
  const std::string longa(LeitorDeLinhas::kMaximo - 1, 'x');
  EXPECT_EQ(linhasDe(longa + "\nz\n"), (Textos{longa, "z"}));
}

// No line is made of what came before the failure without its end.
TEST(LeitorDeLinhas, SaysWhyReadingFailed) {
  int vez = 0;
  LeitorDeLinhas leitor([&](char* destino, std::size_t) -> long {
    if (vez++ == 0) {
      std::copy_n("a\nb", 3, destino);
      return 3;
    }
    errno = EIO;
    return -1;
  });
  LinhaLida linha;
  ASSERT_TRUE(leitor.proxima(linha));
  EXPECT_EQ(linha.texto, "a");
  EXPECT_FALSE(leitor.proxima(linha));
  EXPECT_EQ(leitor.erro(), EIO);
}

}  // namespace
}  // namespace cotepe
