#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include "Sistema/Arquivo.h"
#include "Sistema/TextoDoWindows.h"

namespace cotepe {
namespace {

// Others may open, rename and remove what is open here, as elsewhere.
constexpr DWORD kDividido = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kByteDaTrava = 0x7fffffff;  // of the high half: beyond the end of any file

struct FechaPuxador {
  using pointer = HANDLE;
  void operator()(HANDLE puxador) const { CloseHandle(puxador); }
};
using Puxador = std::unique_ptr<HANDLE, FechaPuxador>;

HANDLE puxadorDe(int descritor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descritor)); }

Puxador abre(const std::string& caminho, DWORD acesso, DWORD como, DWORD marcas = FILE_ATTRIBUTE_NORMAL) {
  const HANDLE puxador =
      CreateFileW(caminhoLargo(caminho).c_str(), acesso, kDividido, nullptr, como, marcas, nullptr);
  if (puxador != INVALID_HANDLE_VALUE) return Puxador(puxador);
  anotaErro();
  return nullptr;
}

// A descriptor that owns the handle; below 0 on failure.
int descritorDe(Puxador puxador, int marcas) {
  if (puxador == nullptr) return -1;
  const int numero = _open_osfhandle(reinterpret_cast<intptr_t>(puxador.get()), marcas | _O_BINARY);
  if (numero >= 0) static_cast<void>(puxador.release());
  return numero;
}

TipoDeArquivo tipoDe(DWORD atributos) {
  if (atributos == INVALID_FILE_ATTRIBUTES) {
    anotaErro();
    return TipoDeArquivo::Nenhuma;
  }
  if ((atributos & FILE_ATTRIBUTE_DIRECTORY) != 0) return TipoDeArquivo::Pasta;
  return (atributos & FILE_ATTRIBUTE_DEVICE) != 0 ? TipoDeArquivo::Outra : TipoDeArquivo::Regular;
}

TipoDeArquivo tipoDoPuxador(HANDLE puxador) {
  BY_HANDLE_FILE_INFORMATION dados;
  if (GetFileType(puxador) != FILE_TYPE_DISK) return TipoDeArquivo::Outra;
  if (GetFileInformationByHandle(puxador, &dados) == 0) return tipoDe(INVALID_FILE_ATTRIBUTES);
  return tipoDe(dados.dwFileAttributes);
}

bool lugarDoPuxador(HANDLE puxador, LugarNoDisco& lugar) {
  BY_HANDLE_FILE_INFORMATION dados;
  if (GetFileType(puxador) != FILE_TYPE_DISK || GetFileInformationByHandle(puxador, &dados) == 0)
    return false;
  lugar = {dados.dwVolumeSerialNumber, (std::uint64_t{dados.nFileIndexHigh} << 32) | dados.nFileIndexLow};
  return true;
}

bool tranca(HANDLE puxador, DWORD modo) {
  OVERLAPPED onde{};
  onde.OffsetHigh = kByteDaTrava;
  return LockFileEx(puxador, LOCKFILE_EXCLUSIVE_LOCK | modo, 0, 1, 0, &onde) != 0;
}

DWORD aoMenos(std::size_t quantos) {
  return static_cast<DWORD>(std::min<std::size_t>(quantos, std::size_t{1} << 30));
}

// All of it, a part at a time: `passo` is ReadFile or WriteFile, each at its place.
template <class Passo, class Bytes>
bool tudo(int descritor, std::uint64_t posicao, Bytes* bytes, std::size_t quantos, const Passo& passo) {
  for (std::size_t feitos = 0; feitos < quantos;) {
    OVERLAPPED onde{};
    onde.Offset = static_cast<DWORD>(posicao + feitos);
    onde.OffsetHigh = static_cast<DWORD>((posicao + feitos) >> 32);
    DWORD agora = 0;
    if (passo(puxadorDe(descritor), bytes + feitos, aoMenos(quantos - feitos), &agora, &onde) == 0)
      anotaErro();
    if (agora == 0) return false;
    feitos += agora;
  }
  return true;
}

