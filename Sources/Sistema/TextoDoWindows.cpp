#include "Sistema/TextoDoWindows.h"

#include <windows.h>

#include <cerrno>

namespace cotepe {

std::wstring largo(const std::string& texto) {
  const int bytes = static_cast<int>(texto.size());
  const int tamanho = MultiByteToWideChar(CP_UTF8, 0, texto.data(), bytes, nullptr, 0);
  std::wstring saida(static_cast<std::size_t>(tamanho), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, texto.data(), bytes, saida.data(), tamanho);
  return saida;
}

std::string estreito(const wchar_t* texto) {
  const int tamanho = WideCharToMultiByte(CP_UTF8, 0, texto, -1, nullptr, 0, nullptr, nullptr);
  if (tamanho <= 0) return {};
  std::string saida(static_cast<std::size_t>(tamanho), '\0');
  WideCharToMultiByte(CP_UTF8, 0, texto, -1, saida.data(), tamanho, nullptr, nullptr);
  saida.pop_back();  // the terminator
  return saida;
}

std::wstring caminhoLargo(const std::string& caminho) {
  constexpr std::size_t kSemMarca = 240;  // MAX_PATH less what is appended to a name
  const std::wstring dado = largo(caminho);
  if (dado.empty() || dado.compare(0, 4, L"\\\\?\\") == 0) return dado;
  const DWORD tamanho = GetFullPathNameW(dado.c_str(), 0, nullptr, nullptr);
  if (tamanho < kSemMarca) return dado;
  std::wstring inteiro(tamanho, L'\0');
  inteiro.resize(GetFullPathNameW(dado.c_str(), tamanho, inteiro.data(), nullptr));
  if (inteiro.compare(0, 2, L"\\\\") == 0) return L"\\\\?\\UNC\\" + inteiro.substr(2);
  return L"\\\\?\\" + inteiro;
}

void anotaErro() {
  switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      errno = ENOENT;
      break;
    case ERROR_DIRECTORY:
      errno = ENOTDIR;
      break;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_BUSY:
    case ERROR_USER_MAPPED_FILE:
      errno = EACCES;
      break;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      errno = EEXIST;
      break;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      errno = ENOSPC;
      break;
    case ERROR_TOO_MANY_OPEN_FILES:
      errno = EMFILE;
      break;
    case ERROR_FILENAME_EXCED_RANGE:
      errno = ENAMETOOLONG;
      break;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      errno = ENOMEM;
      break;
    case ERROR_INVALID_HANDLE:
      errno = EBADF;
      break;
    case ERROR_BROKEN_PIPE:
    case ERROR_NO_DATA:
      errno = EPIPE;
      break;
    case ERROR_OPERATION_ABORTED:
      errno = EINTR;
      break;
    default:
      errno = EIO;
  }
}

}  // namespace cotepe
