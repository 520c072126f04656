// Which fields of which registers a column of the database ends up in, taken from the registers themselves.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Leiaute/Registro.h"

namespace cotepe {

/// Which reports to check for: the command ("" for all), the layout (0 for both), the mode.
struct Alcance {
  std::string comando;
  int leiaute = 0;
  bool cat52 = false;

  bool escreve(const Registro& registro) const;
  bool existe(const Campo& campo) const;
  /// The narrowest selected layout: 1 or 2.
  int menorLeiaute() const { return leiaute == 0 ? 1 : leiaute; }
};

struct Destino {
  const Registro* registro = nullptr;
  const Campo* campo = nullptr;
  int numero = 0;     // of the field in the register, from 1
  int usados = 0;     // characters that SUBSTR keeps of the column; 0: all
  std::string casas;  // the column that holds the number of its decimal places; empty: 2
};

/// The fields that the column reaches in the selected reports, in the order of the file.
std::vector<Destino> destinosDe(std::string_view tabela, std::string_view coluna, const Alcance& alcance);

/// The registers whose queries name the column of the table ("" for any column) in the selected reports, as
/// "E14, E15 and E21"; empty for none.
std::string registrosQueLeem(std::string_view tabela, std::string_view coluna, const Alcance& alcance);

}  // namespace cotepe
