// A field of a record as data: what it is called, how wide it is, how it is written and where it comes from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace cotepe {

class Execucao;
class Fonte;
struct Ajustes;

/// How a field is written in a data record. The placeholder record has zeros in the numeric kinds and blanks
/// in the others, unless the field says otherwise.
enum class Especie : std::uint8_t {
  Texto,          ///< left-aligned, blank-filled
  ComoEsta,       ///< only the text, neither filled nor cut
  Preenchido,     ///< placed by the host's padding routine
  Numero,         ///< signed integer, zero-filled, after the remainder by the field's modulus
  Contador,       ///< as Numero, with the width and the modulus that the layout version sets
  Identificador,  ///< integer printed without sign, zero-filled (CNPJ, CPF)
  Dinheiro,       ///< money text, in cents without sign, zero-filled
  DinheiroDuplo,  ///< the same, rounded to cents through a double first
  Decimal,        ///< decimal number scaled by its decimal places, rounded, zero-filled
  Data,           ///< AAAAMMDD from a date-time text
  Hora,           ///< HHMMSS from a date-time text
  DataPronta,     ///< a date that is AAAAMMDD already
  HoraPronta,     ///< an hour that is HHMMSS already
};

/// Where the text of a field comes from.
struct Origem {
  /// Which of the members below holds.
  enum class Tipo : std::uint8_t { Nenhuma, Constante, Ajuste, Coluna, Funcao, DoLeiaute, Relogio };

  static constexpr std::int8_t kDeCadaConsulta = -1;  ///< each query of the register makes records

  Tipo tipo = Tipo::Nenhuma;   ///< Nenhuma: the text is empty
  std::int8_t coluna = -1;     ///< from 0; of Ajuste: of the identity query; of Relogio: where the
                               ///< text begins in the clock's
  std::int8_t consulta = 0;    ///< which query of the register, from 0, or kDeCadaConsulta
  const char* constante = "";  ///< of Constante: the text; of DoLeiaute: that of layout 1
  const char* nosOutros = "";  ///< of DoLeiaute: the text in the other layouts
  const char* const Ajustes::*ajuste = nullptr;                    ///< of Ajuste: which text of the run
  const char* (*funcao)(const Fonte&, const Execucao&) = nullptr;  ///< of Funcao

  /// True where the text is the same in every record of a run, placeholders included.
  constexpr bool fixa() const { return tipo == Tipo::Constante || tipo == Tipo::Ajuste; }

  /// True when it is a column of one of the register's queries or is worked out from one.
  constexpr bool deColuna() const { return coluna >= 0 && (tipo == Tipo::Coluna || tipo == Tipo::Funcao); }
};

/// A column of a query's row, both counted from 0.
constexpr Origem coluna(int numero, int consulta = 0) {
  Origem o;
  o.tipo = Origem::Tipo::Coluna;
  o.coluna = static_cast<std::int8_t>(numero);
  o.consulta = static_cast<std::int8_t>(consulta);
  return o;
}

/// A text worked out from a row. `lida` is the column that it mainly depends on, for code that traces a field
/// back to the database.
constexpr Origem funcao(const char* (*calcula)(const Fonte&, const Execucao&), Origem lida = {}) {
  Origem o = lida;
  o.tipo = Origem::Tipo::Funcao;
  o.funcao = calcula;
  return o;
}

/// A text with static storage duration.
constexpr Origem constante(const char* texto) {
  Origem o;
  o.tipo = Origem::Tipo::Constante;
  o.constante = texto;
  return o;
}

/// A text of the run's settings; `colunaDaIdentidade` is its column in the identity query, if it has one.
constexpr Origem ajuste(const char* const Ajustes::*membro, int colunaDaIdentidade = -1) {
  Origem o;
  o.tipo = Origem::Tipo::Ajuste;
  o.coluna = static_cast<std::int8_t>(colunaDaIdentidade);
  o.ajuste = membro;
  return o;
}

/// A text that identifies the layout: one for layout 1, another for the rest.
constexpr Origem doLeiaute(const char* noPrimeiro, const char* nosOutros) {
  Origem o = constante(noPrimeiro);
  o.tipo = Origem::Tipo::DoLeiaute;
  o.nosOutros = nosOutros;
  return o;
}

/// The application's clock, from a place of its text on (AAAAMMDD, a separator, HHMMSS). The source of the
/// record has it as the column of that number.
constexpr Origem relogio(int desde) {
  Origem o = coluna(desde);
  o.tipo = Origem::Tipo::Relogio;
  return o;
}

/// One of the texts that a field may hold.
struct Codigo {
  const char* valor;          ///< without the blanks that fill the field up
  const char* palavras = "";  ///< what it means, to be translated; may be empty
  std::int8_t coluna = -1;    ///< the column that selects it, from 0, when the field itself reads none
};

/// One field of a register's list. Made by the functions below; the members are for code that reads the list.
struct Campo {
  static constexpr int kLarguraDoContador = -1;  ///< 6 in layout 1, 9 elsewhere

  const char* rotulo = "";           ///< the law's words, UTF-8
  Especie especie = Especie::Texto;  ///< how it is written
  int largura = 0;                   ///< nominal width in bytes, or kLarguraDoContador
  Origem origem;                     ///< where its text comes from
  std::int64_t modulo = 0;           ///< of Numero; 0 takes no remainder
  std::int8_t colunaDasCasas = -1;   ///< of Decimal: the column that holds the number of decimal places
  std::int16_t posicao = 0;          ///< from 1, for a field that is not placed at the cursor; 0 otherwise
  const char* textoVazio = nullptr;  ///< what the placeholder holds, when it differs from the kind's default

