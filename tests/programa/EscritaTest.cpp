// The output as it may be found, and disks that fail: an existing file stays, and no temporary file does.
#include <csignal>
#include <filesystem>

#include "Cena.h"

namespace fs = std::filesystem;

namespace {

using Nomes = std::vector<std::string>;

constexpr char kExiste[] =
    "cotepe: error: cannot create the output r.txt: the file exists; choose another --output, or --force to "
    "replace "
    "it";

class Escrita : public Cena {
 protected:
  Escrita() { criaBanco(); }

  void recusa(const std::vector<std::string>& opcoes, const std::string& mensagem) {
    const Fim fim = gera(opcoes);
    EXPECT_EQ(fim.situacao, 3) << fim.erros;
    EXPECT_EQ(fim.erros,
              "cotepe: error: cannot create the output " + mensagem + "; choose another --output\n");
  }
};

TEST_F(Escrita, ExistingFileIsNotReplaced) {
  escreveArquivo(em("r.txt"), "old");
  const Fim fim = gera({"--output", "r.txt"});
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros, std::string(kExiste) + "\n");
  EXPECT_EQ(leArquivo(em("r.txt")), "old");
  EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
}

TEST_F(Escrita, OnlyARegularFileIsEverReplaced) {
  fs::create_symlink("base.db", em("elo"));
  fs::create_directory(em("sub"));
  recusa({"--output", "sub", "--force"}, "sub: it is a folder");
  recusa({"--output", "sub/", "--force"}, "sub/: it is the name of a folder");
  recusa({"--output", "/dev/null", "--force"}, "/dev/null: it is not a regular file");
  fs::create_symlink("nowhere", em("solto"));
  recusa({"--output", "solto", "--force"}, "solto: it is not a regular file");
  recusa({"--output", "fora/r.txt"}, "fora/r.txt: No such file or directory");
  recusa({"--output", "base.db/r.txt"}, "base.db/r.txt: Not a directory");
  EXPECT_EQ(nomes(), (Nomes{"base.db", "elo", "solto", "sub"}));
}

TEST_F(Escrita, FolderThatCannotBeWrittenGivesThree) {
  fs::permissions(pasta(), fs::perms::group_write | fs::perms::others_write | fs::perms::owner_write,
                  fs::perm_options::remove);
  const Fim fim =
      Processo(generate({"--output", "r.txt"})).naPasta(pasta()).semPrivilegios().inicia().espera();
  fs::permissions(pasta(), fs::perms::all);
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_NE(fim.erros.find(": Permission denied; choose another --output"), std::string::npos) << fim.erros;
}

TEST_F(Escrita, FullDiskGivesFourAndKeepsTheOldFile) {
  escreveArquivo(em("r.txt"), "old");
  Processo processo(generate({"--output", "r.txt", "--force"}));
  const Fim fim = processo.naPasta(pasta()).comLimiteDeArquivo(1000).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot write r.txt: File too large; free some space and try again; the temporary file "
      "was removed\n");
  EXPECT_EQ(leArquivo(em("r.txt")), "old");
  EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
}

TEST_F(Escrita, FullTemporaryFolderGivesFourBeforeStdoutGetsAByte) {
  Processo processo(generate({"--output", "-"}));
  const Fim fim = processo.naPasta(pasta()).comLimiteDeArquivo(1000).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros,
            "cotepe: error: cannot write stdout: File too large; free some space and try again; nothing was "
            "written "
            "to stdout\n");
}

TEST_F(Escrita, TemporaryFolderThatIsMissingGivesThree) {
  Processo processo(generate({"--output", "-"}));
  const Fim fim = processo.naPasta(pasta()).comAmbiente("TMPDIR", "/nowhere").inicia().espera();
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot create a temporary file in /nowhere: No such file or directory; set TMPDIR to a "
      "folder where files can be created\n");
}

TEST_F(Escrita, StdoutLeavesNothingInTheTemporaryFolder) {
  fs::create_directory(em("tmp"));
  Processo processo(generate({"--output", "-"}));
  EXPECT_EQ(processo.naPasta(pasta()).comAmbiente("TMPDIR", em("tmp")).inicia().espera().situacao, 0);
  EXPECT_TRUE(fs::is_empty(em("tmp")));
}

TEST_F(Escrita, FullStdoutGivesFour) {
  const Fim fim =
      Processo(generate({"--output", "-"})).naPasta(pasta()).comSaidaEm("/dev/full").inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(fim.erros,
            "cotepe: error: cannot write to stdout: No space left on device; what stdout got is not whole\n");
}

