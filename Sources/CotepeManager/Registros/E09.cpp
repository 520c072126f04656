// E09, the technical interventions, whatever their dates.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr Codigo kPerda[] = {{"S", marca("the working memory lost data")},
                             {"N", marca("the working memory lost no data")}};

// Deliberate: only a leading "T" is rewritten; everything else passes unchanged.
const char* tipoDeIntervencao(const Fonte& intervencao, const Execucao& /*execucao*/) {
  const char* tipo = intervencao.texto(3);
  return *tipo == 'T' ? "F" : tipo;
}

// Deliberate: the widths of CRZ (4) and COO (9) do not follow the counters of the layout, and the version-2
// placeholder is one character short: its CRZ overwrites the blank of the intervention type.
// clang-format off
constexpr auto kCampos = registroComum("E09", {
    contador6   ("CRO",                            coluna(0)),
    data        ("Data da intervenção",            coluna(1)),
    hora        ("Hora da intervenção",            coluna(1)),
    letra       ("Perda de dados da MT",           coluna(2)).podeSer(kPerda),
    letra       ("Tipo de intervenção",            funcao(tipoDeIntervencao, coluna(3))).naVersao2().semAvancarVazio().nota(marca("in a placeholder record the CRZ stands over it, so that the line is one byte short")).fonte(marca("intervencao.id_tipo_intervencao, with F in the place of a leading T")),
    numeroModulo("CRZ",                 4, 10000,  coluna(4)).naVersao2().nota(marca("four digits, unlike in other registers")),
    numeroModulo("COO",            9, 1000000000,  coluna(5)).naVersao2().nota(marca("nine digits, whatever the layout's counters have")),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 65);
static_assert(comprimento(kCampos, 2, false) == 79);

}  // namespace

constexpr Registro kE09 =
    Registro("E09", "Relação de intervenções técnicas", kCampos, escreveTabela)
        .consulta(
            "SELECT cont_cro, ifnull(data_hora_intervencao, '                   '), id_perda_dados_mt,"
            " id_tipo_intervencao, \t\t\t\t cont_crz, cont_coo"
            "                  FROM intervencao"
            "                  ORDER BY cont_cro",
            "Erro no select - TipoE09")
        .nosComandos(kMF | kTDM)
        .vazioForaDoCat52()
        .comChave("CRO")
        .emOrdemDe("CRO")
        .comData("Data da intervenção");

}  // namespace cotepe
