// E22, the attempts recorded for the basic software: the whole table, in layout 2 only.
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Deliberate: the head has neither the additional-MF blank nor the user number, the number is never
// clipped, and the columns are taken by position.
// clang-format off
constexpr auto kCampos = std::array<Campo, 5>{
    leiaute::tipoDoRegistro("E22"),
    leiaute::kNumeroDeFabricacao,
    leiaute::kModelo,
    numero("Número", 4, coluna(0)).nuncaCortado(),
    data  ("Data",      coluna(2)).sempreHa(),
};
// clang-format on
static_assert(comprimento(kCampos, 2, false) == 55);

}  // namespace

// Deliberate: the message is that of E21.
constexpr Registro kE22 =
    Registro("E22", "Tentativas relativas ao Software Básico", kCampos, escreveTabela)
        .consulta("SELECT * FROM tentativas_sb", "Erro no select - TipoE21")
        .nosComandos(kMF | kTDM)
        .naVersao2()
        .comChave("Número")
        .nota(marca("the whole table, whatever the period; its head has no user and no additional MF"));

}  // namespace cotepe
