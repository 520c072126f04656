// E03 and E04, service providers and earlier users: one record each without a source, outside every command.
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

// clang-format off
constexpr auto kCamposE03 = registroComum("E03", {
    numero("Nº do prestador",    2, {}),
    data  ("Data",                  {}),
    hora  ("Hora",                  {}),
    numero("Primeiro número",   14, {}),
    numero("Segundo número",    14, {}),
    numero("Terceiro número",   18, {}),
});

constexpr auto kCamposE04 = registroComum("E04", {
    numero("Nº do usuário",      2, ajuste(&Ajustes::usuario)),
    data  ("Data",                  {}),
    hora  ("Hora",                  {}),
    numero("Primeiro número",   14, {}),
    numero("Segundo número",    14, {}),
    numero("Contador",           6, {}),
    numero("Terceiro número",   18, {}),
});
// clang-format on
static_assert(comprimento(kCamposE03, 1, false) == 106);
static_assert(comprimento(kCamposE04, 1, false) == 112);

// Deliberate: E03 is written in CAT52 mode too, E04 is not.
void escreve(Execucao& execucao, const Registro& registro) {
  if (registro.vazio == Vazio::Sempre || !execucao.ajustes().cat52) gravaVazio(execucao, registro.campos);
}

}  // namespace

// Deliberate: no command writes either.
const Registro kE03 = {"E03",         "Identificação dos prestadores de serviço cadastrados no ECF",
                       kCamposE03,    {},
                       kNenhum,       false,
                       Vazio::Sempre, false,
                       escreve};

const Registro kE04 = {"E04",
                       "Relação dos usuários anteriores do ECF",
                       kCamposE04,
                       {},
                       kNenhum,
                       false,
                       Vazio::ForaDoCat52,
                       false,
                       escreve};

}  // namespace cotepe
