// The queries of the registers, typed for the test from the register descriptions, with a whole period in
// them.
#pragma once

#include <string>
#include <vector>

namespace cotepe::testes {

struct ConsultaDeRegistro {
  std::string nome, sql;
};

// `periodo` is "BETWEEN" bounds spelled out for the column given: >= the first second and <= the last one.
inline std::string noPeriodo(const std::string& coluna) {
  return coluna + " >= '2024-01-01 00:00:00' AND " + coluna + " <= '2024-01-31 23:59:59'";
}

inline std::vector<ConsultaDeRegistro> consultasDosRegistros() {
  const std::string doMovimento = " WHERE " + noPeriodo("reducao.data_movimento");
  const auto fiscais = [&](const std::string& ordem, const std::string& tipo) {
    return "SELECT totalizador.cont_crz as CRZ, totalizador.totalizador as TOT, "
           "totalizador.valor_base_calculo as VAL, '" +
           ordem +
           "' as ORD "
           "FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS reducao USING(cont_crz)" +
           doMovimento + " AND id_fiscal = 'S' AND " + tipo;
  };
  const std::string terceira = "SUBSTR(totalizador.totalizador, 3, 1)";
  const auto pagamentos = [&](const std::string& colunas, const std::string& cupom) {
    return "SELECT cupom.cont_coo, " + colunas +
           ", meiopagamento.descricao, pagamento.valor_pagamento, "
           "pagamento.id_estornado, pagamento.valor_estornado "
           "FROM pagamento_cupom AS pagamento INNER JOIN " +
           cupom +
           " AS cupom USING (cont_coo) "
           "INNER JOIN meio_pagamento AS meiopagamento ON (pagamento.indice_meio_pagamento = "
           "meiopagamento.num_indice) "
           "INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)" +
           doMovimento;
  };
  return {
      {"Identidade",
       "select ecf.num_serie, ecf.modelo, usuario.seq_usuario from dados_ecf AS ecf LEFT JOIN dados_usuario "
       "AS usuario"},
      {"E01_1", "SELECT tipo, marca, modelo, ' ', num_caixa FROM dados_ecf"},
      {"E01_2",
       "SELECT versao, ifnull(data_hora_gravacao, '                   ') FROM versao_sb "
       "WHERE num_sequencia = (SELECT MAX(num_sequencia) FROM versao_sb)"},
      {"E01_3", "SELECT cnpj FROM dados_usuario"},
      {"E01_4",
       "SELECT MIN(cont_crz), MAX(cont_crz), MIN(data_movimento), MAX(data_hora_emissao) FROM reducao_z "
       "WHERE " +
           noPeriodo("data_movimento")},
      {"E02_MF", "SELECT MAX(valor_gt) FROM reducao_z"},
      {"E02_MFD", "SELECT MAX(valor_gt) FROM posicao_totalizadores_contadores"},
      {"E02",
       "SELECT cnpj, SUBSTR(ie, 0, 15), razao_social, endereco, ifnull(data_hora_gravacao, '                 "
       "  '), "
       "cont_cro, valor_gt FROM dados_usuario"},
      {"E05", "SELECT ifnull(data_hora_gravacao, '                   '), codificacao FROM codificacao_gt"},
      {"E06", "SELECT ifnull(data_hora_gravacao, '                   '), simbolo_moeda FROM moeda"},
      {"E07", "SELECT versao, ifnull(data_hora_gravacao, '                   ') FROM versao_sb"},
      {"E09",
       "SELECT cont_cro, ifnull(data_hora_intervencao, '                   '), id_perda_dados_mt, "
       "id_tipo_intervencao, cont_crz, cont_coo FROM intervencao ORDER BY cont_cro"},
      {"E10",
       "SELECT cont_cfd, ifnull(data_hora_emissao, '                   '), coo_inicial, coo_final FROM "
       "fita_detalhe "
       "WHERE " +
           noPeriodo("data_hora_emissao") + " ORDER BY cont_cfd"},
      {"E11",
       "SELECT cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, cont_cfd, valor_gt "
       "FROM posicao_totalizadores_contadores"},
      {"E12",
       "SELECT cont_crz, cont_coo, cont_cro, ifnull(data_movimento, '                   '), "
       "ifnull(data_hora_emissao, '                   '), valor_vb FROM reducao_z WHERE " +
           noPeriodo("data_movimento") + " ORDER BY cont_crz, cont_cro"},
      {"E13_1", fiscais("0", terceira + " == 'T'") + " UNION " + fiscais("1", terceira + " == 'S'") +
                    " UNION " + fiscais("2", "(" + terceira + " <> 'S' AND " + terceira + " <> 'T')") +
                    " ORDER BY CRZ, ORD"},
      {"E13_2",
       "SELECT totalizador.cont_crz, 'OPNF', SUM(totalizador.valor_base_calculo) "
       "FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS reducao USING(cont_crz)" +
           doMovimento + " AND id_fiscal = 'N' GROUP BY totalizador.cont_crz"},
      {"E14",
       "SELECT cupom.cont_ccf, cupom.cont_coo, cupom.data_hora_emissao, cupom.valor_subtotal, "
       "cupom.valor_desconto, "
       "cupom.valor_acrescimo, cupom.valor_total, cupom.id_cancelado, cupom.valor_canc_acrescimo, "
       "SUBSTR(cupom.nome_consumidor, 0, 40), cupom.cpf_cnpj_consumidor, cupom.tipo_acrescimo, "
       "cupom.tipo_desconto, "
       "cupom.perc_desconto, cupom.perc_acrescimo, cupom.texto_suplementar, cupom.texto_complementar, "
       "cupom.assinatura_documento FROM cupom_fiscal AS cupom INNER JOIN reducao_z AS reducao "
       "USING(cont_crz)" +
           doMovimento + " ORDER BY cupom.cont_ccf"},
      {"E15",
       "SELECT item.cont_coo, cupom.cont_ccf, item.seq_item, item.cod_item, SUBSTR(item.descricao, 0, 100), "
       "item.quantidade, item.un_medida, item.valor_unitario, item.valor_desconto, item.valor_acrescimo, "
       "item.valor_total, item.aliquota, item.id_cancelado, item.valor_canc_acrescimo, "
       "item.id_arred_trunc_valor, "
       "item.casas_decimais_quantidade, item.casas_decimais_valor, item.perc_acrescimo, item.perc_desconto "
       "FROM cupom_fiscal AS cupom INNER JOIN item_cupom_fiscal AS item USING (cont_coo) "
       "INNER JOIN reducao_z AS reducao USING(cont_crz)" +
           doMovimento + " ORDER BY cupom.cont_ccf, item.seq_item"},
      {"E16",
       "SELECT outros.cont_coo, outros.cont_gnf, outros.cont_grg, outros.cont_cdc, outros.cont_crz, "
       "outros.id_tipo_documento, outros.data_hora_fim_emissao FROM outros_documentos AS outros "
       "INNER JOIN reducao_z AS reducao USING(cont_crz)" +
           doMovimento + " ORDER BY outros.cont_coo"},
      {"E17",
       "SELECT totalizador.cont_crz, SUBSTR(totalizador.totalizador, 0, 15), totalizador.valor_base_calculo "
       "FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS reducao USING(cont_crz)" +
           doMovimento + " AND id_fiscal = 'N' ORDER BY totalizador.cont_crz, totalizador.totalizador"},
      {"E18",
       "SELECT pagamento.cont_crz, pagamento.descricao_meio_pagamento, pagamento.valor_acumulado "
       "FROM meio_pagamento_reducao AS pagamento INNER JOIN reducao_z AS reducao USING(cont_crz) "
       "WHERE reducao.data_movimento BETWEEN '2024-01-01 00:00:00' AND '2024-01-31 23:59:59' "
       "ORDER BY pagamento.cont_crz, pagamento.descricao_meio_pagamento COLLATE NOCASE"},
      {"E19",
       "SELECT cupom.cont_coo, cupom.cont_gnf, ifnull(cupom.data_hora_emissao, '                   '), "
       "cupom.valor_subtotal, cupom.valor_desconto, cupom.valor_acrescimo, cupom.valor_total_cupom, "
       "cupom.id_cancelado, cupom.valor_canc_acrescimo, cupom.nome_consumidor, cupom.cpf_cnpj_consumidor, "
       "cupom.tipo_acrescimo, cupom.tipo_desconto FROM cupom_nf AS cupom "
       "INNER JOIN reducao_z AS reducao USING(cont_crz)" +
           doMovimento + " order by cupom.cont_gnf"},
      {"E20",
       "SELECT cupom.cont_coo, cupom.cont_gnf, item.seq_item, totalizador.descricao, item.valor_total, "
       "item.valor_desconto, item.valor_acrescimo, item.valor_total_liquido, item.id_cancelado, "
       "item.valor_canc_acrescimo FROM cupom_nf AS cupom INNER JOIN item_cupom_nf AS item USING (cont_coo) "
       "INNER JOIN totalizador_nao_fiscal AS totalizador ON (item.indice_totalizador_nf = "
       "totalizador.num_indice) "
       "INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)" +
           doMovimento + " order by cupom.cont_gnf, item.seq_item"},
      {"E21", pagamentos("cupom.cont_ccf, '000000000'", "cupom_fiscal") + " UNION ALL " +
                  pagamentos("'000000000', cupom.cont_gnf", "cupom_nf") +
                  " ORDER BY  cupom.cont_coo, meiopagamento.descricao"},
      {"E22", "SELECT * FROM tentativas_sb"}};
}

inline std::string consulta(const std::string& nome) {
  for (const auto& uma : consultasDosRegistros()) {
    if (uma.nome == nome) return uma.sql;
  }
  return "no query " + nome;
}

}  // namespace cotepe::testes
