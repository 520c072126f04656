// mata FOLDER PROGRAM ARGUMENTS...: runs a program, waits until a temporary file of it is in the folder, and
// then kills it. 0: it was killed; 99: it could not be done.
#include <windows.h>

#include <string>

namespace {

constexpr int kFalhou = 99, kPassos = 600;

bool temTemporario(const std::wstring& pasta) {
  WIN32_FIND_DATAW item;
  const HANDLE lista = FindFirstFileW((pasta + L"\\.*.cotepe-*.tmp").c_str(), &item);
  if (lista == INVALID_HANDLE_VALUE) return false;
  FindClose(lista);
  return true;
}

bool mata(const PROCESS_INFORMATION& filho, const std::wstring& pasta) {
  for (int passo = 0; !temTemporario(pasta); ++passo) {
    if (passo == kPassos || WaitForSingleObject(filho.hProcess, 50) != WAIT_TIMEOUT) return false;
  }
  Sleep(200);
  return WaitForSingleObject(filho.hProcess, 0) == WAIT_TIMEOUT && TerminateProcess(filho.hProcess, 1) != 0 &&
         WaitForSingleObject(filho.hProcess, 30000) == WAIT_OBJECT_0;
}

}  // namespace

int main() {
  int quantos = 0;
  wchar_t** dados = CommandLineToArgvW(GetCommandLineW(), &quantos);
  if (dados == nullptr || quantos < 3) return kFalhou;
  std::wstring linha;
  for (int i = 2; i < quantos; ++i) linha += std::wstring(i == 2 ? L"\"" : L" \"") + dados[i] + L"\"";
  STARTUPINFOW inicio{};
  inicio.cb = sizeof inicio;
  PROCESS_INFORMATION filho{};
  if (CreateProcessW(nullptr, linha.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &inicio, &filho) ==
      0)
    return kFalhou;
  const bool morto = mata(filho, dados[1]);
  if (!morto) TerminateProcess(filho.hProcess, 1);
  return morto ? 0 : kFalhou;
}
