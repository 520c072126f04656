#include <gtest/gtest.h>

#include "Bancada.h"

namespace {

constexpr char kReducao[] =
    "INSERT INTO reducao_z(cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao, valor_vb) ";

TEST(E12, WritesEveryFieldToItsLastDigit) {
  Bancada bancada;
  bancada.sql(
      std::string(kReducao) +
      "VALUES('123456','654321','987654','2024-01-30 00:00:00','2024-01-31 01:02:03','123456789012.34')");
  EXPECT_EQ(bancada.linha("E12"), cabecalhoDoUsuario("E12") +
                                      "123456"
                                      "654321"
                                      "987654"
                                      "20240130"
                                      "20240131"
                                      "010203"
                                      "12345678901234"
                                      "S");
}

TEST(E12, WithoutReductionWritesOnePlaceholderOutsideCat52) {
  Bancada bancada;
  EXPECT_EQ(bancada.linha("E12"), cabecalhoDoUsuario("E12") +
                                      "000000"
                                      "000000"
                                      "000000"
                                      "        "
                                      "        "
                                      "      "
                                      "00000000000000"
                                      " ");
  EXPECT_TRUE(bancada.cat52(true).registro("E12").empty());
}

}  // namespace
