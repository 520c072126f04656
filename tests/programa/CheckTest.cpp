// cotepe check: exit statuses, formats and what is refused.
#include "Cena.h"

namespace {

class Check : public Cena {
 protected:
  void SetUp() override {
    ASSERT_EQ(roda({"sample", "--quiet", "--days", "2", "loja.db"}, pasta()).situacao, 0);
  }
  Fim checa(const std::vector<std::string>& mais) const {
    std::vector<std::string> argumentos = {"check", "--db", "loja.db"};
    argumentos.insert(argumentos.end(), mais.begin(), mais.end());
    return roda(argumentos, pasta());
  }
  void estraga() const { Banco(em("loja.db")).sql("DROP TABLE moeda; DROP TABLE codificacao_gt"); }
};

constexpr char kCodificacao[] =
    "loja.db: codificacao_gt: error table-missing E05: found no such table, without which the query fails, "
    "expected "
    "the table (create it; cotepe schema shows how)\n";

TEST_F(Check, ACleanDatabaseIsSaidToBeInOneLine) {
  const Fim fim = checa({});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros, "cotepe: loja.db: OK, 30 rules\n");
  EXPECT_EQ(checa({"--quiet"}).erros, "");
  EXPECT_EQ(checa({"--month", "01/2024"}).erros, "cotepe: loja.db: OK, 30 rules, 2024-01-01 to 2024-01-31\n");
  EXPECT_EQ(checa({"--from", "01012024", "--to", "2024-01-01", "--layout", "2", "--cat52"}).situacao, 0);
}

TEST_F(Check, FindingsArePrintedAndCounted) {
  estraga();
  const Fim fim = checa({"--max-findings", "1"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida, std::string(kCodificacao) +
                           "table-missing: ... and 1 more like this; --all shows them\n"
                           "2 errors, 0 warnings (1 shown)\n");
  EXPECT_EQ(fim.erros, "cotepe: loja.db: problems found; cotepe check --rules lists the rules\n");
}

TEST_F(Check, FindingsAreJsonToo) {
  estraga();
  EXPECT_EQ(
      checa({"--format", "json", "--max-findings", "1"}).saida,
      R"({"severity":"error","rule":"table-missing","file":"loja.db","table":"codificacao_gt",)"
      R"("register":"E05","found":"no such table, without which the query fails","expected":"the table",)"
      R"("fix":"create it; cotepe schema shows how"})"
      "\n"
      R"({"summary":{"errors":2,"warnings":0,"shown":1}})"
      "\n");
}

TEST_F(Check, WhatOtherReportsReadIsLeftOut) {
  estraga();
  EXPECT_EQ(checa({"--command", "RZ"}).situacao, 0);
  EXPECT_EQ(checa({"--disable", "table-missing"}).situacao, 0);
}

TEST_F(Check, WrongUsageIsRefused) {
  struct {
    std::vector<std::string> argumentos;
    const char* mensagem;
  } const kRecusas[] = {
      {{"check"}, "--db is missing; name a fiscal database"},
      {{"check", "--db", "loja.db", "--from", "01012024"}, "--to is missing; a period has two ends"},
      {{"check", "--db", "loja.db", "--from", "02012024", "--to", "01012024"},
       "--to 2024-01-01 is before --from 2024-01-02"},
      {{"check", "--db", "loja.db", "--disable", "line-en"},
       "--disable: unknown rule line-en; see cotepe check --rules"},
  };
  for (const auto& recusa : kRecusas) {
    const Fim fim = roda(recusa.argumentos, pasta());
    EXPECT_EQ(fim.situacao, 2);
    EXPECT_EQ(fim.erros, std::string("cotepe: error: ") + recusa.mensagem + "\n");
    EXPECT_EQ(fim.saida, "");
  }
}

TEST_F(Check, ADatabaseThatCannotBeOpenedIsStatus2) {
  EXPECT_EQ(roda({"check", "--db", "nenhum.db"}, pasta()).situacao, 2);
  escreveArquivo(em("texto.db"), "not a database, though long enough to be looked at as if it were one");
  EXPECT_EQ(roda({"check", "--db", "texto.db"}, pasta()).situacao, 2);
  const std::string ajuda = roda({"check", "--help"}).saida;
  EXPECT_NE(ajuda.find("Exit status: 0 nothing found, 1 findings, 2 could not run, 4 writing failed.\n"),
            std::string::npos);
}

TEST_F(Check, RulesAreListed) {
  const Fim fim = roda({"check", "--rules"}, pasta());
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida.rfind("table-missing      error    Every table that the registers read is there.\n", 0),
            0U);
}

}  // namespace
