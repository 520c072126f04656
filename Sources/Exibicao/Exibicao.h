// Records written for people and for other programs, one after the other.
#pragma once

#include <iosfwd>
#include <memory>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// How records are written.
enum class FormatoDeExibicao : std::uint8_t {
  Texto,   ///< a block per record: labels and values, money in reais, dates as dates
  Tabela,  ///< a row per record, without the head that all share; a line of labels whenever the register
           ///< changes
  Json,    ///< an object per line: {"line":..,"register":"E14","fields":{"CCF":..}}
  Csv,     ///< a row per field: line,register,field,label,value
  CsvDeUmRegistro,  ///< a row per record, below a row of labels: for records of one register
};

/// Writes each record given to it.
class Exibicao {
 public:
  virtual ~Exibicao() = default;
  /// Writes one record; errors are on the stream.
  virtual void mostra(const RegistroLido& lido) = 0;
};

/// The stream must outlive the object. `mascara` hides the data of consumers.
std::unique_ptr<Exibicao> novaExibicao(FormatoDeExibicao formato, std::ostream& saida, bool mascara);

}  // namespace cotepe
