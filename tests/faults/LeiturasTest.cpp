// Disks that cannot read, read less, or are busy: a run says so, or its report is right; and the next is
// right.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>

#include "Cena.h"
#include "DiscoRuim.h"
#include "Prova.h"
#include "Relato.h"

namespace {

constexpr int kPagina = 512;
constexpr Escolha kTudo = {"TDM", 2};

const char* nomeDe(DiscoRuim::Metodo metodo) {
  switch (metodo) {
    case DiscoRuim::Leitura:
      return "read";
    case DiscoRuim::Tranca:
      return "lock";
    case DiscoRuim::TrancaDaMemoria:
      return "lock of the write-ahead log";
    case DiscoRuim::Tamanho:
      return "question for the size of a file";
    case DiscoRuim::Abertura:
      return "opening of a file";
    case DiscoRuim::Nenhum:
      break;
  }
  return "";
}

class Leituras : public testing::Test {
 protected:
  Leituras() {
    criaBancoDeProva(caminho(), kPagina);
    certo_ = corre(BancoAberto(caminho()).get(), kTudo, relatorio()).relatorio;
    EXPECT_GT(certo_.size(), 10000U);
  }
  ~Leituras() override { DiscoRuim::tira(); }

  std::string caminho() const { return pasta_.em("base.db"); }
  std::string relatorio() const { return pasta_.em("r.txt"); }

