// Watches the queries of a run over one database, and knows which of them is at which row.
#pragma once

#include <sqlite3.h>

#include <vector>

/// Counts the queries and their rows from its making on; `aCadaLinha` and `aCadaPasso` may break one off. At
/// most one for a handle, for the time of a run.
class Vigia {
 public:
  explicit Vigia(sqlite3* banco) : banco_(banco) {
    sqlite3_trace_v2(banco_, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW, anota, this);
  }
  ~Vigia() {
    sqlite3_trace_v2(banco_, 0, nullptr, nullptr);
    sqlite3_progress_handler(banco_, 0, nullptr, nullptr);
  }
  Vigia(const Vigia&) = delete;
  Vigia& operator=(const Vigia&) = delete;

  /// The step of query `alvo` (from 0, in the order of the run) that is to fail, from 1: interrupted.
  void interrompe(int alvo, int passo) {
    alvo_ = alvo;
    passo_ = passo;
    // Before the first row only the virtual machine's own steps can be stopped at.
    const auto antes = [](void* este) {
      const auto& vigia = *static_cast<Vigia*>(este);
      return vigia.atual() == vigia.alvo_ && vigia.linhasDaAtual() == 0 ? 1 : 0;
    };
    if (passo == 1) sqlite3_progress_handler(banco_, 1, antes, this);
  }

  /// The query that runs, from 0; the rows that it has given; those of each query so far.
  int atual() const { return static_cast<int>(linhas_.size()) - 1; }
  int linhasDaAtual() const { return linhas_.empty() ? 0 : linhas_.back(); }
  const std::vector<int>& linhas() const { return linhas_; }

 private:
  static int anota(unsigned tipo, void* este, void* /*declaracao*/, void* /*sql*/) {
    auto& vigia = *static_cast<Vigia*>(este);
    if (tipo == SQLITE_TRACE_STMT) {
      vigia.linhas_.push_back(0);
      return 0;
    }
    ++vigia.linhas_.back();
    if (vigia.atual() == vigia.alvo_ && vigia.linhasDaAtual() + 1 == vigia.passo_)
      sqlite3_interrupt(vigia.banco_);
    return 0;
  }

  sqlite3* banco_;
  std::vector<int> linhas_;
  int alvo_ = -1;
  int passo_ = 0;
};
