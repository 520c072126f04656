// A pseudo-terminal, for what writes otherwise on a terminal.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

/// A terminal to write to, and what was written there.
class PseudoTerminal {
 public:
  PseudoTerminal() {
    char nome[64] = "";
    if (openpty(&mestre_, &escravo_, nome, nullptr, nullptr) != 0) erro_ = errno;
    nome_ = nome;
  }
  ~PseudoTerminal() {
    if (erro_ != 0) return;
    close(mestre_);
    close(escravo_);
  }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  /// Why there is none, as in a container without /dev/pts; empty where there is one.
  std::string falta() const {
    return erro_ == 0 ? "" : std::string("no pseudo-terminal here: ") + std::strerror(erro_);
  }
  /// The file of the terminal, and its descriptor.
  const std::string& nome() const { return nome_; }
  int descritor() const { return escravo_; }
  /// What was written and not read yet, its lines ended by '\n' alone.
  std::string lido() {
    std::string texto;
    char bloco[4096];
    for (pollfd pronto{mestre_, POLLIN, 0}; poll(&pronto, 1, 0) > 0 && (pronto.revents & POLLIN) != 0;) {
      const ssize_t lidos = read(mestre_, bloco, sizeof bloco);
      if (lidos <= 0) break;
      texto.append(bloco, static_cast<std::size_t>(lidos));
    }
    for (std::size_t i = texto.find("\r\n"); i != std::string::npos; i = texto.find("\r\n", i))
      texto.erase(i, 1);
    return texto;
  }

 private:
  int mestre_ = -1, escravo_ = -1, erro_ = 0;
  std::string nome_;
};

/// Skips the test, and says why, where there is no pseudo-terminal. In the body of a test.
#define EXIGE_TERMINAL() \
  if (const std::string falta = PseudoTerminal().falta(); !falta.empty()) GTEST_SKIP() << falta
