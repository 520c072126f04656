#include "Amostra/Memoria.h"

namespace cotepe::loja {

Memoria::Memoria(sqlite3* banco)
    : cupomFiscal(
          banco,
          "cupom_fiscal(cont_coo, cont_ccf, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto, "
          "valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado, nome_consumidor, "
          "cpf_cnpj_consumidor, tipo_acrescimo, tipo_desconto, perc_desconto, perc_acrescimo, "
          "texto_suplementar, texto_complementar, assinatura_documento)"),
      itemFiscal(
          banco,
          "item_cupom_fiscal(cont_coo, seq_item, cod_item, descricao, quantidade, un_medida, valor_unitario, "
          "valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, aliquota, id_cancelado, "
          "id_arred_trunc_valor, casas_decimais_quantidade, casas_decimais_valor, perc_acrescimo, "
          "perc_desconto)"),
      cupomNaoFiscal(
          banco,
          "cupom_nf(cont_coo, cont_gnf, cont_crz, data_hora_emissao, valor_subtotal, valor_desconto, "
          "valor_acrescimo, valor_total_cupom, valor_canc_acrescimo, id_cancelado, tipo_acrescimo, "
          "tipo_desconto, nome_consumidor, cpf_cnpj_consumidor)"),
      itemNaoFiscal(banco,
                    "item_cupom_nf(cont_coo, seq_item, indice_totalizador_nf, valor_total, valor_desconto, "
                    "valor_acrescimo, valor_total_liquido, valor_canc_acrescimo, id_cancelado)"),
      pagamento(
          banco,
          "pagamento_cupom(cont_coo, indice_meio_pagamento, valor_pagamento, valor_estornado, id_estornado)"),
      outroDocumento(banco,
                     "outros_documentos(cont_coo, cont_gnf, cont_grg, cont_cdc, cont_crz, id_tipo_documento, "
                     "data_hora_fim_emissao)"),
      reducao(
          banco,
          "reducao_z(cont_crz, cont_coo, cont_cro, data_movimento, data_hora_emissao, valor_vb, valor_gt)"),
      totalizador(banco, "totalizador_reducao(cont_crz, totalizador, valor_base_calculo, id_fiscal)"),
      meioDaReducao(banco, "meio_pagamento_reducao(cont_crz, descricao_meio_pagamento, valor_acumulado)"),
      intervencao(
          banco,
          "intervencao(cont_cro, data_hora_intervencao, id_perda_dados_mt, id_tipo_intervencao, cont_crz, "
          "cont_coo)"),
      fita(banco, "fita_detalhe(cont_cfd, data_hora_emissao, coo_inicial, coo_final)") {}

}  // namespace cotepe::loja
