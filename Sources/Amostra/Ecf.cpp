#include "Amostra/Ecf.h"

#include <cstddef>

namespace cotepe::loja {

Ecf::Ecf(sqlite3* banco, const ContadoresDoEcf& contadores, Centavos grandeTotal)
    : memoria_(banco), contadores_(contadores), grandeTotal_(grandeTotal), ultimaFita_(contadores.coo) {}

void Ecf::emiteRelatorioGerencial(const DataHora& quando) { documento("RG", quando); }

void Ecf::emiteReducao(const DataHora& movimento, const DataHora& quando) {
  documento("RZ", quando);
  ++contadores_.crz;
  grandeTotal_ += totais_.vendaBruta;
  memoria_.reducao.grava(contadores_.crz, contadores_.coo, contadores_.cro, texto(movimento), texto(quando),
                         dinheiro(totais_.vendaBruta), dinheiro(grandeTotal_));
  guardaTotais();
  totais_ = {};
}

void Ecf::guardaTotais() {
  for (std::size_t i = 0; i < kTotalizadores.size(); ++i) {
    memoria_.totalizador.grava(contadores_.crz, kTotalizadores[i], dinheiro(totais_.fiscais[i]), "S");
  }
  for (std::size_t i = 0; i < kNaoFiscais.size(); ++i) {
    memoria_.totalizador.grava(contadores_.crz, kNaoFiscais[i], dinheiro(totais_.naoFiscais[i]), "N");
  }
  for (std::size_t i = 0; i < kMeios.size(); ++i) {
    memoria_.meioDaReducao.grava(contadores_.crz, kMeios[i], dinheiro(totais_.meios[i]));
  }
}

void Ecf::emiteFitaDetalhe(const DataHora& quando) {
  memoria_.fita.grava(++contadores_.cfd, texto(quando), ultimaFita_ + 1, contadores_.coo);
  ultimaFita_ = contadores_.coo;
}

void Ecf::sofreIntervencao(const DataHora& quando, std::string_view tipo) {
  memoria_.intervencao.grava(++contadores_.cro, texto(quando), "N", tipo, contadores_.crz, contadores_.coo);
}

}  // namespace cotepe::loja
