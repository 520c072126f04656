// The Z reductions: E12 with E13 and E16, E13 with E17, E01 with E12, and the grand total over all of them.
#include <algorithm>
#include <map>
#include <string>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kTotaisDaReducao{
    "reduction-totals", Severidade::Erro,
    marca("E13's fiscal totalizers without surcharges add up to E12's gross sales."), kVejaOBanco};
const Regra validacao::kNaoFiscaisDaReducao{
    "reduction-nonfiscal", Severidade::Erro,
    marca("E13's non-fiscal sum of a reduction is the sum of its totalizers in E17."), kVejaOBanco};
const Regra validacao::kDocumentoDaReducao{
    "reduction-document", Severidade::Erro,
    marca("E16's document RZ of a reduction has the COO that E12 has."), kVejaOBanco};

namespace {

/// What the registers say about one reduction, in cents.
struct Reducao {
  std::int64_t vendaBruta = 0, fiscais = 0, somaNaoFiscal = 0, naoFiscais = 0;
  std::int64_t coo = 0;  // of E12
  bool cooIncerto = false;
  long linha = 0;      // in E12
  long linhaSoma = 0;  // in E13, of the non-fiscal sum
  bool incerta = false;
};

// Surcharges are in the gross sales through the totalizers of their tax codes.
bool deAcrescimo(std::string_view totalizador) {
  return totalizador == "AT     " || totalizador == "AS     ";
}

class RegrasDeReducoes final : public Familia {
 public:
  explicit RegrasDeReducoes(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == &kE12) return e12(lido);
    if (lido.registro == &kE13) return e13(lido);
    if (lido.registro == &kE16) return e16(lido);
    if (lido.registro == &kE17) return e17(lido);
    if (lido.registro == &kE18 && !lido.vazio) daReducao(lido, crz18_);
  }

  void fim() override {
    for (const auto& [crz, reducao] : reducoes_) {
      if (reducao.incerta || ilegivel_) continue;
      if (viuE12_ && viuE13_ && reducao.linha != 0) confereVenda(reducao);
      if (viuE13_ && viuE17_ && reducao.linha != 0) confereNaoFiscais(reducao);
    }
  }

 private:
  void e12(const RegistroLido& lido) {
    viuE12_ = true;
    std::int64_t crz = 0;
    if (lido.vazio) return;
    if (!crz12_.le(lido, crz)) {
      ilegivel_ = true;
      return;
    }
    Reducao& reducao = reducoes_[crz];
    // The same CRZ under another CRO: the joins by CRZ give each the totals of both.
    reducao.cooIncerto = reducao.linha != 0 || !coo12_.le(lido, reducao.coo);
    reducao.incerta = reducao.linha != 0 || !venda_.le(lido, reducao.vendaBruta);
    reducao.linha = lido.linha.numero;
    if (!reducao.incerta) lugarVenda_ = lugarDoCampo(lido, venda_.indice());
  }

  // The reduction of a record by its CRZ; when E12 has none, reports it and returns null.
  Reducao* daReducao(const RegistroLido& lido, const Coluna& coluna) {
    std::int64_t crz = 0;
    if (!coluna.le(lido, crz)) {
      ilegivel_ = true;
      return nullptr;
    }
    const auto achada = reducoes_.find(crz);
    if (achada != reducoes_.end()) return &achada->second;
    if (viuE12_ && !ilegivel_)
      relator_.noCampo(validacao::kSemDocumento, lido, coluna.indice(), entreAspas(coluna.bytes(lido)),
                       traduz("a CRZ of E12"));
    return nullptr;
  }

  void e13(const RegistroLido& lido) {
    viuE13_ = true;
    if (lido.vazio) return;
    Reducao* reducao = daReducao(lido, crz13_);
    std::int64_t valor = 0;
    if (reducao == nullptr) return;
    const std::string_view totalizador = totalizador_.bytes(lido);
    if (valor13_.le(lido, valor))
      lugarSoma_ = lugarDoCampo(lido, valor13_.indice());
    else
      reducao->incerta = true;
    if (totalizador.size() != 7) reducao->incerta = true;
    if (totalizador == "OPNF   ") {
      reducao->somaNaoFiscal += valor;
      reducao->linhaSoma = lido.linha.numero;
    } else if (!deAcrescimo(totalizador)) {
      reducao->fiscais += valor;
    }
  }

  // Where E12 has its reduction; a report of only the detail-tape memory has no E12.
  void e16(const RegistroLido& lido) {
    std::int64_t crz = 0, coo = 0;
    if (simbolo_.bytes(lido) != "RZ" || !crz16_.le(lido, crz) || !coo16_.le(lido, coo)) return;
    const auto achada = reducoes_.find(crz);
    if (achada == reducoes_.end() || achada->second.cooIncerto || achada->second.coo == coo) return;
    const int largura = lido.campos[coo16_.indice()].largura;
    relator_.noCampo(
        validacao::kDocumentoDaReducao, lido, coo16_.indice(), entreAspas(coo16_.bytes(lido)),
        frase("{1} as in {2}", {entreAspas(contadorEscrito(achada->second.coo, largura)), "E12"}));
  }

  void e17(const RegistroLido& lido) {
    viuE17_ = true;
    if (lido.vazio) return;
    Reducao* reducao = daReducao(lido, crz17_);
    std::int64_t valor = 0;
    if (reducao == nullptr) return;
    if (!valor17_.le(lido, valor)) reducao->incerta = true;
    reducao->naoFiscais += valor;
  }

  void confereVenda(const Reducao& reducao) const {
    if (reducao.fiscais == reducao.vendaBruta) return;
    relator_.naLinhaLida(validacao::kTotaisDaReducao, reducao.linha, kE12, lugarVenda_,
                         reais(reducao.vendaBruta),
                         frase("{1}, the sum of {2}", {reais(reducao.fiscais), "E13"}));
  }

  void confereNaoFiscais(const Reducao& reducao) const {
    if (reducao.somaNaoFiscal == reducao.naoFiscais) return;
    relator_.naLinhaLida(validacao::kNaoFiscaisDaReducao, reducao.linhaSoma, kE13, lugarSoma_,
                         reais(reducao.somaNaoFiscal),
                         frase("{1}, the sum of {2}", {reais(reducao.naoFiscais), "E17"}));
  }

  Relator& relator_;
  std::map<std::int64_t, Reducao> reducoes_;
  bool viuE12_ = false, viuE13_ = false, viuE17_ = false, ilegivel_ = false;
  Coluna crz12_{kE12, "CRZ"}, coo12_{kE12, "COO"}, coo16_{kE16, "COO"}, crz16_{kE16, "CRZ"},
      simbolo_{kE16, "Símbolo do documento"}, venda_{kE12, "Venda bruta diária"}, crz13_{kE13, "CRZ"},
      totalizador_{kE13, "Totalizador parcial"}, valor13_{kE13, "Valor acumulado"}, crz17_{kE17, "CRZ"},
      valor17_{kE17, "Valor acumulado"}, crz18_{kE18, "CRZ"};
  LugarDoCampo lugarVenda_, lugarSoma_{static_cast<int>(valor13_.indice()), 0, 0};  // the same on every line
};

}  // namespace

std::unique_ptr<Familia> regrasDeReducoes(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeReducoes>(relator);
}

}  // namespace cotepe
