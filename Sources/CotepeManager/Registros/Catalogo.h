// Every register of the file, in the order of the file. The texts of their queries keep their bytes: they are
// never reworded or reformatted.
#pragma once

#include <array>
#include <string_view>

#include "Leiaute/Registro.h"

namespace cotepe {

extern const Registro kE01, kE02, kE03, kE04, kE05, kE06, kE07, kE08, kE09, kE10, kE11;
extern const Registro kE12, kE13, kE14, kE15, kE16, kE17, kE18, kE19, kE20, kE21, kE22;

/// Registers in the order of their file, borrowed from a list with static storage duration.
class Catalogo {
 public:
  template <std::size_t N>
  constexpr Catalogo(const std::array<const Registro*, N>& lista)  // NOLINT(google-explicit-constructor)
      : inicio_(lista.data()), quantos_(N) {}

  ///@{
  /// As of a container; `i` must be below size().
  constexpr const Registro* const* begin() const { return inicio_; }
  constexpr const Registro* const* end() const { return inicio_ + quantos_; }
  constexpr std::size_t size() const { return quantos_; }
  constexpr const Registro* operator[](std::size_t i) const { return inicio_[i]; }
  ///@}

  /// Whether both are the same list.
  constexpr bool operator==(const Catalogo& outro) const { return inicio_ == outro.inicio_; }

  /// The place of a register by its code, such as "E14"; below 0 when there is none.
  int indiceDe(std::string_view codigo) const noexcept;

 private:
  const Registro* const* inicio_;
  std::size_t quantos_;
};

inline constexpr std::array<const Registro*, 22> kRegistros = {
    &kE01, &kE02, &kE03, &kE04, &kE05, &kE06, &kE07, &kE08, &kE09, &kE10, &kE11,
    &kE12, &kE13, &kE14, &kE15, &kE16, &kE17, &kE18, &kE19, &kE20, &kE21, &kE22};
inline constexpr Catalogo kCatalogo = kRegistros;

/// The register of a code such as "E14"; null when there is none.
inline const Registro* registroDe(std::string_view codigo) {
  const int indice = kCatalogo.indiceDe(codigo);
  return indice < 0 ? nullptr : kCatalogo[static_cast<std::size_t>(indice)];
}

}  // namespace cotepe
