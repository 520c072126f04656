#include "Amostra/Loja.h"

#include <algorithm>
#include <cstdint>

#include "Amostra/Cadastro.h"
#include "Amostra/Sorteio.h"

namespace cotepe::loja {
namespace {

constexpr int kManutencao = 7 * 3600 + 900;  // seconds of the day
constexpr int kAbertura = 8 * 3600;
constexpr int kFechamento = 20 * 3600;
constexpr int kMeiaNoite = 24 * 3600;
constexpr int kDocumentosPorCupom = 6;
constexpr int kDiasEntreFitas = 7;
constexpr int kDiasEntreIntervencoes = 30;

// One fiscal day. The time of the day only moves forward.
class DiaDaLoja {
 public:
  DiaDaLoja(Ecf& ecf, Aleatorio& aleatorio, int numero, int cupons)
      : ecf_(ecf), aleatorio_(aleatorio), numero_(numero), cupons_(cupons) {}

  void abre() {
    ecf_.emiteRelatorioGerencial(agora());
    ecf_.emite(movimentoDeCaixa(NaoFiscal::suprimento, 20000), agora());
  }

  // The coupons are spread evenly over the day; what else happens comes soon after one of them.
  void vende() {
    for (int cupom = 0; cupom < cupons_; ++cupom) {
      const auto hora = std::int64_t{kFechamento - kAbertura} * cupom / cupons_;
      passaAte(kAbertura + static_cast<int>(hora));
      emite([&] { return sorteiaCupomFiscal(aleatorio_); });
      if (aleatorio_.chance(40)) emite([&] { return sorteiaRecebimento(aleatorio_); });
      if (aleatorio_.chance(5)) ecf_.emiteRelatorioGerencial(agora());
      if (aleatorio_.chance(5)) emite([&] { return movimentoDeCaixa(NaoFiscal::sangria, sangria()); });
    }
  }

  // After the cash is taken out and the report printed, the detail tape when it is time, then the reduction:
  // in the evening, or now and then after midnight.
  void fecha(bool comFita, bool podeAtrasar) {
    passaAte(kFechamento);
    emite([&] { return movimentoDeCaixa(NaoFiscal::sangria, sangria()); });
    ecf_.emiteRelatorioGerencial(agora());
    if (comFita) ecf_.emiteFitaDetalhe(agora());
    if (podeAtrasar && aleatorio_.chance(80)) passaAte(kMeiaNoite + aleatorio_.entre(60, 5400));
    ecf_.emiteReducao(dataHora(numero_, 0), agora());
  }

 private:
  // The hour is drawn before the document: the compiler chooses the order in which arguments are evaluated.
  template <class Faz>
  void emite(Faz documento) {
    const DataHora quando = agora();
    ecf_.emite(documento(), quando);
  }

  // A document takes some seconds, less on a crowded day, so that those of one coupon end before the next
  // coupon.
  DataHora agora() {
    segundo_ += aleatorio_.entre(0, std::min(8, (kFechamento - kAbertura) / cupons_ / kDocumentosPorCupom));
    return dataHora(numero_, segundo_);
  }

  void passaAte(int segundo) {
    if (segundo > segundo_) segundo_ = segundo;
  }

  Centavos sangria() { return aleatorio_.entre(10, 500) * Centavos{1000}; }

  Ecf& ecf_;
  Aleatorio& aleatorio_;
  int numero_;
  int cupons_;
  int segundo_ = kAbertura;
};

ContadoresDoEcf contadoresIniciais(Aleatorio& aleatorio) {
  const int reducoes = aleatorio.entre(400, 700);
  return {reducoes * std::int64_t{60} + aleatorio.entre(0, 999),
          reducoes * std::int64_t{40} + aleatorio.entre(0, 999),
          reducoes * std::int64_t{15} + aleatorio.entre(0, 999),
          reducoes * std::int64_t{3},
          aleatorio.entre(1, 5000),
          reducoes,
          1,
          aleatorio.entre(50, 90)};
}

}  // namespace

ResumoDaAmostra preencheBanco(sqlite3* banco, const OpcoesDaAmostra& opcoes, int primeiroDia) {
  Aleatorio aleatorio(opcoes.semente);
  gravaCadastro(banco, aleatorio, primeiroDia);
  const auto contadores = contadoresIniciais(aleatorio);
  const Centavos reais = aleatorio.entre(1000000, 3000000);
  Ecf ecf(banco, contadores, 100 * reais + aleatorio.entre(0, 99));
  for (int dia = 0; dia < opcoes.dias; ++dia) {
    const bool ultimo = dia + 1 == opcoes.dias;
    if (dia % kDiasEntreIntervencoes == kDiasEntreIntervencoes / 2) {
      ecf.sofreIntervencao(dataHora(primeiroDia + dia, kManutencao), "T");
    }
    DiaDaLoja loja(ecf, aleatorio, primeiroDia + dia, opcoes.cuponsPorDia);
    loja.abre();
    loja.vende();
    loja.fecha(ultimo || dia % kDiasEntreFitas == kDiasEntreFitas - 1, !ultimo);
    if (opcoes.progresso) opcoes.progresso(dia + 1, opcoes.dias);
  }
  gravaPosicao(banco, ecf);
  auto resumo = ecf.resumo();
  resumo.primeiroDia = textoDoDia(primeiroDia);
  resumo.ultimoDia = textoDoDia(primeiroDia + opcoes.dias - 1);
  return resumo;
}

}  // namespace cotepe::loja
