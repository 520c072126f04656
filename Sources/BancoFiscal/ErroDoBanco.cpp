#include "BancoFiscal/ErroDoBanco.h"

#include <utility>

#include "Idioma/Idioma.h"

namespace cotepe {

ErroDoBanco::ErroDoBanco(Partes partes) {
  auto texto = frase("{1}: {2}: found {3}, expected {4}; {5}",
                     {partes.oQue, partes.onde, partes.encontrado, partes.esperado, partes.oQueFazer});
  conteudo_ = std::make_shared<const Conteudo>(Conteudo{std::move(partes), std::move(texto)});
}

}  // namespace cotepe
