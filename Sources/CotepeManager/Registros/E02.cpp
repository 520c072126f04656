// E02, the user of the printer: one record for each user row.
#include <cstring>

#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Leiaute/Texto.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr int kColunaTotalGeral = 6;
enum : std::uint8_t { kUsuarios, kTotalDasReducoes, kTotalDaPosicao };

// clang-format off
constexpr auto kCampos = registroComum("E02", {
    cnpj         ("CNPJ",                       coluna(0)),
    preenchido   ("Inscrição estadual",     14, coluna(1)).semPontos().semHifens(),
    texto        ("Razão social",           40, coluna(2)),
    texto        ("Endereço",              120, coluna(3)),
    data         ("Data do cadastro",           coluna(4)),
    hora         ("Hora do cadastro",           coluna(4)),
    contador6    ("CRO",                        coluna(5)),
    dinheiro     ("Totalizador geral (GT)", 18, coluna(kColunaTotalGeral)).ouMaximo(kTotalDasReducoes).nota(marca("one maximum for all users; one of exactly 18 characters loses its last, a longer one is not used")).fonte(marca("the greatest posicao_totalizadores_contadores.valor_gt (of command MF: the greatest reducao_z.valor_gt); without one dados_usuario.valor_gt")),
    numero       ("Nº do usuário",           2, constante("1")),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 272);
static_assert(comprimento(kCampos, 2, false) == 272);

using TotalGeral = char[18];

// Deliberate: a maximum of 18 characters loses its last one, a longer one is not used, and a failed query
// only leaves the text empty: it is not logged, though the register then is not complete.
void buscaTotalGeral(Execucao& execucao, const Registro& registro, TotalGeral& total) {
  const bool daMemoriaFiscal = std::strcmp(execucao.ajustes().comando, "MF") == 0;
  const int qual = daMemoriaFiscal ? kTotalDasReducoes : kTotalDaPosicao;
  const auto maximo = execucao.consulta(registro.consultas[qual].sql);
  if (!maximo->avanca()) {
    completou(execucao, registro, *maximo, qual);
    return;
  }
  const char* texto = maximo->texto(0);
  if (std::strlen(texto) <= 18) copiaLimitada(total, texto);
}

// Deliberate: the maximum, where there is one, replaces the user's own grand total in every record.
void escreveE02(Execucao& execucao, const Registro& registro) {
  TotalGeral total = "";
  buscaTotalGeral(execucao, registro, total);
  const auto usuarios = execucao.consulta(registro.consultas[kUsuarios].sql);
  const FonteCom comTotal(*usuarios, *total != '\0' ? kColunaTotalGeral : -1, total);
  const long linhas = gravaLinhas(execucao, registro.campos, *usuarios, comTotal);
  encerra(execucao, registro, *usuarios, linhas);
}

}  // namespace

constexpr Registro kE02 =
    Registro("E02", "Identificação do atual contribuinte usuário do ECF", kCampos, escreveE02)
        .consulta(
            "SELECT cnpj, SUBSTR(ie, 0, 15), razao_social, endereco,"
            "                  ifnull(data_hora_gravacao, '                   '), cont_cro, valor_gt"
            "                  FROM dados_usuario",
            "Erro no select - TipoE02")
        .consulta("SELECT MAX(valor_gt) FROM reducao_z", nullptr)
        .consulta("SELECT MAX(valor_gt) FROM posicao_totalizadores_contadores", nullptr)
        .nosComandos(kTodos);

}  // namespace cotepe
