// Queries taken apart: what each column is made of, and of which table.
#include "BancoFiscal/ConsultaAnalisada.h"

#include <gtest/gtest.h>

namespace {

using cotepe::analisa;
using cotepe::SelectAnalisado;

std::vector<std::string> palavras(const SelectAnalisado& select) {
  std::vector<std::string> lista;
  for (const cotepe::Expressao& e : select.lista) lista.push_back(e.emPalavras());
  return lista;
}

using Lista = std::vector<std::string>;

TEST(ConsultaAnalisada, ColumnsOfOneTable) {
  const auto selects = analisa("SELECT a, ifnull(b, '   '), ' ' FROM t WHERE a > '%s'");
  ASSERT_EQ(selects.size(), 1U);
  EXPECT_EQ(palavras(selects[0]), (Lista{"t.a", "t.b, 19 blanks where it is NULL", "the constant ' '"}));
  EXPECT_EQ(selects[0].resto, "FROM t WHERE a > '%s'");
}

TEST(ConsultaAnalisada, ANumberBeforeAColumnIsNoName) {
  EXPECT_EQ(palavras(analisa("SELECT 0 + a FROM t").at(0)), Lista{"t.a"});
}

TEST(ConsultaAnalisada, WithoutATableThereIsNoColumn) {
  const auto selects = analisa("SELECT 1");
  ASSERT_EQ(selects.size(), 1U);
  EXPECT_TRUE(selects[0].lista.empty());
  EXPECT_TRUE(selects[0].tabelas.empty());
}

TEST(ConsultaAnalisada, AliasesAndFunctions) {
  const auto selects = analisa(
      "select um.a as X, SUBSTR(dois.b, 0, 15), SUM(dois.c), MIN(um.d), MAX(um.e)\t"
      "from primeira AS um INNER JOIN segunda AS dois USING(a) INNER JOIN terceira ON (um.a = terceira.a)"
      " group by um.a order by um.a");
  ASSERT_EQ(selects.size(), 1U);
  EXPECT_EQ(palavras(selects[0]),
            (Lista{"primeira.a", "the first 14 characters of segunda.b", "the sum of segunda.c",
                   "the smallest primeira.d", "the greatest primeira.e"}));
  EXPECT_EQ(selects[0].lista[0].sql, "um.a");
  EXPECT_TRUE(selects[0].lista[2].soma());
  EXPECT_TRUE(selects[0].lista[3].extremo());
  ASSERT_EQ(selects[0].tabelas.size(), 3U);
  EXPECT_EQ(selects[0].tabelas[1].apelido, "dois");
  EXPECT_EQ(selects[0].tabelas[2].apelido, "terceira");
  EXPECT_EQ(
      selects[0].resto,
      "from primeira AS um INNER JOIN segunda AS dois USING(a) INNER JOIN terceira ON (um.a = terceira.a) ");
}

TEST(ConsultaAnalisada, EachSelectOfACompound) {
  const auto selects = analisa(
      "SELECT a.x, '0' FROM a UNION ALL SELECT '0', b.y FROM b UNION SELECT z, 'FROM' FROM c ORDER BY z");
  ASSERT_EQ(selects.size(), 3U);
  EXPECT_EQ(palavras(selects[0]), (Lista{"a.x", "the constant '0'"}));
  EXPECT_EQ(palavras(selects[1]), (Lista{"the constant '0'", "b.y"}));
  EXPECT_EQ(palavras(selects[2]), (Lista{"c.z", "the constant 'FROM'"}));
  EXPECT_EQ(selects[2].resto, "FROM c ");
}

TEST(ConsultaAnalisada, ASelectInsideParenthesesIsNoneOfItsOwn) {
  const auto selects = analisa("SELECT v FROM t WHERE n = (SELECT MAX(n) FROM u)");
  ASSERT_EQ(selects.size(), 1U);
  EXPECT_EQ(palavras(selects[0]), Lista{"t.v"});
  EXPECT_EQ(selects[0].resto, "FROM t WHERE n = (SELECT MAX(n) FROM u)");
}

TEST(ConsultaAnalisada, AStarStandsForTheColumnsThatThereAre) {
  const auto selects = analisa("SELECT * FROM t");
  ASSERT_EQ(selects.size(), 1U);
  EXPECT_TRUE(selects[0].lista.empty());
  EXPECT_EQ(palavras(selects[0].comColunas({"um", "dois"})), (Lista{"t.um", "t.dois"}));
}

}  // namespace
