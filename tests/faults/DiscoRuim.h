// An SQLite VFS whose n-th call of one kind fails, or reads less than was asked for.
#pragma once

#include <sqlite3.h>

/// What goes wrong, in all files that are opened through the VFS named kNome.
struct DiscoRuim {
  static constexpr char kNome[] = "disco-ruim";

  enum Metodo { Nenhum, Leitura, Tranca, TrancaDaMemoria, Tamanho, Abertura };

  Metodo metodo = Nenhum;
  long vez = 0;                // the call, from 1
  bool dali = false;           // it and all later ones
  int codigo = SQLITE_IOERR;   // what it returns; SQLITE_IOERR_SHORT_READ: half of the bytes, then zeros
  sqlite3_int64 posicao = -1;  // Leitura: every one of this place instead of one by its number
  long chamadas = 0;           // so far, of that kind

  /// The one that is in force; it begins to count at once. Registers the VFS at first use.
  static DiscoRuim& atual();
  static void poe(Metodo metodo, long vez, bool dali, int codigo);
  static void poeNaPosicao(sqlite3_int64 posicao, int codigo);
  static void tira();
};
