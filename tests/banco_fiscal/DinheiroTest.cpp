// Money in the schema: what a reader gets as text is exact to the cent, and so are maxima and sums.
#include <algorithm>
#include <cstdint>
#include <random>

#include "ComEsquema.h"
#include "Consultas.h"
#include "Linhas.h"

namespace cotepe::testes {
namespace {

using Dinheiro = ComEsquema;

std::string comCentavos(std::int64_t centavos) {
  const auto resto = std::to_string(100 + centavos % 100).substr(1);
  return std::to_string(centavos / 100) + "." + resto;
}

// The cents of a decimal text, rounded half away from zero; -1 when it is not digits with at most one point.
std::int64_t centavosDo(const std::string& texto) {
  if (texto.empty() || texto.find_first_not_of("0123456789.") != std::string::npos) return -1;
  const auto ponto = std::min(texto.find('.'), texto.size());
  auto casas = ponto < texto.size() ? texto.substr(ponto + 1) : "";
  if (casas.find('.') != std::string::npos) return -1;
  casas.resize(std::max<std::size_t>(casas.size(), 3), '0');
  const auto inteiros = std::stoll(texto.substr(0, ponto));
  return inteiros * 100 + std::stoll(casas.substr(0, 2)) + (casas[2] >= '5' ? 1 : 0);
}

TEST(CentavosDoTexto, AreReadByTheTestItself) {
  EXPECT_EQ(centavosDo("12.3"), 1230);
  EXPECT_EQ(centavosDo("10"), 1000);
  EXPECT_EQ(centavosDo("0.0049"), 0);
  EXPECT_EQ(centavosDo("99999999999.9851"), 9999999999999);
  EXPECT_EQ(centavosDo("1.0e+15"), -1);
}

TEST_F(Dinheiro, EveryAmountComesBackAsTheSameCents) {
  std::vector<std::int64_t> amostras;
  for (std::int64_t potencia = 1; potencia <= 100000000000000; potencia *= 10) {
    for (const auto centavos : {potencia - 1, potencia, potencia + 1, potencia * 9 + potencia / 3}) {
      amostras.push_back(centavos);
    }
  }
  std::mt19937_64 sorteio(2024);
  for (int i = 0; i < 20000; ++i) amostras.push_back(static_cast<std::int64_t>(sorteio() % 1000000000000000));
  amostras.push_back(999999999999999);
  ASSERT_EQ(banco_.executa("BEGIN"), "");
  for (std::size_t i = 0; i < amostras.size(); ++i) {
    const auto valor = comCentavos(amostras[i]);
    ASSERT_EQ(banco_.executa(
                  insere("reducao_z", {{"cont_crz", std::to_string(i)}, {"valor_gt", "'" + valor + "'"}})),
              "")
        << valor;
  }
  const auto textos = banco_.linhas("SELECT valor_gt FROM reducao_z ORDER BY cont_crz");
  ASSERT_EQ(textos.size(), amostras.size());
  for (std::size_t i = 0; i < amostras.size(); ++i) {
    EXPECT_EQ(centavosDo(textos[i]), amostras[i]) << textos[i];
    EXPECT_LE(textos[i].size() - std::min(textos[i].find('.'), textos[i].size()), 3U) << textos[i];
  }
}

TEST_F(Dinheiro, TheGreatestGrandTotalIsNumericAndExact) {
  int crz = 0;
  for (const char* valor :
       {"'999999999.99'", "'12345678901.23'", "'9.00'", "'12345678901.22'", "'2345678901.99'"}) {
    ASSERT_EQ(banco_.executa(insere("reducao_z", {{"cont_crz", std::to_string(++crz)}, {"valor_gt", valor}})),
              "");
  }
  EXPECT_EQ(banco_.valor(consulta("E02_MF")), "12345678901.23");
  ASSERT_EQ(banco_.executa(insere("posicao_totalizadores_contadores", {{"valor_gt", "'9999999999999.99'"}})),
            "");
  EXPECT_EQ(banco_.valor(consulta("E02_MFD")), "9999999999999.99");
}

TEST_F(Dinheiro, TheTextsOfSomeAmountsAreKnown) {
  struct Caso {
    const char *guardado, *lido;
  };
  for (const Caso& caso : std::vector<Caso>{{"'1234567.10'", "1234567.1"},
                                            {"'1234567890.12'", "1234567890.12"},
                                            {"'10.00'", "10"},
                                            {"'0.01'", "0.01"},
                                            {"'9999999999999.99'", "9999999999999.99"},
                                            {"'9999999999999.01'", "9999999999999.01"}}) {
    banco_.executa("DELETE FROM reducao_z");
    ASSERT_EQ(banco_.executa(insere("reducao_z", {{"valor_gt", caso.guardado}})), "");
    EXPECT_EQ(banco_.valor("SELECT valor_gt FROM reducao_z"), caso.lido);
  }
}

class SomaDeTotalizadores : public ComEsquema, public testing::WithParamInterface<int> {};

// Many totalizers whose sum just fits the field of 13 digits are the worst case of adding binary numbers.
TEST_P(SomaDeTotalizadores, IsExactToTheCent) {
  constexpr std::int64_t kMaximo = 9999999999999;
  constexpr int kReducoes = 40;
  const int quantos = GetParam();
  std::mt19937_64 sorteio(17);
  std::vector<std::int64_t> somas;
  ASSERT_EQ(banco_.executa("BEGIN"), "");
  for (int crz = 0; crz < kReducoes; ++crz) {
    ASSERT_EQ(banco_.executa(insere("reducao_z", {{"cont_crz", std::to_string(crz)}})), "");
    somas.push_back(0);
    for (int i = 0; i < quantos; ++i) {
      const auto centavos = kMaximo / quantos - static_cast<std::int64_t>(sorteio() % 100);
      somas.back() += centavos;
      ASSERT_EQ(banco_.executa(insere("totalizador_reducao",
                                      {{"cont_crz", std::to_string(crz)},
                                       {"id_fiscal", "'N'"},
                                       {"valor_base_calculo", "'" + comCentavos(centavos) + "'"}})),
                "");
    }
  }
  const auto linhas = banco_.linhas(consulta("E13_2"));
  ASSERT_EQ(linhas.size(), somas.size());
  for (std::size_t crz = 0; crz < somas.size(); ++crz) {
    EXPECT_EQ(centavosDo(linhas[crz].substr(linhas[crz].rfind('|') + 1)), somas[crz]) << linhas[crz];
  }
}

INSTANTIATE_TEST_SUITE_P(Dinheiro, SomaDeTotalizadores, testing::Values(1, 2, 3, 30, 300));

}  // namespace
}  // namespace cotepe::testes
