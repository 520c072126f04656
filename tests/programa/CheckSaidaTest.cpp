// What cotepe check and validate write: SARIF, values with a zero byte, counts, terminals, and what a signal
// leaves.
#include <csignal>

#include "Cena.h"
#include "PseudoTerminal.h"

namespace {

class CheckSaida : public Cena {
 protected:
  void SetUp() override {
    ASSERT_EQ(roda({"sample", "--quiet", "--days", "2", "loja.db"}, pasta()).situacao, 0);
  }
  std::vector<std::string> check(const std::vector<std::string>& mais = {}) const {
    std::vector<std::string> argumentos = {"check", "--db", "loja.db"};
    argumentos.insert(argumentos.end(), mais.begin(), mais.end());
    return argumentos;
  }
  Fim checa(const std::vector<std::string>& mais = {}) const { return roda(check(mais), pasta()); }
  void sql(const std::string& texto) const { Banco(em("loja.db")).sql(texto); }
};

constexpr char kMoeda[] =
    "found no such table, without which the query fails, expected the table (create it; cotepe schema shows "
    "how)";

TEST_F(CheckSaida, IsSarifToo) {
  sql("DROP TABLE moeda; DROP TABLE codificacao_gt");
  const Fim fim = checa({"--format", "sarif", "--max-findings", "1"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.saida,
      R"({"$schema":"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",)"
      R"("version":"2.1.0","runs":[{"results":[)"
      "\n"
      R"({"ruleId":"table-missing","level":"error","message":{"text":"E05: )" +
          std::string(kMoeda) +
          R"("},"locations":[{"physicalLocation":{"artifactLocation":{"uri":"loja.db"}},)"
          R"("logicalLocations":[{"fullyQualifiedName":"codificacao_gt"}]}]})"
          "\n"
          R"(],"tool":{"driver":{"name":"cotepe","rules":[{"id":"table-missing"}]}},)"
          R"("properties":{"errors":2,"warnings":0,"shown":1}}]})"
          "\n");
}

TEST_F(CheckSaida, ACleanDatabaseIsAWholeSarifDocument) {
  const Fim fim = checa({"--format", "sarif"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(
      fim.saida,
      R"({"$schema":"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",)"
      R"("version":"2.1.0","runs":[{"results":[)"
      "\n"
      R"(],"tool":{"driver":{"name":"cotepe","rules":[]}},)"
      R"("properties":{"errors":0,"warnings":0,"shown":0}}]})"
      "\n");
}

TEST_F(CheckSaida, AZeroByteInAValueIsShownInEveryFormat) {
  sql("UPDATE dados_ecf SET marca = 'MAR' || char(0) || 'CA'");
  const std::string achado =
      "E01.5 \"Marca\": found \"MAR\\x00CA\", whose zero byte ends the text, expected characters that can be "
      "seen (remove it)\n1 error, 0 warnings\n";
  const std::string texto = checa().saida;
  EXPECT_EQ(texto.substr(texto.find(".marca: ")), ".marca: error control-character " + achado);
  EXPECT_NE(checa({"--format", "json"}).saida.find(R"("found":"\"MAR\\x00CA\", whose zero byte)"),
            std::string::npos);
  EXPECT_NE(checa({"--format", "sarif"}).saida.find(R"(found \"MAR\\x00CA\", whose zero byte)"),
            std::string::npos);
}

TEST_F(CheckSaida, TheCountsStayWholeWhateverIsShown) {
  sql("DROP TABLE moeda; DROP TABLE codificacao_gt; DROP INDEX pagamento_cupom_coo");
  EXPECT_EQ(checa({"--max-findings", "0"}).saida,
            "  index-missing            1\n  table-missing            2\n2 errors, 1 warning (0 shown)\n");
  const std::string todos = checa().saida;
  EXPECT_EQ(todos.substr(todos.rfind('\n', todos.size() - 2) + 1), "2 errors, 1 warning\n");
  EXPECT_EQ(checa({"--max-findings", "3"}).saida, todos);
}

TEST_F(CheckSaida, OnATerminalItHasColoursAndNeverWithNoColor) {
  EXIGE_TERMINAL();
  sql("DROP TABLE moeda");
  const std::string inicio = "loja.db: moeda: ", fim = std::string(" table-missing E06: ") + kMoeda;
  const auto noTerminal = [&](const char* semCores) {
    PseudoTerminal terminal;
    Processo processo(check());
    processo.naPasta(pasta()).comAmbiente("NO_COLOR", semCores).comSaidaEm(terminal.nome());
    EXPECT_EQ(processo.inicia().espera().situacao, 1);
    return terminal.lido();
  };
  EXPECT_EQ(noTerminal(""), inicio + "\033[1;31merror\033[0m" + fim + "\n1 error, 0 warnings\n");
  EXPECT_EQ(noTerminal("1"), inicio + "error" + fim + "\n1 error, 0 warnings\n");
  EXPECT_EQ(checa().saida, inicio + "error" + fim + "\n1 error, 0 warnings\n");
}

TEST_F(CheckSaida, ValidateShowsLineAndCaretOnATerminalAlone) {
  EXIGE_TERMINAL();
  const std::string linha = "X10" + std::string(81, ' ');
  escreveArquivo(em("r.txt"), linha + "\n");
  const std::vector<std::string> validate = {"validate", "r.txt", "--max-findings", "1"};
  const std::string fora = roda(validate, pasta()).saida;
  const std::string achado = "r.txt:1: error unknown-register: ";
  EXPECT_EQ(fora.substr(0, achado.size()), achado);
  EXPECT_EQ(fora.find("\n  X10"), std::string::npos);
  PseudoTerminal terminal;
  Processo processo(validate);
  processo.naPasta(pasta()).comAmbiente("NO_COLOR", "1").comSaidaEm(terminal.nome()).inicia().espera();
  const std::string nele = terminal.lido();
  EXPECT_NE(nele.find("\n  X10"), std::string::npos) << nele;
  EXPECT_EQ(nele.find('\033'), std::string::npos);
}

TEST_F(CheckSaida, ASignalEndsALongCheckAtOnce) {
  sql(kMoedaSemFim);
  for (const auto& [sinal, nome] :
       std::vector<std::pair<int, std::string>>{{SIGINT, "SIGINT"}, {SIGTERM, "SIGTERM"}}) {
    Processo processo(check());
    processo.naPasta(pasta()).inicia();
    EXPECT_FALSE(processo.termineEm(1000));
    processo.envia(sinal);
    const Fim fim = processo.espera();
    EXPECT_EQ(fim.situacao, 128 + sinal);
    EXPECT_EQ(fim.erros, "cotepe: interrupted by " + nome + "\n");
  }
  EXPECT_EQ(nomes(), std::vector<std::string>{"loja.db"});
}

}  // namespace
