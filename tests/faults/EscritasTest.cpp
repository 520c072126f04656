// Reports that cannot be written: the library returns 4, the program ends with 4, and under the final name
// stands what stood there before, or nothing.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "Bancada.h"
#include "Cena.h"
#include "Prova.h"
#include "Relato.h"

namespace fs = std::filesystem;

namespace {

using Nomes = std::vector<std::string>;

// The library in this process, or in a child that stops at its system calls.
class EscritasDaBiblioteca : public testing::Test {
 protected:
  EscritasDaBiblioteca() { bancada.comIdentidade(); }

  std::string relatorio() const { return pasta_.em("r.txt"); }
  int gera(const char* comando = "TDM") { return gera(relatorio(), comando); }
  int gera(const std::string& arquivo, const char* comando) {
    const Prazo prazo;
    return bancada.gerador().GeraRegistrosTipoE(arquivo.c_str(), "01012024", "31012024", comando);
  }

  // Rows for a report of several blocks.
  void cresce() {
    bancada.sql(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<40000)"
        " INSERT INTO versao_sb SELECT 'V', '2023-12-30 23:58:57', i FROM n");
  }

  // The result of a child whose `vez`th call of that number on the report becomes `destino`; `chamadas`: how
  // many there were.
  int geraCom(long numero, long vez, const Destino& destino, long& chamadas) {
    const Prazo prazo;
    const pid_t filho = fork();
    if (filho == 0) {
      ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
      static_cast<void>(raise(SIGSTOP));
      _exit(gera());
    }
    const auto estado = rastreia(filho, [&](const Chamada& chamada) {
      const bool esta = chamada.numero == numero && chamada.alvo() == relatorio() && ++chamadas == vez;
      return esta ? destino : Destino{};
    });
    int colhido = estado.value_or(0);
    if (!estado) waitpid(filho, &colhido, 0);
    return WIFEXITED(colhido) ? WEXITSTATUS(colhido) : -1;
  }

  Bancada bancada;

 private:
  PastaDeProva pasta_;
};

TEST_F(EscritasDaBiblioteca, FullDeviceGivesFourWhateverIsWritten) {
  Relato relato("Writes", "Library writing to a full device");
  for (const char* comando : {"MF", "MFD", "TDM", "RZ", ""}) {
    for (const int versao : {1, 2, 3}) {
      for (const bool cat52 : {false, true}) {
        SCOPED_TRACE(std::string(comando) + ' ' + std::to_string(versao));
        bancada.versao(versao).cat52(cat52);
        EXPECT_EQ(gera("/dev/full", comando), 4);
        EXPECT_EQ(gera(comando), 0);
        relato.caso();
      }
    }
  }
}

TEST_F(EscritasDaBiblioteca, FileThatStopsGrowingAnywhereGivesFour) {
  Relato relato("Writes", "Library writing to a file that may have 0, 1, 2 ... bytes");
  ASSERT_EQ(gera(), 0);
  const std::string inteiro = leBytes(relatorio());
  ASSERT_GT(inteiro.size(), 1000U);
  rlimit antes{};
  getrlimit(RLIMIT_FSIZE, &antes);
  const auto sinal = std::signal(SIGXFSZ, SIG_IGN);
  for (std::size_t limite = 0; limite <= inteiro.size(); ++limite) {
    const rlimit agora{limite, antes.rlim_max};
    setrlimit(RLIMIT_FSIZE, &agora);
    const int resultado = gera();
    setrlimit(RLIMIT_FSIZE, &antes);
    EXPECT_EQ(resultado, limite < inteiro.size() ? 4 : 0) << limite;
    EXPECT_TRUE(leBytes(relatorio()) == inteiro.substr(0, limite)) << limite;
    relato.caso();
  }
  static_cast<void>(std::signal(SIGXFSZ, sinal));
}

TEST_F(EscritasDaBiblioteca, EachWriteAndTheClosingMayFail) {
  Relato relato("Writes", "Library whose n-th write to the report, or its closing, fails");
  for (const bool grande : {false, true}) {
    if (grande) cresce();
    for (const long numero : {SYS_write, SYS_close}) {
      for (const int erro : {EIO, ENOSPC, EDQUOT, EINTR, EFBIG}) {
        for (long vez = 1;; ++vez) {
          SCOPED_TRACE(std::string(numero == SYS_write ? "write " : "closing ") + std::to_string(vez) + ": " +
                       std::strerror(erro));
          long chamadas = 0;
          const int resultado = geraCom(numero, vez, {Destino::Erra, erro}, chamadas);
          if (chamadas < vez) {
            EXPECT_EQ(resultado, 0);
            EXPECT_GE(vez, numero == SYS_write && grande ? 4 : 2);
            break;
          }
          EXPECT_EQ(resultado, 4);
          relato.caso();
        }
      }
    }
  }
}

