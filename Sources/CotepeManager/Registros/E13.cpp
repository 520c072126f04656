// E13, the partial totalizers of the Z reductions: the fiscal ones, then a sum of the non-fiscal ones each.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

enum : std::uint8_t { kFiscais, kNaoFiscais };

// clang-format off
constexpr auto kCampos = registroDoUsuario("E13", {
    contador6("CRZ",                      coluna(0, Origem::kDeCadaConsulta)),
    texto    ("Totalizador parcial",   7, coluna(1, Origem::kDeCadaConsulta)).semPontos().totalizador().podeSer(leiaute::kOperacoesNaoFiscais),
    dinheiro ("Valor acumulado",      13, coluna(2, Origem::kDeCadaConsulta)),
});

constexpr auto kCamposNaoFiscais = registroDoUsuario("E13", {
    kCampos[5],
    kCampos[6].vazio("OPNF"),
    kCampos[7],
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 72);
static_assert(comprimento(kCampos, 2, false) == 72);

// Deliberate: the second pass has its placeholder in CAT52 mode too, the first one does not; when the first
// pass fails the second is skipped.
void escreveE13(Execucao& execucao, const Registro& registro) {
  const auto fiscais = execucao.consulta(registro.consultas[kFiscais].sql);
  const long linhas = gravaLinhas(execucao, registro.campos, *fiscais, *fiscais);
  if (!encerra(execucao, registro, *fiscais, linhas, kFiscais)) return;

  const auto somas = execucao.consulta(registro.consultas[kNaoFiscais].sql);
  const long linhasNaoFiscais = gravaLinhas(execucao, kCamposNaoFiscais, *somas, *somas);
  if (!completou(execucao, registro, *somas, kNaoFiscais) || linhasNaoFiscais != 0) return;
  gravaVazio(execucao, kCamposNaoFiscais);
}

}  // namespace

constexpr Registro kE13 =
    Registro("E13", "Detalhe da Redução Z - Totalizadores Parciais", kCampos, escreveE13)
        .consulta(
            "SELECT totalizador.cont_crz as CRZ, totalizador.totalizador as TOT, "
            "totalizador.valor_base_calculo as VAL,"
            "                     '0' as ORD"
            "                     FROM totalizador_reducao AS totalizador INNER JOIN reducao_z "
            "AS reducao USING(cont_crz)"
            "                     WHERE reducao.data_movimento >= '%s' AND "
            "reducao.data_movimento <= '%s' AND id_fiscal = 'S'"
            "                     AND SUBSTR(totalizador.totalizador, 3, 1) == 'T'"
            "                     UNION"
            "                     SELECT totalizador.cont_crz as CRZ, totalizador.totalizador "
            "as TOT, totalizador.valor_base_calculo as VAL,"
            "                     '1' as ORD"
            "                     FROM totalizador_reducao AS totalizador INNER JOIN reducao_z "
            "AS reducao USING(cont_crz)"
            "                     WHERE reducao.data_movimento >= '%s' AND "
            "reducao.data_movimento <= '%s' AND id_fiscal = 'S'"
            "                     AND SUBSTR(totalizador.totalizador, 3, 1) == 'S'"
            "                     UNION"
            "                     SELECT totalizador.cont_crz as CRZ, totalizador.totalizador "
            "as TOT, totalizador.valor_base_calculo as VAL,"
            "                     '2' as ORD"
            "                     FROM totalizador_reducao AS totalizador INNER JOIN reducao_z "
            "AS reducao USING(cont_crz)"
            "                     WHERE reducao.data_movimento >= '%s' AND "
            "reducao.data_movimento <= '%s' AND id_fiscal = 'S'"
            "                     AND (SUBSTR(totalizador.totalizador, 3, 1) <> 'S' AND "
            "SUBSTR(totalizador.totalizador, 3, 1) <> 'T')"
            "                     ORDER BY CRZ, ORD",
            "Erro no select 1 - TipoE13")
        .consulta(
            "SELECT totalizador.cont_crz, 'OPNF', SUM(totalizador.valor_base_calculo)"
            "                  FROM totalizador_reducao AS totalizador INNER JOIN reducao_z AS "
            "reducao USING(cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s' AND reducao.data_movimento "
            "<= '%s' AND id_fiscal = 'N'"
            "                  GROUP BY totalizador.cont_crz",
            "Erro no select 2 - TipoE13")
        .nosComandos(kMF | kTDM)
        .vazioForaDoCat52()
        .comOutroVazio(
            {kCamposNaoFiscais,
             marca("A second placeholder record, OPNF and zeros, stands for the non-fiscal totalizers."),
             marca(
                 "Without a non-fiscal totalizer there is a placeholder record for those: OPNF and zeros.")})
        .comChave("CRZ", "Totalizador parcial")
        .emOrdemDe("CRZ")
        .depoisDe("Totalizador parcial", Segundo::Totalizador)
        .nota(marca("the fiscal totalizers stand first, then one sum of the non-fiscal ones (OPNF) for each "
                    "reduction"));

}  // namespace cotepe
