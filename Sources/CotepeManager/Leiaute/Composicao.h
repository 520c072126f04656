// The engine: a list of fields applied to a row makes a data record, applied to nothing a placeholder record.
#pragma once

#include <cstring>

#include "Leiaute/Campo.h"
#include "Leiaute/Execucao.h"
#include "Leiaute/Linha.h"

namespace cotepe {

/// A source for lists that read no column.
class SemFonte final : public Fonte {
 public:
  const char* texto(int /*coluna*/) const override { return ""; }
  int bytes(int /*coluna*/) const override { return 0; }
};

/// A row changed in one column: `coluna` is `texto`, all others are those of `base`.
class FonteCom final : public Fonte {
 public:
  FonteCom(const Fonte& base, int coluna, const char* texto) : base_(base), coluna_(coluna), texto_(texto) {}
  const char* texto(int coluna) const override { return coluna == coluna_ ? texto_ : base_.texto(coluna); }
  int bytes(int coluna) const override {
    return coluna == coluna_ ? static_cast<int>(std::strlen(texto_)) : base_.bytes(coluna);
  }

 private:
  const Fonte& base_;
  int coluna_;
  const char* texto_;
};

/// Appends to the line, at its cursor, the fields that exist under the run's settings.
void compoe(Linha& linha, Campos campos, const Fonte& fonte, const Execucao& execucao);
void compoeVazio(Linha& linha, Campos campos, const Execucao& execucao);

/// Writes one record for each row left in `leitura`; the fields read their columns from `fonte`, which is the
/// query itself or wraps it. Returns the number of records.
long gravaLinhas(Execucao& execucao, Campos campos, Leitura& leitura, const Fonte& fonte);

/// Writes one placeholder record.
void gravaVazio(Execucao& execucao, Campos campos);

}  // namespace cotepe
