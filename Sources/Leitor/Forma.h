// A register's list of fields resolved to positions: what each byte of a line belongs to.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Registros/Catalogo.h"

namespace cotepe {

/// One field as it stands on a line.
struct CampoLido {
  const Campo* campo = nullptr;
  int numero = 0;   // its place in the register's list, from 1; the same again where a group repeats
  int posicao = 0;  // of its first byte, from 0
  int largura = 0;  // bytes that are the field's: less than its width where a later field overwrites it

  std::string_view em(std::string_view linha) const {
    const auto inicio = static_cast<std::size_t>(posicao);
    return inicio < linha.size() ? linha.substr(inicio, static_cast<std::size_t>(largura))
                                 : std::string_view();
  }
};

/// The settings that shape a file's lines.
struct AjusteDoLeiaute {
  int versao = 1;  // 1, 2, or 3 for any other: counters as in 2, but nothing that only 2 has
  bool cat52 = false;

  bool operator==(const AjusteDoLeiaute& outro) const {
    return versao == outro.versao && cat52 == outro.cat52;
  }
};

/// The settings that a file can have, in the order in which they are tried.
inline constexpr AjusteDoLeiaute kAjustesPossiveis[] = {{1, false}, {1, true},  {2, false},
                                                        {2, true},  {3, false}, {3, true}};
inline constexpr unsigned kTodosOsAjustes = 63;  // a bit for each of them

/// A record of a register under one setting: a data record or a placeholder.
struct Forma {
  const Registro* registro = nullptr;
  int indice = 0;  // of the register in the catalogue
  std::vector<CampoLido> campos;
  int comprimento = 0;
  int deslocavel = -1;  // which of `campos` moves the later ones right when it is wide; below 0 for none
  std::string vazio;    // what a placeholder holds behind the fixed head
  int inicioVazio = 0;  // where that begins, from 0
};

/// How the lines of a register look under a setting (its place in kAjustesPossiveis). Made once; the
/// references last for ever. `vazio` is the placeholder, whose fields stand elsewhere in E07 and E09 alone.
const Forma& forma(int registro, int ajuste, bool vazio);

/// The place of a register in the catalogue, which goes from E01 up, by its code; below 0 when there is none.
int indiceDoRegistro(std::string_view codigo) noexcept;

/// The place of a field in its register's list by its label. Throws std::logic_error when there is none,
/// since labels are written in the code.
int indiceDoCampo(const Registro& registro, std::string_view rotulo);

}  // namespace cotepe
