// What a field of a record means.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// What a field's bytes mean.
enum class TipoDeValor : std::uint8_t {
  Texto,
  Inteiro,
  Decimal,        ///< money in reais, and quantities
  Identificador,  ///< digits that are not an amount: CNPJ, CPF
  Data,
  Hora,
  Ausente,  ///< a date or an hour of blanks
  Bytes,    ///< not of its kind, cut short, or partly covered by another field: unchanged
};

/// A field's bytes, understood.
struct Valor {
  TipoDeValor tipo = TipoDeValor::Texto;  ///< what the text is
  /// For programs: 1234.56, 2024-01-31, 23:59:59, without leading zeros and trailing blanks.
  std::string texto;
};

/// The value of a field of the record, counted from 0 among those on the line.
Valor valorDe(const RegistroLido& lido, std::size_t campo);

/// A decimal number without sign as it is written in Brazil: 1234.56 as 1.234,56.
std::string comMilhares(std::string decimal);

/// A value as it is written in Brazil: 1.234,56 and 31/01/2024; numbers of counters as on the line.
std::string paraPessoas(const Valor& valor, std::string_view bytes);

/// A '*' for each character that is not blank.
std::string mascarado(std::string_view bytes);

/// The label of a field; repeated fields have their number from the second one on: "CNPJ (2)".
std::string rotuloUnico(const RegistroLido& lido, std::size_t campo);

}  // namespace cotepe
