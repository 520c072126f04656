// Days of the sample shop as numbers and as texts.
#include "Amostra/Calendario.h"

#include <gtest/gtest.h>

namespace cotepe::loja {
namespace {

TEST(Calendario, ADayIsReadAndWrittenTheSame) {
  for (const char* dia : {"0000-01-01", "0000-02-29", "0001-01-01", "1600-02-29", "1970-01-01", "2024-02-29",
                          "2024-12-31", "9999-12-31"}) {
    const auto lido = leDia(dia);
    ASSERT_TRUE(lido.has_value()) << dia;
    EXPECT_EQ(textoDoDia(*lido), dia);
  }
  EXPECT_EQ(leDia("1970-01-01"), 0);
  EXPECT_EQ(leDia("1969-12-31"), -1);
  EXPECT_EQ(leDia("2024-01-01"), 19723);
}

TEST(Calendario, WhatIsNoDayIsNotRead) {
  for (const char* outro :
       {"", "2024-1-1", "2024-01-011", "2024/01/01", "2O24-01-01", "202/-01-01", "2024-01-3:", "2024-00-01",
        "2024-13-01", "2024-04-31", "2023-02-29", "1900-02-29"})
    EXPECT_FALSE(leDia(outro).has_value()) << outro;
}

}  // namespace
}  // namespace cotepe::loja
