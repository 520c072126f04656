// A text written piece by piece to a file that appears when it is complete.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Sistema/ArquivoSeguro.h"

namespace cotepe::programa {

/// Throws Falha when it cannot write, and Interrupcao when a signal came.
class TextoEmArquivo {
 public:
  /// `nome` is its name in messages.
  TextoEmArquivo(const std::string& destino, std::string nome);

  void escreve(std::string_view texto) {
    if (texto.size() > kBloco - cheio_) return escreveLongo(texto);
    texto.copy(bloco_.get() + cheio_, texto.size());
    cheio_ += texto.size();
  }

  /// Bytes written so far.
  std::uint64_t tamanho() const { return gravados_ + cheio_; }

  /// Flushes it to disk and gives it its name. To be called once.
  void publica(bool substitui);

 private:
  static constexpr std::size_t kBloco = std::size_t{1} << 16;

  void escreveLongo(std::string_view texto);
  void despeja();

  std::string destino_, nome_;
  std::unique_ptr<ArquivoSeguro> seguro_;
  std::unique_ptr<char[]> bloco_;
  std::size_t cheio_ = 0;
  std::uint64_t gravados_ = 0;
};

}  // namespace cotepe::programa
