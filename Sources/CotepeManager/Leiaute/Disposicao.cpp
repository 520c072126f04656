#include "Leiaute/Disposicao.h"

#include <algorithm>
#include <cstdlib>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

constexpr std::size_t kSemLimite = std::numeric_limits<int>::max();

/// Places the fields of a list one after another.
class Dispositor {
 public:
  Dispositor(Disposicao& disposicao, const AjusteDoLeiaute& ajuste, bool vazio)
      : disposicao_(disposicao), ajuste_(ajuste), cursor_(ajuste.versao, vazio) {
    disposicao_.campos.clear();
    disposicao_.deslocavel = disposicao_.doLeiaute = -1;
  }

  ~Dispositor() { disposicao_.comprimento = cursor_.fim(); }

  void poe(Campos lista, std::size_t primeiro, std::size_t quantos, int numeros = 1) {
    for (std::size_t i = primeiro; i < primeiro + quantos; ++i) {
      const Campo& campo = lista[i];
      if (!campo.existe(ajuste_.versao, ajuste_.cat52)) continue;
      const int posicao = cursor_.poe(campo);
      cobre(posicao);
      if (campo.desloca) disposicao_.deslocavel = ultimo() + 1;
      if (campo.origem.tipo == Origem::Tipo::DoLeiaute) disposicao_.doLeiaute = ultimo() + 1;
      disposicao_.campos.push_back(
          {&campo, static_cast<int>(i) + numeros, posicao, larguraNominal(campo, ajuste_.versao)});
    }
  }

  void poeGrupo(Campos lista, const Grupo& grupo, int vezes, std::size_t limite) {
    const std::size_t primeiro = static_cast<std::uint8_t>(grupo.primeiro);
    const std::size_t quantos = static_cast<std::uint8_t>(grupo.quantos);
    if (vezes == 0) {
      const std::size_t ficam = static_cast<std::uint8_t>(grupo.semNenhuma);
      return poe(lista, primeiro + quantos - ficam, ficam);
    }
    int postas = 0;
    for (; postas + 1 < vezes && cursor_.proxima() <= static_cast<int>(limite); ++postas)
      poe(lista, primeiro, quantos);
    cursor_.pula((vezes - 1 - postas) * avancoDe(lista.trecho(primeiro, quantos)));
    poe(lista, primeiro, quantos);
  }

 private:
  int ultimo() const { return static_cast<int>(disposicao_.campos.size()) - 1; }

  // Earlier fields end where a later one begins, at the latest.
  void cobre(int posicao) {
    std::vector<CampoLido>& campos = disposicao_.campos;
    while (!campos.empty() && campos.back().posicao + campos.back().largura > posicao) {
      campos.back().largura = std::max(0, posicao - campos.back().posicao);
      if (campos.back().largura > 0) return;
      campos.pop_back();
    }
  }

  int avancoDe(Campos campos) const {
    Cursor cursor(ajuste_.versao, false);
    for (const Campo& campo : campos)
      if (campo.existe(ajuste_.versao, ajuste_.cat52)) cursor.poe(campo);
    return cursor.proxima();
  }

  Disposicao& disposicao_;
  AjusteDoLeiaute ajuste_;
  Cursor cursor_;
};

/// Looks for the repetitions of the groups, one after the other, that fill a length.
class Repetidor {
 public:
  Repetidor(const Registro& registro, const AjusteDoLeiaute& ajuste) : registro_(registro) {
    for (; quantos_ < Registro::kGrupos && registro.grupos[quantos_].quantos != 0; ++quantos_) {
      const Grupo& grupo = registro.grupos[quantos_];
      const Campos campos = registro.campos.trecho(static_cast<std::uint8_t>(grupo.primeiro),
                                                   static_cast<std::uint8_t>(grupo.quantos));
      larguras_[quantos_] = comprimento(campos, ajuste.versao, ajuste.cat52);
      semNenhuma_[quantos_] =
          comprimento(campos.trecho(campos.size() - static_cast<std::uint8_t>(grupo.semNenhuma)),
                      ajuste.versao, ajuste.cat52);
    }
  }

