// Random fiscal databases for differential tests.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <vector>

#include "referencia/Valor.h"

namespace referencia {

struct Coluna {
  const char* nome;
  Tipo tipo;
};

struct Tabela {
  const char* nome;
  int linhas;  // usual number of rows
  std::vector<Coluna> colunas;
};

// Every table that the generator reads, with all its columns.
const std::vector<Tabela>& tabelas();

// Limpo: every value in the form that the generator expects. Sujo: hostile values in any column (NULL, blobs,
// control characters, long texts, numbers out of every range ...), tables or columns missing now and then.
enum class Nivel { Limpo, Sujo };

// Creates every table that the generator reads in the empty database `banco`, with untyped columns, and fills
// them with rows that lie inside and outside the period 2024-01-01 to 2024-01-31. The same seed and level
// give the same rows. Throws std::runtime_error when SQLite refuses.
void criaBancoAleatorio(sqlite3* banco, std::uint64_t semente, Nivel nivel);

}  // namespace referencia