TEST_F(Escrita, ReaderThatGoesAwayEndsItSilently) {
  const Fim fim = Processo(generate({"--output", "-"})).naPasta(pasta()).semLeitorDaSaida().inicia().espera();
  EXPECT_EQ(fim.situacao, 128 + SIGPIPE);
  EXPECT_EQ(fim.sinal, 0);
  EXPECT_EQ(fim.erros, "");
}

TEST_F(Escrita, ClosedStdoutGivesFourAndNoOtherFileTakesItsPlace) {
  const std::string antes = leArquivo(em("base.db"));
  Processo processo(generate({"--output", "-", "--log", "falhas.log"}));
  const Fim fim = processo.naPasta(pasta()).semSaida().inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_NE(fim.erros.find("cannot write to stdout: Bad file descriptor"), std::string::npos) << fim.erros;
  EXPECT_EQ(leArquivo(em("base.db")), antes);
  EXPECT_EQ(leArquivo(em("falhas.log")), "");
}

TEST_F(Escrita, DiskThatFailsToTakeTheReportGivesFour) {
  escreveArquivo(em("r.txt"), "old");
  Processo processo(generate({"--output", "r.txt", "--force"}));
  const Fim fim = processo.naPasta(pasta()).comFalha("fsync", 1, EIO).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot write the output r.txt: Input/output error; check the disk and try again; the "
      "temporary file was removed\n");
  EXPECT_EQ(leArquivo(em("r.txt")), "old");
  EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
}

TEST_F(Escrita, DiskThatFailsToTakeTheNameGivesFour) {
  Processo processo(generate({"--output", "r.txt", "--command", "RZ"}));
  const Fim fim = processo.naPasta(pasta()).comFalha("fsync", 2, EIO).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot be sure that the name r.txt is on the disk: Input/output error; the file itself "
      "is whole; check the disk, and that the file is there\n");
  EXPECT_EQ(leArquivo(em("r.txt")).size(), 991U);
}

TEST_F(Escrita, FileSystemThatHasNoFsyncOfFoldersIsTaken) {
  Processo processo(generate({"--output", "r.txt"}));
  EXPECT_EQ(processo.naPasta(pasta()).comFalha("fsync", 2, EINVAL).inicia().espera().situacao, 0);
}

TEST_F(Escrita, FileSystemThatCannotRefuseARenameIsServedInTwoSteps) {
  Processo processo(generate({"--output", "r.txt", "--command", "RZ"}));
  EXPECT_EQ(processo.naPasta(pasta()).comFalha("renameat2", 1, EINVAL).inicia().espera().situacao, 0);
  EXPECT_EQ(leArquivo(em("r.txt")).size(), 991U);
  EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
}

TEST_F(Escrita, RenameThatFailsGivesFour) {
  Processo processo(generate({"--output", "r.txt"}));
  const Fim fim = processo.naPasta(pasta()).comFalha("renameat2", 1, ENOSPC).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot write the output r.txt: No space left on device; check the disk and try again; "
      "the temporary file was removed\n");
  EXPECT_EQ(nomes(), Nomes{"base.db"});
}

TEST_F(Escrita, TemporaryFileThatStaysIsNamed) {
  Processo processo(generate({"--output", "r.txt"}));
  const Fim fim =
      processo.naPasta(pasta()).comLimiteDeArquivo(1000).comFalha("unlink", 1, EACCES).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  const std::string sobra = "./" + nomes().at(0);
  EXPECT_EQ(sobra.substr(0, 16), "./.r.txt.cotepe-");
  EXPECT_EQ(fim.erros.substr(fim.erros.rfind(';')), "; remove the temporary file " + sobra + "\n");
}

// A file that takes the name of the report while the report is made.
class NomeTomado : public Cena {
 protected:
  Fim geraEnquantoAparece(const std::string& falha) {
    criaBanco(kMoedaLenta);
    Processo processo(generate({"--output", "r.txt"}));
    processo.naPasta(pasta());
    if (!falha.empty()) processo.comFalha(falha, 1, EINVAL);
    processo.inicia();
    esperaNome(".r.txt.cotepe-");
    escreveArquivo(em("r.txt"), "just made");
    return processo.espera();
  }
};

TEST_F(NomeTomado, FileThatAppearedMeanwhileIsKept) {
  const Fim fim = geraEnquantoAparece("");
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros, std::string(kExiste) + "; the temporary file was removed\n");
  EXPECT_EQ(leArquivo(em("r.txt")), "just made");
  EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
}

TEST_F(NomeTomado, FileThatAppearedMeanwhileIsKeptInTwoStepsToo) {
  EXPECT_EQ(geraEnquantoAparece("renameat2").situacao, 3);
  EXPECT_EQ(leArquivo(em("r.txt")), "just made");
  EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
}

}  // namespace
