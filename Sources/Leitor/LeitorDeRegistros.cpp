#include "Leitor/LeitorDeRegistros.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

constexpr int kAjustes = static_cast<int>(std::size(kAjustesPossiveis));
constexpr int kMaisDigitos =
    17;  // of a number of 64 bits and its sign, beyond the three of the narrowest field
constexpr int kMaximoDeGravacoes = 100000000;  // whose line has a length that an int holds
constexpr std::size_t kCabecalho = 4;          // fields of the head of most registers

constexpr int kIndiceE01 = 0, kIndiceE05 = 4, kIndiceE06 = 5, kIndiceE07 = 6, kIndiceE08 = 7, kIndiceE11 = 10,
              kIndiceE13 = 12;

bool possivel(unsigned ajustes, int ajuste) { return (ajustes >> ajuste & 1) != 0; }

int primeiro(unsigned ajustes) {
  int ajuste = 0;
  while (!possivel(ajustes, ajuste)) ++ajuste;
  return ajuste;
}

bool e07Nua(std::string_view texto) { return texto.size() == 18 && soBrancos(texto); }

// A placeholder is known by what it holds. E13 has one more, of the non-fiscal sums.
bool temConteudoDeVazio(const Forma& forma, std::string_view texto) {
  if (forma.registro->vazio == Vazio::Nunca || forma.indice == kIndiceE11) return false;
  if (texto.size() != static_cast<std::size_t>(forma.comprimento)) return false;
  const std::string_view conteudo = texto.substr(static_cast<std::size_t>(forma.inicioVazio));
  return conteudo == forma.vazio || (forma.indice == kIndiceE13 && conteudo == "000000OPNF   0000000000000");
}

void usa(RegistroLido& lido, const Forma& forma, bool medidaCerta) {
  lido.campos = forma.campos.data();
  lido.quantos = forma.campos.size();
  lido.comprimento = forma.comprimento;
  lido.medidaCerta = medidaCerta;
}

bool cabe(RegistroLido& lido, const Forma& forma) {
  if (lido.linha.tamanho != static_cast<std::uint64_t>(forma.comprimento)) return false;
  usa(lido, forma, true);
  lido.vazio = temConteudoDeVazio(forma, lido.linha.texto);
  return true;
}

// How often the groups of E01 stand on it.
struct GruposDoE01 {
  int ecfs = 1, versoes = 1, usuarios = 1;

  int comprimento() const { return 81 + 47 * ecfs + (versoes == 0 ? 14 : 24 * versoes) + 14 * usuarios; }
  int estranheza() const { return std::abs(ecfs - 1) + std::abs(versoes - 1) + std::abs(usuarios - 1); }
};

// The least strange line of the length given; false when there is none.
bool gruposDoE01(int comprimento, GruposDoE01& melhor) {
  bool achou = false;
  for (int ecfs = 0; ecfs <= 9; ++ecfs)
    for (int versoes = 0; versoes <= 2; ++versoes)
      for (int usuarios = 1; usuarios <= 99; ++usuarios) {
        const GruposDoE01 grupos{ecfs, versoes, usuarios};
        if (grupos.comprimento() != comprimento || (achou && grupos.estranheza() >= melhor.estranheza()))
          continue;
        melhor = grupos;
        achou = true;
      }
  return achou;
}

}  // namespace

LeitorDeRegistros::LeitorDeRegistros(LeitorDeLinhas& linhas) : linhas_(linhas) {}

const AjusteDoLeiaute& LeitorDeRegistros::ajuste() const { return kAjustesPossiveis[primeiro(ajustes_)]; }

std::size_t RegistroLido::acha(std::string_view rotulo) const {
  std::size_t i = 0;
  while (i < quantos && campos[i].campo->rotulo != rotulo) ++i;
  return i;
}

std::string_view RegistroLido::bytesDe(std::string_view rotulo) const {
  const std::size_t i = acha(rotulo);
  return i < quantos ? bytes(i) : std::string_view();
}

bool LeitorDeRegistros::proximo(RegistroLido& lido) {
  LinhaLida linha;
  if (!linhas_.proxima(linha)) return false;
  le(linha, lido);
  return true;
}

void LeitorDeRegistros::le(const LinhaLida& linha, RegistroLido& lido) {
  lido = RegistroLido{};
  lido.linha = linha;
  lido.indice = indiceDoRegistro(linha.texto.substr(0, 3));
  const bool nua = lido.indice < 0 && e07Nua(linha.texto);
  if (nua) lido.indice = kIndiceE07;
  if (lido.indice < 0) return;
  lido.registro = kCatalogo[static_cast<std::size_t>(lido.indice)];
  if (nua) {
    usa(lido, forma(kIndiceE07, primeiro(ajustes_), true), true);
    lido.vazio = true;
  } else if (lido.indice == kIndiceE01) {
    leE01(lido);
  } else if (lido.indice == kIndiceE05 || lido.indice == kIndiceE06 || lido.indice == kIndiceE08) {
    leCrescente(lido);
  } else {
    leRegular(lido);
  }
}

// Leaves the possible settings alone where none would remain: what contradicts them is a finding elsewhere.
void LeitorDeRegistros::restringe(unsigned ajustes) {
  if ((ajustes_ & ajustes) == ajustes_ || (ajustes_ & ajustes) == 0) return;
  ajustes_ &= ajustes;
  ultimas_.fill(nullptr);
}

