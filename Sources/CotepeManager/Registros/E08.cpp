// E08, the detail-tape memories: one line for the user, with a serial number that has no source.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// clang-format off
constexpr auto kCampos = registroComum("E08", {
    identificador("CNPJ do usuário",        coluna(0)),
    texto        ("Nº de série da MFD", 20, {}),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 78);

// Deliberate: always exactly one line; each user row adds a CNPJ to it.
void escreveE08(Execucao& execucao, const Registro& registro) {
  Linha linha;
  compoe(linha, registro.campos.trecho(0, 4), SemFonte(), execucao);
  const Campos cnpj = registro.campos.trecho(4, 1);
  if (!acrescentaLinhas(execucao, registro, 0, linha, cnpj, cnpj)) return;
  compoe(linha, registro.campos.trecho(5), SemFonte(), execucao);
  execucao.grava(linha);
}

}  // namespace

const Registro kE08 = {"E08",         "Relação dos dispositivos de MFD utilizados",
                       kCampos,       {{"SELECT cnpj FROM dados_usuario", "Erro no select - TipoE08"}},
                       kMF | kTDM,    false,
                       Vazio::Sempre, false,
                       escreveE08};

}  // namespace cotepe
