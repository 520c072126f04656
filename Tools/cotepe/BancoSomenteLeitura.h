// A fiscal database, opened so that nothing can be written and all reads see one committed state.
#pragma once

#include <chrono>
#include <string>

#include "Sistema/Falha.h"

struct sqlite3;

namespace cotepe::programa {

class BancoSomenteLeitura {
 public:
  /// Opens an existing file read-only (query_only on, trusted_schema off, cell_size_check on), for one
  /// thread, and begins the one read transaction that lasts as long as the object. Waits at most `espera` for
  /// a lock. Throws Falha (of the status given), which says what is wrong with the file, and Interrupcao when
  /// a signal comes while it waits.
  BancoSomenteLeitura(const std::string& caminho, std::chrono::milliseconds espera, int situacao = kNaoAbre);
  ~BancoSomenteLeitura();
  BancoSomenteLeitura(const BancoSomenteLeitura&) = delete;
  BancoSomenteLeitura& operator=(const BancoSomenteLeitura&) = delete;

  sqlite3* banco() const { return banco_; }

  /// From now on a query that runs when a signal comes ends with SQLITE_INTERRUPT.
  void paraComSinal() const;

 private:
  struct Espera {
    std::chrono::milliseconds maximo;
    std::chrono::steady_clock::time_point desde;
  };

  static int aoOcupar(void* espera, int tentativas);
  void exigeArquivo(const std::string& caminho) const;
  [[noreturn]] void naoAbre(const std::string& caminho, const std::string& encontrado) const;
  void prepara(const std::string& caminho);
  [[noreturn]] void naoLe(const std::string& caminho) const;

  sqlite3* banco_ = nullptr;
  int situacao_;
  Espera espera_;
};

}  // namespace cotepe::programa
