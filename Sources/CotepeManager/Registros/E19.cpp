// E19, the non-fiscal coupons.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"
#include "Registros/Cupom.h"

namespace cotepe {
namespace {

// clang-format off
constexpr auto kCampos = registroDoUsuario("E19", {
    contador     ("COO",                                coluna(0)),
    contador     ("GNF",                                coluna(1)),
    data         ("Data de emissão",                    coluna(2)),
    dinheiro     ("Subtotal",                       14, coluna(3)),
    dinheiro     ("Desconto",                       13, coluna(4)),
    letra        ("Tipo do desconto",                   coluna(12)).podeSer(leiaute::kValorOuPercentual),
    dinheiro     ("Acréscimo",                      13, coluna(5)),
    letra        ("Tipo do acréscimo",                  coluna(11)).podeSer(leiaute::kValorOuPercentual),
    dinheiro     ("Valor total líquido",            14, coluna(6)),
    letra        ("Cancelado (S/N)",                    coluna(7)).podeSer(leiaute::kCancelado),
    dinheiro     ("Cancelamento de acréscimo",      13, coluna(8)),
    letra        ("Ordem de desconto e acréscimo",      funcao(ordemDescontoAcrescimo)).podeSer(kOrdens).nota(marca("of a coupon with both the surcharge wins")).fonte(marca("A where cupom_nf.valor_acrescimo is not zero, else D where cupom_nf.valor_desconto is not zero, else a blank")),
    texto        ("Nome do consumidor",             40, coluna(9)).pessoal(),
    cpfOuCnpj    ("CPF/CNPJ do consumidor",             coluna(10)).pessoal(),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 191);
static_assert(comprimento(kCampos, 2, false) == 197);

}  // namespace

constexpr Registro kE19 =
    Registro("E19", "Comprovante Não Fiscal", kCampos, escreveTabela)
        .consulta(
            "SELECT cupom.cont_coo, cupom.cont_gnf, ifnull(cupom.data_hora_emissao, '                   '),"
            "                  cupom.valor_subtotal, cupom.valor_desconto, cupom.valor_acrescimo,"
            "                  cupom.valor_total_cupom, cupom.id_cancelado, cupom.valor_canc_acrescimo,"
            " cupom.nome_consumidor,"
            "                  cupom.cpf_cnpj_consumidor, cupom.tipo_acrescimo, cupom.tipo_desconto"
            "                  FROM cupom_nf AS cupom INNER JOIN reducao_z AS reducao USING(cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
            " order by cupom.cont_gnf",
            "Erro no select - TipoE19")
        .nosComandos(kMFD | kTDM)
        .vazioForaDoCat52()
        .comChave("GNF")
        .emOrdemDe("GNF")
        .semRepetirChave()
        .comData("Data de emissão");

}  // namespace cotepe
