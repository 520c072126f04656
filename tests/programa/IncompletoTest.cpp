// Queries that fail: reports that are incomplete (1) and printers without an identity (5).
#include "Cena.h"

namespace {

class Incompleto : public Cena {};

TEST_F(Incompleto, RegisterIsNamedAndNothingIsKept) {
  criaBanco("DROP TABLE moeda");
  const Fim fim = gera({"--output", "r.txt"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(semHora(fim.erros),
            "@ Erro no select 2 - TipoE06: no such table: moeda\n"
            "cotepe: error: the report is incomplete: E06 (no such table: moeda); --keep-partial keeps what "
            "there is; "
            "the temporary file was removed\n");
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(nomes(), std::vector<std::string>{"base.db"});
}

TEST_F(Incompleto, EveryRegisterConcernedIsNamed) {
  criaBanco("DROP TABLE moeda; ALTER TABLE cupom_fiscal RENAME COLUMN cont_ccf TO c");
  const Fim fim = gera({"--output", "r.txt", "--quiet", "--log", "falhas.log"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: the report is incomplete: E06 (no such table: moeda), E14 (no such column: "
      "cupom.cont_ccf), "
      "E15 (no such column: cupom.cont_ccf), E21 (no such column: cupom.cont_ccf); --keep-partial keeps what "
      "there is; the temporary file was removed\n");
  EXPECT_EQ(semHora(leArquivo(em("falhas.log"))),
            "@ Erro no select 2 - TipoE06: no such table: moeda\n"
            "@ Erro no select - TipoE14: no such column: cupom.cont_ccf\n"
            "@ Erro no select - TipoE15: no such column: cupom.cont_ccf\n"
            "@ Erro no select - TipoE21: no such column: cupom.cont_ccf\n");
}

TEST_F(Incompleto, GrandTotalThatCannotBeSoughtNamesE02ThoughNothingIsLogged) {
  criaBanco("ALTER TABLE reducao_z RENAME COLUMN valor_gt TO outra");
  const Fim fim = gera({"--output", "r.txt", "--command", "MF"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.erros,
            "cotepe: error: the report is incomplete: E02 (no such column: valor_gt); --keep-partial keeps "
            "what there "
            "is; the temporary file was removed\n");
  EXPECT_EQ(gera({"--output", "r.txt", "--command", "TDM"}).situacao, 0);
}

TEST_F(Incompleto, KeptPartIsNotUnderTheNameOfTheReport) {
  criaBanco("DROP TABLE moeda");
  const Fim fim = gera({"--output", "r.txt", "--command", "MF", "--keep-partial"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(semHora(fim.erros),
            "@ Erro no select 2 - TipoE06: no such table: moeda\n"
            "cotepe: error: the report is incomplete: E06 (no such table: moeda); what there is was kept as "
            "r.txt.partial\n");
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "r.txt.partial"}));
  const std::string parte = leArquivo(em("r.txt.partial"));
  EXPECT_NE(parte.find("\nE05"), std::string::npos);
  EXPECT_EQ(parte.find("\nE06"), std::string::npos);
  EXPECT_NE(parte.find("\nE07"), std::string::npos);
}

TEST_F(Incompleto, KeepPartialChangesNothingOfAWholeReport) {
  criaBanco();
  EXPECT_EQ(gera({"--output", "r.txt", "--keep-partial"}).situacao, 0);
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "r.txt"}));
}

TEST_F(Incompleto, PartialReportReplacesAnotherOnlyByForce) {
  criaBanco("DROP TABLE moeda");
  escreveArquivo(em("r.txt.partial"), "old");
  const Fim fim = gera({"--output", "r.txt", "--keep-partial"});
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot create the output r.txt.partial: the file exists; choose another --output, or "
      "--force to replace it\n");
  EXPECT_EQ(leArquivo(em("r.txt.partial")), "old");
  EXPECT_EQ(gera({"--output", "r.txt", "--keep-partial", "--force"}).situacao, 1);
  EXPECT_NE(leArquivo(em("r.txt.partial")), "old");
}

TEST_F(Incompleto, StdoutGetsNothing) {
  criaBanco("DROP TABLE moeda");
  const Fim fim = gera({"--output", "-", "--log", "falhas.log"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros,
            "cotepe: error: the report is incomplete: E06 (no such table: moeda); --keep-partial keeps what "
            "there is; "
            "nothing was written to stdout\n");
}

TEST_F(Incompleto, ValueThatBreaksAQueryHalfWayIsAFailureToo) {
  criaBanco(
      "DROP TABLE moeda; CREATE TABLE t(a); INSERT INTO t VALUES (1), (-9223372036854775808);"
      "CREATE VIEW moeda AS SELECT abs(a) AS data_hora_gravacao, 'R$' AS simbolo_moeda FROM t");
  const Fim fim = gera({"--output", "r.txt", "--log", "falhas.log"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.erros,
            "cotepe: error: the report is incomplete: E06 (integer overflow); --keep-partial keeps what "
            "there is; the "
            "temporary file was removed\n");
}

TEST_F(Incompleto, LogIsAppendedTo) {
  criaBanco("DROP TABLE moeda");
  escreveArquivo(em("falhas.log"), "before\n");
  EXPECT_EQ(gera({"--output", "r.txt", "--log", "falhas.log"}).situacao, 1);
  EXPECT_EQ(semHora(leArquivo(em("falhas.log"))),
            "before\n@ Erro no select 2 - TipoE06: no such table: moeda\n");
}

TEST_F(Incompleto, LogThatCannotBeWrittenIsTold) {
  criaBanco("DROP TABLE moeda");
  const Fim fim = gera({"--output", "r.txt", "--log", "/dev/full"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.erros,
            "cotepe: cannot write the log: No space left on device\n"
            "cotepe: error: the report is incomplete: E06 (no such table: moeda); --keep-partial keeps what "
            "there is; "
            "the temporary file was removed\n");
}

TEST_F(Incompleto, LogThatCannotBeOpenedGivesThree) {
  criaBanco();
  const Fim fim = gera({"--output", "r.txt", "--log", "nowhere/falhas.log"});
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros,
            "cotepe: error: cannot open the log nowhere/falhas.log: No such file or directory; choose "
            "another --log\n");
  EXPECT_EQ(nomes(), std::vector<std::string>{"base.db"});
}

TEST_F(Incompleto, PrinterWithoutIdentityGivesFive) {
  criaBanco("DROP TABLE dados_usuario");
  escreveArquivo(em("r.txt"), "old");
  const Fim fim = gera({"--output", "r.txt", "--force", "--keep-partial"});
  EXPECT_EQ(fim.situacao, 5);
  EXPECT_EQ(
      semHora(fim.erros),
      "@ Erro no select - GeraRegistrosTipoE: no such table: dados_usuario\ncotepe: error: cannot read the "
      "printer's identity in base.db: no such table: dados_usuario; a fiscal database has it in the "
      "tables dados_ecf and dados_usuario; the temporary file was removed\n");
  EXPECT_EQ(leArquivo(em("r.txt")), "old");
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "r.txt"}));
}

TEST_F(Incompleto, PrinterWithoutAColumnOfItsIdentityGivesFive) {
  criaBanco();
  for (const char* coluna :
       {"dados_ecf RENAME num_serie", "dados_ecf RENAME modelo", "dados_usuario RENAME seq_usuario"}) {
    Banco(em("base.db")).sql(std::string("ALTER TABLE ") + coluna + " TO outra");
    EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 5) << coluna;
    const std::string nome = coluna;
    const std::size_t fim = nome.find(" RENAME ");
    Banco(em("base.db"))
        .sql("ALTER TABLE " + nome.substr(0, fim) + " RENAME outra TO " + nome.substr(fim + 8));
  }
  EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
}

TEST_F(Incompleto, EmptyFileIsADatabaseWithoutIdentity) {
  escreveArquivo(em("base.db"), "");
  EXPECT_EQ(gera().situacao, 5);
  EXPECT_EQ(nomes(), std::vector<std::string>{"base.db"});
}

}  // namespace
