// E08, the detail-tape memories: one line for the user, with a serial number that has no source.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// clang-format off
constexpr auto kCampos = registroComum("E08", {
    cnpj         ("CNPJ do usuário",        coluna(0)),
    texto        ("Nº de série da MFD", 20, {}),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 78);

// Deliberate: always exactly one line; each user row adds a CNPJ to it.
void escreveE08(Execucao& execucao, const Registro& registro) {
  Linha linha;
  compoe(linha, entre(kCampos, "Tipo do registro", "Modelo do ECF"), SemFonte(), execucao);
  constexpr Campos cnpj = entre(kCampos, "CNPJ do usuário", "CNPJ do usuário");
  if (!acrescentaLinhas(execucao, registro, 0, linha, cnpj, cnpj)) return;
  compoe(linha, entre(kCampos, "Nº de série da MFD", "Nº de série da MFD"), SemFonte(), execucao);
  execucao.grava(linha);
}

}  // namespace

constexpr Registro kE08 = Registro("E08", "Relação dos dispositivos de MFD utilizados", kCampos, escreveE08)
                              .consulta("SELECT cnpj FROM dados_usuario", "Erro no select - TipoE08")
                              .nosComandos(kMF | kTDM)
                              .vazioSempre()
                              .repetePorUsuario("CNPJ do usuário")
                              .sempreUmaLinha()
                              .nota(marca("always one line; each user adds a CNPJ to it"));

}  // namespace cotepe
