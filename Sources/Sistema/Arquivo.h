// Files as the system has them. Paths are UTF-8; what fails says so by its result, with errno set.
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
  /// Owns that number; below 0 it is closed.
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

/// What a name stands for; `Nenhuma`: nothing, or it cannot be told, and errno says why.
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

/// Leaves the file of an open stream without contents, and the stream to be closed; what has none, as a pipe,
/// keeps what it got.
void esvazia(std::FILE* fluxo) noexcept;

/// Makes a file to write and read that was not there, closed on failure; for its owner's eyes alone where
/// `soDoDono` says so.
Descritor criaNovo(const std::string& caminho, bool soDoDono);

/// Opens a folder to bring its names to the disk; of no use for that, but open, where the system brings them
/// by itself.
Descritor abrePasta(const std::string& caminho);

/// Locks the open file against others that lock it; the lock ends with the last descriptor.
bool tranca(int descritor);

/// Removes a file that no living writer has locked.
void removeSeMorto(const std::string& caminho);

/// Whether the open file still has a name.
bool aindaTemNome(int descritor);

/// Brings what was written, or the names of a folder, to the disk.
bool levaAoDisco(int descritor);

/// Gives a file another name in its folder, at once or not at all. Without `substitui` a name that is taken,
/// even since just now, is left alone, and errno is EEXIST.
bool renomeia(const std::string& de, const std::string& para, bool substitui);

/// Removes a file.
bool removeArquivo(const std::string& caminho);

/// The names in a folder; none where it cannot be read.
std::vector<std::string> nomesNaPasta(const std::string& caminho);

/// The size of an open file in bytes, 0 where it cannot be told.
std::int64_t tamanhoDe(int descritor);

/// Reads at most so many bytes: how many came, 0 at the end, below 0 on failure (EINTR where a signal came).
long leDe(int descritor, void* bytes, std::size_t quantos);

/// Writes at most so many bytes: how many, below 0 on failure (EINTR as above, EAGAIN where there is no room
/// yet).
long escreveEm(int descritor, const void* bytes, std::size_t quantos);

/// Waits until a descriptor that gave EAGAIN takes bytes again, or a signal comes.
void esperaLugar(int descritor);

/// Asks for what some file systems tell only when a file is closed; the descriptor stays open.
bool confirmaFechamento(int descritor);

///@{
/// Reads or writes all the bytes at a position, whatever signals come. False on failure, and at the end.
bool leEm(int descritor, std::uint64_t posicao, void* bytes, std::size_t quantos);
bool escreveEm(int descritor, std::uint64_t posicao, const void* bytes, std::size_t quantos);
///@}

/// Where on its disk a file stands: the same for two paths to one file, and for no two files.
struct LugarNoDisco {
  std::uint64_t disco = 0, numero = 0;  ///< of the file system, and of the file in it
};

///@{
/// Of what the path leads to, and of what is open. False where it cannot be told.
bool lugarDoArquivo(const std::string& caminho, LugarNoDisco& lugar);
bool lugarDoAberto(int descritor, LugarNoDisco& lugar);
///@}

/// Whether the system takes two resolved paths for one, as where it does not tell cases apart.
bool mesmoCaminho(const std::string& a, const std::string& b);

/// The folder for temporary files: TMPDIR, or the system's.
std::string pastaTemporaria();

/// The same path in a form that no library takes for something else than a file's: never begins with "file:".
std::string comPasta(const std::string& caminho);

///@{
/// A database's path as SQLite is to be given it, and the name of the VFS that takes any length of it.
std::string caminhoDoBanco(const std::string& caminho);
const char* vfsDoBanco();
///@}

/// A path up to and with its last separator; "./" where it has none.
std::string pastaDe(const std::string& caminho);

}  // namespace cotepe
