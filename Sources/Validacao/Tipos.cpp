// What the type of a document says about its other fields.
#include <string>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kContadoresDoTipo{
    "document-counters", Severidade::Erro,
    marca("A document has the counters of its kind and zeros in the others."), kGereDeNovo};
const Regra validacao::kLetraDoAjuste{
    "adjustment-letter", Severidade::Erro,
    marca("The order of discount and surcharge is A with a surcharge, else D with a discount."), kGereDeNovo};

namespace {

/// The order of discount and surcharge of a coupon.
class LetraDoAjuste {
 public:
  explicit LetraDoAjuste(const Registro& registro)
      : desconto_(registro, "Desconto"),
        acrescimo_(registro, "Acréscimo"),
        letra_(registro, "Ordem de desconto e acréscimo") {}

  void confere(Relator& relator, const RegistroLido& lido) const {
    std::int64_t desconto = 0, acrescimo = 0;
    if (lido.vazio || !desconto_.le(lido, desconto) || !acrescimo_.le(lido, acrescimo)) return;
    const std::string_view letra = letra_.bytes(lido);
    const std::string_view esperada = acrescimo != 0 ? "A" : desconto != 0 ? "D" : " ";
    if (letra == esperada || (letra != "A" && letra != "D" && letra != " ")) return;
    relator.noCampo(validacao::kLetraDoAjuste, lido, letra_.indice(), entreAspas(letra),
                    entreAspas(esperada));
  }

 private:
  Coluna desconto_, acrescimo_, letra_;
};

class RegrasDeTipos final : public Familia {
 public:
  explicit RegrasDeTipos(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == &kE14)
      cupom_.confere(relator_, lido);
    else if (lido.registro == &kE19)
      naoFiscal_.confere(relator_, lido);
    else if (lido.registro == &kE16 && !lido.vazio && lido.medidaCerta)
      documento(lido);
    else if (lido.registro == &kE21 && !lido.vazio)
      pagamento(lido);
  }

 private:
  void documento(const RegistroLido& lido) {
    const std::string_view tipo = simbolo_.bytes(lido);
    if (tipo != "CN" && tipo != "RG" && tipo != "CC" && tipo != "NC") semContador(lido, gnf_, tipo);
    if (tipo != "RG") semContador(lido, grg_, tipo);
    if (tipo != "CC") semContador(lido, cdc_, tipo);
    if (tipo != "RZ") semContador(lido, crz_, tipo);
  }

  void semContador(const RegistroLido& lido, const Coluna& coluna, std::string_view tipo) {
    std::int64_t valor = 0;
    if (coluna.le(lido, valor) && valor != 0)
      relator_.noCampo(validacao::kContadoresDoTipo, lido, coluna.indice(),
                       frase("{1} in a document {2}", {entreAspas(coluna.bytes(lido)), entreAspas(tipo)}),
                       traduz("zeros"));
  }

  // A payment belongs to a fiscal coupon or to a non-fiscal one.
  void pagamento(const RegistroLido& lido) {
    std::int64_t ccf = 0, gnf = 0;
    if (ccf21_.le(lido, ccf) && gnf21_.le(lido, gnf) && ccf != 0 && gnf != 0)
      relator_.noCampo(validacao::kContadoresDoTipo, lido, gnf21_.indice(),
                       frase("{1} beside a CCF", {entreAspas(gnf21_.bytes(lido))}), traduz("zeros"));
  }

  Relator& relator_;
  LetraDoAjuste cupom_{kE14}, naoFiscal_{kE19};
  Coluna gnf_{kE16, "GNF"}, grg_{kE16, "GRG"}, cdc_{kE16, "CDC"}, crz_{kE16, "CRZ"},
      simbolo_{kE16, "Símbolo do documento"}, ccf21_{kE21, "CCF"}, gnf21_{kE21, "GNF"};
};

}  // namespace

std::unique_ptr<Familia> regrasDeTipos(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeTipos>(relator);
}

}  // namespace cotepe
