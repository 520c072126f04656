#include "Pagina/RegistrosSoltos.h"

#include <vector>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Leitor/Valor.h"
#include "Pagina/Html.h"

namespace cotepe::pagina {
namespace {

// The head that all records share.
bool doCabecalho(const Registro& registro, std::size_t campo) {
  return campo < 5 && registro.campos[campo].origem.fixa() && &registro != &kE01;
}

std::string nomeDaFolha(int numero) { return "registros-" + std::to_string(numero) + ".html"; }

std::string titulosDe(std::size_t indice) {
  std::string html = "<tr><th scope=\"col\" class=\"n\">" + std::string(traduz("Line")) + "</th>";
  if (indice == kCatalogo.size()) return html + "<th scope=\"col\">" + traduz("Bytes") + "</th></tr>";
  const Registro& registro = *kCatalogo[indice];
  for (std::size_t i = 0; i < registro.campos.size(); ++i)
    if (!doCabecalho(registro, i))
      html += std::string("<th scope=\"col\"") +
              (numerica(registro.campos[i].especie) ? " class=\"n\">" : ">") +
              texto(registro.campos[i].rotulo) + "</th>";
  return html + "</tr>";
}

}  // namespace

std::string RegistrosSoltos::valorDoCampo(const RegistroLido& lido, std::size_t campo) const {
  if (mascara_ && lido.campos[campo].campo->dadoPessoal) return mascarado(lido.bytes(campo));
  return paraPessoas(valorDe(lido, campo), lido.bytes(campo));
}

void RegistrosSoltos::poeCampos(const RegistroLido& lido) {
  const Registro& registro = *lido.registro;
  std::vector<std::string> valores(registro.campos.size());
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    std::string& valor = valores[static_cast<std::size_t>(lido.campos[i].numero - 1)];
    valor += (valor.empty() ? "" : " / ") + valorDoCampo(lido, i);
  }
  for (std::size_t i = 0; i < valores.size(); ++i) {
    if (doCabecalho(registro, i)) continue;
    html_ += numerica(registro.campos[i].especie) ? "<td class=\"n\">" : "<td>";
    poeTexto(html_, valores[i]);
    html_ += "</td>";
  }
}

void RegistrosSoltos::acrescenta(const RegistroLido& lido) {
  const std::string numero = std::to_string(lido.linha.numero);
  html_ = "<tr id=\"l" + numero + '"';
  if (lido.registro == nullptr) {
    html_ += "><td class=\"n\">" + numero + "</td><td>";
    poeTexto(html_, mascara_ ? mascarado(lido.linha.texto) : std::string(lido.linha.texto));
    html_ += "</td>";
  } else {
    html_ += lido.vazio ? " class=\"vazio\"" : lido.medidaCerta ? "" : " class=\"ruim\"";
    html_ += "><td class=\"n\">" + numero;
    if (lido.vazio) html_ += " <span class=\"marca\">" + std::string(traduz("placeholder")) + "</span>";
    if (!lido.medidaCerta)
      html_ += " <span class=\"marca\">" +
               frase("{1} bytes instead of {2}",
                     {std::to_string(lido.linha.tamanho), std::to_string(lido.comprimento)}) +
               "</span>";
    html_ += "</td>";
    poeCampos(lido);
  }
  html_ += "</tr>\n";
  Pedaco pedaco;
  pedaco.linha = lido.linha.numero;
  fitas_[lido.registro == nullptr ? kSemRegistro : static_cast<std::size_t>(lido.indice)].acrescenta(pedaco,
                                                                                                     html_);
}

void RegistrosSoltos::abreFolha(Folhas& folhas) {
  const std::string nome = nomeDaFolha(++folha_);
  folhas.abre(nome, traduz("Other records"));
  folhas.escreve("<main>\n");
}

void RegistrosSoltos::escreveTabela(Folhas& folhas, std::size_t indice) {
  Fita& fita = fitas_[indice];
  const std::string nome = indice == kSemRegistro
                               ? traduz("Lines of no register")
                               : std::string(kCatalogo[indice]->codigo) + " " + kCatalogo[indice]->nome;
  std::string titulo = texto(nome) + " <span class=\"quantos\">";
  poeNumero(titulo, fita.quantas());
  titulo += "</span>";
  const std::string abertura = (folhas.dividida() ? "<details open" : "<details") +
                               std::string("><summary>") + titulo +
                               "</summary><div class=\"rolo\"><table class=\"ordena\"><thead>" +
                               titulosDe(indice) + "</thead><tbody>\n";
  if (folhas.dividida()) sumario_ += "<li><a href=\"" + nomeDaFolha(folha_) + "\">" + titulo + "</a></li>\n";
  folhas.escreve(abertura);
  while (fita.avanca()) {
    if (folhas.cheia()) {
      folhas.escreve("</tbody></table></div></details></main>\n");
      folhas.fecha();
      abreFolha(folhas);
      folhas.escreve(abertura);
    }
    folhas.marca(static_cast<long>(fita.pedaco().linha));
    folhas.escreve(fita.html());
  }
  folhas.escreve("</tbody></table></div></details>\n");
}

void RegistrosSoltos::escreve(Folhas& folhas) {
  if (folhas.dividida()) abreFolha(folhas);
  for (std::size_t i = 0; i < fitas_.size(); ++i)
    if (fitas_[i].quantas() != 0) escreveTabela(folhas, i);
  if (!folhas.dividida()) return;
  folhas.escreve("</main>\n");
  folhas.fecha();
}

}  // namespace cotepe::pagina
