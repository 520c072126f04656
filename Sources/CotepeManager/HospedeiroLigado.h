// The application around the generator, as its symbols are linked: log, identity, clock, padding.
#pragma once

#include <array>

#include "Leiaute/Execucao.h"

namespace cotepe {

class HospedeiroLigado final : public Hospedeiro {
 public:
  void registraLog(const char* mensagem) override;
  const char* serial() override;
  const char* modelo() override;
  const char* tipo() override;
  void dataHoraAtual(char* saida) override;
  void preenche(char* texto, char* destino, int largura) override;

 private:
  // Terminated copies of the globals.
  std::array<char, 31> serial_{};
  std::array<char, 31> modelo_{};
  std::array<char, 16> tipo_{};
};

}  // namespace cotepe
