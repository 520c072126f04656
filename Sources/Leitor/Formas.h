// How the lines of a catalogue's registers look under each setting that a file can have.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Leiaute/Disposicao.h"
#include "Registros/Catalogo.h"

namespace cotepe {

/// The settings that a file can have, in the order in which they are tried.
inline constexpr std::array<AjusteDoLeiaute, 6> kAjustesPossiveis = {
    {{1, false}, {1, true}, {2, false}, {2, true}, {3, false}, {3, true}}};
inline constexpr unsigned kTodosOsAjustes = 63;  ///< a bit for each of them

/// The set of settings for which something holds, as those bits.
template <class Vale>
unsigned ajustesEmQue(const Vale& vale) {
  unsigned ajustes = 0;
  for (std::size_t i = 0; i < kAjustesPossiveis.size(); ++i)
    if (vale(kAjustesPossiveis[i])) ajustes |= 1U << i;
  return ajustes;
}

/// What a placeholder record holds after its head.
struct ConteudoVazio {
  std::string bytes;
  std::size_t inicio = 0;  ///< of these bytes on the line, from 0
  Vazio quando = Vazio::Nunca;
};

/// A record of a register under one setting: a data record or a placeholder.
struct FormaDoRegistro : Disposicao {
  const Registro* registro = nullptr;
  int indice = 0;                     ///< of the register in the catalogue
  std::vector<ConteudoVazio> vazios;  ///< which make a line of these fields a placeholder
};

/// The forms of every register of a catalogue.
class Formas {
 public:
  explicit Formas(Catalogo catalogo);

  /// Those of the catalogue; built only once for the law's.
  static std::shared_ptr<const Formas> de(Catalogo catalogo);

  /// The form of a register under a setting (its place in kAjustesPossiveis). `vazio` is the placeholder,
  /// whose fields may be elsewhere.
  const FormaDoRegistro& em(int registro, int ajuste, bool vazio) const {
    return formas_[static_cast<std::size_t>(registro)][static_cast<std::size_t>(ajuste)][vazio ? 1 : 0];
  }

  const Catalogo& catalogo() const { return catalogo_; }

 private:
  using DoRegistro = std::array<std::array<FormaDoRegistro, 2>, kAjustesPossiveis.size()>;

  Catalogo catalogo_;
  std::vector<DoRegistro> formas_;
};

/// A form of the law's catalogue; it has static storage duration.
inline const FormaDoRegistro& forma(int registro, int ajuste, bool vazio) {
  static const std::shared_ptr<const Formas> formas = Formas::de(kCatalogo);
  return formas->em(registro, ajuste, vazio);
}

}  // namespace cotepe
