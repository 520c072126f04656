// What the rows together tell: order, maxima, what is left out or doubled, and the sample as a whole.
#include <cstdlib>
#include <filesystem>

#include "Amostra/Amostra.h"
#include "BancoLimpo.h"

namespace cotepe::testes {
namespace {

TEST(Verificador, TextOrder) {
  const std::string outra = "INSERT INTO fita_detalhe VALUES(";
  const std::string resto = ", '2024-01-07 10:00:00', 13, 14)";
  EXPECT_EQ(
      depoisDe("UPDATE fita_detalhe SET cont_cfd = '9';" + outra + "'11'" + resto),
      Linhas{
          "fita_detalhe.cont_cfd: error text-order E10: found the texts \"9\" and \"11\", which are sorted "
          "letter by letter, expected numbers, or texts of as many digits (store it as an integer)"});
  EXPECT_EQ(
      depoisDe(outra + "'11'" + resto),
      Linhas{
          "fita_detalhe.cont_cfd: error text-order E10: found the text \"11\" among numbers, which are "
          "sorted letter by letter, expected numbers, or texts of as many digits (store it as an integer)"});
  EXPECT_EQ(depoisDe("UPDATE fita_detalhe SET cont_cfd = '09';" + outra + "'11'" + resto), Linhas());
  EXPECT_EQ(depoisDe("UPDATE fita_detalhe SET cont_cfd = 9;" + outra + "11" + resto), Linhas());
}

TEST(Verificador, OfTextsOutOfOrderTheShortestIsToldWhereverItStands) {
  EXPECT_EQ(
      depoisDe("UPDATE fita_detalhe SET cont_cfd = '100';"
               "INSERT INTO fita_detalhe VALUES('9', '2024-01-07 10:00:00', 13, 14);"
               "INSERT INTO fita_detalhe VALUES('11', '2024-01-08 10:00:00', 15, 16)"),
      Linhas{"fita_detalhe.cont_cfd: error text-order E10: found the texts \"9\" and \"100\", which are "
             "sorted letter by letter, expected numbers, or texts of as many digits (store it as an "
             "integer)"});
}

TEST(Verificador, TextMaximum) {
  EXPECT_EQ(
      depoisDe("UPDATE reducao_z SET valor_gt = '9.5' WHERE cont_crz = 4;"
               "UPDATE reducao_z SET valor_gt = '11.25' WHERE cont_crz = 5"),
      Linhas{
          "reducao_z.valor_gt: error text-maximum E02: found the texts \"9.5\" and \"11.25\", the greatest "
          "of which is taken letter by letter, expected numbers, or texts of as many digits (store it as a "
          "number)"});
  EXPECT_EQ(depoisDe("UPDATE reducao_z SET valor_gt = '10.5' WHERE cont_crz = 4;"
                     "UPDATE reducao_z SET valor_gt = '11.25' WHERE cont_crz = 5"),
            Linhas());
}

TEST(Verificador, NoReduction) {
  const char* const kSaida =
      "outros_documentos[cont_coo=10].cont_crz: error no-reduction E16: found \"3\", with which the row is "
      "left out "
      "without a word, expected one of reducao_z (store the reduction, or correct the counter)";
  EXPECT_EQ(depoisDe("UPDATE outros_documentos SET cont_crz = 3"), Linhas{kSaida});
  EXPECT_EQ(depoisDe("UPDATE outros_documentos SET cont_crz = 7").size(), 1U);
  EXPECT_EQ(depoisDe("UPDATE outros_documentos SET cont_crz = 6"), Linhas());  // the open day
}

TEST(Verificador, NoDocument) {
  EXPECT_EQ(
      depoisDe("INSERT INTO item_cupom_nf VALUES(99, 1, 1, 20, 0, 0, 20, 'N', 0)"),
      Linhas{
          "item_cupom_nf[cont_coo=99,seq_item=1].cont_coo: error no-document E20: found \"99\", with which "
          "the row is left out without a word, expected one of cupom_nf (store the coupon, or correct the "
          "counter)"});
  EXPECT_EQ(
      depoisDe("INSERT INTO pagamento_cupom VALUES(99, 1, 20, 'N', 0)"),
      Linhas{
          "pagamento_cupom[cont_coo=99,indice_meio_pagamento=1].cont_coo: error no-document E21: found "
          "\"99\", with which the row is left out without a word, expected one of cupom_fiscal or cupom_nf "
          "(store the coupon, or correct the counter)"});
  EXPECT_EQ(depoisDe("INSERT INTO pagamento_cupom VALUES(12, 1, 20, 'N', 0)"), Linhas());
}

TEST(Verificador, NoTotalizerAndNoMeans) {
  EXPECT_EQ(
      depoisDe("UPDATE item_cupom_nf SET indice_totalizador_nf = 7"),
      Linhas{
          "item_cupom_nf[cont_coo=12,seq_item=1].indice_totalizador_nf: error no-totalizer E20: found \"7\", "
          "with which the row is left out without a word, expected one of totalizador_nao_fiscal (register "
          "the totalizer)"});
  EXPECT_EQ(
      depoisDe("UPDATE pagamento_cupom SET indice_meio_pagamento = 7 WHERE cont_coo = 11"),
      Linhas{
          "pagamento_cupom[cont_coo=11,indice_meio_pagamento=7].indice_meio_pagamento: error no-means E21: "
          "found \"7\", with which the row is left out without a word, expected one of meio_pagamento "
          "(register the means of payment)"});
}

TEST(Verificador, CounterRepeat) {
  EXPECT_EQ(
      depoisDe("INSERT INTO reducao_z VALUES(5, 14, 2, '2024-01-06 00:00:00', NULL, 1, 1)"),
      Linhas{
          "reducao_z[cont_crz=5].cont_crz: error counter-repeat E01, E12, E13, E14, E15, E16, E17, E18, E19, "
          "E20 and E21: found 2 rows: every total and document of it is written once for each of them, "
          "expected one (leave one of the rows, or correct the counter)"});
  EXPECT_EQ(
      depoisDe("INSERT INTO item_cupom_nf SELECT * FROM item_cupom_nf"),
      Linhas{"item_cupom_nf[cont_coo=12,seq_item=1].seq_item: error counter-repeat E20: found 2 rows: two "
             "records have the same counter, expected one (leave one of the rows, or correct the counter)"});
  EXPECT_EQ(depoisDe("INSERT INTO item_cupom_nf VALUES(12, 2, 1, 20, 0, 0, 20, 'N', 0)"), Linhas());
}

TEST(Verificador, TwoCoupons) {
  EXPECT_EQ(
      depoisDe("UPDATE cupom_nf SET cont_coo = 11; UPDATE item_cupom_nf SET cont_coo = 11;"
               "UPDATE pagamento_cupom SET cont_coo = 11"),
      Linhas{
          "cupom_nf[cont_coo=11].cont_coo: error two-coupons E21: found a row of cupom_fiscal with the same "
          "counter: every payment of it is written for both, expected a counter of its own (correct the "
          "counter of one of them)"});
}

TEST(Verificador, IndexMissing) {
  EXPECT_EQ(
      depoisDe("DROP INDEX i12"),
      Linhas{
          "pagamento_cupom.cont_coo: warning index-missing E21: found no index that begins with it, so that "
          "the table is read again and again, expected an index (create the index; cotepe schema shows "
          "how)"});
  EXPECT_EQ(depoisDe("DROP INDEX i12; CREATE INDEX outro ON pagamento_cupom(cont_coo, valor_pagamento)"),
            Linhas());
  EXPECT_EQ(
      depoisDe("DROP INDEX i12; CREATE INDEX outro ON pagamento_cupom(valor_pagamento, cont_coo)").size(),
      1U);
}

TEST(Verificador, WhatIsStoredTwiceIsFound) {
  EXPECT_EQ(
      depoisDe("INSERT INTO totalizador_reducao SELECT * FROM totalizador_reducao WHERE id_fiscal = 'S'"),
      Linhas{
          "totalizador_reducao[cont_crz=5,totalizador=01T18.00].totalizador: error counter-repeat E13 and "
          "E17: found 2 rows: two records have the same totalizer, or one where their amounts are the same "
          "too, expected one (leave one of the rows, or correct the counter)"});
  EXPECT_EQ(depoisDe("INSERT INTO meio_pagamento_reducao VALUES(5, 'DINHEIRO', 1)").size(), 1U);
  EXPECT_EQ(depoisDe("INSERT INTO meio_pagamento_reducao VALUES(4, 'DINHEIRO', 1)"), Linhas());
  const std::string outro = "INSERT INTO outros_documentos VALUES(14, ";
  EXPECT_EQ(depoisDe(outro + "1, 0, 0, 5, 'RG', '2024-01-05 12:00:00')").size(), 1U);
  EXPECT_EQ(depoisDe("UPDATE outros_documentos SET cont_gnf = 0;" + outro +
                     "0, 0, 0, 5, 'RG', '2024-01-05 12:00:00')"),
            Linhas());
  EXPECT_EQ(
      depoisDe("UPDATE outros_documentos SET cont_coo = 11"),
      Linhas{"outros_documentos[cont_coo=11].cont_coo: error counter-repeat E16: found a row of cupom_fiscal "
             "with the same counter: two records have the same counter, expected a counter of its own (leave "
             "one of the rows, or correct the counter)"});
}

TEST(Verificador, TheSumOfWhatIsNotFiscalIsHeldToItsField) {
  const std::string soma =
      "UPDATE totalizador_reducao SET valor_base_calculo = 60000000000 WHERE id_fiscal = 'N';"
      "INSERT INTO totalizador_reducao VALUES(5, 'OUTROS', ";
  EXPECT_EQ(
      depoisDe(soma + "40000000000, 'N')"),
      Linhas{
          "totalizador_reducao[cont_crz=5].valor_base_calculo: error number-wide E13.8 \"Valor "
          "acumulado\": found \"100000000000\", the sum of what is not fiscal, expected a sum of at most 11 "
          "digits before the point (correct it)"});
  EXPECT_EQ(depoisDe(soma + "39999999999.99, 'N')"), Linhas());
}

TEST(Verificador, CountersStoredAsBytesSortAsTextDoes) {
  EXPECT_EQ(depoisDe("UPDATE fita_detalhe SET cont_cfd = x'39';"
                     "INSERT INTO fita_detalhe VALUES(x'3131', '2024-01-07 10:00:00', 13, 14)"),
            Linhas{"fita_detalhe.cont_cfd: error text-order E10: found the texts \"9\" and \"11\", which are "
                   "sorted letter by letter, expected numbers, or texts of as many digits (store it as an "
                   "integer)"});
}

// E21 alone puts its records in the order of the COO.
TEST(Verificador, TheCooOfCouponsIsSortedByToo) {
  const char* const kTexto =
      "UPDATE cupom_fiscal SET cont_coo = '9'; UPDATE item_cupom_fiscal SET cont_coo = '9';"
      "UPDATE pagamento_cupom SET cont_coo = '9' WHERE cont_coo = 11;"
      "INSERT INTO cupom_fiscal SELECT 2, '11', cont_crz, data_hora_emissao, 0, 0, 0, 0, 'N', 0, '', '', "
      "NULL, "
      "NULL, NULL, NULL, '', '', '' FROM cupom_fiscal";
  EXPECT_EQ(
      depoisDe(kTexto),
      Linhas{"cupom_fiscal.cont_coo: error text-order E14, E15 and E21: found the texts \"9\" and \"11\", "
             "which are sorted letter by letter, expected numbers, or texts of as many digits (store it "
             "as an integer)"});
}

// SELECT * has generated columns too; a name may need quotation marks.
TEST(Verificador, ColumnsOfAnyKindAndNameAreRead) {
  EXPECT_EQ(depoisDe("DROP TABLE tentativas_sb; CREATE TABLE tentativas_sb(\"a\"\"b\", c, d);"
                     "INSERT INTO tentativas_sb VALUES(1, 'x', '2024-01-01 00:00:00')"),
            Linhas());
  EXPECT_EQ(depoisDe("ALTER TABLE moeda RENAME COLUMN simbolo_moeda TO s;"
                     "ALTER TABLE moeda ADD COLUMN simbolo_moeda AS (s)"),
            Linhas());
}

// id_fiscal is printed nowhere, and decides where its row goes.
TEST(Verificador, TheKindOfATotalizerDecidesWhichFieldItMustFit) {
  EXPECT_EQ(
      depoisDe("UPDATE totalizador_reducao SET id_fiscal = '' WHERE id_fiscal = 'S'"),
      Linhas{"totalizador_reducao[cont_crz=5,totalizador=01T18.00].id_fiscal: error flag-length E13 and E17: "
             "found \"\", which leaves the row out, expected one character (store one character)"});
  EXPECT_EQ(
      depoisDe("UPDATE totalizador_reducao SET totalizador = '01T18.001' WHERE id_fiscal = 'S'"),
      Linhas{
          "totalizador_reducao[cont_crz=5,totalizador=01T18.001].totalizador: warning text-cut E13.7 "
          "\"Totalizador parcial\": found \"01T18.001\", of which the first 7 bytes are written, expected at "
          "most 7 bytes (shorten it, so that what matters stands in front)"});
  EXPECT_EQ(
      depoisDe("UPDATE totalizador_reducao SET totalizador = 'SANGRIA 5678901' WHERE id_fiscal = 'N'"),
      Linhas{
          "totalizador_reducao[cont_crz=5,totalizador=SANGRIA 5678901].totalizador: warning text-cut E17.7 "
          "\"Totalizador não fiscal\": found \"SANGRIA 5678901\", of which the first 14 characters are "
          "written, expected at most 14 (shorten it, so that what matters stands in front)"});
}

TEST(Verificador, TheSampleIsClean) {
  const std::string modelo = (std::filesystem::temp_directory_path() / "verificadorXXXXXX").string();
  std::string pasta = modelo;
  ASSERT_NE(mkdtemp(pasta.data()), nullptr);
  OpcoesDaAmostra amostra;
  amostra.dias = 45;
  criaBancoDeAmostra(pasta + "/loja.db", amostra);
  sqlite3* banco = nullptr;
  ASSERT_EQ(sqlite3_open((pasta + "/loja.db").c_str(), &banco), SQLITE_OK);
  Junta junta;
  confereBanco(banco, {}, junta);
  EXPECT_EQ(junta.textos, Linhas());
  OpcoesDaConferencia periodo;
  periodo.de = "2024-01-10";
  periodo.ate = "2024-01-20";
  confereBanco(banco, periodo, junta);
  EXPECT_EQ(junta.textos, Linhas());
  sqlite3_close(banco);
  std::filesystem::remove_all(pasta);
}

}  // namespace
}  // namespace cotepe::testes
