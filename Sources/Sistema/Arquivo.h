// Files of the operating system. Paths are UTF-8; a failure is reported by the result, with errno set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace cotepe {

///@{
/// The descriptors that a program starts with.
constexpr int kEntradaPadrao = 0, kSaidaPadrao = 1, kErrosPadrao = 2;
///@}

/// A file descriptor with an owner.
class Descritor {
 public:
  Descritor() = default;
  /// Takes ownership of that number; below 0 it is closed.
  explicit Descritor(int numero) : numero_(numero) {}
  ~Descritor();
  Descritor(Descritor&& outro) noexcept : numero_(std::exchange(outro.numero_, -1)) {}
  Descritor& operator=(Descritor&& outro) noexcept;

  /// The number, still owned.
  int numero() const { return numero_; }
  /// Whether it is open.
  bool aberto() const { return numero_ >= 0; }

 private:
  int numero_ = -1;
};

/// What a name refers to; `Nenhuma`: nothing, or it cannot be determined, and errno says why.
enum class TipoDeArquivo { Nenhuma, Regular, Pasta, Outra };

///@{
/// Of what the path leads to, of the name itself (a link is `Outra`), and of what is open.
TipoDeArquivo tipoDoArquivo(const std::string& caminho);
TipoDeArquivo tipoDoNome(const std::string& caminho);
TipoDeArquivo tipoDoAberto(int descritor);
///@}

/// Whether the file can be opened to be read.
bool podeLer(const std::string& caminho);

/// Opens a file to be read, closed on failure.
Descritor abreParaLer(const std::string& caminho);

/// Opens the file as a stream of bytes, with fopen's modes; null on failure.
std::FILE* abreFluxo(const std::string& caminho, const char* modo);

/// Empties the file of an open stream, which is then only to be closed; something without a length, such as a
/// pipe, keeps what it got.
void esvazia(std::FILE* fluxo) noexcept;

/// Creates a new file for writing and reading, closed on failure; readable only by its owner if `soDoDono`.
Descritor criaNovo(const std::string& caminho, bool soDoDono);

/// Opens a folder in order to flush its names to disk; where the system flushes them by itself the descriptor
/// is open but not needed.
Descritor abrePasta(const std::string& caminho);

/// Locks the open file against other lockers; the lock ends with the last descriptor.
bool tranca(int descritor);

/// Removes a file unless a living writer has it locked.
void removeSeMorto(const std::string& caminho);

/// Whether the open file still has a name.
bool aindaTemNome(int descritor);

/// Flushes what was written, or the names of a folder, to disk.
bool levaAoDisco(int descritor);

/// Gives a file another name in its folder, atomically. Without `substitui` a name that is taken, even since
/// just now, is left alone, and errno is EEXIST.
bool renomeia(const std::string& de, const std::string& para, bool substitui);

/// Removes a file.
bool removeArquivo(const std::string& caminho);

/// The names in a folder; none when it cannot be read.
std::vector<std::string> nomesNaPasta(const std::string& caminho);

/// The size of an open file in bytes, 0 when it is unknown.
std::int64_t tamanhoDe(int descritor);

/// Reads up to that many bytes: returns how many were read, 0 at the end, below 0 on failure (EINTR when a
/// signal came).
long leDe(int descritor, void* bytes, std::size_t quantos);

/// Writes up to that many bytes: returns how many, below 0 on failure (EINTR as above, EAGAIN when there is
/// no room yet).
long escreveEm(int descritor, const void* bytes, std::size_t quantos);

/// Waits until a descriptor that gave EAGAIN takes bytes again, or a signal comes.
void esperaLugar(int descritor);

/// Asks for the errors that some file systems report only when a file is closed; the descriptor stays open.
bool confirmaFechamento(int descritor);

///@{
/// Reads or writes all the bytes at a position, even if signals come. False on failure, and at the end of the
/// file.
bool leEm(int descritor, std::uint64_t posicao, void* bytes, std::size_t quantos);
bool escreveEm(int descritor, std::uint64_t posicao, const void* bytes, std::size_t quantos);
///@}

/// Identifies a file on its disk: equal for two paths to one file, different for two files.
struct LugarNoDisco {
  std::uint64_t disco = 0, numero = 0;  ///< of the file system, and of the file in it
};

///@{
/// Of what the path leads to, and of what is open. False when it cannot be determined.
bool lugarDoArquivo(const std::string& caminho, LugarNoDisco& lugar);
bool lugarDoAberto(int descritor, LugarNoDisco& lugar);
///@}

/// Whether the system treats two resolved paths as one, as when it ignores case.
bool mesmoCaminho(const std::string& a, const std::string& b);

/// The folder for temporary files: TMPDIR, or the system's.
std::string pastaTemporaria();

/// The same path in a form that no library mistakes for anything but a file's: it never begins with "file:".
std::string comPasta(const std::string& caminho);

///@{
/// A database's path in the form to pass to SQLite, and the name of the VFS that accepts paths of any length.
std::string caminhoDoBanco(const std::string& caminho);
const char* vfsDoBanco();
///@}

/// A path up to and including its last separator; "./" when it has none.
std::string pastaDe(const std::string& caminho);

}  // namespace cotepe
