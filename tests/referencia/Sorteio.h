// A small deterministic source of random numbers: the same seed gives the same numbers on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace referencia {

class Sorteio {
 public:
  explicit Sorteio(std::uint64_t semente) : estado_(semente) {}

  std::uint64_t proximo() {
    estado_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = estado_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }

  // From `menor` to `maior`, both included.
  int entre(int menor, int maior) {
    return menor + static_cast<int>(proximo() % static_cast<std::uint64_t>(maior - menor + 1));
  }

  // True once in `vezes` on average.
  bool umaEm(int vezes) { return entre(1, vezes) == 1; }

  bool porCento(int chance) { return entre(1, 100) <= chance; }

  template <typename T>
  const T& escolhe(const std::vector<T>& opcoes) {
    return opcoes[static_cast<std::size_t>(proximo() % opcoes.size())];
  }

 private:
  std::uint64_t estado_;
};

}  // namespace referencia
