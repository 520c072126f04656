// The one item that the tests of E15 change.
#pragma once

#include <string>

#include "Bancada.h"

inline constexpr char kCupomDoItem[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');"
    "INSERT INTO cupom_fiscal(cont_ccf, cont_coo, cont_crz) VALUES('20', '10', '7');";

// An item of nothing: amounts zero, texts empty, two decimal places, not cancelled.
inline constexpr char kItem[] =
    "INSERT INTO item_cupom_fiscal(cont_coo, seq_item, cod_item, descricao, quantidade, valor_unitario,"
    " un_medida, valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, aliquota, id_cancelado,"
    " id_arred_trunc_valor, casas_decimais_quantidade, casas_decimais_valor, perc_acrescimo, perc_desconto)"
    " VALUES('10','1','','','0','0','','0','0','0','0','','N','A','2','2','0','0');";

// The only item of the only coupon of the bench, `mudanca` being a list of "column = value".
inline std::string linhaDoItemCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql("DELETE FROM reducao_z; DELETE FROM cupom_fiscal; DELETE FROM item_cupom_fiscal");
  bancada.sql(kCupomDoItem);
  bancada.sql(kItem);
  bancada.sql("UPDATE item_cupom_fiscal SET " + mudanca);
  return bancada.linha("E15");
}
