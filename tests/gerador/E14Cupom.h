// The one coupon that the tests of E14 change.
#pragma once

#include <string>

#include "Bancada.h"

inline constexpr char kReducao[] =
    "INSERT INTO reducao_z(cont_crz, data_movimento) VALUES('7', '2024-01-15 00:00:00');";

// A coupon of nothing: counters, amounts and texts empty or zero, not cancelled.
inline constexpr char kCupom[] =
    "INSERT INTO cupom_fiscal(cont_ccf, cont_coo, cont_crz, data_hora_emissao, valor_subtotal,"
    " valor_desconto, valor_acrescimo, valor_total, valor_canc_acrescimo, id_cancelado, nome_consumidor,"
    " cpf_cnpj_consumidor, tipo_acrescimo, tipo_desconto, perc_desconto, perc_acrescimo, texto_suplementar,"
    " texto_complementar, assinatura_documento) VALUES('0','0','7','2024-01-15 10:20:30','0','0','0','0','0',"
    "'N','','','V','V','0','0','','','');";

// The only coupon of the bench, `mudanca` being a list of "column = value".
inline std::string linhaCom(Bancada& bancada, const std::string& mudanca) {
  bancada.sql("DELETE FROM reducao_z; DELETE FROM cupom_fiscal");
  bancada.sql(kReducao);
  bancada.sql(kCupom);
  bancada.sql("UPDATE cupom_fiscal SET " + mudanca);
  return bancada.linha("E14");
}

inline constexpr char kTudoPreenchido[] =
    "cont_ccf='987654321', cont_coo='123456789', data_hora_emissao='2023-12-31 23:59:58',"
    "valor_subtotal='123456789012.34', valor_desconto='23456789012.35', valor_acrescimo='34567890123.46',"
    "valor_total='456789012345.67', id_cancelado='S', valor_canc_acrescimo='56789012345.78',"
    "nome_consumidor='ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abc', cpf_cnpj_consumidor='98765432109876'";

// What follows the counters in the line of that coupon, up to the consumer.
inline const std::string kDepoisDosContadores =
    "20231231"
    "12345678901234"
    "2345678901235"
    "V"
    "3456789012346"
    "V"
    "45678901234567"
    "S"
    "5678901234578"
    "A"
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abc "
    "98765432109876";
