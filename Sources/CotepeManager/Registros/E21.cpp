// E21, the payments of the fiscal and of the non-fiscal coupons, in one compound query.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr Codigo kEstornado[] = {{"S", marca("reversed")}, {"N", marca("not reversed")}};

// clang-format off
constexpr auto kCampos = registroDoUsuario("E21", {
    contador("COO",                   coluna(0)),
    contador("CCF",                   coluna(1)),
    contador("GNF",                   coluna(2)),
    texto   ("Meio de pagamento", 15, coluna(3)),
    dinheiro("Valor pago",        13, coluna(4)),
    letra   ("Estornado (S/N)",       coluna(5)).podeSer(kEstornado),
    dinheiro("Valor estornado",   13, coluna(6)),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 106);
static_assert(comprimento(kCampos, 2, false) == 115);

}  // namespace

constexpr Registro kE21 =
    Registro("E21", "Detalhe do Cupom Fiscal e do Documento Não Fiscal - Meio de Pagamento", kCampos,
             escreveTabela)
        .consulta(
            "SELECT cupom.cont_coo, cupom.cont_ccf, '000000000', meiopagamento.descricao,"
            "                  pagamento.valor_pagamento, pagamento.id_estornado, pagamento.valor_estornado"
            "                  FROM pagamento_cupom AS pagamento INNER JOIN cupom_fiscal AS cupom USING "
            "(cont_coo)"
            "                  INNER JOIN meio_pagamento AS meiopagamento"
            " ON (pagamento.indice_meio_pagamento = meiopagamento.num_indice)"
            "                  INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
            " UNION ALL "
            "SELECT cupom.cont_coo, '000000000', cupom.cont_gnf, meiopagamento.descricao,"
            "                  pagamento.valor_pagamento, pagamento.id_estornado, pagamento.valor_estornado"
            "                  FROM pagamento_cupom AS pagamento INNER JOIN cupom_nf AS cupom USING "
            "(cont_coo)"
            "                  INNER JOIN meio_pagamento AS meiopagamento"
            " ON (pagamento.indice_meio_pagamento = meiopagamento.num_indice)"
            "                  INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
            "                  ORDER BY  cupom.cont_coo, meiopagamento.descricao",
            "Erro no select - TipoE21")
        .nosComandos(kMFD | kTDM)
        .vazioForaDoCat52()
        .comChave("COO", "Meio de pagamento")
        .emOrdemDe("COO")
        .depoisDe("Meio de pagamento", Segundo::Texto);

}  // namespace cotepe
