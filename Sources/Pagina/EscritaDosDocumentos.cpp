// Assembles the documents: the second half of Documentos.
#include <algorithm>
#include <map>

#include "Idioma/Idioma.h"
#include "Pagina/Documentos.h"
#include "Pagina/Html.h"
#include "Pagina/Modelo.h"

namespace cotepe::pagina {
namespace {

/// A column of a table of parts.
struct TituloDeColuna {
  const char* rotulo;
  bool aDireita;
};

// The labels of the law, in the order in which DocumentosDaPagina writes the cells.
constexpr TituloDeColuna kDosItens[] = {
    {"Nº do item", false},         {"Código", false},  {"Descrição", false}, {"Quantidade", true},
    {"Valor unitário", true},      {"Desconto", true}, {"Acréscimo", true},  {"Valor total líquido", true},
    {"Totalizador parcial", false}};
constexpr TituloDeColuna kDosNaoFiscais[] = {{"Nº do item", false}, {"Denominação da operação", false},
                                             {"Valor", true},       {"Desconto", true},
                                             {"Acréscimo", true},   {"Valor líquido", true}};
constexpr TituloDeColuna kDosPagamentos[] = {
    {"Meio de pagamento", false}, {"Valor pago", true}, {"Valor estornado", true}};

template <std::size_t N>
std::string tabela(const TituloDeColuna (&titulos)[N]) {
  std::string html = "<div class=\"rolo\"><table><thead><tr>";
  for (const auto& [rotulo, aDireita] : titulos)
    html += std::string(aDireita ? "<th class=\"n\">" : "<th>") + texto(rotulo) + "</th>";
  return html + "</tr></thead><tbody>\n";
}

constexpr std::string_view kFimDaTabela = "</tbody></table></div>\n";

/// A tape and its next piece.
class PontaDaFita {
 public:
  explicit PontaDaFita(Fita& fita) : fita_(fita), ha_(fita.avanca()) {}

  bool ha() const { return ha_; }
  std::int64_t chave() const { return fita_.pedaco().chave; }
  const Fita& operator*() const { return fita_; }
  const Fita* operator->() const { return &fita_; }
  void passa() { ha_ = fita_.avanca(); }

 private:
  Fita& fita_;
  bool ha_;
};

std::string diaIso(std::uint32_t dia) {
  std::string digitos = std::to_string(dia);
  digitos.insert(0, 8 - std::min<std::size_t>(8, digitos.size()), '0');
  return digitos;
}

/// Writes documents under their days, and starts a new page when one is full.
class EscritorDeDias {
 public:
  EscritorDeDias(Folhas& folhas, const ResumoDoRelatorio& resumo, std::string& sumario)
      : folhas_(folhas), resumo_(resumo), sumario_(sumario) {}

  /// A summary, a NUL and details; `tambem` is what another register says of it.
  void documento(const Fita& fita, std::string_view tambem) {
    vaiAoDia(fita.pedaco().dia);
    titulo_ = fita.html().substr(0, fita.html().find('\0'));
    folhas_.marca(static_cast<long>(fita.pedaco().linha));
    folhas_.escreve("<details class=\"doc\" id=\"l" + std::to_string(fita.pedaco().linha) + "\"><summary>");
    folhas_.escreve(titulo_);
    folhas_.escreve("</summary>");
    folhas_.escreve(fita.html().substr(titulo_.size() + 1));
    folhas_.escreve(tambem);
  }

  void fechaDocumento() { folhas_.escreve("</details>\n"); }

  void linha(const Fita& fita, std::string_view tabelaAberta) {
    if (folhas_.cheia()) {
      folhas_.escreve(kFimDaTabela);
      if (!titulo_.empty()) fechaDocumento();
      novaFolha();
      if (!titulo_.empty())
        folhas_.escreve("<details class=\"doc\" open><summary>" + titulo_ + " <span class=\"marca\">" +
                        traduz("continued") + "</span></summary>");
      folhas_.escreve(tabelaAberta);
    }
    folhas_.marca(static_cast<long>(fita.pedaco().linha));
    folhas_.escreve(fita.html());
  }

  /// The parts left over, under a heading of their own.
  void orfaos(Fita& fita, const std::string& nome, std::string_view tabelaAberta) {
    if (fita.quantas() == 0) return;
    titulo_.clear();
    fechaDia();
    orfao_ = nome;
    ++vez_;
    abreDia();
    std::string quantos = "<p>";
    poeNumero(quantos, fita.quantas());
    folhas_.escreve(quantos + ": " + traduz("no document before them in the file has their counter") +
                    "</p>");
    folhas_.escreve(tabelaAberta);
    while (fita.avanca()) linha(fita, tabelaAberta);
    folhas_.escreve(kFimDaTabela);
    fechaDia();
  }

  void tabela(std::string_view html) { folhas_.escreve(html); }

  void fechaDia() {
    if (!aberto_) return;
    folhas_.escreve("</details>\n");
    aberto_ = false;
    if (!folhas_.dividida()) return;
    folhas_.escreve("</main>\n");
    folhas_.fecha();
  }

 private:
  void vaiAoDia(std::uint32_t dia) {
    if (aberto_ && dia == dia_ && !folhas_.cheia()) return;
    fechaDia();
    dia_ = dia;
    abreDia();
  }

  void novaFolha() {
    fechaDia();
    abreDia();
  }

  std::string nomeDoDia() const {
    if (!orfao_.empty()) return orfao_;
    return dia_ == 0 ? traduz("Without a date") : dataDe(diaIso(dia_));
  }

