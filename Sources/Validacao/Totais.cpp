// The amounts within one record.
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kTotalDoDocumento{"document-total", Severidade::Erro,
                                         marca("Net total = subtotal or value - discount + surcharge."),
                                         kVejaOBanco};
const Regra validacao::kTotalDoItem{
    "item-total", Severidade::Aviso,
    marca("Net total of an item = quantity x unit value - discount + surcharge."), kVejaOBanco};

const Regra validacao::kAcrescimoCancelado{"surcharge-cancelled", Severidade::Erro,
                                           marca("No more of a surcharge is cancelled than was charged."),
                                           kVejaOBanco};

namespace {

/// A surcharge, and what of it was cancelled.
class AcrescimoCancelado {
 public:
  explicit AcrescimoCancelado(const Registro& registro)
      : acrescimo_(registro, "Acréscimo"), cancelado_(registro, "Cancelamento de acréscimo") {}

  void confere(Relator& relator, const RegistroLido& lido) const {
    std::int64_t acrescimo = 0, cancelado = 0;
    if (!acrescimo_.le(lido, acrescimo) || !cancelado_.le(lido, cancelado) || cancelado <= acrescimo) return;
    relator.noCampo(validacao::kAcrescimoCancelado, lido, cancelado_.lugar(lido), reais(cancelado),
                    frase("at most {1}, the surcharge", {reais(acrescimo)}));
  }

 private:
  Coluna acrescimo_, cancelado_;
};

/// Subtotal or value, less the discount, plus the surcharge, is the net total.
class TotalDoDocumento {
 public:
  TotalDoDocumento(const Registro& registro, const char* bruto, const char* liquido)
      : bruto_(registro, bruto),
        desconto_(registro, "Desconto"),
        acrescimo_(registro, "Acréscimo"),
        liquido_(registro, liquido) {}

  void confere(Relator& relator, const RegistroLido& lido) const {
    std::int64_t bruto = 0, desconto = 0, acrescimo = 0, liquido = 0;
    if (!bruto_.le(lido, bruto) || !desconto_.le(lido, desconto) || !acrescimo_.le(lido, acrescimo) ||
        !liquido_.le(lido, liquido))
      return;
    const std::int64_t esperado = bruto - desconto + acrescimo;
    if (liquido != esperado)
      relator.noCampo(validacao::kTotalDoDocumento, lido, liquido_.indice(), reais(liquido), reais(esperado));
  }

 private:
  Coluna bruto_, desconto_, acrescimo_, liquido_;
};

/// Quantity times unit value, rounded or truncated to cents as the item says.
class TotalDoItem {
 public:
  void confere(Relator& relator, const RegistroLido& lido) const {
    std::int64_t quantidade = 0, valor = 0, desconto = 0, acrescimo = 0, liquido = 0, casas = 0, doValor = 0;
    if (cancelado_.bytes(lido) != "N" || !quantidade_.le(lido, quantidade) || !valor_.le(lido, valor) ||
        !desconto_.le(lido, desconto) || !acrescimo_.le(lido, acrescimo) || !liquido_.le(lido, liquido) ||
        !casasQuantidade_.le(lido, casas) || !casasValor_.le(lido, doValor))
      return;
    const std::int64_t divisor = std::int64_t{100} * (casas == 3 ? 10 : 1) * (doValor == 3 ? 10 : 1);
    const std::int64_t metade = arredondamento_.bytes(lido) == "A" ? divisor / 2 : 0;
    const std::int64_t esperado = (quantidade * valor + metade) / divisor - desconto + acrescimo;
    if (liquido != esperado)
      relator.noCampo(validacao::kTotalDoItem, lido, liquido_.indice(), reais(liquido), reais(esperado));
  }

 private:
  Coluna quantidade_{kE15, "Quantidade"}, valor_{kE15, "Valor unitário"}, desconto_{kE15, "Desconto"},
      acrescimo_{kE15, "Acréscimo"}, liquido_{kE15, "Valor total líquido"},
      cancelado_{kE15, "Cancelado (S/N)"}, arredondamento_{kE15, "Arredondamento ou truncamento"},
      casasQuantidade_{kE15, "Casas decimais da quantidade"},
      casasValor_{kE15, "Casas decimais do valor unitário"};
};

class RegrasDeTotais final : public Familia {
 public:
  explicit RegrasDeTotais(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == &kE14) cupomCancelado_.confere(relator_, lido);
    if (lido.registro == &kE15) itemCancelado_.confere(relator_, lido);
    if (lido.registro == &kE20) operacaoCancelada_.confere(relator_, lido);
    if (lido.registro == &kE15)
      item_.confere(relator_, lido);
    else if (lido.registro == &kE14)
      cupom_.confere(relator_, lido);
    else if (lido.registro == &kE19 && tipoDesconto_.bytes(lido) != "P" && tipoAcrescimo_.bytes(lido) != "P")
      naoFiscal_.confere(relator_, lido);
    else if (lido.registro == &kE20)
      operacao_.confere(relator_, lido);
  }

 private:
  Relator& relator_;
  TotalDoItem item_;
  AcrescimoCancelado cupomCancelado_{kE14}, itemCancelado_{kE15}, operacaoCancelada_{kE20};
  TotalDoDocumento cupom_{kE14, "Subtotal", "Valor total líquido"},
      naoFiscal_{kE19, "Subtotal", "Valor total líquido"}, operacao_{kE20, "Valor", "Valor líquido"};
  Coluna tipoDesconto_{kE19, "Tipo do desconto"}, tipoAcrescimo_{kE19, "Tipo do acréscimo"};  // P is per cent
};

}  // namespace

std::unique_ptr<Familia> regrasDeTotais(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeTotais>(relator);
}

}  // namespace cotepe
