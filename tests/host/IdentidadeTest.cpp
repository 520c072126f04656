#include "Identidade.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Identidade, TextsHaveTheSizesThatApplicationsExpect) {
  EXPECT_EQ(sizeof g_Serial, 30U);
  EXPECT_EQ(sizeof g_Modelo, 30U);
  EXPECT_EQ(sizeof g_Tipo, 15U);
  EXPECT_EQ(sizeof g_VersaoSB, 15U);
}

TEST(Identidade, IsUnknownAtFirst) {
  EXPECT_EQ(std::string(g_Serial, sizeof g_Serial), std::string(30, '\0'));
  EXPECT_EQ(std::string(g_Modelo, sizeof g_Modelo), std::string(30, '\0'));
  EXPECT_EQ(std::string(g_Tipo, sizeof g_Tipo), std::string(15, '\0'));
  EXPECT_EQ(std::string(g_VersaoSB, sizeof g_VersaoSB), std::string(15, '\0'));
}

}  // namespace
