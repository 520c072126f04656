#include "Leitor/LeitorDeRegistros.h"

#include <algorithm>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

constexpr int kAjustes = static_cast<int>(kAjustesPossiveis.size());
constexpr int kMaisDigitos =
    17;  // digits of a 64-bit number and its sign, beyond the three of the narrowest field
constexpr int kMaximoDeGravacoes = 100000000;  // whose line has a length that an int holds

bool possivel(unsigned ajustes, int ajuste) { return (ajustes >> ajuste & 1) != 0; }

int primeiro(unsigned ajustes) {
  int ajuste = 0;
  while (!possivel(ajustes, ajuste)) ++ajuste;
  return ajuste;
}

// The placeholder that the line is; null when it is not one.
const ConteudoVazio* vazioNa(const FormaDoRegistro& forma, std::string_view texto) {
  if (texto.size() != static_cast<std::size_t>(forma.comprimento)) return nullptr;
  for (const ConteudoVazio& vazio : forma.vazios)
    if (texto.substr(vazio.inicio) == vazio.bytes) return &vazio;
  return nullptr;
}

bool semCabecalho(const Registro& registro) { return registro.camposVazios.size() != registro.campos.size(); }

// Whether the fields repeated from record to record hold what they have in a placeholder.
bool repetidosVazios(const RegistroLido& lido) {
  const Grupo* grupo = std::find_if(std::begin(lido.registro->grupos), std::end(lido.registro->grupos),
                                    [](const Grupo& g) { return g.vezes == Grupo::Vezes::Registros; });
  if (grupo == std::end(lido.registro->grupos)) return false;
  return std::all_of(lido.campos, lido.campos + lido.quantos, [&](const CampoLido& campo) {
    const char enchimento = numerica(campo.campo->especie) ? '0' : ' ';
    return campo.numero <= grupo->primeiro ||
           campo.em(lido.linha.texto).find_first_not_of(enchimento) == std::string_view::npos;
  });
}

}  // namespace

LeitorDeRegistros::LeitorDeRegistros(LeitorDeLinhas& linhas, Catalogo catalogo)
    : linhas_(linhas), formas_(Formas::de(catalogo)), vistos_(catalogo.size()) {}

const AjusteDoLeiaute& LeitorDeRegistros::ajuste() const {
  return kAjustesPossiveis[static_cast<std::size_t>(primeiro(ajustes_))];
}

std::size_t RegistroLido::acha(std::string_view rotulo) const {
  std::size_t i = 0;
  while (i < quantos && campos[i].campo->rotulo != rotulo) ++i;
  return i;
}

std::string_view RegistroLido::bytesDe(std::string_view rotulo) const {
  const std::size_t i = acha(rotulo);
  return i < quantos ? bytes(i) : std::string_view();
}

std::size_t RegistroLido::cabecalho() const {
  std::size_t i = 0;
  while (i < quantos && campos[i].campo->origem.fixa()) ++i;
  return i;
}

bool LeitorDeRegistros::proximo(RegistroLido& lido) {
  LinhaLida linha;
  if (!linhas_.proxima(linha)) return false;
  le(linha, lido);
  return true;
}

// The register whose placeholder, which has no head, the line is; below 0 for none.
int LeitorDeRegistros::semCodigo(std::string_view texto) const {
  for (int r = 0; r < static_cast<int>(catalogo().size()); ++r)
    if (semCabecalho(*catalogo()[static_cast<std::size_t>(r)]) &&
        vazioNa(formas_->em(r, primeiro(ajustes_), true), texto) != nullptr)
      return r;
  return -1;
}

void LeitorDeRegistros::le(const LinhaLida& linha, RegistroLido& lido) {
  lido = RegistroLido{};
  lido.linha = linha;
  lido.indice = catalogo().indiceDe(linha.texto.substr(0, 3));
  const bool nua = lido.indice < 0;
  if (nua) lido.indice = semCodigo(linha.texto);
  if (lido.indice < 0) return;
  lido.registro = catalogo()[static_cast<std::size_t>(lido.indice)];
  if (nua) {
    usa(lido, formas_->em(lido.indice, primeiro(ajustes_), true), true);
    lido.vazio = true;
  } else if (lido.registro->temGrupos()) {
    leComGrupos(lido);
  } else {
    leRegular(lido);
  }
}

// Leaves the possible settings unchanged if none would remain: a contradiction is reported elsewhere.
void LeitorDeRegistros::restringe(unsigned ajustes) {
  if ((ajustes_ & ajustes) == ajustes_ || (ajustes_ & ajustes) == 0) return;
  ajustes_ &= ajustes;
  for (Visto& visto : vistos_) visto.ultima = nullptr;
}

