#include "Leitor/Periodo.h"

#include <algorithm>

#include "Leiaute/Releitura.h"
#include "Leitor/Coluna.h"

namespace cotepe {
namespace {

/// The counters that tie records together.
struct Colunas {
  Coluna reducao{kE12, "CRZ"}, documento{kE16, "CRZ"}, parcial{kE13, "CRZ"}, naoFiscal{kE17, "CRZ"},
      meio{kE18, "CRZ"}, cupom{kE14, "CCF"}, item{kE15, "CCF"}, comprovante{kE19, "GNF"},
      operacao{kE20, "GNF"}, ccfPago{kE21, "CCF"}, gnfPago{kE21, "GNF"};
};

const Colunas& colunas() {
  static const Colunas todas;
  return todas;
}

// The number in the column; below 0 when it has none.
std::int64_t numeroEm(const RegistroLido& lido, const Coluna& coluna) {
  std::int64_t valor = 0;
  return leNumero(coluna.bytes(lido), valor) ? valor : -1;
}

}  // namespace

void Periodo::Contadores::anota(std::int64_t contador, bool dentro) {
  if (!dentro) {
    aberta_ = false;
  } else if (aberta_ && contador >= faixas_.back().ate) {
    faixas_.back().ate = contador;
  } else {
    faixas_.push_back({contador, contador});
    aberta_ = true;
  }
}

bool Periodo::Contadores::tem(std::int64_t contador) const {
  return std::any_of(faixas_.begin(), faixas_.end(),
                     [contador](const Faixa& f) { return contador >= f.de && contador <= f.ate; });
}

bool Periodo::temData(const RegistroLido& lido) const {
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    const std::string_view data = lido.bytes(i);
    if (deData(lido.campos[i].campo->especie) && dataPossivel(data) && (de_.empty() || data >= de_) &&
        (ate_.empty() || data <= ate_))
      return true;
  }
  return false;
}

void Periodo::anota(const RegistroLido& lido, bool dentro) {
  const Colunas& c = colunas();
  if (lido.registro == &kE12) {
    reducoes_.anota(numeroEm(lido, c.reducao), dentro);
    comReducoes_ = true;
  } else if (lido.registro == &kE14) {
    cupons_.anota(numeroEm(lido, c.cupom), dentro);
  } else if (lido.registro == &kE19) {
    naoFiscais_.anota(numeroEm(lido, c.comprovante), dentro);
  } else if (lido.registro == &kE16 && !comReducoes_ && numeroEm(lido, c.documento) > 0) {
    reducoes_.anota(numeroEm(lido, c.documento), dentro);
  }
}

bool Periodo::comSeuDocumento(const RegistroLido& lido) const {
  const Colunas& c = colunas();
  for (const Coluna* crz : {&c.parcial, &c.naoFiscal, &c.meio})
    if (lido.registro == &crz->registro()) return reducoes_.tem(numeroEm(lido, *crz));
  if (lido.registro == &kE15) return cupons_.tem(numeroEm(lido, c.item));
  if (lido.registro == &kE20) return naoFiscais_.tem(numeroEm(lido, c.operacao));
  if (lido.registro != &kE21) return false;
  const std::int64_t gnf = numeroEm(lido, c.gnfPago);
  return gnf > 0 ? naoFiscais_.tem(gnf) : cupons_.tem(numeroEm(lido, c.ccfPago));
}

bool Periodo::aceita(const RegistroLido& lido) {
  if (de_.empty() && ate_.empty()) return true;
  const bool dentro = temData(lido);
  anota(lido, dentro);
  return dentro || comSeuDocumento(lido);
}

}  // namespace cotepe
