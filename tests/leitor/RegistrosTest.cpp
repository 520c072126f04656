// Lines become registers and fields; the file's layout and mode are worked out.
#include <gtest/gtest.h>

#include <stdexcept>

#include "Relatorio.h"

namespace cotepe {
namespace {

/// Reads one report line by line.
class Leitura {
 public:
  explicit Leitura(std::string texto)
      : texto_(std::move(texto)), linhas_{std::string_view(texto_)}, leitor_(linhas_) {}

  RegistroLido& le(int linha) {
    while (lido_.linha.numero < linha && leitor_.proximo(lido_)) {
    }
    EXPECT_EQ(lido_.linha.numero, linha);
    return lido_;
  }
  LeitorDeRegistros& leitor() { return leitor_; }

  std::string campo(const char* rotulo) {
    for (std::size_t i = 0; i < lido_.quantos; ++i)
      if (lido_.campos[i].campo->rotulo == std::string(rotulo)) return std::string(lido_.bytes(i));
    return "no such field";
  }

 private:
  std::string texto_;
  LeitorDeLinhas linhas_;
  LeitorDeRegistros leitor_;
  RegistroLido lido_;
};

const std::string kCabecalho = std::string(20, 'S') + ' ' + std::string(20, 'M');

TEST(LeitorDeRegistros, FieldsStandWhereTheLayoutPutsThem) {
  Leitura um(Relatorio::bom(1).texto()), dois(Relatorio::bom(2).texto());
  um.le(20);
  EXPECT_EQ(um.campo("COO"), "000102");
  EXPECT_EQ(um.campo("Valor total líquido"), "00000000002900");
  EXPECT_EQ(um.campo("Assinatura do documento"), "no such field");
  dois.le(20);
  EXPECT_EQ(dois.campo("COO"), "000000102");
  EXPECT_EQ(dois.campo("Valor total líquido"), "00000000002900");
  EXPECT_EQ(dois.campo("Assinatura do documento"), std::string(43, 'A') + '=');
}

TEST(LeitorDeRegistros, FieldIsFoundByItsLabelAndNothingWhereTheLineHasNone) {
  Leitura leitura(Relatorio::bom(1).texto());
  const RegistroLido& cupom = leitura.le(20);
  EXPECT_EQ(cupom.acha("Nº de fabricação do ECF"), 1U);
  EXPECT_EQ(cupom.bytesDe("COO"), "000102");
  EXPECT_EQ(cupom.acha("Assinatura do documento"), cupom.quantos);
  EXPECT_EQ(cupom.bytesDe("Assinatura do documento"), "");
}

TEST(LeitorDeRegistros, OfAFirstLineThatMayBeOfSeveralShapesTheLikeliestIsTaken) {
  Relatorio relatorio = Relatorio::bom();
  relatorio[1].insert(24, relatorio[1].substr(24, 47));  // as long as without a printer, of six users
  Leitura leitura(relatorio.texto());
  const RegistroLido& lido = leitura.le(1);
  EXPECT_TRUE(lido.medidaCerta);
  EXPECT_EQ(lido.quantos, 21U);
  EXPECT_EQ(lido.bytes(5), "MODELO              ");
  EXPECT_EQ(lido.bytes(8), "MODELO              ");
}

TEST(Forma, RegistersAreKnownByTheirCodesAlone) {
  EXPECT_EQ(kCatalogo.indiceDe("E01"), 0);
  EXPECT_EQ(kCatalogo.indiceDe("E22"), 21);
  for (const char* outro : {"", "E1", "E011", "F01", "E/1", "E:1", "E0/", "E0:", "E00", "E23"})
    EXPECT_LT(kCatalogo.indiceDe(outro), 0) << outro;
}

TEST(Forma, LabelThatARegisterHasNotIsAMistakeInTheProgram) {
  EXPECT_EQ(indiceDe(kE12.campos, "Nº de fabricação do ECF"), 1);
  EXPECT_THROW(indiceDe(kE12.campos, "Assinatura do documento"), std::logic_error);
}

TEST(LeitorDeRegistros, LayoutAndModeComeFromTheLines) {
  Leitura um(Relatorio::bom(1).texto()), dois(Relatorio::bom(2).texto());
  um.le(1);
  EXPECT_EQ(um.leitor().ajuste().versao, 1);
  EXPECT_FALSE(um.leitor().certamenteForaDoCat52());
  dois.le(1);
  EXPECT_EQ(dois.leitor().ajuste().versao, 2);
  EXPECT_FALSE(dois.leitor().certamenteForaDoCat52());
  dois.le(20);
  EXPECT_TRUE(dois.leitor().certamenteForaDoCat52());
  EXPECT_EQ(dois.leitor().ajustes(), 4U);
}

TEST(LeitorDeRegistros, LayoutIsKnownWithoutE01) {
  Leitura leitura("E12" + kCabecalho + "01" + "000010" + "000000105" + "000001" + "20240102" + "20240102" +
                  "200100" + "00000000003800" + "S\n");
  EXPECT_TRUE(leitura.le(1).medidaCerta);
  EXPECT_EQ(leitura.campo("COO"), "000000105");
  EXPECT_EQ(leitura.leitor().ajuste().versao, 2);
}

TEST(LeitorDeRegistros, PlaceholderSaysThatThereIsNoCat52) {
  Leitura leitura("E12" + kCabecalho + "01" + std::string(18, '0') + std::string(22, ' ') +
                  std::string(14, '0') + " \n");
  EXPECT_TRUE(leitura.le(1).vazio);
  EXPECT_TRUE(leitura.leitor().certamenteForaDoCat52());
}

TEST(LeitorDeRegistros, BlankLineOfEighteenIsE07) {
  Leitura leitura(std::string(18, ' ') + '\n' + std::string(17, ' ') + '\n');
  EXPECT_EQ(leitura.le(1).registro, &kE07);
  EXPECT_TRUE(leitura.le(1).vazio);
  EXPECT_TRUE(leitura.le(1).medidaCerta);
  EXPECT_EQ(leitura.campo("Versão do software básico"), std::string(10, ' '));
  EXPECT_EQ(leitura.le(2).registro, nullptr);
}

TEST(LeitorDeRegistros, E07WithItsCodeIsNeverTheBareOne) {
  Leitura leitura("E07" + std::string(15, ' ') + '\n');
  EXPECT_FALSE(leitura.le(1).medidaCerta);
  EXPECT_EQ(leitura.le(1).comprimento, 62);
  EXPECT_EQ(leitura.le(1).quantos, 6U);
}

TEST(LeitorDeRegistros, PlaceholderOfE09HasNoTypeInLayout2) {
  Leitura leitura("E09" + kCabecalho + "000000" + std::string(15, ' ') + "0000" + "000000000" + '\n');
  EXPECT_TRUE(leitura.le(1).vazio);
  EXPECT_EQ(leitura.campo("Tipo de intervenção"), "no such field");
  EXPECT_EQ(leitura.campo("CRZ"), "0000");
  EXPECT_EQ(leitura.campo("COO"), "000000000");
}

TEST(LeitorDeRegistros, TotalOfE11KeepsItsLeadingDigitsInLayout2) {
  Leitura leitura(Relatorio::bom(2).texto());
  leitura.le(9);
  EXPECT_EQ(leitura.campo("Totalizador geral (GT)"), "000000");
  EXPECT_EQ(leitura.campo("Data de geração"), "20240103");
  EXPECT_EQ(leitura.campo("Hora de geração"), "200000");
}

TEST(LeitorDeRegistros, WideNumberMovesTheLaterFields) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(32, 65, "0007", "12345");
  Leitura leitura(relatorio.texto());
  EXPECT_TRUE(leitura.le(32).medidaCerta);
  EXPECT_EQ(leitura.campo("CDC"), "12345");
  EXPECT_EQ(leitura.campo("CRZ"), "000000");
  EXPECT_EQ(leitura.campo("Hora final de emissão"), "090001");
}

TEST(LeitorDeRegistros, E01StandsWithoutSoftwareVersionAndWithTwoUsers) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(1, 72, "01.00.00  ", "");
  Leitura sem(relatorio.texto());
  EXPECT_TRUE(sem.le(1).medidaCerta);
  EXPECT_EQ(sem.campo("Versão do software básico"), "no such field");
  EXPECT_EQ(sem.campo("Comando de geração"), "TDM");

