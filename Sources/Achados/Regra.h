// A rule with its words, and the rules that a run does not apply.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Achados/Achado.h"

namespace cotepe {

/// What a report or a database is checked against: a constant with static storage duration beside the code
/// that applies it, identified by its address.
struct Regra {
  const char* nome;       ///< as --disable takes it: lower case, words joined by hyphens
  Severidade severidade;  ///< of its findings
  const char* resumo;     ///< what must hold, in one line, to be translated; null when the rule is not listed
  const char* conserto;   ///< what to do about a finding, to be translated; null when the finding says it
};

/// The rules of one room, in the order in which they are listed; a view of an array that outlives it.
class Regras {
 public:
  /// Of such an array.
  template <std::size_t N>
  constexpr Regras(const Regra* const (&regras)[N]) : inicio_(regras), fim_(regras + N) {}

  ///@{
  /// For loops over them.
  constexpr const Regra* const* begin() const { return inicio_; }
  constexpr const Regra* const* end() const { return fim_; }
  ///@}

  /// The rule of a name; null when there is none.
  const Regra* acha(std::string_view nome) const;

 private:
  const Regra* const* inicio_;
  const Regra* const* fim_;
};

/// The rules that are switched off.
class Supressoes {
 public:
  /// Switches a rule off.
  void desliga(const Regra& regra) { desligadas_.push_back(&regra); }
  /// Whether its findings are made.
  bool ligada(const Regra& regra) const;

 private:
  std::vector<const Regra*> desligadas_;
};

/// A finding of the rule in the file of that name, with the rule's advice; the caller fills in the rest.
Achado achadoDe(const Regra& regra, const std::string& arquivo);

}  // namespace cotepe
