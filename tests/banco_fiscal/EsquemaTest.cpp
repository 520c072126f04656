// The schema takes every form that the registers allow and refuses what would spoil a record.
#include <cctype>
#include <ostream>
#include <set>

#include "ComEsquema.h"
#include "Linhas.h"

namespace cotepe::testes {
namespace {

using Esquema = ComEsquema;

// A column, values that it takes and values that it refuses, as SQL literals.
struct Forma {
  std::string tabela, coluna;
  std::vector<std::string> aceitos, recusados;
};

std::ostream& operator<<(std::ostream& saida, const Forma& forma) {
  return saida << forma.tabela << '.' << forma.coluna;
}

std::string letras(int quantas) { return "'" + std::string(static_cast<std::size_t>(quantas), 'x') + "'"; }

// "é" has two bytes.
std::string acentos(int quantos) {
  std::string texto;
  for (int i = 0; i < quantos; ++i) texto += "\xC3\xA9";
  return "'" + texto + "'";
}

void acrescenta(std::vector<Forma>& formas, const std::string& tabela, const std::string& colunas,
                const Forma& forma) {
  std::size_t inicio = 0;
  while (inicio < colunas.size()) {
    const auto fim = std::min(colunas.find(' ', inicio), colunas.size());
    formas.push_back({tabela, colunas.substr(inicio, fim - inicio), forma.aceitos, forma.recusados});
    inicio = fim + 1;
  }
}

Forma textoAte(int bytes) {
  return {
      "", "", {"''", letras(bytes), acentos(bytes / 2)}, {letras(bytes + 1), acentos(bytes / 2 + 1), "NULL"}};
}

const Forma kContador = {
    "", "", {"0", "9", "'000011'", "999999999", "4000000000"}, {"-1", "'1x'", "''", "1.5", "NULL"}};
const Forma kChave = {"", "", {"0", "9", "'000011'", "999999999"}, {"-1", "'1x'", "''", "1.5"}};
const Forma kLetra = {"", "", {"'V'", "'P'", "' '"}, {"''", "'VV'", "'\xC3\xA9'", "NULL"}};
const Forma kSimOuNao = {"", "", {"'S'", "'N'"}, {"''", "'s'", "'SN'", "' '", "'1'", "NULL"}};
const Forma kNumero = {
    "", "", {"''", "'52998224725'", "'11222333000181'"}, {"'529.982.247-25'", "'112223330001810'", "NULL"}};

const std::vector<std::string> kDatasBoas = {"'2024-02-29 23:59:59'", "'2024-01-01 00:00:00'",
                                             "'1999-12-31 12:34:56'"};
const std::vector<std::string> kDatasRuins = {"''",
                                              "'2024-01-01'",
                                              "'2024-01-01 00:00'",
                                              "'2023-02-29 00:00:00'",
                                              "'2024-04-31 00:00:00'",
                                              "'2024-13-01 00:00:00'",
                                              "'2024-01-01 24:00:00'",
                                              "'2024-01-01 00:60:00'",
                                              "'2024-01-01 00:00:60'",
                                              "'2024-01-01T00:00:00'",
                                              "'2024-01-01 00:00:00.5'",
                                              "'2024-01-01 00:00:00 '",
                                              "'01/01/2024 00:00:00'",
                                              "'now'"};

Forma data(bool podeFaltar) {
  Forma forma{"", "", kDatasBoas, kDatasRuins};
  (podeFaltar ? forma.aceitos : forma.recusados).emplace_back("NULL");
  return forma;
}

// Money of a field: whole cents up to the most that the field holds.
Forma dinheiro(const std::string& maximo, const std::string& demais) {
  return {"",
          "",
          {"'0.00'", "0", "'0.01'", "'1234.5'", "'1234.56'", "1234.56", "'1234567.10'", "7", maximo},
          {"'-0.01'", "'0.001'", "'12.345'", "1e-7", "'1234,56'", "'1.234,56'", "'R$ 1'", "''", demais,
           "9e999", "NULL"}};
}

const Forma kDinheiro13 = dinheiro("'99999999999.99'", "100000000000");
const Forma kDinheiro14 = dinheiro("'999999999999.99'", "1000000000000");
const Forma kDinheiro18 = dinheiro("'9999999999999.99'", "10000000000000");
const Forma kDecimal8 = {"", "", {"0", "'0.125'", "'999999.99'"}, {"-1", "1000000", "'1,5'", "''", "NULL"}};

std::vector<Forma> formasDasTabelasPequenas() {
  std::vector<Forma> formas;
  acrescenta(formas, "dados_ecf", "num_serie modelo marca", textoAte(20));
  acrescenta(formas, "dados_ecf", "tipo", {"", "", {"''", letras(7)}, {letras(8), "NULL"}});
  acrescenta(formas, "dados_ecf", "num_caixa",
             {"", "", {"0", "'007'", "999"}, {"1000", "-1", "'x'", "NULL"}});
  acrescenta(formas, "dados_usuario", "seq_usuario",
             {"", "", {"'1'", "'01'", "99"}, {"100", "-1", "''", "NULL"}});
  acrescenta(
      formas, "dados_usuario", "cnpj",
      {"", "", {"'00000000000191'"}, {"''", "'191'", "'11.222.333/0001-81'", "'112223330001811'", "NULL"}});
  acrescenta(formas, "dados_usuario", "ie", {"", "", {"''", "'110.042.490-114'", letras(30)}, {"NULL"}});
  acrescenta(formas, "dados_usuario", "razao_social",
             {"", "", {"''", letras(40), "NULL"}, {letras(41), acentos(21)}});
  acrescenta(formas, "dados_usuario", "endereco",
             {"", "", {"''", letras(120), "NULL"}, {letras(121), acentos(61)}});
  acrescenta(formas, "dados_usuario", "data_hora_gravacao", data(true));
  acrescenta(formas, "dados_usuario", "cont_cro", kContador);
  acrescenta(formas, "dados_usuario", "valor_gt", kDinheiro18);
  acrescenta(formas, "versao_sb", "versao", textoAte(10));
  acrescenta(formas, "versao_sb", "data_hora_gravacao", data(true));
  acrescenta(formas, "tentativas_sb", "num_tentativa",
             {"", "", {"0", "'0012'", "9999"}, {"10000", "-1", "'x'", "NULL"}});
  acrescenta(formas, "tentativas_sb", "data_hora", data(false));
  acrescenta(formas, "codificacao_gt", "data_hora_gravacao", data(true));
  acrescenta(formas, "codificacao_gt", "codificacao",
             {"", "", {letras(10)}, {"''", letras(9), letras(11), "NULL"}});
  acrescenta(formas, "moeda", "data_hora_gravacao", data(true));
  acrescenta(formas, "moeda", "simbolo_moeda", textoAte(4));
  acrescenta(formas, "intervencao", "cont_cro cont_crz cont_coo", kContador);
  acrescenta(formas, "intervencao", "data_hora_intervencao", data(true));
  acrescenta(formas, "intervencao", "id_perda_dados_mt", kSimOuNao);
  acrescenta(formas, "intervencao", "id_tipo_intervencao", kLetra);
  acrescenta(formas, "fita_detalhe", "cont_cfd", kChave);
  acrescenta(formas, "fita_detalhe", "data_hora_emissao", data(false));
  acrescenta(formas, "fita_detalhe", "coo_inicial coo_final", kContador);
  acrescenta(formas, "posicao_totalizadores_contadores",
             "cont_crz cont_cro cont_coo cont_gnf cont_ccf cont_grg cont_cfd", kContador);
  acrescenta(formas, "posicao_totalizadores_contadores", "valor_gt", kDinheiro18);
  return formas;
}

std::vector<Forma> formasDasReducoes() {
  std::vector<Forma> formas;
  acrescenta(formas, "reducao_z", "cont_crz cont_coo cont_cro", kContador);
  acrescenta(formas, "reducao_z", "data_movimento", data(false));
  acrescenta(formas, "reducao_z", "data_hora_emissao", data(true));
  acrescenta(formas, "reducao_z", "valor_vb", kDinheiro14);
  acrescenta(formas, "reducao_z", "valor_gt", kDinheiro18);
  acrescenta(formas, "totalizador_reducao", "cont_crz", kContador);
  acrescenta(formas, "totalizador_reducao", "totalizador",
             {"",
              "",
              {"'01T1800'", "'02S05.00'", "'F1'", "'FS1'", "'Can-T'", "'DT'", "'AT'"},
              {"''", "'ABT1'", "'XXS'", "'1 T1800'", "NULL"}});
  acrescenta(formas, "totalizador_reducao", "valor_base_calculo", kDinheiro13);
  acrescenta(formas, "totalizador_reducao", "id_fiscal", kSimOuNao);
  acrescenta(formas, "meio_pagamento_reducao", "cont_crz", kContador);
  acrescenta(formas, "meio_pagamento_reducao", "descricao_meio_pagamento",
             {"", "", {"''", letras(30)}, {"NULL"}});
  acrescenta(formas, "meio_pagamento_reducao", "valor_acumulado",
             {"", "", {"0", "'12.345'", "'99999999999.99'"}, {"-1", "100000000000", "'1,5'", "''", "NULL"}});
  return formas;
}

std::vector<Forma> formasDosCupons() {
  std::vector<Forma> formas;
  acrescenta(formas, "cupom_fiscal", "cont_coo", kChave);
  acrescenta(formas, "cupom_fiscal", "cont_ccf cont_crz", kContador);
  acrescenta(formas, "cupom_fiscal", "data_hora_emissao", data(false));
  acrescenta(formas, "cupom_fiscal", "valor_subtotal valor_total", kDinheiro14);
  acrescenta(formas, "cupom_fiscal", "valor_desconto valor_acrescimo valor_canc_acrescimo", kDinheiro13);
  acrescenta(formas, "cupom_fiscal", "id_cancelado", kSimOuNao);
  acrescenta(formas, "cupom_fiscal", "nome_consumidor", {"", "", {"''", letras(60), acentos(40)}, {"NULL"}});
  acrescenta(formas, "cupom_fiscal", "cpf_cnpj_consumidor", kNumero);
  acrescenta(formas, "cupom_fiscal", "tipo_acrescimo tipo_desconto perc_desconto perc_acrescimo",
             {"", "", {"NULL", "''", "'V'", "'10.00'"}, {}});
  acrescenta(formas, "cupom_fiscal", "texto_suplementar", textoAte(560));
  acrescenta(formas, "cupom_fiscal", "texto_complementar", textoAte(84));
  acrescenta(formas, "cupom_fiscal", "assinatura_documento", textoAte(44));
  acrescenta(formas, "item_cupom_fiscal", "cont_coo", kContador);
  acrescenta(formas, "item_cupom_fiscal", "seq_item",
             {"", "", {"0", "'001'", "999"}, {"1000", "-1", "'x'", "NULL"}});
  acrescenta(formas, "item_cupom_fiscal", "cod_item", textoAte(14));
  acrescenta(formas, "item_cupom_fiscal", "descricao", {"", "", {"''", letras(200)}, {"NULL"}});
  acrescenta(formas, "item_cupom_fiscal", "quantidade",
             {"", "", {"0", "'0.0625'", "'1.5'", "'99999.99'"}, {"-1", "100000", "'1,5'", "''", "NULL"}});
  acrescenta(formas, "item_cupom_fiscal", "un_medida", {"", "", {"''", "'PCT'"}, {"'CAIX'", "NULL"}});
  acrescenta(formas, "item_cupom_fiscal", "valor_unitario valor_desconto valor_acrescimo", kDecimal8);
  acrescenta(formas, "item_cupom_fiscal", "valor_total", kDinheiro14);
  acrescenta(formas, "item_cupom_fiscal", "valor_canc_acrescimo", kDinheiro13);
  acrescenta(formas, "item_cupom_fiscal", "aliquota",
             {"", "", {"''", "'F1'", "'01T1800'", "'01T18.00'"}, {"'01T18000'", "NULL"}});
  acrescenta(formas, "item_cupom_fiscal", "id_cancelado", kSimOuNao);
  acrescenta(formas, "item_cupom_fiscal", "id_arred_trunc_valor",
             {"", "", {"'A'", "'T'"}, {"''", "'AT'", "NULL"}});
  acrescenta(formas, "item_cupom_fiscal", "casas_decimais_quantidade casas_decimais_valor",
             {"", "", {"2", "'3'"}, {"1", "4", "''", "NULL"}});
  acrescenta(formas, "pagamento_cupom", "cont_coo indice_meio_pagamento", {"", "", {"0", "'12'"}, {"NULL"}});
  acrescenta(formas, "pagamento_cupom", "valor_pagamento valor_estornado", kDinheiro13);
  acrescenta(formas, "pagamento_cupom", "id_estornado", kSimOuNao);
  acrescenta(formas, "meio_pagamento", "descricao", {"", "", {"''", letras(30)}, {"NULL"}});
  return formas;
}

std::vector<Forma> formasDosNaoFiscais() {
  std::vector<Forma> formas;
  acrescenta(formas, "outros_documentos", "cont_coo cont_gnf cont_grg cont_cdc cont_crz", kContador);
  acrescenta(formas, "outros_documentos", "id_tipo_documento",
             {"", "", {"'CN'", "'RG'", "'CC'", "'NC'", "'RZ'"}, {"''", "'cn'", "'LX'", "'RZ '", "NULL"}});
  acrescenta(formas, "outros_documentos", "data_hora_fim_emissao", data(false));
  acrescenta(formas, "cupom_nf", "cont_coo", kChave);
  acrescenta(formas, "cupom_nf", "cont_gnf cont_crz", kContador);
  acrescenta(formas, "cupom_nf", "data_hora_emissao", data(true));
  acrescenta(formas, "cupom_nf", "valor_subtotal valor_total_cupom", kDinheiro14);
  acrescenta(formas, "cupom_nf", "valor_desconto valor_acrescimo valor_canc_acrescimo", kDinheiro13);
  acrescenta(formas, "cupom_nf", "id_cancelado", kSimOuNao);
  acrescenta(formas, "cupom_nf", "tipo_acrescimo tipo_desconto", kLetra);
  acrescenta(formas, "cupom_nf", "nome_consumidor", {"", "", {"''", letras(60)}, {"NULL"}});
  acrescenta(formas, "cupom_nf", "cpf_cnpj_consumidor", kNumero);
  acrescenta(formas, "item_cupom_nf", "cont_coo", kContador);
  acrescenta(formas, "item_cupom_nf", "seq_item", {"", "", {"0", "999"}, {"1000", "-1", "NULL"}});
  acrescenta(formas, "item_cupom_nf", "indice_totalizador_nf", {"", "", {"0", "'12'"}, {"NULL"}});
  acrescenta(formas, "item_cupom_nf",
             "valor_total valor_desconto valor_acrescimo valor_total_liquido valor_canc_acrescimo",
             kDinheiro13);
  acrescenta(formas, "item_cupom_nf", "id_cancelado", kSimOuNao);
  acrescenta(formas, "totalizador_nao_fiscal", "descricao", {"", "", {"''", letras(30)}, {"NULL"}});
  return formas;
}

class FormaDaColuna : public ComEsquema, public testing::WithParamInterface<Forma> {
 protected:
  std::string tenta(const std::string& literal) {
    const auto& forma = GetParam();
    EXPECT_EQ(banco_.executa("BEGIN"), "");
    auto erro = banco_.executa(insere(forma.tabela, {{forma.coluna, literal}}));
    EXPECT_EQ(banco_.executa("ROLLBACK"), "");
    return erro;
  }
};

TEST_P(FormaDaColuna, TakesTheGoodValuesAndRefusesTheBad) {
  for (const auto& literal : GetParam().aceitos) EXPECT_EQ(tenta(literal), "") << literal;
  for (const auto& literal : GetParam().recusados) EXPECT_NE(tenta(literal), "") << literal;
}

std::string nomeDoTeste(const testing::TestParamInfo<Forma>& caso) {
  std::string nome = caso.param.tabela + "_" + caso.param.coluna;
  return nome;
}

INSTANTIATE_TEST_SUITE_P(Pequenas, FormaDaColuna, testing::ValuesIn(formasDasTabelasPequenas()), nomeDoTeste);
INSTANTIATE_TEST_SUITE_P(Reducoes, FormaDaColuna, testing::ValuesIn(formasDasReducoes()), nomeDoTeste);
INSTANTIATE_TEST_SUITE_P(Cupons, FormaDaColuna, testing::ValuesIn(formasDosCupons()), nomeDoTeste);
INSTANTIATE_TEST_SUITE_P(NaoFiscais, FormaDaColuna, testing::ValuesIn(formasDosNaoFiscais()), nomeDoTeste);

TEST_F(Esquema, HasAGoodRowForEveryTable) {
  std::set<std::string> tabelas;
  for (const auto& nome : banco_.linhas("SELECT name FROM sqlite_master WHERE type = 'table'"))
    tabelas.insert(nome);
  EXPECT_EQ(tabelas.size(), 20U);
  for (const auto& [tabela, linha] : linhasBoas()) {
    EXPECT_EQ(tabelas.count(tabela), 1U) << tabela;
    EXPECT_EQ(banco_.executa(insere(tabela)), "") << tabela;
  }
}

TEST_F(Esquema, HoldsOneRowWhereOneIsMeant) {
  for (const char* tabela : {"dados_ecf", "posicao_totalizadores_contadores", "codificacao_gt", "moeda"}) {
    EXPECT_EQ(banco_.executa(insere(tabela)), "") << tabela;
    EXPECT_NE(banco_.executa(insere(tabela)), "") << tabela;
  }
}

TEST_F(Esquema, KeepsFormerUsers) {
  EXPECT_EQ(banco_.executa(insere("dados_usuario") + insere("dados_usuario", {{"seq_usuario", "2"}})), "");
}

TEST_F(Esquema, TakesAReductionCounterAgainUnderAnotherRestartCounterOnly) {
  EXPECT_EQ(banco_.executa(insere("reducao_z")), "");
  EXPECT_EQ(banco_.executa(insere("reducao_z", {{"cont_cro", "2"}})), "");
  EXPECT_NE(banco_.executa(insere("reducao_z")), "");
}

TEST_F(Esquema, BoundsQuantityAndPriceByTheDecimalPlacesOfTheRow) {
  const Linha tres = {{"casas_decimais_quantidade", "3"}, {"casas_decimais_valor", "3"}};
  const auto com = [&](const std::string& coluna, const std::string& valor) {
    Linha linha = tres;
    linha[coluna] = valor;
    auto erro = banco_.executa(insere("item_cupom_fiscal", linha));
    banco_.executa("DELETE FROM item_cupom_fiscal");
    return erro;
  };
  EXPECT_EQ(com("quantidade", "'9999.999'"), "");
  EXPECT_NE(com("quantidade", "'10000'"), "");
  EXPECT_EQ(com("valor_unitario", "'99999.999'"), "");
  EXPECT_NE(com("valor_unitario", "'100000'"), "");
}

TEST_F(Esquema, LetsANonFiscalTotalizerHaveAnyName) {
  EXPECT_EQ(
      banco_.executa(insere("totalizador_reducao", {{"id_fiscal", "'N'"}, {"totalizador", "'RETIRADA'"}})),
      "");
  EXPECT_NE(banco_.executa(insere("totalizador_reducao", {{"totalizador", "'RETIRADA'"}})), "");
}

TEST_F(Esquema, KeepsEachItemNumberOnceInACoupon) {
  for (const char* tabela : {"item_cupom_fiscal", "item_cupom_nf"}) {
    EXPECT_EQ(banco_.executa(insere(tabela)), "") << tabela;
    EXPECT_NE(banco_.executa(insere(tabela)), "") << tabela;
    EXPECT_EQ(banco_.executa(insere(tabela, {{"seq_item", "2"}})), "") << tabela;
  }
}

// The parent may come later in the same transaction, but it has to come.
TEST_F(Esquema, RelatesItemsAndPaymentsWhenTheHostEnforcesIt) {
  struct Relacao {
    const char* filho;
    std::vector<const char*> pais;
  };
  const std::vector<Relacao> relacoes = {{"item_cupom_fiscal", {"cupom_fiscal"}},
                                         {"item_cupom_nf", {"cupom_nf", "totalizador_nao_fiscal"}},
                                         {"pagamento_cupom", {"meio_pagamento"}}};
  ASSERT_EQ(banco_.executa("PRAGMA foreign_keys = ON"), "");
  for (const auto& relacao : relacoes) {
    EXPECT_EQ(banco_.executa(insere(relacao.filho)), "FOREIGN KEY constraint failed") << relacao.filho;
    EXPECT_EQ(banco_.executa("BEGIN;" + insere(relacao.filho)), "");
    for (const char* pai : relacao.pais) EXPECT_EQ(banco_.executa(insere(pai)), "");
    EXPECT_EQ(banco_.executa("COMMIT"), "") << relacao.filho;
  }
}

TEST_F(Esquema, TakesDocumentsOfTheOpenDayBeforeTheirReduction) {
  ASSERT_EQ(banco_.executa("PRAGMA foreign_keys = ON"), "");
  EXPECT_EQ(banco_.executa(insere("cupom_fiscal") + insere("cupom_nf") + insere("outros_documentos")), "");
}

}  // namespace
}  // namespace cotepe::testes
