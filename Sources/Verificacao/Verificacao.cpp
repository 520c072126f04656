#include "Verificacao/Verificacao.h"

#include <utility>

#include "ArquivoDeLog.h"
#include "Comparacao/Comparacao.h"
#include "Entrada/RelatorioLido.h"
#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

class ContagemDeAchados final : public RecebeAchados {
 public:
  void recebe(const Achado& /*achado*/) override { ++total; }
  long total = 0;
};

}  // namespace

Verificacao::Verificacao(OpcoesDaVerificacao opcoes, const AjustesDoRelatorio& lidos, sqlite3* banco)
    : opcoes_(std::move(opcoes)),
      banco_(banco),
      progresso_(opcoes_.calado),
      possiveis_(pedidosPossiveis(banco, lidos, opcoes_.dado)),
      pedido_(possiveis_.front()) {
  const bool igual = possiveis_.size() > 1 && escolhe();
  const auto outros = igual ? mesmosBytes(possiveis_, pedido_, lidos) : std::vector<AjusteDoLeiaute>();
  emPalavras_ = textoDoPedido(pedido_, opcoes_.dado, outros);
}

bool Verificacao::escolhe() {
  long menos = -1;
  for (const PedidoDeGeracao& pedido : possiveis_) {
    ContagemDeAchados contagem;
    confronta(pedido, contagem);
    if (menos >= 0 && contagem.total >= menos) continue;
    menos = contagem.total;
    pedido_ = pedido;
    if (menos == 0) return true;
  }
  return false;
}

void Verificacao::confronta(const PedidoDeGeracao& pedido, RecebeAchados& recebe) {
  const ArquivoSemNome gerado = gera(pedido);
  RelatorioLido esperado(gerado.caminho(), true), encontrado(opcoes_.relatorio);
  progresso_.limpa();
  Comparacao(recebe, {frase("the report of {1}", {opcoes_.banco}), encontrado.nome(), false, true})
      .compara(esperado.linhas(), encontrado.linhas());
  esperado.confereLeitura();
  encontrado.confereLeitura();
}

ArquivoSemNome Verificacao::gera(const PedidoDeGeracao& pedido) {
  ArquivoSemNome arquivo = arquivoTemporario();
  ArquivoDeLog log;
  const std::string momento = momentoAtual();
  HospedeiroDoPrograma hospedeiro(opcoes_.identidade, momento, banco_, log, progresso_);
  exigeInteiro(corre(banco_, pedido, arquivo.caminho(), hospedeiro).resultado, hospedeiro);
  return arquivo;
}

void Verificacao::exigeInteiro(int resultado, const HospedeiroDoPrograma& hospedeiro) const {
  if (resultado == kIdentidadeFalhou)
    throw Falha(kUsoErrado, semIdentidade(opcoes_.banco, hospedeiro.motivo()));
  if (resultado != kGerado)
    throw Falha(kNaoEscreve, frase("cannot write the temporary file of {1} (result {2}); free some space, "
                                   "or set TMPDIR to a folder with more",
                                   {opcoes_.relatorio, std::to_string(resultado)}));
  const std::string faltam = incompletos(hospedeiro.etapas());
  if (!faltam.empty())
    throw Falha(kUsoErrado, frase("cannot verify: the database gives no whole report: {1}", {faltam}));
}

}  // namespace cotepe::programa
