// A field of a record as data: what it is called, how wide it is, how it is written and where it comes from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace cotepe {

class Execucao;
class Fonte;
struct Ajustes;

/// How a field is written in a data record. The placeholder record has zeros in the numeric kinds and blanks
/// in the others, unless the field says otherwise.
enum class Especie : std::uint8_t {
  Texto,          ///< left-aligned, blank-filled
  ComoEsta,       ///< the text alone, neither filled nor cut
  Preenchido,     ///< placed by the host's padding routine
  Numero,         ///< signed integer, zero-filled, after the remainder by the field's modulus
  Contador,       ///< as Numero, with the width and the modulus that the layout version sets
  Identificador,  ///< integer printed without sign, zero-filled (CNPJ, CPF)
  Dinheiro,       ///< money text, in cents without sign, zero-filled
  DinheiroDuplo,  ///< the same, rounded to cents through a double first
  Decimal,        ///< decimal number scaled by its decimal places, rounded, zero-filled
  Data,           ///< AAAAMMDD out of a date-time text
  Hora,           ///< HHMMSS out of a date-time text
  DataPronta,     ///< a date that is AAAAMMDD already
  HoraPronta,     ///< an hour that is HHMMSS already
};

/// Where the text of a field comes from.
struct Origem {
  /// Which of the members below holds.
  enum class Tipo : std::uint8_t { Nenhuma, Constante, Ajuste, Coluna, Funcao };

  Tipo tipo = Tipo::Nenhuma;                     ///< Nenhuma: the text is empty
  std::int8_t coluna = -1;                       ///< counted from 0
  std::int8_t consulta = 0;                      ///< which query of the register, counted from 0
  const char* constante = "";                    ///< of Constante: the text
  const char* const Ajustes::*ajuste = nullptr;  ///< of Ajuste: which text of the run
  const char* (*funcao)(const Fonte&, const Execucao&) = nullptr;  ///< of Funcao

  /// True where the text is the same in every record of a run, placeholders included.
  constexpr bool fixa() const { return tipo == Tipo::Constante || tipo == Tipo::Ajuste; }
};

/// A column of a query's row, both counted from 0.
constexpr Origem coluna(int numero, int consulta = 0) {
  Origem o;
  o.tipo = Origem::Tipo::Coluna;
  o.coluna = static_cast<std::int8_t>(numero);
  o.consulta = static_cast<std::int8_t>(consulta);
  return o;
}

/// A text worked out from a row. `lida` is the column that it mainly rests on, for those who trace a field
/// back to the database.
constexpr Origem funcao(const char* (*calcula)(const Fonte&, const Execucao&), Origem lida = {}) {
  Origem o = lida;
  o.tipo = Origem::Tipo::Funcao;
  o.funcao = calcula;
  return o;
}

/// A text that lives for ever.
constexpr Origem constante(const char* texto) {
  Origem o;
  o.tipo = Origem::Tipo::Constante;
  o.constante = texto;
  return o;
}

/// A text of the run's settings.
constexpr Origem ajuste(const char* const Ajustes::*membro) {
  Origem o;
  o.tipo = Origem::Tipo::Ajuste;
  o.ajuste = membro;
  return o;
}

/// One field of a register's list. Made by the functions below; the members are for those who read the list.
struct Campo {
  static constexpr int kLarguraDoContador = -1;  ///< 6 in layout 1, 9 elsewhere

  const char* rotulo = "";           ///< the law's words, UTF-8
  Especie especie = Especie::Texto;  ///< how it is written
  int largura = 0;                   ///< nominal width in bytes, or kLarguraDoContador
  Origem origem;                     ///< where its text comes from
  std::int64_t modulo = 0;           ///< of Numero; 0 takes no remainder
  std::int8_t colunaDasCasas = -1;   ///< of Decimal: the column that holds the number of decimal places
  std::int16_t posicao = 0;          ///< from 1, of a field that does not stand at the cursor; 0 elsewhere
  const char* textoVazio = nullptr;  ///< what the placeholder holds, where it is not the kind's own

  bool removePontos = false;    ///< '.' left out of the text
  bool removeHifens = false;    ///< '-' left out of the text
  bool trocaNaoAscii = false;   ///< control characters and bytes outside ASCII blanked
  bool soNaVersao2 = false;     ///< there in layout 2 only
  bool soForaDoCat52 = false;   ///< not there in CAT52 mode
  bool desloca = false;         ///< never clipped: a longer number moves the later fields right
  bool naoAvanca = false;       ///< the cursor stays before the field in a data record ...
  bool naoAvancaVazio = false;  ///< ... and in a placeholder record
  bool dadoPessoal = false;     ///< tells about a consumer

