#include "Validacao/Familia.h"

#include <utility>

#include "Idioma/Idioma.h"
#include "Leitor/Valor.h"

namespace cotepe {
namespace {

constexpr std::size_t kConteudoMostrado = 4096;  // of a line, in a finding

}  // namespace

LugarDoCampo lugarDoCampo(const RegistroLido& lido, std::size_t campo) {
  const CampoLido& lugar = lido.campos[campo];
  return {lugar.numero - 1, lugar.posicao + 1, lugar.posicao + lugar.largura};
}

Relator::Relator(RecebeAchados& recebe, std::string arquivo, Supressoes desligadas)
    : recebe_(recebe), arquivo_(std::move(arquivo)), desligadas_(std::move(desligadas)) {}

Achado Relator::novo(const Regra& regra, std::string encontrado, std::string esperado) const {
  Achado achado = achadoDe(regra, arquivo_);
  achado.encontrado = std::move(encontrado);
  achado.esperado = std::move(esperado);
  return achado;
}

// Even a rule that is switched off has found something.
bool Relator::fala(const Regra& regra) {
  if (!ligada(regra)) ++achados_;
  return ligada(regra);
}

void Relator::entrega(const Achado& achado) {
  if (retidos_ != nullptr) return retidos_->push_back(achado);
  ++achados_;
  recebe_.recebe(achado);
}

void Relator::noCampo(const Regra& regra, const RegistroLido& lido, std::size_t campo, std::string encontrado,
                      std::string esperado) {
  if (!fala(regra)) return;
  Achado achado = novo(regra, std::move(encontrado), std::move(esperado));
  const CampoLido& lugar = lido.campos[campo];
  achado.linha = lido.linha.numero;
  achado.de = lugar.posicao + 1;
  achado.ate = lugar.posicao + lugar.largura;
  achado.conteudo = lido.linha.texto.substr(0, kConteudoMostrado);
  achado.registro = lido.registro->codigo;
  achado.campo = lugar.campo->rotulo;
  achado.numero = lugar.numero;
  entrega(achado);
}

void Relator::naLinha(const Regra& regra, const RegistroLido& lido, std::string encontrado,
                      std::string esperado) {
  if (!fala(regra)) return;
  Achado achado = novo(regra, std::move(encontrado), std::move(esperado));
  achado.linha = lido.linha.numero;
  achado.conteudo = lido.linha.texto.substr(0, kConteudoMostrado);
  if (lido.registro != nullptr) achado.registro = lido.registro->codigo;
  entrega(achado);
}

void Relator::naLinhaLida(const Regra& regra, long linha, const Registro& registro, const LugarDoCampo& lugar,
                          std::string encontrado, std::string esperado) {
  if (!fala(regra)) return;
  Achado achado = novo(regra, std::move(encontrado), std::move(esperado));
  achado.linha = linha;
  achado.registro = registro.codigo;
  if (lugar.campo >= 0) {
    achado.campo = registro.campos[static_cast<std::size_t>(lugar.campo)].rotulo;
    achado.numero = lugar.campo + 1;
    achado.de = linha > 0 ? lugar.de : 0;
    achado.ate = linha > 0 ? lugar.ate : 0;
  }
  entrega(achado);
}

void Relator::noArquivo(const Regra& regra, const Registro* registro, std::string encontrado,
                        std::string esperado) {
  if (!fala(regra)) return;
  Achado achado = novo(regra, std::move(encontrado), std::move(esperado));
  if (registro != nullptr) achado.registro = registro->codigo;
  entrega(achado);
}

std::string reais(std::int64_t centavos) {
  const std::uint64_t modulo =
      centavos < 0 ? 0 - static_cast<std::uint64_t>(centavos) : static_cast<std::uint64_t>(centavos);
  const std::string fracao = std::to_string(100 + modulo % 100).substr(1);
  return (centavos < 0 ? "-" : "") + comMilhares(std::to_string(modulo / 100) + '.' + fracao);
}

std::string contadorEscrito(std::int64_t valor, int largura) {
  const std::string digitos = std::to_string(valor);
  const auto total = static_cast<std::size_t>(largura);
  return digitos.size() >= total ? digitos : std::string(total - digitos.size(), '0') + digitos;
}

}  // namespace cotepe
