// A register of the file: everything about it that is not particular to one writer's steps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "Leiaute/Campo.h"
#include "Leiaute/Execucao.h"

namespace cotepe {

/// When a register without a row holds one placeholder record.
enum class Vazio : std::uint8_t { Nunca, ForaDoCat52, Sempre };

/// A query of a register, "\%s" standing for the period's bounds, and what is logged when it fails (null:
/// nothing).
struct ConsultaDoRegistro {
  const char* sql;    ///< one statement
  const char* falha;  ///< the message, or null
};

/// The commands under which a register is written, as a set of bits.
enum Comandos : std::uint8_t { kNenhum = 0, kMF = 1, kMFD = 2, kTDM = 4, kRZ = 8, kOutro = 16, kTodos = 31 };

/// A register as data: its code, its fields, its queries and its writer. All that it points to lives for
/// ever.
struct Registro {
  static constexpr std::size_t kConsultas = 4;  ///< the most queries that a register has

  const char* codigo;                        ///< "E01" to "E22"
  const char* nome;                          ///< the law's, UTF-8
  Campos campos;                             ///< of a record for which every query returns one row
  ConsultaDoRegistro consultas[kConsultas];  ///< null where there are fewer
  unsigned comandos;                         ///< of Comandos
  bool soNaVersao2 = false;                  ///< dispatched in layout 2 only
  Vazio vazio = Vazio::ForaDoCat52;          ///< when it has a placeholder record
  bool finalizaAntesDeRegistrar = false;     ///< a failed query is finalized before its message is logged
  void (*escreve)(Execucao&, const Registro&) = nullptr;  ///< writes its lines

  /// Whether the command given, compared whole, writes this register.
  bool despachado(const char* comando, int versao) const;
};

/// The writer of most registers: one query, one record for each row, a placeholder record for none.
void escreveTabela(Execucao& execucao, const Registro& registro);

/// What follows the last row: a failed query is logged and finalized; one that ended normally is finalized,
/// after the placeholder record where `linhas` is 0 and the register has one. Returns whether it ended
/// normally.
bool encerra(Execucao& execucao, const Registro& registro, Leitura& leitura, long linhas, int consulta = 0);

/// Logs and finalizes a failed query in the register's order; true, and nothing done, for one that ended
/// normally.
bool completou(Execucao& execucao, const Registro& registro, Leitura& leitura, int consulta = 0);

/// Appends `campos` to the line once for each row of a query that `aceita` (every row, where it is empty);
/// for none, `vazio` as a placeholder. Returns whether the query ended normally; a failed one is logged and
/// finalized.
bool acrescentaLinhas(Execucao& execucao, const Registro& registro, int consulta, Linha& linha, Campos campos,
                      Campos vazio, const std::function<bool(const Fonte&)>& aceita = {});

}  // namespace cotepe
