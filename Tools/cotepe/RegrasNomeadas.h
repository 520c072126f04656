// What --rules and --disable are to every command whose rules have names.
#pragma once

#include <cstddef>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "Achados/Achado.h"
#include "Idioma/Idioma.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {

/// Prints the first `quantas` rules of an enumeration, a line each: the name in `largura` columns, how bad it
/// is, what must hold. Throws Falha where stdout fails.
template <class Regra>
void listaRegras(std::size_t quantas, int largura) {
  std::ostringstream lista;
  for (std::size_t i = 0; i < quantas; ++i) {
    const auto& regra = descricao(static_cast<Regra>(i));
    lista << std::left << std::setw(largura) << regra.nome << std::setw(9)
          << traduz(regra.severidade == Severidade::Erro ? marca("error") : marca("warning"))
          << traduz(regra.resumo) << '\n';
  }
  escreveNaSaidaPadrao(lista.str());
}

/// The set of the rules named. Throws Falha for a name that is none; `comando` is where it can be looked up.
template <class Regra, class Conjunto>
Conjunto regrasDesligadas(const std::vector<std::string>& nomes, const std::string& comando) {
  Conjunto desligadas;
  for (const std::string& nome : nomes) {
    Regra regra{};
    if (!regraDe(nome, regra))
      throw Falha(
          kUsoErrado,
          frase("wrong usage: --disable: found {1}, expected the name of a rule; see cotepe {2} --rules",
                {nome, comando}));
    desligadas.set(static_cast<std::size_t>(regra));
  }
  return desligadas;
}

}  // namespace cotepe::programa
