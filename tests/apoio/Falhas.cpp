// Loaded into the program before the C library: makes one call of one system function fail. COTEPE_FALHA is
// the function, the number of the call from 1, or 0 for every call, and the value of errno.
#include <dlfcn.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace {

bool falha(const char* funcao, int& chamadas) {
  const char* pedido = std::getenv("COTEPE_FALHA");
  const std::size_t tamanho = std::strlen(funcao);
  if (pedido == nullptr || std::strncmp(pedido, funcao, tamanho) != 0 || pedido[tamanho] != ' ') return false;
  char* resto = nullptr;
  const long vez = std::strtol(pedido + tamanho, &resto, 10);
  if (++chamadas != vez && vez != 0) return false;
  errno = static_cast<int>(std::strtol(resto, nullptr, 10));
  return true;
}

template <class Funcao, class... Argumentos>
int chama(const char* nome, int& chamadas, Argumentos... argumentos) {
  if (falha(nome, chamadas)) return -1;
  return reinterpret_cast<Funcao>(dlsym(RTLD_NEXT, nome))(argumentos...);
}

}  // namespace

extern "C" {

int fsync(int arquivo) {
  static int chamadas = 0;
  return chama<int (*)(int)>("fsync", chamadas, arquivo);
}

int flock(int arquivo, int modo) {
  static int chamadas = 0;
  return chama<int (*)(int, int)>("flock", chamadas, arquivo, modo);
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
int renameat2(int pastaDe, const char* de, int pastaPara, const char* para, unsigned opcoes) {
  static int chamadas = 0;
  return chama<int (*)(int, const char*, int, const char*, unsigned)>("renameat2", chamadas, pastaDe, de,
                                                                      pastaPara, para, opcoes);
}

int unlink(const char* nome) {
  static int chamadas = 0;
  return chama<int (*)(const char*)>("unlink", chamadas, nome);
}

}  // extern "C"
