// E01, the printer and the file itself: four queries make one line, written when the last has succeeded.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Leiaute/Texto.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

enum : std::uint8_t { kEcf, kVersaoSb, kUsuario, kReducoes };

constexpr Codigo kComandos[] = {{"MF", marca("fiscal memory")},
                                {"MFD", marca("detail-tape memory")},
                                {"TDM", marca("both memories")},
                                {"RZ", marca("coupons and documents of reductions")}};

const char* tipoDoEcf(const Fonte& fonte, const Execucao& execucao) {
  const char* tipo = fonte.texto(0);
  return *tipo != '\0' ? tipo : execucao.hospedeiro().tipo();
}

// A day without a reduction is blank.
template <int kColuna>
const char* diaOuBrancos(const Fonte& fonte, const Execucao& /*execucao*/) {
  return fonte.bytes(kColuna) != 0 ? fonte.texto(kColuna) : kSemDataHora;
}

// Deliberate: CRZ inicial and CRZ final are six digits in every layout, unlike the document counters.
// clang-format off
constexpr auto kCampos = std::array<Campo, 18>{
    leiaute::tipoDoRegistro("E01"),
    leiaute::numeroDeFabricacao("Nº de fabricação"),
    letra        ("MF adicional",                    constante(" ")),
    texto        ("Tipo de ECF",                  7, funcao(tipoDoEcf, coluna(0, kEcf))).ouDoAplicativo().fonte(marca("dados_ecf.tipo, where that is empty the application's type")),
    texto        ("Marca",                       20, coluna(1, kEcf)),
    texto        ("Modelo",                      20, coluna(2, kEcf)),
    texto        ("Versão do software básico",   10, coluna(0, kVersaoSb)),
    data         ("Data de gravação do SB",          coluna(1, kVersaoSb)),
    hora         ("Hora de gravação do SB",          coluna(1, kVersaoSb)),
    numero       ("Nº sequencial do ECF",         3, coluna(4, kEcf)).cortadoAntes(),
    cnpj         ("CNPJ do usuário",                 coluna(0, kUsuario)),
    texto        ("Comando de geração",           3, ajuste(&Ajustes::comando)).podeSer(kComandos).fonte(marca("the command that the report was made with")),
    contador6    ("CRZ inicial",                     coluna(0, kReducoes)).nota(marca("six digits in every layout")),
    contador6    ("CRZ final",                       coluna(1, kReducoes)).nota(marca("six digits in every layout")),
    data         ("Data inicial",                    funcao(diaOuBrancos<2>, coluna(2, kReducoes))),
    data         ("Data final",                      funcao(diaOuBrancos<3>, coluna(3, kReducoes))).nota(marca("the day on which the last reduction was issued, often the one after its movement")),
    texto        ("Versão do programa gerador",   8, constante("02.00.02")),
    texto        ("Versão do leiaute",           15, doLeiaute("AC1704 01.00.00", "AC1704 02.00.00")).fonte(marca("the layout that the report was made in: 01.00.00 for 1, 02.00.00 for others")),
};
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 166);
static_assert(comprimento(kCampos, 2, false) == 166);

constexpr Campos kIdentidade = entre(kCampos, "Tipo do registro", "MF adicional");
constexpr Campos kTipoMarcaModelo = entre(kCampos, "Tipo de ECF", "Modelo");
constexpr Campos kSoftwareBasico = entre(kCampos, "Versão do software básico", "Hora de gravação do SB");
constexpr Campos kDataHoraDoSoftware = entre(kCampos, "Data de gravação do SB", "Hora de gravação do SB");
constexpr Campos kNumeroSequencial = entre(kCampos, "Nº sequencial do ECF", "Nº sequencial do ECF");
constexpr Campos kCnpj = entre(kCampos, "CNPJ do usuário", "CNPJ do usuário");
constexpr Campos kComando = entre(kCampos, "Comando de geração", "Comando de geração");
constexpr Campos kPeriodo = entre(kCampos, "CRZ inicial", "Data final");
constexpr Campos kVersoes = entre(kCampos, "Versão do programa gerador", "Versão do leiaute");

// Deliberate: several rows append several groups, each moving the later fields right. Without a printer the
// three fields are left out, not blank; without a software version its 10 characters are, and its date and
// time are 14 blanks.
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

constexpr Registro kE01 =
    Registro("E01", "Identificação do ECF", kCampos, escreveE01)
        .consulta("SELECT tipo, marca, modelo, ' ', num_caixa FROM dados_ecf", "Erro no select 1 - TipoE01")
        .consulta(
            "SELECT versao, ifnull(data_hora_gravacao, '                   ')"
            "                  FROM versao_sb"
            "                  WHERE num_sequencia = (SELECT MAX(num_sequencia) FROM versao_sb)",
            "Erro no select 2 - TipoE01")
        .consulta("SELECT cnpj FROM dados_usuario", "Erro no select 3 - TipoE01")
        .consulta(
            "SELECT MIN(cont_crz), MAX(cont_crz), MIN(data_movimento), MAX(data_hora_emissao)"
            "                  FROM reducao_z"
            "                  WHERE data_movimento >= '%s' AND data_movimento <= '%s'",
            "Erro no select 4 - TipoE01")
        .nosComandos(kTodos)
        .repetePorLinha("Tipo de ECF", "Modelo", 0, 9)
        .repetePorLinha("Versão do software básico", "Hora de gravação do SB", 0, 2, 2)
        .repetePorUsuario("CNPJ do usuário", 99)
        .sempreUmaLinha()
        .nota(marca("several printers, software versions or users each add a group of fields and move the "
                    "later ones right; without a software version its 10 bytes are left out"));

}  // namespace cotepe
