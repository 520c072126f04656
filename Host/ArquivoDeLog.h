/// @file
/// A log of one line a message, on stderr or at the end of a file.
#pragma once

#include <cstdio>
#include <memory>

/// Where the messages of failed queries go: stderr until a file is opened. Owns the file.
class ArquivoDeLog {
 public:
  /// Sends the log to the end of a file, created where there is none. False, with errno set and the log where
  /// it was, when the file cannot be opened.
  bool abre(const char* caminho);

  /// Takes over an open stream and sends the log there.
  void toma(FILE* aberto) { arquivo_.reset(aberto); }

  /// Writes the local time as YYYY-MM-DD HH:MM:SS, a blank and the message, as one line that reaches the file
  /// at once. Control characters and backslashes are escaped as in C. False when it could not be written.
  bool escreve(const char* mensagem);

 private:
  struct Fecha {
    void operator()(FILE* arquivo) const { static_cast<void>(std::fclose(arquivo)); }
  };
  std::unique_ptr<FILE, Fecha> arquivo_;  // null: stderr
};

/// The log behind Quorvel_GravaLog.
ArquivoDeLog& logDoAplicativo();
