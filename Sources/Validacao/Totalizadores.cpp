// The totals of each Z reduction against its documents: E13 against E14 and E15, E17 against E20, E18 against
// E21.
#include <cstdlib>
#include <string>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"
#include "Validacao/SomasDaReducao.h"

namespace cotepe {

const Regra validacao::kItensDoTotalizador{
    "totalizer-items", Severidade::Erro,
    marca("A totalizer in E13 is the sum of the reduction's items in E15 that have its code."), kVejaOBanco};
const Regra validacao::kAjustesDaReducao{
    "totalizer-adjustments", Severidade::Erro,
    marca(
        "The discounts, surcharges and cancellations in E13 are those of the reduction's coupons and items."),
    kVejaOBanco};
const Regra validacao::kNaoFiscaisDosItens{
    "nonfiscal-totals", Severidade::Erro,
    marca("A total in E17 is the sum of the reduction's operations in E20, less discounts."), kVejaOBanco};
const Regra validacao::kMeiosDaReducao{
    "payment-totals", Severidade::Erro,
    marca("A total in E18 is the sum of the reduction's payments in E21 by that means."), kVejaOBanco};

namespace {

constexpr const char* kTroco = "TROCO";        // the means of payment for change handed back ...
constexpr const char* kDinheiro = "DINHEIRO";  // ... which is taken from this one where it has no total

/// What the items and payments of a coupon or receipt need to know about it.
struct Ajustado {
  std::uint32_t coo = 0, linha = 0;
  std::int64_t desconto = 0, acrescimo = 0;
  bool cancelado = false;
};

/// The items of the current document that are not cancelled, by totalizer or operation.
struct ItensDoDocumento {
  std::int64_t coo = -1;
  std::map<std::string, std::pair<std::int64_t, std::int64_t>> porNome;  // total, and how many

  void soma(const std::string& nome, std::int64_t valor) {
    auto& [total, quantos] = porNome[nome];
    total += valor;
    ++quantos;
  }
};

/// The documents of one kind and the columns that matter.
struct Documentos {
  const Registro &documento, &item;
  Coluna coo{documento, "COO"}, desconto{documento, "Desconto"}, acrescimo{documento, "Acréscimo"},
      total{documento, "Valor total líquido"}, cancelado{documento, "Cancelado (S/N)"}, itemCoo{item, "COO"},
      itemCancelado{item, "Cancelado (S/N)"};
  TabelaPorCoo<Ajustado> tabela{};
  ItensDoDocumento itens{};
};

/// The totals of one register by name.
struct Totais {
  const Registro& registro;
  Coluna crz, nome, valor;
  bool visto = false;
  LugarDoCampo lugar{};  // of the amount, the same on every line
};

// T, S, F, I and N totalize sales; the others are adjustments, or the sum of what is not fiscal.
bool deVenda(const std::string& totalizador) {
  return totalizador.size() > 1 && totalizador != "OPNF" &&
         (totalizador.find_first_of("TS") == 2 ||
          std::string("FIN").find(totalizador[0]) != std::string::npos);
}

class RegrasDeTotalizadores final : public Familia {
 public:
  explicit RegrasDeTotalizadores(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == &kE15) viuItens_ = true;
    if (lido.registro == &kE20) viuOperacoes_ = true;
    if (lido.registro == &kE21) viuPagamentos_ = true;
    for (Totais* totais : {&e13_, &e17_, &e18_})
      if (lido.registro == &totais->registro) totais->visto = true;
    if (lido.registro == nullptr || lido.vazio) return;
    if (!lido.medidaCerta) return reducoes_.invalida();
    if (lido.registro == &kE12) return reducao(lido);
    if (lido.registro == &kE14) return cupom(lido);
    if (lido.registro == &kE16) return documento(lido);
    if (!reducoes_.servem()) return;
    if (lido.registro == &kE13) return total(lido, e13_, &ReducaoComTotais::totalizadores);
    if (lido.registro == &kE17) return total(lido, e17_, &ReducaoComTotais::naoFiscais);
    if (lido.registro == &kE18) return total(lido, e18_, &ReducaoComTotais::meios);
    if (lido.registro == &kE19) return static_cast<void>(acrescenta(lido, naoFiscais_));
    if (lido.registro == &kE15) return item(lido);
    if (lido.registro == &kE20) return operacao(lido);
    if (lido.registro == &kE21) return pagamento(lido);
  }

