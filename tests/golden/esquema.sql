-- Every table of the fiscal database, with columns that keep any value as it is given.
CREATE TABLE dados_ecf(num_serie, modelo, tipo, marca, num_caixa);
CREATE TABLE dados_usuario(seq_usuario, cnpj, ie, razao_social, endereco, data_hora_gravacao, cont_cro, valor_gt);
CREATE TABLE versao_sb(versao, data_hora_gravacao, num_sequencia);
CREATE TABLE tentativas_sb(numero, versao, data_hora, resultado);
CREATE TABLE codificacao_gt(data_hora_gravacao, codificacao);
CREATE TABLE moeda(data_hora_gravacao, simbolo_moeda);
CREATE TABLE intervencao(cont_cro, data_hora_intervencao, id_perda_dados_mt, id_tipo_intervencao, cont_crz, cont_coo);
CREATE TABLE fita_detalhe(cont_cfd, data_hora_emissao, coo_inicial, coo_final);
CREATE TABLE posicao_totalizadores_contadores(cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, cont_cfd,
  valor_gt);
CREATE TABLE reducao_z(cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao, valor_vb, valor_gt);
CREATE TABLE totalizador_reducao(cont_crz, totalizador, valor_base_calculo, id_fiscal);
CREATE TABLE meio_pagamento_reducao(cont_crz, descricao_meio_pagamento, valor_acumulado);
CREATE TABLE cupom_fiscal(cont_ccf, cont_coo, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto,
  valor_acrescimo, valor_total, id_cancelado, valor_canc_acrescimo, nome_consumidor, cpf_cnpj_consumidor,
  tipo_acrescimo, tipo_desconto, perc_desconto, perc_acrescimo, texto_suplementar, texto_complementar,
  assinatura_documento);
CREATE TABLE item_cupom_fiscal(cont_coo, seq_item, cod_item, descricao, quantidade, un_medida, valor_unitario,
  valor_desconto, valor_acrescimo, valor_total, aliquota, id_cancelado, valor_canc_acrescimo, id_arred_trunc_valor,
  casas_decimais_quantidade, casas_decimais_valor, perc_acrescimo, perc_desconto);
CREATE TABLE outros_documentos(cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento,
  data_hora_fim_emissao);
CREATE TABLE cupom_nf(cont_coo, cont_gnf, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto, tipo_desconto,
  valor_acrescimo, tipo_acrescimo, valor_total_cupom, id_cancelado, valor_canc_acrescimo, nome_consumidor,
  cpf_cnpj_consumidor);
CREATE TABLE item_cupom_nf(cont_coo, seq_item, indice_totalizador_nf, valor_total, valor_desconto, valor_acrescimo,
  valor_total_liquido, id_cancelado, valor_canc_acrescimo);
CREATE TABLE totalizador_nao_fiscal(num_indice, descricao);
CREATE TABLE pagamento_cupom(cont_coo, indice_meio_pagamento, valor_pagamento, id_estornado, valor_estornado);
CREATE TABLE meio_pagamento(num_indice, descricao);
