#include "Pagina/Documentos.h"

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Leitor/Valor.h"
#include "Pagina/Html.h"

namespace cotepe::pagina {
namespace {

// What the symbols of E16 mean.
const char* nomeDoDocumento(std::string_view simbolo) {
  static constexpr struct {
    std::string_view simbolo;
    const char* nome;
  } kNomes[] = {{"CN", marca("Non-fiscal receipt")},
                {"RG", marca("Management report")},
                {"CC", marca("Credit or debit slip")},
                {"NC", marca("Cancellation of a non-fiscal receipt")},
                {"RZ", marca("Z reduction")}};
  for (const auto& [conhecido, nome] : kNomes)
    if (simbolo == conhecido) return traduz(nome);
  return traduz("Other document");
}

std::string horaDe(std::string_view bytes) {
  if (!horaPossivel(bytes)) return {};
  return std::string(bytes.substr(0, 2)) + ':' + std::string(bytes.substr(2, 2)) + ':' +
         std::string(bytes.substr(4, 2));
}

}  // namespace

Pedaco DocumentosDaPagina::pedacoDe(const RegistroLido& lido, std::int64_t chave, std::string_view dia) {
  Pedaco pedaco;
  pedaco.chave = chave;
  pedaco.linha = lido.linha.numero;
  std::int64_t numero = 0;
  if (dataPossivel(dia) && leNumero(dia, numero)) pedaco.dia = static_cast<std::uint32_t>(numero);
  return pedaco;
}

void DocumentosDaPagina::poeCampo(const RegistroLido& lido, const Coluna& coluna) {
  poeTexto(html_, semBrancosNoFim(coluna.bytes(lido)));
}

void DocumentosDaPagina::poeDinheiro(const RegistroLido& lido, const Coluna& coluna) {
  std::int64_t centavos = 0;
  if (coluna.le(lido, centavos))
    poeReais(html_, centavos);
  else
    poeTexto(html_, coluna.bytes(lido));
}

void DocumentosDaPagina::poeCelula(const RegistroLido& lido, const Coluna& coluna, bool dinheiro) {
  html_ += dinheiro ? "<td class=\"n\">" : "<td>";
  dinheiro ? poeDinheiro(lido, coluna) : poeCampo(lido, coluna);
  html_ += "</td>";
}

void DocumentosDaPagina::abreLinha(const RegistroLido& lido, bool cancelado) {
  html_ = "<tr id=\"l" + std::to_string(lido.linha.numero) + (cancelado ? "\" class=\"cancelado\">" : "\">");
}

// Bytes after the last field, and missing ones, are reported.
void DocumentosDaPagina::poeResto(const RegistroLido& lido) {
  if (lido.medidaCerta) return;
  html_ += "<p class=\"ruim\">" +
           frase("{1} bytes instead of {2}",
                 {std::to_string(lido.linha.tamanho), std::to_string(lido.comprimento)}) +
           "</p>";
}

bool DocumentosDaPagina::acrescenta(const RegistroLido& lido) {
  if (lido.vazio || lido.registro == nullptr) return false;
  if (lido.registro == &kE14) return cupom(lido);
  if (lido.registro == &kE15) return item(lido);
  if (lido.registro == &kE16) return outroDocumento(lido);
  if (lido.registro == &kE19) return naoFiscal(lido);
  if (lido.registro == &kE20) return itemNaoFiscal(lido);
  return lido.registro == &kE21 && pagamento(lido);
}

// The fields beyond those shown for every coupon, if they hold something.
void DocumentosDaPagina::poeDetalhes(const RegistroLido& lido,
                                     std::initializer_list<const Coluna*> mostradas) {
  html_ += "<dl>";
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    const Campo& campo = *lido.campos[i].campo;
    if (campo.origem.fixa() || campo.especie == Especie::Contador || deData(campo.especie)) continue;
    const std::string_view bytes = lido.bytes(i);
    if (soBrancos(bytes) || bytes.find_first_not_of('0') == std::string_view::npos) continue;
    bool mostrada = false;
    for (const Coluna* coluna : mostradas) mostrada = mostrada || coluna->lugar(lido) == i;
    if (mostrada) continue;
    html_ += "<dt>";
    poeTexto(html_, campo.rotulo);
    html_ += "</dt><dd>";
    poeTexto(html_, mascara_ && campo.dadoPessoal ? mascarado(bytes) : paraPessoas(valorDe(lido, i), bytes));
    html_ += "</dd>";
  }
  html_ += "</dl>";
  poeResto(lido);
}

