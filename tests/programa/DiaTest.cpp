#include "Corrida/Dia.h"

#include <gtest/gtest.h>

using cotepe::programa::Dia;

namespace {

std::string iso(const char* texto) {
  const auto dia = Dia::le(texto);
  return dia ? dia->iso() : "none";
}

TEST(Dia, BothFormsAreTheSameDay) {
  EXPECT_EQ(iso("29022024"), "2024-02-29");
  EXPECT_EQ(iso("2024-02-29"), "2024-02-29");
  EXPECT_EQ(Dia::le("2024-02-01")->ddmmaaaa(), "01022024");
  EXPECT_EQ(Dia::le("01020304")->ddmmaaaa(), "01020304");
}

TEST(Dia, EveryMonthHasItsOwnLength) {
  const char* const ultimos[] = {"31012023", "28022023", "31032023", "30042023", "31052023", "30062023",
                                 "31072023", "31082023", "30092023", "31102023", "30112023", "31122023"};
  for (const std::string ultimo : ultimos) {
    EXPECT_NE(iso(ultimo.c_str()), "none") << ultimo;
    const std::string seguinte = std::to_string(std::stoi(ultimo.substr(0, 2)) + 1) + ultimo.substr(2);
    EXPECT_EQ(iso(seguinte.c_str()), "none") << seguinte;
  }
}

TEST(Dia, CenturiesAreLeapYearsOnlyEveryFourHundred) {
  EXPECT_EQ(iso("29022000"), "2000-02-29");
  EXPECT_EQ(iso("29021900"), "none");
  EXPECT_EQ(iso("29022023"), "none");
}

TEST(Dia, TheFirstAndTheLastOfAllDaysExist) {
  EXPECT_EQ(iso("01010001"), "0001-01-01");
  EXPECT_EQ(iso("9999-12-31"), "9999-12-31");
  EXPECT_EQ(iso("01010000"), "none");
}

TEST(Dia, WhatIsNoDayIsRefused) {
  for (const char* texto :
       {"", "1", "0101202", "010120244", "2024-1-01", "2024/01/01", "20240131", "00012024", "01002024",
        "01132024", "32012024", "0101202x", " 1012024", "+1012024", "2024-01-0a", "2024-01-01 ", "01-01-2024",
        "2024-00-10", "2024-01-00"})
    EXPECT_EQ(iso(texto), "none") << texto;
}

TEST(Dia, DaysAreInOrder) {
  EXPECT_TRUE(*Dia::le("31122023") < *Dia::le("01012024"));
  EXPECT_TRUE(*Dia::le("31012024") < *Dia::le("01022024"));
  EXPECT_FALSE(*Dia::le("01012024") < *Dia::le("2024-01-01"));
}

TEST(Dia, SlashesMayStandBetweenDayMonthAndYear) {
  EXPECT_EQ(iso("29/02/2024"), "2024-02-29");
  EXPECT_EQ(iso("30/02/2024"), "none");
  EXPECT_EQ(iso("29/02-2024"), "none");
}

TEST(Dia, TheLastDayOfItsMonth) {
  EXPECT_EQ(Dia::le("2024-02-10")->ultimoDoMes().iso(), "2024-02-29");
  EXPECT_EQ(Dia::le("2023-02-28")->ultimoDoMes().iso(), "2023-02-28");
  EXPECT_EQ(Dia::le("2024-12-31")->ultimoDoMes().iso(), "2024-12-31");
}

}  // namespace
