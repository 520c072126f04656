// A fiscal database, opened so that nothing can be written to it and all reads see one committed state.
#pragma once

#include <chrono>
#include <string>

#include "ConexaoDeLeitura.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {

class BancoSomenteLeitura {
 public:
  /// Opens an existing file and begins the one read transaction that lasts as long as the object. Waits at
  /// most `espera` for a lock. Throws Falha (with the given status), which says what is wrong with the file,
  /// and Interrupcao when a signal comes while waiting.
  BancoSomenteLeitura(const std::string& caminho, std::chrono::milliseconds espera, int situacao = kNaoAbre);

  sqlite3* banco() const { return conexao_.banco(); }

  /// From now on a query running when a signal comes ends with SQLITE_INTERRUPT.
  void paraComSinal() const;

 private:
  void exigeArquivo(const std::string& caminho) const;
  [[noreturn]] void naoAbre(const std::string& caminho, const std::string& encontrado) const;

  int situacao_;
  std::chrono::milliseconds espera_;
  ConexaoDeLeitura conexao_;
};

}  // namespace cotepe::programa
