// Records written for people and for other programs, one after the other.
#pragma once

#include <iosfwd>
#include <memory>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// How records are written.
enum class FormatoDeExibicao : std::uint8_t {
  Texto,   ///< a block a record: labels and values, money in reais, dates as dates
  Tabela,  ///< a row a record, without the head that all share; a line of labels where the register changes
  Json,    ///< an object a line: {"line":..,"register":"E14","fields":{"CCF":..}}
  Csv,     ///< a row a field: line,register,field,label,value
  CsvDeUmRegistro,  ///< a row a record, below a row of labels: for records of one register
};

/// Writes each record given to it.
class Exibicao {
 public:
  virtual ~Exibicao() = default;
  /// Writes one record; whether it could be written shows on the stream.
  virtual void mostra(const RegistroLido& lido) = 0;
};

/// The stream must live longer. `mascara` hides what tells about consumers.
std::unique_ptr<Exibicao> novaExibicao(FormatoDeExibicao formato, std::ostream& saida, bool mascara);

}  // namespace cotepe
