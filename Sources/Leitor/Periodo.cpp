#include "Leitor/Periodo.h"

#include <algorithm>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

// The number in the field with the label; below 0 where it has none.
std::int64_t numeroEm(const RegistroLido& lido, const char* rotulo) {
  std::int64_t valor = 0;
  return leNumero(lido.bytesDe(rotulo), valor) ? valor : -1;
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
  if (lido.registro == &kE12) {
    reducoes_.anota(numeroEm(lido, "CRZ"), dentro);
    comReducoes_ = true;
  } else if (lido.registro == &kE14) {
    cupons_.anota(numeroEm(lido, "CCF"), dentro);
  } else if (lido.registro == &kE19) {
    naoFiscais_.anota(numeroEm(lido, "GNF"), dentro);
  } else if (lido.registro == &kE16 && !comReducoes_ && numeroEm(lido, "CRZ") > 0) {
    reducoes_.anota(numeroEm(lido, "CRZ"), dentro);
  }
}

bool Periodo::comSeuDocumento(const RegistroLido& lido) const {
  if (lido.registro == &kE13 || lido.registro == &kE17 || lido.registro == &kE18)
    return reducoes_.tem(numeroEm(lido, "CRZ"));
  if (lido.registro == &kE15) return cupons_.tem(numeroEm(lido, "CCF"));
  if (lido.registro == &kE20) return naoFiscais_.tem(numeroEm(lido, "GNF"));
  if (lido.registro != &kE21) return false;
  const std::int64_t gnf = numeroEm(lido, "GNF");
  return gnf > 0 ? naoFiscais_.tem(gnf) : cupons_.tem(numeroEm(lido, "CCF"));
}

bool Periodo::aceita(const RegistroLido& lido) {
  if (de_.empty() && ate_.empty()) return true;
  const bool dentro = temData(lido);
  anota(lido, dentro);
  return dentro || comSeuDocumento(lido);
}

}  // namespace cotepe
