// Amounts across registers: E14 with its items in E15 and payments in E21, E19 with E20 and E21.
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"
#include "Validacao/TabelaPorCoo.h"

namespace cotepe {

const Regra validacao::kItensDoCupom{"coupon-items", Severidade::Erro,
                                     marca("E15's items that are not cancelled add up to E14's subtotal."),
                                     kVejaOBanco};
const Regra validacao::kPagamentosDoCupom{
    "coupon-payments", Severidade::Erro,
    marca("E21's payments, less reversals and change, are no less than E14's net total."), kVejaOBanco};
const Regra validacao::kItensDoNaoFiscal{
    "nonfiscal-items", Severidade::Erro,
    marca("E20's items that are not cancelled add up to E19's subtotal."),
    marca("an item whose totalizer is not registered is left out; cotepe check names it")};
const Regra validacao::kPagamentosDoNaoFiscal{
    "nonfiscal-payments", Severidade::Erro,
    marca("E21's payments, less reversals and change, are no less than E19's net total."), kVejaOBanco};
const Regra validacao::kPagamentoAMais{
    "payments-over", Severidade::Aviso,
    marca("The payments of a coupon, less reversals and change, are no more than its net total."),
    marca("where change is not recorded as a payment TROCO, switch this rule off")};
const Regra validacao::kSemDocumento{
    "orphan-record", Severidade::Erro,
    marca("An item, payment or total belongs to a document or reduction of the file."), kVejaOsDocumentos};

namespace {

constexpr std::string_view kTroco = "TROCO";  // the means of payment for change handed back

struct Documento {
  std::int64_t faltaDeItens = 0;       // cents: the subtotal less the items read so far
  std::int64_t faltaDePagamentos = 0;  // cents: the net total less the payments read so far
  std::uint32_t coo = 0;
  std::uint32_t contador = 0;  // CCF or GNF
  std::uint32_t linha = 0;     // of the file; the last number that fits where there are more
  bool cancelado = false;
  bool comItem = false;  // that is not cancelled
  bool itensIncertos = false, pagamentosIncertos = false;
};

/// A kind of coupon and its items.
struct Papel {
  const Registro& documento;
  const Registro& item;
  const char* contador;
  const char* valorDoItem;
  const Regra& itens;
  const Regra& pagamentos;
};

const Papel kFiscal{
    kE14, kE15, "CCF", "Valor total líquido", validacao::kItensDoCupom, validacao::kPagamentosDoCupom};
const Papel kNaoFiscal{
    kE19, kE20, "GNF", "Valor líquido", validacao::kItensDoNaoFiscal, validacao::kPagamentosDoNaoFiscal};

/// The coupons of one kind.
class Cupons {
 public:
  explicit Cupons(const Papel& papel)
      : papel_(papel),
        coo_(papel.documento, "COO"),
        contador_(papel.documento, papel.contador),
        subtotal_(papel.documento, "Subtotal"),
        total_(papel.documento, "Valor total líquido"),
        cancelado_(papel.documento, "Cancelado (S/N)"),
        itemCoo_(papel.item, "COO"),
        itemContador_(papel.item, papel.contador),
        itemValor_(papel.item, papel.valorDoItem),
        itemCancelado_(papel.item, "Cancelado (S/N)") {}

  void documento(const RegistroLido& lido) {
    std::int64_t coo = 0, contador = 0;
    if (!coo_.le(lido, coo) || !contador_.le(lido, contador)) {
      algumIlegivel_ = true;
      return;
    }
    const bool repetido = tabela_.acha(static_cast<std::uint32_t>(coo)) != nullptr;
    Documento& novo = tabela_.acrescenta(static_cast<std::uint32_t>(coo));
    novo.contador = static_cast<std::uint32_t>(contador);
    novo.linha = static_cast<std::uint32_t>(
        std::min<long>(lido.linha.numero, std::numeric_limits<std::uint32_t>::max()));
    novo.itensIncertos = !subtotal_.le(lido, novo.faltaDeItens);
    novo.pagamentosIncertos = !total_.le(lido, novo.faltaDePagamentos);
    if (!novo.itensIncertos) lugarSubtotal_ = lugarDoCampo(lido, subtotal_.indice());
    if (!novo.pagamentosIncertos) lugarTotal_ = lugarDoCampo(lido, total_.indice());
    const std::string_view cancelado = cancelado_.bytes(lido);
    novo.cancelado = cancelado == "S";
    if (repetido || (cancelado != "S" && cancelado != "N")) {
      novo.itensIncertos = novo.pagamentosIncertos = true;
      Documento& primeiro = *tabela_.acha(static_cast<std::uint32_t>(coo));
      primeiro.itensIncertos = primeiro.pagamentosIncertos = true;
    }
  }

  void item(Relator& relator, const RegistroLido& lido) {
    viuItens_ = true;
    if (lido.vazio) return;
    Documento* dono = donoDe(relator, lido, itemCoo_, itemContador_, itensIlegiveis_);
    if (dono == nullptr) return;
    std::int64_t valor = 0;
    const std::string_view cancelado = itemCancelado_.bytes(lido);
    if (!itemValor_.le(lido, valor) || (cancelado != "S" && cancelado != "N")) dono->itensIncertos = true;
    if (cancelado != "N") return;
    dono->comItem = true;
    dono->faltaDeItens -= valor;
  }

  void pagamento(Relator& relator, const RegistroLido& lido, const Coluna& coo, const Coluna& contador,
                 bool legivel, std::int64_t valor) {
    Documento* dono = donoDe(relator, lido, coo, contador, pagamentosIlegiveis_);
    if (dono == nullptr) return;
    if (!legivel) dono->pagamentosIncertos = true;
    dono->faltaDePagamentos -= valor;
  }

