#include "Leitor/ChaveNatural.h"

#include <algorithm>

#include "Achados/Citacao.h"
#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

constexpr char kEntre = '\x1f';

bool temChave(const RegistroLido& lido) { return lido.registro != nullptr && lido.registro->chave[0] >= 0; }

// Visits each field of the key and its value on the line; every line of the register has them.
template <class Recebe>
void percorre(const RegistroLido& lido, const Recebe& recebe) {
  for (const std::int8_t lugar : lido.registro->chave) {
    if (lugar < 0) continue;
    const Campo& campo = lido.registro->campos[static_cast<std::size_t>(lugar)];
    const std::size_t i = lido.acha(campo.rotulo);
    recebe(campo, semEnchimento(campo.especie, lido.bytes(i)));
  }
}

}  // namespace

std::string_view semEnchimento(Especie especie, std::string_view bytes) noexcept {
  if (!numerica(especie)) return semBrancosNoFim(bytes);
  if (bytes.empty() || !soDigitos(bytes)) return bytes;
  return bytes.substr(std::min(bytes.find_first_not_of('0'), bytes.size() - 1));
}

std::string chaveDe(const RegistroLido& lido, long ordem) {
  if (!temChave(lido)) return std::to_string(ordem);
  std::string chave;
  percorre(lido, [&](const Campo& /*campo*/, std::string_view valor) { (chave += valor) += kEntre; });
  return chave;
}

std::string chaveParaPessoas(const RegistroLido& lido, long ordem) {
  if (!temChave(lido)) return ordem == 1 ? std::string() : frase("number {1}", {std::to_string(ordem)});
  std::string texto;
  percorre(lido, [&](const Campo& campo, std::string_view valor) {
    texto += (texto.empty() ? "" : ", ") + std::string(campo.rotulo) + ' ' + mostravel(valor);
  });
  return texto;
}

}  // namespace cotepe
