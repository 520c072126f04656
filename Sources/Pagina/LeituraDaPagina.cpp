#include "Pagina/LeituraDaPagina.h"

namespace cotepe::pagina {
namespace {

constexpr long kRegistrosEntrePulsos = 4096;

}  // namespace

LeituraDaPagina::LeituraDaPagina(std::string nome, bool mascara, bool comRegistros)
    : nome_(std::move(nome)),
      comRegistros_(comRegistros),
      achados_(mascara),
      documentos_(mascara),
      registros_(mascara) {}

void LeituraDaPagina::linha(const RegistroLido& lido) {
  resumidor_.linha(lido);
  const LinhaLida& linha = lido.linha;
  cortada_ = cortada_ || linha.texto.size() != linha.tamanho;
  comAssinatura_ = comAssinatura_ || linha.texto.substr(0, 3) == "EAD";
  digestos_.soma(linha.texto);
  if (!linha.semFim) digestos_.soma(linha.comCr ? "\r\n" : "\n");
  if (comRegistros_ && !documentos_.acrescenta(lido)) registros_.acrescenta(lido);
}

void LeituraDaPagina::le(LeitorDeLinhas& linhas, const std::function<void()>& pulsa) {
  AjusteDoLeiaute leiaute;
  const auto observa = [&](const RegistroLido& lido, const LeitorDeRegistros& leitor) {
    linha(lido);
    leiaute = leitor.ajuste();
    if (lido.linha.numero % kRegistrosEntrePulsos == 0) pulsa();
  };
  Validacao(achados_, {nome_, {}}).valida(linhas, observa);
  resumo_ = resumidor_.conclui(leiaute);
  if (!cortada_) digestos_.conclui();
}

}  // namespace cotepe::pagina