void LeitorDeRegistros::usa(RegistroLido& lido, const Disposicao& disposicao, bool medidaCerta) {
  lido.campos = disposicao.campos.data();
  lido.quantos = disposicao.campos.size();
  lido.comprimento = disposicao.comprimento;
  lido.medidaCerta = medidaCerta;
  if (disposicao.doLeiaute < 0) return;
  const auto i = static_cast<std::size_t>(disposicao.doLeiaute);
  const Origem& origem = lido.campos[i].campo->origem;
  const std::string_view leiaute = lido.bytes(i);
  if (leiaute == origem.constante || leiaute == origem.nosOutros)
    restringe(ajustesEmQue([&](const AjusteDoLeiaute& ajuste) {
      return (ajuste.versao == 1) == (leiaute == origem.constante);
    }));
}

bool LeitorDeRegistros::cabe(RegistroLido& lido, const FormaDoRegistro& forma) {
  if (lido.linha.tamanho != static_cast<std::uint64_t>(forma.comprimento)) return false;
  usa(lido, forma, true);
  lido.vazio = vazioNa(forma, lido.linha.texto) != nullptr;
  return true;
}

void LeitorDeRegistros::leRegular(RegistroLido& lido) {
  const FormaDoRegistro*& ultima = vistos_[static_cast<std::size_t>(lido.indice)].ultima;
  if (ultima != nullptr && cabe(lido, *ultima) && !lido.vazio) return;

  unsigned cabem = 0;
  const FormaDoRegistro* achada = nullptr;
  const FormaDoRegistro* deslocada = nullptr;
  for (int ajuste = kAjustes - 1; ajuste >= 0; --ajuste) {
    if (!possivel(ajustes_, ajuste)) continue;
    for (const bool vazio : {true, false}) {
      if (vazio && semCabecalho(*lido.registro)) continue;  // it has no code
      const FormaDoRegistro& tentada = formas_->em(lido.indice, ajuste, vazio);
      const auto sobra = static_cast<std::int64_t>(lido.linha.tamanho) - tentada.comprimento;
      if (sobra > 0 && sobra <= kMaisDigitos && tentada.deslocavel >= 0 && !vazio) deslocada = &tentada;
      if (sobra != 0) continue;
      achada = &tentada;
      cabem |= 1U << ajuste;
    }
  }
  if (achada == nullptr) {
    if (deslocada != nullptr) return desloca(lido, *deslocada);
    return usa(lido, formas_->em(lido.indice, primeiro(ajustes_), false), false);
  }
  cabe(lido, *achada);
  restringe(cabem);
  const ConteudoVazio* vazio = vazioNa(*achada, lido.linha.texto);
  if (vazio != nullptr && vazio->quando == Vazio::ForaDoCat52) restringe(foraDoCat52());
  ultima = achada;
}

void LeitorDeRegistros::desloca(RegistroLido& lido, const FormaDoRegistro& forma) {
  const auto sobra = static_cast<int>(lido.linha.tamanho) - forma.comprimento;
  rascunho_ = forma;
  const auto largo = static_cast<std::size_t>(forma.deslocavel);
  rascunho_.campos[largo].largura += sobra;
  for (std::size_t i = largo + 1; i < rascunho_.campos.size(); ++i) rascunho_.campos[i].posicao += sobra;
  rascunho_.comprimento += sobra;
  usa(lido, rascunho_, true);
}

// How often the groups of the line repeat: found from its length in the register that shows how many users
// there are, and from that number and the records so far in the others.
Repeticoes LeitorDeRegistros::vezes(const RegistroLido& lido) {
  Repeticoes vezes = kUmaVez;
  const Registro& registro = *lido.registro;
  int& registros = vistos_[static_cast<std::size_t>(lido.indice)].registros;
  registros = std::min(registros + 1, kMaximoDeGravacoes);
  const bool pelaLinha = std::any_of(std::begin(registro.grupos), std::end(registro.grupos),
                                     [](const Grupo& grupo) { return grupo.maximo != 0; });
  if (pelaLinha && lido.linha.tamanho <= LeitorDeLinhas::kBloco)
    repeticoesDe(registro, ajuste(), static_cast<int>(lido.linha.tamanho), vezes);
  for (std::size_t g = 0; g < vezes.size(); ++g) {
    if (registro.grupos[g].vezes == Grupo::Vezes::Registros) vezes[g] = registros;
    if (registro.grupos[g].vezes != Grupo::Vezes::Usuarios) continue;
    if (pelaLinha)
      usuarios_ = vezes[g];
    else
      vezes[g] = usuarios_;
  }
  return vezes;
}

void LeitorDeRegistros::leComGrupos(RegistroLido& lido) {
  dispoe(rascunho_, *lido.registro, ajuste(), vezes(lido), lido.linha.texto.size());
  usa(lido, rascunho_, lido.linha.tamanho == static_cast<std::uint64_t>(rascunho_.comprimento));
  lido.vazio = lido.medidaCerta && vistos_[static_cast<std::size_t>(lido.indice)].registros == 1 &&
               repetidosVazios(lido);
}

}  // namespace cotepe
