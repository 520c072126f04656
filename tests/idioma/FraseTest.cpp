// Messages and their places, without a catalogue.
#include <gtest/gtest.h>

#include "Idioma/Idioma.h"

namespace {

using cotepe::frase;
using cotepe::fraseDe;
using cotepe::marca;
using cotepe::traduz;

TEST(Frase, PartsFillTheirPlacesInAnyOrderAndAsOftenAsTheyStand) {
  EXPECT_EQ(frase("{2} before {1}, {2}", {"a", "b"}), "b before a, b");
  EXPECT_EQ(frase("{9}", {"1", "2", "3", "4", "5", "6", "7", "8", "nine"}), "nine");
}

TEST(Frase, PartsAreNotReadAgain) { EXPECT_EQ(frase("{1}{2}", {"{2}", "{1}"}), "{2}{1}"); }

TEST(Frase, WhatIsNoPlaceStaysAsItIs) {
  for (const char* modelo :
       {"{", "{1", "{}", "{0}", "{3}", "{10}", "{x}", "{n}", "}{", "a {\"b\": 1}", "%s %n {{"})
    EXPECT_EQ(frase(modelo, {"a", "b"}), modelo);
  EXPECT_EQ(frase("{{1}}", {"a"}), "{a}");
}

TEST(Frase, APartMayBeEmptyOrHoldAnything) {
  EXPECT_EQ(frase("<{1}>", {""}), "<>");
  EXPECT_EQ(frase("<{1}>", {std::string_view("a\0b", 3)}), std::string("<a\0b>", 5));
}

TEST(Frase, ACountHasItsForm) {
  EXPECT_EQ(fraseDe("{n} line of {1}", "{n} lines of {1}", 1, {"a"}), "1 line of a");
  EXPECT_EQ(fraseDe("{n} line of {1}", "{n} lines of {1}", 0, {"a"}), "0 lines of a");
  EXPECT_EQ(fraseDe("{n} line", "{n} lines", 9223372036854775807), "9223372036854775807 lines");
}

TEST(Frase, WithoutACatalogueAMessageIsItself) {
  const char* mensagem = marca("a folder");
  EXPECT_EQ(traduz(mensagem), mensagem);
  EXPECT_STREQ(traduz(""), "");
}

}  // namespace
