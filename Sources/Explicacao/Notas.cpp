// What is odd about the registers and known, as users meet it.
#include <array>
#include <cstring>

#include "Explicacao/Explicacao.h"
#include "Idioma/Idioma.h"

namespace cotepe {
namespace {

struct Nota {
  const char *registro, *rotulo, *texto;  // the text to be translated
};

// clang-format off
constexpr std::array<Nota, 28> kNotas = {{
    {"E01", nullptr, marca("several printers, software versions or users each add a group of fields and move the later ones right; without a software version its 10 bytes are left out")},
    {"E01", "CRZ inicial", marca("six digits in every layout")},
    {"E01", "CRZ final", marca("six digits in every layout")},
    {"E01", "Data final", marca("the day on which the last reduction was issued, often the one after its movement")},
    {"E02", "Totalizador geral (GT)", marca("one maximum for all users; one of exactly 18 characters loses its last, a longer one is not used")},
    {"E03", nullptr, marca("no command writes it")},
    {"E04", nullptr, marca("no command writes it")},
    {"E05", nullptr, marca("the line goes on from recording to recording: each user adds a CNPJ, and each recording repeats the ones before it")},
    {"E06", nullptr, marca("the line goes on from recording to recording: each user adds a CNPJ, and each recording repeats the ones before it")},
    {"E05", "Codificação do GT", marca("it has no width of its own: the next recording's date stands over it on the next line")},
    {"E07", nullptr, marca("its placeholder is 18 blanks alone, without a head")},
    {"E08", nullptr, marca("always one line; each user adds a CNPJ to it")},
    {"E09", "Tipo de intervenção", marca("in a placeholder record the CRZ stands over it, so that the line is one byte short")},
    {"E09", "CRZ", marca("four digits, unlike in other registers")},
    {"E09", "COO", marca("nine digits, whatever the layout's counters have")},
    {"E11", "Totalizador geral (GT)", marca("with counters of nine digits the time stamp overwrites its last twelve")},
    {"E12", "CRZ", marca("six digits in every layout")},
    {"E12", "CRO", marca("six digits in every layout")},
    {"E13", nullptr, marca("the fiscal totalizers stand first, then one sum of the non-fiscal ones (OPNF) for each reduction")},
    {"E14", "Tipo do desconto", marca("always V, whatever the database says")},
    {"E14", "Tipo do acréscimo", marca("always V, whatever the database says")},
    {"E14", "Ordem de desconto e acréscimo", marca("of a coupon with both the surcharge wins")},
    {"E15", "Nº do item", marca("six digits of the number in a field of three: from 1000 on the later digits are lost")},
    {"E15", "Quantidade cancelada", marca("never filled, even of a cancelled item")},
    {"E15", "Valor cancelado", marca("never filled, even of a cancelled item")},
    {"E19", "Ordem de desconto e acréscimo", marca("of a coupon with both the surcharge wins")},
    {"E20", nullptr, marca("an operation whose totalizer is not registered has no record")},
    {"E22", nullptr, marca("the whole table, whatever the period; its head has no user and no additional MF")},
}};
// clang-format on

}  // namespace

const char* notaSobre(const Registro& registro, const char* rotulo) {
  for (const Nota& nota : kNotas) {
    if (std::strcmp(nota.registro, registro.codigo) != 0) continue;
    if (nota.rotulo == rotulo ||
        (nota.rotulo != nullptr && rotulo != nullptr && std::strcmp(nota.rotulo, rotulo) == 0))
      return traduz(nota.texto);
  }
  return nullptr;
}

}  // namespace cotepe
