// One INSERT statement, prepared once and run for every row.
#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cotepe {

// A decimal number to be stored: `unidades` of 1/`divisor`. Whole numbers are stored as integers, others as
// the nearest double, whose text SQLite renders as the decimal that was meant (15 digits).
struct Decimal {
  std::int64_t unidades;
  std::int64_t divisor;
};
constexpr Decimal dinheiro(std::int64_t centavos) { return {centavos, 100}; }
constexpr Decimal milesimos(std::int64_t valor) { return {valor, 1000}; }

// INSERT INTO a table with its columns named; `grava` runs it with one value for each column, in their order.
// Borrows the database, which must outlive it. Throws ErroDoBanco.
class Insercao {
 public:
  // `alvo` is "table(column, column, ...)".
  Insercao(sqlite3* banco, std::string_view alvo);
  ~Insercao() { sqlite3_finalize(comando_); }
  Insercao(const Insercao&) = delete;
  Insercao& operator=(const Insercao&) = delete;

  template <class... Valores>
  void grava(const Valores&... valores) {
    int coluna = 0;
    (vincula(++coluna, valores), ...);
    executa(coluna);
  }

 private:
  void vincula(int coluna, std::int64_t valor);
  void vincula(int coluna, int valor) { vincula(coluna, std::int64_t{valor}); }
  void vincula(int coluna, const Decimal& valor);
  void vincula(int coluna, std::string_view texto);  // must live until the row is written
  void vincula(int coluna, std::nullptr_t);
  void executa(int colunas);
  void exige(bool condicao);

  sqlite3* banco_;
  sqlite3_stmt* comando_ = nullptr;
  std::string tabela_;
};

}  // namespace cotepe
