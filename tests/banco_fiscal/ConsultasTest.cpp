// The queries of the registers on the schema: they prepare, they order numbers as numbers, they search.
#include "Amostra/Amostra.h"
#include "ComEsquema.h"
#include "Consultas.h"
#include "Linhas.h"

namespace cotepe::testes {
namespace {

// Everything twice: under the counter 11 first, then under 9, which as text would come after.
class Consultas : public ComEsquema {
 protected:
  void SetUp() override {
    const auto poe = [this](const std::string& tabela, const Linha& linha) {
      ASSERT_EQ(banco_.executa(insere(tabela, linha)), "") << tabela;
    };
    poe("totalizador_nao_fiscal", {});
    poe("meio_pagamento", {});
    poe("meio_pagamento", {{"num_indice", "2"}, {"descricao", "'CHEQUE'"}});
    for (const std::string n : {"11", "9"}) {
      const Linha crz = {{"cont_crz", n}};
      poe("versao_sb", {{"num_sequencia", n}, {"versao", "'V" + n + "'"}});
      poe("intervencao", {{"cont_cro", n}});
      poe("fita_detalhe", {{"cont_cfd", n}, {"coo_inicial", n}});
      poe("reducao_z", {{"cont_crz", n}, {"valor_gt", n + ".25"}});
      for (const char* codigo : {"'F1'", "'02S0500'", "'01T1800'"}) {
        poe("totalizador_reducao", {{"cont_crz", n}, {"totalizador", codigo}, {"valor_base_calculo", n}});
      }
      poe("totalizador_reducao", {{"cont_crz", n},
                                  {"totalizador", "'SANGRIA'"},
                                  {"id_fiscal", "'N'"},
                                  {"valor_base_calculo", n + ".10"}});
      poe("totalizador_reducao", {{"cont_crz", n},
                                  {"totalizador", "'LUZ'"},
                                  {"id_fiscal", "'N'"},
                                  {"valor_base_calculo", n + ".20"}});
      poe("meio_pagamento_reducao", {{"cont_crz", n}, {"descricao_meio_pagamento", "'PIX'"}});
      poe("meio_pagamento_reducao", {{"cont_crz", n}, {"descricao_meio_pagamento", "'cheque'"}});
      poe("cupom_fiscal", {{"cont_crz", n}, {"cont_ccf", n}, {"cont_coo", n + "0"}});
      poe("cupom_nf", {{"cont_crz", n}, {"cont_gnf", n}, {"cont_coo", n + "1"}});
      poe("outros_documentos", {{"cont_crz", n}, {"cont_coo", n + "1"}});
      for (const std::string item : {"11", "9"}) {
        poe("item_cupom_fiscal", {{"cont_coo", n + "0"}, {"seq_item", item}});
        poe("item_cupom_nf", {{"cont_coo", n + "1"}, {"seq_item", item}});
      }
      for (const std::string fim : {"1", "0"}) {
        poe("pagamento_cupom", {{"cont_coo", n + fim}});
        poe("pagamento_cupom", {{"cont_coo", n + fim}, {"indice_meio_pagamento", "2"}});
      }
    }
  }
};

using Textos = std::vector<std::string>;

// The columns before the '|' numbered `quantas`.
Textos primeiras(const Textos& linhas, int quantas) {
  Textos resultado;
  for (const auto& linha : linhas) {
    std::size_t fim = 0;
    for (int i = 0; i < quantas; ++i) fim = linha.find('|', fim + 1);
    resultado.push_back(linha.substr(0, fim));
  }
  return resultado;
}

TEST_F(Consultas, AllPrepareAndEnd) {
  for (const auto& uma : consultasDosRegistros()) EXPECT_EQ(banco_.executa(uma.sql), "") << uma.nome;
}

TEST_F(Consultas, CountersComeInNumericOrder) {
  struct Caso {
    std::string nome;
    int colunas;
    Textos esperado;
  };
  const std::vector<Caso> casos = {
      {"E01_2", 1, {"V11"}},
      {"E07", 1, {"V9", "V11"}},
      {"E09", 1, {"9", "11"}},
      {"E10", 1, {"9", "11"}},
      {"E12", 1, {"9", "11"}},
      {"E13_1", 2, {"9|01T1800", "9|02S0500", "9|F1", "11|01T1800", "11|02S0500", "11|F1"}},
      {"E13_2", 3, {"9|OPNF|18.3", "11|OPNF|22.3"}},
      {"E14", 2, {"9|90", "11|110"}},
      {"E15", 3, {"90|9|9", "90|9|11", "110|11|9", "110|11|11"}},
      {"E16", 1, {"91", "111"}},
      {"E17", 2, {"9|LUZ", "9|SANGRIA", "11|LUZ", "11|SANGRIA"}},
      {"E18", 2, {"9|cheque", "9|PIX", "11|cheque", "11|PIX"}},
      {"E19", 2, {"91|9", "111|11"}},
      {"E20", 3, {"91|9|9", "91|9|11", "111|11|9", "111|11|11"}},
      {"E21",
       4,
       {"90|9|000000000|CHEQUE", "90|9|000000000|DINHEIRO", "91|000000000|9|CHEQUE",
        "91|000000000|9|DINHEIRO", "110|11|000000000|CHEQUE", "110|11|000000000|DINHEIRO",
        "111|000000000|11|CHEQUE", "111|000000000|11|DINHEIRO"}}};
  for (const auto& caso : casos) {
    EXPECT_EQ(primeiras(banco_.linhas(consulta(caso.nome)), caso.colunas), caso.esperado) << caso.nome;
  }
}

TEST_F(Consultas, LeastAndGreatestAreNumeric) {
  EXPECT_EQ(primeiras(banco_.linhas(consulta("E01_4")), 2), Textos{"9|11"});
  EXPECT_EQ(banco_.valor(consulta("E02_MF")), "11.25");
}

TEST_F(Consultas, ReductionsOfOneCounterComeByRestartCounter) {
  ASSERT_EQ(banco_.executa(insere("reducao_z", {{"cont_crz", "9"}, {"cont_cro", "11"}}) +
                           insere("reducao_z", {{"cont_crz", "9"}, {"cont_cro", "9"}})),
            "");
  EXPECT_EQ(primeiras(banco_.linhas(consulta("E12")), 3), (Textos{"9|1|1", "9|1|9", "9|1|11", "11|1|1"}));
}

TEST_F(Consultas, APeriodTakesWholeDays) {
  const auto naReducao = [this](const std::string& dia) {
    banco_.executa("UPDATE reducao_z SET data_movimento = '" + dia + "'");
    return banco_.linhas(consulta("E12")).size();
  };
  EXPECT_EQ(naReducao("2023-12-31 23:59:59"), 0U);
  EXPECT_EQ(naReducao("2024-01-01 00:00:00"), 2U);
  EXPECT_EQ(naReducao("2024-01-31 23:59:59"), 2U);
  EXPECT_EQ(naReducao("2024-02-01 00:00:00"), 0U);
}

// Where the tables grow without end, the period and the joins are found through indexes.
void exigeBuscas(Banco& banco) {
  for (const auto& uma : consultasDosRegistros()) {
    const bool peloPeriodo = uma.nome == "E01_4" || (uma.nome >= "E12" && uma.nome <= "E21");
    for (const auto& passo : banco.linhas("EXPLAIN QUERY PLAN " + uma.sql)) {
      EXPECT_FALSE(peloPeriodo && passo.find("SCAN") != std::string::npos) << uma.nome << ": " << passo;
    }
  }
}

TEST_F(Consultas, PeriodsAreSearchedWithoutStatistics) { exigeBuscas(banco_); }

TEST_F(Consultas, PeriodsAreSearchedWithStatistics) {
  criaBancoDeAmostra(pasta_.arquivo("amostra.db"), {});
  Banco amostra(pasta_.arquivo("amostra.db"));
  exigeBuscas(amostra);
}

TEST_F(Consultas, NothingIsSortedWhereAnIndexHasTheOrder) {
  for (const char* nome : {"E01_2", "E01_4", "E09", "E10"}) {
    for (const auto& passo : banco_.linhas("EXPLAIN QUERY PLAN " + consulta(nome))) {
      EXPECT_EQ(passo.find("TEMP B-TREE"), std::string::npos) << nome << ": " << passo;
    }
  }
}

}  // namespace
}  // namespace cotepe::testes
