// interrompe c|k FOLDER PROGRAM ARGUMENTS...: runs a program, waits until a temporary file of it is in the
// folder, and then asks it to stop as Ctrl-Break does (c) or kills it (k); ends as it ended. 99: it could not
// be done.
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

int acaba(const PROCESS_INFORMATION& filho, bool mata, const std::wstring& pasta) {
  for (int passo = 0; !temTemporario(pasta); ++passo) {
    if (passo == kPassos || WaitForSingleObject(filho.hProcess, 50) != WAIT_TIMEOUT) return kFalhou;
  }
  Sleep(200);
  if (mata ? TerminateProcess(filho.hProcess, 1) == 0
           : GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, filho.dwProcessId) == 0)
    return kFalhou;
  DWORD situacao = kFalhou;
  if (WaitForSingleObject(filho.hProcess, 30000) != WAIT_OBJECT_0) return kFalhou;
  GetExitCodeProcess(filho.hProcess, &situacao);
  return static_cast<int>(situacao);
}

}  // namespace

int main() {
  AllocConsole();  // where there is none, for the event to have one
  int quantos = 0;
  wchar_t** dados = CommandLineToArgvW(GetCommandLineW(), &quantos);
  if (dados == nullptr || quantos < 4) return kFalhou;
  std::wstring linha;
  for (int i = 3; i < quantos; ++i) linha += std::wstring(i == 3 ? L"\"" : L" \"") + dados[i] + L"\"";
  STARTUPINFOW inicio{};
  inicio.cb = sizeof inicio;
  PROCESS_INFORMATION filho{};
  if (CreateProcessW(nullptr, linha.data(), nullptr, nullptr, TRUE, CREATE_NEW_PROCESS_GROUP, nullptr,
                     nullptr, &inicio, &filho) == 0)
    return kFalhou;
  const int situacao = acaba(filho, dados[1][0] == L'k', dados[2]);
  if (situacao == kFalhou) TerminateProcess(filho.hProcess, 1);
  return situacao;
}
