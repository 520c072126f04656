// E17 and E18, the non-fiscal totalizers and the means of payment of each Z reduction.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Deliberate: E18's amount is rounded to cents through a double, E17's is read from its text.
// clang-format off
constexpr auto kCamposE17 = registroDoUsuario("E17", {
    contador6    ("CRZ",                         coluna(0)),
    texto        ("Totalizador não fiscal",  15, coluna(1)),
    dinheiro     ("Valor acumulado",         13, coluna(2)),
});

constexpr auto kCamposE18 = registroDoUsuario("E18", {
    contador6    ("CRZ",                         coluna(0)),
    texto        ("Meio de pagamento",       15, coluna(1)),
    dinheiroDuplo("Valor acumulado",         13, coluna(2)),
});
// clang-format on
static_assert(comprimento(kCamposE17, 1, false) == 80);
static_assert(comprimento(kCamposE18, 2, false) == 80);

}  // namespace

// Deliberate: the message of E17 has no number.
constexpr Registro kE17 =
    Registro("E17", "Detalhe da Redução Z - Totalizadores Não Fiscais", kCamposE17, escreveTabela)
        .consulta(
            "SELECT totalizador.cont_crz, SUBSTR(totalizador.totalizador, 0, 15), "
            "totalizador.valor_base_calculo"
            "                  FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS reducao "
            "USING(cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s'"
            "                  AND reducao.data_movimento <= '%s'"
            "                  AND id_fiscal = 'N'"
            "                  ORDER BY totalizador.cont_crz, totalizador.totalizador",
            "Erro no select - TipoE")
        .nosComandos(kMFD | kTDM)
        .vazioForaDoCat52()
        .comChave("CRZ", "Totalizador não fiscal")
        .emOrdemDe("CRZ")
        .depoisDe("Totalizador não fiscal", Segundo::Texto);

constexpr Registro kE18 =
    Registro("E18", "Detalhe da Redução Z - Meios de Pagamento", kCamposE18, escreveTabela)
        .consulta(
            "SELECT pagamento.cont_crz, pagamento.descricao_meio_pagamento, pagamento.valor_acumulado"
            "                   FROM meio_pagamento_reducao AS pagamento INNER JOIN reducao_z AS reducao "
            "USING(cont_crz)"
            "                  WHERE reducao.data_movimento BETWEEN '%s' AND '%s'"
            "                  ORDER BY pagamento.cont_crz, pagamento.descricao_meio_pagamento COLLATE "
            "NOCASE",
            "Erro no select - TipoE18")
        .nosComandos(kMFD | kTDM)
        .vazioForaDoCat52()
        .finalizaAntes()
        .comChave("CRZ", "Meio de pagamento")
        .emOrdemDe("CRZ")
        .depoisDe("Meio de pagamento", Segundo::TextoSemCaixa);

}  // namespace cotepe
