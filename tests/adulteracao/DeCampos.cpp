// One field that says something else, in the right form: what its line, its document, its reduction or the
// file says otherwise.
#include "Adulterado.h"

namespace cotepe {
namespace {

bool soma(Adulterado& relatorio, int vez, const Classe& classe) {
  std::vector<std::size_t> possiveis;
  for (const std::size_t linha : relatorio.de(classe.registro))
    if (relatorio.pode(linha, classe.campo, classe.parcela)) possiveis.push_back(linha);
  return !possiveis.empty() && relatorio.soma(escolhe(possiveis, vez), classe.campo, classe.parcela);
}

bool poe(Adulterado& relatorio, int vez, const Classe& classe) {
  std::vector<std::size_t> possiveis;
  for (const std::size_t linha : relatorio.de(classe.registro))
    if (!relatorio.campo(linha, classe.campo).empty() && relatorio.campo(linha, classe.campo) != classe.bytes)
      possiveis.push_back(linha);
  return !possiveis.empty() && relatorio.poe(escolhe(possiveis, vez), classe.campo, classe.bytes);
}

struct Soma {
  const char *registro, *campo;
  std::int64_t parcela;
};

// Counters, keys, dates and amounts, each by an amount that keeps the form.
constexpr Soma kSomas[] = {
    {"E01", "crz_inicial", 1},
    {"E01", "crz_final", 1},
    {"E01", "crz_final", -1},
    {"E01", "data_inicial", 1},
    {"E01", "data_final", 1},
    {"E01", "cnpj_usuario", 1},
    {"E02", "cnpj", 1},
    {"E02", "cro", 1},
    {"E05", "cnpj_usuario", 1},
    {"E06", "cnpj_usuario", 1},
    {"E08", "cnpj_usuario", 1},
    {"E10", "cnpj_usuario", 1},
    {"E09", "cro", 1},
    {"E10", "cfd", 1},
    {"E10", "coo_inicial", 1},
    {"E10", "coo_final", 1},
    {"E11", "crz", -1},
    {"E11", "cro", -1},
    {"E11", "coo", -1000},
    {"E11", "gnf", -1000},
    {"E11", "ccf", -1000},
    {"E12", "crz", 1},
    {"E12", "crz", -1},
    {"E12", "coo", 1},
    {"E12", "cro", 1},
    {"E12", "data_movimento", 1},
    {"E12", "data_emissao", 1},
    {"E12", "hora_emissao", 10000},
    {"E12", "venda_bruta_diaria", 1},
    {"E12", "venda_bruta_diaria", -100},
    {"E13", "crz", 1},
    {"E13", "valor_acumulado", 1},
    {"E13", "valor_acumulado", 100000},
    {"E14", "ccf", 1},
    {"E14", "ccf", -1},
    {"E14", "coo", 1},
    {"E14", "coo", -1},
    {"E14", "data_emissao", 20},
    {"E14", "subtotal", 1},
    {"E14", "desconto", 1},
    {"E14", "acrescimo", 1},
    {"E14", "valor_total_liquido", 1},
    {"E14", "valor_total_liquido", -1},
    {"E14", "cancelamento_acrescimo", 1},
    {"E14", "cpf_cnpj_consumidor", 1},
    {"E15", "coo", 1},
    {"E15", "ccf", 1},
    {"E15", "numero_item", 1},
    {"E15", "quantidade", 100},
    {"E15", "valor_unitario", 100},
    {"E15", "desconto", 100},
    {"E15", "acrescimo", 100},
    {"E15", "valor_total_liquido", 100},
    {"E15", "valor_total_liquido", -100},
    {"E15", "valor_cancelado", 1},
    {"E15", "quantidade_cancelada", 1},
    {"E16", "coo", 1},
    {"E16", "gnf", 1},
    {"E16", "grg", 1},
    {"E16", "cdc", 1},
    {"E16", "crz", 1},
    {"E16", "data_final_emissao", 20},
    {"E17", "crz", 1},
    {"E17", "valor_acumulado", 1},
    {"E18", "crz", 1},
    {"E18", "valor_acumulado", 1},
    {"E18", "valor_acumulado", 100000},
    {"E19", "coo", 1},
    {"E19", "gnf", 1},
    {"E19", "data_emissao", 20},
    {"E19", "subtotal", 1},
    {"E19", "valor_total_liquido", 1},
    {"E19", "cpf_cnpj_consumidor", 1},
    {"E20", "coo", 1},
    {"E20", "gnf", 1},
    {"E20", "numero_item", 1},
    {"E20", "valor", 1},
    {"E20", "desconto", 1},
    {"E20", "acrescimo", 1},
    {"E20", "valor_liquido", 1},
    {"E21", "coo", 1},
    {"E21", "ccf", 1},
    {"E21", "gnf", 1},
    {"E21", "valor_pago", 1},
    {"E21", "valor_pago", -1},
    {"E21", "valor_estornado", 1},
};

struct Posto {
  const char *registro, *campo, *bytes;
};

// Texts and flags of the right form.
constexpr Posto kPostos[] = {
    {"E01", "numero_fabricacao", "ZZ999999999999999999"},
    {"E01", "comando_geracao", "RZ"},
    {"E01", "comando_geracao", "XX"},
    {"E01", "versao_leiaute", "AC1704 02.00.00"},
    {"E01", "versao_leiaute", "AC1704 01.00.00"},
    {"E01", "versao_software_basico", "99.99.99"},
    {"E01", "data_inicial", "20240231"},
    {"E01", "hora_gravacao_sb", "250000"},
    {"E02", "numero_fabricacao_ecf", "ZZ999999999999999999"},
    {"E02", "modelo_ecf", "OUTRO MODELO"},
    {"E02", "data_cadastro", "20231301"},
    {"E02", "hora_cadastro", "126000"},
    {"E05", "numero_fabricacao_ecf", "ZZ999999999999999999"},
    {"E09", "perda_dados_mt", "X"},
    {"E09", "data_intervencao", "20220230"},
    {"E10", "data_emissao", "20240230"},
    {"E12", "data_movimento", "20240232"},
    {"E12", "data_emissao", "20230101"},
    {"E12", "hora_emissao", "246060"},
    {"E12", "numero_ordem_usuario", "99"},
    {"E13", "totalizador_parcial", "XYZ"},
    {"E13", "totalizador_parcial", "07T9900"},
    {"E13", "modelo_ecf", "OUTRO MODELO"},
    {"E14", "cancelado", "X"},
    {"E14", "cancelado", "S"},
    {"E14", "tipo_desconto", "X"},
    {"E14", "tipo_acrescimo", "X"},
    {"E14", "ordem_desconto_acrescimo", "X"},
    {"E14", "cpf_cnpj_consumidor", "12345678901234"},
    {"E14", "numero_ordem_usuario", "99"},
    {"E15", "totalizador_parcial", "XYZ"},
    {"E15", "totalizador_parcial", "07T9900"},
    {"E15", "cancelado", "X"},
    {"E15", "arredondamento_ou_truncamento", "X"},
    {"E15", "casas_decimais_quantidade", "9"},
    {"E15", "casas_decimais_valor_unitario", "9"},
    {"E16", "simbolo_documento", "XX"},
    {"E16", "simbolo_documento", "CC"},
    {"E16", "data_final_emissao", "20240230"},
    {"E16", "hora_final_emissao", "236060"},
    {"E17", "totalizador_nao_fiscal", "DESCONHECIDO"},
    {"E18", "meio_pagamento", "DESCONHECIDO"},
    {"E19", "cancelado", "X"},
    {"E19", "cpf_cnpj_consumidor", "12345678901234"},
    {"E20", "cancelado", "X"},
    {"E20", "denominacao_operacao", "DESCONHECIDA"},
    {"E21", "estornado", "X"},
    {"E21", "estornado", "S"},
    {"E21", "meio_pagamento", "DESCONHECIDO"},
    {"E22", "data", "20240230"},
};

}  // namespace

std::vector<Classe> classesDeCampos() {
  std::vector<Classe> classes;
  for (const Soma& s : kSomas) {
    const std::string quanto = (s.parcela > 0 ? " plus " : " less ") + std::to_string(std::abs(s.parcela));
    classes.push_back(
        {std::string(s.registro) + ' ' + s.campo + quanto, soma, s.registro, s.campo, s.parcela, ""});
  }
  for (const Posto& p : kPostos)
    classes.push_back(
        {std::string(p.registro) + ' ' + p.campo + " is " + p.bytes, poe, p.registro, p.campo, 0, p.bytes});
  return classes;
}

}  // namespace cotepe
