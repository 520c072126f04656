// cotepe verify: reports held to the databases that they came from.
#include <fcntl.h>
#include <unistd.h>

#include "Amostra/Amostra.h"
#include "Cena.h"
#include "Comandos.h"
#include "Relatorio.h"
#include "Sistema/Falha.h"
#include "faults/Relato.h"

namespace {

class Verify : public Cena {
 protected:
  Fim verifica(const std::vector<std::string>& mais = {}) const {
    std::vector<std::string> todos = {"verify", "--db", "base.db", "r.txt"};
    todos.insert(todos.end(), mais.begin(), mais.end());
    return roda(todos, pasta());
  }

  void geraComo(const std::vector<std::string>& mais, const std::string& de = "01012024",
                const std::string& ate = "31012024") {
    std::vector<std::string> todos = {"generate", "--db",    "base.db", "--from",   de,     "--to",
                                      ate,        "--quiet", "--force", "--output", "r.txt"};
    todos.insert(todos.end(), mais.begin(), mais.end());
    ASSERT_EQ(roda(todos, pasta()).situacao, 0);
  }

  void troca(const std::string& de, const std::string& para) {
    std::string texto = leArquivo(em("r.txt"));
    const std::size_t i = texto.find(de);
    ASSERT_NE(i, std::string::npos);
    escreveArquivo(em("r.txt"), texto.replace(i, de.size(), para));
  }
};

TEST_F(Verify, AReportOfTheDatabaseEndsWith0AndSaysWhatWasDerived) {
  criaBanco();
  geraComo({});
  const Fim fim = verifica();
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros,
            "cotepe: r.txt: layout 1 (derived), CAT52 off (derived), command TDM (derived), from 2024-01-10 "
            "(derived) "
            "to 2024-01-11 (derived)\n"
            "cotepe: r.txt: OK, identical to what base.db gives\n");
}

