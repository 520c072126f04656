// E07, the versions of the basic software.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// clang-format off
constexpr auto kCampos = registroComum("E07", {
    texto("Versão do software básico", 10, coluna(0)),
    data ("Data de gravação",              coluna(1)),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 62);

}  // namespace

// Deliberate: the placeholder has no head: it is only the eighteen blanks of the register's own fields.
constexpr Registro kE07 =
    Registro("E07", "Relação das alterações de versão do Software Básico do ECF", kCampos, escreveTabela)
        .consulta("SELECT versao, ifnull(data_hora_gravacao, '                   ') FROM versao_sb",
                  "Erro no select - TipoE07")
        .nosComandos(kMF | kTDM)
        .vazioSempre()
        .vazioDesde("Versão do software básico")
        .comChave("Versão do software básico")
        .nota(marca("its placeholder is 18 blanks alone, without a head"));

}  // namespace cotepe
