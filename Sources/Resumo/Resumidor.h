// Sums a report up, line by line.
#pragma once

#include <memory>

#include "Resumo/DocumentosLidos.h"
#include "Resumo/ResumoDoRelatorio.h"

namespace cotepe {

/// Looks at every line of a report, in the order of the file. Memory: the days, the articles (up to a limit)
/// and the interventions of the period, not its documents.
class Resumidor {
 public:
  Resumidor();
  ~Resumidor();
  Resumidor(const Resumidor&) = delete;
  Resumidor& operator=(const Resumidor&) = delete;

  void linha(const RegistroLido& lido);

  /// To be called once, after the last line; `leiaute` is what the reader found out about the file.
  ResumoDoRelatorio conclui(const AjusteDoLeiaute& leiaute);

  ///@{
  /// A coupon of E14 by its CCF, and a non-fiscal one of E19 by its GNF; null when none was read.
  const DocumentoLido* cupom(std::int64_t ccf) const;
  const DocumentoLido* naoFiscal(std::int64_t gnf) const;
  ///@}

 private:
  class Registros;
  std::unique_ptr<Registros> registros_;
};

}  // namespace cotepe
