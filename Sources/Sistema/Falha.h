// What ends a command before its work is done: an exit status and one line for the user.
#pragma once

#include <exception>
#include <string>
#include <utility>

#include "Idioma/Idioma.h"

namespace cotepe::programa {

/// The exit statuses of the program; an interrupted run ends with 128 and the signal's number instead.
enum Situacao : int { kFeito, kIncompleto, kUsoErrado, kNaoAbre, kNaoEscreve, kSemIdentidade, kNaoSeSabe };

class Falha : public std::exception {
 public:
  /// The text, in the user's language, built like all messages: what could not be done, where, what was found
  /// there, what was expected and what the user can do.
  Falha(int situacao, std::string texto) : situacao_(situacao), texto_(std::move(texto)) {}

  int situacao() const { return situacao_; }
  const char* what() const noexcept override { return texto_.c_str(); }

 private:
  int situacao_;
  std::string texto_;
};

/// What a command concluded about its input: the run itself did not fail.
class Veredito : public Falha {
 public:
  explicit Veredito(std::string texto, int situacao = kIncompleto) : Falha(situacao, std::move(texto)) {}
};

/// The reader of stdout went away: there is nothing left to say. The status is the one that SIGPIPE gives.
class SemLeitor : public Falha {
 public:
  SemLeitor();
};

/// One line on stderr, "cotepe: " and the text. A failure to write it is ignored.
void avisa(const std::string& texto) noexcept;

/// The same for an error: "cotepe: error: " and the text.
void avisaErro(const std::string& texto) noexcept;

}  // namespace cotepe::programa
