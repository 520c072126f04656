// cotepe show: the records of a period.
#include "Cena.h"

namespace {

using Show = Cena;

TEST_F(Show, ItemsAndPaymentsOfADayGoWithTheirCoupons) {
  criaBanco(
      "INSERT INTO cupom_fiscal (cont_coo, cont_ccf, cont_crz, data_hora_emissao, valor_subtotal, "
      "valor_desconto,"
      " valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado) VALUES"
      " (98, 1, 11, '2024-01-10 10:00:00', 1, 0, 0, 1, 0, 'N'), (99, 2, 12, '2024-01-11 10:00:00', 2, 0, 0, "
      "2, 0,"
      " 'N');"
      "INSERT INTO meio_pagamento VALUES (1, 'DINHEIRO');"
      "INSERT INTO pagamento_cupom VALUES (98, 1, 1, 0, 'N'), (99, 1, 2, 0, 'N');"
      "INSERT INTO item_cupom_fiscal VALUES (98, 1, 'A', 'ARROZ', 1, 'UN', 1, 0, 0, 1, 0, '01T1800', 'N', "
      "'A', 2, 2,"
      " 0, 0), (99, 1, 'B', 'BANANA', 1, 'UN', 2, 0, 0, 2, 0, '01T1800', 'N', 'A', 2, 2, 0, 0)");
  ASSERT_EQ(gera({"--quiet", "--output", "r.txt"}).situacao, 0);
  const auto mostra = [&](const char* registro) {
    return roda({"show", "r.txt", "--from", "11012024", "--to", "2024-01-11", "--register", registro,
                 "--table"},
                pasta())
        .saida;
  };
  const std::string itens = mostra("E15"), pagamentos = mostra("E21");
  EXPECT_NE(itens.find("BANANA"), std::string::npos) << itens;
  EXPECT_EQ(itens.find("ARROZ"), std::string::npos) << itens;
  EXPECT_NE(pagamentos.find("000099"), std::string::npos) << pagamentos;
  EXPECT_EQ(pagamentos.find("000098"), std::string::npos) << pagamentos;
}

TEST_F(Show, HelpSaysWhatBelongsToAPeriod) {
  EXPECT_NE(
      roda({"show", "--help"})
          .saida.find("With --from or --to a record without a date goes with what it is a part of: E13, E17 "
                      "and E18 with their\nreduction, E15 with its coupon, E20 with its non-fiscal coupon, "
                      "E21 with either. E08 goes with nothing.\n"),
      std::string::npos);
}

class ShowErrado : public Cena {
 protected:
  ShowErrado() { escreveArquivo(em("r.txt"), "E01\nE02\n"); }

  void recusa(std::vector<std::string> opcoes, const std::string& mensagem) {
    opcoes.insert(opcoes.begin(), {"show", "r.txt"});
    const Fim fim = roda(opcoes, pasta());
    EXPECT_EQ(fim.situacao, 2) << mensagem;
    EXPECT_EQ(fim.erros, "cotepe: error: " + mensagem + "\n");
    EXPECT_EQ(fim.saida, "") << mensagem;
  }
};

TEST_F(ShowErrado, LineThatTheReportHasNotIsRefused) {
  recusa({"--line", "3"}, "r.txt:3: the report has only 2 lines");
  EXPECT_EQ(roda({"show", "r.txt", "--line", "2"}, pasta()).situacao, 0);
}

TEST_F(ShowErrado, PeriodThatEndsBeforeItBeginsIsRefused) {
  recusa({"--from", "02012024", "--to", "2024-01-01"}, "--to 2024-01-01 is before --from 2024-01-02");
}

TEST_F(ShowErrado, TableIsOfTextAlone) {
  recusa({"--table", "--format", "csv"}, "--table and --format csv contradict each other; give one of them");
}

TEST_F(ShowErrado, FolderIsNoReport) {
  for (const std::vector<std::string>& comando : std::vector<std::vector<std::string>>{
           {"show", "."}, {"validate", "."}, {"diff", ".", "r.txt"}, {"explain", ".:1"}}) {
    const Fim fim = roda(comando, pasta());
    EXPECT_EQ(fim.situacao, 2) << comando[0];
    EXPECT_EQ(fim.erros, "cotepe: error: cannot open the report .: it is a folder\n");
    EXPECT_EQ(fim.saida, "") << comando[0];
  }
}

}  // namespace