  void abreDia() {
    const std::string identidade = orfao_.empty() ? diaIso(dia_) : "x" + std::to_string(vez_);
    const int vez = ++vezes_[identidade];
    const std::string continuacao =
        vez > 1 ? " <span class=\"marca\">" + std::string(traduz("continued")) + "</span>" : "";
    std::string titulo = texto(nomeDoDia()) + continuacao;
    const auto dia = resumo_.dias.find(diaIso(dia_));
    if (orfao_.empty() && vez == 1 && dia != resumo_.dias.end()) {
      titulo += " <span class=\"c\">" + texto(fraseDe("{n} coupon", "{n} coupons", dia->second.cupons)) +
                "</span> <span class=\"n\">" + reaisDe(dia->second.dosCupons.liquida) + "</span>";
    }
    if (folhas_.dividida()) {
      const std::string nome =
          (orfao_.empty() ? dataIso(diaIso(dia_)) : "sem-documento-" + std::to_string(vez_)) +
          (vez > 1 ? "-" + std::to_string(vez) : "") + ".html";
      folhas_.abre(nome, nomeDoDia());
      folhas_.escreve("<main>\n<h1>" + texto(nomeDoDia()) + continuacao + "</h1>\n" + filtro());
      sumario_ += "<li><a href=\"" + nome + "\">" + titulo + "</a></li>\n";
    }
    folhas_.escreve("<details class=\"dia\" id=\"d" + identidade +
                    (vez > 1 ? "-" + std::to_string(vez) : "") + '"' + (folhas_.dividida() ? " open" : "") +
                    "><summary>" + titulo + "</summary>\n");
    aberto_ = true;
  }

  Folhas& folhas_;
  const ResumoDoRelatorio& resumo_;
  std::string& sumario_;
  std::string titulo_, orfao_;
  std::map<std::string, int> vezes_;
  std::uint32_t dia_ = 0;
  int vez_ = 0;  // of tables of parts without a document
  bool aberto_ = false;
};

// Writes the parts with the counter given; those before it go to `sobras`.
template <std::size_t N>
void partes(EscritorDeDias& escritor, PontaDaFita& cabeca, std::int64_t chave, Fita& sobras,
            const TituloDeColuna (&titulos)[N]) {
  while (cabeca.ha() && cabeca.chave() < chave) {
    sobras.acrescenta(cabeca->pedaco(), cabeca->html());
    cabeca.passa();
  }
  if (!cabeca.ha() || cabeca.chave() != chave) return;
  const std::string aberta = tabela(titulos);
  escritor.tabela(aberta);
  for (; cabeca.ha() && cabeca.chave() == chave; cabeca.passa()) escritor.linha(*cabeca, aberta);
  escritor.tabela(kFimDaTabela);
}

template <std::size_t N>
void sobras(EscritorDeDias& escritor, PontaDaFita& cabeca, Fita& fita, const Registro& registro,
            const TituloDeColuna (&titulos)[N]) {
  for (; cabeca.ha(); cabeca.passa()) fita.acrescenta(cabeca->pedaco(), cabeca->html());
  escritor.orfaos(fita, frase("{1} without their document", {registro.codigo}), tabela(titulos));
}

}  // namespace

void DocumentosDaPagina::escreve(Folhas& folhas, const ResumoDoRelatorio& resumo) {
  EscritorDeDias escritor(folhas, resumo, sumario_);
  PontaDaFita cupom(cupons_), outro(outros_), naoFiscal(naoFiscais_);
  PontaDaFita item(itens_), itemNaoFiscal(itensNaoFiscais_), pagamento(pagamentos_);
  Fita itensSoltos, naoFiscaisSoltos, pagamentosSoltos;
  while (cupom.ha() || outro.ha() || naoFiscal.ha()) {
    std::int64_t coo = INT64_MAX;
    for (const PontaDaFita* cabeca : {&cupom, &outro, &naoFiscal})
      if (cabeca->ha()) coo = std::min(coo, cabeca->chave());
    if (cupom.ha() && cupom.chave() == coo) {
      escritor.documento(*cupom, {});
      partes(escritor, item, cupom->pedaco().outra, itensSoltos, kDosItens);
      cupom.passa();
    } else if (naoFiscal.ha() && naoFiscal.chave() == coo) {
      // Most are in E16 too, with the hour.
      std::string tambem;
      if (outro.ha() && outro.chave() == coo) {
        folhas.marca(static_cast<long>(outro->pedaco().linha));
        std::string html(outro->html());
        html[html.find('\0')] = ' ';
        tambem = "<div class=\"tambem\" id=\"l" + std::to_string(outro->pedaco().linha) + "\">E16: " + html +
                 "</div>";
        outro.passa();
      }
      escritor.documento(*naoFiscal, tambem);
      partes(escritor, itemNaoFiscal, naoFiscal->pedaco().outra, naoFiscaisSoltos, kDosNaoFiscais);
      naoFiscal.passa();
    } else {
      escritor.documento(*outro, {});
      outro.passa();
    }
    partes(escritor, pagamento, coo, pagamentosSoltos, kDosPagamentos);
    escritor.fechaDocumento();
  }
  escritor.fechaDia();
  sobras(escritor, item, itensSoltos, kE15, kDosItens);
  sobras(escritor, itemNaoFiscal, naoFiscaisSoltos, kE20, kDosNaoFiscais);
  sobras(escritor, pagamento, pagamentosSoltos, kE21, kDosPagamentos);
}

}  // namespace cotepe::pagina
