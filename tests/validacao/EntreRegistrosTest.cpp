// What registers say of each other: wrong values that break a rule in a way of their own, and lines that
// cannot be read, of which nothing is concluded.
#include <gtest/gtest.h>

#include "Relatorio.h"

namespace cotepe {
namespace {

using Achados = std::vector<std::string>;

const std::string kBanco = " (cotepe explain --db shows the rows behind it)";
const std::string kDocumentos = " (cotepe check looks for missing and repeated documents in the database)";
const std::string kGere = " (cotepe verify compares it with the database)";

TEST(EntreRegistros, ReductionIsNotIssuedBeforeItsDay) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(10, 73, "20240102", "20240101");
  EXPECT_EQ(achados(relatorio.texto()),
            Achados{"r.txt:10:73-80: warning date-backwards E12.10 \"Data de emissão\": found \"20240101\", "
                    "expected no day before \"20240102\"" +
                    kBanco});
}

TEST(EntreRegistros, AmountsAreToldAsTheCountryWritesThem) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(2, 253, "000000000000104500", "000000000123456789");
  relatorio.troca(9, 105, "000000000000104500", "000000000123456789");
  relatorio.troca(10, 87, "00000000003800", "00000123456789");
  EXPECT_EQ(achados(relatorio.texto()),
            (Achados{"r.txt:10:87-100: error reduction-totals E12.12 \"Venda bruta diária\": found "
                     "1.234.567,89, expected 38,00, the sum of E13" +
                         kBanco,
                     "r.txt:2:253-270: error grand-total E02.12 \"Totalizador geral (GT)\": found "
                     "1.234.567,89, expected no less than 1.234.574,89, the gross sales of E12" +
                         kBanco}));
}

TEST(EntreRegistros, GrandTotalOfThePositionIsNoLessThanTheUsers) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(2, 253, "000000000000104500", "000000000000104501");
  EXPECT_EQ(achados(relatorio.texto()),
            Achados{"r.txt:9:105-122: error grand-total E11.15 \"Totalizador geral (GT)\": found "
                    "\"000000000000104500\", expected no less than \"000000000000104501\" as in E02" +
                    kBanco});
}

TEST(EntreRegistros, OfAGrandTotalCoveredByTheDateTheLeadingDigitsCount) {
  Relatorio relatorio = Relatorio::bom(2);
  relatorio.troca(2, 253, "000000000000104500", "000000999999999999");
  EXPECT_EQ(achados(relatorio.texto()), Achados());
  relatorio.poe(2, 253, "000001000000000000");
  EXPECT_EQ(achados(relatorio.texto()),
            Achados{"r.txt:9:117-122: error grand-total E11.15 \"Totalizador geral (GT)\": found \"000000\", "
                    "expected no less than \"000001\" as in E02" +
                    kBanco});
}

TEST(EntreRegistros, AttemptsOfTheSoftwareBelongToLayout2) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(48, "E22SERIAL              MODELO              000120230615");
  EXPECT_EQ(
      achados(relatorio.texto()),
      Achados{"r.txt:48: error register-extra E22: found a line of E22, expected none in layout 1 with the "
              "command \"TDM\"" +
              kGere});
}

// Without the three last texts of E14 and without a placeholder.
Relatorio emCat52() {
  Relatorio relatorio = Relatorio::bom(2);
  for (int linha = 1; linha <= relatorio.quantas(); ++linha)
    if (relatorio[linha].substr(0, 3) == "E14")
      relatorio[linha].resize(relatorio[linha].size() - 560 - 84 - 44);
  return relatorio;
}

TEST(EntreRegistros, InCat52ModeAnEmptyRegisterHasNoPlaceholder) {
  Relatorio relatorio = emCat52();
  EXPECT_EQ(achados(relatorio.texto()), Achados());
  relatorio.remove(38);
  relatorio.remove(37);
  relatorio[36] = relatorio[36].substr(0, 46) + "000000" + std::string(15, ' ') + std::string(13, '0');
  EXPECT_EQ(
      achados(relatorio.texto()),
      Achados{"r.txt:36: error placeholder E18: found a placeholder in CAT52 mode, expected no line of an "
              "empty register" +
              kGere});
}

