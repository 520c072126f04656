// Numbers that look random and are the same on every machine.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace cotepe::loja {

// xoshiro256** seeded by splitmix64: public algorithms, used because the distributions of the standard
// library differ between its makers.
class Aleatorio {
 public:
  explicit Aleatorio(std::uint64_t semente);

  std::uint64_t proximo();
  // From `minimo` to `maximo`, both included; the bias is below 2^-32 times the span.
  int entre(int minimo, int maximo);
  // True in `porMil` of a thousand draws.
  bool chance(int porMil) { return entre(1, 1000) <= porMil; }

  template <class Tabela>
  const auto& um(const Tabela& tabela) {
    return tabela[static_cast<std::size_t>(entre(0, static_cast<int>(std::size(tabela)) - 1))];
  }

 private:
  std::array<std::uint64_t, 4> estado_{};
};

}  // namespace cotepe::loja
