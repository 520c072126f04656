// E05 and E06, the codings of the grand total and the currency symbols: lines that are never rewound.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

enum Consulta : std::uint8_t { kUsuario, kGravacoes };

// Deliberate: the coding has no width of its own; the cursor stays before it, so that the next row's date
// overwrites it.
// clang-format off
constexpr auto kCamposE05 = registroComum("E05", {
    identificador("CNPJ do usuário",      coluna(0, kUsuario)),
    data         ("Data de gravação",     coluna(0, kGravacoes)),
    hora         ("Hora de gravação",     coluna(0, kGravacoes)),
    comoEsta     ("Codificação do GT", 10, coluna(1, kGravacoes)).semAvancar(),
});

constexpr auto kCamposE06 = registroComum("E06", {
    identificador("CNPJ do usuário",      coluna(0, kUsuario)),
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
  const Campos cabecalho = registro.campos.trecho(0, 4);
  const Campos cnpj = registro.campos.trecho(4, 1);
  const Campos gravacao = registro.campos.trecho(5);
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

const Registro kE05 = {
    "E05",
    "Relação das codificações de GT",
    kCamposE05,
    {{"SELECT cnpj FROM dados_usuario", "Erro no select 1 - TipoE05"},
     {"SELECT ifnull(data_hora_gravacao, '                   '), codificacao FROM codificacao_gt",
      "Erro no select 2 - TipoE05"}},
    kMF | kTDM,
    false,
    Vazio::Sempre,
    false,
    escreve};

const Registro kE06 = {"E06",
                       "Relação dos símbolos da moeda",
                       kCamposE06,
                       {{"SELECT cnpj FROM dados_usuario", "Erro no select 1 - TipoE06"},
                        {"SELECT ifnull(data_hora_gravacao, '                   '), simbolo_moeda FROM moeda",
                         "Erro no select 2 - TipoE06"}},
                       kMF | kTDM,
                       false,
                       Vazio::Sempre,
                       false,
                       escreve};

}  // namespace cotepe
