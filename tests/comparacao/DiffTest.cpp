// cotepe diff as its users run it.
#include "Cena.h"
#include "Relatorio.h"

namespace {

class Diff : public Cena {
 protected:
  void SetUp() override {
    escreveArquivo(em("a.txt"), Relatorio::bom().texto());
    Relatorio outro = Relatorio::bom();
    outro.troca(20, 67, "00000000003000", "00000000003100");
    outro.troca(9, 131, "200000", "200001");
    escreveArquivo(em("b.txt"), outro.texto());
  }
};

TEST_F(Diff, EqualReportsEndWith0AndOneLine) {
  const Fim fim = roda({"diff", "a.txt", "a.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros, "cotepe: a.txt and a.txt: OK, the same records\n");
  EXPECT_EQ(roda({"diff", "--quiet", "a.txt", "a.txt"}, pasta()).erros, "");
}

TEST_F(Diff, ADifferenceEndsWith1) {
  const Fim fim = roda({"diff", "a.txt", "b.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida,
            "b.txt:20:67-80: error field E14.9 \"Subtotal\": found 31,00, expected 30,00 (CCF 31; line 20 of "
            "a.txt)\n"
            "1 error, 0 warnings\n");
  EXPECT_EQ(fim.erros, "cotepe: a.txt and b.txt differ\n");
}

TEST_F(Diff, TheStampIsAskedFor) {
  const Fim fim = roda({"diff", "--with-stamp", "--max-findings", "0", "a.txt", "b.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida.substr(0, 8), "2 errors");
}

TEST_F(Diff, JsonIsAnObjectALine) {
  const Fim fim = roda({"diff", "--format", "json", "a.txt", "b.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_NE(fim.saida.find(R"("file":"b.txt","line":20,)"), std::string::npos) << fim.saida;
  EXPECT_NE(fim.saida.find(R"("found":"31,00","expected":"30,00")"), std::string::npos) << fim.saida;
}

TEST_F(Diff, WhatCannotBeReadEndsWith2) {
  const Fim fim = roda({"diff", "a.txt", "none.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(fim.erros, "cotepe: error: cannot open the report none.txt: No such file or directory\n");
  const Fim duas = roda({"diff", "-", "-"}, pasta());
  EXPECT_EQ(duas.situacao, 2);
  EXPECT_EQ(duas.erros, "cotepe: error: A and B are both stdin; name one of the reports\n");
}

TEST_F(Diff, TheOrderOfRecordsCountsWhenAsked) {
  const std::string cabeca = "E07" + std::string(41, ' ');
  const std::string um = cabeca + "01.00.00  20220101\n", dois = cabeca + "01.00.01  20230101\n";
  escreveArquivo(em("x.txt"), um + dois);
  escreveArquivo(em("y.txt"), dois + um);
  EXPECT_EQ(roda({"diff", "x.txt", "y.txt"}, pasta()).situacao, 0);
  EXPECT_EQ(roda({"diff", "--with-order", "x.txt", "x.txt"}, pasta()).situacao, 0);
  const Fim fim = roda({"diff", "--with-order", "x.txt", "y.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.saida,
      "y.txt:2: error order E07: found the record out of its place, expected the order of x.txt (Versão "
      "do software básico 01.00.00; line 1 of x.txt)\n1 error, 0 warnings\n");
}

}  // namespace
