// cotepe explain: values that come from no row of their own, or from one that cannot be named.
#include <algorithm>
#include <cstring>
#include <utility>

#include "Cena.h"

namespace {

/// A report of base.db in r.txt, and where its fields come from.
class ExplainOrigem : public Cena {
 protected:
  void gera(const std::string& sql, const std::vector<std::string>& mais = {}) {
    criaBanco(sql);
    std::vector<std::string> todos = {"--quiet", "--output", "r.txt"};
    todos.insert(todos.end(), mais.begin(), mais.end());
    ASSERT_EQ(Cena::gera(todos).situacao, 0);
    const std::string texto = leArquivo(em("r.txt"));
    for (std::size_t i = 0; i < texto.size(); i = texto.find('\n', i) + 1)
      linhas_.push_back(texto.substr(i, texto.find('\n', i) - i));
  }

  /// What is printed last of the field with the byte in the first line of a register, or `depois` lines
  /// behind it: its source.
  std::string origem(const std::string& codigo, int byte, std::size_t depois = 0) const {
    std::size_t numero = depois;
    while (numero < linhas_.size() && linhas_[numero - depois].rfind(codigo, 0) != 0) ++numero;
    const Fim fim = roda(
        {"explain", "r.txt:" + std::to_string(numero + 1) + ':' + std::to_string(byte), "--db", "base.db"},
        pasta());
    EXPECT_EQ(fim.situacao, 0) << fim.erros;
    return fim.saida.substr(fim.saida.rfind("  from:"));
  }

  std::vector<std::string> linhas_;
};

TEST_F(ExplainOrigem, ATypeThatTheDatabaseDoesNotHaveIsTheApplications) {
  gera("UPDATE dados_ecf SET tipo = ''");
  EXPECT_EQ(origem("E01", 25), "  from:    the application: dados_ecf.tipo is empty\n");
}

TEST_F(ExplainOrigem, ATextThatTheQueryItselfHasIsSaidSo) {
  gera("INSERT INTO totalizador_reducao VALUES (11, 'SANGRIA', 20.5, 'N')", {"--cat52"});  // no placeholder
  EXPECT_EQ(origem("E13", 53), "  from:    the query: it is the constant 'OPNF' there\n");
}

TEST_F(ExplainOrigem, WithoutAPositionTheGrandTotalIsTheUsers) {
  gera("DELETE FROM posicao_totalizadores_contadores");
  EXPECT_EQ(origem("E02", 253), "  from:    dados_usuario.valor_gt, rowid 1: 10.5\n");
}

TEST_F(ExplainOrigem, OfTheFiscalMemoryAloneTheGrandTotalIsTheReductions) {
  gera("", {"--command", "MF"});
  EXPECT_EQ(origem("E02", 253),
            "  from:    reducao_z.valor_gt, row cont_crz=12, cont_cro=1 (rowid 2): 3.75\n");
}

TEST_F(ExplainOrigem, AGrandTotalTooLongForTheQueryIsTheUsers) {
  gera(
      "PRAGMA ignore_check_constraints = 1; INSERT INTO posicao_totalizadores_contadores VALUES "
      "(12, 1, 102, 0, 0, 0, 0, '1234567890123456.789')");
  EXPECT_EQ(origem("E02", 253), "  from:    dados_usuario.valor_gt, rowid 1: 10.5\n");
}

TEST_F(ExplainOrigem, WithoutTheTableOfPositionsTheUsersGrandTotalIsStillFound) {
  gera("");
  Banco(em("base.db")).sql("DROP TABLE posicao_totalizadores_contadores");
  EXPECT_EQ(origem("E02", 253), "  from:    dados_usuario.valor_gt, rowid 1: 10.5\n");
}

TEST_F(ExplainOrigem, AQueryThatFailsWithoutAMessageIsNamed) {
  gera("INSERT INTO posicao_totalizadores_contadores VALUES (12, 1, 102, 0, 0, 0, 0, 99.25)");
  Banco(em("base.db")).sql("DROP TABLE posicao_totalizadores_contadores");
  const Fim fim = roda({"explain", "r.txt:2:253", "--db", "base.db"}, pasta());
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros,
            "cotepe: error: cannot find the rows of the line in base.db: no such table: "
            "posicao_totalizadores_contadores; E02 is read from it: cotepe check says what is missing\n");
}

TEST_F(ExplainOrigem, WithoutAUserTheCnpjHasNoRow) {
  gera("DELETE FROM dados_usuario");
  EXPECT_EQ(origem("E01", 99), "  from:    no row: the query has none\n");
  EXPECT_EQ(origem("E08", 45), "  from:    no row: the query has none\n");
}

