// The text of a key or a pass phrase, which is not left behind in memory.
#pragma once

#include <string>
#include <string_view>

namespace cotepe {

/// Overwrites a secret before its memory is released.
void apagaSegredo(std::string& segredo) noexcept;

/// A whole file, of no more than `kMaximo` bytes.
class TextoDeChave {
 public:
  static constexpr std::size_t kMaximo = std::size_t{1} << 16;  ///< no key is that long

  /// Throws ErroDaAssinatura (ChaveNaoAbre, ChaveIlegivel).
  explicit TextoDeChave(const std::string& caminho);
  ~TextoDeChave() { apagaSegredo(texto_); }
  TextoDeChave(const TextoDeChave&) = delete;
  TextoDeChave& operator=(const TextoDeChave&) = delete;

  std::string_view texto() const { return texto_; }

 private:
  std::string texto_;
};

}  // namespace cotepe
