#include "RtcClasses.h"

#include <cstring>
#include <initializer_list>

namespace {

struct Parte {
  const char* marca;
  int valor;
};

// Zero-filled to the width of the placeholder.
char* escreveNumero(char* out, int valor, std::size_t largura) {
  for (std::size_t i = largura; i-- > 0; valor /= 10) out[i] = static_cast<char>('0' + valor % 10);
  return out + largura;
}

char* escrevePadrao(char* out, const char* padrao, std::initializer_list<Parte> partes) {
  while (*padrao != '\0') {
    const Parte* achada = nullptr;
    for (const Parte& parte : partes)
      if (std::strncmp(padrao, parte.marca, std::strlen(parte.marca)) == 0) achada = &parte;
    if (achada == nullptr) {
      *out++ = *padrao++;
      continue;
    }
    const std::size_t largura = std::strlen(achada->marca);
    out = escreveNumero(out, achada->valor, largura);
    padrao += largura;
  }
  return out;
}

}  // namespace

void RtcAbsoluteTime::GetCurrentDateTime() {
  const std::time_t agora = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&agora, &local) == nullptr) return;
  tm_ = local;
  tm_.tm_year += 1900;
  tm_.tm_mon += 1;
}

void RtcAbsoluteTime::ToStrDateTime(char* dateFormat, char* timeFormat, char* out) {
  out = escrevePadrao(out, dateFormat, {{"yyyy", tm_.tm_year}, {"mm", tm_.tm_mon}, {"dd", tm_.tm_mday}});
  *out++ = ' ';
  out = escrevePadrao(out, timeFormat, {{"hh", tm_.tm_hour}, {"mm", tm_.tm_min}, {"ss", tm_.tm_sec}});
  *out = '\0';
}
