// The command line: help, version, and what is refused before a file is touched.
#include <filesystem>

#include "Cena.h"

namespace {

constexpr char kSituacoes[] =
    "Exit status:\n"
    "  0  done\n"
    "  1  incomplete, the registers concerned are named; or findings\n"
    "  2  wrong usage\n"
    "  3  the database or the output cannot be opened\n"
    "  4  writing failed\n"
    "  5  the identity query failed\n"
    "  6  nothing can be told of the signature\n"
    "  128 and the signal's number: interrupted\n";

bool contem(const std::string& texto, const std::string& parte) {
  return texto.find(parte) != std::string::npos;
}

struct Recusa {
  std::vector<std::string> argumentos;
  const char* mensagem;
};

class Uso : public Cena {
 protected:
  void recusa(const std::vector<Recusa>& recusas) {
    for (const Recusa& recusada : recusas) {
      const Fim fim = roda(recusada.argumentos, pasta());
      EXPECT_EQ(fim.situacao, 2) << recusada.mensagem;
      EXPECT_EQ(fim.erros, std::string("cotepe: error: ") + recusada.mensagem + "\n");
      EXPECT_EQ(fim.saida, "");
    }
  }
};

TEST_F(Uso, HelpNamesEveryCommandAndEveryExitStatus) {
  const Fim fim = roda({"--help"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.erros, "");
  for (const char* comando : {"generate", "sample", "schema", "layout"})
    EXPECT_TRUE(contem(fim.saida, std::string("\n  ") + comando + " ")) << comando;
  EXPECT_TRUE(contem(fim.saida, kSituacoes)) << fim.saida;
}

TEST_F(Uso, HelpOfACommandNamesItsOptionsAndEveryExitStatus) {
  const Fim fim = roda({"generate", "--help"});
  EXPECT_EQ(fim.situacao, 0);
  for (const char* opcao :
       {"--db", "--from", "--to", "--command", "--layout", "--cat52", "--output", "--serial", "--model",
        "--type", "--sb-version", "--log", "--quiet", "--force", "--keep-partial", "--busy-timeout MS"})
    EXPECT_TRUE(contem(fim.saida, std::string("\n  ") + opcao)) << opcao;
  EXPECT_TRUE(contem(fim.saida, kSituacoes));
  for (const char* comando : {"sample", "schema", "layout"})
    EXPECT_TRUE(contem(roda({comando, "--help"}).saida, kSituacoes)) << comando;
}

// What follows the name of a rule is not one too: here it is the report, which is not there.
TEST_F(Uso, DisableTakesOneRuleAndLeavesTheReport) {
  const Fim fim = roda({"validate", "--disable", "line-end", "none.txt"});
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_NE(fim.erros.find("none.txt"), std::string::npos) << fim.erros;
}

TEST_F(Uso, VersionIsOneLine) {
  const Fim fim = roda({"--version"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida, "cotepe 0.1.0\n");
  EXPECT_EQ(fim.erros, "");
}

TEST_F(Uso, CommandLinesThatCannotBeReadAreRefused) {
  recusa({
      {{}, "a command is missing; see cotepe --help"},
      {{"print"}, "unknown command print; see cotepe --help"},
      {{"genrate"}, "unknown command genrate (did you mean generate?); see cotepe --help"},
      {{"help", "shw"}, "unknown command shw (did you mean show?); see cotepe --help"},
      {{"--what"}, "unknown option --what; see cotepe --help"},
      {{"schema", "x"}, "unexpected argument x; see cotepe schema --help"},
      {{"generate", "--from", "01012024", "--to", "01012024"}, "--db is missing; see cotepe generate --help"},
      {generate({"--what"}), "unknown option --what; see cotepe generate --help"},
      {generate({"--out", "r.txt"}),
       "unknown option --out (did you mean --output?); see cotepe generate --help"},
      {generate({"--quiet=yes"}), "--quiet takes no value; see cotepe generate --help"},
      {generate({"--serial"}), "--serial needs a value; see cotepe generate --help"},
      {generate({"--db", "outro.db"}), "--db is given twice; see cotepe generate --help"},
      {generate({"--layout", "3"}), "--layout: 3 is none of 1, 2; see cotepe generate --help"},
      {generate({"--command", "MTF"}),
       "--command: MTF is none of MF, MFD, TDM, RZ (did you mean MF?); see cotepe generate --help"},
      {generate({"--busy-timeout", "-1"}),
       "--busy-timeout: -1 is not a number from 0 to 86400000; see cotepe generate --help"},
      {generate({"--output", ""}), "--output: empty name; see cotepe generate --help"},
      {{"layout", "--format", "xml"},
       "--format: xml is none of text, markdown, json; see cotepe layout --help"},
      {{"layout", "E9"},
       "REGISTER: E9 is not a register; they are E01 to E22 (did you mean E09?); see cotepe layout --help"},
      {{"sample"}, "FILE is missing; see cotepe sample --help"},
      {{"sample", "s.db", "--days", "0"},
       "--days: 0 is not a number from 1 to 36500; see cotepe sample --help"},
      {{"sample", "s.db", "--coupons-per-day", "1000001"},
       "--coupons-per-day: 1000001 is not a number from 1 to 1000000; see cotepe sample --help"},
      {{"show", "r.txt", "--line", "0"}, "--line: 0 is not a number from 1 on; see cotepe show --help"},
      {{"show", "r.txt", "--coo", "1.5"}, "--coo: 1.5 is not a number from 0 on; see cotepe show --help"},
      {{"show", "r.txt", "--crz", "99999999999999999999"},
       "--crz: 99999999999999999999 is not a number from 0 on; see cotepe show --help"},
      {{"check", "--db", "b", "--max-findings", "-1"},
       "--max-findings: -1 is not a number from 0 on; see cotepe check --help"},
      {{"validate", "r.txt", "--max-findings", "x"},
       "--max-findings: x is not a number from 0 on; see cotepe validate --help"},
      {{"diff", "a.txt", "b.txt", "--max-findings", ""},
       "--max-findings: nothing is not a number from 0 on; see cotepe diff --help"},
      {{"sample", "s.db", "--seed", "-1"}, "--seed: -1 is not a number from 0 on; see cotepe sample --help"},
  });
  EXPECT_EQ(nomes(), std::vector<std::string>{});
}

TEST_F(Uso, DaysMustExistAndBeInOrder) {
  const auto dias = [](const char* de, const char* ate) {
    return std::vector<std::string>{"generate", "--db", "base.db", "--from", de, "--to", ate};
  };
  recusa({
      {dias("31022024", "01032024"),
       "--from: 31022024 is not a day; write it as DD/MM/YYYY or YYYY-MM-DD; see cotepe generate --help"},
      {dias("01022024", "2024-02-30"),
       "--to: 2024-02-30 is not a day; write it as DD/MM/YYYY or YYYY-MM-DD; see cotepe generate --help"},
      {dias("2024-02-02", "01022024"), "--to 2024-02-01 is before --from 2024-02-02"},
      {{"generate", "--db", "b", "--to", "01/01/2024"}, "--from is missing; a period has two ends"},
      {{"generate", "--db", "b", "--from", "01/01/2024"}, "--to is missing; a period has two ends"},
      {{"generate", "--db", "b"}, "the period is missing; give --from and --to, --day or --month"},
      {{"generate", "--db", "b", "--day", "01/01/2024", "--to", "02/01/2024"},
       "--day and --to contradict each other; give one of them"},
      {{"generate", "--db", "b", "--month", "13/2024"},
       "--month: 13/2024 is not a month; write it as YYYY-MM or MM/YYYY; see cotepe generate --help"},
      {{"sample", "s.db", "--start", "2023-02-29"},
       "--start: 2023-02-29 is not a day; write it as DD/MM/YYYY or YYYY-MM-DD; see cotepe sample --help"},
      {{"sample", "s.db", "--start", "31121899"},
       "--start 1899-12-31: a sample begins in a year from 1900 to 9899"},
      {{"sample", "s.db", "--start", "01019900"},
       "--start 9900-01-01: a sample begins in a year from 1900 to 9899"},
  });
}

TEST_F(Uso, TextsThatWouldNotFitARecordAreRefused) {
  recusa({
      {generate({"--serial", "123456789012345678901"}), "--serial has 21 characters; the field takes 20"},
      {generate({"--model", "A\nB"}), "--model has a character that is not printable ASCII"},
      {generate({"--type", "12345678"}), "--type has 8 characters; the field takes 7"},
      {generate({"--sb-version", "ç"}), "--sb-version has a character that is not printable ASCII"},
  });
}

TEST_F(Uso, StdoutKeepsNoPartialReport) {
  recusa({{generate({"--output", "-", "--keep-partial"}),
           "--keep-partial needs a file to keep, and --output - is none"}});
}

TEST_F(Uso, NothingIsWrittenOverTheDatabase) {
  criaBanco();
  ASSERT_EQ(symlink("base.db", em("elo.db").c_str()), 0);
  ASSERT_EQ(link(em("base.db").c_str(), em("outro.db").c_str()), 0);
  const std::string antes = leArquivo(em("base.db"));
  for (const std::string nome :
       {"base.db", "./base.db", "elo.db", "outro.db", "base.db-wal", "base.db-shm", "./base.db-journal"}) {
    const std::string resto =
        " " + nome + " would overwrite the database or a file of it; choose another name";
    recusa({{generate({"--force", "--output", nome}), ("--output" + resto).c_str()},
            {generate({"--output", "r.txt", "--log", nome}), ("--log" + resto).c_str()}});
  }
  recusa(
      {{{"generate", "--db", "elo.db", "--from", "01012024", "--to", "01012024", "--output", "base.db-wal"},
        "--output base.db-wal would overwrite the database or a file of it; choose another name"}});
  EXPECT_EQ(leArquivo(em("base.db")), antes);
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "elo.db", "outro.db"}));
}