  bool acha(int sobra, Repeticoes& vezes) {
    for (std::size_t i = 0; i < quantos_; ++i) sobra += larguras_[i];
    Repeticoes tentadas = kUmaVez;
    tenta(0, sobra, 0, tentadas);
    vezes = melhores_;
    return menor_ < std::numeric_limits<int>::max();
  }

 private:
  void tenta(std::size_t i, int sobra, int estranheza, Repeticoes& tentadas) {
    if (i >= quantos_ || i >= Registro::kGrupos) {
      if (sobra == 0 && estranheza < menor_) melhores_ = tentadas, menor_ = estranheza;
      return;
    }
    const Grupo& grupo = registro_.grupos[i];
    // The last group takes what is left.
    const int de = i + 1 < quantos_ ? grupo.minimo : std::max<int>(grupo.minimo, sobra / larguras_[i]);
    const int ate = i + 1 < quantos_ ? grupo.maximo : std::min<int>(grupo.maximo, de);
    for (int n = de; n <= ate; ++n) {
      tentadas[i] = n;
      const int bytes = n == 0 ? semNenhuma_[i] : n * larguras_[i];
      if (bytes <= sobra) tenta(i + 1, sobra - bytes, estranheza + std::abs(n - 1), tentadas);
    }
  }

  const Registro& registro_;
  std::size_t quantos_ = 0;
  Repeticoes larguras_{}, semNenhuma_{}, melhores_ = kUmaVez;
  int menor_ = std::numeric_limits<int>::max();
};

}  // namespace

void dispoe(Disposicao& disposicao, const Registro& registro, const AjusteDoLeiaute& ajuste,
            const Repeticoes& vezes, std::size_t limite) {
  Dispositor dispositor(disposicao, ajuste, false);
  std::size_t posto = 0;
  for (std::size_t g = 0; g < Registro::kGrupos && registro.grupos[g].quantos != 0; ++g) {
    const Grupo& grupo = registro.grupos[g];
    const std::size_t primeiro = static_cast<std::uint8_t>(grupo.primeiro);
    dispositor.poe(registro.campos, posto, primeiro - posto);
    const bool cresce = grupo.vezes == Grupo::Vezes::Registros;
    dispositor.poeGrupo(registro.campos, grupo, vezes[g], cresce ? limite : kSemLimite);
    posto = primeiro + static_cast<std::uint8_t>(grupo.quantos);
  }
  dispositor.poe(registro.campos, posto, registro.campos.size() - posto);
}

void dispoeVazio(Disposicao& disposicao, const Registro& registro, Campos campos,
                 const AjusteDoLeiaute& ajuste) {
  Dispositor(disposicao, ajuste, true)
      .poe(campos, 0, campos.size(), static_cast<int>(registro.campos.size() - campos.size()) + 1);
}

std::string conteudoVazio(const Disposicao& disposicao, std::size_t& inicio) {
  std::string conteudo(static_cast<std::size_t>(disposicao.comprimento), ' ');
  inicio = 0;
  bool cabecalho = true;
  for (const CampoLido& lido : disposicao.campos) {
    const auto posicao = static_cast<std::size_t>(lido.posicao),
               largura = static_cast<std::size_t>(lido.largura);
    cabecalho = cabecalho && lido.campo->origem.fixa();
    if (cabecalho) inicio = posicao + largura;
    if (lido.campo->textoVazio != nullptr)
      conteudo.replace(posicao, std::string_view(lido.campo->textoVazio).size(), lido.campo->textoVazio);
    else if (numerica(lido.campo->especie))
      conteudo.replace(posicao, largura, largura, '0');
  }
  return conteudo.substr(inicio);
}

bool repeticoesDe(const Registro& registro, const AjusteDoLeiaute& ajuste, int doComprimento,
                  Repeticoes& vezes) {
  const int umaVez = comprimento(registro.campos, ajuste.versao, ajuste.cat52);
  return Repetidor(registro, ajuste).acha(doComprimento - umaVez, vezes);
}

}  // namespace cotepe
