// A printer that goes on printing: reports made while documents are committed without pause.
#include <chrono>
#include <functional>
#include <map>
#include <set>

#include "Bancada.h"
#include "Cena.h"
#include "Escritor.h"
#include "Relato.h"
#include "referencia/Referencia.h"

namespace {

using Relogio = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr char kAssunto[] = "A printer that goes on printing";

const std::string kBancoTrancado = "another process has had it locked for more than ";

// The report of the state k as the second reading makes it, from a database built anew.
std::string relatorioDoEstado(long k, const std::string& momento) {
  Livro livro(":memory:", "MEMORY");
  for (long i = std::max(1L, k - Livro::kDocumentos + 1); i <= k; ++i) livro.registra(i);
  referencia::Entrada entrada;
  entrada.inicial = "01012024";
  entrada.final = "31012024";
  entrada.comando = "TDM";
  entrada.dataHoraDoSistema = momento;
  return referencia::gera(livro.get(), entrada).arquivo;
}

// The state that E01 tells by the version of the software; -1 where it tells none.
long estadoDe(const std::string& relatorio) {
  const std::size_t v = relatorio.find('v');
  return v < relatorio.find('\n') ? std::atol(relatorio.c_str() + v + 1) : -1;
}

// The moment that E11 ends with, as the clock gives it.
std::string momentoDe(const std::string& relatorio) {
  const std::size_t e11 = relatorio.find("\nE11");
  const std::size_t fim = e11 == std::string::npos ? e11 : relatorio.find('\n', e11 + 1);
  if (fim == std::string::npos) return {};
  return relatorio.substr(fim - 14, 8) + " " + relatorio.substr(fim - 6, 6);
}

class Concorrencia : public Cena {
 protected:
  // `antes` and `depois`: the documents that were certainly committed when the report began and ended.
  void confere(const std::string& relatorio, long antes, long depois) {
    const long k = estadoDe(relatorio);
    EXPECT_GE(k, antes);
    EXPECT_LE(k, depois + 1);  // a commit is seen before it has returned
    EXPECT_EQ(relatorio, relatorioDoEstado(k, momentoDe(relatorio))) << "state " << k;
    estados_.insert(k);
  }

  // Several reports at once, as many times as it takes.
  void peloPrograma(const Modo& modo, Relato& relato, long relatorios) {
    constexpr int kJuntos = 4;
    const Escritor escritor(em("base.db"), modo);
    while (relato.quantos() < relatorios) {
      std::vector<std::unique_ptr<Processo>> processos;
      const long antes = escritor.confirmados();
      for (int i = 0; i < kJuntos; ++i) {
        processos.push_back(
            std::make_unique<Processo>(generate({"--output", "-", "--quiet", "--busy-timeout", "60000"})));
        processos.back()->naPasta(pasta()).inicia();
      }
      for (const auto& processo : processos) {
        const Fim fim = processo->espera();
        EXPECT_EQ(fim.situacao, 0);
        EXPECT_EQ(fim.erros, "");
        if (fim.situacao == 0) confere(fim.saida, antes, escritor.confirmados());
        relato.caso();
      }
    }
    exigeMuitosEstados(relatorios / kJuntos);
  }

