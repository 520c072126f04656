// An application around the generator that knows nothing about the printer and whose clock stands still.
#pragma once

#include <cstring>
#include <stdexcept>

#include "Hospedeiro.h"

namespace bench {

class HospedeiroParado : public cotepe::Hospedeiro {
 public:
  void registraLog(const char* mensagem) override { throw std::runtime_error(mensagem); }
  const char* serial() override { return ""; }
  const char* modelo() override { return ""; }
  const char* tipo() override { return ""; }
  void dataHoraAtual(char* saida) override { std::strcpy(saida, kDataHora); }
  void preenche(char* texto, char* destino, int largura) override {
    const std::size_t tamanho = std::strlen(texto);
    const auto alvo = static_cast<std::size_t>(largura);
    std::memcpy(destino, texto, tamanho);
    if (tamanho < alvo) std::memset(destino + tamanho, ' ', alvo - tamanho);
  }

  static constexpr char kDataHora[] = "20240131 235959";
};

}  // namespace bench