TEST(EntreRegistros, InCat52ModeTheSumsOfE13HaveTheirPlaceholderAllTheSame) {
  Relatorio relatorio = emCat52();
  relatorio.remove(38);
  relatorio.remove(37);
  relatorio[36] = relatorio[36].substr(0, 46) + "000000" + std::string(15, ' ') + std::string(13, '0');
  relatorio.remove(19);
  relatorio[18] = relatorio[18].substr(0, 46) + "000000OPNF   0000000000000";
  EXPECT_EQ(
      achados(relatorio.texto(), menos({"placeholder"})),
      Achados{"r.txt:35: error placeholder E18: found a placeholder in CAT52 mode, expected no line of an "
              "empty register" +
              kGere});
}

TEST(EntreRegistros, CooOfACouponIsNotThatOfAnotherDocument) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(29, relatorio[29]);
  relatorio.troca(29, 47, "000104000052", "000103000000");
  EXPECT_EQ(
      achados(relatorio.texto()),
      Achados{"r.txt:29:47-52: error counter-repeat E16.6 \"COO\": found \"000103\", which E14 has too, "
              "expected each COO once" +
              kDocumentos});
}

TEST(EntreRegistros, ReductionWithoutItsNumberSaysNothingOfItsTotals) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(10, 47, "000010", "00001-");
  relatorio.troca(1, 116, "000010", "00001-");
  relatorio.troca(12, 60, "0000000003400", "0000000003401");
  EXPECT_EQ(
      achados(relatorio.texto()),
      (Achados{
          "r.txt:1:116-121: error field-digits E01.13 \"CRZ inicial\": found \"00001-\", expected 6 "
          "digits" +
              kBanco,
          "r.txt:10:47-52: error field-digits E12.6 \"CRZ\": found \"00001-\", expected 6 digits" + kBanco}));
}

struct Ilegivel {
  int linha, posicao;
  const char *de, *para, *dito;
};

TEST(EntreRegistros, OfANumberThatCannotBeReadNothingIsConcluded) {
  for (const Ilegivel& caso : {
           Ilegivel{12, 47, "000010", "0000-0",
                    "12:47-52: error field-digits E13.6 \"CRZ\": found \"0000-0\", "
                    "expected 6 digits"},
           Ilegivel{
               12, 60, "0000000003400", "000000000340-",
               "12:60-72: error field-digits E13.8 \"Valor acumulado\": found \"000000000340-\", expected 13 "
               "digits"},
           Ilegivel{
               18, 60, "0000000001200", "000000000120-",
               "18:60-72: error field-digits E13.8 \"Valor acumulado\": found \"000000000120-\", expected 13 "
               "digits"},
           Ilegivel{
               34, 68, "0000000001200", "000000000120-",
               "34:68-80: error field-digits E17.8 \"Valor acumulado\": found \"000000000120-\", expected 13 "
               "digits"},
           Ilegivel{34, 47, "000010", "0000-0",
                    "34:47-52: error field-digits E17.6 \"CRZ\": found \"0000-0\", "
                    "expected 6 digits"},
           Ilegivel{23, 47, "000102", "00010-",
                    "23:47-52: error field-digits E15.6 \"COO\": found \"00010-\", "
                    "expected 6 digits"},
           Ilegivel{23, 53, "000031", "00003-",
                    "23:53-58: error field-digits E15.7 \"CCF\": found \"00003-\", "
                    "expected 6 digits"},
           Ilegivel{43, 47, "000102", "00010-",
                    "43:47-52: error field-digits E21.6 \"COO\": found \"00010-\", "
                    "expected 6 digits"},
           Ilegivel{43, 53, "000031", "00003-",
                    "43:53-58: error field-digits E21.7 \"CCF\": found \"00003-\", "
                    "expected 6 digits"},
           Ilegivel{46, 59, "000052", "00005-",
                    "46:59-64: error field-digits E21.8 \"GNF\": found \"00005-\", "
                    "expected 6 digits"},
           Ilegivel{
               45, 80, "0000000000500", "000000000050-",
               "45:80-92: error field-digits E21.10 \"Valor pago\": found \"000000000050-\", expected 13 "
               "digits"},
       }) {
    Relatorio relatorio = Relatorio::bom();
    relatorio.troca(caso.linha, caso.posicao, caso.de, caso.para);
    EXPECT_EQ(achados(relatorio.texto()), Achados{"r.txt:" + std::string(caso.dito) + kBanco}) << caso.dito;
  }
}

}  // namespace
}  // namespace cotepe
