// Runs whose memory ends at each of their allocations in turn.
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

#include "Bancada.h"
#include "MemoriaContada.h"

using cotepe::testes::g_memoria;

namespace {

// Of this process alone, for tests run side by side.
const std::string kNomeDoRelatorio = "alocacao-" + std::to_string(getpid()) + ".txt";
const char* const kRelatorio = kNomeDoRelatorio.c_str();

std::string conteudo() {
  std::ostringstream texto;
  texto << std::ifstream(kRelatorio, std::ios::binary).rdbuf();
  return texto.str();
}

int gera(Bancada& bancada) {
  return bancada.gerador().GeraRegistrosTipoE(kRelatorio, "01012024", "31012024", "TDM");
}

// Runs with 0, 1, 2 ... allocations granted until one needs no more; returns how many runs failed.
int falhaEmCadaUma(Bancada& bancada, const std::string& inteiro) {
  int falhas = 0;
  for (long concedidas = 0, negadas = 1; negadas != 0; ++concedidas) {
    g_memoria.falha(concedidas, true);
    const int resultado = gera(bancada);
    negadas = g_memoria.concede();
    if (resultado == 0) {
      EXPECT_EQ(conteudo(), inteiro) << concedidas;
      continue;
    }
    EXPECT_EQ(resultado, 4) << concedidas;
    ++falhas;
  }
  return falhas;
}

TEST(Alocacao, WhicheverFailsTheResultIsFourOrTheReportIsWhole) {
  Bancada bancada;
  bancada.comIdentidade();
  ASSERT_EQ(gera(bancada), 0);
  const auto inteiro = conteudo();
  EXPECT_GT(falhaEmCadaUma(bancada, inteiro), 20);
  EXPECT_EQ(gera(bancada), 0);
  EXPECT_EQ(conteudo(), inteiro);
  unlink(kRelatorio);
}

TEST(Alocacao, WhicheverFailsInALineThatGrowsTheResultIsFour) {
  Bancada bancada;
  bancada.sql("INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57','" + std::string(1000000, 'c') + "')");
  ASSERT_EQ(gera(bancada), 0);
  const auto inteiro = conteudo();
  EXPECT_GT(falhaEmCadaUma(bancada, inteiro), 20);
  unlink(kRelatorio);
}

// A Z reduction, and `linhas` rows for each register that has one record a row of the database.
void enche(Bancada& bancada, int linhas) {
  const std::string n =
      "WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(linhas) + ") ";
  const auto insere = [&](const std::string& tabela, const std::string& colunas, const std::string& valores) {
    bancada.sql("INSERT INTO " + tabela + "(" + colunas + ") " + n + "SELECT " + valores + " FROM n");
  };
  bancada.comIdentidade();
  bancada.sql(
      "INSERT INTO reducao_z VALUES(7,700,1,'2024-01-10 00:00:00','2024-01-10 20:00:00','10.00','20.00');"
      "INSERT INTO totalizador_nao_fiscal VALUES(1,'SANGRIA'); INSERT INTO meio_pagamento "
      "VALUES(1,'DINHEIRO')");
  insere("tentativas_sb", "numero, data_hora", "i,'2024-01-01 00:00:00'");
  insere("versao_sb", "versao, data_hora_gravacao, num_sequencia", "'01.00.0' || i,'2024-01-01 00:00:00',i");
  insere("intervencao", "cont_cro, data_hora_intervencao, id_perda_dados_mt, id_tipo_intervencao",
         "i,'2024-01-01 00:00:00','N','F'");
  insere("fita_detalhe", "cont_cfd, data_hora_emissao, coo_inicial, coo_final",
         "i,'2024-01-11 00:00:00',i,i");
  insere("reducao_z", "cont_crz, data_movimento, valor_vb", "100 + i,'2024-01-11 00:00:00','1.00'");
  insere("totalizador_reducao", "cont_crz, totalizador, valor_base_calculo, id_fiscal",
         "7,i || 'T1800','12.34',substr('SN', 1 + i % 2, 1)");
  insere("meio_pagamento_reducao", "cont_crz, descricao_meio_pagamento, valor_acumulado",
         "7,'CARTAO ' || i,'1.5'");
  insere("cupom_fiscal",
         "cont_ccf, cont_coo, cont_crz, data_hora_emissao, valor_subtotal, id_cancelado, nome_consumidor, "
         "texto_suplementar",
         "i,i,7,'2024-01-10 12:00:00','5.00','N','JOSE DE SOUZA','OBRIGADO'");
  insere("item_cupom_fiscal",
         "cont_coo, seq_item, cod_item, descricao, quantidade, valor_unitario, id_cancelado, "
         "id_arred_trunc_valor, "
         "casas_decimais_quantidade",
         "i,1,'789','ARROZ','1.5','3.333','N','A',3");
  insere("outros_documentos", "cont_coo, cont_crz, id_tipo_documento, data_hora_fim_emissao",
         "i,7,'RG','2024-01-10 12:00:00'");
  insere("cupom_nf", "cont_coo, cont_gnf, cont_crz, valor_subtotal, id_cancelado",
         "50000 + i,i,7,'5.00','N'");
  insere("item_cupom_nf", "cont_coo, seq_item, indice_totalizador_nf, valor_total, id_cancelado",
         "50000 + i,1,1,'5.00','N'");
  insere("pagamento_cupom", "cont_coo, indice_meio_pagamento, valor_pagamento, id_estornado",
         "i,1,'5.00','N'");
}

struct Corrida {
  long alocacoes = 0;
  std::string relatorio;
};

Corrida corridaCom(int linhas, int versao) {
  Bancada bancada;
  bancada.versao(versao);
  enche(bancada, linhas);
  const long antes = g_memoria.pedidos();
  EXPECT_EQ(gera(bancada), 0);
  return {g_memoria.pedidos() - antes, conteudo()};
}

long linhasDo(const std::string& registro, const std::string& relatorio) {
  std::istringstream linhas(relatorio);
  long quantas = 0;
  for (std::string linha; std::getline(linhas, linha);) quantas += linha.compare(0, 3, registro) == 0 ? 1 : 0;
  return quantas;
}

TEST(Alocacao, DoesNotGrowWithTheRows) {
  for (const int versao : {1, 2}) {
    const Corrida curta = corridaCom(2, versao), longa = corridaCom(500, versao);
    EXPECT_EQ(longa.alocacoes, curta.alocacoes) << "layout " << versao;
    EXPECT_GT(curta.alocacoes, 20);
    for (const char* registro :
         {"E07", "E09", "E10", "E12", "E13", "E14", "E15", "E16", "E17", "E18", "E19", "E20", "E21"})
      EXPECT_GE(linhasDo(registro, longa.relatorio), 250) << registro;
    EXPECT_EQ(linhasDo("E22", longa.relatorio), versao == 2 ? 500 : 0);
  }
  unlink(kRelatorio);
}

}  // namespace
