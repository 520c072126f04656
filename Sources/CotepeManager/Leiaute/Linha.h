// The record under construction, and the one law that every field of every register follows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace cotepe {

/// One line of the report as a zeroed buffer with a cursor. A text is put at the cursor, followed by a
/// terminator; the cursor then advances by the field's nominal width, whatever was put; a later text
/// overwrites the surplus of an earlier one; the finished line is everything before the first terminator. The
/// buffer grows when a line needs it (std::bad_alloc when it cannot) and is kept from line to line.
class Linha {
 public:
  /// A place to come back to: everything on the line at the time of `marca`.
  struct Marca {
    std::size_t cursor = 0;
    std::size_t fim = 0;
    bool terminada = false;
  };

  Linha() : buffer_(kCapacidadeInicial) {}

  void limpa() noexcept { estado_ = Marca{}; }
  Marca marca() const noexcept { return estado_; }
  void volta(const Marca& marca) noexcept { estado_ = marca; }

  /// Moves the cursor to a position counted from 0, forward or back.
  void vaiPara(std::size_t posicao) noexcept;

  /// Puts `texto` unchanged and advances by `nominal`.
  void poe(std::string_view texto, std::size_t nominal);

  /// Puts `texto` left-aligned and blank-filled to `largura`.
  void poeTexto(std::string_view texto, std::size_t largura, std::size_t nominal);

  /// Puts `quantos` times the character `c`.
  void poeRepetido(char c, std::size_t quantos, std::size_t nominal);

  /// The two halves of every put, for a text that is made in place: room for `tamanho` bytes and a terminator
  /// at the cursor, valid until the next call; then the count of bytes put there (none of them a terminator)
  /// and the advance of the cursor.
  char* espaco(std::size_t tamanho) {
    const std::size_t necessario = estado_.cursor + tamanho + 1;
    if (necessario > buffer_.size()) cresce(necessario);
    return buffer_.data() + estado_.cursor;
  }
  void avanca(std::size_t escritos, std::size_t nominal) noexcept {
    if (!estado_.terminada) {
      estado_.fim = estado_.cursor + escritos;
      estado_.terminada = escritos < nominal;
    }
    estado_.cursor += nominal;
  }

  /// Another first half: writes a number at the cursor, right-aligned and zero-filled to `largura` (a minus
  /// sign included), and returns the count of bytes, more than `largura` where the number needs them.
  std::size_t escreveNumero(std::int64_t valor, std::size_t largura);
  std::size_t escreveSemSinal(std::uint64_t valor, std::size_t largura);

  /// Another first half: where the terminated `texto` is digits with at most `casas` decimals after a point,
  /// writes its value in units of the last of these places, right-aligned and zero-filled. False, and nothing
  /// written, where it is anything else or longer than `largura`.
  bool escreveDigitos(const char* texto, std::size_t casas, std::size_t largura);

  /// The finished line, and the same with its line-feed; valid until the line changes.
  std::string_view texto() const noexcept { return {buffer_.data(), estado_.fim}; }
  std::string_view comFimDeLinha() noexcept;

 private:
  static constexpr std::size_t kCapacidadeInicial = 1024;  // the longest regular record has 885

  void cresce(std::size_t necessario);

  std::vector<char> buffer_;
  // `fim` is the first terminator. Once a put has left one before the cursor it is final, since no later put
  // reaches back to it. So the buffer itself need not be cleared.
  Marca estado_;
};

}  // namespace cotepe
