// E09, the technical interventions, whatever their dates.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Deliberate: only a leading "T" is rewritten; all else passes as it stands.
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
    letra       ("Perda de dados da MT",           coluna(2)),
    letra       ("Tipo de intervenção",            funcao(tipoDeIntervencao, coluna(3))).naVersao2().semAvancarVazio(),
    numeroModulo("CRZ",                 4, 10000,  coluna(4)).naVersao2(),
    numeroModulo("COO",            9, 1000000000,  coluna(5)).naVersao2(),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 65);
static_assert(comprimento(kCampos, 2, false) == 79);

}  // namespace

const Registro kE09 = {
    "E09",
    "Relação de intervenções técnicas",
    kCampos,
    {{"SELECT cont_cro, ifnull(data_hora_intervencao, '                   '), id_perda_dados_mt,"
      " id_tipo_intervencao, \t\t\t\t cont_crz, cont_coo"
      "                  FROM intervencao"
      "                  ORDER BY cont_cro",
      "Erro no select - TipoE09"}},
    kMF | kTDM,
    false,
    Vazio::ForaDoCat52,
    false,
    escreveTabela};

}  // namespace cotepe
