#include "ErroDoBanco.h"

#include <utility>

namespace cotepe {

ErroDoBanco::ErroDoBanco(Partes partes) {
  auto texto = partes.oQue + ": " + partes.onde + ": found " + partes.encontrado + ", expected " +
               partes.esperado + "; " + partes.oQueFazer;
  conteudo_ = std::make_shared<const Conteudo>(Conteudo{std::move(partes), std::move(texto)});
}

}  // namespace cotepe
