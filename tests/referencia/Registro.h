// The record buffer of the second reading and the statement that feeds it.
#pragma once

#include <sqlite3.h>

#include <string>

namespace referencia {

// `reg` and `index`: a zeroed buffer without end and a cursor that moves by nominal widths.
class Registro {
 public:
  // All zeros again, the cursor at 0.
  void limpa();

  // Writes the text and a terminator at a position counted from 0; the cursor stays.
  void escreve(std::size_t posicao, const std::string& texto);

  // Writes the text and a terminator at the cursor; the cursor stays.
  void escreve(const std::string& texto) { escreve(index_, texto); }

  // Writes the text and a terminator at the cursor; the cursor moves by `largura`, whatever was written.
  void campo(const std::string& texto, int largura);

  // The same, but a wider text moves the cursor by its own length.
  void campoNuncaCortado(const std::string& texto, int largura);

  // What stands before the first terminator.
  std::string linha() const { return bytes_.substr(0, bytes_.find('\0')); }

 private:
  std::string bytes_;
  std::size_t index_ = 0;
};

// One statement: prepared, stepped row by row, finalized. A failed prepare shows as a failed step.
class Consulta {
 public:
  Consulta(sqlite3* banco, const std::string& sql);
  ~Consulta();
  Consulta(const Consulta&) = delete;
  Consulta& operator=(const Consulta&) = delete;

  // Steps; true when a row came.
  bool linha();

  // True when the last step said that the rows are over.
  bool terminou() const { return passo_ == SQLITE_DONE; }

  // The column as a C text: up to its first terminator; empty for NULL.
  std::string texto(int coluna);

  bool nula(int coluna);
  int bytes(int coluna);

 private:
  sqlite3_stmt* stmt_ = nullptr;
  int passo_ = SQLITE_OK;
};

}  // namespace referencia
