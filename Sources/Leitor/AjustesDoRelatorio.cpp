#include "Leitor/AjustesDoRelatorio.h"

#include <algorithm>

#include "Leiaute/Releitura.h"
#include "Leitor/Coluna.h"

namespace cotepe {
namespace {

using Presentes = std::vector<bool>;

std::string valor(const RegistroLido& lido, const Coluna& coluna) {
  return std::string(semBrancosNoFim(coluna.bytes(lido)));
}

void estende(AjustesDoRelatorio& ajustes, const std::string& data) {
  if (!dataPossivel(data)) return;
  if (ajustes.primeiro.empty() || data < ajustes.primeiro) ajustes.primeiro = data;
  if (ajustes.ultimo.empty() || data > ajustes.ultimo) ajustes.ultimo = data;
}

void leE01(AjustesDoRelatorio& ajustes, const RegistroLido& lido) {
  static const Coluna comando(kE01, "Comando de geração"), inicial(kE01, "Data inicial"),
      final(kE01, "Data final"), crzFinal(kE01, "CRZ final");
  ajustes.comando = valor(lido, comando);
  ajustes.comandoDoE01 = true;
  estende(ajustes, valor(lido, inicial));
  const std::string ultima = valor(lido, final), crz = valor(lido, crzFinal);
  if (dataPossivel(ultima)) ajustes.ultimaEmissao = ultima;
  if (!crz.empty() && soDigitos(crz)) ajustes.ultimoCrz = crz;
}

// The first command that writes all the registers found, starting with the one with the fewest registers.
std::string comandoDe(const Catalogo& catalogo, const Presentes& presentes) {
  for (const char* comando : {"", "RZ", "MF", "MFD"}) {
    bool todos = true;
    for (std::size_t i = 0; i < presentes.size(); ++i)
      todos = todos && (!presentes[i] || catalogo[i]->despachado(comando, 2));
    if (todos) return comando;
  }
  return "TDM";
}

bool faltaVazio(const Catalogo& catalogo, const Presentes& presentes, const std::string& comando,
                int versao) {
  for (std::size_t i = 0; i < presentes.size(); ++i)
    if (!presentes[i] && catalogo[i]->vazio == Vazio::ForaDoCat52 &&
        catalogo[i]->despachado(comando.c_str(), versao))
      return true;
  return false;
}

// The settings left by a record that is written only in layout 2. None when that contradicts the other lines.
void soVersao2(std::vector<AjusteDoLeiaute>& leiautes) {
  const auto outra = [](const AjusteDoLeiaute& a) { return a.versao != 2; };
  if (!std::all_of(leiautes.begin(), leiautes.end(), outra))
    leiautes.erase(std::remove_if(leiautes.begin(), leiautes.end(), outra), leiautes.end());
}

}  // namespace

ColetaDeAjustes::ColetaDeAjustes(Catalogo catalogo) : catalogo_(catalogo), presentes_(catalogo.size()) {}

void ColetaDeAjustes::le(const RegistroLido& lido) {
  static const Coluna fita(kE10, "Data de emissão"), movimento(kE12, "Data do movimento");
  if (lido.registro == nullptr) return;
  presentes_[static_cast<std::size_t>(lido.indice)] = true;
  if (lido.registro == &kE01) leE01(lidos_, lido);
  if (lido.registro == &kE10) estende(lidos_, valor(lido, fita));
  if (lido.registro == &kE12) estende(lidos_, valor(lido, movimento));
}

AjustesDoRelatorio ColetaDeAjustes::ajustes(const LeitorDeRegistros& leitor) const {
  AjustesDoRelatorio ajustes = lidos_;
  if (!ajustes.comandoDoE01) ajustes.comando = comandoDe(catalogo_, presentes_);
  for (std::size_t i = 0; i < kAjustesPossiveis.size(); ++i)
    if ((leitor.ajustes() >> i & 1) != 0) ajustes.leiautes.push_back(kAjustesPossiveis[i]);
  for (std::size_t i = 0; i < catalogo_.size(); ++i)
    if (presentes_[i] && catalogo_[i]->soNaVersao2) soVersao2(ajustes.leiautes);
  ajustes.faltaVazio = faltaVazio(catalogo_, presentes_, ajustes.comando, ajustes.leiautes.front().versao);
  if (ajustes.faltaVazio)
    std::stable_partition(ajustes.leiautes.begin(), ajustes.leiautes.end(),
                          [](const AjusteDoLeiaute& a) { return a.cat52; });
  return ajustes;
}

AjustesDoRelatorio ajustesDe(LeitorDeLinhas& linhas, Catalogo catalogo) {
  ColetaDeAjustes coleta(catalogo);
  LeitorDeRegistros registros(linhas, catalogo);
  for (RegistroLido lido; registros.proximo(lido);) coleta.le(lido);
  return coleta.ajustes(registros);
}

}  // namespace cotepe
