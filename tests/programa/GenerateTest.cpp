// Reports that succeed: their bytes, their names, their summary.
#include <sys/stat.h>

#include "Cena.h"

namespace {

std::string brancos(std::size_t quantos) {
  std::string texto;
  texto.resize(quantos, ' ');
  return texto;
}

std::vector<std::string> linhasDe(const std::string& texto, const std::string& codigo) {
  std::vector<std::string> linhas;
  for (std::size_t inicio = 0; inicio < texto.size();) {
    const std::size_t fim = texto.find('\n', inicio);
    if (texto.compare(inicio, 3, codigo) == 0) linhas.push_back(texto.substr(inicio, fim - inicio));
    inicio = fim + 1;
  }
  return linhas;
}

class Generate : public Cena {
 protected:
  std::string relatorio(std::vector<std::string> mais) {
    mais.insert(mais.end(), {"--output", "-"});
    const Fim fim = gera(mais);
    EXPECT_EQ(fim.situacao, 0) << fim.erros;
    return fim.saida;
  }
};

TEST_F(Generate, ReportHoldsTheLinesOfTheDatabase) {
  criaBanco();
  const std::string texto = relatorio({});
  EXPECT_EQ(linhasDe(texto, "E01"),
            std::vector<std::string>{"E01SERIAL" + brancos(14) + " ECF-IF MARCA" + brancos(15) + "MODELO" +
                                     brancos(14) + "01.00.01  2023061509200000712345678000195TDM" +
                                     "0000110000122024011020240111" + "02.00.02AC1704 01.00.00"});
  const std::string cabeca = "E12SERIAL" + brancos(15) + "MODELO" + brancos(14) + "01";
  EXPECT_EQ(linhasDe(texto, "E12"),
            (std::vector<std::string>{
                cabeca + "000011000101000001" + "20240110" + "20240110220000" + "00000000000125S",
                cabeca + "000012000102000001" + "20240111" + "20240111220000" + "00000000000250S"}));
}

TEST_F(Generate, PeriodBeginsAndEndsWithItsDays) {
  criaBanco();
  const auto reducoes = [this](const char* de, const char* ate) {
    return linhasDe(roda({"generate", "--db", "base.db", "--from", de, "--to", ate, "--command", "MF",
                          "--cat52", "--output", "-"},
                         pasta())
                        .saida,
                    "E12")
        .size();
  };
  EXPECT_EQ(reducoes("10012024", "2024-01-11"), 2U);
  EXPECT_EQ(reducoes("2024-01-10", "10012024"), 1U);
  EXPECT_EQ(reducoes("12012024", "12012024"), 0U);
}

TEST_F(Generate, FileIsWhatStdoutGets) {
  criaBanco();
  EXPECT_EQ(gera({"--output", "r.txt", "--command", "MFD"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("r.txt")), relatorio({"--command", "MFD"}));
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "r.txt"}));
}

TEST_F(Generate, SettingsReachTheGenerator) {
  criaBanco();
  EXPECT_EQ(linhasDe(relatorio({"--layout", "2"}), "E12")[0].size(), 104U);
  EXPECT_EQ(linhasDe(relatorio({"--layout", "1"}), "E12")[0].size(), 101U);
  EXPECT_EQ(linhasDe(relatorio({}), "E14").size(), 1U);
  EXPECT_EQ(linhasDe(relatorio({"--cat52"}), "E14").size(), 0U);
  EXPECT_EQ(linhasDe(relatorio({"--command", "RZ"}), "E12").size(), 0U);
}

TEST_F(Generate, IdentityOfTheCommandLineFillsWhatTheDatabaseLeavesEmpty) {
  criaBanco("UPDATE dados_ecf SET num_serie = '', modelo = '', tipo = ''");
  const std::string texto =
      relatorio({"--serial", "S1", "--model", "M1", "--type", "T1", "--sb-version", "99.99"});
  EXPECT_EQ(linhasDe(texto, "E01")[0].substr(0, 31), "E01S1" + brancos(19) + "T1" + brancos(5));
  EXPECT_EQ(linhasDe(texto, "E01")[0].substr(71, 10), "01.00.01  ");
  EXPECT_EQ(linhasDe(texto, "E12")[0].substr(0, 44), "E12S1" + brancos(19) + "M1" + brancos(18));
}

TEST_F(Generate, DatabaseGoesBeforeTheCommandLine) {
  criaBanco();
  const std::string texto = relatorio({"--serial", "S1", "--model", "M1", "--type", "T1"});
  EXPECT_EQ(linhasDe(texto, "E01")[0].substr(3, 27), "SERIAL" + brancos(15) + "ECF-IF");
  EXPECT_EQ(linhasDe(texto, "E12")[0].substr(24, 6), "MODELO");
}

