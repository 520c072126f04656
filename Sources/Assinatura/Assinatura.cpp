#include "Assinatura/Assinatura.h"

#include "Assinatura/ErroDaAssinatura.h"
#include "Assinatura/Md5.h"

namespace cotepe {
namespace {

void exigeRelatorio(const FormaDeEntrega& forma, bool forcado) {
  if (forcado || forma.estranheza() == Estranheza::Nenhuma) return;
  throw ErroDaAssinatura(ProblemaDaAssinatura::NaoERelatorio, static_cast<long>(forma.estranheza()))
      .naLinha(forma.linhaEstranha());
}

}  // namespace

Entregue assina(const LeituraDeBytes& le, const EscritaDeBytes& escreve, const PedidoDeEntrega& pedido) {
  Md5 md5;
  pedido.chave->assina(compoeBloco({}, pedido.forma));  // so that a refusal comes before everything is read
  FormaDeEntrega forma(FinsDeLinha::CrLf, [&](std::string_view bytes) {
    exigeRelatorio(forma, pedido.forcado);
    md5.soma(bytes);
    escreve(bytes);
  });
  passaTudo(le, forma);
  exigeRelatorio(forma, pedido.forcado);

  Entregue feito;
  feito.resumo = md5.resumo();
  escreve(escreveEad(pedido.chave->assina(compoeBloco(feito.resumo, pedido.forma))) + "\r\n");
  feito.tirouEad = forma.acabaEmEad();
  feito.linhas = forma.linhas() + (feito.tirouEad ? 0 : 1);
  feito.trocouFins = forma.temLf() || forma.acabaSemFim();
  feito.estranheza = forma.estranheza();
  feito.linhaEstranha = forma.linhaEstranha();
  return feito;
}

}  // namespace cotepe
