// What programs call the fields, letter by letter.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "Leiaute/Chave.h"
#include "Registros/Catalogo.h"

namespace {

using namespace cotepe;
using Chaves = std::vector<std::string>;

const Chaves kSemUsuario = {"tipo_registro", "numero_fabricacao_ecf", "mf_adicional", "modelo_ecf"};
const Chaves kComUsuario = {"tipo_registro", "numero_fabricacao_ecf", "mf_adicional", "modelo_ecf",
                            "numero_ordem_usuario"};

const struct {
  const char* codigo;
  Chaves cabecalho, campos;
} kRegistros[] = {
    {"E01",
     {},
     {"tipo_registro", "numero_fabricacao", "mf_adicional", "tipo_ecf", "marca", "modelo",
      "versao_software_basico", "data_gravacao_sb", "hora_gravacao_sb", "numero_sequencial_ecf",
      "cnpj_usuario", "comando_geracao", "crz_inicial", "crz_final", "data_inicial", "data_final",
      "versao_programa_gerador", "versao_leiaute"}},
    {"E02",
     kSemUsuario,
     {"cnpj", "inscricao_estadual", "razao_social", "endereco", "data_cadastro", "hora_cadastro", "cro", "gt",
      "numero_usuario"}},
    {"E03",
     kSemUsuario,
     {"numero_prestador", "data", "hora", "primeiro_numero", "segundo_numero", "terceiro_numero"}},
    {"E04",
     kSemUsuario,
     {"numero_usuario", "data", "hora", "primeiro_numero", "segundo_numero", "contador", "terceiro_numero"}},
    {"E05", kSemUsuario, {"cnpj_usuario", "data_gravacao", "hora_gravacao", "codificacao_gt"}},
    {"E06", kSemUsuario, {"cnpj_usuario", "data_gravacao", "hora_gravacao", "simbolo_moeda"}},
    {"E07", kSemUsuario, {"versao_software_basico", "data_gravacao"}},
    {"E08", kSemUsuario, {"cnpj_usuario", "numero_serie_mfd"}},
    {"E09",
     kSemUsuario,
     {"cro", "data_intervencao", "hora_intervencao", "perda_dados_mt", "tipo_intervencao", "crz", "coo"}},
    {"E10", kSemUsuario, {"cfd", "data_emissao", "coo_inicial", "coo_final", "cnpj_usuario"}},
    {"E11",
     kSemUsuario,
     {"crz", "cro", "coo", "gnf", "ccf", "primeiro_contador_sem_fonte", "segundo_contador_sem_fonte", "grg",
      "terceiro_contador_sem_fonte", "cfd", "gt", "data_geracao", "hora_geracao"}},
    {"E12",
     kComUsuario,
     {"crz", "coo", "cro", "data_movimento", "data_emissao", "hora_emissao", "venda_bruta_diaria",
      "indicador"}},
    {"E13", kComUsuario, {"crz", "totalizador_parcial", "valor_acumulado"}},
    {"E14",
     kComUsuario,
     {"ccf", "coo", "data_emissao", "subtotal", "desconto", "tipo_desconto", "acrescimo", "tipo_acrescimo",
      "valor_total_liquido", "cancelado", "cancelamento_acrescimo", "ordem_desconto_acrescimo",
      "nome_consumidor", "cpf_cnpj_consumidor", "texto_suplementar", "texto_complementar",
      "assinatura_documento"}},
    {"E15",
     kComUsuario,
     {"coo", "ccf", "numero_item", "codigo", "descricao", "quantidade", "unidade", "valor_unitario",
      "desconto", "acrescimo", "valor_total_liquido", "totalizador_parcial", "cancelado",
      "quantidade_cancelada", "valor_cancelado", "cancelamento_acrescimo", "arredondamento_ou_truncamento",
      "casas_decimais_quantidade", "casas_decimais_valor_unitario"}},
    {"E16",
     kComUsuario,
     {"coo", "gnf", "grg", "cdc", "crz", "simbolo_documento", "data_final_emissao", "hora_final_emissao"}},
    {"E17", kComUsuario, {"crz", "totalizador_nao_fiscal", "valor_acumulado"}},
    {"E18", kComUsuario, {"crz", "meio_pagamento", "valor_acumulado"}},
    {"E19",
     kComUsuario,
     {"coo", "gnf", "data_emissao", "subtotal", "desconto", "tipo_desconto", "acrescimo", "tipo_acrescimo",
      "valor_total_liquido", "cancelado", "cancelamento_acrescimo", "ordem_desconto_acrescimo",
      "nome_consumidor", "cpf_cnpj_consumidor"}},
    {"E20",
     kComUsuario,
     {"coo", "gnf", "numero_item", "denominacao_operacao", "valor", "desconto", "acrescimo", "valor_liquido",
      "cancelado", "cancelamento_acrescimo"}},
    {"E21",
     kComUsuario,
     {"coo", "ccf", "gnf", "meio_pagamento", "valor_pago", "estornado", "valor_estornado"}},
    {"E22", {}, {"tipo_registro", "numero_fabricacao_ecf", "modelo_ecf", "numero", "data"}},
};

TEST(Chaves, OfEveryFieldAreThoseOfTheTableAndUniqueWithinTheRegister) {
  ASSERT_EQ(std::size(kRegistros), kCatalogo.size());
  for (std::size_t i = 0; i < kCatalogo.size(); ++i) {
    Chaves esperadas = kRegistros[i].cabecalho;
    esperadas.insert(esperadas.end(), kRegistros[i].campos.begin(), kRegistros[i].campos.end());
    Chaves chaves;
    for (const Campo& campo : kCatalogo[i]->campos) chaves.push_back(chaveDe(campo));
    EXPECT_EQ(kCatalogo[i]->codigo, std::string(kRegistros[i].codigo));
    EXPECT_EQ(chaves, esperadas) << kRegistros[i].codigo;
    EXPECT_EQ(std::set<std::string>(chaves.begin(), chaves.end()).size(), chaves.size())
        << kRegistros[i].codigo;
  }
}

TEST(Chaves, AbbreviationInParenthesesIsTheKeyAndAnythingElseInThemIsLeftOut) {
  EXPECT_EQ(chaveDe({"Contador de cupom fiscal (CCF)", Especie::Texto, 1, {}}), "ccf");
  EXPECT_EQ(chaveDe({"Aceito (S/N)", Especie::Texto, 1, {}}), "aceito");
}

TEST(Chaves, AccentsInCapitalsGoToo) {
  EXPECT_EQ(chaveDe({"Índice e Órgão", Especie::Texto, 1, {}}), "indice_orgao");
}

}  // namespace