  // Without the registers on both sides there is nothing to compare.
  void fim() override {
    fecha(fiscais_);
    fecha(naoFiscais_);
    if (!reducoes_.servem() || !relator_.limpo()) return;
    for (const ReducaoComTotais& reducao : reducoes_.todas()) {
      if (e13_.visto && viuItens_) confereTotalizadores(reducao);
      if (e17_.visto && viuOperacoes_)
        confere(validacao::kNaoFiscaisDosItens, e17_, reducao, reducao.naoFiscais, reducao.somas.naoFiscais,
                "E20");
      if (e18_.visto && viuPagamentos_)
        confere(validacao::kMeiosDaReducao, e18_, reducao, reducao.meios, semTroco(reducao), "E21");
    }
  }

 private:
  void reducao(const RegistroLido& lido) {
    viuE12_ = true;
    std::int64_t crz = 0, coo = 0;
    if (!crz12_.le(lido, crz) || !coo12_.le(lido, coo)) return reducoes_.invalida();
    reducoes_.acrescenta(crz, coo, lido.linha.numero);
  }

  void total(const RegistroLido& lido, Totais& totais, TotaisEscritos ReducaoComTotais::*onde) {
    std::int64_t crz = 0, valor = 0;
    ReducaoComTotais* reducao = totais.crz.le(lido, crz) ? reducoes_.doCrz(crz) : nullptr;
    if (reducao == nullptr || !totais.valor.le(lido, valor)) return reducoes_.invalida();
    totais.lugar = lugarDoCampo(lido, totais.valor.lugar(lido));
    TotalEscrito& escrito = (reducao->*onde)[totais.nome.texto(lido)];
    escrito.valor += valor;
    escrito.linha = lido.linha.numero;
  }

  // Adds a coupon or receipt; when something in it cannot be read, returns null and nothing is compared.
  Ajustado* acrescenta(const RegistroLido& lido, Documentos& documentos) {
    std::int64_t coo = 0, desconto = 0, acrescimo = 0;
    const std::string_view cancelado = documentos.cancelado.bytes(lido);
    const bool lidos = documentos.coo.le(lido, coo) && documentos.desconto.le(lido, desconto) &&
                       documentos.acrescimo.le(lido, acrescimo) && (cancelado == "S" || cancelado == "N");
    if (!lidos || documentos.tabela.acha(static_cast<std::uint32_t>(coo)) != nullptr) {
      reducoes_.invalida();
      return nullptr;
    }
    Ajustado& novo = documentos.tabela.acrescenta(static_cast<std::uint32_t>(coo));
    novo.linha = static_cast<std::uint32_t>(lido.linha.numero);
    novo.desconto = desconto;
    novo.acrescimo = acrescimo;
    novo.cancelado = cancelado == "S";
    return &novo;
  }

  void cupom(const RegistroLido& lido) {
    const Ajustado* novo = acrescenta(lido, fiscais_);
    if (novo == nullptr || !reducoes_.servem()) return;
    std::int64_t total = 0;
    ReducaoComTotais* reducao = reducoes_.doDocumento(novo->coo);
    if (reducao == nullptr || !fiscais_.total.le(lido, total)) return reducoes_.invalida();
    reducao->somas.descontos.valor += novo->desconto;
    reducao->somas.acrescimos.valor += novo->acrescimo;
    if (novo->cancelado) reducao->somas.cancelamentos.valor += total;
  }

  // A report of the detail-tape memory has no E12, but it has each reduction's own document.
  void documento(const RegistroLido& lido) {
    std::int64_t crz = 0, coo = 0;
    if (viuE12_ || simbolo_.texto(lido) != "RZ") return;
    if (!crz16_.le(lido, crz) || !coo16_.le(lido, coo)) return reducoes_.invalida();
    reducoes_.acrescenta(crz, coo, lido.linha.numero);
  }

  // The items of a document come one after the other.
  Ajustado* donoDe(const RegistroLido& lido, Documentos& documentos) {
    std::int64_t coo = 0;
    if (!documentos.itemCoo.le(lido, coo)) return nullptr;
    if (coo != documentos.itens.coo) fecha(documentos);
    documentos.itens.coo = coo;
    return documentos.tabela.acha(static_cast<std::uint32_t>(coo));
  }

