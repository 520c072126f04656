#include "Resumo/Sequencia.h"

#include <algorithm>

namespace cotepe {

void Sequencia::anota(std::int64_t valor, int digitos) {
  digitos_ = std::max(digitos_, digitos);
  if (!faixas_.empty()) {
    Faixa& atual = faixas_.back();
    if (valor >= atual.de && valor <= atual.ate) return;
    if (valor == atual.ate + 1) {
      atual.ate = valor;
      return;
    }
    arrumadas_ = arrumadas_ && valor > atual.ate;
  }
  faixas_.push_back({valor, valor});
  if (faixas_.size() >= limite_ && !arrumadas_) arruma();
}

void Sequencia::anota(const Faixa& faixa, int digitos) {
  anota(faixa.de, digitos);
  if (faixa.ate > faixas_.back().ate) {
    arrumadas_ = false;  // what came before may lie between the two
    faixas_.push_back(faixa);
  }
}

// Joins the runs that touch or overlap. When few were joined the next tidying comes later, so that the total
// cost stays low.
void Sequencia::arruma() const {
  if (arrumadas_) return;
  std::sort(faixas_.begin(), faixas_.end(), [](const Faixa& a, const Faixa& b) { return a.de < b.de; });
  std::size_t fim = 0;
  for (std::size_t i = 1; i < faixas_.size(); ++i) {
    if (faixas_[i].de <= faixas_[fim].ate + 1)
      faixas_[fim].ate = std::max(faixas_[fim].ate, faixas_[i].ate);
    else
      faixas_[++fim] = faixas_[i];
  }
  faixas_.resize(fim + 1);
  limite_ = std::max(kPrimeiraArrumacao, 2 * faixas_.size());
  arrumadas_ = true;
}

const std::vector<Faixa>& Sequencia::faixas() const {
  arruma();
  return faixas_;
}

std::int64_t Sequencia::primeiro() const {
  arruma();
  return faixas_.front().de;
}

std::int64_t Sequencia::ultimo() const {
  arruma();
  return faixas_.back().ate;
}

std::int64_t Sequencia::quantos() const {
  arruma();
  std::int64_t quantos = 0;
  for (const Faixa& faixa : faixas_) quantos += faixa.ate - faixa.de + 1;
  return quantos;
}

std::int64_t Sequencia::metade() const {
  std::int64_t tudo = 1;
  for (int i = 0; i < digitos_ && i < 18; ++i) tudo *= 10;
  return tudo / 2;
}

std::vector<Faixa> Sequencia::lacunas() const {
  arruma();
  std::vector<Faixa> lacunas;
  for (std::size_t i = 1; i < faixas_.size(); ++i) {
    const Faixa lacuna{faixas_[i - 1].ate + 1, faixas_[i].de - 1};
    if (lacuna.ate - lacuna.de + 1 < metade()) lacunas.push_back(lacuna);
  }
  return lacunas;
}

bool Sequencia::recomecou() const {
  arruma();
  for (std::size_t i = 1; i < faixas_.size(); ++i)
    if (faixas_[i].de - faixas_[i - 1].ate - 1 >= metade()) return true;
  return false;
}

}  // namespace cotepe
