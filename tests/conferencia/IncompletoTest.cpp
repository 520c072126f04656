// A database without a table or a column, reports that need less of it, and dates at their limits.
#include <utility>

#include "BancoLimpo.h"

namespace cotepe::testes {
namespace {

bool tem(const std::string& texto, const std::string& parte) {
  return texto.find(parte) != std::string::npos;
}

TEST(Verificador, WithoutATableThatOthersReferToNothingElseIsTold) {
  for (const std::string tabela : {"reducao_z", "cupom_fiscal", "cupom_nf", "outros_documentos",
                                   "totalizador_nao_fiscal", "meio_pagamento"}) {
    const Linhas achados = depoisDe("DROP TABLE " + tabela);
    ASSERT_EQ(achados.size(), 1U) << tabela;
    EXPECT_EQ(achados[0].rfind(tabela + ": error table-missing ", 0), 0U) << achados[0];
  }
}

// Of those by which rows find each other, each is asked for in more than one place.
TEST(Verificador, AColumnThatIsMissingIsToldAndNotAskedFor) {
  const std::vector<std::pair<std::string, std::string>> colunas = {
      {"cupom_fiscal", "cont_coo"},
      {"cupom_nf", "cont_coo"},
      {"outros_documentos", "cont_coo"},
      {"pagamento_cupom", "cont_coo"},
      {"totalizador_reducao", "cont_crz"},
      {"totalizador_reducao", "valor_base_calculo"},
      {"totalizador_reducao", "id_fiscal"},
      {"item_cupom_fiscal", "seq_item"},
      {"reducao_z", "cont_crz"},
      {"meio_pagamento", "num_indice"}};
  for (const auto& [tabela, coluna] : colunas) {
    const Linhas achados = depoisDe("ALTER TABLE " + tabela + " RENAME COLUMN " + coluna + " TO outra");
    ASSERT_FALSE(achados.empty()) << tabela << '.' << coluna;
    EXPECT_EQ(achados[0].rfind(tabela + '.' + coluna + ": error column-missing ", 0), 0U) << achados[0];
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
    OpcoesDaConferencia opcoes;
    opcoes.alcance = alcance;
    EXPECT_EQ(BancoLimpo().achados(opcoes), Linhas()) << alcance.comando;
  }
}

TEST(Verificador, WithEveryRuleOffNothingIsTold) {
  const char* const kDanos =
      "DROP TABLE moeda; DROP INDEX i06; UPDATE cupom_nf SET id_cancelado = '', cont_crz = 3, cont_coo = 11;"
      "INSERT INTO totalizador_reducao SELECT * FROM totalizador_reducao; UPDATE fita_detalhe SET cont_cfd = "
      "'x'";
  EXPECT_GT(depoisDe(kDanos).size(), 5U);
  OpcoesDaConferencia opcoes;
  for (const Regra* regra : conferencia::kRegras) opcoes.desligadas.desliga(*regra);
  EXPECT_EQ(depoisDe(kDanos, opcoes), Linhas());
}

TEST(Verificador, WhatAReportDoesNotReadItDoesNotMiss) {
  OpcoesDaConferencia opcoes;
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
