#include "Resumo/Sequencia.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "Resumo/DocumentosLidos.h"

namespace cotepe {
namespace {

Sequencia sequencia(const std::vector<std::int64_t>& valores, int digitos = 6) {
  Sequencia s;
  for (const std::int64_t valor : valores) s.anota(valor, digitos);
  return s;
}

TEST(Sequencia, GapsAreWhatIsMissingInBetween) {
  const Sequencia s = sequencia({5, 6, 9, 10, 12});
  EXPECT_EQ(s.primeiro(), 5);
  EXPECT_EQ(s.ultimo(), 12);
  EXPECT_EQ(s.quantos(), 5);
  EXPECT_EQ(s.lacunas(), (std::vector<Faixa>{{7, 8}, {11, 11}}));
}

TEST(Sequencia, TheOrderDoesNotMatter) {
  EXPECT_EQ(sequencia({12, 5, 10, 6, 9, 5, 9}).lacunas(), (std::vector<Faixa>{{7, 8}, {11, 11}}));
  EXPECT_TRUE(sequencia({2, 4, 6, 8, 1, 3, 5, 7}).lacunas().empty());
}

TEST(Sequencia, ManyOutOfOrderComeOutRight) {
  std::vector<std::int64_t> valores;
  for (std::int64_t i = 1; i <= 20000; ++i)
    if (i % 5000 != 0) valores.push_back(i);
  std::shuffle(valores.begin(), valores.end(), std::mt19937(1));
  const Sequencia s = sequencia(valores);
  EXPECT_EQ(s.quantos(), 19996);
  EXPECT_EQ(s.lacunas(), (std::vector<Faixa>{{5000, 5000}, {10000, 10000}, {15000, 15000}}));
}

TEST(Sequencia, ACounterThatBeganAgainHasNoGapThere) {
  const Sequencia s = sequencia({999998, 999999, 1, 2, 4});
  EXPECT_TRUE(s.recomecou());
  EXPECT_EQ(s.lacunas(), (std::vector<Faixa>{{3, 3}}));
  EXPECT_FALSE(sequencia({1, 400000}).recomecou());
  EXPECT_FALSE(sequencia({1, 999999}, 9).recomecou());
}

TEST(Sequencia, RunsJoinAcrossEachOther) {
  Sequencia s;
  s.anota(Faixa{10, 20}, 6);
  s.anota(Faixa{30, 40}, 6);
  s.anota(Faixa{15, 31}, 6);
  EXPECT_EQ(s.faixas(), (std::vector<Faixa>{{10, 40}}));
}

TEST(DocumentosLidos, ADocumentIsFoundByItsCounter) {
  DocumentosLidos documentos;
  documentos.anota(1, "20240101", false);
  documentos.anota(2, "20240101", true);
  documentos.anota(3, "20240102", false);
  documentos.anota(9, "20240102", false);
  documentos.anota(5, "20240103", false);
  ASSERT_NE(documentos.acha(2), nullptr);
  EXPECT_EQ(documentos.acha(2)->dia, "20240101");
  EXPECT_TRUE(documentos.acha(2)->cancelado);
  EXPECT_FALSE(documentos.acha(3)->cancelado);
  EXPECT_EQ(documentos.acha(5)->dia, "20240103");
  EXPECT_EQ(documentos.acha(9)->dia, "20240102");
  for (const std::int64_t ausente : {0, 4, 6, 8, 10}) EXPECT_EQ(documentos.acha(ausente), nullptr) << ausente;
}

}  // namespace
}  // namespace cotepe