TEST_F(Verify, GivenSettingsAreTaken) {
  criaBanco();
  geraComo({});
  const Fim fim = verifica(
      {"--layout", "1", "--no-cat52", "--command", "TDM", "--from", "01012024", "--to", "2024-01-31"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(
      fim.erros,
      "cotepe: r.txt: layout 1 (given), CAT52 off (given), command TDM (given), from 2024-01-01 (given) to "
      "2024-01-31 (given)\n"
      "cotepe: r.txt: OK, identical to what base.db gives\n");
}

TEST_F(Verify, AChangedAmountEndsWith1) {
  criaBanco();
  geraComo({});
  troca("00000000000125S", "00000000000124S");
  const Fim fim = verifica({"--quiet"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida,
            "r.txt:10:87-100: error field E12.12 \"Venda bruta diária\": found 1,24, expected 1,25 (CRZ 11; "
            "line 10 of "
            "the report of base.db)\n1 error, 0 warnings\n");
  EXPECT_EQ(fim.erros,
            "cotepe: r.txt: not what the database gives; cotepe check looks for faults in the database, "
            "cotepe validate in the report\n");
}

TEST_F(Verify, ARecordTakenOutIsMissing) {
  criaBanco();
  geraComo({});
  std::string texto = leArquivo(em("r.txt"));
  const std::size_t i = texto.find("E12");
  escreveArquivo(em("r.txt"), texto.erase(i, texto.find('\n', i) + 1 - i));
  const Fim fim = verifica({"--quiet"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.saida,
      "r.txt: error missing E12: found none, expected a record: CRZ 11 (line 10 of the report of base.db)\n1 "
      "error, 0 warnings\n");
}

TEST_F(Verify, RecordsThatChangedPlacesEndWith1) {
  criaBanco();
  geraComo({});
  std::string texto = leArquivo(em("r.txt"));
  const std::size_t primeiro = texto.find("E12"), segundo = texto.find("E12", primeiro + 1);
  const std::string linha = texto.substr(primeiro, segundo - primeiro);
  texto.erase(primeiro, linha.size());
  escreveArquivo(em("r.txt"), texto.insert(texto.find('\n', primeiro) + 1, linha));
  const Fim fim = verifica({"--quiet"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida,
            "r.txt:11: error order E12: found the record out of its place, expected the order of the report "
            "of base.db (CRZ 11; line 10 of the report of base.db)\n1 error, 0 warnings\n");
}

TEST_F(Verify, TheStampIsNotCompared) {
  criaBanco();
  geraComo({});
  std::string texto = leArquivo(em("r.txt"));
  const std::size_t i = texto.find("\nE11") + 1;
  escreveArquivo(em("r.txt"), texto.replace(i + 122, 14, "19991231235959"));
  EXPECT_EQ(verifica().situacao, 0);
}

// Every command and setting of the sample, its period longer than what it holds.
TEST_F(Verify, ReportsOfEverySettingAreProved) {
  cotepe::OpcoesDaAmostra amostra;
  amostra.dias = 3;
  amostra.cuponsPorDia = 3;
  amostra.inicio = "2024-01-05";
  cotepe::criaBancoDeAmostra(em("base.db"), amostra);
  for (const char* comando : {"TDM", "MFD", "MF", "RZ"})
    for (const char* leiaute : {"1", "2"})
      for (const char* cat52 : {"", "--cat52"}) {
        std::vector<std::string> mais = {"--command", comando, "--layout", leiaute};
        if (*cat52 != '\0') mais.emplace_back(cat52);
        geraComo(mais);
        const Fim fim = verifica();
        EXPECT_EQ(fim.situacao, 0) << comando << ' ' << leiaute << ' ' << cat52 << '\n'
                                   << fim.erros << fim.saida;
      }
}

// Without a reduction nothing tells the period, and nothing depends on it.
TEST_F(Verify, SettingsThatGiveTheSameBytesAreNotToldApart) {
  criaBanco();
  geraComo({"--command", "MFD", "--layout", "2", "--cat52"});
  EXPECT_EQ(
      verifica().erros,
      "cotepe: r.txt: layout 2 (taken, it makes no difference), CAT52 on (derived), command MFD (derived), "
      "from 2024-01-10 (derived) to 2024-01-11 (derived); the same bytes come of layout 3 with CAT52 on\n"
      "cotepe: r.txt: OK, identical to what base.db gives\n");
  EXPECT_EQ(verifica({"--layout", "3", "--cat52"}).situacao, 0);
  EXPECT_EQ(verifica({"--layout", "3", "--no-cat52"}).situacao, 1);
}

TEST_F(Verify, AnAttemptOfTheBasicSoftwareSpeaksForLayout2) {
  criaBanco("INSERT INTO tentativas_sb VALUES (1, '', '2023-06-15 09:20:00', '')");
  geraComo({"--command", "MF", "--layout", "2", "--cat52"});
  EXPECT_EQ(verifica().erros,
            "cotepe: r.txt: layout 2 (derived), CAT52 on (derived), command MF (derived), from 2024-01-10 "
            "(derived) "
            "to 2024-01-11 (derived)\n"
            "cotepe: r.txt: OK, identical to what base.db gives\n");
  EXPECT_EQ(verifica({"--layout", "3", "--cat52"}).situacao, 1);
}

TEST_F(Verify, AReportWithoutReductionsIsProved) {
  criaBanco();
  geraComo({}, "01022024", "29022024");
  const Fim fim = verifica();
  EXPECT_EQ(fim.situacao, 0) << fim.saida;
  EXPECT_EQ(fim.erros,
            "cotepe: r.txt: layout 1 (derived), CAT52 off (derived), command TDM (derived), from no day "
            "(derived) to no day (derived)\n"
            "cotepe: r.txt: OK, identical to what base.db gives\n");
}

// Of MFD no record has the movement, and E01 has the day of issue alone, which here is another reduction's
// day.
TEST_F(Verify, AReductionIssuedAfterMidnightDoesNotMoveThePeriod) {
  criaBanco(
      "UPDATE reducao_z SET data_hora_emissao = '2024-01-11 00:30:00' WHERE cont_crz = 11;"
      "INSERT INTO outros_documentos (cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento, "
      "data_hora_fim_emissao) VALUES (101, 0, 0, 0, 11, 'RZ', '2024-01-11 00:30:00');"
      "INSERT INTO outros_documentos (cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento, "
      "data_hora_fim_emissao) VALUES (102, 0, 0, 0, 12, 'RZ', '2024-01-11 22:00:00');");
  geraComo({"--command", "MFD"}, "01012024", "10012024");
  const Fim fim = verifica();
  EXPECT_EQ(fim.situacao, 0) << fim.saida;
  EXPECT_EQ(fim.erros,
            "cotepe: r.txt: layout 1 (derived), CAT52 off (derived), command MFD (derived), from 2024-01-10 "
            "(derived) "
            "to 2024-01-10 (derived)\n"
            "cotepe: r.txt: OK, identical to what base.db gives\n");
}

TEST_F(Verify, WithoutE01TheRegistersTellTheCommand) {
  criaBanco();
  geraComo({"--command", "MF"});
  const std::string texto = leArquivo(em("r.txt"));
  escreveArquivo(em("r.txt"), texto.substr(texto.find('\n') + 1));
  const Fim fim = verifica();
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.saida,
      "r.txt: error missing E01: found none, expected a record (line 1 of the report of base.db)\n1 error, 0 "
      "warnings\n");
}

TEST_F(Verify, WhatCannotRunEndsWith2) {
  criaBanco();
  geraComo({});
  EXPECT_EQ(roda({"verify", "--db", "base.db", "none.txt"}, pasta()).situacao, 2);
  EXPECT_EQ(roda({"verify", "--db", "base.db", "-"}, pasta()).situacao, 2);
  EXPECT_EQ(roda({"verify", "--db", "none.db", "r.txt"}, pasta()).situacao, 2);
  Banco(em("base.db")).sql("DROP TABLE moeda");
  const Fim fim = verifica({"--quiet"});
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_NE(
      fim.erros.find(
          "cotepe: error: cannot verify: the database gives no whole report: E06 (no such table: moeda)\n"),
      std::string::npos)
      << fim.erros;
  Banco(em("base.db")).sql("DROP TABLE dados_ecf");
  EXPECT_EQ(verifica({"--quiet"}).situacao, 2);
}

TEST_F(Verify, PeriodThatEndsBeforeItBeginsIsRefused) {
  criaBanco();
  geraComo({});
  const Fim fim = verifica({"--from", "02012024", "--to", "01012024"});
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(fim.erros, "cotepe: error: --to 2024-01-01 is before --from 2024-01-02\n");
}

TEST_F(Verify, TheDatabaseIsNotWrittenAndNoFileIsLeft) {
  criaBanco();
  geraComo({});
  const std::string antes = leArquivo(em("base.db"));
  verifica();
  EXPECT_EQ(leArquivo(em("base.db")), antes);
  EXPECT_EQ(nomes(), (std::vector<std::string>{"base.db", "r.txt"}));
}

/// The command in this process, its output thrown away; its exit status.
int verificaAqui(const std::string& banco, const std::string& relatorio) {
  CLI::App app;
  const cotepe::programa::Acao executa = cotepe::programa::declaraVerify(app);
  app.parse("--quiet --max-findings 0 --db " + banco + ' ' + relatorio);
  try {
    executa();
    return 0;
  } catch (const cotepe::programa::Falha& falha) {
    return falha.situacao();
  }
}

class SemSaida {
 public:
  SemSaida() : guardada_(dup(STDOUT_FILENO)) {
    const int nada = open("/dev/null", O_WRONLY);
    dup2(nada, STDOUT_FILENO);
    close(nada);
  }
  ~SemSaida() {
    dup2(guardada_, STDOUT_FILENO);
    close(guardada_);
  }
  SemSaida(const SemSaida&) = delete;
  SemSaida& operator=(const SemSaida&) = delete;

 private:
  int guardada_;
};

// One byte changed, at every position of a report of the sample: found everywhere but in the stamp of E11, by
// verify if not by validate. The short form takes one position in 23, and all of the stamp.
void mudaCadaByte(const std::string& banco, const std::string& arquivo) {
  constexpr std::size_t kPasso = 23;
  const std::string bom = leArquivo(arquivo);
  const std::size_t carimbo = bom.find("\nE11") + 1 + 122;  // in every layout
  std::size_t posicoes = 0, porVerify = 0, porValidate = 0;
  Relato relato("A byte changed in a report", "verify says so, but for the hour at which it was made");
  for (std::size_t i = 0; i < bom.size(); ++i) {
    const bool doCarimbo = i >= carimbo && i < carimbo + 14;
    if (!formaLonga() && !doCarimbo && i % kPasso != 0) continue;
    std::string mudado = bom;
    mudado[i] = mudado[i] == '1' ? '2' : '1';
    escreveArquivo(arquivo, mudado);
    int situacao = -1;
    {
      const SemSaida calado;
      situacao = verificaAqui(banco, arquivo);
    }
    EXPECT_EQ(situacao, doCarimbo ? 0 : 1) << "position " << i;
    relato.caso();
    ++posicoes;
    porVerify += situacao == 1 ? 1 : 0;
    porValidate += achados(mudado).empty() ? 0 : 1;
  }
  escreveArquivo(arquivo, bom);
  std::cout << "of " << posicoes << " positions (" << bom.size() << " in all) " << porVerify
            << " found by verify, " << porValidate << " by validate\n";
  EXPECT_EQ(porVerify, posicoes - 14);
  EXPECT_GT(porValidate, posicoes / 2);
}

TEST_F(Verify, AChangedByteIsFoundAtEveryPosition) {
  cotepe::OpcoesDaAmostra amostra;
  amostra.dias = 1;
  amostra.cuponsPorDia = 1;
  cotepe::criaBancoDeAmostra(em("base.db"), amostra);
  for (const char* leiaute : {"1", "2"}) {
    geraComo({"--layout", leiaute});
    mudaCadaByte(em("base.db"), em("r.txt"));
  }
}

}  // namespace
