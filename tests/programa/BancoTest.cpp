// The database as it may be found: missing, foreign, locked, damaged, and written to while it is read.
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <thread>
#include <utility>

#include "BancoSomenteLeitura.h"
#include "Cena.h"

namespace fs = std::filesystem;

namespace {

class BancoEncontrado : public Cena {
 protected:
  void recusa(const std::string& banco, const std::string& mensagem) {
    const Fim fim = roda(
        {"generate", "--db", banco, "--from", "01012024", "--to", "31012024", "--output", "r.txt"}, pasta());
    EXPECT_EQ(fim.situacao, 3) << banco;
    EXPECT_EQ(fim.erros, "cotepe: error: " + mensagem + "\n");
    EXPECT_FALSE(fs::exists(em("r.txt")));
  }
};

// SQLite's own files, but that something happens just before a reader opens a journal for the first time.
class JournalEspiado {
 public:
  explicit JournalEspiado(std::function<void()> antes) {
    original_ = sqlite3_vfs_find(nullptr);
    antes_ = std::move(antes);
    espia_ = *original_;
    espia_.zName = "espia";
    espia_.xOpen = abre;
    sqlite3_vfs_register(&espia_, 1);
  }
  ~JournalEspiado() {
    sqlite3_vfs_unregister(&espia_);
    sqlite3_vfs_register(original_, 1);
  }
  JournalEspiado(const JournalEspiado&) = delete;
  JournalEspiado& operator=(const JournalEspiado&) = delete;

  static bool aconteceu() { return !antes_; }

 private:
  static int abre(sqlite3_vfs* /*espia*/, const char* nome, sqlite3_file* arquivo, int modo, int* deFato) {
    constexpr int kJournalSoLido = SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_READONLY;
    if ((modo & kJournalSoLido) == kJournalSoLido && antes_) std::exchange(antes_, nullptr)();
    return original_->xOpen(original_, nome, arquivo, modo, deFato);
  }

  static inline sqlite3_vfs* original_ = nullptr;
  static inline sqlite3_vfs espia_;
  static inline std::function<void()> antes_;
};

// The first column of the first row.
int valor(sqlite3* banco, const char* sql) {
  sqlite3_stmt* consulta = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(banco, sql, -1, &consulta, nullptr), SQLITE_OK) << sql;
  EXPECT_EQ(sqlite3_step(consulta), SQLITE_ROW) << sql;
  const int lido = sqlite3_column_int(consulta, 0);
  sqlite3_finalize(consulta);
  return lido;
}

TEST_F(BancoEncontrado, NothingCanBeWrittenAndNoSchemaIsTrusted) {
  criaBanco();
  const cotepe::programa::BancoSomenteLeitura aberto(em("base.db"), std::chrono::seconds(0));
  EXPECT_EQ(sqlite3_db_readonly(aberto.banco(), "main"), 1);
  EXPECT_EQ(valor(aberto.banco(), "PRAGMA query_only"), 1);
  EXPECT_EQ(valor(aberto.banco(), "PRAGMA trusted_schema"), 0);
  EXPECT_EQ(valor(aberto.banco(), "PRAGMA cell_size_check"), 1);
  EXPECT_EQ(sqlite3_get_autocommit(aberto.banco()), 0);
  EXPECT_EQ(sqlite3_txn_state(aberto.banco(), "main"), SQLITE_TXN_READ);
}

TEST_F(BancoEncontrado, WhatIsNoFileIsRefused) {
  ASSERT_EQ(mkfifo(em("cano").c_str(), 0600), 0);
  recusa("nada.db", "cannot open the database nada.db: No such file or directory");
  recusa(".", "cannot open the database .: it is a folder");
  recusa("cano", "cannot open the database cano: it is not a regular file");
  EXPECT_EQ(nomes(), std::vector<std::string>{"cano"});
}

TEST_F(BancoEncontrado, WhatIsNoDatabaseIsRefused) {
  escreveArquivo(em("texto"), "no database at all");
  escreveArquivo(em("longo"), std::string(5000, 'x'));
  for (const std::string nome : {"texto", "longo"})
    recusa(nome, "cannot read the database " + nome + ": it is not an SQLite database");
}

TEST_F(BancoEncontrado, DamagedDatabaseIsRefused) {
  criaBanco();
  std::string bytes = leArquivo(em("base.db"));
  bytes.replace(100, 12, 12, '\xFF');  // the head of the first page's tree
  escreveArquivo(em("base.db"), bytes);
  recusa("base.db",
         "cannot read the database base.db: database disk image is malformed; restore it from a copy");
}

TEST_F(BancoEncontrado, UnreadableDatabaseIsRefused) {
  criaBanco();
  fs::permissions(em("base.db"), fs::perms::none);
  const Fim fim = Processo(generate()).naPasta(pasta()).semPrivilegios().inicia().espera();
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros, "cotepe: error: cannot open the database base.db: Permission denied\n");
}

