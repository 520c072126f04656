#include "Pagina/Folhas.h"

#include "Idioma/Idioma.h"
#include "Pagina/Html.h"
#include "Pagina/Modelo.h"
#include "Sistema/PalavrasDoArquivo.h"

namespace cotepe::pagina {
namespace {

constexpr std::string_view kFimDeHtml = ".html";

bool deHtml(const std::string& nome) {
  return nome.size() > kFimDeHtml.size() &&
         nome.compare(nome.size() - kFimDeHtml.size(), std::string::npos, kFimDeHtml) == 0;
}

}  // namespace

Folhas::Folhas(std::string destino, bool dividida, bool substitui)
    : destino_(std::move(destino)), substitui_(substitui) {
  if (dividida)
    pasta_ = std::make_unique<programa::PastaSegura>(destino_, substitui_, deHtml);
  else
    programa::emPalavras([this] { exigeDestino(destino_, substitui_); });
}

Folhas::~Folhas() = default;

void Folhas::abre(const std::string& nome, const std::string& titulo) {
  nome_ = nome;
  const std::string caminho = dividida() ? pasta_->caminho(nome) : destino_;
  arquivo_ =
      std::make_unique<programa::TextoEmArquivo>(caminho, dividida() ? destino_ + '/' + nome : destino_);
  escreve(inicioDoModelo(titulo));
  if (dividida() && nome != kIndice)
    escreve("<nav class=\"volta\"><a href=\"" + std::string(kIndice) + "\">" +
            traduz("Back to the overview") + "</a></nav>\n");
}

void Folhas::fecha() {
  escreve(fimDoModelo());
  if (!dividida()) return;
  arquivo_->publica(false);
  arquivo_.reset();
}

void Folhas::marca(long linha) {
  if (dividida() && procuradas_.count(linha) != 0) achadas_.emplace(linha, nome_);
}

std::string Folhas::endereco(long linha) const {
  std::string ancora = "#l" + std::to_string(linha);
  if (!dividida()) return ancora;
  const auto achada = achadas_.find(linha);
  return achada == achadas_.end() ? "" : achada->second + ancora;
}

void Folhas::conclui() {
  if (dividida())
    pasta_->publica();
  else
    arquivo_->publica(substitui_);
}

}  // namespace cotepe::pagina
