#include "Sistema/Falha.h"

#include <csignal>
#include <cstdio>
#include <system_error>

#include "Idioma/Idioma.h"

namespace cotepe::programa {

SemLeitor::SemLeitor() : Falha(128 + SIGPIPE, "") {}

std::string motivoDoSistema(int codigo) { return std::generic_category().message(codigo); }

void avisa(const std::string& texto) noexcept {
  static_cast<void>(std::fprintf(stderr, "cotepe: %s\n", texto.c_str()));  // there is nobody else to tell
}

void avisaErro(const std::string& texto) noexcept {
  static_cast<void>(std::fprintf(stderr, "cotepe: %s: %s\n", traduz("error"), texto.c_str()));
}

}  // namespace cotepe::programa