TEST_F(EscritasDaBiblioteca, ShortWritesAreGoneOnWith) {
  Relato relato("Writes", "Library whose n-th write to the report is short");
  cresce();
  ASSERT_EQ(gera(), 0);
  const std::string inteiro = leBytes(relatorio());
  for (long vez = 1;; ++vez) {
    SCOPED_TRACE(vez);
    long chamadas = 0;
    EXPECT_EQ(geraCom(SYS_write, vez, {Destino::Encurta}, chamadas), 0);
    EXPECT_TRUE(leBytes(relatorio()) == inteiro);
    if (chamadas < vez) break;
    relato.caso();
  }
  EXPECT_GE(relato.quantos(), 3);
}

// The program, with a file under the final name or none.
class EscritasDoPrograma : public Cena {
 protected:
  EscritasDoPrograma() {
    criaBanco();
    EXPECT_EQ(gera(kOpcoes).situacao, 0);
    inteiro = leBytes(em("r.txt"));
    EXPECT_EQ(inteiro.size(), 991U);
  }

  void recomeca(bool antigo) const {
    for (const std::string& nome : nomes())
      if (nome != "base.db") fs::remove(em(nome));
    if (antigo) escreveBytes(em("r.txt"), kAntigo);
  }

  // Under the final name stands what stood before, and nothing else is left.
  void confereComoAntes(bool antigo) const {
    EXPECT_EQ(nomes(), antigo ? (Nomes{"base.db", "r.txt"}) : Nomes{"base.db"});
    EXPECT_TRUE(!antigo || leBytes(em("r.txt")) == kAntigo);
  }

  static const Nomes kOpcoes;
  static constexpr char kAntigo[] = "old\n";
  std::string inteiro;
};

const Nomes EscritasDoPrograma::kOpcoes = {"--output", "r.txt", "--force", "--quiet", "--command", "RZ"};

TEST_F(EscritasDoPrograma, FileThatStopsGrowingAnywhereGivesFour) {
  Relato relato("Writes", "cotepe generate to a file that may have 0, 1, 2 ... bytes");
  for (std::size_t limite = 0; limite <= inteiro.size(); limite += casos<std::size_t>(30, 1)) {
    SCOPED_TRACE(limite);
    const Prazo prazo;
    const bool antigo = limite % 2 == 0;
    recomeca(antigo);
    const Fim fim = Processo(generate(kOpcoes)).naPasta(pasta()).comLimiteDeArquivo(limite).inicia().espera();
    EXPECT_EQ(fim.situacao, limite < inteiro.size() ? 4 : 0) << fim.erros;
    if (fim.situacao != 0) confereComoAntes(antigo);
    EXPECT_TRUE(fim.situacao != 0 || leBytes(em("r.txt")) == inteiro);
    relato.caso();
  }
}

// What the program promises when one call goes wrong: what it may end with, and what is left.
class ChamadaErrada : public EscritasDoPrograma {
 protected:
  void confere(const Chamada& chamada, const std::string& alvo, const Fim& fim, bool antigo) const {
    EXPECT_EQ(fim.sinal, 0);
    EXPECT_EQ(fim.situacao == 0, fim.erros.empty()) << fim.erros;
    const std::string agora = fs::exists(em("r.txt")) ? leBytes(em("r.txt")) : "";
    const bool daPasta = alvo == pasta();
    EXPECT_TRUE(!doRelatorio(chamada, alvo) || fim.situacao == 4) << fim.situacao << fim.erros;
    if (fim.situacao == 0) {
      EXPECT_TRUE(agora == inteiro);
    } else if (chamada.numero == SYS_fsync && daPasta) {
      EXPECT_TRUE(agora == inteiro) << "the message says that the file is whole";
      EXPECT_EQ(fim.situacao, 4);
    } else {
      EXPECT_TRUE(fim.situacao == 3 || fim.situacao == 4) << fim.situacao << ' ' << fim.erros;
      confereComoAntes(antigo);
    }
  }

  // Whether it was made before the program began, over its libraries.
  bool doCarregador(const Chamada& chamada) const {
    return chamada.numero == SYS_close && chamada.alvo().compare(0, pasta().size(), pasta()) != 0;
  }

  // Whether without the call the report would not be there, whole and on the disk.
  static bool doRelatorio(const Chamada& chamada, const std::string& alvo) {
    switch (chamada.numero) {
      case SYS_write:
      case SYS_fsync:
      case SYS_close:
        return alvo.find("/.r.txt.cotepe-") != std::string::npos;
      case SYS_rename:
      case SYS_renameat2:
        return true;
      default:
        return false;
    }
  }
};

TEST_F(ChamadaErrada, EndsWithFourAndKeepsWhatStoodThere) {
  Relato relato("Writes", "cotepe generate, each of whose writes, syncs, closings and namings fails");
  long quatros = 0;
  for (const int erro : {EIO, ENOSPC, EINTR, EDQUOT, EROFS}) {
    for (long vez = 1;; ++vez) {
      const Prazo prazo;
      const bool antigo = vez % 2 == 0;
      recomeca(antigo);
      long chamadas = 0;
      Chamada qual;
      std::string alvo;
      const auto erra = [&](const Chamada& chamada) {
        if (!grava(chamada) || doCarregador(chamada) || ++chamadas != vez) return Destino{};
        qual = chamada;
        alvo = chamada.alvo();
        return Destino{Destino::Erra, erro};
      };
      if (!formaLonga() && erro != EIO && vez % 5 != erro % 5) {
        if (vez > 40) break;
        continue;
      }
      const Fim fim = Processo(generate(kOpcoes)).naPasta(pasta()).comRegra(erra).inicia().espera();
      if (chamadas < vez) break;
      SCOPED_TRACE("call " + std::to_string(vez) + ", " + std::to_string(qual.numero) + " of " + alvo + ": " +
                   std::strerror(erro));
      confere(qual, alvo, fim, antigo);
      quatros += fim.situacao == 4 ? 1 : 0;
      relato.caso();
    }
  }
  EXPECT_GE(quatros, 5);
}

