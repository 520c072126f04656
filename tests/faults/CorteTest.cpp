// The program killed at each call that writes, syncs, closes or names a file: under the final name stands the
// old file or the whole new one, and what else is left goes with the next run.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <memory>
#include <ostream>
#include <utility>

#include "Cena.h"
#include "Prova.h"
#include "Relato.h"

namespace fs = std::filesystem;

namespace {

using Opcoes = std::vector<std::string>;

constexpr char kSobra[] = "\\.[A-Za-z0-9.]+\\.cotepe-[0-9a-z]{6}\\.tmp";
constexpr char kAntigo[] = "old\n";

// Rows for a report that is written in several blocks.
constexpr char kGrande[] =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 30000)"
    " INSERT INTO totalizador_reducao SELECT 11, '01T' || i, 1, 'S' FROM n";

// A way to run the program, and the file that it makes.
struct Cenario {
  std::string nome;
  Opcoes opcoes;
  std::string destino = "r.txt";  // empty: a name that the program makes, or stdout
  bool antigo = false;            // whether a file stands there before
  std::string banco;              // more SQL
  int situacao = 0;
  bool todosTemNome = false;  // a file system without files that have no name

  bool paraStdout() const { return std::find(opcoes.begin(), opcoes.end(), "-") != opcoes.end(); }
};

std::vector<Cenario> cenarios() {
  std::vector<Cenario> lista;
  for (const char* comando : {"MF", "MFD", "TDM", "RZ"}) {
    for (const char* versao : {"1", "2"}) {
      const Opcoes comuns = {"--command", comando, "--layout", versao, "--quiet"};
      const auto com = [&](const char* nome, Opcoes mais, const char* destino, bool antigo) {
        mais.insert(mais.end(), comuns.begin(), comuns.end());
        lista.push_back({std::string(nome) + comando + versao, mais, destino, antigo, "", 0, false});
      };
      com("New", {"--output", "r.txt"}, "r.txt", false);
      com("Old", {"--output", "r.txt", "--force"}, "r.txt", true);
      com("OwnName", {}, "", false);
      com("Stdout", {"--output", "-"}, "", false);
    }
  }
  lista.push_back({"Cat52", {"--output", "r.txt", "--cat52"}, "r.txt", false, "", 0, false});
  lista.push_back({"Refused", {"--output", "r.txt"}, "r.txt", true, "", 3, false});
  lista.push_back({"Logged", {"--output", "r.txt", "--log", "falhas.log"}, "r.txt", false, "", 0, false});
  lista.push_back({"Big", {"--output", "r.txt", "--force"}, "r.txt", true, kGrande, 0, false});
  lista.push_back({"BigStdout", {"--output", "-"}, "", false, kGrande, 0, false});
  lista.push_back({"NamedStdout", {"--output", "-"}, "", false, "", 0, true});
  lista.push_back(
      {"Incomplete", {"--output", "r.txt", "--force"}, "r.txt", true, "DROP TABLE moeda", 1, false});
  lista.push_back({"Partial",
                   {"--output", "r.txt", "--force", "--keep-partial"},
                   "r.txt.partial",
                   true,
                   "DROP TABLE moeda",
                   1,
                   false});
  return lista;
}

class Corte : public Cena, public testing::WithParamInterface<Cenario> {
 protected:
  Corte() {
    criaBanco(GetParam().banco);
    fs::create_directory(em("tmp"));
  }

  void recomeca() const {
    for (const std::string& nome : nomes())
      if (nome != "base.db" && nome != "tmp") fs::remove(em(nome));
    if (GetParam().antigo) escreveBytes(em(GetParam().destino), kAntigo);
  }

