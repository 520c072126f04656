// E12, the Z reductions of the period.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Deliberate: CRZ and CRO are six digits in every layout; only the COO follows the version.
// clang-format off
constexpr auto kCampos = registroDoUsuario("E12", {
    contador6("CRZ",                    coluna(0)).nota(marca("six digits in every layout")),
    contador ("COO",                    coluna(1)),
    contador6("CRO",                    coluna(2)).nota(marca("six digits in every layout")),
    data     ("Data do movimento",      coluna(3)).sempreHa(),
    data     ("Data de emissão",        coluna(4)),
    hora     ("Hora de emissão",        coluna(4)),
    dinheiro ("Venda bruta diária", 14, coluna(5)),
    letra    ("Indicador",              constante("S")),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 101);
static_assert(comprimento(kCampos, 2, false) == 104);

}  // namespace

constexpr Registro kE12 =
    Registro("E12", "Relação de Reduções Z", kCampos, escreveTabela)
        .consulta(
            "SELECT cont_crz, cont_coo, cont_cro, ifnull(data_movimento, '                   '),"
            "                  ifnull(data_hora_emissao, '                   '), valor_vb"
            "                  FROM reducao_z"
            "                  WHERE data_movimento >= '%s'"
            "                  AND data_movimento <= '%s'"
            "                  ORDER BY cont_crz, cont_cro",
            "Erro no select - TipoE12")
        .nosComandos(kMF | kTDM)
        .vazioForaDoCat52()
        .comChave("CRZ")
        .emOrdemDe("CRZ")
        .depoisDe("CRO", Segundo::Numero)
        .semRepetirChave()
        .comData("Data do movimento");

}  // namespace cotepe
