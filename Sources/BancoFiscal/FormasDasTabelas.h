// The fiscal database as the registers need it, as data: its tables, the form of each column, what must
// match.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace cotepe {

/// What a value must look like. Its maximum length is that of the fields that it ends up in.
enum class FormaDoValor : std::uint8_t {
  Texto,            // no longer than its field
  TextoUsado,       // of any length: its field holds the first bytes
  Inteiro,          // digits only
  Casas,            // 2 or 3
  Dinheiro,         // digits, and a point before the decimal places
  Decimal,          // the same
  DataHora,         // YYYY-MM-DD HH:MM:SS
  Cnpj,             // 14 digits
  CpfOuCnpj,        // at most 14 digits; may be empty
  Letra,            // one character
  SimNao,           // S or N
  TipoDeDocumento,  // CN, RG, CC, NC or RZ
  NaoImpressa,      // only has to exist
};

struct FormaDaColuna {
  const char* nome;
  FormaDoValor forma;
  bool aceitaNulo = false;
};

/// How the queries sort rows or compare them by a column, and how digits stored as text may upset that.
enum class Uso : std::uint8_t { Ordena, Maximo };

struct FormaDaTabela {
  static constexpr std::size_t kColunas = 19;

  const char* nome;
  const char*
      chave;  // the columns that identify a row, joined by commas; with `porPosicao` they are numbers from 0
  int minimo, maximo;     // rows; 0: any number
  const char* doPeriodo;  // which rows a period reads, "?1" and "?2" being its bounds; null: all of them
  std::array<FormaDaColuna, kColunas> colunas;  // up to the first without a name
  bool porPosicao = false;                      // the columns may have other names
};

extern const std::array<FormaDaTabela, 20> kFormas;

/// A column that the queries sort by, or of which they take the maximum.
struct UsoDaColuna {
  const char *tabela, *coluna;
  Uso uso;
};
extern const std::array<UsoDaColuna, 15> kUsos;

/// Rows of `tabela` whose `coluna` is not in `alvo`.`colunaDoAlvo` (nor in `outroAlvo`, of the same column)
/// are left out of `registro`, and so are rows without it.
struct Ligacao {
  const char *tabela, *coluna, *alvo, *colunaDoAlvo, *outroAlvo;
};
extern const std::array<Ligacao, 10> kLigacoes;

/// Columns that identify a row for the joins or for the law, joined by commas: two of the selected rows may
/// not share them.
struct Unicidade {
  const char *tabela, *colunas, *consequencia;  // `consequencia` is to be translated
  const char* quais = nullptr;                  // which rows, as an SQL condition; null: all
};
extern const std::array<Unicidade, 16> kUnicidades;

/// Columns that the queries search by.
struct BuscaPorColuna {
  const char *tabela, *coluna;
};
extern const std::array<BuscaPorColuna, 14> kBuscas;

}  // namespace cotepe
