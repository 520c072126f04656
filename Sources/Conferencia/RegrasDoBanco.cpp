#include "Conferencia/RegrasDoBanco.h"

#include <array>

#include "Idioma/Idioma.h"

namespace cotepe {
namespace {

constexpr Severidade kErro = Severidade::Erro, kAviso = Severidade::Aviso;

constexpr std::array<DescricaoDaRegraDoBanco, kQuantasRegrasDoBanco> kRegras = {{
    {"table-missing", kErro, marca("Every table that the registers read is there."),
     marca("create it; cotepe schema shows how")},
    {"column-missing", kErro, marca("Every column that the registers read is there."),
     marca("add it; cotepe schema shows how")},
    {"row-count", kErro,
     marca("There is one printer, one user, one position, and a version of the software."),
     marca("leave the row that is valid now")},
    {"null-value", kErro, marca("NULL stands only in dates that may be absent."), marca("store a value")},
    {"flag-length", kErro, marca("A flag is one character."), marca("store one character")},
    {"code-unknown", kErro, marca("A code is one of its values."), marca("store one of them")},
    {"text-long", kErro, marca("A text is no longer than its field, in bytes."), marca("shorten it")},
    {"text-cut", kAviso, marca("A text of which only the first bytes are written fits all the same."),
     marca("shorten it, so that what matters stands in front")},
    {"text-short", kErro, marca("A text that is not filled with blanks is as long as its field."),
     marca("store all its characters")},
    {"control-character", kErro, marca("A text has no control character and no line end."),
     marca("remove it")},
    {"not-a-number", kErro, marca("A number is digits, of money with a point before the cents."),
     marca("store it as a number")},
    {"negative", kErro, marca("No number is negative."), marca("correct it")},
    {"digits-lost", kErro, marca("A number has no more digits than are written of it."), marca("correct it")},
    {"number-wide", kErro, marca("An amount or quantity is no wider than its field."), marca("correct it")},
    {"rounded", kAviso, marca("An amount or quantity has no more decimal places than its field."),
     marca("store it as it was printed")},
    {"field-shift", kErro, marca("A number that is never clipped fits its field."), marca("correct it")},
    {"tax-number-form", kErro, marca("A CNPJ or CPF is digits alone: 14, of a consumer at most 14."),
     marca("store its digits without separators")},
    {"tax-number", kAviso, marca("The check digits of a CNPJ or CPF are right."),
     marca("check it against its document")},
    {"date-form", kErro, marca("A date-time is YYYY-MM-DD HH:MM:SS."),
     marca("store date and time in this form")},
    {"date-impossible", kErro, marca("A date-time is a day and an hour that exist."), marca("correct it")},
    {"outside-period", kErro,
     marca("No bare date stands on the first day of the period, which leaves it out."),
     marca("store the time too")},
    {"text-order", kErro, marca("A counter that rows are sorted by is stored so that 9 comes before 11."),
     marca("store it as an integer")},
    {"text-maximum", kErro, marca("What a maximum is taken of is stored so that 9 is less than 11."),
     marca("store it as a number")},
    {"no-reduction", kErro,
     marca("A document or total belongs to a Z reduction, or to the day after the last one."),
     marca("store the reduction, or correct the counter")},
    {"no-document", kErro, marca("An item or payment belongs to a coupon."),
     marca("store the coupon, or correct the counter")},
    {"no-totalizer", kErro, marca("The totalizer of a non-fiscal item is registered."),
     marca("register the totalizer")},
    {"no-means", kErro, marca("The means of a payment is registered."),
     marca("register the means of payment")},
    {"counter-repeat", kErro, marca("A counter or key is used once."),
     marca("leave one of the rows, or correct the counter")},
    {"two-coupons", kErro, marca("A COO is that of a fiscal or of a non-fiscal coupon, not of both."),
     marca("correct the counter of one of them")},
    {"index-missing", kAviso, marca("There is an index on each column that the queries search by."),
     marca("create the index; cotepe schema shows how")},
}};

}  // namespace

const DescricaoDaRegraDoBanco& descricao(RegraDoBanco regra) {
  return kRegras[static_cast<std::size_t>(regra)];
}

bool regraDe(std::string_view nome, RegraDoBanco& regra) {
  for (std::size_t i = 0; i < kQuantasRegrasDoBanco; ++i) {
    if (nome != kRegras[i].nome) continue;
    regra = static_cast<RegraDoBanco>(i);
    return true;
  }
  return false;
}

}  // namespace cotepe
