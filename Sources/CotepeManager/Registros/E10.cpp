// E10, the detail tapes issued in the period, each with the user's CNPJ.
#include <string>

#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

enum : std::uint8_t { kUsuario, kFitas };
constexpr int kColunaCnpj = 4;  // put before the tapes' own columns

const char* cnpjDoUsuario(const Fonte& fita, const Execucao& /*execucao*/) { return fita.texto(kColunaCnpj); }

// clang-format off
constexpr auto kCampos = registroComum("E10", {
    contador6    ("CFD",             coluna(0, kFitas)),
    data         ("Data de emissão", coluna(1, kFitas)).sempreHa(),
    contador     ("COO inicial",     coluna(2, kFitas)),
    contador     ("COO final",       coluna(3, kFitas)),
    cnpj         ("CNPJ do usuário", funcao(cnpjDoUsuario, coluna(0, kUsuario))).fonte(marca("dados_usuario.cnpj, of several users the last")),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 84);
static_assert(comprimento(kCampos, 2, false) == 90);

// Deliberate: of several users the last one counts, and the placeholder has zeros even where there is one.
void escreveE10(Execucao& execucao, const Registro& registro) {
  std::string cnpj;
  const auto usuarios = execucao.consulta(registro.consultas[kUsuario].sql);
  while (usuarios->avanca()) cnpj = usuarios->texto(0);
  if (!completou(execucao, registro, *usuarios, kUsuario)) return;
  usuarios->finaliza();

  const auto fitas = execucao.consulta(registro.consultas[kFitas].sql);
  const FonteCom comCnpj(*fitas, kColunaCnpj, cnpj.c_str());
  const long linhas = gravaLinhas(execucao, registro.campos, *fitas, comCnpj);
  encerra(execucao, registro, *fitas, linhas, kFitas);
}

}  // namespace

constexpr Registro kE10 =
    Registro("E10", "Relação de Fitas-detalhe emitidas", kCampos, escreveE10)
        .consulta("SELECT cnpj FROM dados_usuario", "Erro no select 1 - TipoE10")
        .consulta(
            "SELECT cont_cfd, ifnull(data_hora_emissao, '                   '), coo_inicial, coo_final"
            "                  FROM fita_detalhe"
            "                  WHERE data_hora_emissao >= '%s' AND data_hora_emissao <= '%s'"
            "                  ORDER BY cont_cfd",
            "Erro no select 2 - TipoE10")
        .nosComandos(kMF | kTDM)
        .vazioForaDoCat52()
        .comChave("CFD")
        .emOrdemDe("CFD")
        .semRepetirChave()
        .comData("Data de emissão");

}  // namespace cotepe