  // Kept in the mode of the write-ahead log by a connection that does nothing else.
  void comWal() {
    const BancoAberto banco(caminho());
    banco.sql(
        "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0; UPDATE moeda SET simbolo_moeda = 'R$'");
    sqlite3_db_config(banco.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }

  // Runs with the fault; expects a message or the right report, and the right report once the fault is gone.
  // Returns whether the fault was met.
  bool confere(DiscoRuim::Metodo metodo, long vez, bool dali, int codigo) {
    const Prazo prazo;
    DiscoRuim::poe(metodo, vez, dali, codigo);
    sqlite3* banco = nullptr;
    constexpr int kModo = SQLITE_OPEN_READWRITE;
    const int aberto = sqlite3_open_v2(caminho().c_str(), &banco, kModo, DiscoRuim::kNome);
    sqlite3_exec(banco, "PRAGMA cache_size = 5", nullptr, nullptr, nullptr);  // pages: most are read again
    if (aberto == SQLITE_OK) {
      const Corrida corrida = corre(banco, kTudo, relatorio());
      EXPECT_TRUE(corrida.resultado == 0 || corrida.resultado == 5 ||
                  (corrida.resultado == 4 && codigo == SQLITE_NOMEM))
          << corrida.resultado;
      EXPECT_TRUE(corrida.avisou() || corrida.relatorio == certo_) << "a wrong report and no message";
    }
    const bool encontrada = DiscoRuim::atual().chamadas >= vez;
    DiscoRuim::tira();
    if (aberto == SQLITE_OK) {
      const Corrida depois = corre(banco, kTudo, relatorio());
      EXPECT_FALSE(depois.avisou());
      EXPECT_TRUE(depois.relatorio == certo_) << "after the fault was gone";
    }
    sqlite3_close(banco);
    return encontrada;
  }

  // Every call of that kind in turn, or every `passo`th, once or from then on. Returns how many there are.
  long cadaVez(Relato& relato, DiscoRuim::Metodo metodo, int codigo, long passo) {
    for (long vez = 1;; vez += passo) {
      for (const bool dali : {false, true}) {
        SCOPED_TRACE(nomeDe(metodo) + (' ' + std::to_string(vez)) + (dali ? " and on: " : ": ") +
                     sqlite3_errstr(codigo));
        if (!confere(metodo, vez, dali, codigo)) return vez - 1;
        relato.caso();
      }
    }
  }

  std::string certo_;

 private:
  PastaDeProva pasta_;
};

TEST_F(Leituras, EachReadMayFail) {
  Relato relato("Reads", "VFS whose n-th read fails, once or from then on");
  for (const int codigo : {SQLITE_IOERR_READ, SQLITE_IOERR_CORRUPTFS, SQLITE_BUSY, SQLITE_NOMEM})
    EXPECT_GT(cadaVez(relato, DiscoRuim::Leitura, codigo, casos(13, 1)), 50);
}

TEST_F(Leituras, EachReadMayFailUnderAWriteAheadLog) {
  Relato relato("Reads", "VFS whose n-th read fails under a write-ahead log");
  comWal();
  EXPECT_GT(cadaVez(relato, DiscoRuim::Leitura, SQLITE_IOERR_READ, casos(13, 1)), 50);
}

TEST_F(Leituras, EachLockMayBeBusy) {
  Relato relato("Reads", "VFS whose n-th lock is busy or fails");
  for (const int codigo : {SQLITE_BUSY, SQLITE_IOERR_LOCK})
    EXPECT_GT(cadaVez(relato, DiscoRuim::Tranca, codigo, casos(3, 1)), 20);
}

TEST_F(Leituras, EachLockOfTheWriteAheadLogMayBeBusy) {
  Relato relato("Reads", "VFS whose n-th lock of the write-ahead log is busy or fails");
  comWal();
  for (const int codigo : {SQLITE_BUSY, SQLITE_IOERR_SHMLOCK})
    EXPECT_GT(cadaVez(relato, DiscoRuim::TrancaDaMemoria, codigo, casos(3, 1)), 20);
}

TEST_F(Leituras, EachSizeAndOpeningMayFail) {
  Relato relato("Reads", "VFS that does not tell the size of a file, or opens none");
  EXPECT_GT(cadaVez(relato, DiscoRuim::Tamanho, SQLITE_IOERR_FSTAT, casos(3, 1)), 20);
  EXPECT_GT(cadaVez(relato, DiscoRuim::Abertura, SQLITE_CANTOPEN, 1), 0);
}

// SQLite takes the half that is missing for zeros: another database, unless it sees that they cannot be.
TEST_F(Leituras, EachPageMayBeReadShort) {
  Relato relato("Reads", "VFS that reads a page short");
  const std::string linhas = linhasDoBanco(BancoAberto(caminho()).get());
  const auto bytes = static_cast<sqlite3_int64>(leBytes(caminho()).size());
  long avisados = 0;
  for (sqlite3_int64 posicao = 0; posicao < bytes; posicao += kPagina) {
    SCOPED_TRACE("position " + std::to_string(posicao));
    const Prazo prazo;
    DiscoRuim::poeNaPosicao(posicao, SQLITE_IOERR_SHORT_READ);
    const BancoAberto banco(caminho(), DiscoRuim::kNome);
    if (julga(banco.get(), kTudo, relatorio(), certo_, linhas) == Veredito::Avisado) ++avisados;
    relato.caso();
  }
  EXPECT_GT(avisados, 5);
}

// The program, whose n-th read of the database the system does not do.
class LeiturasDoPrograma : public Cena {
 protected:
  LeiturasDoPrograma() {
    criaBancoDeProva(em("base.db"), kPagina);
    banco_ = leBytes(em("base.db"));
    certo_ = relatorioDe(banco_);
    EXPECT_GT(certo_.size(), 10000U);
  }

  // The report of the registers of MFD, which do not carry the time of the run.
  Fim geraCom(const Regra& regra) const {
    return Processo(generate({"--output", "r.txt", "--quiet", "--layout", "2", "--command", "MFD"}))
        .naPasta(pasta())
        .comRegra(regra)
        .inicia()
        .espera();
  }
  std::string relatorioDe(const std::string& banco) const {
    escreveBytes(em("copia.db"), banco);
    const Corrida corrida = correReferencia(BancoAberto(em("copia.db")).get(), {"MFD", 2});
    unlink(em("copia.db").c_str());
    return corrida.avisou() ? "" : corrida.relatorio;
  }

