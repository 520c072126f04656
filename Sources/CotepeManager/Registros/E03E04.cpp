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
    leiaute::numeroDoUsuario("Nº do usuário"),
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

}  // namespace

// Deliberate: no command writes either, and E03 is written in CAT52 mode too, E04 is not.
constexpr Registro kE03 =
    Registro("E03", "Identificação dos prestadores de serviço cadastrados no ECF", kCamposE03, escreveTabela)
        .vazioSempre()
        .nota(marca("no command writes it"));

constexpr Registro kE04 = Registro("E04", "Relação dos usuários anteriores do ECF", kCamposE04, escreveTabela)
                              .vazioForaDoCat52()
                              .nota(marca("no command writes it"));

}  // namespace cotepe
