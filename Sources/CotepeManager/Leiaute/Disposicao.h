// A register's list of fields resolved to positions: what each byte of a line belongs to.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "Leiaute/Registro.h"

namespace cotepe {

/// One field as it is on a line.
struct CampoLido {
  const Campo* campo = nullptr;
  int numero = 0;   ///< its place in the register's list, from 1; the same again where a group repeats
  int posicao = 0;  ///< of its first byte, from 0
  int largura = 0;  ///< bytes that are the field's: less than its width where a later field overwrites it

  /// Its bytes; fewer when the line ends early.
  std::string_view em(std::string_view linha) const {
    const auto inicio = static_cast<std::size_t>(posicao);
    return inicio < linha.size() ? linha.substr(inicio, static_cast<std::size_t>(largura))
                                 : std::string_view();
  }
};

/// The settings that shape a file's lines.
struct AjusteDoLeiaute {
  int versao = 1;      ///< 1, 2, or 3 for any other: counters as in 2, but without what only 2 has
  bool cat52 = false;  ///< CAT52 mode

  bool operator==(const AjusteDoLeiaute& outro) const {
    return versao == outro.versao && cat52 == outro.cat52;
  }
};

/// How often each group of a register occurs on a line.
using Repeticoes = std::array<int, Registro::kGrupos>;
inline constexpr Repeticoes kUmaVez = {1, 1, 1};

/// The fields of a line in their order.
struct Disposicao {
  std::vector<CampoLido> campos;
  int comprimento = 0;  ///< of the line, in bytes
  int deslocavel = -1;  ///< which of `campos` moves later ones to the right when it is wide; below 0 for none
  int doLeiaute = -1;   ///< which of them identifies the layout; below 0 for none
};

/// A record of the register. Of a group that grows from record to record and continues past `limite`, only
/// the last repetition is given.
void dispoe(Disposicao& disposicao, const Registro& registro, const AjusteDoLeiaute& ajuste,
            const Repeticoes& vezes = kUmaVez, std::size_t limite = std::numeric_limits<int>::max());

/// A placeholder record of these fields, all of the register's list or the last of them.
void dispoeVazio(Disposicao& disposicao, const Registro& registro, Campos campos,
                 const AjusteDoLeiaute& ajuste);

/// What a placeholder record holds from the byte `inicio` on: after the fields that every record has.
std::string conteudoVazio(const Disposicao& disposicao, std::size_t& inicio);

/// The likeliest repetitions of the groups that give a line of the length: those nearest to one of each.
/// Returns false, and one of each, when there are none.
bool repeticoesDe(const Registro& registro, const AjusteDoLeiaute& ajuste, int comprimento,
                  Repeticoes& vezes);

}  // namespace cotepe
