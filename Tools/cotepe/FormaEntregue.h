// A report checked against the form in which it is handed in.
#pragma once

#include <string>

#include "Achados/Regra.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe::programa {

/// The rule of that form, which is looked at only where it is asked for.
extern const Regra kEntrega;

/// Finds, under that rule, what is not as the law has it: CR and LF on every line, characters of ASCII, the
/// EAD line with its 256 digits last, and the name of the file. Line ends and characters are said once.
class FormaEntregue {
 public:
  FormaEntregue(RecebeAchados& saida, std::string arquivo);

  /// To be called for each line of the report; `fim` at its end.
  void linha(const RegistroLido& lido);
  void fim();

 private:
  void confereAssinatura(const RegistroLido& lido);
  void acha(long linha, std::string encontrado, std::string esperado, const char* conserto = nullptr);

  RecebeAchados& saida_;
  std::string arquivo_;
  long ultima_ = 0;
  bool lf_ = false, naoAscii_ = false, assinada_ = false;
};

}  // namespace cotepe::programa