  bool removePontos = false;    ///< '.' left out of the text
  bool removeHifens = false;    ///< '-' left out of the text
  bool trocaNaoAscii = false;   ///< control characters and bytes outside ASCII blanked
  bool soNaVersao2 = false;     ///< present in layout 2 only
  bool soForaDoCat52 = false;   ///< absent in CAT52 mode
  bool desloca = false;         ///< never clipped: a longer number moves the later fields right
  bool naoAvanca = false;       ///< the cursor stays before the field in a data record ...
  bool naoAvancaVazio = false;  ///< ... and in a placeholder record

  // Not needed by the generator, but by the code that reads reports and databases.
  bool dadoPessoal = false;    ///< tells about a consumer
  bool obrigatoria = false;    ///< a date or an hour that is never blank
  bool podeSerCpf = false;     ///< of Identificador: a consumer's CPF or CNPJ; otherwise a user's CNPJ
  bool deTotalizador = false;  ///< codes of totalizers such as 01T1800
  bool cortado = false;        ///< its text is first stored in a buffer as short as the field
  bool ouDaAplicacao = false;  ///< when its column is empty, the application's text is used
  std::int8_t maximos = -1;    ///< the first of the queries whose maximum takes precedence over its column
  std::int8_t quantosCodigos = 0;    ///< of `codigos`
  const Codigo* codigos = nullptr;   ///< the values of a one-byte field, and what others may mean
  const char* observacao = nullptr;  ///< what is odd about it, to be translated
  const char* fonteDita =
      nullptr;  ///< where it comes from, to be translated, when `origem` does not say everything

  constexpr Campo() = default;
  /// The texts are borrowed and must have static storage duration.
  constexpr Campo(const char* nome, Especie tipo, int bytes, Origem fonte)
      : rotulo(nome), especie(tipo), largura(bytes), origem(fonte) {}

  ///@{
  /// Each returns the field with one thing changed, so that every line of a list reads as a sentence.
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
  constexpr Campo sempreHa()                   const { Campo c = *this; c.obrigatoria = true; return c; }
  constexpr Campo totalizador()                const { Campo c = *this; c.deTotalizador = true; return c; }
  constexpr Campo cortadoAntes()               const { Campo c = *this; c.cortado = true; return c; }
  constexpr Campo ouDoAplicativo()             const { Campo c = *this; c.ouDaAplicacao = true; return c; }
  constexpr Campo ouMaximo(std::int8_t das)    const { Campo c = *this; c.maximos = das; return c; }
  constexpr Campo nota(const char* texto)      const { Campo c = *this; c.observacao = texto; return c; }
  constexpr Campo fonte(const char* texto)     const { Campo c = *this; c.fonteDita = texto; return c; }
  template <std::size_t N>
  constexpr Campo podeSer(const Codigo (&lista)[N]) const { Campo c = *this; c.codigos = lista; c.quantosCodigos = N; return c; }
  // clang-format on
  ///@}

  /// Whether the field is present under a layout version and a CAT52 mode.
  constexpr bool existe(int versao, bool cat52) const {
    return !(soNaVersao2 && versao != 2) && !(soForaDoCat52 && cat52);
  }
};

/// A run of fields, borrowed from a list with static storage duration.
class Campos {
 public:
  constexpr Campos() = default;
  ///@{
  /// Fields with static storage duration.
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

/// The place of the field with the label, from 0. The label is a literal in the code: one that is not in the
/// list does not compile, and at run time throws std::logic_error.
constexpr std::size_t indiceDe(Campos campos, std::string_view rotulo) {
  for (std::size_t i = 0; i < campos.size(); ++i)
    if (campos[i].rotulo == rotulo) return i;
  throw std::logic_error("no field " + std::string(rotulo));
}

/// The fields from one label to another, both included.
constexpr Campos entre(Campos campos, std::string_view primeiro, std::string_view ultimo) {
  const std::size_t inicio = indiceDe(campos, primeiro);
  return campos.trecho(inicio, indiceDe(campos, ultimo) + 1 - inicio);
}

///@{
/// Width of a counter in digits, and the modulus that goes with it, under a layout version.
constexpr int larguraDoContador(int versao) { return versao == 1 ? 6 : 9; }
constexpr int moduloDoContador(int versao) { return versao == 1 ? 1000000 : 1000000000; }
///@}

/// Nominal width of a field under a layout version, in bytes.
constexpr int larguraNominal(const Campo& campo, int versao) {
  return campo.largura == Campo::kLarguraDoContador ? larguraDoContador(versao) : campo.largura;
}

/// Computes the positions of the fields of a record, one after another.
class Cursor {
 public:
  /// Of a data record, or of a placeholder (`vazio`), under a layout version.
  constexpr Cursor(int versao, bool vazio) : versao_(versao), vazio_(vazio) {}

  /// Places a field that is present and returns its position, from 0.
  constexpr int poe(const Campo& campo) {
    const int posicao = campo.posicao != 0 ? campo.posicao - 1 : proxima_;
    fim_ = posicao + larguraNominal(campo, versao_);
    proxima_ = (vazio_ ? campo.naoAvancaVazio : campo.naoAvanca) ? posicao : fim_;
    return posicao;
  }
  /// Skips bytes.
  constexpr void pula(int bytes) { proxima_ += bytes; }

  /// Where the next field begins, and where the last one ends.
  constexpr int proxima() const { return proxima_; }
  constexpr int fim() const { return fim_; }

 private:
  int versao_;
  bool vazio_;
  int proxima_ = 0, fim_ = 0;
};

/// Length in bytes of a record of these fields under the given settings.
constexpr int comprimento(Campos campos, int versao, bool cat52) {
  Cursor cursor(versao, false);
  for (const Campo& campo : campos)
    if (campo.existe(versao, cat52)) cursor.poe(campo);
  return cursor.fim();
}

}  // namespace cotepe
