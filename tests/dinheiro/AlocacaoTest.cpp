// Nothing of the money libraries allocates: global new is counted around every operation.
#include <gtest/gtest.h>

#include <array>
#include <new>

#include "Financial.h"
#include "MemoriaContada.h"

using cotepe::testes::g_memoria;

namespace {

TEST(Allocation, IsCounted) {
  const auto antes = g_memoria.pedidos();
  void* memoria = operator new(10);
  operator delete(memoria);
  EXPECT_GT(g_memoria.pedidos(), antes);
}

TEST(Allocation, IsNeverDoneByBigInt) {
  std::array<char, 40> area{};
  const auto antes = g_memoria.pedidos();
  BigInt valor = 12345678901;
  valor = "-39614081257132168796771975168";
  BigInt resto;
  valor = (valor * 3 - 7) / BigInt().Load(1, 2, 3) + valor % 1000;
  valor = (valor << 3 | valor >> 5) ^ ~valor;
  valor.DivisaoComResto(BigInt().Load(9, 9, 9), resto);
  valor.Arredonda(2).Trunca(1).ToStr(area.data(), 40);
  EXPECT_EQ(g_memoria.pedidos(), antes);
}

TEST(Allocation, IsNeverDoneByFinancial) {
  std::array<char, 60> area{};
  const auto antes = g_memoria.pedidos();
  Financial valor = 12.34;
  valor = "  -396140812571321687967719751,675e0 ";
  valor = (valor * 3 - 7) / 5 + Financial(valor.ToDouble());
  INT64 soma = Financial::CentavosDoBanco("1234.56") + Financial::CentavosDoDecimal(12.345);
  soma +=
      Financial::CentavosDoBanco("0.30000000000000004") + Financial::CentavosDoBanco("12345678901234567.891");
  valor.Arredonda(1).Trunca(0).ToString(area.data(), 60, FIN_STR_4, 4, 1);
  EXPECT_EQ(g_memoria.pedidos(), antes);
  EXPECT_NE(soma, 0);
}

}  // namespace
