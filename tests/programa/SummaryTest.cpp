// cotepe summary: a report in sums.
#include "Cena.h"

namespace {

class Summary : public Cena {
 protected:
  Summary() {
    criaBanco(
        "INSERT INTO cupom_fiscal (cont_coo, cont_ccf, cont_crz, data_hora_emissao, valor_subtotal, "
        "valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado) VALUES"
        " (98, 1, 11, '2024-01-10 10:00:00', 1234.5, 4.5, 0, 1230, 0, 'N');"
        "INSERT INTO meio_pagamento VALUES (1, 'DINHEIRO');"
        "INSERT INTO pagamento_cupom VALUES (98, 1, 1230, 0, 'N')");
    EXPECT_EQ(gera({"--quiet", "--output", "r.txt"}).situacao, 0);
  }
};

TEST_F(Summary, PaymentsAreSummedAndCountersToldFromTo) {
  const Fim fim = roda({"summary", "r.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.erros, "");
  EXPECT_NE(fim.saida.find("r.txt: command TDM, layout 1, "), std::string::npos) << fim.saida;
  EXPECT_NE(fim.saida.find("  Means of payment  in reductions      paid  reversed\n"
                           "  DINHEIRO                   0,00  1.230,00      0,00\n"),
            std::string::npos)
      << fim.saida;
  EXPECT_NE(fim.saida.find("\n  CRZ 11-12, without gaps\n"), std::string::npos) << fim.saida;
  EXPECT_NE(fim.saida.find("\n  validate: "), std::string::npos) << fim.saida;
}

TEST_F(Summary, JsonIsAnObjectAReportWithCents) {
  const std::string json = roda({"summary", "--format", "json", "r.txt"}, pasta()).saida;
  EXPECT_EQ(json.find('\n'), json.size() - 1);
  EXPECT_NE(json.find(R"("payments":{"DINHEIRO":{"reductions":0,"paid":123000,"reversed":0}})"),
            std::string::npos)
      << json;
}

TEST_F(Summary, CsvHasARowADayOrMonth) {
  const std::string dias = roda({"summary", "--format", "csv", "r.txt"}, pasta()).saida;
  EXPECT_NE(dias.find("\nr.txt,2024-01-10,"), std::string::npos) << dias;
  EXPECT_NE(dias.find("\nr.txt,2024-01-11,"), std::string::npos) << dias;
  const std::string meses = roda({"summary", "--by-month", "--format", "csv", "r.txt"}, pasta()).saida;
  EXPECT_NE(meses.find("\nr.txt,2024-01,"), std::string::npos) << meses;
  EXPECT_EQ(meses.find("2024-01-1"), std::string::npos) << meses;
}

TEST_F(Summary, OfSeveralTheOnesThatCanBeReadAreSummedUp) {
  const Fim fim = roda({"summary", "--format", "csv", "nada.txt", "r.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_NE(fim.saida.find("\nr.txt,2024-01-10,"), std::string::npos) << fim.saida;
  EXPECT_EQ(fim.erros,
            "cotepe: error: cannot open the report nada.txt: No such file or directory\n"
            "cotepe: error: not all of the reports could be read\n");
}

TEST_F(Summary, TheUserIsHiddenWhenAsked) {
  const std::string json = roda({"summary", "--mask", "--format", "json", "r.txt"}, pasta()).saida;
  EXPECT_NE(json.find(R"("cnpj":"*)"), std::string::npos) << json;
}

}  // namespace
