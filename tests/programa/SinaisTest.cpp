// Runs that are interrupted or killed, and what they leave behind.
#include <csignal>
#include <filesystem>

#include "Cena.h"

namespace {

using Nomes = std::vector<std::string>;

class Sinais : public Cena {};

TEST_F(Sinais, EachOfThemRemovesTheTemporaryFileAndSaysSo) {
  criaBanco(kMoedaSemFim);
  escreveArquivo(em("r.txt"), "old");
  const std::pair<int, const char*> sinais[] = {{SIGINT, "SIGINT"}, {SIGTERM, "SIGTERM"}, {SIGHUP, "SIGHUP"}};
  for (const auto& [sinal, nome] : sinais) {
    Processo processo(generate({"--output", "r.txt", "--force", "--quiet"}));
    processo.naPasta(pasta()).inicia();
    esperaNome(".r.txt.cotepe-");
    processo.envia(sinal);
    const Fim fim = processo.espera();
    EXPECT_EQ(fim.situacao, 128 + sinal);
    EXPECT_EQ(fim.erros,
              std::string("cotepe: interrupted by ") + nome + "; the temporary file was removed\n");
    EXPECT_EQ(leArquivo(em("r.txt")), "old");
    EXPECT_EQ(nomes(), (Nomes{"base.db", "r.txt"}));
  }
}

TEST_F(Sinais, KeepPartialKeepsNothingOfAnInterruptedRun) {
  criaBanco(kMoedaSemFim);
  Processo processo(generate({"--output", "r.txt", "--keep-partial"}));
  processo.naPasta(pasta()).inicia();
  esperaNome(".r.txt.cotepe-");
  processo.envia(SIGINT);
  EXPECT_EQ(processo.espera().situacao, 130);
  EXPECT_EQ(nomes(), Nomes{"base.db"});
}

TEST_F(Sinais, WaitForALockEndsAtOnce) {
  criaBanco();
  Banco outro(em("base.db"));
  outro.sql("BEGIN EXCLUSIVE");
  Processo processo(generate({"--output", "r.txt", "--busy-timeout", "600000"}));
  processo.naPasta(pasta()).inicia();
  EXPECT_FALSE(processo.termineEm(500));
  processo.envia(SIGTERM);
  const Fim fim = processo.espera();
  EXPECT_EQ(fim.situacao, 143);
  EXPECT_EQ(fim.erros, "cotepe: interrupted by SIGTERM\n");
}

TEST_F(Sinais, WriteToAReaderThatSleepsEndsAtOnce) {
  // More than a pipe holds.
  criaBanco(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 3000)"
      " INSERT INTO totalizador_reducao SELECT 11, '01T' || i, 1, 'S' FROM n");
  Processo processo(generate({"--output", "-"}));
  processo.naPasta(pasta()).inicia();
  EXPECT_FALSE(processo.termineEm(1500));
  processo.envia(SIGINT);
  EXPECT_TRUE(processo.termineEm(60000));
  const Fim fim = processo.espera();
  EXPECT_EQ(fim.situacao, 130);
  EXPECT_EQ(fim.erros, "cotepe: interrupted by SIGINT; what stdout got is not whole\n");
}

TEST_F(Sinais, SignalThatTheCallerIgnoresIsIgnored) {
  criaBanco(kMoedaSemFim);
  Processo processo(generate({"--output", "r.txt"}));
  processo.naPasta(pasta()).ignorando(SIGHUP).inicia();
  esperaNome(".r.txt.cotepe-");
  processo.envia(SIGHUP);
  EXPECT_FALSE(processo.termineEm(300));
  processo.envia(SIGTERM);
  EXPECT_EQ(processo.espera().situacao, 143);
}

TEST_F(Sinais, SampleIsInterruptedBetweenTwoDays) {
  Processo processo({"sample", "s.db", "--days", "36500"});
  processo.naPasta(pasta()).inicia();
  esperaNome(".s.db.cotepe-");
  processo.envia(SIGINT);
  const Fim fim = processo.espera();
  EXPECT_EQ(fim.situacao, 130);
  EXPECT_EQ(fim.erros, "cotepe: interrupted by SIGINT; the temporary file was removed\n");
  EXPECT_EQ(nomes(), Nomes{});
}

