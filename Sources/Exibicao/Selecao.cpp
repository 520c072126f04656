#include "Exibicao/Selecao.h"

#include <algorithm>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

bool temNumero(const RegistroLido& lido, const char* rotulo, std::int64_t procurado) {
  std::int64_t valor = 0;
  return leNumero(lido.bytesDe(rotulo), valor) && valor == procurado;
}

}  // namespace

bool Selecao::aceita(const RegistroLido& lido) const {
  if (linha != 0 && lido.linha.numero != linha) return false;
  if (!registros.empty() && std::find(registros.begin(), registros.end(), lido.indice) == registros.end())
    return false;
  if (coo >= 0 && !temNumero(lido, "COO", coo)) return false;
  return crz < 0 || temNumero(lido, "CRZ", crz);
}

}  // namespace cotepe
