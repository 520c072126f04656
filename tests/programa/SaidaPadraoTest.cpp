// Stdout that does not take what a command writes: every command that writes there says so and gives 4.
#include <sys/syscall.h>

#include <cerrno>
#include <cstring>

#include "Cena.h"

namespace {

using Argumentos = std::vector<std::string>;

// Each of these writes something to stdout, and would end with 0 or 1.
const std::vector<Argumentos> kComandos = {
    {"--help"},
    {"--version"},
    {"show", "--help"},
    {"schema"},
    {"layout"},
    {"layout", "E14", "--format", "json"},
    {"show", "r.txt"},
    {"show", "r.txt", "--table"},
    {"show", "r.txt", "--format", "csv"},
    {"explain", "r.txt:1"},
    {"explain", "r.txt:1", "--db", "base.db", "--format", "json"},
    {"validate", "lixo.txt"},
    {"validate", "lixo.txt", "--format", "sarif"},
    {"validate", "--rules"},
    {"diff", "r.txt", "lixo.txt"},
    {"diff", "r.txt", "lixo.txt", "--format", "json"},
    {"check", "--db", "base.db"},
    {"check", "--rules"},
    {"verify", "--db", "base.db", "outro.txt", "--quiet"},
};

std::string texto(const Argumentos& argumentos) {
  std::string texto;
  for (const std::string& argumento : argumentos) texto += argumento + ' ';
  return texto;
}

class SaidaPadrao : public Cena {
 protected:
  SaidaPadrao() {
    criaBanco();
    EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
    std::string outro = leArquivo(em("r.txt"));
    outro.replace(outro.find("MODELO"), 6, "MODELA");
    escreveArquivo(em("outro.txt"), outro);
    escreveArquivo(em("lixo.txt"), "no report\r\n");
  }

  static std::string mensagem(int erro) {
    return std::string("cotepe: error: cannot write to stdout: ") + std::strerror(erro) + "\n";
  }
};

TEST_F(SaidaPadrao, WritesSomethingOfEveryCommandHere) {
  for (const Argumentos& argumentos : kComandos) {
    const Fim fim = roda(argumentos, pasta());
    EXPECT_NE(fim.saida, "") << texto(argumentos);
    EXPECT_TRUE(fim.situacao == 0 || fim.situacao == 1) << texto(argumentos) << fim.erros;
  }
}

TEST_F(SaidaPadrao, WritingThatFailsGivesFour) {
  for (const Argumentos& argumentos : kComandos) {
    const Fim fim = Processo(argumentos).naPasta(pasta()).comSaidaEm("/dev/full").inicia().espera();
    EXPECT_EQ(fim.situacao, 4) << texto(argumentos);
    EXPECT_EQ(fim.erros, mensagem(ENOSPC)) << texto(argumentos);
  }
}

// A file system over a network says only when a file is closed that there was no room.
TEST_F(SaidaPadrao, ClosingThatFailsGivesFour) {
  const auto erra = [&](const Chamada& chamada) {
    const bool saida = chamada.numero == SYS_close && chamada.alvo() == em("saida.txt");
    return saida ? Destino{Destino::Erra, EDQUOT} : Destino{};
  };
  for (const Argumentos& argumentos : kComandos) {
    Processo processo(argumentos);
    const Fim fim = processo.naPasta(pasta()).comSaidaEm(em("saida.txt")).comRegra(erra).inicia().espera();
    EXPECT_EQ(fim.situacao, 4) << texto(argumentos);
    EXPECT_EQ(fim.erros, mensagem(EDQUOT)) << texto(argumentos);
  }
}

}  // namespace
