// An explained line as text and as JSON.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Explicacao/Explicacao.h"
#include "Explicacao/Procedencia.h"

namespace cotepe::programa {

struct LinhaExplicada {
  std::string arquivo;
  long linha = 0;
  ExplicacaoDaLinha explicacao;
  std::vector<Procedencia> procedencias;  // of each field; none without a database
  int so = -1;                            // which field is meant, from 0; below 0 all of them
};

/// A block for the line and one for each field. `cores`: the head of each in bold.
void escreveTexto(std::ostream& saida, const LinhaExplicada& linha, bool cores);

/// One object, {"file":..,"line":..,"register":..,"fields":[{..}]}, and a line-feed.
void escreveJson(std::ostream& saida, const LinhaExplicada& linha);

}  // namespace cotepe::programa