bool DocumentosDaPagina::cupom(const RegistroLido& lido) {
  static const Coluna ccf(kE14, "CCF"), coo(kE14, "COO"), data(kE14, "Data de emissão"),
      total(kE14, "Valor total líquido"), cancelado(kE14, "Cancelado (S/N)");
  std::int64_t chave = 0, outra = 0;
  if (!coo.le(lido, chave) || !ccf.le(lido, outra)) return false;
  const bool foi = cancelado.bytes(lido) == "S";
  html_ = "<b>" + std::string(traduz("Coupon")) + " <span class=\"c\">CCF ";
  poeCampo(lido, ccf);
  html_ += "</span></b> <span class=\"c\">COO ";
  poeCampo(lido, coo);
  html_ += "</span>";
  if (foi) html_ += " <span class=\"marca\">" + std::string(traduz("cancelled")) + "</span>";
  html_ += " <span class=\"n\">";
  poeDinheiro(lido, total);
  html_ += "</span>";
  html_ += '\0';
  poeDetalhes(lido, {&total});
  Pedaco pedaco = pedacoDe(lido, chave, data.bytes(lido));
  pedaco.outra = outra;
  cupons_.acrescenta(pedaco, html_);
  return true;
}

bool DocumentosDaPagina::naoFiscal(const RegistroLido& lido) {
  static const Coluna gnf(kE19, "GNF"), coo(kE19, "COO"), data(kE19, "Data de emissão"),
      total(kE19, "Valor total líquido"), cancelado(kE19, "Cancelado (S/N)");
  std::int64_t chave = 0, outra = 0;
  if (!coo.le(lido, chave) || !gnf.le(lido, outra)) return false;
  html_ = "<b>" + std::string(traduz("Non-fiscal receipt")) + " <span class=\"c\">GNF ";
  poeCampo(lido, gnf);
  html_ += "</span></b> <span class=\"c\">COO ";
  poeCampo(lido, coo);
  html_ += "</span>";
  if (cancelado.bytes(lido) == "S")
    html_ += " <span class=\"marca\">" + std::string(traduz("cancelled")) + "</span>";
  html_ += " <span class=\"n\">";
  poeDinheiro(lido, total);
  html_ += "</span>";
  html_ += '\0';
  poeDetalhes(lido, {&total});
  Pedaco pedaco = pedacoDe(lido, chave, data.bytes(lido));
  pedaco.outra = outra;
  naoFiscais_.acrescenta(pedaco, html_);
  return true;
}

bool DocumentosDaPagina::outroDocumento(const RegistroLido& lido) {
  static const Coluna coo(kE16, "COO"), simbolo(kE16, "Símbolo do documento"),
      data(kE16, "Data final de emissão"), hora(kE16, "Hora final de emissão");
  std::int64_t chave = 0;
  if (!coo.le(lido, chave)) return false;
  html_ = "<b>" + std::string(nomeDoDocumento(simbolo.bytes(lido))) + "</b> <span class=\"c\">COO ";
  poeCampo(lido, coo);
  html_ += "</span> <span class=\"c\">";
  html_ += horaDe(hora.bytes(lido)) + "</span>";
  html_ += '\0';
  poeDetalhes(lido, {});
  for (const char* contador : {"GNF", "GRG"}) {
    const Coluna coluna(kE16, contador);
    std::int64_t valor = 0;
    if (coluna.le(lido, valor) && valor == 0) continue;
    html_ += std::string("<p class=\"c\">") + contador + ' ';
    poeCampo(lido, coluna);
    html_ += "</p>";
  }
  outros_.acrescenta(pedacoDe(lido, chave, data.bytes(lido)), html_);
  return true;
}

