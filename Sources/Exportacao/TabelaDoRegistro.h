// A register as a table: its columns, from its list of fields.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe::exportacao {

/// What the values of a column are.
enum class Tipo : std::uint8_t {
  Inteiro,   ///< a counter or a number
  Centavos,  ///< money, in cents
  Decimal,   ///< an amount of two or three decimal places, given by another field of the record
  Digitos,   ///< digits that are not an amount: CNPJ, CPF
  Data,      ///< YYYY-MM-DD
  Hora,      ///< HH:MM:SS
  Texto,
};

/// The name of a type as the table `campo` has it.
const char* nomeDoTipo(Tipo tipo);

struct ColunaDaTabela {
  const Campo* campo = nullptr;
  std::string nome;  ///< the field's key
  Tipo tipo = Tipo::Texto;
  int casas = -1;         ///< of Decimal: which column holds the number of places
  bool indexada = false;  ///< a document's counter, or the record's key
};

/// The columns of a register, in the order of its list.
struct TabelaDoRegistro {
  const Registro* registro = nullptr;
  std::vector<ColunaDaTabela> colunas;
  std::vector<std::string> chave;  ///< the columns that name a record
};

/// One for each register of the catalogue, in its order; made once.
const std::array<TabelaDoRegistro, kCatalogo.size()>& tabelas();

}  // namespace cotepe::exportacao
