// A whole run: which registers a command writes, whose printer it is, which days it covers.
#include <gtest/gtest.h>

#include <cstring>

#include "Bancada.h"
#include "Identidade.h"

namespace {

// The register codes of a report, each once where its lines follow one another.
std::string codigos(const std::vector<std::string>& linhas) {
  std::string todos, anterior;
  for (const std::string& linha : linhas) {
    const std::string codigo = posicoes(linha, 1, 3);
    if (codigo != anterior) todos += (todos.empty() ? "" : " ") + codigo;
    anterior = codigo;
  }
  return todos;
}

// One row for the two registers that the placeholder does not show.
void comTodosOsRegistros(Bancada& bancada) {
  bancada.comIdentidade();
  bancada.sql(
      "INSERT INTO versao_sb VALUES('1.0','2023-12-30 23:58:57',1);"
      "INSERT INTO tentativas_sb VALUES(1,'','2023-12-30 23:58:57','')");
}

TEST(Comando, ChoosesTheRegistersOfTheFileAndTheirOrder) {
  const struct {
    const char* comando;
    int versao;
    const char* registros;
  } kCasos[] = {
      {"MF", 1, "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13"},
      {"MF", 2, "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13 E22"},
      {"MF", 3, "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13"},
      {"TDM", 1, "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21"},
      {"TDM", 2, "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21 E22"},
      {"TDM", 3, "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21"},
      {"MFD", 1, "E01 E02 E14 E15 E16 E17 E18 E19 E20 E21"},
      {"MFD", 2, "E01 E02 E14 E15 E16 E17 E18 E19 E20 E21"},
      {"RZ", 1, "E01 E02 E14 E15 E16"},
      {"RZ", 2, "E01 E02 E14 E15 E16"},
  };
  for (const auto& caso : kCasos) {
    Bancada bancada;
    comTodosOsRegistros(bancada);
    EXPECT_EQ(codigos(bancada.versao(caso.versao).gera(caso.comando)), caso.registros)
        << caso.comando << " " << caso.versao;
    EXPECT_EQ(bancada.resultado, 0);
    EXPECT_TRUE(g_mensagens.empty());
  }
}

TEST(Comando, AnyOtherTextGivesPrinterAndUserOnly) {
  Bancada bancada;
  comTodosOsRegistros(bancada);
  for (const char* comando :
       {"",     "mf",   "Mf",   "mfd",  "tdm",   "rz",  "M", "MF ", " MF",    "MFX",
        "MFDX", "MFD ", "TDMX", "TDM2", "TDM\n", "RZZ", "R", "XYZ", "MFDTDM", "TDMTDMTDMTDMTDM"}) {
    for (const int versao : {1, 2})
      EXPECT_EQ(codigos(bancada.versao(versao).gera(comando)), "E01 E02") << "[" << comando << "] " << versao;
    EXPECT_EQ(bancada.resultado, 0);
  }
}

TEST(Comando, FieldOfTheObjectHoldsItsFirstThreeCharacters) {
  Bancada bancada;
  comTodosOsRegistros(bancada);
  EXPECT_EQ(posicoes(bancada.gera("TDMX").front(), 113, 121), "TDM000000");
  EXPECT_EQ(CotepeManagerTest::comando(bancada.gerador()), "TDM");
  bancada.gera("RZ");
  EXPECT_EQ(CotepeManagerTest::comando(bancada.gerador()), "RZ");
}

TEST(Comando, NoneWritesE03OrE04) {
  Bancada bancada;
  comTodosOsRegistros(bancada);
  for (const char* comando : {"MF", "MFD", "TDM", "RZ", ""})
    for (const int versao : {1, 2})
      for (const std::string& linha : bancada.versao(versao).gera(comando)) {
        EXPECT_NE(posicoes(linha, 1, 3), "E03");
        EXPECT_NE(posicoes(linha, 1, 3), "E04");
      }
}

TEST(Comando, EmptyDatabaseWithEveryTableYieldsPlaceholders) {
  Bancada bancada;
  EXPECT_EQ(codigos(bancada.gera("TDM")),
            "E01 E05 E06     E08 E09 E10 E11 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21");
  EXPECT_EQ(codigos(bancada.cat52(true).gera("TDM")), "E01 E05 E06     E08 E11 E13");
  EXPECT_TRUE(g_mensagens.empty());
}

// Serial number and model as the object holds them, and the user, after a run over `linhas` of dados_ecf
// (serial, model) and `usuarios` of dados_usuario (number).
struct Identidade {
  std::string serie, modelo, usuario;
  friend bool operator==(const Identidade& a, const Identidade& b) {
    return a.serie == b.serie && a.modelo == b.modelo && a.usuario == b.usuario;
  }
  friend std::ostream& operator<<(std::ostream& saida, const Identidade& i) {
    return saida << "[" << i.serie << "] [" << i.modelo << "] [" << i.usuario << "]";
  }
};

Identidade identidadeDe(Bancada& bancada) {
  bancada.gera("");
  EXPECT_EQ(bancada.resultado, 0);
  return {CotepeManagerTest::nrFabricacao(bancada.gerador()), CotepeManagerTest::modelo(bancada.gerador()),
          CotepeManagerTest::usuario(bancada.gerador())};
}

Identidade identidadeDe(const std::string& impressoras, const std::string& usuarios) {
  SCOPED_TRACE(impressoras + " / " + usuarios);
  Bancada bancada;
  std::memcpy(g_Serial, "SERIE DO HOSPEDE", 17);
  std::memcpy(g_Modelo, "MODELO DO HOSPEDE", 18);
  if (!impressoras.empty()) bancada.sql("INSERT INTO dados_ecf(num_serie, modelo) VALUES" + impressoras);
  if (!usuarios.empty()) bancada.sql("INSERT INTO dados_usuario(seq_usuario) VALUES" + usuarios);
  return identidadeDe(bancada);
}

TEST(IdentidadeDoEcf, DatabaseGoesBeforeTheHost) {
  EXPECT_EQ(identidadeDe("('S1','M1')", "('7')"), (Identidade{"S1", "M1", "7"}));
}

TEST(IdentidadeDoEcf, HostsSurvivesWhereTheDatabasesTextIsEmpty) {
  EXPECT_EQ(identidadeDe("('','M1')", "('7')"), (Identidade{"SERIE DO HOSPEDE", "M1", "7"}));
  EXPECT_EQ(identidadeDe("('S1','')", "('7')"), (Identidade{"S1", "MODELO DO HOSPEDE", "7"}));
  EXPECT_EQ(identidadeDe("(NULL,NULL)", "('7')"), (Identidade{"SERIE DO HOSPEDE", "MODELO DO HOSPEDE", "7"}));
}

TEST(IdentidadeDoEcf, WithoutAPrinterTheHostsIsUsedAndTheUserIsEmpty) {
  EXPECT_EQ(identidadeDe("", "('7')"), (Identidade{"SERIE DO HOSPEDE", "MODELO DO HOSPEDE", ""}));
}

TEST(IdentidadeDoEcf, WithoutAUserTheNumberIsEmpty) {
  EXPECT_EQ(identidadeDe("('S1','M1')", ""), (Identidade{"S1", "M1", ""}));
}

TEST(IdentidadeDoEcf, LastRowWins) {
  EXPECT_EQ(identidadeDe("('S1','M1'),('S2','M2')", "('7')"), (Identidade{"S2", "M2", "7"}));
  EXPECT_EQ(identidadeDe("('S1','M1')", "('7'),('8'),('9')"), (Identidade{"S1", "M1", "9"}));
}

TEST(IdentidadeDoEcf, EmptyTextsDoNotReplaceThoseOfAnEarlierRowButTheUsersNumberDoes) {
  EXPECT_EQ(identidadeDe("('S1','M1'),('S2','')", "('7')"), (Identidade{"S2", "M1", "7"}));
  EXPECT_EQ(identidadeDe("('S1','M1'),('',NULL)", "('7')"), (Identidade{"S1", "M1", "7"}));
  EXPECT_EQ(identidadeDe("('S1','M1')", "('7'),('')"), (Identidade{"S1", "M1", ""}));
  EXPECT_EQ(identidadeDe("('S1','M1')", "('7'),(NULL)"), (Identidade{"S1", "M1", ""}));
}

TEST(IdentidadeDoEcf, OverlongTextsAreCutToTheirFields) {
  EXPECT_EQ(identidadeDe("('SERIE67890123456789012345','MODELO7890123456789012345')", "('123')"),
            (Identidade{"SERIE678901234567890", "MODELO78901234567890", "12"}));
}

TEST(IdentidadeDoEcf, HostsTextsWithoutTerminatorAreCutToTheirFields) {
  Bancada bancada;
  std::memcpy(g_Serial, "SERIE6789012345678901234567890", sizeof g_Serial);
  std::memcpy(g_Modelo, "MODELO789012345678901234567890", sizeof g_Modelo);
  EXPECT_EQ(identidadeDe(bancada), (Identidade{"SERIE678901234567890", "MODELO78901234567890", ""}));
}

TEST(IdentidadeDoEcf, FillsItsFieldsInTheHeadOfTheRecords) {
  Bancada bancada;
  bancada.sql(
      "INSERT INTO dados_ecf(num_serie, modelo) VALUES('SERIE678901234567890','MODELO78901234567890');"
      "INSERT INTO dados_usuario(seq_usuario) VALUES('98')");
  const auto linhas = bancada.gera("MF");
  EXPECT_EQ(posicoes(linhas.front(), 1, 24), "E01SERIE678901234567890 ");
  EXPECT_EQ(posicoes(linhas.back(), 1, 46), "E13SERIE678901234567890 MODELO7890123456789098");
}

TEST(IdentidadeDoEcf, IsFoundAnewInEachRun) {
  Bancada bancada;
  bancada.comIdentidade();
  EXPECT_EQ(identidadeDe(bancada), (Identidade{"SERIAL", "MODELO", "1"}));
  bancada.sql("DELETE FROM dados_ecf; DELETE FROM dados_usuario");
  EXPECT_EQ(identidadeDe(bancada), (Identidade{"", "", ""}));
}

TEST(Periodo, RunsFromTheFirstSecondToTheLast) {
  CotepeManager gerador(nullptr);
  EXPECT_EQ(CotepeManagerTest::periodo(gerador, "01022024", "29022024"),
            "2024-02-01 00:00:00 / 2024-02-29 23:59:59");
}

TEST(Periodo, CharactersAreTakenAsTheyStand) {
  CotepeManager gerador(nullptr);
  EXPECT_EQ(CotepeManagerTest::periodo(gerador, "abcdefgh", "99999999"),
            "efgh-cd-ab 00:00:00 / 9999-99-99 23:59:59");
}

TEST(Periodo, OfALongerTextTheFirstEightCharactersCount) {
  CotepeManager gerador(nullptr);
  EXPECT_EQ(CotepeManagerTest::periodo(gerador, "01022024 e mais", "290220245"),
            "2024-02-01 00:00:00 / 2024-02-29 23:59:59");
}

TEST(Periodo, QuoteInADayFailsTheQueriesOfThePeriodAndTheRunGoesOn) {
  Bancada bancada;
  bancada.comIdentidade();
  EXPECT_EQ(codigos(bancada.periodo("0'012024", "31012024").gera("RZ")), "E02");
  EXPECT_EQ(bancada.resultado, 0);
  EXPECT_EQ(g_mensagens, (std::vector<std::string>{"Erro no select 4 - TipoE01", "Erro no select - TipoE14",
                                                   "Erro no select - TipoE15", "Erro no select - TipoE16"}));
}

TEST(Versao, IsOneAtFirstAndKeptAsItIsSet) {
  CotepeManager gerador(nullptr);
  EXPECT_EQ(gerador.getVersaoAtoCotepe(), 1);
  for (const int versao : {2, 3, 0, -1, 1}) {
    gerador.setVersaoAtoCotepe(versao);
    EXPECT_EQ(gerador.getVersaoAtoCotepe(), versao);
  }
}

TEST(Cat52, IsOffAtFirstAndKeptAsItIsSet) {
  CotepeManager gerador(nullptr);
  EXPECT_FALSE(gerador.isCAT52());
  gerador.setCAT52(true);
  EXPECT_TRUE(gerador.isCAT52());
  gerador.setCAT52(false);
  EXPECT_FALSE(gerador.isCAT52());
}

TEST(Gerador, RunsManyTimesAndEachRunStandsAlone) {
  Bancada bancada;
  comTodosOsRegistros(bancada);
  bancada.sql(
      "INSERT INTO reducao_z(cont_crz, cont_coo, data_movimento) VALUES"
      "(1,1234567,'2024-01-15 00:00:00'),(2,2345678,'2024-02-15 00:00:00')");
  const auto coos = [&](int versao, const char* inicial, const char* final) {
    std::string todos;
    for (const auto& linha : bancada.versao(versao).periodo(inicial, final).gera("MF"))
      if (posicoes(linha, 1, 3) == "E12") todos += posicoes(linha, 47, 61) + " ";
    return todos;
  };
  EXPECT_EQ(coos(1, "01012024", "31012024"),
            "000001"
            "234567"
            "000 ");
  EXPECT_EQ(coos(2, "01022024", "29022024"),
            "000002"
            "002345678"
            " ");
  EXPECT_EQ(coos(2, "01012024", "29022024"),
            "000001"
            "001234567"
            " "
            "000002"
            "002345678"
            " ");
  EXPECT_EQ(coos(1, "01012024", "31012024"),
            "000001"
            "234567"
            "000 ");
}

constexpr char kTodasAsTabelas[] = R"(
  INSERT INTO dados_ecf VALUES(@,@,@,@,@);
  INSERT INTO dados_usuario VALUES(@,@,@,@,@,@,@,@);
  INSERT INTO versao_sb VALUES(@,@,1);
  INSERT INTO tentativas_sb VALUES(@,@,@,@);
  INSERT INTO codificacao_gt VALUES(@,@);
  INSERT INTO moeda VALUES(@,@);
  INSERT INTO intervencao VALUES(@,@,@,@,@,@);
  INSERT INTO fita_detalhe VALUES(@,'2024-01-15 00:00:00',@,@);
  INSERT INTO posicao_totalizadores_contadores VALUES(@,@,@,@,@,@,@,@);
  INSERT INTO reducao_z VALUES(1,@,@,'2024-01-15 00:00:00',@,@,@);
  INSERT INTO totalizador_reducao VALUES(1,@,@,'S'),(1,@,@,'N');
  INSERT INTO meio_pagamento_reducao VALUES(1,@,@);
  INSERT INTO cupom_fiscal VALUES(@,2,1,@,@,@,@,@,@,@,@,@,@,@,@,@,@,@,@);
  INSERT INTO item_cupom_fiscal VALUES(2,@,@,@,@,@,@,@,@,@,@,@,@,@,@,@,@,@);
  INSERT INTO outros_documentos VALUES(@,@,@,@,1,@,@);
  INSERT INTO cupom_nf VALUES(3,@,1,@,@,@,@,@,@,@,@,@,@,@);
  INSERT INTO item_cupom_nf VALUES(3,@,1,@,@,@,@,@,@);
  INSERT INTO totalizador_nao_fiscal VALUES(1,@);
  INSERT INTO pagamento_cupom VALUES(2,1,@,@,@),(3,1,@,@,@);
  INSERT INTO meio_pagamento VALUES(1,@);
)";

