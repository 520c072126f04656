// E14, the fiscal coupons of the period's Z reductions.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"
#include "Registros/Cupom.h"

namespace cotepe {
namespace {

// Deliberate: discount and surcharge are always of type V, whatever columns 11 to 14 hold; the signature
// keeps the bytes that the two texts before it lose.
// clang-format off
constexpr auto kCampos = registroDoUsuario("E14", {
    contador     ("CCF",                                coluna(0)),
    contador     ("COO",                                coluna(1)),
    data         ("Data de emissão",                    coluna(2)).sempreHa(),
    dinheiro     ("Subtotal",                       14, coluna(3)),
    dinheiro     ("Desconto",                       13, coluna(4)),
    letra        ("Tipo do desconto",                   constante("V")).podeSer(leiaute::kValorOuPercentual).nota(marca("always V, whatever the database says")),
    dinheiro     ("Acréscimo",                      13, coluna(5)),
    letra        ("Tipo do acréscimo",                  constante("V")).podeSer(leiaute::kValorOuPercentual).nota(marca("always V, whatever the database says")),
    dinheiro     ("Valor total líquido",            14, coluna(6)),
    letra        ("Cancelado (S/N)",                    coluna(7)).podeSer(leiaute::kCancelado),
    dinheiro     ("Cancelamento de acréscimo",      13, coluna(8)),
    letra        ("Ordem de desconto e acréscimo",      funcao(ordemDescontoAcrescimo)).podeSer(kOrdens).nota(marca("of a coupon with both the surcharge wins")).fonte(marca("A where cupom_fiscal.valor_acrescimo is not zero, else D where cupom_fiscal.valor_desconto is not zero, else a blank")),
    texto        ("Nome do consumidor",             40, coluna(9)).pessoal(),
    cpfOuCnpj    ("CPF/CNPJ do consumidor",             coluna(10)).pessoal(),
    texto        ("Texto suplementar",             560, coluna(15)).semNaoAscii().naVersao2().foraDoCat52().pessoal(),
    texto        ("Texto complementar",             84, coluna(16)).semNaoAscii().naVersao2().foraDoCat52().pessoal(),
    texto        ("Assinatura do documento",        44, coluna(17)).naVersao2().foraDoCat52(),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 191);
static_assert(comprimento(kCampos, 1, true) == 191);
static_assert(comprimento(kCampos, 2, false) == 885);
static_assert(comprimento(kCampos, 2, true) == 197);

}  // namespace

constexpr Registro kE14 =
    Registro("E14", "Cupom Fiscal, Nota Fiscal de Venda a Consumidor ou Bilhete de Passagem", kCampos,
             escreveTabela)
        .consulta(
            "SELECT cupom.cont_ccf, cupom.cont_coo, cupom.data_hora_emissao, cupom.valor_subtotal, "
            "cupom.valor_desconto,"
            "                  cupom.valor_acrescimo, cupom.valor_total, cupom.id_cancelado, "
            "cupom.valor_canc_acrescimo,"
            " SUBSTR(cupom.nome_consumidor, 0, 40),"
            "                  cupom.cpf_cnpj_consumidor, cupom.tipo_acrescimo, cupom.tipo_desconto, "
            "cupom.perc_desconto,"
            " cupom.perc_acrescimo, \t\t\t\t cupom.texto_suplementar, cupom.texto_complementar,"
            " cupom.assinatura_documento"
            "                  FROM cupom_fiscal AS cupom INNER JOIN reducao_z AS reducao USING(cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento <= '%s'"
            "                  ORDER BY cupom.cont_ccf",
            "Erro no select - TipoE14")
        .nosComandos(kMFD | kTDM | kRZ)
        .vazioForaDoCat52()
        .comChave("CCF")
        .emOrdemDe("CCF")
        .semRepetirChave()
        .comData("Data de emissão");

}  // namespace cotepe
