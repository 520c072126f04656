#include "PreencheComChar.h"

#include <cstring>

void PreencheComChar(char* texto, char* destino, int tamanho, char caractere, int modo) {
  if (tamanho <= 0) return;
  const auto largura = static_cast<std::size_t>(tamanho);
  const std::size_t usados = strnlen(texto, largura);
  const std::size_t inicio = modo == 1 ? 0 : largura - usados;
  std::memset(destino, caractere, largura);
  std::memcpy(destino + inicio, texto, usados);
}
