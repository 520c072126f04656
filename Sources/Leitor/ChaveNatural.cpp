#include "Leitor/ChaveNatural.h"

#include <algorithm>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Achados/Citacao.h"

namespace cotepe {
namespace {

constexpr char kEntre = '\x1f';

const std::array<const char*, 2>& camposDaChave(const RegistroLido& lido) {
  return kChavesNaturais[static_cast<std::size_t>(lido.indice)].campos;
}

// The value of the field with the label, which every line of the register has.
std::string_view valor(const RegistroLido& lido, const char* rotulo) {
  const std::size_t i = lido.acha(rotulo);
  return semEnchimento(lido.campos[i].campo->especie, lido.bytes(i));
}

}  // namespace

std::string_view semEnchimento(Especie especie, std::string_view bytes) noexcept {
  if (!numerica(especie)) return semBrancosNoFim(bytes);
  if (bytes.empty() || !soDigitos(bytes)) return bytes;
  return bytes.substr(std::min(bytes.find_first_not_of('0'), bytes.size() - 1));
}

std::string chaveDe(const RegistroLido& lido, long ordem) {
  if (lido.registro == nullptr || camposDaChave(lido)[0] == nullptr) return std::to_string(ordem);
  std::string chave;
  for (const char* rotulo : camposDaChave(lido)) {
    if (rotulo == nullptr) break;
    chave += valor(lido, rotulo);
    chave += kEntre;
  }
  return chave;
}

std::string chaveParaPessoas(const RegistroLido& lido, long ordem) {
  if (lido.registro == nullptr || camposDaChave(lido)[0] == nullptr)
    return ordem == 1 ? std::string() : frase("number {1}", {std::to_string(ordem)});
  std::string texto;
  for (const char* rotulo : camposDaChave(lido)) {
    if (rotulo == nullptr) break;
    texto += (texto.empty() ? "" : ", ") + std::string(rotulo) + ' ' + mostravel(valor(lido, rotulo));
  }
  return texto;
}

}  // namespace cotepe
