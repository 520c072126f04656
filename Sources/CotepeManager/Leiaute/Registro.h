// A register of the file: everything about it that is not particular to one writer's steps.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "Leiaute/Campo.h"
#include "Leiaute/Execucao.h"

namespace cotepe {

/// When a register without rows gets a placeholder record.
enum class Vazio : std::uint8_t { Nunca, ForaDoCat52, Sempre };

/// A query of a register, "\%s" standing for the period's bounds, and what is logged when it fails (null:
/// nothing).
struct ConsultaDoRegistro {
  const char* sql;    ///< one statement
  const char* falha;  ///< the message, or null
};

/// The commands under which a register is written, as a set of bits.
enum Comandos : std::uint8_t { kNenhum = 0, kMF = 1, kMFD = 2, kTDM = 4, kRZ = 8, kOutro = 16, kTodos = 31 };

/// Fields that a line repeats, once for each row of a query or, in records that grow, one more time in each
/// record.
struct Grupo {
  /// What determines how often they occur.
  enum class Vezes : std::uint8_t { Linhas, Usuarios, Registros };

  std::int8_t primeiro = 0, quantos = 0;  ///< fields of the list, from 0
  std::int8_t minimo = 0, maximo = 0;     ///< of Linhas and of the users that E01 has: how often they may
  std::int8_t semNenhuma = 0;   ///< how many of them, counted from the end, are there when there is no row
  Vezes vezes = Vezes::Linhas;  ///< Usuarios: as often as in E01
};

/// What the second field of an order is compared as.
enum class Segundo : std::uint8_t { Nenhum, Numero, Texto, TextoSemCaixa, Totalizador };

/// What the records of a register are sorted by; the fields are places in the list, below 0 for none.
struct OrdemDosRegistros {
  std::int8_t numero = -1, segundo = -1;  ///< a number, then another field
  std::int8_t data = -1;                  ///< advances with the number
  Segundo tipo = Segundo::Nenhum;         ///< of the second field
  bool unica = false;                     ///< no two records have the same key
};

/// One more placeholder, of the records of a register's last query.
struct OutroVazio {
  Campos campos;             ///< that it is written by; empty when there is no such placeholder
  const char* nota = "";     ///< in words, to be translated
  const char* sozinho = "";  ///< the same, where it is the only placeholder
};

/// A register as data: its code, its fields, its queries and its writer. Everything that it points to has
/// static storage duration. Made by the functions below, which take labels of its list.
struct Registro {
  static constexpr std::size_t kConsultas = 4;  ///< the most queries that a register has
  static constexpr std::size_t kGrupos = 3;     ///< the most groups of fields that a line repeats
  using Escreve = void(Execucao&, const Registro&);

  const char* codigo;                             ///< "E01" to "E22"
  const char* nome;                               ///< the law's name for it, UTF-8
  Campos campos;                                  ///< of a record for which every query returns one row
  ConsultaDoRegistro consultas[kConsultas] = {};  ///< null where there are fewer
  unsigned comandos = kNenhum;                    ///< of Comandos
  bool soNaVersao2 = false;                       ///< written in layout 2 only
  Vazio vazio = Vazio::Nunca;                     ///< when it has a placeholder record
  Campos camposVazios;                    ///< of the placeholder record: `campos`, or the last of them
  OutroVazio outroVazio;                  ///< always written, in CAT52 mode too
  bool umaLinha = false;                  ///< always one line, which is never a placeholder
  bool finalizaAntesDeRegistrar = false;  ///< a failed query is finalized before its message is logged
  Grupo grupos[kGrupos] = {};             ///< in the order of the list; without fields where there are fewer
  std::array<std::int8_t, 2> chave{{-1, -1}};  ///< fields whose values name a record; below 0 for fewer
  OrdemDosRegistros ordem;                     ///< what its records are sorted by
  const char* observacao = nullptr;            ///< what is odd about it, to be translated
  Escreve* escreve;                            ///< writes its lines

  constexpr Registro(const char* doCodigo, const char* doNome, Campos daLista, Escreve* escritor)
      : codigo(doCodigo), nome(doNome), campos(daLista), camposVazios(daLista), escreve(escritor) {}

