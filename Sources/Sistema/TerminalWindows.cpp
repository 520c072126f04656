#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <vector>

#include "Sistema/Terminal.h"
#include "Sistema/TextoDoWindows.h"

namespace cotepe {
namespace {

constexpr DWORD kParaLimpar = 5000;  // milliseconds that the system grants when a console is closed

std::atomic<int> g_sinal{0};
UINT g_paginaAnterior = 0;

// On a thread of its own. A process whose console is closed ends when this returns.
BOOL WINAPI anota(DWORD pedido) {
  int nenhum = 0;
  g_sinal.compare_exchange_strong(nenhum, pedido == CTRL_C_EVENT ? SIGINT : SIGTERM);
  if (pedido != CTRL_C_EVENT && pedido != CTRL_BREAK_EVENT) Sleep(kParaLimpar);
  return TRUE;
}

void devolvePagina() { SetConsoleOutputCP(g_paginaAnterior); }

void ligaCores(DWORD qual) {
  const HANDLE tela = GetStdHandle(qual);
  DWORD modo = 0;
  if (GetConsoleMode(tela, &modo) != 0) SetConsoleMode(tela, modo | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

}  // namespace

// _isatty takes the null device for a terminal.
bool ehTerminal(int descritor) {
  DWORD modo = 0;
  return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(descritor)), &modo) != 0;
}

std::size_t colunasDoTerminal(int descritor) {
  CONSOLE_SCREEN_BUFFER_INFO tela{};
  const auto terminal = reinterpret_cast<HANDLE>(_get_osfhandle(descritor));
  if (GetConsoleScreenBufferInfo(terminal, &tela) == 0) return 0;
  return static_cast<std::size_t>(tela.srWindow.Right - tela.srWindow.Left + 1);
}

void preparaFluxosPadrao() noexcept {
  for (int numero = 0; numero <= 2; ++numero) {
    if (_get_osfhandle(numero) < 0) {
      // The lowest free number is the one just tried.
      if (_open("NUL", numero == 0 ? _O_WRONLY : _O_RDONLY) != numero) continue;
    }
    static_cast<void>(_setmode(numero, _O_BINARY));
  }
  g_paginaAnterior = GetConsoleOutputCP();
  if (g_paginaAnterior == 0) return;  // no console
  SetConsoleOutputCP(CP_UTF8);
  std::atexit(devolvePagina);
  for (const DWORD qual : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) ligaCores(qual);
}

void instalaSinais() { SetConsoleCtrlHandler(anota, TRUE); }

int sinalRecebido() noexcept { return g_sinal; }

const char* nomeDoSinal(int sinal) {
  if (sinal == SIGINT) return "SIGINT";
  return sinal == SIGTERM ? "SIGTERM" : nullptr;
}

char** argumentosEmUtf8(int& argc, char** argv) {
  static std::vector<std::string> textos;
  static std::vector<char*> ponteiros;
  int quantos = 0;
  wchar_t** dados = CommandLineToArgvW(GetCommandLineW(), &quantos);
  if (dados == nullptr) return argv;
  for (int i = 0; i < quantos; ++i) textos.push_back(estreito(dados[i]));
  LocalFree(dados);
  for (std::string& texto : textos) ponteiros.push_back(texto.data());
  ponteiros.push_back(nullptr);
  argc = quantos;
  return ponteiros.data();
}

std::string idiomaDoSistema() {
  wchar_t nome[LOCALE_NAME_MAX_LENGTH] = L"";
  return GetUserDefaultLocaleName(nome, LOCALE_NAME_MAX_LENGTH) > 0 ? estreito(nome) : std::string();
}

std::string pastaDoPrograma() {
  std::wstring caminho(32768, L'\0');
  caminho.resize(GetModuleFileNameW(nullptr, caminho.data(), static_cast<DWORD>(caminho.size())));
  const auto barra = caminho.find_last_of(L'\\');
  return barra == std::wstring::npos ? std::string() : estreito(caminho.substr(0, barra).c_str());
}

}  // namespace cotepe
