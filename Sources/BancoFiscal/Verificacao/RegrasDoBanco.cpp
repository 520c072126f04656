#include "Verificacao/RegrasDoBanco.h"

#include <array>

namespace cotepe {
namespace {

constexpr Severidade kErro = Severidade::Erro, kAviso = Severidade::Aviso;

constexpr std::array<DescricaoDaRegraDoBanco, kQuantasRegrasDoBanco> kRegras = {{
    {"table-missing", kErro, "Every table that the registers read is there.",
     "create it; cotepe schema shows how"},
    {"column-missing", kErro, "Every column that the registers read is there.",
     "add it; cotepe schema shows how"},
    {"row-count", kErro, "There is one printer, one user, one position, and a version of the software.",
     "leave the row that is valid now"},
    {"null-value", kErro, "NULL stands only in dates that may be absent.", "store a value"},
    {"flag-length", kErro, "A flag is one character.", "store one character"},
    {"code-unknown", kErro, "A code is one of its values.", "store one of them"},
    {"text-long", kErro, "A text is no longer than its field, in bytes.", "shorten it"},
    {"text-cut", kAviso, "A text of which only the first bytes are written fits all the same.",
     "shorten it, so that what matters stands in front"},
    {"text-short", kErro, "A text that is not filled with blanks is as long as its field.",
     "store all its characters"},
    {"control-character", kErro, "A text has no control character and no line end.", "remove it"},
    {"not-a-number", kErro, "A number is digits, of money with a point before the cents.",
     "store it as a number"},
    {"negative", kErro, "No number is negative.", "correct it"},
    {"digits-lost", kErro, "A number has no more digits than are written of it.", "correct it"},
    {"number-wide", kErro, "An amount or quantity is no wider than its field.", "correct it"},
    {"rounded", kAviso, "An amount or quantity has no more decimal places than its field.",
     "store it as it was printed"},
    {"field-shift", kErro, "A number that is never clipped fits its field.", "correct it"},
    {"tax-number-form", kErro, "A CNPJ or CPF is digits alone: 14, of a consumer at most 14.",
     "store its digits without separators"},
    {"tax-number", kAviso, "The check digits of a CNPJ or CPF are right.", "check it against its document"},
    {"date-form", kErro, "A date-time is YYYY-MM-DD HH:MM:SS.", "store date and time in this form"},
    {"date-impossible", kErro, "A date-time is a day and an hour that exist.", "correct it"},
    {"outside-period", kErro, "No bare date stands on the first day of the period, which leaves it out.",
     "store the time too"},
    {"text-order", kErro, "A counter that rows are sorted by is stored so that 9 comes before 11.",
     "store it as an integer"},
    {"text-maximum", kErro, "What a maximum is taken of is stored so that 9 is less than 11.",
     "store it as a number"},
    {"no-reduction", kErro, "A document or total belongs to a Z reduction, or to the day after the last one.",
     "store the reduction, or correct the counter"},
    {"no-document", kErro, "An item or payment belongs to a coupon.",
     "store the coupon, or correct the counter"},
    {"no-totalizer", kErro, "The totalizer of a non-fiscal item is registered.", "register the totalizer"},
    {"no-means", kErro, "The means of a payment is registered.", "register the means of payment"},
    {"counter-repeat", kErro, "A counter or key is used once.",
     "leave one of the rows, or correct the counter"},
    {"two-coupons", kErro, "A COO is that of a fiscal or of a non-fiscal coupon, not of both.",
     "correct the counter of one of them"},
    {"index-missing", kAviso, "There is an index on each column that the queries search by.",
     "create the index; cotepe schema shows how"},
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