class Sobras : public Sinais {
 protected:
  // Leaves what a killed run leaves; returns its name.
  std::string mata(const std::vector<std::string>& opcoes, const std::string& inicio) {
    Processo processo(generate(opcoes));
    processo.naPasta(pasta()).inicia();
    std::string sobra = esperaNome(inicio);
    processo.envia(SIGKILL);
    EXPECT_EQ(processo.espera().sinal, SIGKILL);
    EXPECT_TRUE(std::filesystem::exists(em(sobra)));
    return sobra;
  }

  void tornaFinito() {
    Banco(em("base.db")).sql("DROP VIEW moeda; CREATE TABLE moeda(data_hora_gravacao, simbolo_moeda)");
  }
};

TEST_F(Sobras, OfAKilledRunAreRemovedByTheNextOneToTheSameOutput) {
  criaBanco(kMoedaSemFim);
  const std::string sobra = mata({"--output", "r.txt"}, ".r.txt.cotepe-");
  EXPECT_EQ(sobra.size(), std::string(".r.txt.cotepe-XXXXXX.tmp").size());
  EXPECT_EQ(sobra.substr(sobra.size() - 4), ".tmp");
  tornaFinito();
  EXPECT_EQ(gera({"--output", "outro.txt"}).situacao, 0);
  EXPECT_TRUE(std::filesystem::exists(em(sobra)));
  EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
  EXPECT_EQ(nomes(), (Nomes{"base.db", "outro.txt", "r.txt"}));
}

TEST_F(Sobras, OfRunsThatNameTheirOwnOutputAreRemovedToo) {
  criaBanco(kMoedaSemFim);
  mata({"--command", "MF"}, ".MFSERIAL.cotepe-");
  tornaFinito();
  EXPECT_EQ(gera({"--command", "MF"}).situacao, 0);
  EXPECT_EQ(nomes().size(), 2U);
}

TEST_F(Sobras, FileOfALivingRunIsNone) {
  criaBanco(kMoedaSemFim);
  Processo vivo(generate({"--output", "r.txt"}));
  vivo.naPasta(pasta()).inicia();
  const std::string temporario = esperaNome(".r.txt.cotepe-");
  Processo segundo(generate({"--output", "r.txt"}));
  segundo.naPasta(pasta()).inicia();
  EXPECT_FALSE(segundo.termineEm(500));
  EXPECT_TRUE(std::filesystem::exists(em(temporario)));
  segundo.envia(SIGTERM);
  EXPECT_EQ(segundo.espera().situacao, 143);
  EXPECT_EQ(nomes(), (Nomes{temporario, "base.db"}));
  vivo.envia(SIGTERM);
  EXPECT_EQ(vivo.espera().situacao, 143);
}

TEST_F(Sobras, WithoutLocksTheyStayAndTheRunGoesOn) {
  criaBanco();
  escreveArquivo(em(".r.txt.cotepe-abcdef.tmp"), "");
  Processo processo(generate({"--output", "r.txt"}));
  EXPECT_EQ(processo.naPasta(pasta()).comFalha("flock", 0, ENOLCK).inicia().espera().situacao, 0);
  EXPECT_EQ(nomes(), (Nomes{".r.txt.cotepe-abcdef.tmp", "base.db", "r.txt"}));
}

TEST_F(Sobras, FilesOfOtherNamesAreLeftAlone) {
  criaBanco();
  const Nomes alheios = {".r.txt.cotepe-abcde.tmp", ".r.txt.cotepe-abcdef.txt", ".s.txt.cotepe-abcdef.tmp",
                         "r.txt.cotepe-abcdef.tmp"};
  for (const std::string& nome : alheios) escreveArquivo(em(nome), "");
  EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
  for (const std::string& nome : alheios) EXPECT_TRUE(std::filesystem::exists(em(nome))) << nome;
}

}  // namespace