TEST_F(BancoEncontrado, LockedDatabaseIsWaitedForAndThenRefused) {
  criaBanco();
  Banco outro(em("base.db"));
  outro.sql("BEGIN EXCLUSIVE");
  const auto inicio = std::chrono::steady_clock::now();
  const Fim fim = gera({"--busy-timeout", "1000"});
  EXPECT_GE(std::chrono::steady_clock::now() - inicio, std::chrono::seconds(1));
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot read the database base.db: another process has had it locked for more than 1000 "
      "ms; try again when that is done, or wait longer with --busy-timeout\n");
}

TEST_F(BancoEncontrado, LockThatEndsInTimeIsNoFailure) {
  criaBanco();
  Banco outro(em("base.db"));
  outro.sql("BEGIN EXCLUSIVE");
  Processo processo(generate({"--output", "r.txt", "--busy-timeout", "60000"}));
  processo.naPasta(pasta()).inicia();
  EXPECT_FALSE(processo.termineEm(300));
  outro.sql("COMMIT");
  EXPECT_EQ(processo.espera().situacao, 0);
}

TEST_F(BancoEncontrado, UnfinishedTransactionIsLeftToItsOwner) {
  criaBanco();
  {
    Banco outro(em("base.db"));
    outro.sql(
        "PRAGMA cache_size = 1; BEGIN; UPDATE reducao_z SET cont_coo = 0;"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 500)"
        "INSERT INTO totalizador_reducao SELECT i, hex(zeroblob(100)), 1, 'N' FROM n");
    fs::copy_file(em("base.db"), em("meio.db"));
    fs::copy_file(em("base.db-journal"), em("meio.db-journal"));
  }
  recusa("meio.db",
         "cannot read the database meio.db: a transaction was left unfinished in it; let the application "
         "that owns it open it once, then try again");
}

TEST_F(BancoEncontrado, ATransactionThatIsTakenBackWhileItsJournalIsLookedAtIsNotTakenForAnUnfinishedOne) {
  criaBanco();
  escreveArquivo(em("base.db-journal"), "x");
  const JournalEspiado espiado([&] { fs::remove(em("base.db-journal")); });
  const cotepe::programa::BancoSomenteLeitura aberto(em("base.db"), std::chrono::seconds(0));
  EXPECT_TRUE(JournalEspiado::aconteceu());
  EXPECT_EQ(valor(aberto.banco(), "SELECT count(*) FROM moeda"), 1);
}

TEST_F(BancoEncontrado, WalDatabaseWithoutItsFilesInAFolderThatCannotBeWrittenIsExplained) {
  criaBanco("PRAGMA journal_mode = WAL");
  ASSERT_EQ(nomes(), std::vector<std::string>{"base.db"});
  fs::permissions(pasta(), fs::perms::group_write | fs::perms::others_write | fs::perms::owner_write,
                  fs::perm_options::remove);
  const Fim fim = Processo(generate({"--output", "-"})).naPasta(pasta()).semPrivilegios().inicia().espera();
  fs::permissions(pasta(), fs::perms::all);
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot read the database base.db: its -wal, -shm or -journal files cannot be opened or "
      "created (attempt to write a readonly database); copy the database together with those files to "
      "a folder that can be written, and read it there\n");
}

// Runs the program until it has begun to read, stops it there, changes the database, and lets it go on.
class EnquantoEscrevem : public Cena {
 protected:
  Fim geraEnquanto(const std::string& sql, int resultado) {
    Processo processo(generate({"--output", "r.txt", "--command", "MF"}));
    processo.naPasta(pasta()).inicia();
    esperaNome(".r.txt.cotepe-");  // made after the transaction began
    processo.envia(SIGSTOP);
    processo.espereParado();
    Banco outro(em("base.db"));
    EXPECT_EQ(outro.tenta(sql), resultado);
    processo.envia(SIGCONT);
    return processo.espera();
  }

  static constexpr char kMudanca[] =
      "UPDATE reducao_z SET cont_coo = 777; UPDATE versao_sb SET versao = '77.77.77';"
      "INSERT INTO reducao_z VALUES (13, 103, 1, '2024-01-12 00:00:00', '2024-01-12 22:00:00', 1, 1)";
};

TEST_F(EnquantoEscrevem, WalReportIsTheStateBeforeTheWriter) {
  criaBanco(std::string(kMoedaLenta) + "; PRAGMA journal_mode = WAL");
  const Fim fim = geraEnquanto(kMudanca, SQLITE_OK);
  EXPECT_EQ(fim.situacao, 0) << fim.erros;
  EXPECT_EQ(leArquivo(em("r.txt")).find("777"), std::string::npos);
  EXPECT_EQ(leArquivo(em("r.txt")).find("77.77.77"), std::string::npos);
  EXPECT_NE(fim.erros.find("E12           2\n"), std::string::npos) << fim.erros;
  EXPECT_EQ(gera({"--output", "depois.txt", "--command", "MF"}).situacao, 0);
  EXPECT_NE(leArquivo(em("depois.txt")).find("77.77.77"), std::string::npos);
}

TEST_F(EnquantoEscrevem, WithoutWalTheWriterWaits) {
  criaBanco(kMoedaLenta);
  const Fim fim = geraEnquanto(kMudanca, SQLITE_BUSY);
  EXPECT_EQ(fim.situacao, 0) << fim.erros;
  EXPECT_EQ(leArquivo(em("r.txt")).find("777"), std::string::npos);
}

}  // namespace
