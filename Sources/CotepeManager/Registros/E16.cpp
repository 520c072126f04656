// E16, the other documents: their counters by document type.
#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

constexpr int kColunaTipo = 5;

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
    contador ("GNF",                      funcao(gnf, coluna(1))),
    contador ("GRG",                      funcao(grg, coluna(2))),
    numero   ("CDC",                   4, funcao(cdc, coluna(3))).nuncaCortado(),
    contador6("CRZ",                      funcao(crz, coluna(4))),
    texto    ("Símbolo do documento",  2, coluna(kColunaTipo)),
    data     ("Data final de emissão",    coluna(6)),
    hora     ("Hora final de emissão",    coluna(6)),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 90);
static_assert(comprimento(kCampos, 2, false) == 99);

}  // namespace

const Registro kE16 = {
    "E16",
    "Demais documentos emitidos pelo ECF",
    kCampos,
    {{"SELECT outros.cont_coo, outros.cont_gnf, outros.cont_grg, outros.cont_cdc, outros.cont_crz,"
      " outros.id_tipo_documento, outros.data_hora_fim_emissao"
      "                  FROM outros_documentos AS outros INNER JOIN reducao_z AS reducao USING(cont_crz)"
      "                  WHERE reducao.data_movimento >= '%s'"
      "                  AND reducao.data_movimento <= '%s'"
      "                  ORDER BY outros.cont_coo",
      "Erro no select - TipoE16"}},
    kMFD | kTDM | kRZ,
    false,
    Vazio::ForaDoCat52,
    true,
    escreveTabela};

}  // namespace cotepe
