// E11, the printer's present position, stamped with the time of generation.
#include <array>
#include <cstring>

#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// Deliberate: date and hour are at fixed positions; with counters of nine digits they overwrite the last
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
    dinheiro  ("Totalizador geral (GT)",     18, coluna(7)).nota(marca("with counters of nine digits the time stamp overwrites its last twelve")),
    dataPronta("Data de geração",                relogio(0)).naPosicao(123).sempreHa().fonte(marca("the application's clock while the report was made")),
    horaPronta("Hora de geração",                relogio(9)).naPosicao(131).sempreHa().fonte(marca("the application's clock while the report was made")),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 136);
static_assert(comprimento(kCampos, 2, false) == 136);

constexpr Campos kPosicao = entre(kCampos, "Tipo do registro", "Totalizador geral (GT)");
constexpr Campos kSemCabecalho = entre(kCampos, "CRZ", "Totalizador geral (GT)");
constexpr Campos kCabecalho = entre(kCampos, "Tipo do registro", "Modelo do ECF");
constexpr Campos kCarimbo = entre(kCampos, "Data de geração", "Hora de geração");

/// The clock's text, as if it had a column at each of its places.
class Agora final : public Fonte {
 public:
  // The line ends after position 137 at the latest.
  explicit Agora(Hospedeiro& hospedeiro) {
    hospedeiro.dataHoraAtual(agora_.data());
    agora_[16] = '\0';
  }
  const char* texto(int desde) const override { return agora_.data() + desde; }
  int bytes(int desde) const override { return static_cast<int>(std::strlen(texto(desde))); }

 private:
  std::array<char, 41> agora_{};
};

// Deliberate: of several rows the last one is written; without a row everything is zeros, in CAT52 mode too.
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
    compoe(linha, kCabecalho, SemFonte(), execucao);
    compoeVazio(linha, kSemCabecalho, execucao);
  }
  posicoes->finaliza();
  compoe(linha, kCarimbo, Agora(execucao.hospedeiro()), execucao);
  execucao.grava(linha);
}

}  // namespace

constexpr Registro kE11 =
    Registro("E11", "Posição atual dos contadores e totalizadores", kCampos, escreveE11)
        .consulta(
            "SELECT cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, cont_cfd, valor_gt"
            "                  FROM posicao_totalizadores_contadores",
            "Erro no select - TipoE11")
        .nosComandos(kMF | kTDM)
        .vazioSempre()
        .sempreUmaLinha();

}  // namespace cotepe
