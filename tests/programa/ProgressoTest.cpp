// The line of progress: on a terminal only, gone when something else is said.
#include <csignal>

#include "Cena.h"
#include "PseudoTerminal.h"

namespace {

constexpr char kApaga[] = "\r\033[K";

class NoTerminal : public Cena {
 protected:
  // The stderr of a run that is interrupted after a while inside E06.
  static std::string errosDe(Processo& processo) {
    processo.inicia();
    EXPECT_FALSE(processo.termineEm(600));
    processo.envia(SIGINT);
    const Fim fim = processo.espera();
    EXPECT_EQ(fim.situacao, 130);
    return fim.erros;
  }
};

TEST_F(NoTerminal, ShowsTheRegisterAndTheSecondsWhileItRuns) {
  EXIGE_TERMINAL();
  criaBanco(kMoedaSemFim);
  Processo processo(generate({"--output", "r.txt"}));
  const std::string erros = errosDe(processo.naPasta(pasta()).comErrosNoTerminal());
  EXPECT_EQ(erros.substr(0, 19), std::string(kApaga) + "cotepe: E06, 0.") << erros;
  EXPECT_EQ(erros.substr(erros.rfind(kApaga)),
            std::string(kApaga) + "cotepe: interrupted by SIGINT; the temporary file was removed\r\n");
  std::size_t vezes = 0;
  for (std::size_t i = 0; (i = erros.find("cotepe: E06", i)) != std::string::npos; ++i) ++vezes;
  EXPECT_GE(vezes, 2U);
  EXPECT_LE(vezes, 10U);
}

TEST_F(NoTerminal, QuietShowsNone) {
  EXIGE_TERMINAL();
  criaBanco(kMoedaSemFim);
  Processo processo(generate({"--output", "r.txt", "--quiet"}));
  EXPECT_EQ(errosDe(processo.naPasta(pasta()).comErrosNoTerminal()),
            "cotepe: interrupted by SIGINT; the temporary file was removed\r\n");
}

TEST_F(NoTerminal, OtherwiseThereIsNone) {
  criaBanco(kMoedaSemFim);
  Processo processo(generate({"--output", "r.txt"}));
  EXPECT_EQ(errosDe(processo.naPasta(pasta())),
            "cotepe: interrupted by SIGINT; the temporary file was removed\n");
}

TEST_F(NoTerminal, SummaryFollowsTheErasedLine) {
  EXIGE_TERMINAL();
  criaBanco(kMoedaLenta);
  Processo processo(generate({"--output", "r.txt", "--command", "MF"}));
  const Fim fim = processo.naPasta(pasta()).comErrosNoTerminal().inicia().espera();
  EXPECT_EQ(fim.situacao, 0);
  const std::size_t ultima = fim.erros.rfind(kApaga);
  ASSERT_NE(ultima, std::string::npos) << fim.erros;
  EXPECT_EQ(fim.erros.substr(ultima, 21), std::string(kApaga) + "E01           1\r\n");
}

}  // namespace
