#include "Adulterado.h"

#include <algorithm>
#include <array>

#include "Leiaute/Chave.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

Adulterado::Adulterado(const std::string& relatorio) {
  LeitorDeLinhas linhas{std::string_view(relatorio)};
  LeitorDeRegistros registros(linhas);
  for (RegistroLido lido; registros.proximo(lido);) {
    auto campos = std::make_shared<std::vector<Lugar>>();
    for (std::size_t i = 0; i < lido.quantos; ++i)
      campos->push_back({chaveDe(*lido.campos[i].campo), static_cast<std::size_t>(lido.campos[i].posicao),
                         static_cast<std::size_t>(lido.campos[i].largura)});
    linhas_.push_back({std::string(lido.linha.texto), std::move(campos), false});
  }
}

std::vector<std::size_t> Adulterado::de(const std::string& registro) const {
  std::vector<std::size_t> achadas;
  for (std::size_t i = 0; i < linhas_.size(); ++i)
    if (this->registro(i) == registro) achadas.push_back(i);
  return achadas;
}

const Adulterado::Lugar* Adulterado::lugar(std::size_t linha, const std::string& chave) const {
  if (linhas_[linha].campos == nullptr) return nullptr;
  for (const Lugar& lugar : *linhas_[linha].campos)
    if (lugar.chave == chave) return &lugar;
  return nullptr;
}

std::string Adulterado::campo(std::size_t linha, const std::string& chave) const {
  const Lugar* l = lugar(linha, chave);
  return l == nullptr ? "" : linhas_[linha].texto.substr(l->posicao, l->largura);
}

std::int64_t Adulterado::numero(std::size_t linha, const std::string& chave) const {
  const std::string bytes = campo(linha, chave);
  return bytes.empty() ? 0 : std::stoll(bytes);
}

bool Adulterado::poe(std::size_t linha, const std::string& chave, const std::string& bytes) {
  const Lugar* l = lugar(linha, chave);
  if (l == nullptr || bytes.size() > l->largura) return false;
  const std::string cheio = bytes + std::string(l->largura - bytes.size(), ' ');
  if (campo(linha, chave) == cheio) return false;
  culpaParentes(linha);
  linhas_[linha].texto.replace(l->posicao, l->largura, cheio);
  culpaParentes(linha);
  return true;
}

bool Adulterado::pode(std::size_t linha, const std::string& chave, std::int64_t parcela) const {
  const Lugar* l = lugar(linha, chave);
  return l != nullptr && numero(linha, chave) + parcela >= 0 &&
         std::to_string(numero(linha, chave) + parcela).size() <= l->largura;
}

bool Adulterado::soma(std::size_t linha, const std::string& chave, std::int64_t parcela) {
  if (!pode(linha, chave, parcela)) return false;
  const std::string digitos = std::to_string(numero(linha, chave) + parcela);
  return poe(linha, chave, std::string(lugar(linha, chave)->largura - digitos.size(), '0') + digitos);
}

// The lines that no longer agree with it: of the same document, of its reduction or restart, E11 over all of
// them, and E01 over the software's versions.
void Adulterado::culpaParentes(std::size_t linha) {
  static constexpr std::array<const char*, 3> kChaves = {"coo", "crz", "cro"};
  const std::string codigo = registro(linha);
  culpa(linha);
  if (codigo < "E07") return;
  for (const char* chave : kChaves) culpaIguais(chave, campo(linha, chave));
  if (codigo >= "E14") culpaIguais("crz", reducaoDe(campo(linha, "coo")));
  for (const std::size_t i : de(codigo == "E07" ? "E01" : "E11")) culpa(i);
}

void Adulterado::culpaIguais(const std::string& chave, const std::string& valor) {
  if (valor.empty() || valor.find_first_not_of('0') == std::string::npos) return;
  for (std::size_t i = 0; i < linhas_.size(); ++i)
    if (campo(i, chave) == valor) culpa(i);
}

// The CRZ of the reduction that a document belongs to.
std::string Adulterado::reducaoDe(const std::string& coo) const {
  for (const std::size_t i : de("E12"))
    if (campo(i, "coo") >= coo) return campo(i, "crz");
  return "";
}

void Adulterado::trocaTexto(std::size_t linha, const std::string& texto) {
  linhas_[linha].texto = texto;
  culpa(linha);
}

void Adulterado::culpaEmVolta(std::size_t linha) {
  if (linha > 0) culpa(linha - 1);
  if (linha < linhas_.size()) culpa(linha);
}

void Adulterado::remove(std::size_t linha) {
  culpaParentes(linha);
  registrosCulpados_.push_back(registro(linha));
  linhas_.erase(linhas_.begin() + static_cast<std::ptrdiff_t>(linha));
  culpaEmVolta(linha);
}

void Adulterado::removeRegistro(const std::string& registro) {
  for (std::size_t i = linhas_.size(); i-- > 0;)
    if (this->registro(i) == registro) remove(i);
}

void Adulterado::insere(std::size_t antesDa, const std::string& texto) {
  linhas_.insert(linhas_.begin() + static_cast<std::ptrdiff_t>(antesDa), {texto, nullptr, true});
}

void Adulterado::permuta(std::size_t uma, std::size_t outra) {
  std::swap(linhas_[uma], linhas_[outra]);
  culpa(uma);
  culpa(outra);
}

bool Adulterado::certo(long linha, const std::string& registro) const {
  if (linha > 0)
    return static_cast<std::size_t>(linha) <= linhas_.size() &&
           linhas_[static_cast<std::size_t>(linha) - 1].culpada;
  return std::find(registrosCulpados_.begin(), registrosCulpados_.end(), registro) !=
         registrosCulpados_.end();
}

std::string Adulterado::relatorio() const {
  std::string tudo;
  for (const LinhaAdulterada& linha : linhas_) tudo += linha.texto + '\n';
  return tudo;
}

std::size_t escolhe(const std::vector<std::size_t>& lugares, int vez) {
  return lugares[vez == 0 ? 0 : vez == 1 ? lugares.size() / 2 : lugares.size() - 1];
}

}  // namespace cotepe
