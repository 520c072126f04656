// Two reports compared in memory: what is said, word for word.
#include "Comparacao/Comparacao.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "Achados/SaidaDeAchados.h"
#include "Leitor/ChaveNatural.h"
#include "Relatorio.h"

namespace cotepe {
namespace {

using Textos = std::vector<std::string>;

struct Coletor : RecebeAchados {
  Textos textos;
  void recebe(const Achado& achado) override { textos.push_back(textoDoAchado(achado)); }
};

Textos diferencas(const std::string& a, const std::string& b, bool comCarimbo = false,
                  bool comOrdem = false) {
  Coletor coletor;
  LeitorDeLinhas linhasA{std::string_view(a)}, linhasB{std::string_view(b)};
  Comparacao(coletor, {"a.txt", "b.txt", comCarimbo, comOrdem}).compara(linhasA, linhasB);
  return coletor.textos;
}

Textos contraBom(Relatorio mudado, int leiaute = 1) {
  return diferencas(Relatorio::bom(leiaute).texto(), mudado.texto());
}

constexpr int kE11 = 9, kPrimeiroE14 = 20;  // lines of the report

TEST(Comparacao, EqualReportsHaveNone) {
  EXPECT_EQ(contraBom(Relatorio::bom()), Textos());
  EXPECT_EQ(contraBom(Relatorio::bom(2), 2), Textos());
  EXPECT_EQ(diferencas("", ""), Textos());
}

TEST(Comparacao, AFieldIsNamedWithBothValuesAndItsKey) {
  Relatorio r = Relatorio::bom();
  r.troca(kPrimeiroE14, 67, "00000000003000", "00000000123456");
  EXPECT_EQ(
      contraBom(r),
      Textos{
          "b.txt:20:67-80: error field E14.9 \"Subtotal\": found 1.234,56, expected 30,00 (CCF 31; line 20 "
          "of a.txt)"});
}

TEST(Comparacao, DatesAreShownAsDatesAndTextsInQuotes) {
  Relatorio r = Relatorio::bom();
  r.troca(kPrimeiroE14, 59, "20240102", "20240105");
  r.troca(2, 73, "LOJA DE EXEMPLO", "LOJA DE EXEMPLA");
  EXPECT_EQ(
      contraBom(r),
      (Textos{"b.txt:2:73-112: error field E02.7 \"Razão social\": found \"LOJA DE EXEMPLA LTDA              "
              "      \", expected \"LOJA DE EXEMPLO LTDA                    \" (line 2 of a.txt)",
              "b.txt:20:59-66: error field E14.8 \"Data de emissão\": found 05/01/2024, expected 02/01/2024 "
              "(CCF 31; line 20 of a.txt)"}));
}

TEST(Comparacao, BytesThatLookTheSameAreTold) {
  Relatorio a = Relatorio::bom(), b = Relatorio::bom();
  a.troca(2, 73, "L", "\x80");
  b.troca(2, 73, "L", "\x81");
  EXPECT_EQ(
      diferencas(a.texto(), b.texto()),
      Textos{
          "b.txt:2:73-112: error field E02.7 \"Razão social\": found byte 1 0x81, expected byte 1 0x80 (line "
          "2 of a.txt)"});
}

TEST(Comparacao, RecordsThatAreMissingOrAddedAreNamedByTheirKey) {
  Relatorio semItem = Relatorio::bom();
  semItem.remove(24);  // E15, COO 102, item 2
  EXPECT_EQ(
      contraBom(semItem),
      Textos{"b.txt: error missing E15: found none, expected a record: COO 102, Nº do item 2 (line 24 of "
             "a.txt)"});
  EXPECT_EQ(diferencas(semItem.texto(), Relatorio::bom().texto()),
            Textos{"b.txt:24: error added E15: found a record: COO 102, Nº do item 2, expected none"});
}

TEST(Comparacao, TheOrderOfRecordsInARegisterIsNoDifference) {
  Relatorio r = Relatorio::bom();
  r.permuta(20, 22);
  EXPECT_EQ(contraBom(r), Textos());
}

TEST(Comparacao, TheOrderCountsWhenAsked) {
  const std::string bom = Relatorio::bom().texto();
  EXPECT_EQ(diferencas(bom, bom, false, true), Textos());
  Relatorio emUmRegistro = Relatorio::bom();
  emUmRegistro.permuta(20, 21);
  EXPECT_EQ(
      diferencas(bom, emUmRegistro.texto(), false, true),
      Textos{"b.txt:21: error order E14: found the record out of its place, expected the order of a.txt "
             "(CCF 31; line 20 of a.txt)"});
  Relatorio entreRegistros = Relatorio::bom();
  entreRegistros.permuta(7, 9);
  EXPECT_NE(diferencas(bom, entreRegistros.texto(), false, true), Textos());
}

TEST(Comparacao, RecordsThatAreMissingOrAddedLeaveTheOthersInOrder) {
  Relatorio menos = Relatorio::bom();
  menos.remove(21);
  const std::string bom = Relatorio::bom().texto();
  EXPECT_EQ(diferencas(bom, menos.texto(), false, true).size(), 1U);
  EXPECT_EQ(diferencas(menos.texto(), bom, false, true).size(), 1U);
}

TEST(Comparacao, RecordsOfOneKeyAreTakenInOrder) {
  Relatorio a = Relatorio::bom(), b = Relatorio::bom();
  a.insere(21, a[20]);
  EXPECT_EQ(diferencas(a.texto(), b.texto()),
            Textos{"b.txt: error missing E14: found none, expected a record: CCF 31 (line 21 of a.txt)"});
}

TEST(Comparacao, RecordsOfOneKeyThatWaitAreTakenInOrderToo) {
  Relatorio a = Relatorio::bom(), b = Relatorio::bom();
  a.insere(21, a[20]);
  a.troca(21, 67, "00000000003000", "00000000003100");
  b.permuta(20, 22);
  b.insere(23, a[21]);
  EXPECT_EQ(diferencas(a.texto(), b.texto()), Textos());
  b.permuta(22, 23);
  EXPECT_EQ(
      diferencas(a.texto(), b.texto()),
      (Textos{
          "b.txt:22:67-80: error field E14.9 \"Subtotal\": found 31,00, expected 30,00 (CCF 31; line 20 of "
          "a.txt)",
          "b.txt:23:67-80: error field E14.9 \"Subtotal\": found 30,00, expected 31,00 (CCF 31; line 21 of "
          "a.txt)"}));
}

TEST(Comparacao, TheStampCountsOnlyWhenAsked) {
  Relatorio r = Relatorio::bom();
  r.troca(kE11, 123, "20240103", "20240204");
  r.troca(kE11, 131, "200000", "200001");
  EXPECT_EQ(contraBom(r), Textos());
  EXPECT_EQ(
      diferencas(Relatorio::bom().texto(), r.texto(), true),
      (Textos{
          "b.txt:9:123-130: error field E11.16 \"Data de geração\": found 04/02/2024, expected 03/01/2024 "
          "(line 9 of a.txt)",
          "b.txt:9:131-136: error field E11.17 \"Hora de geração\": found 20:00:01, expected 20:00:00 (line "
          "9 of a.txt)"}));
}

TEST(Comparacao, AStampOfOtherLengthAlwaysCounts) {
  Relatorio r = Relatorio::bom();
  r[kE11].pop_back();
  EXPECT_EQ(contraBom(r),
            Textos{"b.txt:9:131-136: error field E11.17 \"Hora de geração\": found \"20000\", expected "
                   "20:00:00 (line 9 of a.txt)"});
}

TEST(Comparacao, AFieldThatTheLineEndsBeforeIsNothing) {
  Relatorio r = Relatorio::bom();
  r[kE11].resize(130);
  EXPECT_EQ(
      contraBom(r),
      Textos{"b.txt:9:131-136: error field E11.17 \"Hora de geração\": found nothing, expected 20:00:00 "
             "(line 9 of a.txt)"});
}

TEST(Comparacao, OfLongTextsThatLookTheSameTheEndOfOneIsTold) {
  Relatorio r = Relatorio::bom(2);
  r[kPrimeiroE14].resize(297);
  const Textos textos = contraBom(r, 2);
  ASSERT_FALSE(textos.empty());
  EXPECT_EQ(textos[0],
            "b.txt:20:198-757: error field E14.20 \"Texto suplementar\": found the end at byte 101, expected "
            "byte 101 0x20 (CCF 31; line 20 of a.txt)");
}

TEST(Comparacao, WhatStandsBehindTheLastFieldIsADifference) {
  Relatorio r = Relatorio::bom();
  r[7] += "xyz";
  EXPECT_EQ(contraBom(r),
            Textos{"b.txt:7: error line E09: found 3 bytes \"xyz\" behind the last field, expected "
                   "nothing (CRO 1; line 7 of a.txt)"});
}

TEST(Comparacao, LineEndsAreCompared) {
  Relatorio r = Relatorio::bom();
  r[7] += '\r';
  EXPECT_EQ(contraBom(r),
            Textos{"b.txt:7: error line-end E09: found CR and LF, expected LF (CRO 1; line 7 of a.txt)"});
  std::string semFim = Relatorio::bom().texto();
  semFim.pop_back();
  const Textos textos = diferencas(Relatorio::bom().texto(), semFim);
  ASSERT_EQ(textos.size(), 1U);
  EXPECT_NE(textos[0].find("error line-end E21: found the end of the file, expected LF"), std::string::npos)
      << textos[0];
}

// With CR and LF on every line but one.
std::string comCrLf(Relatorio relatorio, int menos = 0) {
  const std::string texto = relatorio.texto();
  std::string saida;
  int linha = 1;
  for (const char c : texto) {
    if (c == '\n' && linha++ != menos) saida += '\r';
    saida += c;
  }
  return saida;
}

TEST(Comparacao, LineEndsOfADeliveredReportAreNoDifferenceButALoneOneIs) {
  const std::string plano = Relatorio::bom().texto(), pronto = comCrLf(Relatorio::bom()),
                    misto = comCrLf(Relatorio::bom(), 7);
  EXPECT_EQ(diferencas(plano, pronto), Textos());
  EXPECT_EQ(diferencas(pronto, plano), Textos());
  EXPECT_EQ(diferencas(misto, misto), Textos());
  const Textos umLf = {"b.txt:7: error line-end E09: found LF, expected CR and LF (CRO 1; line 7 of a.txt)"};
  EXPECT_EQ(diferencas(plano, misto), umLf);
  EXPECT_EQ(diferencas(pronto, misto), umLf);
  EXPECT_EQ(diferencas(misto, pronto),
            Textos{"b.txt:7: error line-end E09: found CR and LF, expected LF (CRO 1; line 7 of a.txt)"});
  EXPECT_EQ(diferencas(plano.substr(0, plano.size() - 1), pronto.substr(0, pronto.size() - 2)), Textos());
}

TEST(Comparacao, ALineOfNoRegisterIsAddedAndItsRecordMissing) {
  Relatorio r = Relatorio::bom();
  r.troca(kPrimeiroE14, 1, "E14", "X14");
  EXPECT_EQ(
      contraBom(r),
      (Textos{
          "b.txt:20: error added: found a line of no register, \"X14SERIAL               MODELO              "
          "0100003100010220...\", expected none",
          "b.txt: error missing E14: found none, expected a record: CCF 31 (line 20 of a.txt)"}));
}

// A lone record out of its register's place does not make the others go astray.
TEST(Comparacao, ARecordOfAnotherRegisterIsNoEndOfTheOneAround) {
  Relatorio r = Relatorio::bom();
  r.troca(kPrimeiroE14, 1, "E14", "E20");
  EXPECT_EQ(contraBom(r).size(), 2U);
}

TEST(Comparacao, AWholeRegisterMayBeMissing) {
  Relatorio r = Relatorio::bom();
  for (int i = 0; i < 3; ++i) r.remove(kPrimeiroE14);
  EXPECT_EQ(contraBom(r),
            (Textos{"b.txt: error missing E14: found none, expected a record: CCF 31 (line 20 of a.txt)",
                    "b.txt: error missing E14: found none, expected a record: CCF 32 (line 21 of a.txt)",
                    "b.txt: error missing E14: found none, expected a record: CCF 33 (line 22 of a.txt)"}));
}

TEST(Comparacao, AnEmptyReportLacksEverything) {
  EXPECT_EQ(diferencas(Relatorio::bom().texto(), "").size(),
            static_cast<std::size_t>(Relatorio::bom().quantas()));
  EXPECT_EQ(diferencas("", Relatorio::bom().texto()).size(),
            static_cast<std::size_t>(Relatorio::bom().quantas()));
}

// Records of the same values in counters of six and of nine digits.
TEST(Comparacao, ALineMayEndBeforeItsKey) {
  EXPECT_EQ(diferencas("E14\n", "E20\n"),
            (Textos{"b.txt: error missing E14: found none, expected a record: CCF  (line 1 of a.txt)",
                    "b.txt:1: error added E20: found a record: COO , Nº do item , expected none"}));
}

TEST(Comparacao, OtherWidthsAreToldOnce) {
  const std::string cabecalho = "E12SERIAL               MODELO              01000010";
  const std::string resto =
      "0000012024010220240102200100"
      "00000000003800"
      "S\n";
  EXPECT_EQ(
      diferencas(cabecalho + "000105" + resto, cabecalho + "000000105" + resto),
      Textos{
          "b.txt: error layout: found 1 record in fields of other widths, expected the widths of a.txt (the "
          "values are the same)"});
}

TEST(Comparacao, OtherWidthsAreToldBesideAnotherLineEnd) {
  const std::string cabecalho = "E12SERIAL               MODELO              01000010";
  const std::string resto =
      "0000012024010220240102200100"
      "00000000003800"
      "S";
  EXPECT_EQ(
      diferencas(cabecalho + "000105" + resto + "\n", cabecalho + "000000105" + resto),
      (Textos{
          "b.txt:1: error line-end E12: found the end of the file, expected LF (CRZ 10; line 1 of a.txt)",
          "b.txt: error layout: found 1 record in fields of other widths, expected the widths of a.txt (the "
          "values are the same)"}));
}

// The first lines say of which layout the files are.
TEST(Comparacao, AFieldCutShortIsNotTheSameInAnotherWidth) {
  const std::string cabecalho = "E12SERIAL               MODELO              010000";
  const std::string resto =
      "0000012024010220240102200100"
      "00000000003800"
      "S\n";
  const std::string a = cabecalho + "10000105" + resto, b = cabecalho + "10000000105" + resto;
  const std::string larguras =
      "b.txt: error layout: found 1 record in fields of other widths, expected the widths of a.txt (the "
      "values are the same)";
  EXPECT_EQ(
      diferencas(a + cabecalho + "1100010\n", b + cabecalho + "11000000010\n"),
      (Textos{
          "b.txt:2:53-61: error field E12.7 \"COO\": found \"000000010\", expected \"00010\" (CRZ 11; line "
          "2 of a.txt)",
          larguras}));
  EXPECT_EQ(
      diferencas(a + cabecalho + "11000010\n", b + cabecalho + "1100000010\n"),
      (Textos{
          "b.txt:2:53-61: error field E12.7 \"COO\": found \"00000010\", expected \"000010\" (CRZ 11; line "
          "2 of a.txt)",
          larguras}));
}

TEST(Comparacao, ALineTooLongToBeKeptIsToldByItsWholeLength) {
  Relatorio r = Relatorio::bom();
  r[8] += std::string(5000000, 'x');
  EXPECT_EQ(contraBom(r),
            (Textos{"b.txt:8: error line E10: found 5000000 bytes \"" + std::string(60, 'x') +
                        "...\" behind the last field, expected nothing (CFD 3; line 8 of a.txt)",
                    "b.txt:8: error line E10: found a line of 5000084 bytes, not all of them compared, "
                    "expected 84 bytes (CFD 3; line 8 of a.txt)"}));
}

TEST(Comparacao, OfALineTooLongToBeKeptItsEndIsNotCompared) {
  const std::string longa = "E10" + std::string(5000000, 'A');
  const Textos ditos = diferencas(longa + "\n", longa + "B\n");
  ASSERT_FALSE(ditos.empty());
  EXPECT_NE(ditos.back().find("error line E10"), std::string::npos) << ditos.back();
  EXPECT_NE(
      ditos.back().find("found a line of 5000004 bytes, not all of them compared, expected 5000003 bytes"),
      std::string::npos)
      << ditos.back();
}

TEST(Comparacao, AFieldThatOnlyOneOfThemHasIsNamed) {
  const std::string com = Relatorio::bom(2)[20], sem = com.substr(0, com.size() - 560 - 84 - 44);
  const Textos aMenos = diferencas(com + '\n', sem + '\n'), aMais = diferencas(sem + '\n', com + '\n');
  const auto diz = [](const Textos& ditos, const std::string& parte) {
    return std::any_of(ditos.begin(), ditos.end(),
                       [&](const std::string& dito) { return dito.find(parte) != std::string::npos; });
  };
  EXPECT_TRUE(diz(aMenos, "\"Texto suplementar\": found no such field, expected \"OBRIGADO"));
  EXPECT_TRUE(diz(aMais, "\"Texto suplementar\": found \"OBRIGADO"));
}

TEST(ChaveNatural, StandsOnEveryFormOfItsRegisterBehindTheHead) {
  const auto formas = Formas::de(kCatalogo);
  for (int r = 0; r < static_cast<int>(kCatalogo.size()); ++r)
    for (const std::int8_t lugar : kCatalogo[static_cast<std::size_t>(r)]->chave)
      for (int ajuste = 0; ajuste < static_cast<int>(kAjustesPossiveis.size()); ++ajuste)
        for (const bool vazio : {false, true}) {
          if (lugar < 0) continue;
          const FormaDoRegistro& uma = formas->em(r, ajuste, vazio);
          const auto tem = [&](const CampoLido& campo) { return campo.numero == lugar + 1; };
          EXPECT_GT(lugar, 2) << uma.registro->codigo;
          EXPECT_TRUE(std::any_of(uma.campos.begin(), uma.campos.end(), tem))
              << uma.registro->codigo << ' ' << lugar;
        }
}

TEST(ChaveNatural, IsThatOfTheLaw) {
  const std::map<std::string, std::vector<std::string>> chaves = {{"E07", {"Versão do software básico"}},
                                                                  {"E09", {"CRO"}},
                                                                  {"E10", {"CFD"}},
                                                                  {"E12", {"CRZ"}},
                                                                  {"E13", {"CRZ", "Totalizador parcial"}},
                                                                  {"E14", {"CCF"}},
                                                                  {"E15", {"COO", "Nº do item"}},
                                                                  {"E16", {"COO"}},
                                                                  {"E17", {"CRZ", "Totalizador não fiscal"}},
                                                                  {"E18", {"CRZ", "Meio de pagamento"}},
                                                                  {"E19", {"GNF"}},
                                                                  {"E20", {"COO", "Nº do item"}},
                                                                  {"E21", {"COO", "Meio de pagamento"}},
                                                                  {"E22", {"Número"}}};
  for (const Registro* registro : kCatalogo) {
    std::vector<std::string> campos;
    for (const std::int8_t lugar : registro->chave)
      if (lugar >= 0) campos.emplace_back(registro->campos[static_cast<std::size_t>(lugar)].rotulo);
    const auto esperada = chaves.find(registro->codigo);
    EXPECT_EQ(campos, esperada == chaves.end() ? std::vector<std::string>() : esperada->second)
        << registro->codigo;
  }
}

}  // namespace
}  // namespace cotepe
