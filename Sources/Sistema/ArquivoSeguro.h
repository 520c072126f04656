// A file that appears under its name only when it is complete and on disk.
#pragma once

#include <cstdint>
#include <string>

#include "Sistema/Arquivo.h"

namespace cotepe {

/// An empty file under a temporary name beside its destination, for others to fill. The name is
/// .NAME.cotepe-XXXXXX.tmp, and a lock is held on the file for as long as its writer lives; what a killed
/// writer left behind under such a name is removed by the next one. Destroyed unpublished, it removes itself.
/// Failures are thrown as FalhaDeArquivo.
class ArquivoSeguro {
 public:
  /// `destino` is the path that the file is for. The temporary name is made of `apelido`, or of the last name
  /// of `destino` when that is empty. `soDoDono`: nobody else may read it. Throws (NaoCria).
  explicit ArquivoSeguro(const std::string& destino, const std::string& apelido = "", bool soDoDono = false);
  ~ArquivoSeguro();
  ArquivoSeguro(const ArquivoSeguro&) = delete;
  ArquivoSeguro& operator=(const ArquivoSeguro&) = delete;

  /// Where to write until it is published; empty from then on. Never begins with "file:", which SQLite would
  /// take for a URI.
  const std::string& temporario() const { return temporario_; }

  /// The open file, for code that writes to it without opening it again.
  int numero() const { return arquivo_.numero(); }

  /// Bytes written so far.
  std::int64_t tamanho() const { return tamanhoDe(arquivo_.numero()); }

  /// Flushes the contents to disk, gives the file the name `destino`, in the same folder, and flushes the
  /// name to disk. An existing file, even one that appeared just now, is replaced only if `substitui`. To be
  /// called once, when nobody else has the file open. Throws (NaoEscreve, Existe, NomeNaoEscrito).
  void publica(const std::string& destino, bool substitui);

  /// Removes the temporary file. False when it cannot be removed.
  bool descarta() noexcept;

  /// Removes only its name and hands over the file, which disappears with the descriptor; returns a closed
  /// one, with errno set, when the name cannot be removed.
  Descritor soltaSemNome();

 private:
  void cria(const std::string& destino, const std::string& base, bool soDoDono);

  std::string pasta_;  // ends with a separator
  std::string temporario_;
  Descritor descritorDaPasta_;
  Descritor arquivo_;
};

/// Throws FalhaDeArquivo when a file cannot be given that path: it is the name of a folder or of a device
/// (NomeDePasta, Pasta, NaoRegular), or of a file and `substitui` is false (Existe).
void exigeDestino(const std::string& destino, bool substitui);

}  // namespace cotepe