  void item(const RegistroLido& lido) {
    std::int64_t valor = 0, desconto = 0, acrescimo = 0;
    const Ajustado* dono = donoDe(lido, fiscais_);
    if (dono == nullptr || !valorDoItem_.le(lido, valor) || !descontoDoItem_.le(lido, desconto) ||
        !acrescimoDoItem_.le(lido, acrescimo))
      return reducoes_.invalida();
    SomasDaReducao& somas = reducoes_.doDocumento(dono->coo)->somas;  // the document found it
    somas.descontos.valor += desconto;
    somas.acrescimos.valor += acrescimo;
    if (fiscais_.itemCancelado.bytes(lido) == "S")
      somas.cancelamentos.valor += valor;
    else
      fiscais_.itens.soma(totalizadorDoItem_.texto(lido), valor);
  }

  void operacao(const RegistroLido& lido) {
    std::int64_t valor = 0;
    if (donoDe(lido, naoFiscais_) == nullptr || !valorDaOperacao_.le(lido, valor))
      return reducoes_.invalida();
    if (naoFiscais_.itemCancelado.bytes(lido) != "S") naoFiscais_.itens.soma(operacao_.texto(lido), valor);
  }

  // Adds the items of the current document to its reduction, with their part of its discount or surcharge.
  void fecha(Documentos& documentos) {
    const ItensDoDocumento itens = std::move(documentos.itens);
    documentos.itens = {};
    if (itens.coo < 0 || !reducoes_.servem()) return;
    const Ajustado* dono = documentos.tabela.acha(static_cast<std::uint32_t>(itens.coo));
    if (dono == nullptr || dono->cancelado) return;
    SomasDaReducao& somas = reducoes_.doDocumento(itens.coo)->somas;
    SomasPorNome& porNome =
        documentos.documento.codigo == kE14.codigo ? somas.totalizadores : somas.naoFiscais;
    std::int64_t subtotal = 0, quantos = 0;
    for (const auto& [nome, item] : itens.porNome) {
      subtotal += item.first;
      quantos += item.second;
    }
    const std::int64_t ajuste = dono->acrescimo - dono->desconto;
    for (const auto& [nome, item] : itens.porNome) {
      SomaComFolga& soma = porNome[nome];
      const bool repartido = ajuste != 0 && itens.porNome.size() > 1 && subtotal != 0;
      soma.valor += item.first + (repartido ? ajuste * item.first / subtotal : ajuste);
      if (!repartido) continue;
      soma.aMenos += quantos;  // a cent per item, all of which may fall on one totalizer
      soma.aMais += quantos;
    }
  }

  void pagamento(const RegistroLido& lido) {
    std::int64_t coo = 0, valor = 0, estornado = 0;
    if (!coo21_.le(lido, coo) || !pago_.le(lido, valor) || !estornado_.le(lido, estornado))
      return reducoes_.invalida();
    const Ajustado* dono = fiscais_.tabela.acha(static_cast<std::uint32_t>(coo));
    if (dono == nullptr) dono = naoFiscais_.tabela.acha(static_cast<std::uint32_t>(coo));
    ReducaoComTotais* reducao = dono == nullptr ? nullptr : reducoes_.doDocumento(coo);
    if (reducao == nullptr) return reducoes_.invalida();
    SomaComFolga& soma = reducao->somas.meios[meio_.texto(lido)];
    (dono->cancelado ? soma.aMais : soma.valor) += valor - estornado;
  }

  // If change has no total of its own it is taken out of the cash.
  static SomasPorNome semTroco(const ReducaoComTotais& reducao) {
    SomasPorNome somas = reducao.somas.meios;
    const auto troco = somas.find(kTroco);
    if (troco == somas.end() || reducao.meios.count(kTroco) != 0) return somas;
    SomaComFolga& dinheiro = somas[kDinheiro];
    dinheiro.valor -= troco->second.valor;
    dinheiro.aMenos += troco->second.aMais;
    somas.erase(troco);
    return somas;
  }