  // The host holds the transaction.
  void pelaBiblioteca(const Modo& modo, Relato& relato, long relatorios) {
    const Escritor escritor(em("base.db"), modo);
    sqlite3* banco = nullptr;
    ASSERT_EQ(sqlite3_open_v2(em("base.db").c_str(), &banco, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    sqlite3_busy_timeout(banco, 60000);
    CotepeManager gerador(banco);
    while (relato.quantos() < relatorios) {
      const long antes = escritor.confirmados();
      EXPECT_EQ(sqlite3_exec(banco, "BEGIN", nullptr, nullptr, nullptr), SQLITE_OK);
      EXPECT_EQ(gerador.GeraRegistrosTipoE(em("r.txt").c_str(), "01012024", "31012024", "TDM"), 0);
      EXPECT_EQ(sqlite3_exec(banco, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
      confere(leArquivo(em("r.txt")), antes, escritor.confirmados());
      relato.caso();
    }
    EXPECT_EQ(sqlite3_close(banco), SQLITE_OK);
    exigeMuitosEstados(relatorios / 4);
  }

  void exigeMuitosEstados(long quantos) const {
    EXPECT_GE(static_cast<long>(estados_.size()), quantos) << "the writer did not write meanwhile";
  }

 private:
  std::set<long> estados_;
};

TEST_F(Concorrencia, EachReportOfTheProgramIsOneCommittedStateInWalMode) {
  Relato relato(kAssunto, "reports of the program, a writer in WAL mode");
  peloPrograma({"WAL", false}, relato, casos(40, 1000));
}

TEST_F(Concorrencia, EachReportOfTheProgramIsOneCommittedStateInRollbackMode) {
  Relato relato(kAssunto, "reports of the program, a writer in rollback mode");
  peloPrograma({"DELETE", false}, relato, casos(40, 1000));
}

TEST_F(Concorrencia, JournalsThatAreKeptChangeNothing) {
  Relato relato(kAssunto, "reports of the program, a writer in rollback mode that keeps its journal");
  peloPrograma({"PERSIST", false}, relato, casos(20, 500));
}

TEST_F(Concorrencia, AWriterThatOpensAndClosesForEachDocumentChangesNothing) {
  Relato relato(kAssunto, "reports of the program, a writer that opens and closes the WAL for each document");
  peloPrograma({"WAL", true}, relato, casos(40, 1000));
}

TEST_F(Concorrencia, EachReportOfTheLibraryInsideATransactionIsOneCommittedStateInWalMode) {
  const Bancada relogio;
  Relato relato(kAssunto, "reports of the library inside the host's transaction, a writer in WAL mode");
  pelaBiblioteca({"WAL", false}, relato, casos(100, 1000));
}

TEST_F(Concorrencia, EachReportOfTheLibraryInsideATransactionIsOneCommittedStateInRollbackMode) {
  const Bancada relogio;
  Relato relato(kAssunto, "reports of the library inside the host's transaction, a writer in rollback mode");
  pelaBiblioteca({"DELETE", false}, relato, casos(100, 1000));
}

// The library itself opens no transaction: each query sees what is committed when it begins.
class SemTransacao : public Concorrencia {
 protected:
  // The report of a host that says `antes` first, where document 2 is committed once E06 is asked for.
  std::string gera(const char* antes) {
    const Bancada relogio;
    Livro livro(em("base.db"), "WAL");
    livro.registra(1);
    sqlite3* banco = nullptr;
    EXPECT_EQ(sqlite3_open(em("base.db").c_str(), &banco), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(banco, antes, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_trace_v2(banco, SQLITE_TRACE_STMT, aoPerguntar, &livro);
    EXPECT_EQ(CotepeManager(banco).GeraRegistrosTipoE(em("r.txt").c_str(), "01012024", "31012024", "TDM"), 0);
    emTransacao_ = sqlite3_get_autocommit(banco) == 0;
    EXPECT_EQ(sqlite3_close(banco), SQLITE_OK);
    return leArquivo(em("r.txt"));
  }

  static int aoPerguntar(unsigned /*tipo*/, void* livro, void* /*consulta*/, void* sql) {
    if (std::string(static_cast<const char*>(sql)).find("FROM moeda") != std::string::npos)
      static_cast<Livro*>(livro)->registra(2);
    return 0;
  }

  bool emTransacao_ = false;
};

TEST_F(SemTransacao, ALibraryRunFollowsTheCommitsWhereItsHostHoldsNoTransaction) {
  const std::string relatorio = gera("");
  EXPECT_FALSE(emTransacao_);
  EXPECT_EQ(estadoDe(relatorio), 1);
  EXPECT_NE(relatorio, relatorioDoEstado(1, momentoDe(relatorio)));
  EXPECT_NE(relatorio, relatorioDoEstado(2, momentoDe(relatorio)));
  const std::string segundo = relatorioDoEstado(2, momentoDe(relatorio));
  const std::size_t e12 = segundo.find("\nE12");
  ASSERT_NE(e12, std::string::npos);
  EXPECT_EQ(relatorio.substr(relatorio.find("\nE12")), segundo.substr(e12));
}

TEST_F(SemTransacao, ALibraryRunIsOneStateWhereItsHostHoldsATransactionAndLeavesItOpen) {
  const std::string relatorio = gera("BEGIN");
  EXPECT_TRUE(emTransacao_);
  EXPECT_EQ(relatorio, relatorioDoEstado(1, momentoDe(relatorio)));
}

// What a lock does to each command that reads a database.
class Trancado : public Cena {
 protected:
  Trancado() {
    criaBanco();
    EXPECT_EQ(gera({"--output", "r.txt", "--quiet"}).situacao, 0);
  }

  // Milliseconds from the start to the end of a command, which ends as `fim` says.
  long demora(std::vector<std::string> comando, const std::string& espera, Fim& fim) {
    comando.insert(comando.end(), {"--db", "base.db", "--busy-timeout", espera});
    const auto inicio = Relogio::now();
    fim = roda(comando, pasta());
    return std::chrono::duration_cast<milliseconds>(Relogio::now() - inicio).count();
  }

  void recusaTodos(const std::string& caso, Relato& relato) {
    for (const auto& comando : kComandos)
      for (const std::string espera : {"0", "1", "300", "700"}) {
        Fim fim;
        const long demorou = demora(comando, espera, fim);
        EXPECT_GE(demorou, std::atol(espera.c_str()));
        EXPECT_LT(demorou, std::atol(espera.c_str()) + 5000);
        EXPECT_EQ(fim.situacao, comando[0] == "generate" ? 3 : 2) << caso << comando[0];
        EXPECT_EQ(fim.erros, "cotepe: error: cannot read the database base.db: " + kBancoTrancado + espera +
                                 " ms; try again when that is done, or wait longer with --busy-timeout\n");
        EXPECT_EQ(fim.saida, "");
        relato.caso();
      }
  }

  const std::vector<std::vector<std::string>> kComandos = {
      {"generate", "--from", "01012024", "--to", "31012024", "--output", "-"},
      {"check"},
      {"verify", "r.txt"}};
};

TEST_F(Trancado, LongerThanThePatienceIsSaidToBeSo) {
  Relato relato(kAssunto, "commands that meet a lock for longer than --busy-timeout");
  Banco outro(em("base.db"));
  outro.sql("BEGIN EXCLUSIVE");
  recusaTodos("rollback ", relato);
  outro.sql(
      "COMMIT; PRAGMA locking_mode = EXCLUSIVE; PRAGMA journal_mode = WAL; UPDATE moeda SET simbolo_moeda = "
      "'R$'");
  recusaTodos("WAL ", relato);
}

TEST_F(Trancado, ShorterThanThePatienceIsNoFailure) {
  Relato relato(kAssunto, "commands that meet a lock for less than --busy-timeout");
  for (std::vector<std::string> comando : kComandos) {
    Banco outro(em("base.db"));
    outro.sql("BEGIN EXCLUSIVE");
    comando.insert(comando.end(), {"--db", "base.db", "--busy-timeout", "60000"});
    Processo processo(comando);
    processo.naPasta(pasta()).inicia();
    EXPECT_FALSE(processo.termineEm(400)) << comando[0];
    outro.sql("COMMIT");
    const Fim fim = processo.espera();
    EXPECT_EQ(fim.erros.find("locked"), std::string::npos) << fim.erros;
    EXPECT_EQ(fim.situacao, comando[0] == "check" ? 1 : 0) << fim.erros;  // which has things to find there
    relato.caso();
  }
}

}  // namespace
