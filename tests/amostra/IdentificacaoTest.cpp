// The sample looks like a shop: every table has rows, numbers have their check digits, texts are plain ASCII.
#include "Amostras.h"

namespace cotepe::testes {
namespace {

using Identificacao = DaAmostra;
INSTANTIATE_TEST_SUITE_P(Amostras, Identificacao, testing::ValuesIn(casos()), nomeDoCaso);

// The check digit that the weights, one for each digit, give modulo 11.
int digito(const std::string& numero, const std::vector<int>& pesos) {
  int soma = 0;
  for (std::size_t i = 0; i < pesos.size(); ++i) soma += (numero[i] - '0') * pesos[i];
  return soma % 11 < 2 ? 0 : 11 - soma % 11;
}

bool cpfValido(const std::string& cpf) {
  return cpf.size() == 11 && cpf[9] - '0' == digito(cpf, {10, 9, 8, 7, 6, 5, 4, 3, 2}) &&
         cpf[10] - '0' == digito(cpf, {11, 10, 9, 8, 7, 6, 5, 4, 3, 2});
}

bool cnpjValido(const std::string& cnpj) {
  return cnpj.size() == 14 && cnpj[12] - '0' == digito(cnpj, {5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2}) &&
         cnpj[13] - '0' == digito(cnpj, {6, 5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2});
}

bool gtinValido(const std::string& gtin) {
  int soma = 0;
  for (std::size_t i = 0; i < 13; ++i) soma += (gtin[i] - '0') * (i % 2 == 0 ? 1 : 3);
  return soma % 10 == 0;
}

TEST(DigitosVerificadores, AreComputedByTheTestItself) {
  EXPECT_TRUE(cpfValido("52998224725"));
  EXPECT_FALSE(cpfValido("52998224726"));
  EXPECT_TRUE(cnpjValido("11222333000181"));
  EXPECT_FALSE(cnpjValido("11222333000191"));
  EXPECT_TRUE(gtinValido("4006381333931"));
  EXPECT_FALSE(gtinValido("4006381333932"));
}

TEST_P(Identificacao, ConsumersAndUserHaveTheirCheckDigits) {
  const auto cnpj = banco_.valor("SELECT cnpj FROM dados_usuario");
  EXPECT_TRUE(cnpjValido(cnpj)) << cnpj;
  for (const auto& numero :
       banco_.linhas("SELECT cpf_cnpj_consumidor FROM cupom_fiscal WHERE cpf_cnpj_consumidor <> '' "
                     "UNION ALL SELECT cpf_cnpj_consumidor FROM cupom_nf WHERE "
                     "cpf_cnpj_consumidor <> ''")) {
    EXPECT_TRUE(cpfValido(numero) || cnpjValido(numero)) << numero;
  }
  for (const std::string tabela : {"cupom_fiscal", "cupom_nf"}) {
    concorda(tabela, "SELECT cont_coo, nome_consumidor = '', cpf_cnpj_consumidor = '' FROM " + tabela);
  }
}

TEST_P(Identificacao, ProductCodesAreGtinsOrShort) {
  for (const auto& codigo : banco_.linhas("SELECT DISTINCT cod_item FROM item_cupom_fiscal")) {
    EXPECT_TRUE(codigo.size() == 13 ? gtinValido(codigo) : codigo.size() <= 4) << codigo;
  }
  concorda("one code, one product",
           "SELECT cod_item, COUNT(DISTINCT descricao || un_medida || valor_unitario || aliquota || "
           "casas_decimais_valor), 1 "
           "FROM item_cupom_fiscal GROUP BY cod_item");
}

TEST_P(Identificacao, TheDatabaseIsWhole) {
  EXPECT_EQ(banco_.linhas("PRAGMA integrity_check"), std::vector<std::string>{"ok"});
  EXPECT_EQ(banco_.linhas("PRAGMA foreign_key_check"), std::vector<std::string>{});
  EXPECT_EQ(banco_.numero("SELECT COUNT(*) FROM sqlite_stat1 WHERE tbl = 'item_cupom_fiscal'"), 1);
  for (const auto& tabela : banco_.linhas("SELECT name FROM sqlite_master WHERE type = 'table'")) {
    EXPECT_GT(banco_.numero("SELECT COUNT(*) FROM " + tabela), 0) << tabela;
  }
}

TEST_P(Identificacao, TextsArePlainAsciiAndFitWhatIsPrinted) {
  const auto buscas = banco_.linhas(
      "SELECT 'SELECT ' || c.name || ' FROM ' || t.name || ' WHERE ' || c.name || ' GLOB ''*[^ -~]*''' FROM "
      "sqlite_master AS t, pragma_table_info(t.name) AS c WHERE t.type = 'table' AND c.type = 'TEXT'");
  EXPECT_GT(buscas.size(), 40U);
  for (const auto& busca : buscas) EXPECT_EQ(banco_.linhas(busca), std::vector<std::string>{}) << busca;
  EXPECT_EQ(banco_.valor("SELECT 'S\xC3\xA3o' GLOB '*[^ -~]*' AND NOT 'Sao ~' GLOB '*[^ -~]*'"), "1");
  EXPECT_LE(banco_.numero("SELECT MAX(length(nome_consumidor)) FROM cupom_fiscal"), 39);
  EXPECT_LE(banco_.numero("SELECT MAX(length(descricao)) FROM item_cupom_fiscal"), 99);
  EXPECT_LE(banco_.numero("SELECT MAX(length(descricao)) FROM totalizador_nao_fiscal"), 14);
  EXPECT_LE(banco_.numero("SELECT MAX(length(descricao)) FROM meio_pagamento"), 15);
  EXPECT_LE(banco_.numero("SELECT MAX(length(totalizador)) FROM totalizador_reducao WHERE id_fiscal = 'S'"),
            7);
}

TEST_P(Identificacao, SignaturesAre32BytesInBase64) {
  concorda("signature",
           "SELECT cont_coo, 1, length(assinatura_documento) = 44 AND substr(assinatura_documento, 1, 42) "
           "NOT GLOB "
           "'*[^A-Za-z0-9+/]*' AND substr(assinatura_documento, 43) GLOB '[AEIMQUYcgkosw048]=' FROM "
           "cupom_fiscal WHERE "
           "assinatura_documento <> ''",
           0);
}

// What a month of the usual size shows at least once, whatever the seed.
using Mes = DaAmostra;
INSTANTIATE_TEST_SUITE_P(Amostras, Mes, testing::ValuesIn(casosDeUmMes()), nomeDoCaso);

TEST_P(Mes, HasSomethingOfEverything) {
  for (const char* achado :
       {"cupom_fiscal WHERE id_cancelado = 'S'",
        "cupom_fiscal WHERE valor_desconto > 0 AND valor_acrescimo = 0",
        "cupom_fiscal WHERE valor_acrescimo > 0", "cupom_fiscal WHERE length(cpf_cnpj_consumidor) = 11",
        "cupom_fiscal WHERE length(cpf_cnpj_consumidor) = 14", "cupom_fiscal WHERE texto_suplementar <> ''",
        "cupom_fiscal WHERE texto_complementar <> ''", "cupom_fiscal WHERE assinatura_documento <> ''",
        "item_cupom_fiscal WHERE id_cancelado = 'S'", "item_cupom_fiscal WHERE valor_desconto > 0",
        "item_cupom_fiscal WHERE valor_acrescimo > 0",
        "item_cupom_fiscal WHERE casas_decimais_quantidade = 3 AND casas_decimais_valor = 2",
        "item_cupom_fiscal WHERE casas_decimais_valor = 3 AND id_arred_trunc_valor = 'T'",
        "cupom_nf WHERE id_cancelado = 'S'", "cupom_nf WHERE nome_consumidor <> ''",
        "item_cupom_nf WHERE seq_item = 2", "pagamento_cupom WHERE indice_meio_pagamento = 6",
        "pagamento_cupom p JOIN cupom_fiscal USING (cont_coo) WHERE id_estornado = 'S'"}) {
    EXPECT_GT(banco_.numero(std::string("SELECT COUNT(*) FROM ") + achado), 0) << achado;
  }
  EXPECT_EQ(banco_.linhas("SELECT DISTINCT aliquota FROM item_cupom_fiscal ORDER BY 1"),
            (std::vector<std::string>{"01T1800", "02T1200", "03T0700", "04S0500", "F1", "I1", "N1"}));
  EXPECT_EQ(banco_.linhas("SELECT DISTINCT id_tipo_documento FROM outros_documentos ORDER BY 1"),
            (std::vector<std::string>{"CC", "CN", "NC", "RG", "RZ"}));
  EXPECT_GT(banco_.numero("SELECT COUNT(DISTINCT cod_item) FROM item_cupom_fiscal"), 100);
}

TEST(ReducaoAtrasada, SometimesComesAfterMidnight) {
  Pasta pasta;
  OpcoesDaAmostra opcoes;
  opcoes.dias = 120;
  opcoes.cuponsPorDia = 2;
  criaBancoDeAmostra(pasta.arquivo("a"), opcoes);
  Banco banco(pasta.arquivo("a"));
  const auto atrasadas =
      banco.numero("SELECT COUNT(*) FROM reducao_z WHERE date(data_hora_emissao) > date(data_movimento)");
  EXPECT_GT(atrasadas, 0);
  EXPECT_LT(atrasadas, 40);
}

// So the issue of the last reduction, and the detail tape before it, are in the period of the sample.
TEST(ReducaoAtrasada, IsNeverTheLastOne) {
  Pasta pasta;
  OpcoesDaAmostra opcoes;
  opcoes.dias = opcoes.cuponsPorDia = 1;
  for (opcoes.semente = 1; opcoes.semente <= 60; ++opcoes.semente) {
    const auto arquivo = pasta.arquivo(std::to_string(opcoes.semente));
    criaBancoDeAmostra(arquivo, opcoes);
    Banco banco(arquivo);
    EXPECT_EQ(banco.valor("SELECT date(data_hora_emissao) = date(data_movimento) FROM reducao_z"), "1")
        << opcoes.semente;
  }
}

}  // namespace
}  // namespace cotepe::testes
