// The program over databases without one table or one column: it names the registers that wanted it.
#include <map>
#include <set>
#include <sstream>

#include "Cena.h"
#include "Relato.h"

namespace {

class Nomeados : public Cena {};

// The codes in the message of an incomplete report.
std::string nomeados(const std::string& erros) {
  constexpr char kAntes[] = "the report is incomplete: ";
  const std::size_t inicio = erros.find(kAntes);
  if (inicio == std::string::npos) return "";
  std::string codigos;
  for (std::size_t i = inicio + sizeof kAntes - 1; i != std::string::npos;) {
    codigos += (codigos.empty() ? "" : " ") + erros.substr(i, 3);
    const std::size_t seguinte = erros.find("), E", i);
    i = seguinte == std::string::npos ? seguinte : seguinte + 3;
  }
  return codigos;
}

// Every column of the schema with the registers that name it, under TDM.
struct ColunaDoEsquema {
  const char *tabela, *colunas, *registros;
};
const ColunaDoEsquema kColunas[] = {
    {"dados_ecf", "tipo marca num_caixa", "E01"},
    {"dados_usuario", "cnpj", "E01 E02 E05 E06 E08 E10"},
    {"dados_usuario", "ie razao_social endereco data_hora_gravacao cont_cro valor_gt", "E02"},
    {"versao_sb", "versao data_hora_gravacao", "E01 E07"},
    {"versao_sb", "num_sequencia", "E01"},
    {"codificacao_gt", "data_hora_gravacao codificacao", "E05"},
    {"moeda", "data_hora_gravacao simbolo_moeda", "E06"},
    {"intervencao", "cont_cro data_hora_intervencao id_perda_dados_mt id_tipo_intervencao cont_crz cont_coo",
     "E09"},
    {"fita_detalhe", "cont_cfd data_hora_emissao coo_inicial coo_final", "E10"},
    {"posicao_totalizadores_contadores", "cont_crz cont_cro cont_coo cont_gnf cont_ccf cont_grg cont_cfd",
     "E11"},
    {"posicao_totalizadores_contadores", "valor_gt", "E02 E11"},
    {"reducao_z", "cont_crz", "E01 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21"},
    {"reducao_z", "cont_coo cont_cro valor_vb", "E12"},
    {"reducao_z", "data_movimento", "E01 E12 E13 E14 E15 E16 E17 E18 E19 E20 E21"},
    {"reducao_z", "data_hora_emissao", "E01 E12"},
    {"totalizador_reducao", "cont_crz totalizador valor_base_calculo id_fiscal", "E13 E17"},
    {"meio_pagamento_reducao", "cont_crz descricao_meio_pagamento valor_acumulado", "E18"},
    {"cupom_fiscal", "cont_ccf cont_coo cont_crz", "E14 E15 E21"},
    {"cupom_fiscal",
     "data_hora_emissao valor_subtotal valor_desconto valor_acrescimo valor_total valor_canc_acrescimo "
     "id_cancelado nome_consumidor cpf_cnpj_consumidor tipo_acrescimo tipo_desconto perc_desconto "
     "perc_acrescimo texto_suplementar texto_complementar assinatura_documento",
     "E14"},
    {"item_cupom_fiscal",
     "cont_coo seq_item cod_item descricao quantidade un_medida valor_unitario valor_desconto "
     "valor_acrescimo valor_total valor_canc_acrescimo aliquota id_cancelado id_arred_trunc_valor "
     "casas_decimais_quantidade casas_decimais_valor perc_acrescimo perc_desconto",
     "E15"},
    {"outros_documentos",
     "cont_coo cont_gnf cont_grg cont_cdc cont_crz id_tipo_documento data_hora_fim_emissao", "E16"},
    {"cupom_nf", "cont_coo cont_gnf cont_crz", "E19 E20 E21"},
    {"cupom_nf",
     "data_hora_emissao valor_subtotal valor_desconto valor_acrescimo valor_total_cupom "
     "valor_canc_acrescimo id_cancelado tipo_acrescimo tipo_desconto nome_consumidor cpf_cnpj_consumidor",
     "E19"},
    {"item_cupom_nf",
     "cont_coo seq_item indice_totalizador_nf valor_total valor_desconto valor_acrescimo "
     "valor_total_liquido valor_canc_acrescimo id_cancelado",
     "E20"},
    {"totalizador_nao_fiscal", "num_indice descricao", "E20"},
    {"pagamento_cupom", "cont_coo indice_meio_pagamento valor_pagamento valor_estornado id_estornado", "E21"},
    {"meio_pagamento", "num_indice descricao", "E21"},
};

TEST_F(Nomeados, EveryColumnThatIsMissingNamesTheRegistersThatReadIt) {
  Relato relato("Queries",
                "every column renamed under the program, which must name the registers that read it");
  criaBanco();
  for (const auto& [tabela, colunas, registros] : kColunas) {
    std::istringstream lista(colunas);
    for (std::string coluna; lista >> coluna;) {
      SCOPED_TRACE(std::string(tabela) + "." + coluna);
      const std::string renomeia =
          std::string("PRAGMA synchronous = OFF; ALTER TABLE ") + tabela + " RENAME COLUMN ";
      Banco(em("base.db")).sql(renomeia + coluna + " TO outra");
      const Fim fim = gera({"--output", "r.txt", "--layout", "2", "--quiet", "--log", "falhas.log"});
      Banco(em("base.db")).sql(renomeia + "outra TO " + coluna);
      EXPECT_EQ(fim.situacao, 1);
      EXPECT_EQ(nomeados(fim.erros), registros);
      relato.caso();
    }
  }
  EXPECT_EQ(gera({"--output", "r.txt", "--layout", "2"}).situacao, 0);
}

TEST_F(Nomeados, EveryTableThatIsMissingNamesTheRegistersThatReadIt) {
  Relato relato("Queries",
                "every table renamed under the program, which must name the registers that read it");
  criaBanco();
  std::map<std::string, std::set<std::string>> leitores = {{"tentativas_sb", {"E22"}}};
  for (const auto& [tabela, colunas, registros] : kColunas) {
    std::istringstream lista(registros);
    for (std::string codigo; lista >> codigo;) leitores[tabela].insert(codigo);
  }
  EXPECT_EQ(leitores.size(), 20U);
  for (const auto& [tabela, codigos] : leitores) {
    if (tabela == "dados_ecf" || tabela == "dados_usuario") continue;  // no identity: another failure
    SCOPED_TRACE(tabela);
    Banco(em("base.db")).sql("PRAGMA synchronous = OFF; ALTER TABLE " + tabela + " RENAME TO outra");
    const Fim fim = gera({"--output", "r.txt", "--layout", "2", "--quiet", "--log", "falhas.log"});
    Banco(em("base.db")).sql("PRAGMA synchronous = OFF; ALTER TABLE outra RENAME TO " + tabela);
    EXPECT_EQ(fim.situacao, 1);
    std::string esperados;
    for (const std::string& codigo : codigos) esperados += (esperados.empty() ? "" : " ") + codigo;
    EXPECT_EQ(nomeados(fim.erros), esperados);
    relato.caso();
  }
}

}  // namespace
