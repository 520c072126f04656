// A line of a report as typed values, and whether it can be rebuilt from them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Exportacao/TabelaDoRegistro.h"

namespace cotepe::exportacao {

/// A value of a column.
struct ValorTipado {
  bool nula = true;  ///< absent from the line, a blank date or hour, or not of its type
  Tipo tipo = Tipo::Texto;
  std::int64_t numero = 0;  ///< of Inteiro and Centavos; of Decimal times 10 to the power of `casas`
  int casas = 0;            ///< of Decimal
  std::string texto;        ///< UTF-8, of the others; without trailing blanks
};

/// A field that the line has more than once.
struct Repetida {
  std::size_t coluna;
  int vez;  ///< from 1
  ValorTipado celula;
};

/// The values of one line after another; the memory is reused.
class LinhaTipada {
 public:
  static constexpr int kLiteral = -1;

  /// Reads the values of a line of a register.
  void le(const RegistroLido& lido);

  /// One for each column of the register; for a field that is on the line more than once, the last.
  const std::vector<ValorTipado>& celulas() const { return celulas_; }

  /// All values of the fields that the line has more than once.
  const std::vector<Repetida>& repetidas() const { return repetidas_; }

  /// Under which setting (its place in kAjustesPossiveis) the list of fields and the values rebuild the line
  /// byte for byte; kLiteral if none does.
  int forma() const { return forma_; }

  /// Says that the line is not to be rebuilt from its values, for a reason outside them.
  void naoExata() { forma_ = kLiteral; }

 private:
  static bool leCampo(const RegistroLido& lido, std::size_t campo, ValorTipado& celula);
  int formaDe(const RegistroLido& lido);
  void anotaRepetidas(const RegistroLido& lido);

  std::vector<ValorTipado> celulas_;
  std::vector<Repetida> repetidas_;
  int forma_ = kLiteral;
  std::array<int, kCatalogo.size()> ultimas_{};  // the setting whose form each register had last
};

}  // namespace cotepe::exportacao