  void confereTotalizadores(const ReducaoComTotais& reducao) {
    TotaisEscritos vendas;
    TotalEscrito descontos, acrescimos, cancelamentos;
    for (const auto& [nome, escrito] : reducao.totalizadores) {
      if (deVenda(nome)) vendas[nome] = escrito;
      TotalEscrito* ajuste = nome.rfind("Can-", 0) == 0                     ? &cancelamentos
                             : nome == "DT" || nome == "DS" || nome == "DO" ? &descontos
                             : nome == "AT" || nome == "AS" || nome == "AO" ? &acrescimos
                                                                            : nullptr;
      if (ajuste == nullptr) continue;
      ajuste->valor += escrito.valor;
      ajuste->linha = ajuste->linha == 0 ? escrito.linha : std::min(ajuste->linha, escrito.linha);
    }
    confere(validacao::kItensDoTotalizador, e13_, reducao, vendas, reducao.somas.totalizadores, "E15");
    confereAjuste(reducao, descontos, reducao.somas.descontos, traduz("discounts"));
    confereAjuste(reducao, acrescimos, reducao.somas.acrescimos, traduz("surcharges"));
    confereAjuste(reducao, cancelamentos, reducao.somas.cancelamentos, traduz("cancellations"));
  }

  void confereAjuste(const ReducaoComTotais& reducao, const TotalEscrito& escrito, const SomaComFolga& soma,
                     const std::string& quais) {
    if (!soma.aceita(escrito.valor))
      acha(validacao::kAjustesDaReducao, e13_, reducao, escrito,
           frase("{1} of {2}", {quais, reais(escrito.valor)}),
           frase("{1}, as the coupons of the reduction and their items have it", {reais(soma.valor)}));
  }

  void confere(const Regra& regra, const Totais& totais, const ReducaoComTotais& reducao,
               const TotaisEscritos& escritos, const SomasPorNome& somas, const char* parcelas) {
    for (const auto& [nome, escrito] : escritos) {
      const auto soma = somas.find(nome);
      confereUm(regra, totais, reducao, nome, escrito, soma == somas.end() ? SomaComFolga() : soma->second,
                parcelas);
    }
    for (const auto& [nome, soma] : somas)
      if (escritos.count(nome) == 0) confereUm(regra, totais, reducao, nome, {}, soma, parcelas);
  }

  void confereUm(const Regra& regra, const Totais& totais, const ReducaoComTotais& reducao,
                 const std::string& nome, const TotalEscrito& escrito, const SomaComFolga& soma,
                 const char* parcelas) {
    if (soma.aceita(escrito.valor)) return;
    acha(regra, totais, reducao, escrito, frase("{1} of {2}", {entreAspas(nome), reais(escrito.valor)}),
         frase("{1}, the sum in {2}", {reais(soma.valor), parcelas}));
  }

  // A missing total is reported at its reduction.
  void acha(const Regra& regra, const Totais& totais, const ReducaoComTotais& reducao,
            const TotalEscrito& escrito, std::string encontrado, std::string esperado) {
    if (escrito.linha != 0)
      relator_.naLinhaLida(regra, escrito.linha, totais.registro, totais.lugar, std::move(encontrado),
                           std::move(esperado));
    else
      relator_.naLinhaLida(regra, reducao.linha, viuE12_ ? kE12 : kE16, {}, std::move(encontrado),
                           std::move(esperado));
  }

  Relator& relator_;
  ReducoesPorCoo reducoes_;
  Documentos fiscais_{kE14, kE15}, naoFiscais_{kE19, kE20};
  Totais e13_{kE13, {kE13, "CRZ"}, {kE13, "Totalizador parcial"}, {kE13, "Valor acumulado"}},
      e17_{kE17, {kE17, "CRZ"}, {kE17, "Totalizador não fiscal"}, {kE17, "Valor acumulado"}},
      e18_{kE18, {kE18, "CRZ"}, {kE18, "Meio de pagamento"}, {kE18, "Valor acumulado"}};
  Coluna crz12_{kE12, "CRZ"}, coo12_{kE12, "COO"}, coo16_{kE16, "COO"}, crz16_{kE16, "CRZ"},
      simbolo_{kE16, "Símbolo do documento"}, valorDoItem_{kE15, "Valor total líquido"},
      descontoDoItem_{kE15, "Desconto"}, acrescimoDoItem_{kE15, "Acréscimo"},
      totalizadorDoItem_{kE15, "Totalizador parcial"}, operacao_{kE20, "Denominação da operação"},
      valorDaOperacao_{kE20, "Valor líquido"}, coo21_{kE21, "COO"}, meio_{kE21, "Meio de pagamento"},
      pago_{kE21, "Valor pago"}, estornado_{kE21, "Valor estornado"};
  bool viuE12_ = false, viuItens_ = false, viuOperacoes_ = false, viuPagamentos_ = false;
};

}  // namespace

std::unique_ptr<Familia> regrasDeTotalizadores(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeTotalizadores>(relator);
}

}  // namespace cotepe