TEST_F(Uso, PartialReportIsNotWrittenOverTheDatabaseEither) {
  criaBanco();
  std::filesystem::rename(em("base.db"), em("r.txt.partial"));
  recusa({{{"generate", "--db", "r.txt.partial", "--from", "01012024", "--to", "01012024", "--output",
            "r.txt", "--force"},
           "--output r.txt.partial would overwrite the database or a file of it; choose another name"},
          {generate({"--output", "r.txt", "--log", "r.txt.partial"}),
           "--log r.txt.partial is the output too; choose another name"}});
}

TEST_F(Uso, StdoutMustNotBeTheDatabase) {
  criaBanco();
  const std::string antes = leArquivo(em("base.db"));
  const Fim fim =
      Processo(generate({"--output", "-"})).naPasta(pasta()).comSaidaEm(em("base.db")).inicia().espera();
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(fim.erros, "cotepe: error: --output -: stdout goes into the database; send it elsewhere\n");
  EXPECT_EQ(leArquivo(em("base.db")), antes);
}

TEST_F(Uso, LogAndReportAreTwoFiles) {
  criaBanco();
  recusa({{generate({"--output", "r.txt", "--log", "./r.txt"}),
           "--log ./r.txt is the output too; choose another name"}});
  EXPECT_EQ(nomes(), std::vector<std::string>{"base.db"});
}

TEST_F(Uso, OutputOfHelpAndSchemaThatIsNotTakenGivesFour) {
  for (const char* argumento : {"--help", "--version", "schema", "layout"}) {
    const Fim fim = Processo({argumento}).comSaidaEm("/dev/full").inicia().espera();
    EXPECT_EQ(fim.situacao, 4) << argumento;
    EXPECT_EQ(fim.erros, "cotepe: error: cannot write to stdout: No space left on device\n");
  }
}

}  // namespace
