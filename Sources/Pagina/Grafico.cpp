#include "Pagina/Grafico.h"

#include <algorithm>

#include "Pagina/Html.h"

namespace cotepe::pagina {
namespace {

constexpr std::int64_t kAltura = 180, kLarguraTotal = 960, kMargem = 24, kPasso = 26, kTextoDaBarra = 300;

std::int64_t maiorDe(const std::vector<Barra>& barras, std::int64_t maior) {
  for (const Barra& barra : barras) maior = std::max(maior, barra.centavos);
  return std::max<std::int64_t>(maior, 1);
}

// Tenths of a unit as SVG reads them.
std::string decimos(std::int64_t valor) {
  return std::to_string(valor / 10) + (valor % 10 != 0 ? '.' + std::to_string(valor % 10) : "");
}

// `tamanho` tenths in proportion; anything above zero stays visible.
std::int64_t proporcao(std::int64_t valor, std::int64_t maior, std::int64_t tamanho) {
  if (valor <= 0) return 0;
  return std::max<std::int64_t>(
      10, static_cast<std::int64_t>(static_cast<double>(valor) / static_cast<double>(maior) *
                                    static_cast<double>(tamanho)));
}

void poeRetangulo(std::string& svg, const Barra& barra, std::int64_t x, std::int64_t y, std::int64_t largura,
                  std::int64_t altura) {
  if (!barra.alvo.empty()) svg += "<a href=\"" + texto(barra.alvo) + "\">";
  svg += "<rect class=\"barra\" x=\"" + decimos(x) + "\" y=\"" + decimos(y) + "\" width=\"" +
         decimos(largura) + "\" height=\"" + decimos(altura) + "\" data-centavos=\"" +
         std::to_string(barra.centavos) + "\"><title>" + texto(barra.nome) + ": " + reaisDe(barra.centavos) +
         "</title></rect>";
  if (!barra.alvo.empty()) svg += "</a>";
}

std::string abertura(const std::string& titulo, std::int64_t largura, std::int64_t altura) {
  return "<svg class=\"grafico\" role=\"img\" aria-label=\"" + texto(titulo) + "\" viewBox=\"0 0 " +
         std::to_string(largura) + ' ' + std::to_string(altura) + "\">";
}

}  // namespace

std::string graficoNoTempo(const std::string& titulo, const std::vector<Barra>& barras, std::int64_t maximo) {
  if (barras.empty()) return {};
  const std::int64_t maior = maiorDe(barras, maximo);
  const auto quantas = static_cast<std::int64_t>(barras.size());
  const std::int64_t passo = std::min<std::int64_t>(10 * kLarguraTotal / quantas, 600);
  std::string svg = abertura(titulo, kLarguraTotal, kAltura + 2 * kMargem);
  svg += "<text class=\"eixo\" x=\"0\" y=\"14\">" + reaisDe(maior) + "</text><path class=\"eixo\" d=\"M0 " +
         std::to_string(kMargem) + "H" + std::to_string(kLarguraTotal) + "M0 " +
         std::to_string(kMargem + kAltura) + "H" + std::to_string(kLarguraTotal) + "\"/>";
  for (std::int64_t i = 0; i < quantas; ++i) {
    const Barra& barra = barras[static_cast<std::size_t>(i)];
    const std::int64_t altura = proporcao(barra.centavos, maior, 10 * kAltura);
    poeRetangulo(svg, barra, i * passo + passo / 10, 10 * (kMargem + kAltura) - altura,
                 std::max<std::int64_t>(passo - passo / 5, 1), altura);
  }
  const std::int64_t fim = std::max<std::int64_t>(quantas * passo / 10, 200);
  svg += "<text class=\"eixo\" x=\"0\" y=\"" + std::to_string(kAltura + 2 * kMargem - 6) + "\">" +
         texto(barras.front().nome) + "</text>";
  if (quantas > 1)
    svg += "<text class=\"eixo fim\" x=\"" + std::to_string(fim) + "\" y=\"" +
           std::to_string(kAltura + 2 * kMargem - 6) + "\">" + texto(barras.back().nome) + "</text>";
  return svg + "</svg>";
}

std::string graficoDeitado(const std::string& titulo, const std::vector<Barra>& barras) {
  if (barras.empty()) return {};
  const std::int64_t maior = maiorDe(barras, 0), largura = 640;
  std::string svg = abertura(titulo, largura, kPasso * static_cast<std::int64_t>(barras.size()));
  std::int64_t y = 0;
  for (const Barra& barra : barras) {
    svg += "<text class=\"nome\" x=\"150\" y=\"" + std::to_string(y + 18) + "\">" + texto(barra.nome) +
           "</text>";
    const std::int64_t comprimento = proporcao(barra.centavos, maior, 10 * (largura - kTextoDaBarra));
    poeRetangulo(svg, barra, 1600, 10 * y + 40, comprimento, 180);
    svg += "<text class=\"valor\" x=\"" + decimos(1600 + comprimento + 80) + "\" y=\"" +
           std::to_string(y + 18) + "\">" + reaisDe(barra.centavos) + "</text>";
    y += kPasso;
  }
  return svg + "</svg>";
}

}  // namespace cotepe::pagina
