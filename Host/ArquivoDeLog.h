/// @file
/// A log with one line per message, on stderr or appended to a file.
#pragma once

#include <cstdio>
#include <memory>

/// Where the messages of failed queries go: stderr until a file is opened. Owns the file.
class ArquivoDeLog {
 public:
  /// Sends the log to the end of a file, created if necessary. When the file cannot be opened, returns false
  /// with errno set, and the log stays where it was.
  bool abre(const char* caminho);

  /// Takes over an open stream and sends the log there.
  void toma(FILE* aberto) { arquivo_.reset(aberto); }

  /// Writes the local time as YYYY-MM-DD HH:MM:SS, a blank and the message, as one line that is flushed at
  /// once. Control characters and backslashes are escaped as in C. False when it could not be written.
  bool escreve(const char* mensagem);

 private:
  struct Fecha {
    void operator()(FILE* arquivo) const { static_cast<void>(std::fclose(arquivo)); }
  };
  std::unique_ptr<FILE, Fecha> arquivo_;  // null: stderr
};

/// The log behind Quorvel_GravaLog.
ArquivoDeLog& logDoAplicativo();
