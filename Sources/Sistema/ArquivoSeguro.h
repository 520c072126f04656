// A file that appears under its name only when it is whole and on the disk.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

#include "Sistema/Descritor.h"

namespace cotepe::programa {

/// An empty file under a temporary name beside its destination, for others to fill. The name is
/// .NAME.cotepe-XXXXXX.tmp, and a lock is held on the file for as long as its writer lives; what a killed
/// writer left behind under such a name is removed by the next one. Destroyed unpublished, it removes itself.
class ArquivoSeguro {
 public:
  /// `destino` is the path that the file is for. The temporary name is made of `apelido`, or of the last name
  /// of `destino` when that is empty. `modo`: its permissions, before the umask. Throws Falha (kNaoAbre).
  explicit ArquivoSeguro(const std::string& destino, const std::string& apelido = "", mode_t modo = 0666);
  ~ArquivoSeguro();
  ArquivoSeguro(const ArquivoSeguro&) = delete;
  ArquivoSeguro& operator=(const ArquivoSeguro&) = delete;

  const std::string& temporario() const { return temporario_; }

  /// Bytes written so far.
  std::int64_t tamanho() const;

  /// Brings the contents to the disk, gives the file the name `destino`, in the same folder, and brings the
  /// name to the disk. An existing file, even one that appeared just now, is replaced only where `substitui`
  /// says so. Once only. Throws Falha (kNaoEscreve; kNaoAbre where the name is taken).
  void publica(const std::string& destino, bool substitui);

  /// Removes the temporary file. False when it cannot be removed.
  bool descarta() noexcept;

  /// Removes its name alone and hands over the file, which is gone with the descriptor; one that is closed,
  /// and errno set, when the name cannot be removed.
  Descritor soltaSemNome();

 private:
  void cria(const std::string& base, mode_t modo);

  std::string pasta_;  // ends with '/'
  std::string temporario_;
  Descritor descritorDaPasta_;
  Descritor arquivo_;
};

/// Throws Falha (kNaoAbre) where a report cannot be given that path: it is the name of a folder or of a
/// device, or of a file and `substitui` is false.
void exigeDestino(const std::string& destino, bool substitui);

}  // namespace cotepe::programa