TEST_F(ChamadaErrada, ShortWritesAreGoneOnWith) {
  Relato relato("Writes", "cotepe generate, each of whose writes is short");
  for (const char* saida : {"r.txt", "-"}) {
    for (long vez = 1;; ++vez) {
      SCOPED_TRACE(saida + (' ' + std::to_string(vez)));
      const Prazo prazo;
      recomeca(false);
      long chamadas = 0;
      const auto encurta = [&](const Chamada& chamada) {
        return chamada.numero == SYS_write && ++chamadas == vez ? Destino{Destino::Encurta} : Destino{};
      };
      Processo processo(generate({"--output", saida, "--command", "RZ", "--quiet"}));
      const Fim fim = processo.naPasta(pasta()).comRegra(encurta).inicia().espera();
      EXPECT_EQ(fim.situacao, 0) << fim.erros;
      EXPECT_TRUE((*saida == '-' ? fim.saida : leBytes(em("r.txt"))) == inteiro);
      if (chamadas < vez) break;
      relato.caso();
    }
  }
  EXPECT_GE(relato.quantos(), 3);
}

// A file system over a network says only now that there was no room.
TEST_F(ChamadaErrada, ClosingOfStdoutThatFailsGivesFour) {
  Relato relato("Writes", "cotepe generate to a stdout whose closing fails");
  for (const int erro : {EIO, ENOSPC, EDQUOT}) {
    const Prazo prazo;
    const auto erra = [&](const Chamada& chamada) {
      const bool saida = chamada.numero == SYS_close && chamada.alvo() == em("saida.txt");
      return saida ? Destino{Destino::Erra, erro} : Destino{};
    };
    Processo processo(generate({"--output", "-", "--command", "RZ", "--quiet"}));
    const Fim fim = processo.naPasta(pasta()).comSaidaEm(em("saida.txt")).comRegra(erra).inicia().espera();
    EXPECT_EQ(fim.situacao, 4);
    EXPECT_EQ(fim.erros, std::string("cotepe: error: cannot write to stdout: ") + std::strerror(erro) +
                             "; what stdout got is not whole\n");
    relato.caso();
  }
}

// A file system of the test's own, seen by this process alone.
class DiscoProprio : public EscritasDoPrograma {
 protected:
  void SetUp() override {
    fs::create_directory(em("disco"));
    if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", em("disco").c_str(), "tmpfs", 0, "size=16k") != 0)
      GTEST_SKIP() << "no right to mount a file system";
    montado_ = true;
  }
  void TearDown() override {
    if (montado_) umount2(em("disco").c_str(), MNT_DETACH);
  }

  Fim geraNoDisco(const char* comando) const {
    const Prazo prazo;
    return gera({"--output", "disco/r.txt", "--force", "--quiet", "--command", comando});
  }

 private:
  bool montado_ = false;
};

TEST_F(DiscoProprio, ThatCanOnlyBeReadGivesThree) {
  Relato relato("Writes", "Read-only file system");
  escreveBytes(em("disco/r.txt"), kAntigo);
  ASSERT_EQ(mount(nullptr, em("disco").c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  for (const char* comando : {"MF", "MFD", "TDM", "RZ"}) {
    const Fim fim = geraNoDisco(comando);
    EXPECT_EQ(fim.situacao, 3);
    EXPECT_NE(fim.erros.find("Read-only file system"), std::string::npos) << fim.erros;
    EXPECT_EQ(leBytes(em("disco/r.txt")), kAntigo);
    EXPECT_EQ(corre(BancoAberto(em("base.db")).get(), {comando, 1}, em("disco/r.txt")).resultado, 3);
    relato.caso();
  }
}

TEST_F(DiscoProprio, ThatIsFullGivesFour) {
  Relato relato("Writes", "File system without room");
  escreveBytes(em("disco/r.txt"), kAntigo);
  for (int paginas = 1; paginas <= 3; ++paginas) {  // of the four that there are
    escreveBytes(em("disco/cheio"), std::string(static_cast<std::size_t>(paginas) * 4096, 'x'));
    const bool cabe = paginas < 3;
    const Fim fim = geraNoDisco("RZ");
    EXPECT_EQ(fim.situacao, cabe ? 0 : 4) << fim.erros;
    EXPECT_TRUE(leBytes(em("disco/r.txt")) == (cabe ? inteiro : kAntigo));
    escreveBytes(em("disco/r.txt"), kAntigo);
    relato.caso();
  }
}

}  // namespace
