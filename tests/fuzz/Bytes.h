// What a target makes of its bytes, and how it says that something does not hold.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

/// Ends the process, as a crash does, where a condition does not hold.
#define EXIGE(condicao)                                                                              \
  do {                                                                                               \
    if (!(condicao)) {                                                                               \
      static_cast<void>(std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condicao)); \
      std::abort();                                                                                  \
    }                                                                                                \
  } while (false)

/// Taken from the front; beyond the end there are zeros and empty texts.
class Bytes {
 public:
  Bytes(const std::uint8_t* dados, std::size_t tamanho)
      : resto_(tamanho == 0 ? "" : reinterpret_cast<const char*>(dados), tamanho) {}

  bool acabou() const { return lidos_ >= resto_.size(); }

  std::uint8_t byte() { return acabou() ? std::uint8_t{0} : static_cast<std::uint8_t>(resto_[lidos_++]); }

  template <class Numero>
  Numero numero() {
    Numero valor{};
    const std::string bytes = pega(sizeof valor);
    std::memcpy(&valor, bytes.data(), bytes.size());
    return valor;
  }

  /// So many bytes, or what is left.
  std::string pega(std::size_t quantos) {
    std::string texto = resto_.substr(lidos_, quantos);
    lidos_ += texto.size();
    return texto;
  }

  /// A byte that says how many, and as many.
  std::string texto() { return pega(byte()); }

  /// Up to a terminator, which is taken too.
  std::string ateTerminador() {
    std::string texto = pega(std::min(resto_.find('\0', lidos_), resto_.size()) - lidos_);
    byte();
    return texto;
  }

 private:
  std::string resto_;
  std::size_t lidos_ = 0;
};
