// Lines twice, lines that are missing and values at their limits: what is told, and what is left alone.
#include <gtest/gtest.h>

#include <cerrno>

#include "Achados/SaidaDeAchados.h"
#include "Leiaute/NumeroFiscal.h"
#include "Relatorio.h"

namespace cotepe {
namespace {

using Achados = std::vector<std::string>;

// What these rules alone say.
Achados soDe(const std::vector<const char*>& nomes, const Relatorio& relatorio) {
  return achados(relatorio.texto(), menos(nomes));
}

TEST(LinhasEstranhas, ASecondFirstLineOrPositionIsNotCompared) {
  for (const int linha : {1, 9}) {
    Relatorio relatorio = Relatorio::bom();
    relatorio.insere(linha + 1, relatorio[linha]);
    relatorio.poe(linha + 1, linha == 1 ? 116 : 105, "000001");
    const Achados ditos = achados(relatorio.texto());
    ASSERT_EQ(ditos.size(), 1U) << linha;
    EXPECT_NE(ditos[0].find(": error register-extra "), std::string::npos) << ditos[0];
  }
}

TEST(LinhasEstranhas, CarriageReturnsAreToldOnce) {
  Relatorio relatorio = Relatorio::bom();
  relatorio[46] += '\r';
  relatorio[47] += '\r';
  EXPECT_EQ(achados(relatorio.texto()).size(), 1U);
}

TEST(LinhasEstranhas, TextThatIsNoRegisterIsNoneWhateverItsLength) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(6, std::string(18, 'x'));
  const Achados ditos = achados(relatorio.texto());
  ASSERT_EQ(ditos.size(), 1U);
  EXPECT_EQ(ditos[0].rfind("r.txt:6: error unknown-register: found \"xxx\"", 0), 0U) << ditos[0];
}

TEST(LinhasEstranhas, AFirstLineOfAnyLengthIsToldByItsLength) {
  Relatorio relatorio = Relatorio::bom();
  relatorio[1] += std::string(300000, 'x');
  const Achados ditos = soDe({"line-length"}, relatorio);
  ASSERT_EQ(ditos.size(), 1U);
  EXPECT_EQ(ditos[0].rfind("r.txt:1: error line-length E01: found 300166 bytes", 0), 0U) << ditos[0];
}

TEST(LinhasEstranhas, ASumOfNothingThatE17HasIsMissing) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.remove(18);
  const Achados ditos = soDe({"reduction-nonfiscal"}, relatorio);
  ASSERT_EQ(ditos.size(), 1U);
  EXPECT_EQ(ditos[0].rfind(
                "r.txt: error reduction-nonfiscal E13.8 \"Valor acumulado\": found 0,00, expected 12,00, "
                "the sum of E17",
                0),
            0U)
      << ditos[0];
}

TEST(LinhasEstranhas, WithoutOneOfTheRegistersOfAReductionItsSumsAreLeftAlone) {
  for (const char* registro : {"E12", "E13", "E17"}) {
    Relatorio relatorio = Relatorio::bom();
    for (int linha = relatorio.quantas(); linha > 0; --linha)
      if (relatorio[linha].substr(0, 3) == registro) relatorio.remove(linha);
    EXPECT_EQ(soDe({"reduction-totals", "reduction-nonfiscal"}, relatorio), Achados()) << registro;
  }
  Relatorio relatorio = Relatorio::bom();
  relatorio.remove(10);
  EXPECT_EQ(soDe({"reduction-totals", "reduction-nonfiscal"}, relatorio), Achados());
}

TEST(LinhasEstranhas, TheSameReductionUnderAnotherCroSharesItsSums) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(11, relatorio[10]);
  relatorio.troca(11, 53, "000105000001", "000205000002");
  EXPECT_EQ(soDe({"reduction-totals", "reduction-nonfiscal", "reduction-document"}, relatorio), Achados());
}

TEST(LinhasEstranhas, FiscalTotalizersStandBeforeTheSums) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.permuta(17, 18);
  EXPECT_EQ(
      soDe({"key-order"}, relatorio),
      Achados{"r.txt:18:53-59: error key-order E13.7 \"Totalizador parcial\": found \"Can-T  \", expected "
              "ascending keys (where counters are stored as texts 9 comes after 11; cotepe check tells)"});
}

TEST(LinhasEstranhas, ItemsOfACouponAscend) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.permuta(23, 24);
  EXPECT_EQ(
      soDe({"key-order"}, relatorio),
      Achados{"r.txt:24:59-61: error key-order E15.8 \"Nº do item\": found \"001\" after \"002\", expected "
              "ascending keys (where counters are stored as texts 9 comes after 11; cotepe check tells)"});
}

TEST(LinhasEstranhas, MeansOfPaymentAreSortedAsTheDatabaseSortsThem) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(37, 53, "DINHEIRO", "D{NHEIRO");
  EXPECT_EQ(soDe({"key-order"}, relatorio), Achados());
}

