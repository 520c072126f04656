#include "Leitor/Coluna.h"

#include "Leiaute/Releitura.h"

namespace cotepe {

std::size_t Coluna::lugar(const RegistroLido& lido) const {
  const Campo* campo = &registro_->campos[indice_];
  if (indice_ < lido.quantos && lido.campos[indice_].campo == campo) return indice_;
  std::size_t i = 0;
  while (i < lido.quantos && lido.campos[i].campo != campo) ++i;
  return i;
}

bool Coluna::le(const RegistroLido& lido, std::int64_t& valor) const {
  const std::size_t i = lugar(lido);
  if (i >= lido.quantos) return false;
  const std::string_view lidos = lido.bytes(i);
  return lidos.size() == static_cast<std::size_t>(lido.campos[i].largura) && leNumero(lidos, valor);
}

}  // namespace cotepe
