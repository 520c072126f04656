// A report in sums; the amounts are added up by hand from the lines of tests/apoio/relatorios.
#include <gtest/gtest.h>

#include "Relatorio.h"
#include "Resumo/Resumidor.h"

namespace cotepe {
namespace {

ResumoDoRelatorio de(const Relatorio& relatorio) {
  const std::string texto = relatorio.texto();
  LeitorDeLinhas linhas{std::string_view(texto)};
  return resume(linhas);
}

/// Gross, discounts, surcharges, cancellations and net.
std::string escrito(const Valores& v) {
  return std::to_string(v.bruta) + ' ' + std::to_string(v.descontos) + ' ' + std::to_string(v.acrescimos) +
         ' ' + std::to_string(v.cancelamentos) + ' ' + std::to_string(v.liquida);
}

std::string escrita(const Sequencia& s) {
  if (s.vazia()) return "none";
  return std::to_string(s.primeiro()) + '-' + std::to_string(s.ultimo());
}

TEST(Resumo, ADayHasItsReductionAndItsCouponsWhichAgree) {
  for (const int leiaute : {1, 2}) {
    const ResumoDoRelatorio resumo = de(Relatorio::bom(leiaute));
    ASSERT_EQ(resumo.dias.size(), 2U);
    const Movimento& dois = resumo.dias.at("20240102");
    EXPECT_EQ(escrito(dois.dasReducoes), "3800 100 0 300 3400");
    EXPECT_EQ(escrito(dois.dosCupons), "3800 100 0 300 3400");
    EXPECT_EQ(dois.cupons, 2);
    EXPECT_EQ(dois.cuponsCancelados, 0);
    EXPECT_EQ(dois.itens, 4);
    EXPECT_EQ(dois.itensCancelados, 1);
    EXPECT_EQ(dois.media(), 1700);
    EXPECT_EQ(dois.naoFiscais, 1);
    EXPECT_EQ(dois.valorNaoFiscal, 1200);
    const Movimento& tres = resumo.dias.at("20240103");
    EXPECT_EQ(escrito(tres.dasReducoes), "700 0 0 700 0");
    EXPECT_EQ(escrito(tres.dosCupons), "700 0 0 700 0");
    EXPECT_EQ(tres.cuponsCancelados, 1);
    EXPECT_EQ(tres.media(), 0);
  }
}

TEST(Resumo, CountersGoFromAndToOnADayAndAltogether) {
  const ResumoDoRelatorio resumo = de(Relatorio::bom());
  const Movimento& dois = resumo.dias.at("20240102");
  EXPECT_EQ(escrita(dois.crz), "10-10");
  EXPECT_EQ(escrita(dois.coo), "101-105");
  EXPECT_EQ(escrita(dois.ccf), "31-32");
  EXPECT_EQ(escrita(dois.gnf), "51-52");
  EXPECT_EQ(escrita(resumo.total.crz), "10-11");
  EXPECT_EQ(escrita(resumo.total.coo), "101-109");
  EXPECT_EQ(escrita(resumo.total.ccf), "31-33");
  EXPECT_EQ(escrita(resumo.total.gnf), "51-54");
  EXPECT_TRUE(resumo.total.coo.lacunas().empty());
}

TEST(Resumo, WhatIsMissingIsAGap) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.remove(28);  // the managerial report, COO 101 and GNF 51
  relatorio.remove(21);  // the coupon of COO 103 and CCF 32
  const ResumoDoRelatorio resumo = de(relatorio);
  EXPECT_EQ(resumo.total.ccf.lacunas(), (std::vector<Faixa>{{32, 32}}));
  EXPECT_EQ(resumo.total.coo.lacunas(), (std::vector<Faixa>{{103, 103}}));
  EXPECT_TRUE(resumo.total.gnf.lacunas().empty());
  EXPECT_EQ(resumo.semDia, 2);  // the items of the coupon that is gone
}

TEST(Resumo, MeansOfPaymentAreOfReductionsAndOfDocuments) {
  const ResumoDoRelatorio resumo = de(Relatorio::bom());
  ASSERT_EQ(resumo.meios.size(), 3U);
  EXPECT_EQ(resumo.meios.at("DINHEIRO").acumulado, 4100);
  EXPECT_EQ(resumo.meios.at("DINHEIRO").pago, 6200);
  EXPECT_EQ(resumo.meios.at("DINHEIRO").pagamentos, 2);
  EXPECT_EQ(resumo.meios.at("CARTAO").acumulado, 1300);
  EXPECT_EQ(resumo.meios.at("CARTAO").pago, 1300);
  EXPECT_EQ(resumo.meios.at("TROCO").acumulado, 0);
  EXPECT_EQ(resumo.meios.at("TROCO").pago, 2100);
}

TEST(Resumo, TaxCodesAreOfReductionsAndOfItems) {
  const ResumoDoRelatorio resumo = de(Relatorio::bom());
  EXPECT_EQ(resumo.totalizadores.at("01T1800").acumulado, 3400);
  EXPECT_EQ(resumo.totalizadores.at("01T1800").dosItens, 3500);  // before the discount of the subtotal
  EXPECT_EQ(resumo.totalizadores.at("01T1800").itens, 3);
  EXPECT_EQ(resumo.totalizadores.at("Can-T").acumulado, 1000);
  EXPECT_EQ(resumo.totalizadores.at("OPNF").acumulado, 2000);
  EXPECT_EQ(resumo.naoFiscais.at("CONTA DE LUZ"), 1200);
  EXPECT_EQ(resumo.naoFiscais.at("SUPRIMENTO"), 800);
  EXPECT_EQ(resumo.documentos, (std::map<std::string, long>{{"CC", 1}, {"CN", 2}, {"RG", 1}, {"RZ", 2}}));
  for (const char* codigo : {"01T1800", "F1", "N1", "I1", "S1", "01S0500"})
    EXPECT_TRUE(deImposto(codigo)) << codigo;
  for (const char* outro : {"OPNF", "DT", "DS", "AT", "AS", "Can-T", "Can-S"})
    EXPECT_FALSE(deImposto(outro)) << outro;
}

TEST(Resumo, ArticlesCountWhatWasNotCancelled) {
  const ResumoDoRelatorio resumo = de(Relatorio::bom());
  const std::vector<Artigo> maiores = resumo.maioresEmValor(2);
  ASSERT_EQ(maiores.size(), 2U);
  EXPECT_EQ(maiores[0].codigo, "7891");
  EXPECT_EQ(maiores[0].descricao, "ARROZ");
  EXPECT_EQ(maiores[0].unidade, "UN");
  EXPECT_EQ(maiores[0].milesimos, 2000);  // 2.00
  EXPECT_EQ(maiores[0].valor, 2000);
  EXPECT_EQ(maiores[1].descricao, "QUEIJO");
  EXPECT_EQ(maiores[1].milesimos, 1250);  // 1.250
  EXPECT_EQ(resumo.artigos.size(), 3U);   // neither the cancelled item nor that of the cancelled coupon
  EXPECT_EQ(resumo.maioresEmQuantidade(10).size(), 3U);
  EXPECT_EQ(resumo.maioresEmQuantidade(10)[1].descricao, "QUEIJO");
}

TEST(Resumo, TheHeadSaysWhoseFileItIs) {
  const ResumoDoRelatorio resumo = de(Relatorio::bom());
  const Identificacao& quem = resumo.identificacao;
  EXPECT_EQ(quem.fabricacao, "SERIAL");
  EXPECT_EQ(quem.marca, "MARCA");
  EXPECT_EQ(quem.modelo, "MODELO");
  EXPECT_EQ(quem.comando, "TDM");
  EXPECT_EQ(quem.dataInicial, "20240102");
  EXPECT_EQ(quem.dataFinal, "20240103");
  EXPECT_EQ(quem.cnpj, "11222333000181");
  EXPECT_EQ(quem.razaoSocial, "LOJA DE EXEMPLO LTDA");
  EXPECT_EQ(quem.dataDeGeracao, "20240103");
  EXPECT_EQ(quem.horaDeGeracao, "200000");
  EXPECT_EQ(resumo.linhas, 47);
  EXPECT_EQ(resumo.bytes, Relatorio::bom().texto().size());
  ASSERT_EQ(resumo.intervencoes.size(), 1U);
  EXPECT_EQ(resumo.intervencoes[0].cro, 1);
  EXPECT_EQ(resumo.intervencoes[0].data, "20230601");
  EXPECT_EQ(resumo.intervencoes[0].perda, "N");
  EXPECT_EQ(resumo.ilegiveis, 0);
}

TEST(Resumo, WhatCannotBeReadIsCountedAndLeftOut) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(10, 87, "00000000003800", "0000000000x800");
  relatorio.troca(20, 59, "20240102", "20241302");
  relatorio.insere(20, "nothing of ours");
  const ResumoDoRelatorio resumo = de(relatorio);
  EXPECT_EQ(resumo.ilegiveis, 1);
  EXPECT_EQ(resumo.desconhecidas, 1);
  EXPECT_EQ(resumo.semDia, 3);  // the coupon and its two items
  EXPECT_EQ(resumo.dias.at("20240102").dasReducoes.bruta, 0);
  EXPECT_EQ(resumo.total.dosCupons.bruta, 4500);  // in the total they are all the same
  EXPECT_EQ(resumo.total.cupons, 3);
}