  Fim roda(const Regra& regra, const Opcoes& mais = {}) const {
    const Prazo prazo;
    Opcoes opcoes = GetParam().opcoes;
    opcoes.insert(opcoes.end(), mais.begin(), mais.end());
    Processo processo(generate(opcoes));
    processo.naPasta(pasta()).comAmbiente("TMPDIR", em("tmp"));
    if (GetParam().paraStdout()) processo.comSaidaEm(em("saida.txt"));
    const auto semNome = [&](const Chamada& chamada) {
      const bool pede = chamada.numero == SYS_openat && (chamada.argumentos[2] & O_TMPFILE) == O_TMPFILE;
      if (pede) return Destino{Destino::Erra, EOPNOTSUPP};
      return regra ? regra(chamada) : Destino{};
    };
    if (GetParam().todosTemNome)
      processo.comRegra(semNome);
    else if (regra)
      processo.comRegra(regra);
    return processo.inicia().espera();
  }

  // What stands under the final name; nothing where there is none.
  std::string destino() const {
    const std::string nome = GetParam().paraStdout() ? "saida.txt" : GetParam().destino;
    for (const std::string& outro : nomes())
      if (nome.empty() ? outro.find(".TXT") != std::string::npos && outro[0] != '.' : outro == nome)
        return semCarimbo(leBytes(em(outro)));
    return "";
  }

  // The names in the folder and in that of temporary files that are neither input nor output.
  Opcoes sobras() const {
    Opcoes lista;
    for (const std::string& nome : nomes())
      if (nome[0] == '.') lista.push_back(nome);
    for (const auto& item : fs::directory_iterator(em("tmp"))) lista.push_back(item.path().filename());
    return lista;
  }

  void confereInteiroOuAntigo(const std::string& inteiro) const {
    const std::string agora = destino();
    if (GetParam().paraStdout()) {
      EXPECT_EQ(inteiro.compare(0, agora.size(), agora), 0) << "stdout got something else";
    } else {
      EXPECT_TRUE(agora == inteiro || agora == (GetParam().antigo ? kAntigo : ""))
          << agora.size() << " bytes";
    }
  }

  // A leftover can be known as one, and the next run removes it.
  void confereSobras(const std::string& inteiro) const {
    const Opcoes antes = sobras();
    EXPECT_LE(antes.size(), 1U);
    for (const std::string& nome : antes) EXPECT_TRUE(corresponde(nome, kSobra)) << nome;
    fs::remove(em("saida.txt"));
    const Fim fim = roda(nullptr, {"--force"});
    EXPECT_EQ(fim.situacao, GetParam().situacao == 3 ? 0 : GetParam().situacao) << fim.erros;
    EXPECT_TRUE(GetParam().situacao != 0 || destino() == inteiro) << "after the next run";
    EXPECT_EQ(sobras(), Opcoes{});
  }
};

TEST_P(Corte, OldFileOrWholeNewOneWhereverItIsKilled) {
  Relato relato("Killed", "cotepe generate killed at a call that writes, syncs, closes or names a file");
  recomeca();
  long chamadas = 0;
  const auto conta = [&](const Chamada& chamada) {
    chamadas += grava(chamada) ? 1 : 0;
    return Destino{};
  };
  EXPECT_EQ(roda(conta).situacao, GetParam().situacao);
  const std::string inteiro = destino();
  const long total = chamadas;
  EXPECT_GT(total, 5);
  const long passo = casos(std::max(total / 6, 1L), 1L);
  for (long vez = 1; vez <= total; vez += passo) {
    for (const auto tipo : {Destino::MataAntes, Destino::MataDepois}) {
      if (!formaLonga() && (vez / passo) % 2 == (tipo == Destino::MataAntes ? 0 : 1)) continue;
      recomeca();
      chamadas = 0;
      std::string qual;
      const Fim fim = roda([&](const Chamada& chamada) {
        if (!grava(chamada) || ++chamadas != vez) return Destino{};
        qual = std::to_string(chamada.numero) + ' ' + chamada.alvo();
        return Destino{tipo};
      });
      SCOPED_TRACE((tipo == Destino::MataAntes ? "before call " : "after call ") + std::to_string(vez) +
                   ": " + qual);
      EXPECT_EQ(fim.sinal, SIGKILL);
      confereInteiroOuAntigo(inteiro);
      confereSobras(inteiro);
      relato.caso();
    }
  }
}