// Every table with one row, every column but the keys being `valor`.
void encheTudo(Bancada& bancada, const std::string& valor) {
  std::string texto = kTodasAsTabelas;
  for (std::size_t i = 0; (i = texto.find('@', i)) != std::string::npos; i += valor.size())
    texto.replace(i, 1, valor);
  bancada.sql(texto);
}

const std::string kTodos = "E01 E02 E05 E06 E07 E08 E09 E10 E11 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21 E22";

TEST(Gerador, NullsEverywhereAreEmptyTexts) {
  Bancada bancada;
  encheTudo(bancada, "NULL");
  const auto linhas = bancada.versao(2).gera("TDM");
  EXPECT_EQ(bancada.resultado, 0);
  EXPECT_TRUE(g_mensagens.empty());
  EXPECT_EQ(codigos(linhas), kTodos);
  EXPECT_EQ(linhas.back(), "E22" + brancos(40) + "0000");
}

TEST(Gerador, TextsOfAHundredThousandCharactersNeverOverflow) {
  Bancada bancada;
  encheTudo(bancada, "'" + std::string(100000, '9') + "'");
  for (const int versao : {1, 2})
    for (const bool cat52 : {false, true}) {
      const auto linhas = bancada.versao(versao).cat52(cat52).gera("TDM");
      EXPECT_EQ(bancada.resultado, 0);
      EXPECT_EQ(codigos(linhas), versao == 2 ? kTodos : kTodos.substr(0, kTodos.size() - 4));
      EXPECT_EQ(linhas[0].size(), 166U);
      EXPECT_EQ(linhas[1].size(), 272U);
      EXPECT_EQ(linhas[2].size(), 100072U);  // E05, its coding as it stands
      EXPECT_EQ(linhas[3].size(), 100072U);  // E06, its symbol as it stands
      EXPECT_EQ(linhas[4].size(), 62U);
      EXPECT_EQ(linhas[5].size(), 78U);
      EXPECT_EQ(linhas[6].size(), versao == 2 ? 79U : 100064U);  // E09, its flag last in layout 1
    }
  EXPECT_TRUE(g_mensagens.empty());
}

}  // namespace
