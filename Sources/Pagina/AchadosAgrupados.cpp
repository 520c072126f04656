#include "Pagina/AchadosAgrupados.h"

#include "Leitor/LeitorDeRegistros.h"
#include "Leitor/Valor.h"

namespace cotepe::pagina {
namespace {

bool deConsumidor(const Achado& achado) {
  const Registro* registro = registroDe(achado.registro.c_str());
  const auto numero = static_cast<std::size_t>(achado.numero);
  return registro != nullptr && numero >= 1 && numero <= registro->campos.size() &&
         registro->campos[numero - 1].dadoPessoal;
}

}  // namespace

void AchadosAgrupados::recebe(const Achado& achado) {
  Grupo& grupo = grupos_[achado.regra];
  grupo.severidade = achado.severidade;
  ++grupo.quantos;
  ++(achado.severidade == Severidade::Erro ? erros_ : avisos_);
  if (grupo.primeiros.size() >= kMostrados) return;
  if (grupo.conserto.empty()) grupo.conserto = achado.conserto;
  Achado guardado = achado;
  guardado.conteudo.clear();
  if (mascara_ && deConsumidor(achado)) guardado.encontrado = mascarado(achado.encontrado);
  grupo.primeiros.push_back(std::move(guardado));
}

}  // namespace cotepe::pagina
