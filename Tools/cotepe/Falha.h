// What ends a command before its work is done: an exit status and one line for the user.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace cotepe::programa {

/// The exit statuses of the program; an interrupted run ends with 128 and the signal's number instead.
enum Situacao : int { kFeito, kIncompleto, kUsoErrado, kNaoAbre, kNaoEscreve, kSemIdentidade };

class Falha : public std::exception {
 public:
  Falha(int situacao, std::string texto) : situacao_(situacao), texto_(std::move(texto)) {}

  /// The text as all messages have it: what could not be done, where, what was found there, what was expected
  /// and what the user can do.
  Falha(int situacao, const std::string& oQue, const std::string& onde, const std::string& encontrado,
        const std::string& esperado, const std::string& oQueFazer)
      : Falha(situacao,
              oQue + ": " + onde + ": found " + encontrado + ", expected " + esperado + "; " + oQueFazer) {}

  int situacao() const { return situacao_; }
  const char* what() const noexcept override { return texto_.c_str(); }

 private:
  int situacao_;
  std::string texto_;
};

/// The system's words for a value of errno, in English whatever the locale.
std::string motivoDoSistema(int codigo);

/// One line on stderr, "cotepe: " and the text. Nothing can be done when that fails.
void avisa(const std::string& texto) noexcept;

}  // namespace cotepe::programa
