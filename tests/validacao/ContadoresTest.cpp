// Counters in sequence: gaps over two registers, counters that begin again, and keys in their order.
#include <gtest/gtest.h>

#include "Relatorio.h"

namespace cotepe {
namespace {

using Achados = std::vector<std::string>;

const std::string kDocumentos = " (cotepe check looks for missing and repeated documents in the database)";

/// A record of E14 (its CCF) or E16 (its GNF), and its COO.
struct Documento {
  const char *registro, *contador, *coo;
};

// What the rule says of these records alone.
Achados achadosDe(const char* nome, const std::vector<Documento>& documentos) {
  const Relatorio bom = Relatorio::bom();
  Relatorio relatorio({});
  for (const Documento& documento : documentos) {
    const bool cupom = documento.registro == std::string("E14");
    Relatorio modelo = bom;
    const int linha = cupom ? 22 : 29;
    modelo.poe(linha, cupom ? 47 : 53, documento.contador);
    modelo.poe(linha, cupom ? 53 : 47, documento.coo);
    relatorio.insere(relatorio.quantas() + 1, modelo[linha]);
  }
  return achados(relatorio.texto(), menos({nome}));
}

TEST(Contadores, CouponsOutOfOrderCountAllTheSame) {
  EXPECT_EQ(achadosDe("counter-gap", {{"E14", "000031", "000102"},
                                      {"E14", "000032", "000100"},
                                      {"E14", "000033", "000105"},
                                      {"E16", "000000", "000101"},
                                      {"E16", "000000", "000104"}}),
            Achados{"r.txt:5:47-52: error counter-gap E16.6 \"COO\": found no document with COO \"000103\", "
                    "expected it in E14 or E16" +
                    kDocumentos});
}

TEST(Contadores, ACouponOutOfOrderTakesItsPlaceBehindTheSmallerOnes) {
  EXPECT_EQ(achadosDe("counter-gap", {{"E14", "000031", "000100"},
                                      {"E14", "000032", "000103"},
                                      {"E14", "000033", "000101"},
                                      {"E16", "000000", "000104"}}),
            Achados{"r.txt:4:47-52: error counter-gap E16.6 \"COO\": found no document with COO \"000102\", "
                    "expected it in E14 or E16" +
                    kDocumentos});
}

TEST(Contadores, GapBehindTheLastDocumentIsOneOfTheFile) {
  EXPECT_EQ(
      achadosDe("counter-gap",
                {{"E14", "000031", "000102"}, {"E14", "000032", "000105"}, {"E16", "000000", "000101"}}),
      Achados{
          "r.txt: error counter-gap E14: found no document with COO \"000103\" to \"000104\", expected it "
          "in E14 or E16" +
          kDocumentos});
}

TEST(Contadores, WhereTheCooBeginsAgainNothingIsMissing) {
  EXPECT_EQ(
      achadosDe("counter-gap",
                {{"E14", "000031", "999990"}, {"E14", "000032", "000003"}, {"E16", "000000", "999992"}}),
      Achados());
  EXPECT_EQ(achadosDe("counter-gap", {{"E16", "000000", "999990"}, {"E16", "000000", "000003"}}), Achados());
}

TEST(Contadores, ACooThatGoesBackElsewhereDoesNotBeginAgain) {
  for (const char* primeiro : {"500000", "999999"}) {
    const char* const segundo = primeiro[0] == '5' ? "499998" : "999997";
    EXPECT_EQ(achadosDe("counter-gap", {{"E14", "000031", primeiro}, {"E14", "000032", segundo}}).size(), 1U);
  }
  EXPECT_EQ(achadosDe("counter-gap", {{"E16", "000000", "500000"}, {"E16", "000000", "000003"}}), Achados());
}

TEST(Contadores, BehindACooThatCannotBeReadNothingIsMissing) {
  EXPECT_EQ(
      achadosDe("counter-gap",
                {{"E16", "000000", "000101"}, {"E16", "000000", "00010x"}, {"E16", "000000", "000109"}}),
      Achados());
}

TEST(Contadores, GnfIsUsedOnce) {
  EXPECT_EQ(
      achadosDe("counter-repeat", {{"E16", "000052", "000104"}, {"E16", "000052", "000105"}}),
      Achados{"r.txt:2:53-58: error counter-repeat E16.7 \"GNF\": found \"000052\" a second time, expected "
              "each counter once" +
              kDocumentos});
}

TEST(Contadores, KeysAscendUntilTheyBeginAgain) {
  const std::string ordem = " (where counters are stored as texts 9 comes after 11; cotepe check tells)";
  EXPECT_EQ(achadosDe("key-order", {{"E14", "999990", "000101"}, {"E14", "000002", "000102"}}), Achados());
  EXPECT_EQ(
      achadosDe("key-order", {{"E14", "999990", "000101"}, {"E14", "500000", "000102"}}),
      Achados{"r.txt:2:47-52: error key-order E14.6 \"CCF\": found \"500000\" after \"999990\", expected "
              "ascending keys" +
              ordem});
  EXPECT_EQ(achadosDe("key-order", {{"E14", "500000", "000101"}, {"E14", "000002", "000102"}}).size(), 1U);
}

}  // namespace
}  // namespace cotepe
