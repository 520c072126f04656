// The library's own connection to a fiscal database.
#pragma once

#include <chrono>
#include <string>

struct sqlite3;

namespace cotepe {

/// Can write nothing (query_only on, trusted_schema off, cell_size_check on), for one thread at a time, and
/// waits for a lock. Its functions return extended result codes of SQLite; sqlite3_errmsg has the words.
class ConexaoDeLeitura {
 public:
  /// Whether to give up waiting.
  using Desistencia = bool (*)() noexcept;

  /// Waits at most `espera` for a lock, and no longer than until `desiste` (null: never) says so.
  explicit ConexaoDeLeitura(std::chrono::milliseconds espera, Desistencia desiste = nullptr);
  /// Every statement prepared on it must have been finalized.
  ~ConexaoDeLeitura();
  ConexaoDeLeitura(const ConexaoDeLeitura&) = delete;
  ConexaoDeLeitura& operator=(const ConexaoDeLeitura&) = delete;

  /// Opens an existing file without reading it yet. To be called once.
  int abre(const std::string& caminho);

  /// Begins a read transaction, and reads: all that follows, until `termina`, sees one committed state.
  int comeca();
  /// Ends it, even if it failed to begin.
  void termina() noexcept;

  /// Null before `abre`.
  sqlite3* banco() const { return banco_; }

 private:
  static int aoOcupar(void* conexao, int tentativas);
  bool cansou() const;

  sqlite3* banco_ = nullptr;
  std::chrono::milliseconds espera_;
  Desistencia desiste_;
  std::chrono::steady_clock::time_point desde_{};
};

}  // namespace cotepe
