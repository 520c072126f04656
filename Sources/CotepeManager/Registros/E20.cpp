// E20, the operations of the non-fiscal coupons.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Deliberate: the item number is never clipped; an item whose totalizer is not registered is left out by the
// join.
// clang-format off
constexpr auto kCampos = registroDoUsuario("E20", {
    contador("COO",                           coluna(0)),
    contador("GNF",                           coluna(1)),
    numero  ("Nº do item",                 3, coluna(2)).nuncaCortado(),
    texto   ("Denominação da operação",   15, coluna(3)),
    dinheiro("Valor",                     13, coluna(4)),
    dinheiro("Desconto",                  13, coluna(5)),
    dinheiro("Acréscimo",                 13, coluna(6)),
    dinheiro("Valor líquido",             13, coluna(7)),
    letra   ("Cancelado (S/N)",               coluna(8)).podeSer(leiaute::kCancelado),
    dinheiro("Cancelamento de acréscimo", 13, coluna(9)),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 142);
static_assert(comprimento(kCampos, 2, false) == 148);

}  // namespace

constexpr Registro kE20 =
    Registro("E20", "Detalhe do Comprovante Não Fiscal", kCampos, escreveTabela)
        .consulta(
            "SELECT cupom.cont_coo, cupom.cont_gnf, item.seq_item, totalizador.descricao, item.valor_total,"
            "                  item.valor_desconto, item.valor_acrescimo, item.valor_total_liquido, "
            "item.id_cancelado,"
            " item.valor_canc_acrescimo"
            "                  FROM cupom_nf AS cupom INNER JOIN item_cupom_nf AS item USING (cont_coo)"
            "                  INNER JOIN totalizador_nao_fiscal AS totalizador"
            " ON (item.indice_totalizador_nf = totalizador.num_indice)"
            "                  INNER JOIN reducao_z AS reducao ON(cupom.cont_crz = reducao.cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
            " order by cupom.cont_gnf, item.seq_item",
            "Erro no select - TipoE20")
        .nosComandos(kMFD | kTDM)
        .vazioForaDoCat52()
        .comChave("COO", "Nº do item")
        .emOrdemDe("GNF")
        .depoisDe("Nº do item", Segundo::Numero)
        .semRepetirChave()
        .nota(marca("an operation whose totalizer is not registered has no record"));

}  // namespace cotepe