bool ehSeparador(char c) { return c == '/' || c == '\\' || c == ':'; }

}  // namespace

Descritor::~Descritor() {
  if (!aberto()) return;
  const int erro = errno;  // that of the failure because of which the file is removed
  _close(numero_);
  errno = erro;
}

TipoDeArquivo tipoDoArquivo(const std::string& caminho) {
  const Puxador puxador = abre(caminho, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  return puxador != nullptr ? tipoDoPuxador(puxador.get()) : TipoDeArquivo::Nenhuma;
}

TipoDeArquivo tipoDoNome(const std::string& caminho) {
  const Puxador puxador =
      abre(caminho, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
  if (puxador == nullptr) return TipoDeArquivo::Nenhuma;
  BY_HANDLE_FILE_INFORMATION dados;
  const bool elo = GetFileInformationByHandle(puxador.get(), &dados) != 0 &&
                   (dados.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return elo ? TipoDeArquivo::Outra : tipoDoPuxador(puxador.get());
}

TipoDeArquivo tipoDoAberto(int descritor) { return tipoDoPuxador(puxadorDe(descritor)); }

bool podeLer(const std::string& caminho) { return abre(caminho, GENERIC_READ, OPEN_EXISTING) != nullptr; }

Descritor abreParaLer(const std::string& caminho) {
  // A folder can be opened too: reading it says what it is.
  return Descritor(
      descritorDe(abre(caminho, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS), _O_RDONLY));
}

std::FILE* abreFluxo(const std::string& caminho, const char* modo) {
  const char tipo = modo[0];
  const DWORD como = tipo == 'r' ? OPEN_EXISTING : tipo == 'w' ? CREATE_ALWAYS : OPEN_ALWAYS;
  const DWORD acesso = tipo == 'r'   ? GENERIC_READ
                       : tipo == 'w' ? GENERIC_WRITE
                                     : FILE_APPEND_DATA | SYNCHRONIZE;
  const int marcas = tipo == 'r' ? _O_RDONLY : tipo == 'w' ? _O_WRONLY : _O_WRONLY | _O_APPEND;
  const int numero = descritorDe(abre(caminho, acesso, como), marcas);
  if (numero < 0) return nullptr;
  std::FILE* fluxo = _fdopen(numero, tipo == 'r' ? "rb" : tipo == 'w' ? "wb" : "ab");
  if (fluxo == nullptr) _close(numero);
  return fluxo;
}

void esvazia(std::FILE* fluxo) noexcept {
  static_cast<void>(std::fflush(fluxo));
  static_cast<void>(std::fseek(fluxo, 0, SEEK_SET));
  static_cast<void>(_chsize_s(_fileno(fluxo), 0));  // a pipe has no length
}

// The folders that Windows has for temporary files are private to their owner already.
Descritor criaNovo(const std::string& caminho, bool /*soDoDono*/) {
  return Descritor(descritorDe(abre(caminho, GENERIC_READ | GENERIC_WRITE, CREATE_NEW), _O_RDWR));
}

// A folder cannot be flushed here, and need not be: a name is written through to disk.
Descritor abrePasta(const std::string& caminho) {
  Puxador pasta = abre(caminho, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  if (pasta == nullptr || tipoDoPuxador(pasta.get()) == TipoDeArquivo::Pasta)
    return Descritor(descritorDe(std::move(pasta), _O_RDONLY));
  errno = ENOTDIR;
  return {};
}

bool tranca(int descritor) { return tranca(puxadorDe(descritor), 0); }

void removeSeMorto(const std::string& caminho) {
  const Puxador arquivo = abre(caminho, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
  if (arquivo != nullptr && tranca(arquivo.get(), LOCKFILE_FAIL_IMMEDIATELY)) removeArquivo(caminho);
}

bool aindaTemNome(int descritor) {
  FILE_STANDARD_INFO dados;
  return GetFileInformationByHandleEx(puxadorDe(descritor), FileStandardInfo, &dados, sizeof dados) != 0 &&
         dados.DeletePending == 0 && dados.NumberOfLinks != 0;
}

bool levaAoDisco(int descritor) {
  const HANDLE puxador = puxadorDe(descritor);
  if (tipoDoPuxador(puxador) == TipoDeArquivo::Pasta) return true;
  if (FlushFileBuffers(puxador) != 0) return true;
  anotaErro();
  return false;
}

bool renomeia(const std::string& de, const std::string& para, bool substitui) {
  const DWORD modo = MOVEFILE_WRITE_THROUGH | (substitui ? MOVEFILE_REPLACE_EXISTING : 0U);
  if (MoveFileExW(caminhoLargo(de).c_str(), caminhoLargo(para).c_str(), modo) != 0) return true;
  anotaErro();
  return false;
}

bool removeArquivo(const std::string& caminho) {
  if (DeleteFileW(caminhoLargo(caminho).c_str()) != 0) return true;
  anotaErro();
  return false;
}

std::vector<std::string> nomesNaPasta(const std::string& caminho) {
  std::vector<std::string> nomes;
  WIN32_FIND_DATAW item;
  const HANDLE lista = FindFirstFileW(caminhoLargo(caminho + "*").c_str(), &item);
  if (lista == INVALID_HANDLE_VALUE) return nomes;
  do nomes.push_back(estreito(item.cFileName));
  while (FindNextFileW(lista, &item) != 0);
  FindClose(lista);
  return nomes;
}

std::int64_t tamanhoDe(int descritor) {
  const __int64 tamanho = _filelengthi64(descritor);
  return tamanho < 0 ? 0 : tamanho;
}

long leDe(int descritor, void* bytes, std::size_t quantos) {
  return _read(descritor, bytes, aoMenos(quantos));
}

// A pipe that nobody reads any more is reported as an invalid argument.
long escreveEm(int descritor, const void* bytes, std::size_t quantos) {
  const int escritos = _write(descritor, bytes, aoMenos(quantos));
  if (escritos < 0 && errno == EINVAL) errno = EPIPE;
  return escritos;
}

void esperaLugar(int /*descritor*/) {}  // writing blocks by itself

bool confirmaFechamento(int /*descritor*/) { return true; }  // writing has already reported every error

bool leEm(int descritor, std::uint64_t posicao, void* bytes, std::size_t quantos) {
  return tudo(descritor, posicao, static_cast<char*>(bytes), quantos, ReadFile);
}

bool escreveEm(int descritor, std::uint64_t posicao, const void* bytes, std::size_t quantos) {
  return tudo(descritor, posicao, static_cast<const char*>(bytes), quantos, WriteFile);
}

bool lugarDoArquivo(const std::string& caminho, LugarNoDisco& lugar) {
  const Puxador puxador = abre(caminho, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  return puxador != nullptr && lugarDoPuxador(puxador.get(), lugar);
}

bool lugarDoAberto(int descritor, LugarNoDisco& lugar) { return lugarDoPuxador(puxadorDe(descritor), lugar); }

bool mesmoCaminho(const std::string& a, const std::string& b) {
  return CompareStringOrdinal(largo(a).c_str(), -1, largo(b).c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::string pastaTemporaria() {
  wchar_t pasta[MAX_PATH + 1] = L"";
  const wchar_t* dada = _wgetenv(L"TMPDIR");
  if (dada != nullptr && *dada != L'\0') return estreito(dada);
  GetTempPathW(MAX_PATH + 1, pasta);
  return estreito(pasta);
}

std::string comPasta(const std::string& caminho) {
  const bool inteiro =
      !caminho.empty() && (ehSeparador(caminho[0]) || (caminho.size() > 1 && caminho[1] == ':'));
  return inteiro ? caminho : "./" + caminho;
}

std::string caminhoDoBanco(const std::string& caminho) {
  return estreito(caminhoLargo(comPasta(caminho)).c_str());
}

const char* vfsDoBanco() { return "win32-longpath"; }

std::string pastaDe(const std::string& caminho) {
  const auto fim = std::find_if(caminho.rbegin(), caminho.rend(), ehSeparador);
  return fim == caminho.rend() ? "./" : std::string(caminho.begin(), fim.base());
}

}  // namespace cotepe
