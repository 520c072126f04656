// The lines of a report, one at a time, from a file of any size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace cotepe {

/// One line of a file. `texto` is without its line end and is valid until the next line is read; it may hold
/// any byte, NUL among them.
struct LinhaLida {
  std::string_view texto;     ///< borrowed
  long numero = 0;            ///< from 1
  std::uint64_t posicao = 0;  ///< of its first byte in the file, from 0
  std::uint64_t tamanho = 0;  ///< in bytes, of the whole line: more than `texto` holds when it was cut
  bool comCr = false;         ///< it ended with CR and LF
  bool semFim = false;        ///< the file ended before a line-feed
};

/// Reads lines from large blocks; nothing is allocated per line. Memory is one block, or the longest line if
/// that is longer, up to `kMaximo`: of an even longer line the first `kGuardado` bytes are returned.
class LeitorDeLinhas {
 public:
  static constexpr std::size_t kBloco = std::size_t{1} << 18;   ///< bytes read at a time
  static constexpr std::size_t kMaximo = std::size_t{1} << 22;  ///< bytes of the longest line returned whole
  static constexpr std::size_t kGuardado = kMaximo / 2;         ///< bytes returned of a longer one

  /// Fills a buffer: returns the count of bytes, 0 at the end, below 0 (errno set) when it cannot.
  using Leitura = std::function<long(char* destino, std::size_t tamanho)>;

  /// Reads from a file descriptor, which stays open and owned by the caller.
  explicit LeitorDeLinhas(int descritor);
  /// Reads from memory, which must outlive the reader.
  explicit LeitorDeLinhas(std::string_view memoria);
  /// Reads what `leitura` returns.
  explicit LeitorDeLinhas(Leitura leitura);

  /// Goes to the next line; false at the end, and when reading failed.
  bool proxima(LinhaLida& linha);

  /// After `proxima` returned false: the errno of a read that failed, 0 at the end of the file.
  int erro() const { return erro_; }

 private:
  bool entrega(LinhaLida& linha, std::size_t fim, bool comFim);
  bool entregaUltima(LinhaLida& linha);
  void abreEspaco();
  bool enche();

  Leitura leitura_;
  std::vector<char> buffer_;
  std::size_t inicio_ = 0;      // of the line being read, in the buffer
  std::size_t procurado_ = 0;   // there is no line-feed before it
  std::size_t fim_ = 0;         // of what was read
  std::uint64_t cortados_ = 0;  // bytes of the line that are not kept
  std::uint64_t posicao_ = 0;   // in the file, of the line being read
  long numero_ = 0;
  bool acabou_ = false;
  int erro_ = 0;
};

}  // namespace cotepe
