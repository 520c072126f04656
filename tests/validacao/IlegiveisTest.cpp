// Every field of a good report spoiled in turn, and every line cut: what is told, and what is not concluded
// from it.
#include <gtest/gtest.h>

#include "Leiaute/Releitura.h"
#include "Relatorio.h"

namespace cotepe {
namespace {

using Achados = std::vector<std::string>;

/// A field of a line of a report.
struct Lugar {
  int linha, posicao, largura;  // the position from 1
  Especie especie;
  bool constante;
};

std::vector<Lugar> lugares(const Relatorio& relatorio) {
  const std::string texto = relatorio.texto();
  LeitorDeLinhas linhas{std::string_view(texto)};
  LeitorDeRegistros registros(linhas);
  std::vector<Lugar> todos;
  for (RegistroLido lido; registros.proximo(lido);)
    for (std::size_t i = 0; i < lido.quantos; ++i) {
      const CampoLido& campo = lido.campos[i];
      const bool constante = campo.campo->origem.tipo == Origem::Tipo::Constante ||
                             campo.campo->origem.tipo == Origem::Tipo::Nenhuma;
      todos.push_back({static_cast<int>(lido.linha.numero), campo.posicao + 1, campo.largura,
                       campo.campo->especie, constante});
    }
  return todos;
}

// Whether a finding is one that comes of adding or multiplying amounts.
bool deConta(const std::string& achado) {
  for (const char* regra :
       {"item-total", "coupon-items", "coupon-payments", "nonfiscal-items", "nonfiscal-payments",
        "payments-over", "reduction-totals", "reduction-nonfiscal", "grand-total"})
    if (achado.find(' ' + std::string(regra) + ' ') != std::string::npos) return true;
  return false;
}

std::string escrito(const Lugar& lugar) {
  return "r.txt:" + std::to_string(lugar.linha) + ':' + std::to_string(lugar.posicao) + '-' +
         std::to_string(lugar.posicao + lugar.largura - 1) + ": error ";
}

TEST(Ilegiveis, EachNumberIsToldAtItsPlaceAndNoSumIsBlamed) {
  for (const int leiaute : {1, 2})
    for (const Lugar& lugar : lugares(Relatorio::bom(leiaute))) {
      if (!numerica(lugar.especie)) continue;
      Relatorio relatorio = Relatorio::bom(leiaute);
      relatorio.poe(lugar.linha, lugar.posicao + lugar.largura - 1, "-");
      const char* regra = lugar.constante      ? "field-constant "
                          : lugar.largura == 1 ? "field-letter "
                                               : "field-digits ";
      const std::string inicio = escrito(lugar) + regra;
      int ditos = 0, contas = 0;
      for (const std::string& achado : achados(relatorio.texto())) {
        ditos += achado.rfind(inicio, 0) == 0 ? 1 : 0;
        contas += deConta(achado) ? 1 : 0;
      }
      EXPECT_EQ(ditos, 1) << inicio;
      EXPECT_EQ(contas, 0) << inicio;
    }
}

TEST(Ilegiveis, EachDateAndHourIsToldAtItsPlace) {
  for (const int leiaute : {1, 2})
    for (const Lugar& lugar : lugares(Relatorio::bom(leiaute))) {
      if (!deData(lugar.especie) && !deHora(lugar.especie)) continue;
      Relatorio relatorio = Relatorio::bom(leiaute);
      relatorio.poe(lugar.linha, lugar.posicao, "x");
      const std::string inicio = escrito(lugar) + (deData(lugar.especie) ? "field-date " : "field-hour ");
      int ditos = 0;
      for (const std::string& achado : achados(relatorio.texto()))
        ditos += achado.rfind(inicio, 0) == 0 ? 1 : 0;
      EXPECT_EQ(ditos, 1) << inicio;
    }
}

TEST(Ilegiveis, EachDateThatMustBeThereIsToldWhereItIsBlank) {
  for (const Lugar& lugar : lugares(Relatorio::bom())) {
    Relatorio relatorio = Relatorio::bom();
    const std::string registro = relatorio[lugar.linha].substr(0, 3);
    if ((!deData(lugar.especie) && !deHora(lugar.especie)) ||
        (registro != "E10" && registro != "E14" && registro != "E16"))
      continue;
    relatorio.poe(lugar.linha, lugar.posicao, std::string(static_cast<std::size_t>(lugar.largura), ' '));
    const std::string inicio = escrito(lugar) + (deData(lugar.especie) ? "field-date " : "field-hour ");
    int ditos = 0;
    for (const std::string& achado : achados(relatorio.texto()))
      ditos += achado.rfind(inicio, 0) == 0 ? 1 : 0;
    EXPECT_EQ(ditos, 1) << inicio;
  }
}

// A first line as long as one of another layout or mode may be taken for it: then the other lines are told.
TEST(Ilegiveis, ALineThatIsCutIsToldAndNoSumIsBlamed) {
  for (const int leiaute : {1, 2})
    for (const Lugar& lugar : lugares(Relatorio::bom(leiaute))) {
      if (lugar.posicao == 1) continue;
      Relatorio relatorio = Relatorio::bom(leiaute);
      relatorio[lugar.linha].resize(static_cast<std::size_t>(lugar.posicao - 1));
      const Achados todos = achados(relatorio.texto());
      EXPECT_FALSE(todos.empty()) << lugar.linha << " cut before byte " << lugar.posicao;
      for (const std::string& achado : todos)
        EXPECT_FALSE(deConta(achado)) << achado << " cut before byte " << lugar.posicao;
    }
}

}  // namespace
}  // namespace cotepe
