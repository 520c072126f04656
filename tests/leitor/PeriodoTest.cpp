// Records of a period: by a date of their own, or with the document that they are a part of.
#include "Leitor/Periodo.h"

#include <gtest/gtest.h>

#include "Relatorio.h"

namespace cotepe {
namespace {

/// The numbers of the lines that belong to the days.
std::string linhas(const Relatorio& relatorio, const std::string& de, const std::string& ate) {
  const std::string texto = relatorio.texto();
  LeitorDeLinhas leitor{std::string_view(texto)};
  LeitorDeRegistros registros(leitor);
  Periodo periodo(de, ate);
  std::string aceitas;
  for (RegistroLido lido; registros.proximo(lido);)
    if (periodo.aceita(lido)) aceitas += std::to_string(lido.linha.numero) + ' ';
  return aceitas;
}

TEST(Periodo, APartGoesWithItsDocument) {
  for (const int leiaute : {1, 2}) {
    const Relatorio bom = Relatorio::bom(leiaute);
    EXPECT_EQ(linhas(bom, "20240102", "20240102"),
              "1 10 12 13 14 15 18 20 21 23 24 25 26 28 29 30 34 36 37 39 41 43 44 45 46 ");
    EXPECT_EQ(linhas(bom, "20240103", "20240103"), "1 8 9 11 16 17 19 22 27 31 32 33 35 38 40 42 47 ");
  }
}

TEST(Periodo, ABoundMayBeMissing) {
  const Relatorio bom = Relatorio::bom();
  EXPECT_EQ(linhas(bom, "20240103", ""), "1 8 9 11 16 17 19 22 27 31 32 33 35 38 40 42 47 ");
  EXPECT_EQ(linhas(bom, "20240104", ""), "");
  EXPECT_EQ(linhas(bom, "", "20230615"), linhas(bom, "00010101", "20230615"));
}

TEST(Periodo, APartWhoseNumberCannotBeReadGoesWithNoDocument) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(12, 47, "000010", "00001x");
  EXPECT_EQ(linhas(relatorio, "20240102", "20240102"),
            "1 10 13 14 15 18 20 21 23 24 25 26 28 29 30 34 36 37 39 41 43 44 45 46 ");
}

TEST(Periodo, WithoutBoundsEverythingBelongs) {
  Relatorio bom = Relatorio::bom();
  bom.insere(5, "of no register");
  std::string todas;
  for (int i = 1; i <= bom.quantas(); ++i) todas += std::to_string(i) + ' ';
  EXPECT_EQ(linhas(bom, "", ""), todas);
}

TEST(Periodo, WithoutReductionsTheirDocumentsTell) {
  Relatorio semReducoes = Relatorio::bom();
  for (int linha = 19; linha >= 10; --linha) semReducoes.remove(linha);
  EXPECT_EQ(linhas(semReducoes, "20240103", "20240103"), "1 8 9 12 17 21 22 23 25 28 30 32 37 ");
}

TEST(Periodo, APartWithoutItsDocumentDoesNotBelong) {
  Relatorio semCupons = Relatorio::bom();
  semCupons.remove(21);
  EXPECT_EQ(linhas(semCupons, "20240102", "20240102"),
            "1 10 12 13 14 15 18 20 22 23 27 28 29 33 35 36 38 40 42 43 45 ");
}

TEST(Periodo, DocumentsOutOfOrderAreFoundAllTheSame) {
  Relatorio trocado = Relatorio::bom();
  trocado.permuta(20, 22);
  EXPECT_EQ(linhas(trocado, "20240102", "20240102"),
            "1 10 12 13 14 15 18 21 22 23 24 25 26 28 29 30 34 36 37 39 41 43 44 45 46 ");
  trocado.permuta(20, 21);
  EXPECT_EQ(linhas(trocado, "20240102", "20240102"),
            "1 10 12 13 14 15 18 20 22 23 24 25 26 28 29 30 34 36 37 39 41 43 44 45 46 ");
}

}  // namespace
}  // namespace cotepe
