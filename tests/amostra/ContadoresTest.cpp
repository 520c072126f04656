// The sample counts without gaps, in the order of time, and the documents stay in their fiscal day.
#include "Amostras.h"

namespace cotepe::testes {
namespace {

using Contadores = DaAmostra;
INSTANTIATE_TEST_SUITE_P(Amostras, Contadores, testing::ValuesIn(casos()), nomeDoCaso);

// Every document once: a non-fiscal coupon stands among the others as CN.
const std::string kDocumentos =
    "(SELECT cont_coo, cont_crz, 'CF' AS tipo, data_hora_emissao AS quando FROM cupom_fiscal UNION ALL "
    "SELECT cont_coo, cont_crz, id_tipo_documento, data_hora_fim_emissao FROM outros_documentos)";

// A counter rises by one from row to row of a table in the order of another column.
std::string semLacunas(const std::string& contador, const std::string& tabela, const std::string& ordem) {
  return "SELECT " + ordem + ", " + contador + ", LAG(" + contador + ", 1, " + contador +
         " - 1) OVER (ORDER BY " + ordem + ") + 1 FROM " + tabela;
}

TEST_P(Contadores, RiseByOne) {
  concorda("COO", semLacunas("cont_coo", kDocumentos, "cont_coo"), resumo_.cupons + resumo_.outrosDocumentos);
  concorda("CCF", semLacunas("cont_ccf", "cupom_fiscal", "cont_coo"), resumo_.cupons);
  concorda("GNF", semLacunas("cont_gnf", "outros_documentos WHERE id_tipo_documento <> 'RZ'", "cont_coo"));
  concorda("GRG", semLacunas("cont_grg", "outros_documentos WHERE id_tipo_documento = 'RG'", "cont_coo"));
  concorda("CDC",
           "SELECT cont_coo, cont_cdc, LAG(cont_cdc, 1, (cont_cdc + 9997) % 9999 + 1) OVER (ORDER BY "
           "cont_coo) % 9999 + 1 "
           "FROM outros_documentos WHERE id_tipo_documento = 'CC'",
           GetParam().nome == "UmCupom" ? 0 : 1);
  concorda("CRZ", semLacunas("cont_crz", "reducao_z", "data_movimento"), dias());
  concorda("CRO", semLacunas("cont_cro", "intervencao", "data_hora_intervencao"));
  concorda("CFD", semLacunas("cont_cfd", "fita_detalhe", "data_hora_emissao"));
}

TEST_P(Contadores, AreZeroInDocumentsThatDoNotOwnThem) {
  concorda("owned",
           "SELECT cont_coo, 0, CASE WHEN id_tipo_documento = 'RZ' THEN cont_gnf ELSE 0 END + "
           "CASE WHEN id_tipo_documento <> 'RG' THEN cont_grg ELSE 0 END + "
           "CASE WHEN id_tipo_documento <> 'CC' THEN cont_cdc ELSE 0 END FROM outros_documentos",
           resumo_.outrosDocumentos);
}

TEST_P(Contadores, PositionIsWhereTheLastDocumentLeftThem) {
  concorda("position",
           "SELECT 1, cont_crz || '/' || cont_cro || '/' || cont_coo || '/' || cont_gnf || '/' || cont_ccf "
           "|| '/' || "
           "cont_grg || '/' || cont_cfd, (SELECT MAX(cont_crz) FROM reducao_z) || '/' || (SELECT "
           "MAX(cont_cro) FROM "
           "intervencao) || '/' || (SELECT MAX(cont_coo) FROM " +
               kDocumentos +
               ") || '/' || (SELECT MAX(cont_gnf) FROM "
               "outros_documentos) || '/' || (SELECT MAX(cont_ccf) FROM cupom_fiscal) || '/' || (SELECT "
               "MAX(cont_grg) FROM "
               "outros_documentos) || '/' || (SELECT MAX(cont_cfd) FROM fita_detalhe) FROM "
               "posicao_totalizadores_contadores");
  EXPECT_LT(banco_.numero("SELECT cont_coo FROM posicao_totalizadores_contadores"), 1000000);
}

TEST_P(Contadores, ADocumentBelongsToTheNextReduction) {
  concorda("reduction",
           "SELECT d.cont_coo, d.cont_crz, (SELECT MIN(r.cont_crz) FROM reducao_z r WHERE r.cont_coo >= "
           "d.cont_coo) FROM " +
               kDocumentos + " d");
  concorda(
      "RZ",
      "SELECT r.cont_crz, r.cont_coo || r.data_hora_emissao, (SELECT cont_coo || data_hora_fim_emissao FROM "
      "outros_documentos o WHERE o.cont_crz = r.cont_crz AND id_tipo_documento = 'RZ') FROM reducao_z r",
      dias());
}

TEST_P(Contadores, TimeNeverRunsBackwards) {
  concorda("order",
           "SELECT cont_coo, quando >= LAG(quando, 1, '') OVER (ORDER BY cont_coo), 1 FROM " + kDocumentos);
  concorda("day", "SELECT d.cont_coo, date(d.quando), date(r.data_movimento) FROM " + kDocumentos +
                      " d JOIN reducao_z r USING (cont_crz) WHERE d.tipo <> 'RZ'");
  concorda("opening hours", "SELECT cont_coo, time(quando) BETWEEN '08:00:00' AND '20:01:00', 1 FROM " +
                                kDocumentos + " WHERE tipo <> 'RZ'");
  concorda("reduction",
           "SELECT cont_crz, (julianday(data_hora_emissao) - julianday(data_movimento)) * 24 BETWEEN 20 AND "
           "25.51, 1 FROM reducao_z");
}

TEST_P(Contadores, FiscalDaysFollowOneAnother) {
  concorda("days",
           "SELECT cont_crz, data_movimento, datetime('" + GetParam().inicio +
               "', (cont_crz - (SELECT MIN(cont_crz) FROM reducao_z)) || ' days') FROM reducao_z",
           dias());
  EXPECT_EQ(resumo_.primeiroDia, GetParam().inicio);
  EXPECT_EQ(banco_.valor("SELECT date(MAX(data_movimento)) FROM reducao_z"), resumo_.ultimoDia);
}

TEST_P(Contadores, RestartCounterOfAReductionIsThatOfTheLastIntervention) {
  concorda("CRO",
           "SELECT r.cont_crz, r.cont_cro, (SELECT MAX(i.cont_cro) FROM intervencao i WHERE "
           "i.data_hora_intervencao < r.data_hora_emissao) FROM reducao_z r");
  concorda("between documents",
           "SELECT i.cont_cro, i.cont_coo, (SELECT MAX(d.cont_coo) FROM " + kDocumentos +
               " d WHERE d.quando < i.data_hora_intervencao) FROM intervencao i WHERE i.cont_coo > 0",
           dias() > 15 ? 1 : 0);
  concorda(
      "after its reduction",
      "SELECT i.cont_cro, i.cont_crz, (SELECT MAX(r.cont_crz) FROM reducao_z r WHERE r.data_hora_emissao < "
      "i.data_hora_intervencao) FROM intervencao i WHERE i.cont_coo > 0",
      dias() > 15 ? 1 : 0);
}

TEST_P(Contadores, DetailTapesCoverTheDocumentsWithoutGaps) {
  concorda("first",
           "SELECT cont_cfd, coo_inicial, LAG(coo_final, 1, (SELECT MIN(cont_coo) FROM " + kDocumentos +
               ") - 1) OVER (ORDER BY cont_cfd) + 1 FROM fita_detalhe",
           (dias() + 6) / 7);
  concorda("last", "SELECT f.cont_cfd, f.coo_final, (SELECT MAX(d.cont_coo) FROM " + kDocumentos +
                       " d WHERE d.quando <= f.data_hora_emissao AND d.tipo <> 'RZ') FROM fita_detalhe f");
}

TEST_P(Contadores, EveryNonFiscalCouponIsAlsoAnOtherDocument) {
  const std::string gnf = "(SELECT cont_gnf FROM outros_documentos o WHERE o.cont_coo = ";
  concorda("CN",
           "SELECT cont_coo, cont_gnf, " + gnf + "c.cont_coo AND id_tipo_documento = 'CN') FROM cupom_nf c",
           banco_.numero("SELECT COUNT(*) FROM outros_documentos WHERE id_tipo_documento = 'CN'"));
  // Between a cancelled coupon and its cancellation there are at most its two card slips.
  concorda("NC",
           "SELECT cont_coo, (SELECT COUNT(*) FROM cupom_nf WHERE id_cancelado = 'S'), (SELECT COUNT(*) FROM "
           "outros_documentos WHERE id_tipo_documento = 'NC') FROM posicao_totalizadores_contadores");
  concorda(
      "NC follows",
      "SELECT n.cont_coo, 'S', (SELECT id_cancelado FROM cupom_nf c WHERE c.cont_coo < n.cont_coo ORDER BY "
      "c.cont_coo DESC LIMIT 1) FROM outros_documentos n WHERE id_tipo_documento = 'NC'",
      0);
}

TEST_P(Contadores, EveryCardPaymentHasItsSlip) {
  concorda(
      "CC",
      "SELECT r.cont_crz, (SELECT COUNT(*) FROM outros_documentos o WHERE o.cont_crz = r.cont_crz AND "
      "id_tipo_documento = 'CC'), (SELECT COUNT(*) FROM pagamento_cupom p JOIN (SELECT cont_coo, cont_crz "
      "FROM "
      "cupom_fiscal UNION ALL SELECT cont_coo, cont_crz FROM cupom_nf) c USING (cont_coo) WHERE c.cont_crz = "
      "r.cont_crz AND indice_meio_pagamento IN (3, 4)) FROM reducao_z r");
}

// Four digits: after 9999 comes 1.
TEST(ContadorDeComprovantes, GoesFrom9999BackTo1) {
  Pasta pasta;
  OpcoesDaAmostra opcoes;
  opcoes.dias = 2;
  opcoes.cuponsPorDia = 13000;
  criaBancoDeAmostra(pasta.arquivo("a"), opcoes);
  Banco banco(pasta.arquivo("a"));
  EXPECT_GT(banco.numero("SELECT COUNT(*) FROM outros_documentos WHERE id_tipo_documento = 'CC'"), 10000);
  EXPECT_EQ(
      banco.valor(
          "SELECT MIN(cont_cdc) || ' ' || MAX(cont_cdc) FROM outros_documentos WHERE id_tipo_documento = "
          "'CC'"),
      "1 9999");
}

}  // namespace
}  // namespace cotepe::testes
