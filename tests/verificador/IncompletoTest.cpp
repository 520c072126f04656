// A database without a table or a column, reports that need less of it, and dates at their limits.
#include "Banco.h"
#include "Verificacao/Partes.h"

namespace cotepe::testes {
namespace {

bool tem(const std::string& texto, const std::string& parte) {
  return texto.find(parte) != std::string::npos;
}

TEST(Verificador, WithoutATableNothingElseIsToldThanThatItIsMissing) {
  for (const FormaDaTabela& tabela : kFormas) {
    const Linhas achados = depoisDe(std::string("DROP TABLE ") + tabela.nome);
    ASSERT_EQ(achados.size(), 1U) << tabela.nome;
    EXPECT_EQ(achados[0].rfind(std::string(tabela.nome) + ": error table-missing ", 0), 0U) << achados[0];
  }
}

// Of the columns by which rows find each other, each is asked for in more than one place.
TEST(Verificador, AColumnThatIsMissingIsToldAndNotAskedFor) {
  for (const FormaDaTabela& tabela : kFormas) {
    if (tabela.porPosicao) continue;
    for (const FormaDaColuna& coluna : tabela.colunas) {
      if (coluna.nome == nullptr) break;
      const std::string nome = coluna.nome, lugar = std::string(tabela.nome) + '.' + nome;
      if (nome.rfind("cont_c", 0) != 0 && nome.find("indice") == std::string::npos && nome != "seq_item" &&
          lugar.rfind("totalizador_reducao", 0) != 0)
        continue;
      const Linhas achados =
          depoisDe("ALTER TABLE " + std::string(tabela.nome) + " RENAME COLUMN " + nome + " TO outra");
      ASSERT_FALSE(achados.empty()) << lugar;
      EXPECT_EQ(achados[0].rfind(lugar + ": error column-missing ", 0), 0U) << achados[0];
    }
  }
}

TEST(Verificador, WithoutTheColumnsOfTheKeyARowIsTellableByTheOthersAlone) {
  const Linhas semChave = depoisDe(
      "ALTER TABLE item_cupom_nf RENAME COLUMN cont_coo TO outra; UPDATE item_cupom_nf SET id_cancelado = "
      "'X'");
  ASSERT_EQ(semChave.size(), 2U);
  EXPECT_TRUE(tem(semChave[1], "item_cupom_nf[seq_item=1].id_cancelado: error code-unknown ")) << semChave[1];
}

TEST(Verificador, ACleanDatabaseIsCleanForEveryReport) {
  for (const Alcance& alcance : {Alcance{"", 0, true}, Alcance{"MF", 1, false}, Alcance{"MFD", 2, true},
                                 Alcance{"TDM", 2, false}, Alcance{"RZ", 1, true}}) {
    OpcoesDaVerificacao opcoes;
    opcoes.alcance = alcance;
    EXPECT_EQ(BancoLimpo().achados(opcoes), Linhas()) << alcance.comando;
  }
}

TEST(Verificador, WhatAReportDoesNotReadItDoesNotMiss) {
  OpcoesDaVerificacao opcoes;
  opcoes.alcance = {"MF", 1, false};
  EXPECT_EQ(
      depoisDe("DROP TABLE pagamento_cupom; DROP TABLE outros_documentos; DROP TABLE tentativas_sb", opcoes),
      Linhas());
}

TEST(Verificador, DaysAndHoursAreHeldToTheCalendar) {
  const std::string muda = "UPDATE intervencao SET data_hora_intervencao = '";
  for (const char* impossivel :
       {"0000-12-01 10:00:00", "2023-00-01 10:00:00", "2023-13-01 10:00:00", "2023-12-00 10:00:00",
        "2023-04-31 10:00:00", "1900-02-29 10:00:00", "2023-12-01 10:60:00", "2023-12-01 10:00:60"})
    EXPECT_EQ(depoisDe(muda + impossivel + '\''),
              Linhas{"intervencao[cont_cro=1].data_hora_intervencao: error date-impossible E09.6 \"Data da "
                     "intervenção\": found \"" +
                     std::string(impossivel) + "\", expected a day and an hour that exist (correct it)"});
  for (const char* ultimo : {"0001-01-01 00:00:00", "2000-02-29 23:59:59"})
    EXPECT_EQ(depoisDe(muda + ultimo + '\''), Linhas()) << ultimo;
}

TEST(Verificador, ControlCharactersThatAFieldBlanksAreNoFinding) {
  const std::string muda = "UPDATE cupom_fiscal SET texto_suplementar = ";
  EXPECT_EQ(depoisDe(muda + "'A' || char(10) || 'B'"), Linhas());
  const Linhas achados = depoisDe(muda + "'A' || char(10, 127)");
  ASSERT_EQ(achados.size(), 1U);
  EXPECT_TRUE(tem(achados[0], "found \"A\\n\\x7F\", whose control character goes into the line"))
      << achados[0];
}

}  // namespace
}  // namespace cotepe::testes
