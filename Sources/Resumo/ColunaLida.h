// A field of a register, found by its label once and read on each of its lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Leiaute/Releitura.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// For registers whose lines have each field once, at the same place in their list: all but E01, E05, E06 and
/// E08.
class ColunaLida {
 public:
  ColunaLida(const Registro& registro, const char* rotulo)
      : indice_(static_cast<std::size_t>(indiceDoCampo(registro, rotulo))) {}

  /// None where the line has no such field, or ends before it.
  std::string_view bytes(const RegistroLido& lido) const {
    return indice_ < lido.quantos ? lido.bytes(indice_) : std::string_view();
  }

  std::string texto(const RegistroLido& lido) const { return std::string(semBrancosNoFim(bytes(lido))); }

  /// Reads a number that stands there whole; false, and nothing read, otherwise.
  bool le(const RegistroLido& lido, std::int64_t& valor) const {
    const std::string_view lidos = bytes(lido);
    return lidos.size() == static_cast<std::size_t>(digitos(lido)) && leNumero(lidos, valor);
  }

  int digitos(const RegistroLido& lido) const {
    return indice_ < lido.quantos ? lido.campos[indice_].largura : -1;
  }

 private:
  std::size_t indice_;
};

}  // namespace cotepe
