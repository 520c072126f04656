// What a report itself tells of the settings that it was generated with.
#include "Leitor/AjustesDoRelatorio.h"

#include <gtest/gtest.h>

#include "Relatorio.h"

namespace cotepe {
namespace {

AjustesDoRelatorio ajustes(const Relatorio& relatorio) {
  const std::string texto = relatorio.texto();
  LeitorDeLinhas linhas{std::string_view(texto)};
  return ajustesDe(linhas);
}

TEST(AjustesDoRelatorio, DaysGoFromTheFirstToTheLastOfReductionsAndTapes) {
  Relatorio relatorio = Relatorio::bom();
  EXPECT_EQ(ajustes(relatorio).primeiro, "20240102");
  EXPECT_EQ(ajustes(relatorio).ultimo, "20240103");
  relatorio.troca(10, 65, "20240102", "20231231");
  relatorio.troca(8, 51, "20240103", "20240104");
  EXPECT_EQ(ajustes(relatorio).primeiro, "20231231");
  EXPECT_EQ(ajustes(relatorio).ultimo, "20240104");
}

TEST(AjustesDoRelatorio, WhatE01CannotTellIsEmpty) {
  Relatorio relatorio = Relatorio::bom();
  EXPECT_EQ(ajustes(relatorio).ultimoCrz, "000011");
  EXPECT_EQ(ajustes(relatorio).ultimaEmissao, "20240103");
  relatorio.troca(1, 122, "000011", "00001x");
  relatorio.troca(1, 136, "20240103", "20240230");
  EXPECT_EQ(ajustes(relatorio).ultimoCrz, "");
  EXPECT_EQ(ajustes(relatorio).ultimaEmissao, "");
  relatorio[1].resize(115);
  EXPECT_EQ(ajustes(relatorio).ultimoCrz, "");
}

TEST(AjustesDoRelatorio, ARecordOfLayout2DoesNotOverruleTheOtherLines) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(48, "E22SERIAL              MODELO              000120230615");
  EXPECT_EQ(ajustes(relatorio).leiautes.front().versao, 1);
}

}  // namespace
}  // namespace cotepe
