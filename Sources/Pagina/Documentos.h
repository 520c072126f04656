// The documents of a report with their items and payments, day by day.
#pragma once

#include <initializer_list>
#include <string>

#include "Leitor/Coluna.h"
#include "Leitor/LeitorDeRegistros.h"
#include "Pagina/Fita.h"
#include "Pagina/Folhas.h"
#include "Resumo/ResumoDoRelatorio.h"

namespace cotepe::pagina {

/// Takes records in the order of the file. They come register by register, each in the order of its counter:
/// the documents of all are put together by their COO, items by CCF and GNF, payments by COO. What does not
/// follow that order, or has no document, is written at the end: nothing is left out.
class DocumentosDaPagina {
 public:
  explicit DocumentosDaPagina(bool mascara) : mascara_(mascara) {}

  /// Returns false and ignores a record that is neither a document nor part of one, or whose counter cannot
  /// be read.
  bool acrescenta(const RegistroLido& lido);

  /// To be called after the last one; the days' totals are those of the summary. In a folder, documents get
  /// pages of their own.
  void escreve(Folhas& folhas, const ResumoDoRelatorio& resumo);

  /// In a folder: a link to each page, known after `escreve`.
  const std::string& sumario() const { return sumario_; }

 private:
  bool cupom(const RegistroLido& lido);
  bool item(const RegistroLido& lido);
  bool outroDocumento(const RegistroLido& lido);
  bool naoFiscal(const RegistroLido& lido);
  bool itemNaoFiscal(const RegistroLido& lido);
  bool pagamento(const RegistroLido& lido);

  void poeCampo(const RegistroLido& lido, const Coluna& coluna);
  void poeDinheiro(const RegistroLido& lido, const Coluna& coluna);
  void poeCelula(const RegistroLido& lido, const Coluna& coluna, bool dinheiro);
  void poeResto(const RegistroLido& lido);
  void poeDetalhes(const RegistroLido& lido, std::initializer_list<const Coluna*> mostradas);
  void abreLinha(const RegistroLido& lido, bool cancelado);
  static Pedaco pedacoDe(const RegistroLido& lido, std::int64_t chave, std::string_view dia);

  bool mascara_;
  Fita cupons_, outros_, naoFiscais_;          // summary, a NUL, details
  Fita itens_, itensNaoFiscais_, pagamentos_;  // rows of a table
  std::string html_, sumario_;
};

}  // namespace cotepe::pagina
