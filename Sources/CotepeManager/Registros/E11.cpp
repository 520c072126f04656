// E11, the printer's present position, stamped with the time of generation.
#include <array>

#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr int kColunaData = 8, kColunaHora = 9;  // put behind the position's own columns

// Deliberate: date and hour stand at fixed positions; with counters of nine digits they overwrite the last
// twelve of the grand total, and the line has 136 characters in every layout.
// clang-format off
constexpr auto kCampos = registroComum("E11", {
    contador6 ("CRZ",                            coluna(0)),
    contador6 ("CRO",                            coluna(1)),
    contador  ("COO",                            coluna(2)),
    contador  ("GNF",                            coluna(3)),
    contador  ("CCF",                            coluna(4)),
    contador6 ("Primeiro contador sem fonte",    {}),
    contador6 ("Segundo contador sem fonte",     {}),
    contador  ("GRG",                            coluna(5)),
    contador6 ("Terceiro contador sem fonte",    {}),
    contador6 ("CFD",                            coluna(6)),
    dinheiro  ("Totalizador geral (GT)",     18, coluna(7)),
    dataPronta("Data de geração",                coluna(kColunaData)).naPosicao(123),
    horaPronta("Hora de geração",                coluna(kColunaHora)).naPosicao(131),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 136);
static_assert(comprimento(kCampos, 2, false) == 136);

constexpr std::size_t kFimDaPosicao = 15;  // fields up to the grand total
constexpr Campos kPosicao = Campos(kCampos).trecho(0, kFimDaPosicao);
constexpr Campos kSemCabecalho = Campos(kCampos).trecho(4, kFimDaPosicao - 4);
constexpr Campos kCarimbo = Campos(kCampos).trecho(kFimDaPosicao);

// Date at 0, separator, hour at 9; the line ends after position 137 at the latest.
void compoeCarimbo(Linha& linha, Execucao& execucao) {
  std::array<char, 41> agora{};
  execucao.hospedeiro().dataHoraAtual(agora.data());
  agora[16] = '\0';
  const SemFonte nenhuma;
  const FonteCom comData(nenhuma, kColunaData, agora.data());
  compoe(linha, kCarimbo, FonteCom(comData, kColunaHora, agora.data() + 9), execucao);
}

// Deliberate: of several rows the last one is written; without a row all is zeros, in CAT52 mode too.
void escreveE11(Execucao& execucao, const Registro& registro) {
  Linha linha;
  const auto posicoes = execucao.consulta(registro.consultas[0].sql);
  bool alguma = false;
  for (; posicoes->avanca(); alguma = true) {
    linha.limpa();
    compoe(linha, kPosicao, *posicoes, execucao);
  }
  if (!completou(execucao, registro, *posicoes)) return;
  if (!alguma) {
    compoe(linha, registro.campos.trecho(0, 4), SemFonte(), execucao);
    compoeVazio(linha, kSemCabecalho, execucao);
  }
  posicoes->finaliza();
  compoeCarimbo(linha, execucao);
  execucao.grava(linha);
}

}  // namespace

const Registro kE11 = {
    "E11",
    "Posição atual dos contadores e totalizadores",
    kCampos,
    {{"SELECT cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, cont_cfd, valor_gt"
      "                  FROM posicao_totalizadores_contadores",
      "Erro no select - TipoE11"}},
    kMF | kTDM,
    false,
    Vazio::Sempre,
    false,
    escreveE11};

}  // namespace cotepe
