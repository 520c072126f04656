// The clock and its patterns.
#include "RtcClasses.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

// `data` and `hora` are copied: the patterns are passed as texts that may be changed.
std::string emTexto(RtcAbsoluteTime& relogio, std::string data, std::string hora) {
  std::array<char, 100> saida;
  saida.fill('#');
  relogio.ToStrDateTime(data.data(), hora.data(), saida.data());
  return saida.data();
}

std::string comStrftime(std::time_t segundos, const char* formato) {
  std::tm local{};
  localtime_r(&segundos, &local);
  std::array<char, 100> saida{};
  return {saida.data(), std::strftime(saida.data(), saida.size(), formato, &local)};
}

TEST(Relogio, IsAllZeroUntilItIsLoaded) {
  RtcAbsoluteTime relogio;
  EXPECT_EQ(emTexto(relogio, "yyyymmdd", "hhmmss"), "00000000 000000");
  EXPECT_EQ(emTexto(relogio, "yyyy-mm-dd", "hh:mm:ss"), "0000-00-00 00:00:00");
}

TEST(Relogio, PatternsOtherCharactersStandForThemselves) {
  RtcAbsoluteTime relogio;
  EXPECT_EQ(emTexto(relogio, "dia dd, ano yyyy", "mm min"), "dia 00, ano 0000 00 min");
  EXPECT_EQ(emTexto(relogio, "y yy yyy yyyyy d m", "h m s"), "y yy yyy 0000y d m h m s");
  EXPECT_EQ(emTexto(relogio, "hhss", "yyyydd"), "hhss yyyydd");
  EXPECT_EQ(emTexto(relogio, "", ""), " ");
}

// The present may pass from one second to the next between two looks at it.
TEST(Relogio, GivesTheLocalTimeOfNow) {
  for (const char* fuso : {"UTC0", "BRT3", "JST-9"}) {
    setenv("TZ", fuso, 1);
    tzset();
    RtcAbsoluteTime relogio;
    const std::time_t antes = std::time(nullptr);
    relogio.GetCurrentDateTime();
    const std::time_t depois = std::time(nullptr);
    const std::string lida = emTexto(relogio, "yyyymmdd", "hhmmss");
    EXPECT_LE(comStrftime(antes, "%Y%m%d %H%M%S"), lida) << fuso;
    EXPECT_LE(lida, comStrftime(depois, "%Y%m%d %H%M%S")) << fuso;
  }
}

TEST(Relogio, EveryPartFollowsItsMark) {
  RtcAbsoluteTime relogio;
  std::time_t antes = 0, depois = 0;
  do {  // until both looks fall into one second
    antes = std::time(nullptr);
    relogio.GetCurrentDateTime();
    depois = std::time(nullptr);
  } while (antes != depois);
  EXPECT_EQ(emTexto(relogio, "dd/mm/yyyy", "ss-mm-hh"), comStrftime(antes, "%d/%m/%Y %S-%M-%H"));
  EXPECT_EQ(emTexto(relogio, "mmmm", "mmmm"), comStrftime(antes, "%m%m %M%M"));
}

}  // namespace
