// Where a column ends up, as the registers themselves say it.
#include <gtest/gtest.h>

#include <algorithm>

#include "Achados/Citacao.h"
#include "BancoFiscal/FormasDasTabelas.h"
#include "Conferencia/Celula.h"
#include "Conferencia/Destinos.h"
#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

std::string campos(const char* tabela, const char* coluna, const Alcance& alcance = {}) {
  const std::vector<Destino> destinos = destinosDe(tabela, coluna, alcance);
  std::vector<const Destino*> todos;
  for (const Destino& destino : destinos) todos.push_back(&destino);
  return enumera(todos);
}

TEST(Destinos, AreReadFromTheQueriesAndTheLists) {
  EXPECT_EQ(campos("reducao_z", "cont_crz"), "E01.13, E01.14 and E12.6");
  EXPECT_EQ(campos("reducao_z", "data_movimento"), "E01.15 and E12.9");
  EXPECT_EQ(campos("dados_usuario", "cnpj"), "E01.11, E02.5, E05.5, E06.5, E08.5 and E10.9");
  EXPECT_EQ(campos("reducao_z", "valor_gt"), "E02.12");
  EXPECT_EQ(campos("posicao_totalizadores_contadores", "valor_gt"), "E02.12 and E11.15");
  EXPECT_EQ(campos("totalizador_reducao", "totalizador"), "E13.7 and E17.7");
  EXPECT_EQ(campos("cupom_nf", "cont_gnf"), "E19.7, E20.7 and E21.8");
  EXPECT_EQ(campos("cupom_nf", "tipo_desconto"), "E19.11");
  EXPECT_EQ(campos("tentativas_sb", "2"), "E22.5");
  EXPECT_EQ(campos("cupom_fiscal", "cont_crz"), "");
}

TEST(Destinos, ThatSubstrCutsKnowHowManyCharactersAreLeft) {
  EXPECT_EQ(destinosDe("dados_usuario", "ie", {}).at(0).usados, 14);
  EXPECT_EQ(destinosDe("cupom_fiscal", "nome_consumidor", {}).at(0).usados, 39);
  EXPECT_EQ(destinosDe("cupom_nf", "nome_consumidor", {}).at(0).usados, 0);
}

TEST(Destinos, AreThoseOfTheReportsMeant) {
  EXPECT_EQ(campos("cupom_fiscal", "texto_suplementar"), "E14.20");
  EXPECT_EQ(campos("cupom_fiscal", "texto_suplementar", {"", 1, false}), "");
  EXPECT_EQ(campos("cupom_fiscal", "texto_suplementar", {"", 2, true}), "");
  EXPECT_EQ(campos("cupom_fiscal", "texto_suplementar", {"MF", 2, false}), "");
  EXPECT_EQ(registrosQueLeem("reducao_z", "", {"RZ", 1, false}), "E01, E02, E14, E15 and E16");
  EXPECT_EQ(registrosQueLeem("tentativas_sb", "", {"TDM", 1, false}), "");
}

TEST(Destinos, EveryColumnOfTheFormsIsReadBySomeRegister) {
  for (const FormaDaTabela& tabela : kFormas) {
    if (tabela.porPosicao) continue;
    for (const FormaDaColuna& coluna : tabela.colunas) {
      if (coluna.nome == nullptr) continue;
      const std::string leitores = registrosQueLeem(tabela.nome, coluna.nome, {});
      EXPECT_TRUE(!leitores.empty() || !campos(tabela.nome, coluna.nome).empty())
          << tabela.nome << '.' << coluna.nome;
    }
  }
}

TEST(Destinos, OfANumberAreFieldsOfNumbers) {
  for (const FormaDaTabela& tabela : kFormas)
    for (const FormaDaColuna& coluna : tabela.colunas) {
      if (coluna.nome == nullptr) break;
      if (coluna.forma != FormaDoValor::Inteiro && coluna.forma != FormaDoValor::Dinheiro &&
          coluna.forma != FormaDoValor::Decimal && coluna.forma != FormaDoValor::Cnpj &&
          coluna.forma != FormaDoValor::CpfOuCnpj)
        continue;
      for (const Destino& destino : destinosDe(tabela.nome, coluna.nome, {}))
        EXPECT_TRUE(numerica(destino.campo->especie)) << tabela.nome << '.' << coluna.nome;
    }
}

TEST(Citacao, EscapesWhatCannotBeSeenAndCutsWhatIsLong) {
  EXPECT_EQ(citado("a\nb\tc\rd\x01"), R"("a\nb\tc\rd\x01")");
  EXPECT_EQ(citado("a\"b\\"), R"("a\"b\\")");
  EXPECT_EQ(citado("caf\xC3\xA9 \xE9"), "\"caf\xC3\xA9 \\xE9\"");
  EXPECT_EQ(citado(std::string(40, 'x')), '"' + std::string(40, 'x') + '"');
  EXPECT_EQ(citado(std::string(41, 'x')), '"' + std::string(40, 'x') + "...\" of 41 bytes");
}

TEST(Citacao, KeepsWholeCharactersAndEscapesTheOtherBytes) {
  EXPECT_EQ(citado("\xE2\x82\xAC \xF0\x9F\x98\x80"), "\"\xE2\x82\xAC \xF0\x9F\x98\x80\"");
  EXPECT_EQ(citado("a\xC3"), "\"a\\xC3\"");
  EXPECT_EQ(citado("\xC3("), "\"\\xC3(\"");
  EXPECT_EQ(citado("\xE2\x82("), "\"\\xE2\\x82(\"");
  EXPECT_EQ(citado("\xC1\x81"), "\"\\xC1\\x81\"");
  EXPECT_EQ(citado("\xF5\x80\x80\x80"), "\"\\xF5\\x80\\x80\\x80\"");
}

}  // namespace
}  // namespace cotepe