TEST_F(Generate, SummaryCountsLinesBytesAndSeconds) {
  criaBanco();
  const Fim fim = gera({"--output", "r.txt", "--command", "RZ"});
  EXPECT_EQ(fim.saida, "");
  // E01 166, E02 272, E14 191, E15 267 and E16 90 bytes, and a line-feed each.
  EXPECT_TRUE(corresponde(fim.erros,
                          "E01           1\n"
                          "E02           1\n"
                          "E14           1\n"
                          "E15           1\n"
                          "E16           1\n"
                          "r\\.txt: 5 lines, 991 bytes, [0-9]+\\.[0-9] s\n"))
      << fim.erros;
}

TEST_F(Generate, SummaryOfStdoutGoesToStderr) {
  criaBanco();
  const Fim fim = gera({"--output", "-", "--command", "RZ", "--cat52"});
  EXPECT_EQ(fim.saida.size(), 440U);
  EXPECT_TRUE(
      corresponde(fim.erros,
                  "E01           1\nE02           1\nE14           0\nE15           0\nE16           0\n"
                  "stdout: 2 lines, 440 bytes, [0-9]+\\.[0-9] s\n"))
      << fim.erros;
}

TEST_F(Generate, QuietSaysNothingOfASuccess) {
  criaBanco();
  const Fim fim = gera({"--output", "r.txt", "--quiet"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida + fim.erros, "");
}

TEST_F(Generate, WithoutOutputTheNameFollowsTheLaw) {
  criaBanco("UPDATE dados_ecf SET num_serie = 'AB 12/34'");
  const Fim fim = gera({"--command", "MF"});
  EXPECT_EQ(fim.situacao, 0);
  const std::string nome = nomes().at(0);
  EXPECT_TRUE(corresponde(nome, "MFAB_12_34_[0-9]{8}_[0-9]{6}\\.TXT")) << nome;
  EXPECT_NE(fim.erros.find("\n" + nome + ": "), std::string::npos) << fim.erros;
}

TEST_F(Generate, NameOfTheFileAndStampOfE11AreOneMoment) {
  criaBanco();
  EXPECT_EQ(Processo(generate({"--command", "MF"}))
                .naPasta(pasta())
                .comAmbiente("TZ", "XYZ-3")
                .inicia()
                .espera()
                .situacao,
            0);
  const std::string nome = nomes().at(0);
  const std::string carimbo = linhasDe(leArquivo(em(nome)), "E11").at(0).substr(122, 14);
  EXPECT_EQ(nome, "MFSERIAL_" + carimbo.substr(0, 8) + "_" + carimbo.substr(8) + ".TXT");
}

TEST_F(Generate, SerialOfTheCommandLineNamesTheFileWhereTheDatabaseHasNone) {
  criaBanco("UPDATE dados_ecf SET num_serie = ''");
  EXPECT_EQ(gera({"--command", "RZ", "--serial", "S-9"}).situacao, 0);
  EXPECT_TRUE(corresponde(nomes().at(0), "RZS-9_[0-9]{8}_[0-9]{6}\\.TXT")) << nomes().at(0);
}

TEST_F(Generate, ForceReplacesAFile) {
  criaBanco();
  escreveArquivo(em("r.txt"), "old");
  EXPECT_EQ(gera({"--output", "r.txt", "--command", "RZ", "--force"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("r.txt")).size(), 991U);
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "r.txt"}));
}

TEST_F(Generate, ReportHasTheModeOfAnyNewFile) {
  criaBanco();
  const mode_t mascara = umask(027);
  EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
  umask(mascara);
  struct stat situacao {};
  ASSERT_EQ(stat(em("r.txt").c_str(), &situacao), 0);
  EXPECT_EQ(situacao.st_mode & 0777U, 0640U);
}

TEST_F(Generate, DatabaseIsLeftAsItWas) {
  criaBanco();
  const std::string antes = leArquivo(em("base.db"));
  EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("base.db")), antes);
}

TEST_F(Generate, NamesThatSqliteWouldTakeForSomethingElseAreFiles) {
  criaBanco();
  for (const char* nome : {":memory:", "file:base.db", "file:x?mode=memory"}) {
    ASSERT_EQ(link(em("base.db").c_str(), em(nome).c_str()), 0);
    const Fim fim = roda({"generate", "--db", nome, "--from", "01012024", "--to", "31012024", "--output", "-",
                          "--command", "RZ"},
                         pasta());
    EXPECT_EQ(fim.situacao, 0) << fim.erros;
    EXPECT_EQ(fim.saida.size(), 991U) << nome;
  }
}

TEST_F(Generate, LongNamesAreTaken) {
  criaBanco();
  const std::string nome(255, 'x');
  EXPECT_EQ(gera({"--output", nome}).situacao, 0);
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", nome}));
}

}  // namespace