void LeitorDeRegistros::leRegular(RegistroLido& lido) {
  const Forma*& ultima = ultimas_[static_cast<std::size_t>(lido.indice)];
  if (ultima != nullptr && cabe(lido, *ultima) && !lido.vazio) return;

  unsigned cabem = 0;
  const Forma* achada = nullptr;
  const Forma* deslocada = nullptr;
  for (int ajuste = kAjustes - 1; ajuste >= 0; --ajuste) {
    if (!possivel(ajustes_, ajuste)) continue;
    for (const bool vazio : {true, false}) {
      if (vazio && lido.indice == kIndiceE07) continue;  // it has no code
      const Forma& tentada = forma(lido.indice, ajuste, vazio);
      const auto sobra = static_cast<std::int64_t>(lido.linha.tamanho) - tentada.comprimento;
      if (sobra > 0 && sobra <= kMaisDigitos && tentada.deslocavel >= 0 && !vazio) deslocada = &tentada;
      if (sobra != 0) continue;
      achada = &tentada;
      cabem |= 1U << ajuste;
    }
  }
  if (achada == nullptr) {
    if (deslocada != nullptr) return desloca(lido, *deslocada);
    return usa(lido, forma(lido.indice, primeiro(ajustes_), false), false);
  }
  cabe(lido, *achada);
  restringe(cabem);
  if (lido.vazio && lido.registro->vazio == Vazio::ForaDoCat52 &&
      lido.linha.texto.find("OPNF") == std::string_view::npos)
    restringe(kForaDoCat52);
  ultimas_[static_cast<std::size_t>(lido.indice)] = achada;
}

void LeitorDeRegistros::desloca(RegistroLido& lido, const Forma& forma) {
  const auto sobra = static_cast<int>(lido.linha.tamanho) - forma.comprimento;
  rascunho_ = forma.campos;
  const auto largo = static_cast<std::size_t>(forma.deslocavel);
  rascunho_[largo].largura += sobra;
  for (std::size_t i = largo + 1; i < rascunho_.size(); ++i) rascunho_[i].posicao += sobra;
  lido.campos = rascunho_.data();
  lido.quantos = rascunho_.size();
  lido.comprimento = forma.comprimento + sobra;
  lido.medidaCerta = true;
}

void LeitorDeRegistros::acrescenta(const Registro& registro, std::size_t primeiro, std::size_t quantos) {
  for (std::size_t i = primeiro; i < primeiro + quantos; ++i) {
    const int largura = registro.campos[i].largura;
    rascunho_.push_back({&registro.campos[i], static_cast<int>(i) + 1, cursor_, largura});
    cursor_ += largura;
  }
}

void LeitorDeRegistros::leE01(RegistroLido& lido) {
  GruposDoE01 grupos;
  lido.medidaCerta = lido.linha.tamanho <= LeitorDeLinhas::kBloco &&
                     gruposDoE01(static_cast<int>(lido.linha.tamanho), grupos);
  usuarios_ = static_cast<std::size_t>(grupos.usuarios);
  rascunho_.clear();
  cursor_ = 0;
  acrescenta(kE01, 0, 3);
  for (int i = 0; i < grupos.ecfs; ++i) acrescenta(kE01, 3, 3);
  for (int i = 0; i < grupos.versoes; ++i) acrescenta(kE01, 6, 3);
  if (grupos.versoes == 0) acrescenta(kE01, 7, 2);
  acrescenta(kE01, 9, 1);
  for (int i = 0; i < grupos.usuarios; ++i) acrescenta(kE01, 10, 1);
  acrescenta(kE01, 11, 7);
  lido.campos = rascunho_.data();
  lido.quantos = rascunho_.size();
  lido.comprimento = cursor_;
  const std::string_view leiaute = lido.bytes(lido.quantos - 1);
  if (leiaute == "AC1704 01.00.00") restringe(1 | 2);
  if (leiaute == "AC1704 02.00.00") restringe(4 | 8 | 16 | 32);
}

// E05, E06 and E08: one CNPJ for each user; in E05 and E06 each line also repeats the recordings before its
// own, of E05 without their codings.
void LeitorDeRegistros::leCrescente(RegistroLido& lido) {
  const Registro& registro = *lido.registro;
  int& ordem = ordens_[static_cast<std::size_t>(lido.indice)];
  ordem = std::min(ordem + 1, kMaximoDeGravacoes);
  rascunho_.clear();
  cursor_ = 0;
  acrescenta(registro, 0, kCabecalho);
  for (std::size_t i = 0; i < usuarios_; ++i) acrescenta(registro, kCabecalho, 1);
  const auto gravacao = static_cast<std::size_t>(cursor_);
  if (lido.indice == kIndiceE08) {
    acrescenta(registro, 5, 1);
  } else {
    const std::size_t repetidos = lido.indice == kIndiceE05 ? 2 : 3;
    int antes = ordem - 1;
    for (; antes > 0 && cursor_ <= static_cast<int>(lido.linha.texto.size()); --antes)
      acrescenta(registro, 5, repetidos);
    cursor_ += antes * comprimento(registro.campos.trecho(5, repetidos), 1, false);
    acrescenta(registro, 5, 3);
  }
  lido.campos = rascunho_.data();
  lido.quantos = rascunho_.size();
  lido.comprimento = cursor_;
  lido.medidaCerta = lido.linha.tamanho == static_cast<std::uint64_t>(cursor_);
  lido.vazio = lido.indice != kIndiceE08 && lido.medidaCerta && ordem == 1 &&
               soBrancos(lido.linha.texto.substr(gravacao));
}

}  // namespace cotepe
