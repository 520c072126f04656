// A calendar day, as given on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cotepe::programa {

/// A day that exists in the Gregorian calendar, of the years 1 to 9999.
class Dia {
 public:
  /// Reads DD/MM/YYYY, DDMMYYYY or YYYY-MM-DD, whole; nothing when the text has another form or the day does
  /// not exist.
  static std::optional<Dia> le(std::string_view texto);

  std::string ddmmaaaa() const;
  std::string iso() const;          // YYYY-MM-DD
  std::string paraPessoas() const;  // as written in the user's language
  int ano() const { return ano_; }
  Dia ultimoDoMes() const;

  friend bool operator<(const Dia& a, const Dia& b) { return a.iso() < b.iso(); }

 private:
  Dia(int ano, int mes, int dia) : ano_(ano), mes_(mes), dia_(dia) {}

  int ano_, mes_, dia_;
};

}  // namespace cotepe::programa