  constexpr Campo() = default;
  /// The texts are borrowed and live for ever.
  constexpr Campo(const char* nome, Especie tipo, int bytes, Origem fonte)
      : rotulo(nome), especie(tipo), largura(bytes), origem(fonte) {}

  ///@{
  /// Returns the field with one thing changed, so that a list reads as a sentence a line.
  // clang-format off
  constexpr Campo vazio(const char* texto)     const { Campo c = *this; c.textoVazio = texto; return c; }
  constexpr Campo naPosicao(std::int16_t de1)  const { Campo c = *this; c.posicao = de1; return c; }
  constexpr Campo casas(std::int8_t daColuna)  const { Campo c = *this; c.colunaDasCasas = daColuna; return c; }
  constexpr Campo semPontos()                  const { Campo c = *this; c.removePontos = true; return c; }
  constexpr Campo semHifens()                  const { Campo c = *this; c.removeHifens = true; return c; }
  constexpr Campo semNaoAscii()                const { Campo c = *this; c.trocaNaoAscii = true; return c; }
  constexpr Campo naVersao2()                  const { Campo c = *this; c.soNaVersao2 = true; return c; }
  constexpr Campo foraDoCat52()                const { Campo c = *this; c.soForaDoCat52 = true; return c; }
  constexpr Campo nuncaCortado()               const { Campo c = *this; c.desloca = true; return c; }
  constexpr Campo semAvancar()                 const { Campo c = *this; c.naoAvanca = true; return c; }
  constexpr Campo semAvancarVazio()            const { Campo c = *this; c.naoAvancaVazio = true; return c; }
  constexpr Campo pessoal()                    const { Campo c = *this; c.dadoPessoal = true; return c; }
  // clang-format on
  ///@}

  /// Whether the field is there under a layout version and a CAT52 mode.
  constexpr bool existe(int versao, bool cat52) const {
    return !(soNaVersao2 && versao != 2) && !(soForaDoCat52 && cat52);
  }
};

/// A run of fields, borrowed from a list that lives for ever.
class Campos {
 public:
  constexpr Campos() = default;
  ///@{
  /// Fields that live for ever.
  constexpr Campos(const Campo* inicio, std::size_t quantos) : inicio_(inicio), quantos_(quantos) {}
  template <std::size_t N>
  constexpr Campos(const std::array<Campo, N>& lista) : inicio_(lista.data()), quantos_(N) {}  // NOLINT
  ///@}

  ///@{
  /// As of a container; `i` must be below size().
  constexpr const Campo* begin() const { return inicio_; }
  constexpr const Campo* end() const { return inicio_ + quantos_; }
  constexpr std::size_t size() const { return quantos_; }
  constexpr const Campo& operator[](std::size_t i) const { return inicio_[i]; }
  ///@}

  ///@{
  /// The fields from `primeiro` (from 0) on, `quantos` of them or all that follow.
  constexpr Campos trecho(std::size_t primeiro) const { return {inicio_ + primeiro, quantos_ - primeiro}; }
  constexpr Campos trecho(std::size_t primeiro, std::size_t quantos) const {
    return {inicio_ + primeiro, quantos};
  }
  ///@}

 private:
  const Campo* inicio_ = nullptr;
  std::size_t quantos_ = 0;
};

///@{
/// Width of a counter in digits, and the modulus that goes with it, under a layout version.
constexpr int larguraDoContador(int versao) { return versao == 1 ? 6 : 9; }
constexpr int moduloDoContador(int versao) { return versao == 1 ? 1000000 : 1000000000; }
///@}

/// Nominal width of a field under a layout version, in bytes.
constexpr int larguraNominal(const Campo& campo, int versao) {
  return campo.largura == Campo::kLarguraDoContador ? larguraDoContador(versao) : campo.largura;
}

/// Length in bytes of a record of these fields in the setting given.
constexpr int comprimento(Campos campos, int versao, bool cat52) {
  int cursor = 0;
  for (const Campo& campo : campos) {
    if (!campo.existe(versao, cat52)) continue;
    if (campo.posicao != 0) cursor = campo.posicao - 1;
    cursor += larguraNominal(campo, versao);
  }
  return cursor;
}

}  // namespace cotepe
