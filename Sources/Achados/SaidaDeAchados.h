// Findings written for people (text, with the line and a caret on a terminal) and for programs (JSON, SARIF).
#pragma once

#include <iosfwd>
#include <map>
#include <string>

#include "Achados/Achado.h"

namespace cotepe {

/// How findings are written.
enum class FormatoDeAchados : std::uint8_t {
  Texto,  ///< one line per finding
  Json,   ///< one object per line, and a last one with the counts
  Sarif,  ///< one SARIF 2.1.0 document
};

/// The format of a name as --format takes it ("text", "json", "sarif"); false for any other name.
bool formatoDeAchados(const std::string& nome, FormatoDeAchados& formato);

/// What a finding looks like in text, without its line end:
///   file:line:from-to: severity rule register.field "label": found ..., expected ... (what to do)
/// and of a database
///   file: table[key].column: severity rule register.field "label": found ..., expected ... (what to do)
/// Parts that a finding does not have are left out together with their punctuation.
std::string textoDoAchado(const Achado& achado);

/// Writes findings to a stream, which must live longer, and counts them.
class SaidaDeAchados : public RecebeAchados {
 public:
  /// How, and how many.
  struct Opcoes {
    FormatoDeAchados formato = FormatoDeAchados::Texto;  ///< text, JSON lines or SARIF
    long maximo = -1;  ///< how many of each rule are written; below 0 all of them. The counts include all.
    bool comLinha = false;  ///< of text: under each finding its line, and a caret under the bytes concerned
    bool cores = false;     ///< of text
    std::size_t colunas = 100;  ///< of text: how wide the line under a finding may be
  };

  /// Options of a text for the file descriptor given: the line and the caret on a terminal, colours there too
  /// unless NO_COLOR is set and not empty, or TERM is dumb.
  static Opcoes opcoesPara(int descritor);

  /// Borrows the stream, and copies the options.
  SaidaDeAchados(std::ostream& saida, const Opcoes& opcoes);

  /// Writes one, unless there were `maximo` of its rule, and counts it.
  void recebe(const Achado& achado) override;

  /// Ends the document; nothing may follow. If there was a finding, text ends with how many of each rule were
  /// not written, a table of the rules when there are several, and a line of counts.
  void termina();

  ///@{
  /// How many came, written or not.
  long erros() const { return erros_; }
  long avisos() const { return avisos_; }
  long total() const { return erros_ + avisos_; }
  ///@}

 private:
  struct Contagem {
    long todos = 0, escritos = 0;
  };

  void escreveTexto(const Achado& achado);
  void escreveJson(const Achado& achado);
  void escreveSarif(const Achado& achado);
  void terminaTexto();
  void escreveTabela();
  void terminaJson();
  void terminaSarif();

  std::ostream& saida_;
  Opcoes opcoes_;
  long erros_ = 0, avisos_ = 0, escritos_ = 0;
  std::map<std::string, Contagem> regras_;  // those that occurred
};

}  // namespace cotepe
