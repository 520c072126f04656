// Rows written by the library: values arrive as they were meant, and a row that is refused is reported.
#include "Amostra/Insercao.h"

#include "BancoFiscal/ErroDoBanco.h"
#include "ComEsquema.h"

namespace cotepe::testes {
namespace {

using InsercaoNoBanco = ComEsquema;

TEST_F(InsercaoNoBanco, StoresNumbersTextsAndNothing) {
  ASSERT_EQ(banco_.executa("CREATE TABLE t(a NUMERIC, b NUMERIC, c NUMERIC, d TEXT, e TEXT, f)"), "");
  Insercao(banco_.aberto(), "t(a, b, c, d, e, f)")
      .grava(7, dinheiro(1234567890123), milesimos(5899), "S", "", nullptr);
  EXPECT_EQ(banco_.linhas("SELECT * FROM t"), std::vector<std::string>{"7|12345678901.23|5.899|S||NULL"});
}

TEST_F(InsercaoNoBanco, StoresWholeAmountsAsIntegers) {
  ASSERT_EQ(banco_.executa("CREATE TABLE t(a, b)"), "");
  Insercao(banco_.aberto(), "t(a, b)").grava(dinheiro(1000), milesimos(2000));
  EXPECT_EQ(banco_.linhas("SELECT a, b, typeof(a), typeof(b) FROM t"),
            std::vector<std::string>{"10|2|integer|integer"});
}

TEST_F(InsercaoNoBanco, ARowThatIsRefusedNamesItsTable) {
  Insercao moeda(banco_.aberto(), "moeda(data_hora_gravacao, simbolo_moeda)");
  try {
    moeda.grava(nullptr, "12345");
    FAIL() << "the row was stored";
  } catch (const ErroDoBanco& erro) {
    EXPECT_EQ(erro.partes().onde, "table moeda");
    EXPECT_EQ(erro.partes().encontrado, "CHECK constraint failed: length(CAST(simbolo_moeda AS BLOB)) <= 4");
  }
}

TEST_F(InsercaoNoBanco, ATableThatIsNotThereIsNamed) {
  try {
    Insercao(banco_.aberto(), "nada(a)");
    FAIL() << "the statement was prepared";
  } catch (const ErroDoBanco& erro) {
    EXPECT_EQ(erro.partes().encontrado, "no such table: nada");
  }
}

}  // namespace
}  // namespace cotepe::testes
