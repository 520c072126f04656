#include "Achados/Regra.h"

#include <algorithm>

#include "Idioma/Idioma.h"

namespace cotepe {

const Regra* Regras::acha(std::string_view nome) const {
  const auto* const achada =
      std::find_if(begin(), end(), [&](const Regra* regra) { return nome == regra->nome; });
  return achada == end() ? nullptr : *achada;
}

bool Supressoes::ligada(const Regra& regra) const {
  return std::find(desligadas_.begin(), desligadas_.end(), &regra) == desligadas_.end();
}

Achado achadoDe(const Regra& regra, const std::string& arquivo) {
  Achado achado;
  achado.severidade = regra.severidade;
  achado.regra = regra.nome;
  achado.arquivo = arquivo;
  if (regra.conserto != nullptr) achado.conserto = traduz(regra.conserto);
  return achado;
}

}  // namespace cotepe