TEST(Resumo, DaysWithoutReductionAreRuns) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(11, 65, "20240103", "20240301");
  const auto intervalos = de(relatorio).diasSemReducao();
  ASSERT_EQ(intervalos.size(), 1U);
  EXPECT_EQ(intervalos[0].de, "20240103");
  EXPECT_EQ(intervalos[0].ate, "20240229");
  EXPECT_EQ(intervalos[0].dias, 58);
  EXPECT_TRUE(de(Relatorio::bom()).diasSemReducao().empty());
}

TEST(Resumo, MonthsAreTheSumsOfTheirDays) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(11, 65, "20240103", "20240301");
  const auto meses = de(relatorio).meses();
  ASSERT_EQ(meses.size(), 2U);
  EXPECT_EQ(meses.at("202401").dasReducoes.bruta, 3800);
  EXPECT_EQ(meses.at("202401").dosCupons.bruta, 4500);
  EXPECT_EQ(escrita(meses.at("202401").coo), "101-109");
  EXPECT_EQ(meses.at("202403").dasReducoes.bruta, 700);
}

TEST(Resumo, SumsSaturate) {
  Centavos soma = INT64_MAX - 1;
  acumula(soma, 5);
  EXPECT_EQ(soma, INT64_MAX);
  soma = INT64_MIN + 1;
  acumula(soma, -5);
  EXPECT_EQ(soma, INT64_MIN);
}

}  // namespace
}  // namespace cotepe
