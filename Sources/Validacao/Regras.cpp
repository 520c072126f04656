#include "Validacao/Regras.h"

#include <array>

#include "Idioma/Idioma.h"

namespace cotepe {
namespace {

constexpr Severidade kErro = Severidade::Erro, kAviso = Severidade::Aviso;

constexpr const char* kGereDeNovo = marca("the file was changed after it was generated: generate it again");
constexpr const char* kVejaOBanco = marca("check the value in the database, correct it and generate again");
constexpr const char* kVejaOsDocumentos =
    marca("check the documents in the database: one is missing or was stored twice");

constexpr std::array<DescricaoDaRegra, kQuantasRegras> kRegras = {{
    {"line-end", kAviso, marca("Every line ends with a line-feed alone, the last one too."),
     marca("the file was converted or cut: take it as it was generated")},
    {"unknown-register", kErro, marca("Every line begins with the code of a register."), kGereDeNovo},
    {"line-length", kErro, marca("A line is as long as its register is in the file's layout and mode."),
     marca("look for an empty flag, a short date or an over-long last text in the database")},
    {"register-order", kErro, marca("The registers stand in ascending order, each in one block."),
     kGereDeNovo},
    {"register-missing", kErro, marca("Every register that the command writes is there."),
     marca("look into the log for the query that failed, and generate again")},
    {"register-extra", kErro,
     marca("No register is there that the command or the layout does not write, none too often."),
     kGereDeNovo},
    {"placeholder", kErro, marca("A placeholder record stands alone in its register, and not in CAT52 mode."),
     kGereDeNovo},
    {"field-digits", kErro, marca("A number is digits alone: no sign, no separator, no blank."), kVejaOBanco},
    {"field-width", kErro, marca("A number is wider than its field only where its digits need it."),
     kGereDeNovo},
    {"field-letter", kErro, marca("A flag is one of its letters."), kVejaOBanco},
    {"field-constant", kErro, marca("A field that is the same in every report holds that value."),
     kGereDeNovo},
    {"field-control", kErro, marca("A text has no control character."), kVejaOBanco},
    {"field-ascii", kAviso, marca("A text is ASCII."), kVejaOBanco},
    {"field-alignment", kAviso, marca("A text is left-aligned."), kVejaOBanco},
    {"field-date", kErro, marca("A date is a day that exists, and is there where the record needs it."),
     kVejaOBanco},
    {"field-hour", kErro, marca("An hour is one that exists, and is there where the record needs it."),
     kVejaOBanco},
    {"tax-number", kAviso, marca("The check digits of a CNPJ or CPF are right."), kVejaOBanco},
    {"identity", kErro, marca("The printer and its user are the same in every line."), kGereDeNovo},
    {"key-order", kErro, marca("The keys of a register ascend."),
     marca("check that the database stores counters as numbers: as text, 9 comes after 11")},
    {"counter-repeat", kErro, marca("A counter is used once."), kVejaOsDocumentos},
    {"counter-gap", kErro, marca("CRZ, COO, CCF and GNF have no gaps."), kVejaOsDocumentos},
    {"item-gap", kAviso, marca("The items of a coupon are numbered from 1 without gaps."), kVejaOsDocumentos},
    {"date-backwards", kAviso, marca("Dates do not go back while counters go on."), kVejaOBanco},
    {"document-counters", kErro, marca("A document has the counters of its kind and zeros in the others."),
     kGereDeNovo},
    {"adjustment-letter", kErro,
     marca("The order of discount and surcharge is A with a surcharge, else D with a discount."),
     kGereDeNovo},
    {"document-total", kErro, marca("Net total = subtotal or value - discount + surcharge."), kVejaOBanco},
    {"item-total", kAviso, marca("Net total of an item = quantity x unit value - discount + surcharge."),
     kVejaOBanco},
    {"coupon-items", kErro, marca("E15's items that are not cancelled add up to E14's subtotal."),
     kVejaOBanco},
    {"coupon-payments", kErro,
     marca("E21's payments, less reversals and change, are no less than E14's net total."), kVejaOBanco},
    {"nonfiscal-items", kErro, marca("E20's items that are not cancelled add up to E19's subtotal."),
     marca("an item whose totalizer is not registered is left out: check the database")},
    {"nonfiscal-payments", kErro,
     marca("E21's payments, less reversals and change, are no less than E19's net total."), kVejaOBanco},
    {"payments-over", kAviso,
     marca("The payments of a coupon, less reversals and change, are no more than its net total."),
     marca("where change is not recorded as a payment TROCO, switch this rule off")},
    {"orphan-record", kErro,
     marca("An item, payment or total belongs to a document or reduction of the file."), kVejaOsDocumentos},
    {"reduction-totals", kErro,
     marca("E13's fiscal totalizers without surcharges add up to E12's gross sales."), kVejaOBanco},
    {"reduction-nonfiscal", kErro,
     marca("E13's non-fiscal sum of a reduction is the sum of its totalizers in E17."), kVejaOBanco},
    {"reduction-document", kErro, marca("E16's document RZ of a reduction has the COO that E12 has."),
     kVejaOBanco},
    {"reduction-range", kErro, marca("E01's range of CRZ and days is that of E12."), kVejaOBanco},
    {"grand-total", kErro,
     marca("The grand total holds the gross sales of the file, and E11's is no less than E02's."),
     kVejaOBanco},
    {"position", kErro, marca("E11's counters are no less than those of the file."), kVejaOBanco},
}};

}  // namespace

const DescricaoDaRegra& descricao(Regra regra) { return kRegras[static_cast<std::size_t>(regra)]; }

bool regraDe(std::string_view nome, Regra& regra) {
  for (std::size_t i = 0; i < kQuantasRegras; ++i) {
    if (nome != kRegras[i].nome) continue;
    regra = static_cast<Regra>(i);
    return true;
  }
  return false;
}

}  // namespace cotepe
