// A field of a register, for rules that compare fields by name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Leiaute/Releitura.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// The one way to name a field outside its list. A label that the list does not have throws std::logic_error
/// when the column is made, that is at the start of the program or of a command.
class Coluna {
 public:
  Coluna(const Registro& registro, std::string_view rotulo)
      : registro_(&registro), indice_(indiceDe(registro.campos, rotulo)) {}

  /// Its register, and its place in the register's list, from 0.
  const Registro& registro() const { return *registro_; }
  std::size_t indice() const { return indice_; }

  /// Its place among the fields of the line, the first one if it repeats; the number of fields if the line
  /// does not have it.
  std::size_t lugar(const RegistroLido& lido) const;

  /// Its bytes on a line of its register; none if the line ends before it.
  std::string_view bytes(const RegistroLido& lido) const {
    const std::size_t i = lugar(lido);
    return i < lido.quantos ? lido.bytes(i) : std::string_view();
  }
  /// The same as a text, without trailing blanks.
  std::string texto(const RegistroLido& lido) const { return std::string(semBrancosNoFim(bytes(lido))); }
  /// How wide it is on the line; below 0 if the line does not have it.
  int largura(const RegistroLido& lido) const {
    const std::size_t i = lugar(lido);
    return i < lido.quantos ? lido.campos[i].largura : -1;
  }
  /// Reads a number; false if the line ends before it or holds something else there.
  bool le(const RegistroLido& lido, std::int64_t& valor) const;

 private:
  const Registro* registro_;
  std::size_t indice_;
};

}  // namespace cotepe
