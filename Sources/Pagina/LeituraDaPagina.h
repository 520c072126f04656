// Everything that a page says about a report, from one reading of it.
#pragma once

#include <functional>
#include <string>

#include "Pagina/AchadosAgrupados.h"
#include "Pagina/Digestos.h"
#include "Pagina/Documentos.h"
#include "Pagina/RegistrosSoltos.h"
#include "Resumo/Resumidor.h"
#include "Validacao/Validacao.h"

namespace cotepe::pagina {

/// A report that has been read: checked against the rules, summed up, its records ready to be written. Memory
/// grows with the days of the period, not with its documents.
class LeituraDaPagina {
 public:
  /// `nome` is the report's name for people; `mascara` hides the data of consumers; without `comRegistros`
  /// the records are not kept, for a report that is only compared with.
  LeituraDaPagina(std::string nome, bool mascara, bool comRegistros);

  /// Reads it to its end, once; `pulsa` is called from time to time. A read error is in LeitorDeLinhas::erro.
  void le(LeitorDeLinhas& linhas, const std::function<void()>& pulsa);

  const std::string& nome() const { return nome_; }
  const ResumoDoRelatorio& resumo() const { return resumo_; }
  const AchadosAgrupados& achados() const { return achados_; }
  const Digestos& digestos() const { return digestos_; }
  /// Whether the file has a signature line.
  bool comAssinatura() const { return comAssinatura_; }
  DocumentosDaPagina& documentos() { return documentos_; }
  RegistrosSoltos& registros() { return registros_; }

 private:
  void linha(const RegistroLido& lido);

  std::string nome_;
  bool comRegistros_;
  bool cortada_ = false;  // a line was longer than is kept: the digest cannot be known
  bool comAssinatura_ = false;
  Resumidor resumidor_;
  ResumoDoRelatorio resumo_;
  AchadosAgrupados achados_;
  Digestos digestos_;
  DocumentosDaPagina documentos_;
  RegistrosSoltos registros_;
};

}  // namespace cotepe::pagina
