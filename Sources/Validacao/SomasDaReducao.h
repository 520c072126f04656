// What the documents of each Z reduction add up to, by totalizer and by means of payment.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Validacao/TabelaPorCoo.h"

namespace cotepe {

/// A total in cents, and by how much it may be off: a discount on a whole coupon is spread over its
/// totalizers cent by cent, and what was paid for a cancelled coupon may have been given back or not.
struct SomaComFolga {
  std::int64_t valor = 0;
  std::int64_t aMenos = 0, aMais = 0;

  bool aceita(std::int64_t total) const { return total >= valor - aMenos && total <= valor + aMais; }
};

using SomasPorNome = std::map<std::string, SomaComFolga>;

/// The documents of one reduction.
struct SomasDaReducao {
  SomasPorNome totalizadores, naoFiscais, meios;
  SomaComFolga descontos, acrescimos, cancelamentos;  ///< of fiscal coupons and their items
};

/// A line with a total, from a register of the reduction.
struct TotalEscrito {
  std::int64_t valor = 0;
  long linha = 0;
};

using TotaisEscritos = std::map<std::string, TotalEscrito>;

/// A Z reduction and what its registers say. Memory grows with the reductions, not with the documents.
struct ReducaoComTotais {
  std::int64_t coo = 0;  ///< of the reduction itself: its documents come before it
  long linha = 0;        ///< in E12
  TotaisEscritos totalizadores, naoFiscais, meios;
  SomasDaReducao somas;
};

/// The reductions of a file by their COO; documents find theirs by their own COO.
class ReducoesPorCoo {
 public:
  /// Adds one. When COO or CRZ does not ascend, returns false and is unusable from then on.
  bool acrescenta(std::int64_t crz, std::int64_t coo, long linha);

  /// Whether documents can be told apart by their COO.
  bool servem() const { return servem_ && !reducoes_.empty(); }
  /// Says that no total can be compared from now on, because something in the file cannot be read.
  void invalida() { servem_ = false; }

  ///@{
  /// The reduction of a CRZ, and that of a document by its COO; null when there is none.
  ReducaoComTotais* doCrz(std::int64_t crz);
  ReducaoComTotais* doDocumento(std::int64_t coo);
  ///@}

  /// In the order of the file.
  const std::vector<ReducaoComTotais>& todas() const { return reducoes_; }

 private:
  std::vector<ReducaoComTotais> reducoes_;
  std::vector<std::int64_t> crzs_;
  bool servem_ = true;
};

}  // namespace cotepe
