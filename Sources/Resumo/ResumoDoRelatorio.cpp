#include "Resumo/ResumoDoRelatorio.h"

#include <algorithm>
#include <limits>

#include "Leiaute/Releitura.h"
#include "Resumo/Resumidor.h"

namespace cotepe {
namespace {

void une(Sequencia& destino, const Sequencia& origem) {
  for (const Faixa& faixa : origem.faixas()) destino.anota(faixa, origem.digitos());
}

// The day after one that exists.
std::string diaSeguinte(std::string dia) {
  const auto soma = [&dia](std::size_t posicao, std::size_t digitos) {
    for (std::size_t i = posicao + digitos; i-- > posicao;) {
      if (dia[i] != '9') return void(++dia[i]);
      dia[i] = '0';
    }
  };
  soma(6, 2);
  if (dataPossivel(dia)) return dia;
  dia.replace(6, 2, "01");
  soma(4, 2);
  if (dataPossivel(dia)) return dia;
  dia.replace(4, 2, "01");
  soma(0, 4);
  return dia;
}

template <class Maior>
std::vector<Artigo> primeiros(std::vector<Artigo> artigos, std::size_t quantos, Maior maior) {
  const auto fim = artigos.begin() + static_cast<std::ptrdiff_t>(std::min(quantos, artigos.size()));
  std::partial_sort(artigos.begin(), fim, artigos.end(), maior);
  artigos.erase(fim, artigos.end());
  return artigos;
}

bool antesPeloNome(const Artigo& a, const Artigo& b) {
  return a.codigo != b.codigo ? a.codigo < b.codigo : a.descricao < b.descricao;
}

bool comeca(const std::string& texto, const char* inicio) { return texto.rfind(inicio, 0) == 0; }

}  // namespace

void acumula(Centavos& soma, Centavos parcela) noexcept {
  using Limites = std::numeric_limits<Centavos>;
  if (__builtin_add_overflow(soma, parcela, &soma)) soma = parcela < 0 ? Limites::min() : Limites::max();
}

void Valores::soma(const Valores& outros) noexcept {
  acumula(bruta, outros.bruta);
  acumula(descontos, outros.descontos);
  acumula(acrescimos, outros.acrescimos);
  acumula(cancelamentos, outros.cancelamentos);
  acumula(liquida, outros.liquida);
}

Centavos Movimento::media() const {
  const long vendidos = cupons - cuponsCancelados;
  return vendidos > 0 ? dosCupons.liquida / vendidos : 0;
}

void Movimento::soma(const Movimento& outro) {
  comReducao = comReducao || outro.comReducao;
  dasReducoes.soma(outro.dasReducoes);
  dosCupons.soma(outro.dosCupons);
  reducoes += outro.reducoes;
  cupons += outro.cupons;
  cuponsCancelados += outro.cuponsCancelados;
  itens += outro.itens;
  itensCancelados += outro.itensCancelados;
  naoFiscais += outro.naoFiscais;
  naoFiscaisCancelados += outro.naoFiscaisCancelados;
  acumula(valorNaoFiscal, outro.valorNaoFiscal);
  une(crz, outro.crz);
  une(coo, outro.coo);
  une(ccf, outro.ccf);
  une(gnf, outro.gnf);
}

std::map<std::string, Movimento> ResumoDoRelatorio::meses() const {
  std::map<std::string, Movimento> meses;
  for (const auto& [dia, movimento] : dias) meses[dia.substr(0, 6)].soma(movimento);
  return meses;
}

std::vector<ResumoDoRelatorio::Intervalo> ResumoDoRelatorio::diasSemReducao() const {
  std::vector<Intervalo> intervalos;
  std::string esperado;  // the day after the last that has one
  for (const auto& [dia, movimento] : dias) {
    if (!movimento.comReducao) continue;
    for (Intervalo intervalo{esperado, "", 0}; !esperado.empty() && esperado < dia;) {
      intervalo.ate = esperado;
      ++intervalo.dias;
      esperado = diaSeguinte(esperado);
      if (esperado == dia) intervalos.push_back(intervalo);
    }
    esperado = diaSeguinte(dia);
  }
  return intervalos;
}

std::vector<Artigo> ResumoDoRelatorio::maioresEmValor(std::size_t quantos) const {
  return primeiros(artigos, quantos, [](const Artigo& a, const Artigo& b) {
    return a.valor != b.valor ? a.valor > b.valor : antesPeloNome(a, b);
  });
}

std::vector<Artigo> ResumoDoRelatorio::maioresEmQuantidade(std::size_t quantos) const {
  return primeiros(artigos, quantos, [](const Artigo& a, const Artigo& b) {
    return a.milesimos != b.milesimos ? a.milesimos > b.milesimos : antesPeloNome(a, b);
  });
}

bool deImposto(const std::string& totalizador) {
  return totalizador != "OPNF" && totalizador != "DT" && totalizador != "DS" && totalizador != "AT" &&
         totalizador != "AS" && !comeca(totalizador, "Can-");
}

ResumoDoRelatorio resume(LeitorDeLinhas& linhas) {
  LeitorDeRegistros leitor(linhas);
  Resumidor resumidor;
  for (RegistroLido lido; leitor.proximo(lido);) resumidor.linha(lido);
  return resumidor.conclui(leitor.ajuste());
}

}  // namespace cotepe
