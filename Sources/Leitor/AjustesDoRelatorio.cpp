#include "Leitor/AjustesDoRelatorio.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

using Presentes = std::array<bool, kCatalogo.size()>;

std::string valor(const RegistroLido& lido, const char* rotulo) {
  return std::string(semBrancosNoFim(lido.bytesDe(rotulo)));
}

void estende(AjustesDoRelatorio& ajustes, const std::string& data) {
  if (!dataPossivel(data)) return;
  if (ajustes.primeiro.empty() || data < ajustes.primeiro) ajustes.primeiro = data;
  if (ajustes.ultimo.empty() || data > ajustes.ultimo) ajustes.ultimo = data;
}

void leE01(AjustesDoRelatorio& ajustes, const RegistroLido& lido) {
  ajustes.comando = valor(lido, "Comando de geração");
  ajustes.comandoDoE01 = true;
  estende(ajustes, valor(lido, "Data inicial"));
  const std::string ultima = valor(lido, "Data final"), crz = valor(lido, "CRZ final");
  if (dataPossivel(ultima)) ajustes.ultimaEmissao = ultima;
  if (!crz.empty() && soDigitos(crz)) ajustes.ultimoCrz = crz;
}

// The first command that writes all the registers found, from the one of fewest registers on.
std::string comandoDe(const Presentes& presentes) {
  for (const char* comando : {"", "RZ", "MF", "MFD"}) {
    bool todos = true;
    for (std::size_t i = 0; i < presentes.size(); ++i)
      todos = todos && (!presentes[i] || kCatalogo[i]->despachado(comando, 2));
    if (todos) return comando;
  }
  return "TDM";
}

bool faltaVazio(const Presentes& presentes, const std::string& comando, int versao) {
  for (std::size_t i = 0; i < presentes.size(); ++i)
    if (!presentes[i] && kCatalogo[i]->vazio == Vazio::ForaDoCat52 &&
        kCatalogo[i]->despachado(comando.c_str(), versao))
      return true;
  return false;
}

// What a record of E22 leaves: it is written in layout 2 alone. Nothing where that contradicts the other
// lines.
void soVersao2(std::vector<AjusteDoLeiaute>& leiautes) {
  const auto outra = [](const AjusteDoLeiaute& a) { return a.versao != 2; };
  if (!std::all_of(leiautes.begin(), leiautes.end(), outra))
    leiautes.erase(std::remove_if(leiautes.begin(), leiautes.end(), outra), leiautes.end());
}

}  // namespace

AjustesDoRelatorio ajustesDe(LeitorDeLinhas& linhas) {
  AjustesDoRelatorio ajustes;
  Presentes presentes{};
  LeitorDeRegistros registros(linhas);
  for (RegistroLido lido; registros.proximo(lido);) {
    if (lido.registro == nullptr) continue;
    presentes[static_cast<std::size_t>(lido.indice)] = true;
    if (lido.registro == &kE01) leE01(ajustes, lido);
    if (lido.registro == &kE10) estende(ajustes, valor(lido, "Data de emissão"));
    if (lido.registro == &kE12) estende(ajustes, valor(lido, "Data do movimento"));
  }
  if (!ajustes.comandoDoE01) ajustes.comando = comandoDe(presentes);
  for (std::size_t i = 0; i < std::size(kAjustesPossiveis); ++i)
    if ((registros.ajustes() >> i & 1) != 0) ajustes.leiautes.push_back(kAjustesPossiveis[i]);
  if (presentes[kCatalogo.size() - 1]) soVersao2(ajustes.leiautes);
  ajustes.faltaVazio = faltaVazio(presentes, ajustes.comando, ajustes.leiautes.front().versao);
  if (ajustes.faltaVazio)
    std::stable_partition(ajustes.leiautes.begin(), ajustes.leiautes.end(),
                          [](const AjusteDoLeiaute& a) { return a.cat52; });
  return ajustes;
}

}  // namespace cotepe
