// E16, the other documents: their counters by document type.
#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr int kColunaTipo = 5;
constexpr Codigo kTipos[] = {{"CN", "comprovante não fiscal"},
                             {"RG", "relatório gerencial"},
                             {"CC", "comprovante de crédito ou débito"},
                             {"NC", "comprovante não fiscal cancelamento"},
                             {"RZ", "redução Z"}};

const char* dosTipos(const Fonte& documento, int coluna, std::initializer_list<const char*> tipos) {
  const char* tipo = documento.texto(kColunaTipo);
  const auto igual = [tipo](const char* outro) { return std::strcmp(tipo, outro) == 0; };
  return std::any_of(tipos.begin(), tipos.end(), igual) ? documento.texto(coluna) : "";
}

// Deliberate: a counter is read only for the types that own it; whatever is stored for another type is
// ignored.
const char* gnf(const Fonte& documento, const Execucao& /*execucao*/) {
  return dosTipos(documento, 1, {"CN", "RG", "CC", "NC"});
}
const char* grg(const Fonte& documento, const Execucao& /*execucao*/) {
  return dosTipos(documento, 2, {"RG"});
}
const char* cdc(const Fonte& documento, const Execucao& /*execucao*/) {
  return dosTipos(documento, 3, {"CC"});
}
const char* crz(const Fonte& documento, const Execucao& /*execucao*/) {
  return dosTipos(documento, 4, {"RZ"});
}

// Deliberate: the CDC is never clipped.
// clang-format off
constexpr auto kCampos = registroDoUsuario("E16", {
    contador ("COO",                      coluna(0)),
    contador ("GNF",                      funcao(gnf, coluna(1))).fonte(marca("outros_documentos.cont_gnf of CN, RG, CC and NC; of others zero")),
    contador ("GRG",                      funcao(grg, coluna(2))).fonte(marca("outros_documentos.cont_grg of RG; of others zero")),
    numero   ("CDC",                   4, funcao(cdc, coluna(3))).nuncaCortado().fonte(marca("outros_documentos.cont_cdc of CC; of others zero")),
    contador6("CRZ",                      funcao(crz, coluna(4))).fonte(marca("outros_documentos.cont_crz of RZ; of others zero")),
    texto    ("Símbolo do documento",  2, coluna(kColunaTipo)).podeSer(kTipos),
    data     ("Data final de emissão",    coluna(6)).sempreHa(),
    hora     ("Hora final de emissão",    coluna(6)).sempreHa(),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 90);
static_assert(comprimento(kCampos, 2, false) == 99);

}  // namespace

constexpr Registro kE16 =
    Registro("E16", "Demais documentos emitidos pelo ECF", kCampos, escreveTabela)
        .consulta(
            "SELECT outros.cont_coo, outros.cont_gnf, outros.cont_grg, outros.cont_cdc, outros.cont_crz,"
            " outros.id_tipo_documento, outros.data_hora_fim_emissao"
            "                  FROM outros_documentos AS outros INNER JOIN reducao_z AS reducao "
            "USING(cont_crz)"
            "                  WHERE reducao.data_movimento >= '%s'"
            "                  AND reducao.data_movimento <= '%s'"
            "                  ORDER BY outros.cont_coo",
            "Erro no select - TipoE16")
        .nosComandos(kMFD | kTDM | kRZ)
        .vazioForaDoCat52()
        .finalizaAntes()
        .comChave("COO")
        .emOrdemDe("COO")
        .semRepetirChave()
        .comData("Data final de emissão");

}  // namespace cotepe