TEST_F(ExplainOrigem, OfASurchargeAloneTheOrderIsTheSurcharges) {
  gera(
      "INSERT INTO cupom_nf (cont_coo, cont_gnf, cont_crz, data_hora_emissao, valor_subtotal, "
      "valor_desconto, "
      "tipo_desconto, valor_acrescimo, tipo_acrescimo, valor_total_cupom, id_cancelado, "
      "valor_canc_acrescimo) "
      "VALUES (103, 7, 12, '2024-01-11 12:00:00', 20, 0, 'V', 1.5, 'V', 21.5, 'N', 0)");
  EXPECT_EQ(origem("E19", 137), "  from:    cupom_nf.valor_acrescimo, row cont_coo=103 (rowid 103): 1.5\n");
}

TEST_F(ExplainOrigem, TheSumOfMoreThanTenRowsNamesTheFirstTen) {
  gera(
      "INSERT INTO totalizador_reducao WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT "
      "11) SELECT 11, 'OPERACAO ' || i, 1.5, 'N' FROM n",
      {"--cat52"});  // no placeholder
  EXPECT_EQ(
      origem("E13", 72),
      "  from:    the sum of totalizador_reducao.valor_base_calculo, 11 rows (rowid 1, 2, 3, 4, 5, 6, 7, "
      "8, 9, 10, ...)\n");
}

TEST_F(ExplainOrigem, TheSumOfAViewHasNoRowids) {
  gera(
      "INSERT INTO totalizador_reducao WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT "
      "11) SELECT 11, 'OPERACAO ' || i, 1.5, 'N' FROM n;"
      "ALTER TABLE totalizador_reducao RENAME TO guardada;"
      "CREATE VIEW totalizador_reducao AS SELECT * FROM guardada",
      {"--cat52"});
  EXPECT_EQ(origem("E13", 72), "  from:    the sum of totalizador_reducao.valor_base_calculo, 11 rows\n");
}

// A coupon and a document of one COO, both with the counter that the other's query has for none.
TEST_F(ExplainOrigem, OfEqualLinesOfBothHalvesOfAQueryEachHasItsOwn) {
  gera(
      "PRAGMA ignore_check_constraints = 1;"
      "INSERT INTO meio_pagamento VALUES (1, 'DINHEIRO');"
      "INSERT INTO pagamento_cupom (cont_coo, indice_meio_pagamento, valor_pagamento, id_estornado, "
      "valor_estornado) VALUES (103, 1, 20, 'N', 0);"
      "INSERT INTO cupom_fiscal (cont_coo, cont_ccf, cont_crz, data_hora_emissao, valor_subtotal, "
      "valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado) VALUES (103, "
      "CAST('000000000' AS BLOB), 12, '2024-01-11 12:00:00', 20, 0, 0, 20, 0, 'N');"
      "INSERT INTO cupom_nf (cont_coo, cont_gnf, cont_crz, data_hora_emissao, valor_subtotal, "
      "valor_desconto, "
      "tipo_desconto, valor_acrescimo, tipo_acrescimo, valor_total_cupom, id_cancelado, "
      "valor_canc_acrescimo) "
      "VALUES (103, CAST('000000000' AS BLOB), 12, '2024-01-11 12:00:00', 20, 0, 'V', 0, 'V', 20, 'N', 0)");
  EXPECT_EQ(origem("E21", 59), "  from:    the query: it is the constant '000000000' there\n");
  EXPECT_EQ(origem("E21", 59, 1),
            "  from:    cupom_nf.cont_gnf, row cont_coo=103 (rowid 103): X'303030303030303030'\n");
}

TEST_F(ExplainOrigem, AttemptsOfFiveColumnsHaveTheirRow) {
  gera(
      "ALTER TABLE tentativas_sb ADD COLUMN outra;"
      "INSERT INTO tentativas_sb VALUES (3, 'x', '2024-01-02 03:04:05', 'N', 'y')",
      {"--layout", "2"});
  EXPECT_EQ(origem("E22", 48), "  from:    tentativas_sb.data_hora, rowid 1: '2024-01-02 03:04:05'\n");
}

TEST_F(ExplainOrigem, AttemptsWhoseColumnsHaveQuotesInTheirNamesHaveTheirRow) {
  gera(
      "DROP TABLE tentativas_sb; CREATE TABLE tentativas_sb(\"o \"\"n\"\"\" INTEGER PRIMARY KEY, versao, "
      "data);"
      "INSERT INTO tentativas_sb VALUES (3, 'x', '2024-01-02 03:04:05')",
      {"--layout", "2"});
  EXPECT_EQ(origem("E22", 48),
            "  from:    tentativas_sb.data, row o \"n\"=3 (rowid 3): '2024-01-02 03:04:05'\n");
}