bool DocumentosDaPagina::item(const RegistroLido& lido) {
  static const Coluna ccf(kE15, "CCF"), numero(kE15, "Nº do item"), codigo(kE15, "Código"),
      descricao(kE15, "Descrição"), unidade(kE15, "Unidade"), desconto(kE15, "Desconto"),
      acrescimo(kE15, "Acréscimo"), total(kE15, "Valor total líquido"),
      totalizador(kE15, "Totalizador parcial"), cancelado(kE15, "Cancelado (S/N)");
  static const Coluna quantidade(kE15, "Quantidade"), unitario(kE15, "Valor unitário");
  std::int64_t chave = 0;
  if (!ccf.le(lido, chave)) return false;
  abreLinha(lido, cancelado.bytes(lido) == "S");
  poeCelula(lido, numero, false);
  poeCelula(lido, codigo, false);
  html_ += "<td>";
  poeCampo(lido, descricao);
  if (cancelado.bytes(lido) == "S")
    html_ += " <span class=\"marca\">" + std::string(traduz("cancelled")) + "</span>";
  poeResto(lido);
  html_ += "</td><td class=\"n\">";
  for (const Coluna* coluna : {&quantidade, &unitario}) {
    if (coluna->lugar(lido) < lido.quantos)
      poeTexto(html_, paraPessoas(valorDe(lido, coluna->lugar(lido)), coluna->bytes(lido)));
    if (coluna == &quantidade) {
      html_ += " ";
      poeCampo(lido, unidade);
      html_ += "</td><td class=\"n\">";
    }
  }
  html_ += "</td>";
  poeCelula(lido, desconto, true);
  poeCelula(lido, acrescimo, true);
  poeCelula(lido, total, true);
  poeCelula(lido, totalizador, false);
  html_ += "</tr>\n";
  itens_.acrescenta(pedacoDe(lido, chave, {}), html_);
  return true;
}

bool DocumentosDaPagina::itemNaoFiscal(const RegistroLido& lido) {
  static const Coluna gnf(kE20, "GNF"), numero(kE20, "Nº do item"), operacao(kE20, "Denominação da operação"),
      valor(kE20, "Valor"), desconto(kE20, "Desconto"), acrescimo(kE20, "Acréscimo"),
      liquido(kE20, "Valor líquido"), cancelado(kE20, "Cancelado (S/N)");
  std::int64_t chave = 0;
  if (!gnf.le(lido, chave)) return false;
  const bool foi = cancelado.bytes(lido) == "S";
  abreLinha(lido, foi);
  poeCelula(lido, numero, false);
  html_ += "<td>";
  poeCampo(lido, operacao);
  if (foi) html_ += " <span class=\"marca\">" + std::string(traduz("cancelled")) + "</span>";
  poeResto(lido);
  html_ += "</td>";
  for (const Coluna* coluna : {&valor, &desconto, &acrescimo, &liquido}) poeCelula(lido, *coluna, true);
  html_ += "</tr>\n";
  itensNaoFiscais_.acrescenta(pedacoDe(lido, chave, {}), html_);
  return true;
}

bool DocumentosDaPagina::pagamento(const RegistroLido& lido) {
  static const Coluna coo(kE21, "COO"), meio(kE21, "Meio de pagamento"), pago(kE21, "Valor pago"),
      estornado(kE21, "Valor estornado");
  std::int64_t chave = 0;
  if (!coo.le(lido, chave)) return false;
  abreLinha(lido, false);
  html_ += "<td>";
  poeCampo(lido, meio);
  poeResto(lido);
  html_ += "</td>";
  poeCelula(lido, pago, true);
  poeCelula(lido, estornado, true);
  html_ += "</tr>\n";
  pagamentos_.acrescenta(pedacoDe(lido, chave, {}), html_);
  return true;
}

}  // namespace cotepe::pagina
