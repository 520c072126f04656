// The values that a counter took, and those that it skipped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace cotepe {

/// Numbers from `de` to `ate`, both included.
struct Faixa {
  std::int64_t de = 0, ate = 0;

  bool operator==(const Faixa& outra) const { return de == outra.de && ate == outra.ate; }
};

/// The values of one counter, in whatever order they come. Memory: two numbers for each run of values without
/// a gap.
class Sequencia {
 public:
  /// Adds a value of a field of `digitos` digits.
  void anota(std::int64_t valor, int digitos);

  /// Adds a run of values.
  void anota(const Faixa& faixa, int digitos);

  bool vazia() const { return faixas_.empty(); }
  std::int64_t primeiro() const;  ///< the least value; there must be one
  std::int64_t ultimo() const;    ///< the greatest
  int digitos() const { return digitos_; }

  /// The values as runs without a gap, ascending.
  const std::vector<Faixa>& faixas() const;

  /// How many different values there are.
  std::int64_t quantos() const;

  /// The values missing between the least and the greatest, ascending. A hole of at least half of the values
  /// that the field can hold does not count: the counter began again there.
  std::vector<Faixa> lacunas() const;

  /// Whether there is such a hole.
  bool recomecou() const;

 private:
  static constexpr std::size_t kPrimeiraArrumacao = 1024;

  std::int64_t metade() const;
  void arruma() const;

  // Runs as they came; `arruma` sorts and joins them, which changes nothing visible.
  mutable std::vector<Faixa> faixas_;
  mutable std::size_t limite_ = kPrimeiraArrumacao;  // of runs, for the next tidying
  mutable bool arrumadas_ = true;
  int digitos_ = 6;
};

}  // namespace cotepe