  Relatorio dois = Relatorio::bom();
  dois.troca(1, 99, "11222333000181", "1122233300018199888777000166");
  dois.troca(6, 45, "11222333000181", "1122233300018199888777000166");
  Leitura com(dois.texto());
  EXPECT_TRUE(com.le(1).medidaCerta);
  EXPECT_EQ(com.campo("CRZ final"), "000011");
  EXPECT_EQ(com.le(1).quantos, 19U);
  EXPECT_TRUE(com.le(6).medidaCerta);
  EXPECT_FALSE(Leitura(dois.texto()).le(6).vazio);
}

TEST(LeitorDeRegistros, EachCodingRepeatsTheDatesBeforeIt) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.insere(4, relatorio[3].substr(0, 72) + "20230701" + "090000" + "ABCDEFGHIJ");
  Leitura leitura(relatorio.texto());
  EXPECT_TRUE(leitura.le(4).medidaCerta);
  EXPECT_EQ(leitura.le(4).quantos, 10U);
  EXPECT_EQ(leitura.campo("Codificação do GT"), "ABCDEFGHIJ");
  EXPECT_EQ(leitura.le(4).bytes(7), "20230701");
}

TEST(LeitorDeRegistros, ShortLineHasTheFieldsThatItReaches) {
  Relatorio relatorio = Relatorio::bom();
  relatorio[20].resize(122);
  Leitura leitura(relatorio.texto());
  EXPECT_FALSE(leitura.le(20).medidaCerta);
  EXPECT_EQ(leitura.le(20).comprimento, 191);
  EXPECT_EQ(leitura.campo("Valor total líquido"), "00000000002900");
  EXPECT_EQ(leitura.campo("Cancelado (S/N)"), "");
}

}  // namespace
}  // namespace cotepe