  void viuPagamentos(bool ilegivel) {
    viuPagamentos_ = true;
    pagamentosIlegiveis_ = pagamentosIlegiveis_ || ilegivel;
  }

  void fim(Relator& relator) {
    tabela_.paraCada([&](const Documento& documento) {
      if (viuItens_ && !itensIlegiveis_) confereItens(relator, documento);
      if (viuPagamentos_ && !pagamentosIlegiveis_) conferePagamentos(relator, documento);
    });
  }

 private:
  // The coupon that a record belongs to, with its COO and its CCF or GNF; when there is none, reports it and
  // returns null.
  Documento* donoDe(Relator& relator, const RegistroLido& lido, const Coluna& colunaCoo,
                    const Coluna& colunaContador, bool& ilegiveis) {
    std::int64_t coo = 0, contador = 0;
    if (!colunaCoo.le(lido, coo) || !colunaContador.le(lido, contador)) {
      ilegiveis = true;
      return nullptr;
    }
    Documento* dono = tabela_.acha(static_cast<std::uint32_t>(coo));
    if (dono != nullptr && (dono->contador == contador || dono->itensIncertos)) return dono;
    if (dono == nullptr && algumIlegivel_) return nullptr;
    const Coluna& errada = dono == nullptr ? colunaCoo : colunaContador;
    const char* codigo = papel_.documento.codigo;
    const int largura = lido.campos[errada.indice()].largura;
    relator.noCampo(validacao::kSemDocumento, lido, errada.indice(), entreAspas(errada.bytes(lido)),
                    dono == nullptr ? frase("a COO of {1}", {codigo})
                                    : frase("{1} as in {2}",
                                            {entreAspas(contadorEscrito(dono->contador, largura)), codigo}));
    return dono;
  }

  // A cancelled coupon may also have all of its items cancelled.
  void confereItens(Relator& relator, const Documento& documento) const {
    const std::int64_t falta = documento.faltaDeItens;
    if (falta == 0 || documento.itensIncertos || (documento.cancelado && !documento.comItem)) return;
    relator.naLinhaLida(
        papel_.itens, documento.linha, papel_.documento, lugarSubtotal_,
        frase(falta > 0 ? marca("items in {1} of {2} less") : marca("items in {1} of {2} more"),
              {papel_.item.codigo, reais(std::abs(falta))}),
        traduz("items that add up to it"));
  }

  // The payments of a cancelled coupon are not checked: they may have been reversed or not.
  void conferePagamentos(Relator& relator, const Documento& documento) const {
    const std::int64_t falta = documento.faltaDePagamentos;
    if (falta == 0 || documento.pagamentosIncertos || documento.cancelado) return;
    relator.naLinhaLida(
        falta > 0 ? papel_.pagamentos : validacao::kPagamentoAMais, documento.linha, papel_.documento,
        lugarTotal_,
        frase(falta > 0 ? marca("payments in E21 of {1} less") : marca("payments in E21 of {1} more"),
              {reais(std::abs(falta))}),
        traduz("payments that add up to it"));
  }

  const Papel& papel_;
  Coluna coo_, contador_, subtotal_, total_, cancelado_, itemCoo_, itemContador_, itemValor_, itemCancelado_;
  LugarDoCampo lugarSubtotal_, lugarTotal_;  // the same on every line
  TabelaPorCoo<Documento> tabela_;
  bool algumIlegivel_ = false, itensIlegiveis_ = false, pagamentosIlegiveis_ = false;
  bool viuItens_ = false, viuPagamentos_ = false;
};

class RegrasDeDocumentos final : public Familia {
 public:
  explicit RegrasDeDocumentos(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == &kE15) return fiscais_.item(relator_, lido);
    if (lido.registro == &kE20) return naoFiscais_.item(relator_, lido);
    if (lido.registro == &kE21) return pagamento(lido);
    if (lido.vazio) return;
    if (lido.registro == &kE14) fiscais_.documento(lido);
    if (lido.registro == &kE19) naoFiscais_.documento(lido);
  }

  void fim() override {
    fiscais_.fim(relator_);
    naoFiscais_.fim(relator_);
  }

 private:
  // A payment with a CCF is a fiscal coupon's, any other one a non-fiscal coupon's.
  void pagamento(const RegistroLido& lido) {
    std::int64_t ccf = 0, valor = 0, estornado = 0;
    const bool ilegivel = !ccf_.le(lido, ccf);
    fiscais_.viuPagamentos(ilegivel);
    naoFiscais_.viuPagamentos(ilegivel);
    if (lido.vazio || ilegivel) return;
    const bool legivel = valor_.le(lido, valor) && estornado_.le(lido, estornado);
    const std::int64_t pago = valor - estornado;
    const bool troco = semBrancosNoFim(meio_.bytes(lido)) == kTroco;
    if (ccf != 0)
      fiscais_.pagamento(relator_, lido, coo_, ccf_, legivel, troco ? -pago : pago);
    else
      naoFiscais_.pagamento(relator_, lido, coo_, gnf_, legivel, troco ? -pago : pago);
  }

  Relator& relator_;
  Cupons fiscais_{kFiscal}, naoFiscais_{kNaoFiscal};
  Coluna coo_{kE21, "COO"}, ccf_{kE21, "CCF"}, gnf_{kE21, "GNF"}, meio_{kE21, "Meio de pagamento"},
      valor_{kE21, "Valor pago"}, estornado_{kE21, "Valor estornado"};
};

}  // namespace

std::unique_ptr<Familia> regrasDeDocumentos(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeDocumentos>(relator);
}

}  // namespace cotepe
