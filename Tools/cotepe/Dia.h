// A day of the calendar, as the command line gives it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace cotepe::programa {

/// A day that exists in the Gregorian calendar, of the years 1 to 9999.
class Dia {
 public:
  /// Reads DDMMYYYY or YYYY-MM-DD, whole; nothing when the text has another form or there is no such day.
  static std::optional<Dia> le(std::string_view texto);

  std::string ddmmaaaa() const;
  std::string iso() const;  // YYYY-MM-DD
  int ano() const { return ano_; }

  friend bool operator<(const Dia& a, const Dia& b) { return a.iso() < b.iso(); }

 private:
  Dia(int ano, int mes, int dia) : ano_(ano), mes_(mes), dia_(dia) {}

  int ano_, mes_, dia_;
};

/// Reads the day that an option gives. Throws Falha (kUsoErrado).
Dia exigeDia(const std::string& opcao, const std::string& texto);

/// Reads what --from and --to give, the second no day before the first. Throws Falha (kUsoErrado).
std::pair<Dia, Dia> exigePeriodo(const std::string& de, const std::string& ate);

}  // namespace cotepe::programa
