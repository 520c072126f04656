// The settings that a report was generated with, as far as the report itself shows them.
#pragma once

#include <string>
#include <vector>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

struct AjustesDoRelatorio {
  /// Those that its lines leave possible, the most likely first; at least one. A register that the command
  /// writes without even a placeholder suggests CAT52.
  std::vector<AjusteDoLeiaute> leiautes;
  bool faltaVazio = false;  // there is such a register: outside CAT52 mode it would have a placeholder

  std::string comando;  // of E01, without blanks; without E01 the one that writes the registers found
  bool comandoDoE01 = false;
  std::string primeiro, ultimo;  // AAAAMMDD: the first and last day of E01's first day, the movements of E12
                                 // and the tapes of E10; empty when there are none of them
  std::string ultimaEmissao;     // AAAAMMDD: E01's last day, on which its last reduction was issued; or empty
  std::string ultimoCrz;         // of E01, digits; or empty
};

/// Works them out while somebody else reads the report.
class ColetaDeAjustes {
 public:
  /// The catalogue must be the one that the report is read with.
  explicit ColetaDeAjustes(Catalogo catalogo = kCatalogo);

  /// Takes the next record.
  void le(const RegistroLido& lido);
  /// The settings that all records together show. `leitor` must have read them.
  AjustesDoRelatorio ajustes(const LeitorDeRegistros& leitor) const;

 private:
  AjustesDoRelatorio lidos_;
  Catalogo catalogo_;
  std::vector<bool> presentes_;
};

/// Reads a report to its end.
AjustesDoRelatorio ajustesDe(LeitorDeLinhas& linhas, Catalogo catalogo = kCatalogo);

}  // namespace cotepe
