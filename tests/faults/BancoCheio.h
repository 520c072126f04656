// A fiscal database in which every table has rows, every column a value, and every register lines of its own.
#pragma once

#include <string>

#include "Bancada.h"

/// Fills the empty tables of the bench with `linhas` rows each (of the totalizers four times as many), at
/// most 28: the row i of each table belongs to the rows i of the others. All of it lies in January 2024.
inline void enche(Bancada& bancada, int linhas = 3) {
  const std::string n =
      "WITH n(i, d) AS (SELECT 1, '01' UNION ALL SELECT i + 1, printf('%02d', i + 1) FROM n WHERE i < " +
      std::to_string(linhas) + ") ";
  const auto insere = [&](const std::string& tabela, const std::string& valores) {
    bancada.sql("INSERT INTO " + tabela + " " + n + "SELECT " + valores + " FROM n");
  };
  insere("dados_ecf(num_serie, modelo, tipo, marca, num_caixa)",
         "'DR0123BR0000006543' || d, 'MODELO FISCAL X-10' || d, 'ECF-P' || d, 'MARCA DE IMPRESSOR' || d, '9' "
         "|| d");
  insere(
      "dados_usuario(seq_usuario, cnpj, ie, razao_social, endereco, data_hora_gravacao, cont_cro, valor_gt)",
      "d, '987654320001' || d, '123.456.789-' || d, 'RAZAO SOCIAL DO CONTRIBUINTE USUARIO LT' || i,"
      "'RUA DAS FLORES, ' || d, '2019-03-04 05:06:' || d, '2345' || d, '111.' || d");
  insere("versao_sb(versao, data_hora_gravacao, num_sequencia)",
         "'01.00.0.' || d, '2018-07-08 09:10:' || d, i");
  insere("tentativas_sb(numero, versao, data_hora, resultado)",
         "'67' || d, '01.00', '2022-11-12 13:14:' || d, 'N'");
  insere("codificacao_gt(data_hora_gravacao, codificacao)", "'2019-02-03 04:05:' || d, 'ABCDEFGH' || d");
  insere("moeda(data_hora_gravacao, simbolo_moeda)", "'2017-06-05 04:03:' || d, 'R$' || d");
  insere(
      "intervencao(cont_cro, data_hora_intervencao, id_perda_dados_mt, id_tipo_intervencao, cont_crz, "
      "cont_coo)",
      "'3456' || d, '2021-10-11 12:13:' || d, 'S', 'T', '43' || d, '9876543' || d");
  insere("fita_detalhe(cont_cfd, data_hora_emissao, coo_inicial, coo_final)",
         "'4567' || d, '2024-01-' || d || ' 23:59:59', '1234567' || d, '2234567' || d");
  insere(
      "posicao_totalizadores_contadores(cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, cont_cfd,"
      " valor_gt)",
      "'5678' || d, '6789' || d, '1234567' || d, '2345678' || d, '3456789' || d, '4567891' || d, '7891' || d,"
      "'987654321098.' || d");
  insere("reducao_z(cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao, valor_vb, valor_gt)",
         "'1234' || d, '2345678' || d, '3456' || d, '2024-01-' || d || ' 00:00:00', '2024-01-' || d || ' "
         "21:02:03',"
         "'123456789012.' || d, '876543210987.' || d");
  for (const char* totalizador :
       {"'01T18.' || d, '98765432109.' || d, 'S'", "'02S05.' || d, '88765432109.' || d, 'S'",
        "'F' || d, '78765432109.' || d, 'S'", "'SANGRIA 5678' || d, '23456789012.' || d, 'N'"})
    insere("totalizador_reducao(cont_crz, totalizador, valor_base_calculo, id_fiscal)",
           "'1234' || d, " + std::string(totalizador));
  insere("meio_pagamento_reducao(cont_crz, descricao_meio_pagamento, valor_acumulado)",
         "'1234' || d, 'CARTAO DE CRE' || d, '87654321098.' || d");
  insere(
      "cupom_fiscal(cont_ccf, cont_coo, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto,"
      " valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado, nome_consumidor, "
      "cpf_cnpj_consumidor,"
      " tipo_acrescimo, tipo_desconto, perc_desconto, perc_acrescimo, texto_suplementar, texto_complementar,"
      " assinatura_documento)",
      "'3456789' || d, '4567891' || d, '1234' || d, '2024-01-' || d || ' 14:15:16', '234567890123.' || d,"
      "'34567890123.' || d, '45678901234.' || d, '567890123456.' || d, '67890123456.' || d, 'S',"
      "'MARIA APARECIDA DE OLIVEIRA E SOUZA N' || d, '123456780001' || d, 'P', 'P', '9', '8',"
      "'TEXTO SUPLEMENTAR ' || d, 'TEXTO COMPLEMENTAR ' || d, 'ASSINATURA-0123456789-ABCDEFGHIJKLMNOPQRST' "
      "|| d");
  insere(
      "item_cupom_fiscal(cont_coo, seq_item, cod_item, descricao, quantidade, valor_unitario, un_medida,"
      " valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, aliquota, id_cancelado,"
      " id_arred_trunc_valor, casas_decimais_quantidade, casas_decimais_valor, perc_acrescimo, "
      "perc_desconto)",
      "'4567891' || d, '9' || d, 'COD123456789' || d, 'CAFE TORRADO E MOIDO ' || d, '1234.5' || d,"
      "'98765.4' || d, 'P' || d, '123456.' || d, '234567.' || d, '345678901234.' || d, '78901234567.' || d,"
      "'01T18.' || d, 'N', 'T', '3', '3', '7', '6'");
  insere(
      "outros_documentos(cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento,"
      " data_hora_fim_emissao)",
      "'5678912' || d, '6789123' || d, '7891234' || d, '89' || d, '1234' || d,"
      "substr('RGCCRZCNNC', 2 * (i % 5) + 1, 2), '2024-01-' || d || ' 16:17:18'");
  insere(
      "cupom_nf(cont_coo, cont_gnf, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto,"
      " valor_acrescimo, valor_total_cupom, valor_canc_acrescimo, id_cancelado, tipo_acrescimo, "
      "tipo_desconto,"
      " nome_consumidor, cpf_cnpj_consumidor)",
      "'6789123' || d, '7891234' || d, '1234' || d, '2024-01-' || d || ' 17:18:19', '456789012345.' || d,"
      "'56789012345.' || d, '0.' || d, '678901234567.' || d, '89012345678.' || d, 'N', 'Q', 'P',"
      "'JOAO CARLOS PEREIRA DOS SANTOS FILHO 1' || d, '987654321' || d");
  insere(
      "item_cupom_nf(cont_coo, seq_item, indice_totalizador_nf, valor_total, valor_desconto, valor_acrescimo,"
      " valor_total_liquido, valor_canc_acrescimo, id_cancelado)",
      "'6789123' || d, '8' || d, i, '12345678901.' || d, '23456789012.' || d, '34567890123.' || d,"
      "'45678901234.' || d, '56789012345.' || d, 'N'");
  insere("totalizador_nao_fiscal(num_indice, descricao)", "i, 'SUPRIMENTO 12' || d");
  insere("pagamento_cupom(cont_coo, indice_meio_pagamento, valor_pagamento, valor_estornado, id_estornado)",
         "'4567891' || d, i, '98765432109.' || d, '12345678901.' || d, 'S'");
  insere("pagamento_cupom(cont_coo, indice_meio_pagamento, valor_pagamento, valor_estornado, id_estornado)",
         "'6789123' || d, i, '88765432109.' || d, '22345678901.' || d, 'N'");
  insere("meio_pagamento(num_indice, descricao)", "i, 'CARTEIRA DIGI' || d");
}