  // `outro`: the report of the other database that the system pretended to be there.
  void confere(const Fim& fim, const std::string& outro = "") {
    EXPECT_EQ(fim.sinal, 0);
    EXPECT_TRUE(fim.situacao == 0 || fim.situacao == 1 || fim.situacao == 3 || fim.situacao == 5)
        << fim.situacao << ' ' << fim.erros;
    const auto lista = nomes();
    const bool ha = std::find(lista.begin(), lista.end(), "r.txt") != lista.end();
    EXPECT_EQ(ha, fim.situacao == 0) << fim.erros;
    EXPECT_EQ(lista.size(), ha ? 2U : 1U);
    const std::string relatorio = ha ? leBytes(em("r.txt")) : "";
    EXPECT_TRUE(!ha || relatorio == certo_ || relatorio == outro);
    unlink(em("r.txt").c_str());
  }

  // Every `passo`th read of the database in turn becomes `destino`; `zerado`: it finds the end of the file.
  void cadaLeitura(Relato& relato, const Destino& destino, bool zerado, long passo) {
    for (long vez = 1;; vez += passo) {
      SCOPED_TRACE("read " + std::to_string(vez));
      const Prazo prazo;
      long chamadas = 0;
      std::string banco = banco_;
      const Fim fim = geraCom([&](const Chamada& chamada) {
        if (chamada.numero != SYS_pread64 || chamada.alvo() != em("base.db") || ++chamadas != vez)
          return Destino{};
        if (zerado && chamada.argumentos[3] + chamada.argumentos[2] <= banco.size())
          banco.replace(chamada.argumentos[3], chamada.argumentos[2], chamada.argumentos[2], '\0');
        return destino;
      });
      if (chamadas < vez) return static_cast<void>(unlink(em("r.txt").c_str()));
      confere(fim, zerado ? relatorioDe(banco) : "");
      if (fim.situacao != 0) ++recusados;
      relato.caso();
    }
  }

  long recusados = 0;

 private:
  std::string banco_, certo_;
};

TEST_F(LeiturasDoPrograma, EachReadMayFail) {
  Relato relato("Reads", "cotepe generate whose n-th read of the database fails");
  cadaLeitura(relato, {Destino::Erra, EIO}, false, casos(5, 1));
  EXPECT_GT(recusados, 5);
}

TEST_F(LeiturasDoPrograma, EachReadMayBeShortOrInterrupted) {
  Relato relato("Reads", "cotepe generate whose n-th read of the database is short or interrupted");
  cadaLeitura(relato, {Destino::Encurta}, false, casos(9, 1));
  cadaLeitura(relato, {Destino::Erra, EINTR}, false, casos(9, 1));
  EXPECT_EQ(recusados, 0);
}

TEST_F(LeiturasDoPrograma, EachReadMayFindTheEndOfTheFile) {
  Relato relato("Reads", "cotepe generate whose n-th read of the database finds no bytes");
  cadaLeitura(relato, {Destino::Erra, 0}, true, casos(5, 1));
  EXPECT_GT(recusados, 5);
}

// Whether the call asks for a lock, or waits for one; giving one back never fails so.
bool pedeTranca(const Chamada& chamada) {
  struct flock pedido {};
  iovec aqui{&pedido, sizeof pedido}, la{reinterpret_cast<void*>(chamada.argumentos[2]), sizeof pedido};
  return chamada.numero == SYS_fcntl && chamada.argumentos[1] == F_SETLK &&
         process_vm_readv(chamada.quem, &aqui, 1, &la, 1, 0) > 0 && pedido.l_type != F_UNLCK;
}

TEST_F(LeiturasDoPrograma, EachLockMayBeTaken) {
  Relato relato("Reads", "cotepe generate whose n-th lock of the database is taken, and then free");
  for (long vez = 1;; ++vez) {
    SCOPED_TRACE("lock " + std::to_string(vez));
    const Prazo prazo;
    long chamadas = 0;
    const Fim fim = geraCom([&](const Chamada& chamada) {
      return pedeTranca(chamada) && ++chamadas == vez ? Destino{Destino::Erra, EAGAIN} : Destino{};
    });
    if (chamadas < vez) break;
    confere(fim);
    EXPECT_EQ(fim.situacao, 0) << "it did not wait: " << fim.erros;
    relato.caso();
  }
  EXPECT_GT(relato.quantos(), 1);
}

}  // namespace
