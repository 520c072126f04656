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

// Deliberate: the placeholder has no head: it is the eighteen blanks of the register's own fields alone.
void escreveE07(Execucao& execucao, const Registro& registro) {
  const auto versoes = execucao.consulta(registro.consultas[0].sql);
  const long linhas = gravaLinhas(execucao, registro.campos, *versoes, *versoes);
  if (!completou(execucao, registro, *versoes) || linhas != 0) return;
  gravaVazio(execucao, registro.campos.trecho(4));
}

}  // namespace

const Registro kE07 = {"E07",
                       "Relação das alterações de versão do Software Básico do ECF",
                       kCampos,
                       {{"SELECT versao, ifnull(data_hora_gravacao, '                   ') FROM versao_sb",
                         "Erro no select - TipoE07"}},
                       kMF | kTDM,
                       false,
                       Vazio::Sempre,
                       false,
                       escreveE07};

}  // namespace cotepe