void PrintTo(const Cenario& cenario, std::ostream* texto) { *texto << cenario.nome; }

INSTANTIATE_TEST_SUITE_P(Settings, Corte, testing::ValuesIn(cenarios()),
                         [](const auto& cenario) { return cenario.param.nome; });

class Nome : public Cena {};

// What is written reaches the disk before the name does, and the name before the program says that it is
// done.
TEST_F(Nome, IsGivenToWhatIsOnTheDiskAndBroughtThereToo) {
  Relato relato("Killed", "Order of writing, syncing, naming and syncing again");
  for (const char* sql : {"", kGrande}) {
    fs::remove(em("base.db"));
    fs::remove(em("r.txt"));
    criaBanco(sql);
    std::string passos;
    const auto anota = [&](const Chamada& chamada) {
      const bool temporario = chamada.alvo().find("/.r.txt.cotepe-") != std::string::npos;
      if (chamada.numero == SYS_write && temporario) passos += 'w';
      if (chamada.numero == SYS_fsync) passos += temporario ? 's' : chamada.alvo() == pasta() ? 'p' : '?';
      if (chamada.numero == SYS_renameat2) passos += 'n';
      return Destino{};
    };
    EXPECT_EQ(
        Processo(generate({"--output", "r.txt"})).naPasta(pasta()).comRegra(anota).inicia().espera().situacao,
        0);
    EXPECT_TRUE(corresponde(passos, "w+snp")) << passos;
    relato.caso();
  }
}

// Killed as soon as the file behind stdout is there: it has no name, or, where every file has one, a name
// that the next run knows.
TEST_F(Nome, BehindStdoutIsNoneOrOneThatTheNextRunRemoves) {
  Relato relato("Killed", "Killed once the temporary file behind stdout is there");
  criaBanco();
  fs::create_directory(em("tmp"));
  const auto quantos = [&] {
    return std::distance(fs::directory_iterator(em("tmp")), fs::directory_iterator());
  };
  const auto roda = [&](bool todosTemNome, bool mata) {
    Processo processo(generate({"--output", "-", "--quiet"}));
    const auto regra = [=](const Chamada& chamada) {
      if (chamada.numero != SYS_openat) return Destino{};
      const bool semNome = (chamada.argumentos[2] & O_TMPFILE) == O_TMPFILE;
      if (semNome && todosTemNome) return Destino{Destino::Erra, EOPNOTSUPP};
      return mata && (semNome || grava(chamada)) ? Destino{Destino::MataDepois} : Destino{};
    };
    return processo.naPasta(pasta()).comAmbiente("TMPDIR", em("tmp")).comRegra(regra).inicia().espera();
  };
  for (const bool todosTemNome : {false, true}) {
    EXPECT_EQ(roda(todosTemNome, true).sinal, SIGKILL);
    EXPECT_EQ(quantos(), todosTemNome ? 1 : 0);
    EXPECT_EQ(roda(todosTemNome, false).situacao, 0);
    EXPECT_EQ(quantos(), 0);
    relato.caso();
  }
}

