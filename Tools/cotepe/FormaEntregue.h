// A report held to the form in which it is handed in.
#pragma once

#include <string>

#include "Achados/Achado.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe::programa {

/// Finds, under the rule "delivery", what is not as the law has it: CR and LF on every line, the EAD line
/// with its 256 digits last, and the name of the file.
class FormaEntregue {
 public:
  FormaEntregue(RecebeAchados& saida, std::string arquivo);

  /// Each line of the report; at its end `fim`.
  void linha(const RegistroLido& lido);
  void fim();

 private:
  void acha(long linha, std::string encontrado, std::string esperado);

  RecebeAchados& saida_;
  std::string arquivo_;
  long ultima_ = 0;
  bool lf_ = false, assinada_ = false;
};

}  // namespace cotepe::programa
