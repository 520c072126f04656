// The value of each tax code, computed again from the rows by the rule of apportionment.
#include <map>

#include "Amostras.h"

namespace cotepe::testes {
namespace {

using Rateio = DaAmostra;
INSTANTIATE_TEST_SUITE_P(Amostras, Rateio, testing::ValuesIn(casos()), nomeDoCaso);

std::vector<std::string> partes(const std::string& linha) {
  std::vector<std::string> resultado(1);
  for (const char letra : linha) {
    if (letra == '|') {
      resultado.emplace_back();
    } else {
      resultado.back() += letra;
    }
  }
  return resultado;
}

struct CupomLido {
  std::string crz;
  std::int64_t subtotal = 0, desconto = 0, acrescimo = 0;
  std::map<std::string, std::int64_t> aliquotas;  // in the order of the codes
};

// The share of each code is its part of the subtotal, rounded down; what is left goes to the greatest, the
// first of them in the order 01T1800, 02T1200, 03T0700, 04S0500, F1, I1, N1, which is that of the texts.
std::map<std::string, std::int64_t> rateado(const CupomLido& cupom, std::int64_t ajuste) {
  std::map<std::string, std::int64_t> cotas;
  std::string maior;
  std::int64_t resto = ajuste;
  for (const auto& [codigo, liquido] : cupom.aliquotas) {
    cotas[codigo] = ajuste * liquido / cupom.subtotal;
    resto -= cotas[codigo];
    if (maior.empty() || liquido > cupom.aliquotas.at(maior)) maior = codigo;
  }
  cotas[maior] += resto;
  return cotas;
}

TEST_P(Rateio, TaxCodesAreTheItemsWithTheirShareOfTheAdjustments) {
  std::map<std::string, CupomLido> cupons;
  for (const auto& linha :
       banco_.linhas("SELECT c.cont_coo, c.cont_crz, centavos(c.valor_subtotal), centavos(c.valor_desconto), "
                     "centavos(c.valor_acrescimo), i.aliquota, centavos(i.valor_total) FROM cupom_fiscal c "
                     "JOIN item_cupom_fiscal i "
                     "USING (cont_coo) WHERE c.id_cancelado = 'N' AND i.id_cancelado = 'N'")) {
    const auto valores = partes(linha);
    ASSERT_EQ(valores.size(), 7U) << linha;
    auto& cupom = cupons[valores[0]];
    cupom.crz = valores[1];
    cupom.subtotal = std::stoll(valores[2]);
    cupom.desconto = std::stoll(valores[3]);
    cupom.acrescimo = std::stoll(valores[4]);
    cupom.aliquotas[valores[5]] += std::stoll(valores[6]);
  }
  std::map<std::string, std::int64_t> esperados;
  for (const auto& linha :
       banco_.linhas("SELECT cont_crz, totalizador FROM totalizador_reducao WHERE id_fiscal = 'S' AND "
                     "totalizador IN (SELECT aliquota FROM item_cupom_fiscal)")) {
    esperados[linha] = 0;
  }
  for (const auto& [coo, cupom] : cupons) {
    const auto descontos = rateado(cupom, cupom.desconto);
    const auto acrescimos = rateado(cupom, cupom.acrescimo);
    for (const auto& [codigo, liquido] : cupom.aliquotas) {
      esperados[cupom.crz + "|" + codigo] += liquido - descontos.at(codigo) + acrescimos.at(codigo);
    }
  }
  ASSERT_FALSE(esperados.empty());
  for (const auto& [chave, esperado] : esperados) {
    const auto valores = partes(chave);
    EXPECT_EQ(banco_.numero("SELECT centavos(valor_base_calculo) FROM totalizador_reducao WHERE cont_crz = " +
                            valores[0] + " AND totalizador = '" + valores[1] + "'"),
              esperado)
        << chave;
  }
}

}  // namespace
}  // namespace cotepe::testes