TEST(LinhasEstranhas, OfACouponThatIsUncertainNoItemIsAnOrphan) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(20, 67, "00000000003000", "0000000000300-");
  relatorio.troca(23, 53, "000031", "000032");
  EXPECT_EQ(soDe({"orphan-record", "coupon-items"}, relatorio), Achados());
}

TEST(LinhasEstranhas, ACouponThatIsThereTwiceHasNoSums) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(21, relatorio[20]);
  relatorio.troca(21, 67, "00000000003000", "00000000004000");
  EXPECT_EQ(soDe({"coupon-items", "coupon-payments", "payments-over", "orphan-record"}, relatorio),
            Achados());
}

TEST(LinhasEstranhas, ACancelledCouponWithItemsHasTheirSum) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(22, 67, "00000000000700", "00000000000800");
  EXPECT_EQ(soDe({"coupon-items"}, relatorio).size(), 1U);
}

TEST(LinhasEstranhas, ASurchargeOrDiscountByTheHundredIsNoAmount) {
  for (const int posicao : {94, 108}) {
    Relatorio relatorio = Relatorio::bom();
    relatorio.troca(39, posicao, "V", "P");
    relatorio.troca(39, 109, "00000000001200", "00000000001100");
    EXPECT_EQ(soDe({"document-total"}, relatorio), Achados()) << posicao;
  }
}

TEST(LinhasEstranhas, APositionMayHaveBegunAgain) {
  Relatorio relatorio = Relatorio::bom();
  for (const int linha : {20, 21, 22}) relatorio.poe(linha, 47, "990031");
  EXPECT_EQ(soDe({"position"}, relatorio), Achados());
  relatorio.troca(9, 69, "000033", "500000");
  EXPECT_EQ(soDe({"position"}, relatorio).size(), 1U);
  for (const int linha : {20, 21, 22}) relatorio.poe(linha, 47, "600031");
  relatorio.troca(9, 69, "500000", "000033");
  EXPECT_EQ(soDe({"position"}, relatorio).size(), 1U);
}

TEST(LinhasEstranhas, APlaceholderNamesItsUserOrNone) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(3, 59, "202306010800000123456789", std::string(24, ' '));
  relatorio.poe(3, 45, std::string(14, '0'));
  EXPECT_EQ(soDe({"identity"}, relatorio), Achados());
  relatorio.poe(3, 45, "11444777000161");
  EXPECT_EQ(soDe({"identity"}, relatorio),
            Achados{"r.txt:3:45-58: error identity E05.5 \"CNPJ do usuário\": found \"11444777000161\", "
                    "expected \"11222333000181\" as in E01 (cotepe verify compares it with the database)"});
}

TEST(LinhasEstranhas, ACodingThatEndsBeforeWhatItRepeatsIsToldItsWholeLength) {
  for (const auto& [linha, esperado] : {std::pair(3, "96"), std::pair(4, "94")}) {
    Relatorio relatorio = Relatorio::bom();
    relatorio.insere(linha + 1, relatorio[linha].substr(0, 30));
    EXPECT_EQ(soDe({"line-length"}, relatorio),
              Achados{"r.txt:" + std::to_string(linha + 1) + ": error line-length " +
                      relatorio[linha].substr(0, 3) + ": found 30 bytes, expected " + esperado +
                      " (an empty flag, a short date or an over-long last text makes it so; cotepe explain "
                      "--db shows the row)"});
  }
}

TEST(LinhasEstranhas, AZeroByteIsNoLetter) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.poe(20, 123, std::string(1, '\0'));
  EXPECT_EQ(soDe({"field-letter"}, relatorio).size(), 1U);
}

TEST(LinhasEstranhas, OfAReportThatCannotBeReadToItsEndNothingIsMissing) {
  const std::string texto = Relatorio::bom().texto();
  bool lido = false;
  LeitorDeLinhas linhas([&](char* destino, std::size_t /*tamanho*/) -> long {
    errno = EIO;
    if (lido) return -1;
    lido = true;
    return static_cast<long>(texto.copy(destino, 1000));
  });
  struct : RecebeAchados {
    Achados textos;
    void recebe(const Achado& achado) override { textos.push_back(textoDoAchado(achado)); }
  } coletor;
  Validacao(coletor, {"r.txt", {}}).valida(linhas);
  for (const std::string& dito : coletor.textos)
    EXPECT_EQ(dito.find("register-missing"), std::string::npos) << dito;
}

TEST(NumeroFiscal, EachCheckDigitCounts) {
  EXPECT_TRUE(cnpjValido("11222333000181"));
  EXPECT_TRUE(cpfValido("00052998224725"));
  for (const char* errado : {"11222333000191", "11222333000182", "1122233300018"})
    EXPECT_FALSE(cnpjValido(errado));
  for (const char* errado : {"00052998224735", "00052998224726", "10052998224725"})
    EXPECT_FALSE(cpfValido(errado));
}

}  // namespace
}  // namespace cotepe
