#include "Sistema/Falha.h"

#include <cstdio>

#include "Idioma/Idioma.h"
#include "Sistema/Terminal.h"

namespace cotepe::programa {

SemLeitor::SemLeitor() : Falha(128 + kSinalSemLeitor, "") {}

void avisa(const std::string& texto) noexcept {
  static_cast<void>(std::fprintf(stderr, "cotepe: %s\n", texto.c_str()));  // nowhere else to report it
}

void avisaErro(const std::string& texto) noexcept {
  static_cast<void>(std::fprintf(stderr, "cotepe: %s: %s\n", traduz("error"), texto.c_str()));
}

}  // namespace cotepe::programa
