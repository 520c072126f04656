// E15, the items of the fiscal coupons.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr Codigo kArredondamento[] = {{"A", marca("rounded")}, {"T", marca("truncated")}};
constexpr Codigo kCasas[] = {{"2"}, {"3"}};

// Deliberate: the item number keeps six digits of its value in a field of three, so that its later digits are
// overwritten; the cancelled quantity and value have no source and are always zeros.
// clang-format off
constexpr auto kCampos = registroDoUsuario("E15", {
    contador    ("COO",                                  coluna(0)),
    contador    ("CCF",                                  coluna(1)),
    numeroModulo("Nº do item",                3, 1000000, coluna(2)).nota(marca("six digits of the number in a field of three: from 1000 on the later digits are lost")),
    texto       ("Código",                   14,         coluna(3)),
    texto       ("Descrição",               100,         coluna(4)),
    decimal     ("Quantidade",                7,         coluna(5)).casas(15),
    texto       ("Unidade",                   3,         coluna(6)),
    decimal     ("Valor unitário",            8,         coluna(7)).casas(16),
    decimal     ("Desconto",                  8,         coluna(8)),
    decimal     ("Acréscimo",                 8,         coluna(9)),
    dinheiro    ("Valor total líquido",      14,         coluna(10)),
    texto       ("Totalizador parcial",       7,         coluna(11)).semPontos().totalizador().podeSer(leiaute::kOperacoesNaoFiscais),
    letra       ("Cancelado (S/N)",                      coluna(12)).podeSer(leiaute::kCancelado),
    numero      ("Quantidade cancelada",      7,         {}).nota(marca("never filled, even of a cancelled item")),
    numero      ("Valor cancelado",          13,         {}).nota(marca("never filled, even of a cancelled item")),
    dinheiro    ("Cancelamento de acréscimo", 13,        coluna(13)),
    letra       ("Arredondamento ou truncamento",        coluna(14)).podeSer(kArredondamento),
    numero      ("Casas decimais da quantidade", 1,      coluna(15)).podeSer(kCasas),
    numero      ("Casas decimais do valor unitário", 1,  coluna(16)).podeSer(kCasas),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 267);
static_assert(comprimento(kCampos, 2, false) == 273);

}  // namespace

constexpr Registro kE15 =
    Registro("E15", "Detalhe do Cupom Fiscal, Nota Fiscal de Venda a Consumidor ou Bilhete de Passagem",
             kCampos, escreveTabela)
        .consulta(
            "SELECT item.cont_coo, cupom.cont_ccf, item.seq_item, item.cod_item, SUBSTR(item.descricao, 0, "
            "100),"
            "                  item.quantidade, item.un_medida, item.valor_unitario, item.valor_desconto,"
            " item.valor_acrescimo,"
            "                  item.valor_total, item.aliquota, item.id_cancelado, item.valor_canc_acrescimo,"
            " item.id_arred_trunc_valor,"
            "                  item.casas_decimais_quantidade, item.casas_decimais_valor, "
            "item.perc_acrescimo,"
            " item.perc_desconto"
            "                  FROM cupom_fiscal AS cupom INNER JOIN item_cupom_fiscal AS item USING "
            "(cont_coo)"
            " INNER JOIN reducao_z AS reducao USING(cont_crz)"
            "                  WHERE reducao.data_movimento >=  '%s'"
            "                  AND reducao.data_movimento <= '%s'"
            "                  ORDER BY cupom.cont_ccf, item.seq_item",
            "Erro no select - TipoE15")
        .nosComandos(kMFD | kTDM | kRZ)
        .vazioForaDoCat52()
        .comChave("COO", "Nº do item")
        .emOrdemDe("CCF")
        .depoisDe("Nº do item", Segundo::Numero)
        .semRepetirChave();

}  // namespace cotepe