// The command that makes a database: none or a whole one, and what is left goes with the next.
TEST_F(Nome, OfASampleIsGivenToAWholeDatabase) {
  Relato relato("Killed", "cotepe sample killed at a call that writes, syncs, closes or names a file");
  const auto roda = [&](const Regra& regra) {
    const Prazo prazo;
    Processo processo({"sample", "s.db", "--days", "1", "--coupons-per-day", "1"});
    return processo.naPasta(pasta()).comRegra(regra).inicia().espera();
  };
  long chamadas = 0, vez = 0;
  auto tipo = Destino::Segue;
  const auto regra = [&](const Chamada& chamada) {
    return grava(chamada) && ++chamadas == vez ? Destino{tipo} : Destino{};
  };
  EXPECT_EQ(roda(regra).situacao, 0);
  const std::string inteiro = leBytes(em("s.db"));
  const long total = std::exchange(chamadas, 0), passo = casos(std::max(total / 12, 1L), 1L);
  for (vez = 1; vez <= total; vez += passo) {
    for (const auto quando : {Destino::MataAntes, Destino::MataDepois}) {
      SCOPED_TRACE((quando == Destino::MataAntes ? "before call " : "after call ") + std::to_string(vez));
      fs::remove(em("s.db"));
      tipo = quando;
      chamadas = 0;
      EXPECT_EQ(roda(regra).sinal, SIGKILL);
      EXPECT_TRUE(!fs::exists(em("s.db")) || leBytes(em("s.db")) == inteiro);
      fs::remove(em("s.db"));
      tipo = Destino::Segue;
      EXPECT_EQ(roda(regra).situacao, 0);
      EXPECT_EQ(nomes(), Opcoes{"s.db"});
      relato.caso();
    }
  }
}

class AoMesmoTempo : public Cena {
 protected:
  AoMesmoTempo() {
    criaBanco();
    EXPECT_EQ(gera({"--output", "r.txt"}).situacao, 0);
    inteiro_ = semCarimbo(leBytes(em("r.txt")));
  }

  std::unique_ptr<Processo> comeca(const Opcoes& mais) const {
    auto processo = std::make_unique<Processo>(generate(mais));
    processo->naPasta(pasta()).inicia();
    return processo;
  }

  void confere() const {
    EXPECT_TRUE(semCarimbo(leBytes(em("r.txt"))) == inteiro_);
    EXPECT_EQ(nomes(), (Opcoes{"base.db", "r.txt"}));
  }

 private:
  std::string inteiro_;
};

TEST_F(AoMesmoTempo, RunsToOneNameDoNoHarmToEachOther) {
  Relato relato("Killed", "Three runs to the same name at once");
  for (int vez = 0; vez < casos(8, 200); ++vez) {
    SCOPED_TRACE(vez);
    const Prazo prazo;
    const bool substitui = vez % 2 == 0;
    unlink(em("r.txt").c_str());
    std::vector<std::unique_ptr<Processo>> todos;
    for (int i = 0; i < 3; ++i)
      todos.push_back(
          comeca(substitui ? Opcoes{"--output", "r.txt", "--force"} : Opcoes{"--output", "r.txt"}));
    int feitos = 0;
    for (const auto& processo : todos) {
      const Fim fim = processo->espera();
      feitos += fim.situacao == 0 ? 1 : 0;
      EXPECT_TRUE(fim.situacao == 0 || (fim.situacao == 3 && !substitui)) << fim.erros;
    }
    EXPECT_EQ(feitos, substitui ? 3 : 1);
    confere();
    relato.caso();
  }
}

TEST_F(AoMesmoTempo, OneThatIsKilledDoesNoHarmToAnother) {
  Relato relato("Killed", "A run killed while another writes to the same name");
  const Opcoes opcoes = {"--output", "r.txt", "--force"};
  for (int vez = 1; vez <= casos(8, 200); ++vez) {
    SCOPED_TRACE(vez);
    const Prazo prazo;
    const auto vivo = comeca(opcoes);
    int chamadas = 0;
    const auto mata = [&](const Chamada& chamada) {
      const bool temporario = chamada.alvo().find(".cotepe-") != std::string::npos;
      return temporario && ++chamadas > vez % 4 ? Destino{Destino::MataDepois} : Destino{};
    };
    Processo morto(generate(opcoes));
    EXPECT_EQ(morto.naPasta(pasta()).comRegra(mata).inicia().espera().sinal, SIGKILL);
    const Fim fim = vivo->espera();
    EXPECT_EQ(fim.situacao, 0) << fim.erros;
    EXPECT_EQ(gera(opcoes).situacao, 0);
    confere();
    relato.caso();
  }
}

}  // namespace
