// Runs whose memory ends at each of their allocations in turn.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <new>
#include <sstream>
#include <string>
#include <utility>

#include "Bancada.h"

namespace {

// Allocations that are still granted; none fails while it is below zero.
long g_concedidas = -1;

bool concede() {
  if (g_concedidas == 0) return false;
  if (g_concedidas > 0) --g_concedidas;
  return true;
}

void* aloca(std::size_t tamanho) noexcept {
  return concede() ? std::malloc(tamanho == 0 ? 1 : tamanho) : nullptr;
}

}  // namespace

// Every form, for the sanitizers look at the pairs; not inlined, for the compiler does too.
[[gnu::noinline]] void* operator new(std::size_t tamanho) {
  if (void* memoria = aloca(tamanho)) return memoria;
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new[](std::size_t tamanho) { return operator new(tamanho); }
[[gnu::noinline]] void* operator new(std::size_t tamanho, const std::nothrow_t& /*nada*/) noexcept {
  return aloca(tamanho);
}
[[gnu::noinline]] void* operator new[](std::size_t tamanho, const std::nothrow_t& /*nada*/) noexcept {
  return aloca(tamanho);
}
[[gnu::noinline]] void operator delete(void* memoria) noexcept { std::free(memoria); }
[[gnu::noinline]] void operator delete[](void* memoria) noexcept { std::free(memoria); }
[[gnu::noinline]] void operator delete(void* memoria, std::size_t /*bytes*/) noexcept { std::free(memoria); }
[[gnu::noinline]] void operator delete[](void* memoria, std::size_t /*bytes*/) noexcept {
  std::free(memoria);
}

namespace {

// Of this process alone, for tests run side by side.
const std::string kNomeDoRelatorio = "alocacao-" + std::to_string(getpid()) + ".txt";
const char* const kRelatorio = kNomeDoRelatorio.c_str();

std::string conteudo() {
  std::ostringstream texto;
  texto << std::ifstream(kRelatorio, std::ios::binary).rdbuf();
  return texto.str();
}

int gera(Bancada& bancada) {
  return bancada.gerador().GeraRegistrosTipoE(kRelatorio, "01012024", "31012024", "TDM");
}

// Runs with 0, 1, 2 ... allocations granted until one needs no more; returns how many runs failed.
int falhaEmCadaUma(Bancada& bancada, const std::string& inteiro) {
  int falhas = 0;
  for (long concedidas = 0, sobram = 0; sobram == 0; ++concedidas) {
    g_concedidas = concedidas;
    const int resultado = gera(bancada);
    sobram = std::exchange(g_concedidas, -1);
    if (resultado == 0) {
      EXPECT_EQ(conteudo(), inteiro) << concedidas;
      continue;
    }
    EXPECT_EQ(resultado, 4) << concedidas;
    ++falhas;
  }
  return falhas;
}

TEST(Alocacao, WhicheverFailsTheResultIsFourOrTheReportIsWhole) {
  Bancada bancada;
  bancada.comIdentidade();
  ASSERT_EQ(gera(bancada), 0);
  const auto inteiro = conteudo();
  EXPECT_GT(falhaEmCadaUma(bancada, inteiro), 20);
  EXPECT_EQ(gera(bancada), 0);
  EXPECT_EQ(conteudo(), inteiro);
  unlink(kRelatorio);
}

TEST(Alocacao, WhicheverFailsInALineThatGrowsTheResultIsFour) {
  Bancada bancada;
  bancada.sql("INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57','" + std::string(1000000, 'c') + "')");
  ASSERT_EQ(gera(bancada), 0);
  const auto inteiro = conteudo();
  EXPECT_GT(falhaEmCadaUma(bancada, inteiro), 20);
  unlink(kRelatorio);
}

}  // namespace
