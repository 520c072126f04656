#include "Achados/Trecho.h"

#include <algorithm>
#include <cstddef>

#include "Achados/Citacao.h"

namespace cotepe {
namespace {

constexpr std::string_view kReticencias = "...";

}  // namespace

Trecho trechoDaLinha(std::string_view linha, int de, int ate, std::size_t colunas) {
  const std::size_t primeiro = de > 0 ? std::min(static_cast<std::size_t>(de) - 1, linha.size()) : 0;
  const bool cabe = linha.size() <= colunas;
  const std::size_t largura = cabe ? linha.size() : colunas - 2 * kReticencias.size();
  std::size_t inicio = 0;
  if (!cabe && primeiro > largura / 2)
    inicio = std::min(primeiro - largura / 2, linha.size() - std::min(linha.size(), largura / 2));
  const std::string_view visto = linha.substr(inicio, largura);

  Trecho trecho;
  const std::string_view antes = inicio > 0 ? kReticencias : "";
  trecho.linha = std::string(antes) + mostravel(visto);
  if (inicio + visto.size() < linha.size()) trecho.linha += kReticencias;
  if (de <= 0) return trecho;
  const std::size_t recuo = antes.size() + (primeiro - inicio);
  const auto pedidos = static_cast<std::size_t>(std::max(1, ate - de + 1));
  const std::size_t cabem = inicio + visto.size() > primeiro ? inicio + visto.size() - primeiro : 1;
  trecho.marca = std::string(recuo, ' ') + '^' + std::string(std::min(pedidos, cabem) - 1, '~');
  return trecho;
}

}  // namespace cotepe