  ///@{
  /// Each returns the register with one thing changed, so that every line reads as a sentence.
  constexpr Registro consulta(const char* sql, const char* falha) const {
    Registro r = *this;
    std::size_t i = 0;
    while (r.consultas[i].sql != nullptr) ++i;
    r.consultas[i] = {sql, falha};
    return r;
  }
  constexpr Registro repete(Grupo grupo, std::string_view primeiro, std::string_view ultimo) const {
    Registro r = *this;
    std::size_t i = 0;
    while (r.grupos[i].quantos != 0) ++i;
    grupo.primeiro = lugar(primeiro);
    grupo.quantos = static_cast<std::int8_t>(lugar(ultimo) + 1 - grupo.primeiro);
    r.grupos[i] = grupo;
    return r;
  }
  constexpr Registro repetePorLinha(std::string_view primeiro, std::string_view ultimo, std::int8_t minimo,
                                    std::int8_t maximo, std::int8_t semNenhuma = 0) const {
    return repete({0, 0, minimo, maximo, semNenhuma, Grupo::Vezes::Linhas}, primeiro, ultimo);
  }
  constexpr Registro repetePorUsuario(std::string_view campo, std::int8_t maximo = 0) const {
    return repete({0, 0, 1, maximo, 0, Grupo::Vezes::Usuarios}, campo, campo);
  }
  constexpr Registro repeteACadaRegistro(std::string_view primeiro, std::string_view ultimo) const {
    return repete({0, 0, 0, 0, 0, Grupo::Vezes::Registros}, primeiro, ultimo);
  }
  // clang-format off
  constexpr Registro comChave(std::string_view campo) const { Registro r = *this; r.chave[0] = lugar(campo); return r; }
  constexpr Registro comChave(std::string_view campo, std::string_view outro) const { Registro r = comChave(campo); r.chave[1] = lugar(outro); return r; }
  constexpr Registro emOrdemDe(std::string_view campo) const { Registro r = *this; r.ordem.numero = lugar(campo); return r; }
  constexpr Registro depoisDe(std::string_view campo, Segundo tipo) const { Registro r = *this; r.ordem.segundo = lugar(campo); r.ordem.tipo = tipo; return r; }
  constexpr Registro semRepetirChave() const { Registro r = *this; r.ordem.unica = true; return r; }
  constexpr Registro comData(std::string_view campo) const { Registro r = *this; r.ordem.data = lugar(campo); return r; }
  constexpr Registro nosComandos(unsigned quais) const { Registro r = *this; r.comandos = quais; return r; }
  constexpr Registro naVersao2() const { Registro r = *this; r.soNaVersao2 = true; return r; }
  constexpr Registro vazioSempre() const { Registro r = *this; r.vazio = Vazio::Sempre; return r; }
  constexpr Registro vazioForaDoCat52() const { Registro r = *this; r.vazio = Vazio::ForaDoCat52; return r; }
  constexpr Registro vazioDesde(std::string_view campo) const { Registro r = *this; r.camposVazios = campos.trecho(indiceDe(campos, campo)); return r; }
  constexpr Registro comOutroVazio(OutroVazio outro) const { Registro r = *this; r.outroVazio = outro; return r; }
  constexpr Registro sempreUmaLinha() const { Registro r = *this; r.umaLinha = true; return r; }
  constexpr Registro finalizaAntes() const { Registro r = *this; r.finalizaAntesDeRegistrar = true; return r; }
  constexpr Registro nota(const char* texto) const { Registro r = *this; r.observacao = texto; return r; }
  // clang-format on
  ///@}

  /// Whether the command, compared as a whole, writes this register.
  bool despachado(const char* comando, int versao) const;

  /// Whether its first placeholder record is written in a mode.
  constexpr bool temVazio(bool cat52) const {
    return vazio == Vazio::Sempre || (vazio == Vazio::ForaDoCat52 && !cat52);
  }

  /// Whether lines repeat fields.
  constexpr bool temGrupos() const { return grupos[0].quantos != 0; }

 private:
  constexpr std::int8_t lugar(std::string_view rotulo) const {
    return static_cast<std::int8_t>(indiceDe(campos, rotulo));
  }
};

/// The commands that write registers, as users name them.
inline constexpr const char* kNomesDosComandos[] = {"MF", "MFD", "TDM", "RZ"};

/// The writer of most registers: one query, one record for each row, a placeholder record for none, or when
/// there is no query at all.
void escreveTabela(Execucao& execucao, const Registro& registro);

/// What follows the last row: a failed query is logged and finalized; one that ended normally is finalized,
/// after the placeholder record where `linhas` is 0 and the register has one. Returns whether it ended
/// normally.
bool encerra(Execucao& execucao, const Registro& registro, Leitura& leitura, long linhas, int consulta = 0);

/// Logs and finalizes a failed query in the register's order; for one that ended normally, does nothing and
/// returns true.
bool completou(Execucao& execucao, const Registro& registro, Leitura& leitura, int consulta = 0);

/// Appends `campos` to the line once for each row of a query that `aceita` (every row, where it is empty);
/// for none, `vazio` as a placeholder. Returns whether the query ended normally; a failed one is logged and
/// finalized.
bool acrescentaLinhas(Execucao& execucao, const Registro& registro, int consulta, Linha& linha, Campos campos,
                      Campos vazio, const std::function<bool(const Fonte&)>& aceita = {});

}  // namespace cotepe
