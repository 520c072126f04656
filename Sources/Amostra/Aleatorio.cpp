#include "Amostra/Aleatorio.h"

namespace cotepe::loja {
namespace {

std::uint64_t gira(std::uint64_t valor, int bits) { return (valor << bits) | (valor >> (64 - bits)); }

std::uint64_t splitmix64(std::uint64_t& estado) {
  estado += 0x9E3779B97F4A7C15U;
  std::uint64_t z = estado;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  return z ^ (z >> 31);
}

}  // namespace

Aleatorio::Aleatorio(std::uint64_t semente) {
  for (auto& palavra : estado_) palavra = splitmix64(semente);
}

std::uint64_t Aleatorio::proximo() {
  const std::uint64_t resultado = gira(estado_[1] * 5, 7) * 9;
  const std::uint64_t deslocado = estado_[1] << 17;
  estado_[2] ^= estado_[0];
  estado_[3] ^= estado_[1];
  estado_[1] ^= estado_[2];
  estado_[0] ^= estado_[3];
  estado_[2] ^= deslocado;
  estado_[3] = gira(estado_[3], 45);
  return resultado;
}

int Aleatorio::entre(int minimo, int maximo) {
  const auto faixa = static_cast<std::uint64_t>(std::int64_t{maximo} - minimo + 1);
  const std::uint64_t sorteado = ((proximo() >> 32) * faixa) >> 32;
  return minimo + static_cast<int>(sorteado);
}

}  // namespace cotepe::loja
