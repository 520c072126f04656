// E05 and E06, the codings of the grand total and the currency symbols: lines that are never rewound.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr const char* kLinhaQueCresce = marca(
    "the line goes on from recording to recording: each user adds a CNPJ, and each recording repeats the "
    "ones before it");

enum : std::uint8_t { kUsuario, kGravacoes };

// Deliberate: the coding has no width of its own; the cursor stays before it, so that the next row's date
// overwrites it.
// clang-format off
constexpr auto kCamposE05 = registroComum("E05", {
    cnpj         ("CNPJ do usuário",      coluna(0, kUsuario)),
    data         ("Data de gravação",     coluna(0, kGravacoes)),
    hora         ("Hora de gravação",     coluna(0, kGravacoes)),
    comoEsta     ("Codificação do GT", 10, coluna(1, kGravacoes)).semAvancar().nota(marca("it has no width of its own: the next recording's date stands over it on the next line")),
});

constexpr auto kCamposE06 = registroComum("E06", {
    cnpj         ("CNPJ do usuário",      coluna(0, kUsuario)),
    data         ("Data de gravação",     coluna(0, kGravacoes)),
    hora         ("Hora de gravação",     coluna(0, kGravacoes)),
    texto        ("Símbolo da moeda",  4, coluna(1, kGravacoes)),
});
// clang-format on
static_assert(comprimento(kCamposE05, 1, false) == 82);
static_assert(comprimento(kCamposE06, 1, false) == 76);

// Deliberate: line and cursor go on from row to row of both queries: each user adds a CNPJ, and each
// recording repeats the ones before it. The placeholder is written in CAT52 mode too.
void escreve(Execucao& execucao, const Registro& registro) {
  const std::size_t usuario = indiceDe(registro.campos, "CNPJ do usuário");
  const Campos cabecalho = registro.campos.trecho(0, usuario);
  const Campos cnpj = registro.campos.trecho(usuario, 1);
  const Campos gravacao = registro.campos.trecho(usuario + 1);
  Linha linha;
  compoe(linha, cabecalho, SemFonte(), execucao);

  if (!acrescentaLinhas(execucao, registro, kUsuario, linha, cnpj, cnpj)) return;

  const auto gravacoes = execucao.consulta(registro.consultas[kGravacoes].sql);
  bool alguma = false;
  while (gravacoes->avanca()) {
    compoe(linha, gravacao, *gravacoes, execucao);
    execucao.grava(linha);
    alguma = true;
  }
  if (!completou(execucao, registro, *gravacoes, kGravacoes) || alguma) return;
  compoeVazio(linha, gravacao, execucao);
  execucao.grava(linha);
}

}  // namespace

constexpr Registro kE05 =
    Registro("E05", "Relação das codificações de GT", kCamposE05, escreve)
        .consulta("SELECT cnpj FROM dados_usuario", "Erro no select 1 - TipoE05")
        .consulta("SELECT ifnull(data_hora_gravacao, '                   '), codificacao FROM codificacao_gt",
                  "Erro no select 2 - TipoE05")
        .nosComandos(kMF | kTDM)
        .vazioSempre()
        .repetePorUsuario("CNPJ do usuário")
        .repeteACadaRegistro("Data de gravação", "Codificação do GT")
        .nota(kLinhaQueCresce);

constexpr Registro kE06 =
    Registro("E06", "Relação dos símbolos da moeda", kCamposE06, escreve)
        .consulta("SELECT cnpj FROM dados_usuario", "Erro no select 1 - TipoE06")
        .consulta("SELECT ifnull(data_hora_gravacao, '                   '), simbolo_moeda FROM moeda",
                  "Erro no select 2 - TipoE06")
        .nosComandos(kMF | kTDM)
        .vazioSempre()
        .repetePorUsuario("CNPJ do usuário")
        .repeteACadaRegistro("Data de gravação", "Símbolo da moeda")
        .nota(kLinhaQueCresce);

}  // namespace cotepe
