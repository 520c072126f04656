// One random value of a column, in any of SQLite's storage classes.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>

#include "referencia/Sorteio.h"

namespace referencia {

struct Valor {
  enum class Classe { Nulo, Inteiro, Real, Texto, Blob };
  Classe classe = Classe::Nulo;
  std::int64_t inteiro = 0;
  double real = 0;
  std::string bytes;

  static Valor texto(const std::string& bytes) { return {Classe::Texto, 0, 0, bytes}; }
  static Valor doInteiro(std::int64_t inteiro) { return {Classe::Inteiro, inteiro, 0, ""}; }
  static Valor doReal(double real) { return {Classe::Real, 0, real, ""}; }
  static Valor blob(const std::string& bytes) { return {Classe::Blob, 0, 0, bytes}; }

  // Binds to the parameter `posicao` (from 1); the result of SQLite.
  int liga(sqlite3_stmt* stmt, int posicao) const;
};

// What a column holds when all is well.
enum class Tipo {
  Serie,
  Nome,
  Descricao,
  TextoLongo,
  InscricaoEstadual,
  DataHora,
  DataMovimento,
  Contador,
  Crz,
  Coo,
  Indice,
  Sequencia,
  Dinheiro,
  Decimal,
  Cnpj,
  Flag,
  TipoDocumento,
  TipoIntervencao,
  TipoValor,
  Totalizador,
  Casas,
  NumeroDoCaixa,
};

// A value in the form that the column should hold.
Valor valorLimpo(Sorteio& sorteio, Tipo tipo);

// Anything at all; `bom` is what should have stood there, for values that are only a little wrong.
Valor valorHostil(Sorteio& sorteio, const Valor& bom);

}  // namespace referencia
