// For every rule a database that breaks just it, what is said word for word, and the nearest one that just
// does not.
#include <set>

#include "BancoLimpo.h"

namespace cotepe::testes {
namespace {

struct Par {
  const char* regra;
  const char* quebra;  // SQL over the clean database
  const char* dito;
  const char* quase;
};

const std::vector<Par>& pares() {
  static const std::vector<Par> todos = {
      {"table-missing", "DROP TABLE moeda",
       "moeda: error table-missing E06: found no such table, without which the query fails, expected the "
       "table (create it; cotepe schema shows how)",
       "DELETE FROM moeda"},
      {"column-missing", "ALTER TABLE moeda RENAME COLUMN simbolo_moeda TO simbolo",
       "moeda.simbolo_moeda: error column-missing E06: found no such column, without which the query fails, "
       "expected the column (add it; cotepe schema shows how)",
       "ALTER TABLE moeda RENAME COLUMN simbolo_moeda TO Simbolo_Moeda"},
      {"row-count", "INSERT INTO moeda SELECT * FROM moeda",
       "moeda: error row-count E06: found 2 rows, each of which adds fields or records, expected one at most "
       "(leave the row that is valid now)",
       "DELETE FROM moeda"},
      {"null-value", "UPDATE cupom_nf SET nome_consumidor = NULL",
       "cupom_nf[cont_coo=12].nome_consumidor: error null-value E19.18 \"Nome do consumidor\": found NULL, "
       "which is written as blanks, expected a value (store a value)",
       "UPDATE cupom_nf SET nome_consumidor = ''"},
      {"flag-length", "UPDATE cupom_nf SET id_cancelado = ''",
       "cupom_nf[cont_coo=12].id_cancelado: error flag-length E19.15 \"Cancelado (S/N)\": found \"\", which "
       "ends the line there, expected one character (store one character)",
       "UPDATE cupom_nf SET id_cancelado = 'S'"},
      {"code-unknown", "UPDATE cupom_nf SET id_cancelado = 's'",
       "cupom_nf[cont_coo=12].id_cancelado: error code-unknown E19.15 \"Cancelado (S/N)\": found \"s\", "
       "which "
       "is written as it stands, expected S or N (store one of them)",
       "UPDATE cupom_nf SET id_cancelado = 'S'"},
      {"text-long", "UPDATE dados_ecf SET tipo = 'ECF-IF-2'",
       "dados_ecf[num_serie=SERIAL].tipo: error text-long E01.4 \"Tipo de ECF\": found \"ECF-IF-2\", of "
       "which "
       "the first 7 bytes are written, expected at most 7 bytes (shorten it)",
       "UPDATE dados_ecf SET tipo = 'ECF-PDV'"},
      {"text-cut", "UPDATE totalizador_nao_fiscal SET descricao = 'RECEBIMENTOS DE A'",
       "totalizador_nao_fiscal[num_indice=1].descricao: warning text-cut E20.9 \"Denominação da operação\": "
       "found \"RECEBIMENTOS DE A\", of which the first 15 bytes are written, expected at most 15 bytes "
       "(shorten it, so that what matters stands in front)",
       "UPDATE totalizador_nao_fiscal SET descricao = 'RECEBIMENTOS DE'"},
      {"text-short", "UPDATE codificacao_gt SET codificacao = '123456789'",
       "codificacao_gt[data_hora_gravacao=NULL].codificacao: error text-short E05.8 \"Codificação do GT\": "
       "found \"123456789\", which makes the line 1 byte shorter, expected 10 bytes (store all its "
       "characters)",
       "UPDATE codificacao_gt SET codificacao = '123456789 '"},
      {"control-character", "UPDATE item_cupom_fiscal SET descricao = 'CAFE' || char(31)",
       "item_cupom_fiscal[cont_coo=11,seq_item=1].descricao: error control-character E15.10 \"Descrição\": "
       "found \"CAFE\\x1F\", whose control character goes into the line, expected characters that can be "
       "seen "
       "(remove it)",
       "UPDATE item_cupom_fiscal SET descricao = 'CAFE' || char(32)"},
      {"not-a-number", "UPDATE outros_documentos SET cont_cdc = '1 '",
       "outros_documentos[cont_coo=10].cont_cdc: error not-a-number E16.9 \"CDC\": found \"1 \", which is "
       "written as 0001, expected digits alone (store it as a number)",
       "UPDATE outros_documentos SET cont_cdc = '1'"},
      {"negative", "UPDATE reducao_z SET valor_vb = -1 WHERE cont_crz = 4",
       "reducao_z[cont_crz=4].valor_vb: error negative E12.12 \"Venda bruta diária\": found \"-1\", which is "
       "written as 18446744073709551516, expected no sign (correct it)",
       "UPDATE reducao_z SET valor_vb = 0 WHERE cont_crz = 4"},
      {"digits-lost", "UPDATE fita_detalhe SET coo_inicial = 1000000",
       "fita_detalhe[cont_cfd=1].coo_inicial: error digits-lost E10.7 \"COO inicial\": found \"1000000\", "
       "which is written as 000000 in a field of 6 in layout 1, expected at most 6 digits (correct it, or "
       "take layout 2, where the field has 9 digits)",
       "UPDATE fita_detalhe SET coo_inicial = 999999"},
      {"number-wide", "UPDATE pagamento_cupom SET valor_pagamento = 100000000000 WHERE cont_coo = 12",
       "pagamento_cupom[cont_coo=12,indice_meio_pagamento=1].valor_pagamento: error number-wide E21.10 "
       "\"Valor pago\": found \"100000000000\", which is written as 10000000000000 in a field of 13, "
       "expected "
       "at most 11 digits before the point (correct it)",
       "UPDATE pagamento_cupom SET valor_pagamento = '99999999999.99' WHERE cont_coo = 12"},
      {"rounded", "UPDATE item_cupom_nf SET valor_total = 20.001",
       "item_cupom_nf[cont_coo=12,seq_item=1].valor_total: warning rounded E20.10 \"Valor\": "
       "found \"20.001\", which is written as 0000000002000, expected 2 decimal places (store it as it was "
       "printed)",
       "UPDATE item_cupom_nf SET valor_total = 20.01"},
      {"field-shift", "UPDATE outros_documentos SET cont_cdc = 10000",
       "outros_documentos[cont_coo=10].cont_cdc: error field-shift E16.9 \"CDC\": found \"10000\", which "
       "moves "
       "the later fields 1 byte to the right, expected at most 4 digits (correct it)",
       "UPDATE outros_documentos SET cont_cdc = 9999"},
      {"tax-number-form", "UPDATE cupom_nf SET cpf_cnpj_consumidor = '529.982.247-25'",
       "cupom_nf[cont_coo=12].cpf_cnpj_consumidor: error tax-number-form E19.19 \"CPF/CNPJ do consumidor\": "
       "found \"529.982.247-25\", which is written as 00000000000529, expected at most 14 digits (store its "
       "digits without separators)",
       "UPDATE cupom_nf SET cpf_cnpj_consumidor = '52998224725'"},
      {"tax-number", "UPDATE cupom_nf SET cpf_cnpj_consumidor = '52998224726'",
       "cupom_nf[cont_coo=12].cpf_cnpj_consumidor: warning tax-number E19.19 \"CPF/CNPJ do consumidor\": "
       "found "
       "\"52998224726\", expected check digits that are right (check it against its document)",
       "UPDATE cupom_nf SET cpf_cnpj_consumidor = '52998224725'"},
      {"date-form", "UPDATE cupom_nf SET data_hora_emissao = '2024-01-05T11:00:00'",
       "cupom_nf[cont_coo=12].data_hora_emissao: error date-form E19.8 \"Data de emissão\": found "
       "\"2024-01-05T11:00:00\", of which the wrong characters may be written, expected YYYY-MM-DD HH:MM:SS "
       "(store date and time in this form)",
       "UPDATE cupom_nf SET data_hora_emissao = '2024-01-05 11:00:00'"},
      {"date-impossible", "UPDATE cupom_nf SET data_hora_emissao = '2023-02-29 11:00:00'",
       "cupom_nf[cont_coo=12].data_hora_emissao: error date-impossible E19.8 \"Data de emissão\": found "
       "\"2023-02-29 11:00:00\", expected a day and an hour that exist (correct it)",
       "UPDATE cupom_nf SET data_hora_emissao = '2024-02-29 11:00:00'"},
      {"outside-period", "UPDATE reducao_z SET data_movimento = '2024-01-01' WHERE cont_crz = 4",
       "reducao_z[cont_crz=4].data_movimento: error outside-period E01.15 \"Data inicial\": found "
       "\"2024-01-01\", which sorts before the first moment of the period, expected YYYY-MM-DD HH:MM:SS "
       "(store the time too)",
       "UPDATE reducao_z SET data_movimento = '2024-01-01 00:00:00' WHERE cont_crz = 4"},
      {"text-order",
       "UPDATE intervencao SET cont_cro = '9';"
       "INSERT INTO intervencao VALUES('11', NULL, 'N', 'T', 3, 4)",
       "intervencao.cont_cro: error text-order E09: found the texts \"9\" and \"11\", which are sorted "
       "letter "
       "by letter, expected numbers, or texts of as many digits (store it as an integer)",
       "UPDATE intervencao SET cont_cro = '10';"
       "INSERT INTO intervencao VALUES('11', NULL, 'N', 'T', 3, 4)"},
      {"text-maximum",
       "UPDATE versao_sb SET num_sequencia = '9'; INSERT INTO versao_sb VALUES('02.00.00', NULL, '10')",
       "versao_sb.num_sequencia: error text-maximum E01: found the texts \"9\" and \"10\", the greatest of "
       "which is taken letter by letter, expected numbers, or texts of as many digits (store it as a number)",
       "UPDATE versao_sb SET num_sequencia = '9'; INSERT INTO versao_sb VALUES('02.00.00', NULL, '8')"},
      {"no-reduction", "UPDATE outros_documentos SET cont_crz = 7",
       "outros_documentos[cont_coo=10].cont_crz: error no-reduction E16: found \"7\", with which the row is "
       "left out without a word, expected one of reducao_z (store the reduction, or correct the counter)",
       "UPDATE outros_documentos SET cont_crz = 6"},
      {"no-document", "UPDATE item_cupom_fiscal SET cont_coo = 12",
       "item_cupom_fiscal[cont_coo=12,seq_item=1].cont_coo: error no-document E15: found \"12\", with which "
       "the row is left out without a word, expected one of cupom_fiscal (store the coupon, or correct the "
       "counter)",
       "DELETE FROM item_cupom_fiscal"},
      {"no-totalizer", "UPDATE totalizador_nao_fiscal SET num_indice = 2",
       "item_cupom_nf[cont_coo=12,seq_item=1].indice_totalizador_nf: error no-totalizer E20: found \"1\", "
       "with "
       "which the row is left out without a word, expected one of totalizador_nao_fiscal (register the "
       "totalizer)",
       "INSERT INTO totalizador_nao_fiscal VALUES(2, 'OUTRO')"},
      {"no-means", "UPDATE pagamento_cupom SET indice_meio_pagamento = 2 WHERE cont_coo = 12",
       "pagamento_cupom[cont_coo=12,indice_meio_pagamento=2].indice_meio_pagamento: error no-means E21: "
       "found "
       "\"2\", with which the row is left out without a word, expected one of meio_pagamento (register the "
       "means of payment)",
       "UPDATE pagamento_cupom SET indice_meio_pagamento = 2 WHERE cont_coo = 12;"
       "INSERT INTO meio_pagamento VALUES(2, 'CARTAO')"},
      {"counter-repeat", "INSERT INTO meio_pagamento VALUES(1, 'CARTAO')",
       "meio_pagamento[num_indice=1].num_indice: error counter-repeat E21: found 2 rows: every record that "
       "names it is written once for each of them, expected one (leave one of the rows, or correct the "
       "counter)",
       "INSERT INTO meio_pagamento VALUES(2, 'CARTAO')"},
      {"two-coupons",
       "UPDATE cupom_nf SET cont_coo = 11; UPDATE item_cupom_nf SET cont_coo = 11;"
       "UPDATE pagamento_cupom SET cont_coo = 11",
       "cupom_nf[cont_coo=11].cont_coo: error two-coupons E21: found a row of cupom_fiscal with the same "
       "counter: every payment of it is written for both, expected a counter of its own (correct the counter "
       "of one of them)",
       "UPDATE cupom_nf SET cont_coo = 13; UPDATE item_cupom_nf SET cont_coo = 13;"
       "UPDATE pagamento_cupom SET cont_coo = 13 WHERE cont_coo = 12"},
      {"index-missing", "DROP INDEX i14; CREATE INDEX i14 ON totalizador_nao_fiscal(descricao, num_indice)",
       "totalizador_nao_fiscal.num_indice: warning index-missing E20: found no index that begins with it, so "
       "that the table is read again and again, expected an index (create the index; cotepe schema shows "
       "how)",
       "DROP INDEX i14; CREATE INDEX i14 ON totalizador_nao_fiscal(num_indice, descricao)"},
  };
  return todos;
}

// January 2024, which holds every document of the clean database.
OpcoesDaConferencia janeiro() {
  OpcoesDaConferencia opcoes;
  opcoes.de = "2024-01-01";
  opcoes.ate = "2024-01-31";
  return opcoes;
}

TEST(ParesDeRegras, EachOneIsBrokenAloneAndSaysSo) {
  for (const Par& par : pares()) EXPECT_EQ(depoisDe(par.quebra, janeiro()), Linhas{par.dito}) << par.regra;
}

TEST(ParesDeRegras, EachOneIsJustKept) {
  for (const Par& par : pares()) EXPECT_EQ(depoisDe(par.quase, janeiro()), Linhas()) << par.regra;
}

TEST(ParesDeRegras, EachOneCanBeSwitchedOff) {
  for (const Par& par : pares()) {
    const Regra* regra = Regras(conferencia::kRegras).acha(par.regra);
    ASSERT_NE(regra, nullptr) << par.regra;
    OpcoesDaConferencia opcoes = janeiro();
    opcoes.desligadas.desliga(*regra);
    EXPECT_EQ(depoisDe(par.quebra, opcoes), Linhas()) << par.regra;
  }
}

TEST(ParesDeRegras, EachOneHasAPair) {
  std::set<std::string> comPar, todas;
  for (const Par& par : pares()) comPar.insert(par.regra);
  for (const Regra* regra : conferencia::kRegras) todas.insert(regra->nome);
  EXPECT_EQ(comPar, todas);
}

}  // namespace
}  // namespace cotepe::testes