TEST_F(ExplainOrigem, AGeneratedColumnHasItsRow) {
  gera(
      "DROP TABLE tentativas_sb; CREATE TABLE tentativas_sb(numero, versao, data AS ('2024-01-02 03:04:05'));"
      "INSERT INTO tentativas_sb VALUES (3, 'x')",
      {"--layout", "2"});
  EXPECT_EQ(origem("E22", 48), "  from:    tentativas_sb.data, rowid 1: '2024-01-02 03:04:05'\n");
}

TEST_F(ExplainOrigem, AColumnThatTheTableDoesNotHaveHasNoRow) {
  gera(
      "DROP TABLE tentativas_sb; CREATE TABLE tentativas_sb(numero, versao);"
      "INSERT INTO tentativas_sb VALUES (3, 'x')",
      {"--layout", "2"});
  EXPECT_EQ(origem("E22", 44), "  from:    tentativas_sb.numero, rowid 1: 3\n");
  const auto linha = std::find_if(linhas_.begin(), linhas_.end(),
                                  [](const std::string& texto) { return texto.rfind("E22", 0) == 0; });
  const Fim fim =
      roda({"explain", "r.txt:" + std::to_string(linha - linhas_.begin() + 1), "--db", "base.db"}, pasta());
  EXPECT_EQ(fim.saida.substr(fim.saida.rfind("  from:")), "  from:    a row that cannot be told apart\n");
}

TEST_F(ExplainOrigem, ARowThatIsAnotherEachTimeIsNotFoundAgain) {
  gera(
      "DROP TABLE tentativas_sb; CREATE VIEW tentativas_sb AS SELECT 1 AS numero, random() AS versao, "
      "'2024-01-01 00:00:00' AS data_hora",
      {"--layout", "2"});
  EXPECT_EQ(origem("E22", 44), "  from:    a row that cannot be told apart\n");
}

TEST_F(ExplainOrigem, APlaceholderHasTheHeadOfTheIdentity) {
  gera("");
  EXPECT_EQ(origem("E09", 4), "  from:    dados_ecf.num_serie, rowid 1: 'SERIAL'\n");
  EXPECT_EQ(origem("E09", 45), "  from:    no row: this is a placeholder record\n");
}

TEST_F(ExplainOrigem, ATapeHasItsRow) {
  gera("INSERT INTO fita_detalhe VALUES (3, '2024-01-11 23:00:00', 100, 102)");
  EXPECT_EQ(origem("E10", 51),
            "  from:    fita_detalhe.data_hora_emissao, row cont_cfd=3 (rowid 3): '2024-01-11 23:00:00'\n");
  EXPECT_EQ(origem("E10", 77), "  from:    dados_usuario.cnpj, rowid 1: '12345678000195'\n");
}

TEST_F(ExplainOrigem, ARateIsReadOutOfACodeOfATaxAlone) {
  const std::vector<std::pair<const char*, const char*>> casos = {{"01T1800", "01T1800: ICMS 18,00 %"},
                                                                  {"02S0500", "02S0500: ISSQN 5,00 %"},
                                                                  {"03T0050", "03T0050: ICMS 0,50 %"},
                                                                  {"0XT1800", "0XT1800"},
                                                                  {"01X1800", "01X1800"},
                                                                  {"01T18AB", "01T18AB"},
                                                                  {"Can-T", "Can-T"},
                                                                  {"F1", "F1"}};
  for (const auto& [codigo, significado] : casos) {
    std::string linha = "E13" + std::string(20, 'S') + ' ' + std::string(20, 'M') + "01000010";
    linha += std::string(codigo) + std::string(7 - std::strlen(codigo), ' ') + "0000000003400";
    escreveArquivo(em("r.txt"), linha + '\n');
    const Fim fim = roda({"explain", "r.txt:1:53"}, pasta());
    EXPECT_NE(fim.saida.find("  meaning: " + std::string(significado) + '\n'), std::string::npos)
        << fim.saida;
  }
}

TEST_F(ExplainOrigem, DigitsThatAreNoneMeanNothing) {
  escreveArquivo(em("r.txt"), "E22" + std::string(40, 'A') + "00x120240101\n");
  const Fim fim = roda({"explain", "r.txt:1:44"}, pasta());
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_NE(fim.saida.find("  bytes:   \"00x1\"\n  meaning: nothing that a field of its kind can hold\n"),
            std::string::npos)
      << fim.saida;
}

}  // namespace
