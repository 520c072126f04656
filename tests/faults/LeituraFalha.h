// A database in a file whose reads can be made to fail.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <functional>
#include <string>

/// A copy of a database in a file of 512-byte pages, opened over a file system of its own: one read of the
/// main file, in its turn, is answered with an error. At most one at a time.
class BancoEmArquivo {
 public:
  explicit BancoEmArquivo(sqlite3* origem) : nome_("faults-" + std::to_string(getpid()) + ".db") {
    registra();
    unlink(nome_.c_str());
    EXPECT_EQ(sqlite3_open_v2(nome_.c_str(), &banco_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, kNome),
              SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(banco_, "PRAGMA page_size = 512; PRAGMA synchronous = OFF; VACUUM", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    copia(origem);
    EXPECT_EQ(
        sqlite3_exec(banco_, "PRAGMA page_size = 512; VACUUM; PRAGMA cache_size = 1; PRAGMA mmap_size = 0",
                     nullptr, nullptr, nullptr),
        SQLITE_OK);
  }
  ~BancoEmArquivo() {
    EXPECT_EQ(sqlite3_close(banco_), SQLITE_OK) << "a statement was left open";
    unlink(nome_.c_str());
  }
  BancoEmArquivo(const BancoEmArquivo&) = delete;
  BancoEmArquivo& operator=(const BancoEmArquivo&) = delete;

  sqlite3* banco() const { return banco_; }

  /// All pages have to be read again.
  void esvaziaCache() const { sqlite3_db_release_memory(banco_); }

  /// The read after `boas` good ones fails once; `ao` is called then.
  static void falhaNaLeitura(long boas, std::function<void()> ao) {
    faltam_ = boas;
    falhou_ = false;
    ao_ = std::move(ao);
  }
  /// Whether it has failed; no read fails from now on.
  static bool falhou() {
    faltam_ = -1;
    return falhou_;
  }

 private:
  static constexpr char kNome[] = "leitura-falha";

  void copia(sqlite3* origem) const {
    sqlite3_backup* copia = sqlite3_backup_init(banco_, "main", origem, "main");
    ASSERT_NE(copia, nullptr);
    EXPECT_EQ(sqlite3_backup_step(copia, -1), SQLITE_DONE);
    EXPECT_EQ(sqlite3_backup_finish(copia), SQLITE_OK);
  }

  static void registra() {
    if (sqlite3_vfs_find(kNome) != nullptr) return;
    static sqlite3_vfs sistema = *sqlite3_vfs_find(nullptr);
    sistema.pNext = nullptr;
    sistema.zName = kNome;
    sistema.xOpen = abre;
    EXPECT_EQ(sqlite3_vfs_register(&sistema, 0), SQLITE_OK);
  }

  // The methods of the system's files, but for the reading of this one.
  static int abre(sqlite3_vfs* /*este*/, const char* nome, sqlite3_file* arquivo, int modos,
                  int* modosDados) {
    sqlite3_vfs* sistema = sqlite3_vfs_find(nullptr);
    const int resultado = sistema->xOpen(sistema, nome, arquivo, modos, modosDados);
    if (resultado != SQLITE_OK || (modos & SQLITE_OPEN_MAIN_DB) == 0) return resultado;
    le_ = arquivo->pMethods->xRead;
    metodos_ = *arquivo->pMethods;
    metodos_.xRead = le;
    arquivo->pMethods = &metodos_;
    return SQLITE_OK;
  }

  static int le(sqlite3_file* arquivo, void* destino, int bytes, sqlite3_int64 posicao) {
    if (faltam_ >= 0 && faltam_-- == 0) {
      falhou_ = true;
      ao_();
      return SQLITE_IOERR_READ;
    }
    return le_(arquivo, destino, bytes, posicao);
  }

  static inline sqlite3_io_methods metodos_{};
  static inline int (*le_)(sqlite3_file*, void*, int, sqlite3_int64) = nullptr;
  static inline long faltam_ = -1;
  static inline bool falhou_ = false;
  static inline std::function<void()> ao_;

  std::string nome_;
  sqlite3* banco_ = nullptr;
};
