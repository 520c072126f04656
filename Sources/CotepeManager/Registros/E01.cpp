// E01, the printer and the file itself: four queries make one line, written when the last has succeeded.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Leiaute/Texto.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

enum Consulta : std::uint8_t { kEcf, kVersaoSb, kUsuario, kReducoes };

const char* tipoDoEcf(const Fonte& fonte, const Execucao& execucao) {
  const char* tipo = fonte.texto(0);
  return *tipo != '\0' ? tipo : execucao.hospedeiro().tipo();
}

const char* versaoDoLeiaute(const Fonte& /*fonte*/, const Execucao& execucao) {
  return execucao.ajustes().versao == 1 ? "AC1704 01.00.00" : "AC1704 02.00.00";
}

// A day that no reduction gives is blank.
template <int kColuna>
const char* diaOuBrancos(const Fonte& fonte, const Execucao& /*execucao*/) {
  return fonte.bytes(kColuna) != 0 ? fonte.texto(kColuna) : kSemDataHora;
}

// Deliberate: CRZ inicial and CRZ final are six digits in every layout, unlike the document counters.
// clang-format off
constexpr auto kCampos = std::array<Campo, 18>{
    leiaute::tipoDoRegistro("E01"),
    texto        ("Nº de fabricação",            20, ajuste(&Ajustes::nrFabricacao)),
    letra        ("MF adicional",                    constante(" ")),
    texto        ("Tipo de ECF",                  7, funcao(tipoDoEcf, coluna(0, kEcf))),
    texto        ("Marca",                       20, coluna(1, kEcf)),
    texto        ("Modelo",                      20, coluna(2, kEcf)),
    texto        ("Versão do software básico",   10, coluna(0, kVersaoSb)),
    data         ("Data de gravação do SB",          coluna(1, kVersaoSb)),
    hora         ("Hora de gravação do SB",          coluna(1, kVersaoSb)),
    numero       ("Nº sequencial do ECF",         3, coluna(4, kEcf)),
    identificador("CNPJ do usuário",                 coluna(0, kUsuario)),
    texto        ("Comando de geração",           3, ajuste(&Ajustes::comando)),
    contador6    ("CRZ inicial",                     coluna(0, kReducoes)),
    contador6    ("CRZ final",                       coluna(1, kReducoes)),
    data         ("Data inicial",                    funcao(diaOuBrancos<2>, coluna(2, kReducoes))),
    data         ("Data final",                      funcao(diaOuBrancos<3>, coluna(3, kReducoes))),
    texto        ("Versão do programa gerador",   8, constante("02.00.02")),
    texto        ("Versão do leiaute",           15, funcao(versaoDoLeiaute)),
};
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 166);
static_assert(comprimento(kCampos, 2, false) == 166);

constexpr Campos kIdentidade = Campos(kCampos).trecho(0, 3);
constexpr Campos kTipoMarcaModelo = Campos(kCampos).trecho(3, 3);
constexpr Campos kSoftwareBasico = Campos(kCampos).trecho(6, 3);
constexpr Campos kDataHoraDoSoftware = Campos(kCampos).trecho(7, 2);
constexpr Campos kNumeroSequencial = Campos(kCampos).trecho(9, 1);
constexpr Campos kCnpj = Campos(kCampos).trecho(10, 1);
constexpr Campos kComando = Campos(kCampos).trecho(11, 1);
constexpr Campos kPeriodo = Campos(kCampos).trecho(12, 4);
constexpr Campos kVersoes = Campos(kCampos).trecho(16, 2);

// Deliberate: several rows append several groups, each moving the later fields right. Without a printer the
// three fields are left out, not blank; without a software version its 10 characters are, and 14 blanks stand
// for its date and time.
void escreveE01(Execucao& execucao, const Registro& registro) {
  Linha linha;
  char numeroSequencial[4] = "";
  const auto guardaNumero = [&](const Fonte& ecf) {
    copiaLimitada(numeroSequencial, ecf.texto(4));
    return true;
  };
  // An aggregate over no reduction is a row without a first counter.
  const auto temReducao = [](const Fonte& reducoes) { return reducoes.bytes(0) != 0; };

  compoe(linha, kIdentidade, SemFonte(), execucao);
  if (!acrescentaLinhas(execucao, registro, kEcf, linha, kTipoMarcaModelo, {}, guardaNumero)) return;
  if (!acrescentaLinhas(execucao, registro, kVersaoSb, linha, kSoftwareBasico, kDataHoraDoSoftware)) return;
  compoe(linha, kNumeroSequencial, FonteCom(SemFonte(), 4, numeroSequencial), execucao);
  if (!acrescentaLinhas(execucao, registro, kUsuario, linha, kCnpj, kCnpj)) return;
  compoe(linha, kComando, SemFonte(), execucao);
  if (!acrescentaLinhas(execucao, registro, kReducoes, linha, kPeriodo, kPeriodo, temReducao)) return;
  compoe(linha, kVersoes, SemFonte(), execucao);
  execucao.grava(linha);
}

}  // namespace

const Registro kE01 = {
    "E01",
    "Identificação do ECF",
    kCampos,
    {{"SELECT tipo, marca, modelo, ' ', num_caixa FROM dados_ecf", "Erro no select 1 - TipoE01"},
     {"SELECT versao, ifnull(data_hora_gravacao, '                   ')"
      "                  FROM versao_sb"
      "                  WHERE num_sequencia = (SELECT MAX(num_sequencia) FROM versao_sb)",
      "Erro no select 2 - TipoE01"},
     {"SELECT cnpj FROM dados_usuario", "Erro no select 3 - TipoE01"},
     {"SELECT MIN(cont_crz), MAX(cont_crz), MIN(data_movimento), MAX(data_hora_emissao)"
      "                  FROM reducao_z"
      "                  WHERE data_movimento >= '%s' AND data_movimento <= '%s'",
      "Erro no select 4 - TipoE01"}},
    kTodos,
    false,
    Vazio::Nunca,
    false,
    escreveE01};

}  // namespace cotepe
