// The printer: it numbers the documents, adds them up and keeps them in its memories.
#pragma once

#include <cstdint>
#include <string_view>

#include "Amostra/Acumulacao.h"
#include "Amostra/Amostra.h"
#include "Amostra/Calendario.h"
#include "Amostra/Memoria.h"

namespace cotepe::loja {

// The last number given of each kind. COO counts every document, the others those of their kind; CDC has four
// digits and goes from 9999 back to 1.
struct ContadoresDoEcf {
  std::int64_t coo, ccf, gnf, grg, cdc, crz, cro, cfd;
};

// Documents of the open day already carry the number of the reduction that will close it. `quando` is the end
// of issue and must not run backwards. A card payment is followed by its slip. Borrows the database. Throws
// ErroDoBanco.
class Ecf {
 public:
  Ecf(sqlite3* banco, const ContadoresDoEcf& contadores, Centavos grandeTotal);

  void emite(const CupomFiscal& cupom, const DataHora& quando);
  // The coupon and, when it is cancelled, the document that cancels it.
  void emite(const CupomNaoFiscal& cupom, const DataHora& quando);
  void emiteRelatorioGerencial(const DataHora& quando);
  // Closes the fiscal day `movimento`.
  void emiteReducao(const DataHora& movimento, const DataHora& quando);
  // Prints the documents since the last detail tape.
  void emiteFitaDetalhe(const DataHora& quando);
  // To be called between a reduction and the first document of the next day.
  void sofreIntervencao(const DataHora& quando, std::string_view tipo);

  const ContadoresDoEcf& contadores() const noexcept { return contadores_; }
  Centavos grandeTotal() const noexcept { return grandeTotal_; }
  const ResumoDaAmostra& resumo() const noexcept { return resumo_; }

 private:
  std::int64_t reducaoAberta() const { return contadores_.crz + 1; }
  void documento(std::string_view tipo, const DataHora& quando);
  void guardaItens(const CupomFiscal& cupom);
  void guardaItens(const CupomNaoFiscal& cupom);
  void guardaPagamentos(const Cupom& cupom, bool estornados);
  void emiteComprovantes(const Cupom& cupom, const DataHora& quando);
  void guardaTotais();

  Memoria memoria_;
  ContadoresDoEcf contadores_;
  Centavos grandeTotal_;
  std::int64_t ultimaFita_;  // COO that the last detail tape ended with
  TotaisDoEcf totais_;
  ResumoDaAmostra resumo_;
};

}  // namespace cotepe::loja
