// The queries of the generator, to the letter: runs of blanks and tabs included.
// "%s" stands for the first and the last moment of the period, by turns.
#pragma once

namespace referencia {

// clang-format off

// The printer and its user; the last row of the join wins.
constexpr const char* kIdentidade =
    "select ecf.num_serie, ecf.modelo, usuario.seq_usuario from dados_ecf AS ecf LEFT JOIN "
    "dados_usuario AS usuario";

constexpr const char* kE01_1 =
    "SELECT tipo, marca, modelo, ' ', num_caixa FROM dados_ecf";

constexpr const char* kE01_2 =
    "SELECT versao, ifnull(data_hora_gravacao, '                   ')"
    "                  FROM versao_sb"
    "                  WHERE num_sequencia = (SELECT MAX(num_sequencia) FROM versao_sb)";

constexpr const char* kE01_4 =
    "SELECT MIN(cont_crz), MAX(cont_crz), MIN(data_movimento), MAX(data_hora_emissao)"
    "                  FROM reducao_z"
    "                  WHERE data_movimento >= '%s' AND data_movimento <= '%s'";

constexpr const char* kE02GtMf =
    "SELECT MAX(valor_gt) FROM reducao_z";

constexpr const char* kE02Gt =
    "SELECT MAX(valor_gt) FROM posicao_totalizadores_contadores";

constexpr const char* kE02 =
    "SELECT cnpj, SUBSTR(ie, 0, 15), razao_social, endereco,"
    "                  ifnull(data_hora_gravacao, '                   '), cont_cro, valor_gt"
    "                  FROM dados_usuario";

// The third query of E01, the first of E05, E06 and E10, the only one of E08.
constexpr const char* kCnpj =
    "SELECT cnpj FROM dados_usuario";

constexpr const char* kE05 =
    "SELECT ifnull(data_hora_gravacao, '                   '), codificacao FROM codificacao_gt";

constexpr const char* kE06 =
    "SELECT ifnull(data_hora_gravacao, '                   '), simbolo_moeda FROM moeda";

constexpr const char* kE07 =
    "SELECT versao, ifnull(data_hora_gravacao, '                   ') FROM versao_sb";

// Four tabs stand before cont_crz.
constexpr const char* kE09 =
    "SELECT cont_cro, ifnull(data_hora_intervencao, '                   '), id_perda_dados_mt, "
    "id_tipo_intervencao,"
    " \t\t\t\t cont_crz, cont_coo"
    "                  FROM intervencao"
    "                  ORDER BY cont_cro";

constexpr const char* kE10 =
    "SELECT cont_cfd, ifnull(data_hora_emissao, '                   '), coo_inicial, coo_final"
    "                  FROM fita_detalhe"
    "                  WHERE data_hora_emissao >= '%s' AND data_hora_emissao <= '%s'"
    "                  ORDER BY cont_cfd";

constexpr const char* kE11 =
    "SELECT cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, cont_cfd, valor_gt"
    "                  FROM posicao_totalizadores_contadores";

constexpr const char* kE12 =
    "SELECT cont_crz, cont_coo, cont_cro, ifnull(data_movimento, '                   '),"
    "                  ifnull(data_hora_emissao, '                   '), valor_vb"
    "                  FROM reducao_z"
    "                  WHERE data_movimento >= '%s'"
    "                  AND data_movimento <= '%s'"
    "                  ORDER BY cont_crz, cont_cro";

constexpr const char* kE13_1 =
    "SELECT totalizador.cont_crz as CRZ, totalizador.totalizador as TOT, "
    "totalizador.valor_base_calculo as VAL,"
    "                     '0' as ORD"
    "                     FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS "
    "reducao USING(cont_crz)"
    "                     WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= "
    "'%s' AND id_fiscal = 'S'"
    "                     AND SUBSTR(totalizador.totalizador, 3, 1) == 'T'"
    "                     UNION"
    "                     SELECT totalizador.cont_crz as CRZ, totalizador.totalizador as TOT, "
    "totalizador.valor_base_calculo as VAL,"
    "                     '1' as ORD"
    "                     FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS "
    "reducao USING(cont_crz)"
    "                     WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= "
    "'%s' AND id_fiscal = 'S'"
    "                     AND SUBSTR(totalizador.totalizador, 3, 1) == 'S'"
    "                     UNION"
    "                     SELECT totalizador.cont_crz as CRZ, totalizador.totalizador as TOT, "
    "totalizador.valor_base_calculo as VAL,"
    "                     '2' as ORD"
    "                     FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS "
    "reducao USING(cont_crz)"
    "                     WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= "
    "'%s' AND id_fiscal = 'S'"
    "                     AND (SUBSTR(totalizador.totalizador, 3, 1) <> 'S' AND "
    "SUBSTR(totalizador.totalizador, 3, 1) <> 'T')"
    "                     ORDER BY CRZ, ORD";

constexpr const char* kE13_2 =
    "SELECT totalizador.cont_crz, 'OPNF', SUM(totalizador.valor_base_calculo)"
    "                  FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS reducao "
    "USING(cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s' "
    "AND id_fiscal = 'N'"
    "                  GROUP BY totalizador.cont_crz";

constexpr const char* kE22 =
    "SELECT * FROM tentativas_sb";

constexpr const char* kE14 =
    "SELECT cupom.cont_ccf, cupom.cont_coo, cupom.data_hora_emissao, cupom.valor_subtotal, "
    "cupom.valor_desconto,"
    "                  cupom.valor_acrescimo, cupom.valor_total, cupom.id_cancelado, "
    "cupom.valor_canc_acrescimo, SUBSTR(cupom.nome_consumidor, 0, 40),"
    "                  cupom.cpf_cnpj_consumidor, cupom.tipo_acrescimo, cupom.tipo_desconto, "
    "cupom.perc_desconto, cupom.perc_acrescimo,"
    " \t\t\t\t cupom.texto_suplementar, cupom.texto_complementar, cupom.assinatura_documento"
    "                  FROM cupom_fiscal AS cupom INNER JOIN reducao_z AS reducao USING(cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
    "                  ORDER BY cupom.cont_ccf";

constexpr const char* kE15 =
    "SELECT item.cont_coo, cupom.cont_ccf, item.seq_item, item.cod_item, SUBSTR(item.descricao, "
    "0, 100),"
    "                  item.quantidade, item.un_medida, item.valor_unitario, "
    "item.valor_desconto, item.valor_acrescimo,"
    "                  item.valor_total, item.aliquota, item.id_cancelado, "
    "item.valor_canc_acrescimo, item.id_arred_trunc_valor,"
    "                  item.casas_decimais_quantidade, item.casas_decimais_valor, "
    "item.perc_acrescimo, item.perc_desconto"
    "                  FROM cupom_fiscal AS cupom INNER JOIN item_cupom_fiscal AS item USING "
    "(cont_coo) INNER JOIN reducao_z AS reducao USING(cont_crz)"
    "                  WHERE reducao.data_movimento >="
    "  '%s'"
    "                  AND reducao.data_movimento <= '%s'"
    "                  ORDER BY cupom.cont_ccf, item.seq_item";

constexpr const char* kE16 =
    "SELECT outros.cont_coo, outros.cont_gnf, outros.cont_grg, outros.cont_cdc, outros.cont_crz, "
    "outros.id_tipo_documento, outros.data_hora_fim_emissao"
    "                  FROM outros_documentos AS outros INNER JOIN reducao_z AS reducao "
    "USING(cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s'"
    "                  AND reducao.data_movimento <= '%s'"
    "                  ORDER BY outros.cont_coo";

constexpr const char* kE17 =
    "SELECT totalizador.cont_crz, SUBSTR(totalizador.totalizador, 0, 15), "
    "totalizador.valor_base_calculo"
    "                  FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS reducao "
    "USING(cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s'"
    "                  AND reducao.data_movimento <= '%s'"
    "                  AND id_fiscal = 'N'"
    "                  ORDER BY totalizador.cont_crz, totalizador.totalizador";

constexpr const char* kE18 =
    "SELECT pagamento.cont_crz, pagamento.descricao_meio_pagamento, pagamento.valor_acumulado"
    "                   FROM meio_pagamento_reducao AS pagamento INNER JOIN reducao_z AS reducao "
    "USING(cont_crz)"
    "                  WHERE reducao.data_movimento BETWEEN '%s' AND '%s'"
    "                  ORDER BY pagamento.cont_crz, pagamento.descricao_meio_pagamento COLLATE NOCASE";

constexpr const char* kE19 =
    "SELECT cupom.cont_coo, cupom.cont_gnf, ifnull(cupom.data_hora_emissao, '                   '),"
    "                  cupom.valor_subtotal, cupom.valor_desconto, cupom.valor_acrescimo,"
    "                  cupom.valor_total_cupom, cupom.id_cancelado, cupom.valor_canc_acrescimo, "
    "cupom.nome_consumidor,"
    "                  cupom.cpf_cnpj_consumidor, cupom.tipo_acrescimo, cupom.tipo_desconto"
    "                  FROM cupom_nf AS cupom INNER JOIN reducao_z AS reducao USING(cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s' "
    "order by cupom.cont_gnf";

constexpr const char* kE20 =
    "SELECT cupom.cont_coo, cupom.cont_gnf, item.seq_item, totalizador.descricao, item.valor_total,"
    "                  item.valor_desconto, item.valor_acrescimo, item.valor_total_liquido, "
    "item.id_cancelado, item.valor_canc_acrescimo"
    "                  FROM cupom_nf AS cupom INNER JOIN item_cupom_nf AS item USING (cont_coo)"
    "                  INNER JOIN totalizador_nao_fiscal AS totalizador ON "
    "(item.indice_totalizador_nf = totalizador.num_indice)"
    "                  INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s' "
    "order by cupom.cont_gnf, item.seq_item";

constexpr const char* kE21_1 =
    "SELECT cupom.cont_coo, cupom.cont_ccf, '000000000', meiopagamento.descricao,"
    "                  pagamento.valor_pagamento, pagamento.id_estornado, pagamento.valor_estornado"
    "                  FROM pagamento_cupom AS pagamento INNER JOIN cupom_fiscal AS cupom USING "
    "(cont_coo)"
    "                  INNER JOIN meio_pagamento AS meiopagamento ON "
    "(pagamento.indice_meio_pagamento = meiopagamento.num_indice)"
    "                  INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'";

constexpr const char* kE21_2 =
    "SELECT cupom.cont_coo, '000000000', cupom.cont_gnf, meiopagamento.descricao,"
    "                  pagamento.valor_pagamento, pagamento.id_estornado, pagamento.valor_estornado"
    "                  FROM pagamento_cupom AS pagamento INNER JOIN cupom_nf AS cupom USING "
    "(cont_coo)"
    "                  INNER JOIN meio_pagamento AS meiopagamento ON "
    "(pagamento.indice_meio_pagamento = meiopagamento.num_indice)"
    "                  INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)"
    "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
    "                  ORDER BY"
    "  cupom.cont_coo, meiopagamento.descricao";

// clang-format on

}  // namespace referencia
