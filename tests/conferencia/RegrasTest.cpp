// Each rule about values: what breaks just it, word for word, and what just does not.
#include "Amostra/Amostra.h"
#include "BancoLimpo.h"

namespace cotepe::testes {
namespace {

TEST(Verificador, ACleanDatabaseGivesNothing) { EXPECT_EQ(BancoLimpo().achados(), Linhas()); }

TEST(Verificador, TableMissing) {
  EXPECT_EQ(
      depoisDe("DROP TABLE moeda"),
      Linhas{
          "moeda: error table-missing E06: found no such table, without which the query fails, expected the "
          "table (create it; cotepe schema shows how)"});
  OpcoesDaConferencia opcoes;
  opcoes.alcance.comando = "RZ";
  EXPECT_EQ(depoisDe("DROP TABLE moeda", opcoes), Linhas());
}

TEST(Verificador, ColumnMissing) {
  EXPECT_EQ(
      depoisDe("ALTER TABLE dados_ecf DROP COLUMN marca"),
      Linhas{
          "dados_ecf.marca: error column-missing E01: found no such column, without which the query fails, "
          "expected the column (add it; cotepe schema shows how)"});
  EXPECT_EQ(
      depoisDe("ALTER TABLE tentativas_sb DROP COLUMN resultado;"
               "ALTER TABLE tentativas_sb DROP COLUMN versao"),
      Linhas{"tentativas_sb: error column-missing E22: found 2 columns, which are read by position, expected "
             "at least 3 (add it; cotepe schema shows how)"});
  EXPECT_EQ(depoisDe("ALTER TABLE tentativas_sb DROP COLUMN resultado"), Linhas());
  EXPECT_EQ(depoisDe("ALTER TABLE dados_ecf ADD COLUMN outra"), Linhas());
  EXPECT_EQ(
      depoisDe("ALTER TABLE dados_usuario DROP COLUMN seq_usuario"),
      Linhas{
          "dados_usuario.seq_usuario: error column-missing E01 to E22: found no such column, without which "
          "the query fails, expected the column (add it; cotepe schema shows how)"});
}

TEST(Verificador, AColumnThatOnlyAnotherReportReadsMayBeMissing) {
  const char* const kSemVendaBruta = "ALTER TABLE reducao_z DROP COLUMN valor_vb";
  OpcoesDaConferencia opcoes;
  opcoes.alcance.comando = "RZ";
  EXPECT_EQ(depoisDe(kSemVendaBruta, opcoes), Linhas());
  opcoes.alcance.comando = "MF";
  EXPECT_EQ(depoisDe(kSemVendaBruta, opcoes),
            Linhas{"reducao_z.valor_vb: error column-missing E12: found no such column, without which the "
                   "query fails, "
                   "expected the column (add it; cotepe schema shows how)"});
}

TEST(Verificador, RowCount) {
  EXPECT_EQ(
      depoisDe("INSERT INTO dados_ecf SELECT * FROM dados_ecf"),
      Linhas{
          "dados_ecf: error row-count E01: found 2 rows, each of which adds fields or records, expected one "
          "(leave the row that is valid now)"});
  EXPECT_EQ(depoisDe("DELETE FROM versao_sb"),
            Linhas{"versao_sb: error row-count E01 and E07: found 0 rows, without which fields are left out, "
                   "expected at least one (store it)"});
  EXPECT_EQ(
      depoisDe("INSERT INTO moeda SELECT * FROM moeda"),
      Linhas{
          "moeda: error row-count E06: found 2 rows, each of which adds fields or records, expected one at "
          "most (leave the row that is valid now)"});
  EXPECT_EQ(depoisDe("DELETE FROM moeda; INSERT INTO versao_sb VALUES('2', NULL, 2)"), Linhas());
}

// A value put into a column of the clean database, and what is found of it.
struct Caso {
  const char* tabela;
  const char* coluna;
  const char* valor;  // as SQL
  Linhas achados;
};

std::ostream& operator<<(std::ostream& saida, const Caso& caso) {
  return saida << caso.tabela << '.' << caso.coluna << " = " << caso.valor;
}

class UmValor : public testing::TestWithParam<Caso> {};

TEST_P(UmValor, GivesTheseFindings) {
  const Caso& caso = GetParam();
  EXPECT_EQ(depoisDe(std::string("UPDATE ") + caso.tabela + " SET " + caso.coluna + " = " + caso.valor),
            caso.achados);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, UmValor,
    testing::ValuesIn(std::vector<Caso>{
        {"dados_ecf",
         "marca",
         "NULL",
         {"dados_ecf[num_serie=SERIAL].marca: error null-value E01.5 \"Marca\": found NULL, which is written "
          "as "
          "blanks, expected a value (store a value)"}},
        {"cupom_nf", "data_hora_emissao", "NULL", {}},
        {"dados_ecf", "marca", "''", {}},
        {"intervencao",
         "id_tipo_intervencao",
         "''",
         {"intervencao[cont_cro=1].id_tipo_intervencao: error flag-length E09.9 \"Tipo de intervenção\": "
          "found "
          "\"\", which ends the line there, expected one character (store one character)"}},
        {"cupom_nf",
         "tipo_desconto",
         "'VV'",
         {"cupom_nf[cont_coo=12].tipo_desconto: error flag-length E19.11 \"Tipo do desconto\": found \"VV\", "
          "of "
          "which the first character is written, expected one character (store one character)"}},
        {"cupom_nf", "tipo_desconto", "'P'", {}},
        {"cupom_nf",
         "id_cancelado",
         "'X'",
         {"cupom_nf[cont_coo=12].id_cancelado: error code-unknown E19.15 \"Cancelado (S/N)\": found \"X\", "
          "which is "
          "written as it stands, expected S or N (store one of them)"}},
        {"outros_documentos",
         "id_tipo_documento",
         "'XX'",
         {"outros_documentos[cont_coo=10].id_tipo_documento: error code-unknown E16.11 \"Símbolo do "
          "documento\": "
          "found \"XX\", whose counters are written as zeros, expected CN, RG, CC, NC or RZ (store one of "
          "them)"}},
        {"outros_documentos", "id_tipo_documento", "'RG'", {}},
        {"item_cupom_fiscal",
         "casas_decimais_valor",
         "4",
         {"item_cupom_fiscal[cont_coo=11,seq_item=1].casas_decimais_valor: error code-unknown E15.24 \"Casas "
          "decimais do valor unitário\": found \"4\", which scales the value as 2 does, expected 2 or 3 "
          "(store one "
          "of them)"}},
        {"dados_ecf",
         "marca",
         "'123456789012345678901'",
         {"dados_ecf[num_serie=SERIAL].marca: error text-long E01.5 \"Marca\": found "
          "\"123456789012345678901\", of "
          "which the first 20 bytes are written, expected at most 20 bytes (shorten it)"}},
        {"dados_ecf", "marca", "'12345678901234567890'", {}},
        {"dados_ecf", "num_serie", "'12345678901234567890'", {}},
        {"dados_ecf",
         "marca",
         "'1234567890123456789é'",  // 20 characters, 21 bytes
         {"dados_ecf[num_serie=SERIAL].marca: error text-long E01.5 \"Marca\": found "
          "\"1234567890123456789é\", of "
          "which the first 20 bytes are written, expected at most 20 bytes (shorten it)"}},
        {"moeda",
         "simbolo_moeda",
         "'REAIS'",
         {"moeda[data_hora_gravacao=                   ].simbolo_moeda: error text-long E06.8 \"Símbolo da "
          "moeda\": "
          "found \"REAIS\", which makes the line 1 byte longer, expected at most 4 bytes (shorten it)"}},
        {"item_cupom_fiscal", "aliquota", "'.01T18.00.'", {}},
        {"meio_pagamento",
         "descricao",
         "'1234567890123456'",
         {"meio_pagamento[num_indice=1].descricao: warning text-cut E21.9 \"Meio de pagamento\": found "
          "\"1234567890123456\", of which the first 15 bytes are written, expected at most 15 bytes (shorten "
          "it, so "
          "that what matters stands in front)"}},
        {"meio_pagamento", "descricao", "'123456789012345'", {}},
        {"dados_usuario",
         "ie",
         "'110.042.490-114'",
         {"dados_usuario[seq_usuario=1].ie: warning text-cut E02.6 \"Inscrição estadual\": found "
          "\"110.042.490-114\", of which the first 14 characters are written, expected at most 14 (shorten "
          "it, so "
          "that what matters stands in front)"}},
        {"dados_usuario", "ie", "'110.042.490-11'", {}},
        {"codificacao_gt",
         "codificacao",
         "'ABCDEFGHI'",
         {"codificacao_gt[data_hora_gravacao=NULL].codificacao: error text-short E05.8 \"Codificação do "
          "GT\": found "
          "\"ABCDEFGHI\", which makes the line 1 byte shorter, expected 10 bytes (store all its "
          "characters)"}},
        {"dados_ecf",
         "marca",
         "'A' || char(10) || 'B'",
         {"dados_ecf[num_serie=SERIAL].marca: error control-character E01.5 \"Marca\": found \"A\\nB\", "
          "whose line "
          "end breaks the line in two, expected characters that can be seen (remove it)"}},
        {"dados_ecf",
         "marca",
         "'A' || char(9)",
         {"dados_ecf[num_serie=SERIAL].marca: error control-character E01.5 \"Marca\": found \"A\\t\", whose "
          "control "
          "character goes into the line, expected characters that can be seen (remove it)"}},
        {"cupom_fiscal", "texto_suplementar", "'A' || char(10) || 'B'", {}},  // written as a blank
        {"cupom_fiscal",
         "texto_suplementar",
         "'A' || char(127)",  // which stays
         {"cupom_fiscal[cont_coo=11].texto_suplementar: error control-character E14.20 \"Texto "
          "suplementar\": found \"A\\x7F\", whose control character goes into the line, expected characters "
          "that can be seen (remove it)"}},
        {"cupom_fiscal",
         "texto_suplementar",
         "'A' || char(0) || 'B'",
         {"cupom_fiscal[cont_coo=11].texto_suplementar: error control-character E14.20 \"Texto "
          "suplementar\": found \"A\\x00B\", whose zero byte ends the text, expected characters that can be "
          "seen (remove it)"}},
        {"cupom_nf",
         "tipo_desconto",
         "char(10)",
         {"cupom_nf[cont_coo=12].tipo_desconto: error control-character E19.11 \"Tipo do desconto\": found "
          "\"\\n\", whose line end breaks the line in two, expected characters that can be seen (remove "
          "it)"}},
    }));

INSTANTIATE_TEST_SUITE_P(
    Numbers, UmValor,
    testing::ValuesIn(std::vector<Caso>{
        {"intervencao",
         "cont_crz",
         "'12a'",
         {"intervencao[cont_cro=1].cont_crz: error not-a-number E09.10 \"CRZ\": found \"12a\", which is "
          "written as "
          "0012, expected digits alone (store it as a number)"}},
        {"intervencao", "cont_crz", "'0012'", {}},
        {"intervencao",
         "cont_crz",
         "-3",
         {"intervencao[cont_cro=1].cont_crz: error negative E09.10 \"CRZ\": found \"-3\", which is written "
          "as -003, "
          "expected no sign (correct it)"}},
        {"intervencao",
         "cont_crz",
         "12345",
         {"intervencao[cont_cro=1].cont_crz: error digits-lost E09.10 \"CRZ\": found \"12345\", which is "
          "written as "
          "2345 in a field of 4, expected at most 4 digits (correct it)"}},
        {"intervencao", "cont_crz", "9999", {}},
        {"fita_detalhe",
         "coo_final",
         "1234567",
         {"fita_detalhe[cont_cfd=1].coo_final: error digits-lost E10.8 \"COO final\": found \"1234567\", "
          "which is "
          "written as 234567 in a field of 6 in layout 1, expected at most 6 digits (correct it, or take "
          "layout 2, where the field has 9 digits)"}},
        {"fita_detalhe",
         "coo_final",
         "1234567890",
         {"fita_detalhe[cont_cfd=1].coo_final: error digits-lost E10.8 \"COO final\": found \"1234567890\", "
          "which is written as 567890 in a field of 6 in layout 1, expected at most 6 digits (correct it)"}},
        {"fita_detalhe", "coo_final", "999999", {}},
        {"dados_ecf",
         "num_caixa",
         "1234",
         {"dados_ecf[num_serie=SERIAL].num_caixa: error digits-lost E01.10 \"Nº sequencial do ECF\": found "
          "\"1234\", "
          "which is written as 123 in a field of 3, expected at most 3 digits (correct it)"}},
        {"tentativas_sb",
         "numero",
         "12345",
         {"tentativas_sb[numero=12345].numero: error field-shift E22.4 \"Número\": found \"12345\", which "
          "moves the "
          "later fields 1 byte to the right, expected at most 4 digits (correct it)"}},
        {"tentativas_sb", "numero", "9999", {}},
        {"cupom_nf",
         "valor_subtotal",
         "'1.234,56'",
         {"cupom_nf[cont_coo=12].valor_subtotal: error not-a-number E19.9 \"Subtotal\": found \"1.234,56\", "
          "which is "
          "written as 00000000000000, expected digits and a decimal point (store it as a number)"}},
        {"cupom_nf", "valor_subtotal", "'1234.56'", {}},
        {"cupom_nf",
         "valor_subtotal",
         "'-0.01'",
         {"cupom_nf[cont_coo=12].valor_subtotal: error negative E19.9 \"Subtotal\": found \"-0.01\", which "
          "is written "
          "as 18446744073709551615, expected no sign (correct it)"}},
        {"cupom_nf",
         "valor_subtotal",
         "'1234567890123.45'",
         {"cupom_nf[cont_coo=12].valor_subtotal: error number-wide E19.9 \"Subtotal\": found "
          "\"1234567890123.45\", "
          "which is written as 123456789012345 in a field of 14, expected at most 12 digits before the point "
          "(correct it)"}},
        {"cupom_nf", "valor_subtotal", "'999999999999.99'", {}},
        {"cupom_nf",
         "valor_subtotal",
         "'1.005'",
         {"cupom_nf[cont_coo=12].valor_subtotal: warning rounded E19.9 \"Subtotal\": found \"1.005\", which "
          "is "
          "written as 00000000000101, expected 2 decimal places (store it as it was printed)"}},
        {"cupom_nf", "valor_subtotal", "'1.0500'", {}},
        {"item_cupom_fiscal",
         "quantidade",
         "1.2345",
         {"item_cupom_fiscal[cont_coo=11,seq_item=1].quantidade: warning rounded E15.11 \"Quantidade\": "
          "found "
          "\"1.2345\", which is written as 0001235, expected 3 decimal places (store it as it was printed)"}},
        {"item_cupom_fiscal",
         "valor_unitario",
         "1.234",
         {"item_cupom_fiscal[cont_coo=11,seq_item=1].valor_unitario: warning rounded E15.13 \"Valor "
          "unitário\": found "
          "\"1.234\", which is written as 00000123, expected 2 decimal places (store it as it was printed)"}},
        {"item_cupom_fiscal", "quantidade", "9999.999", {}},
        {"item_cupom_fiscal",
         "quantidade",
         "12345.678",
         {"item_cupom_fiscal[cont_coo=11,seq_item=1].quantidade: error number-wide E15.11 \"Quantidade\": "
          "found "
          "\"12345.678\", which is written as 12345678 in a field of 7, expected at most 4 digits before the "
          "point "
          "(correct it)"}},
        {"posicao_totalizadores_contadores",
         "valor_gt",
         "'123456789012345.67'",
         {"posicao_totalizadores_contadores.valor_gt: error digits-lost E02.12 \"Totalizador geral (GT)\": "
          "found "
          "\"123456789012345.67\", whose last character E02 loses, expected at most 17 characters (correct "
          "it)"}},
        {"posicao_totalizadores_contadores",
         "valor_gt",
         "'0001234567890123.45'",
         {"posicao_totalizadores_contadores.valor_gt: error digits-lost E02.12 \"Totalizador geral (GT)\": "
          "found \"0001234567890123.45\", which E02 does not use, expected at most 17 characters (correct "
          "it)"}},
        {"posicao_totalizadores_contadores",
         "valor_gt",
         "1e30",
         {"posicao_totalizadores_contadores.valor_gt: error number-wide E02.12 \"Totalizador geral (GT)\": "
          "found \"1.0e+30\", which is written as 9223372036854775807 in a field of 18; in E11.15 too, "
          "expected at most 16 digits before the point (correct it)"}},
        {"posicao_totalizadores_contadores", "valor_gt", "'12345678901234.67'", {}},
        {"dados_usuario",
         "valor_gt",
         "12345678901234.56",
         {"dados_usuario[seq_usuario=1].valor_gt: error digits-lost E02.12 \"Totalizador geral (GT)\": found "
          "\"12345678901234.6\", a binary number, of which 15 digits are kept, expected a text (store "
          "it as a text)"}},
        {"dados_usuario",
         "cnpj",
         "'12.345.678/0001-90'",
         {"dados_usuario[seq_usuario=1].cnpj: error tax-number-form E01.11 \"CNPJ do usuário\": found "
          "\"12.345.678/0001-90\", which is written as 00000000000012; in E02.5, E05.5, E06.5, E08.5 and "
          "E10.9 too, "
          "expected 14 digits (store its digits without separators)"}},
        {"dados_usuario",
         "cnpj",
         "''",
         {"dados_usuario[seq_usuario=1].cnpj: error tax-number-form E01.11 \"CNPJ do usuário\": found \"\", "
          "which is written as 00000000000000; in E02.5, E05.5, E06.5, E08.5 and E10.9 too, expected 14 "
          "digits (store its digits without separators)"}},
        {"dados_usuario",
         "cnpj",
         "'11222333000182'",
         {"dados_usuario[seq_usuario=1].cnpj: warning tax-number E01.11 \"CNPJ do usuário\": found "
          "\"11222333000182\", expected check digits that are right (check it against its document)"}},
        {"cupom_fiscal",
         "cpf_cnpj_consumidor",
         "'52998224724'",
         {"cupom_fiscal[cont_coo=11].cpf_cnpj_consumidor: warning tax-number E14.19 \"CPF/CNPJ do "
          "consumidor\": found "
          "\"52998224724\", expected check digits that are right (check it against its document)"}},
        {"cupom_fiscal", "cpf_cnpj_consumidor", "'11222333000181'", {}},
        {"cupom_fiscal", "cpf_cnpj_consumidor", "''", {}},
    }));

INSTANTIATE_TEST_SUITE_P(
    Dates, UmValor,
    testing::ValuesIn(std::vector<Caso>{
        {"intervencao",
         "data_hora_intervencao",
         "'2023-12-01'",
         {"intervencao[cont_cro=1].data_hora_intervencao: error date-form E09.7 \"Hora da intervenção\": "
          "found "
          "\"2023-12-01\", which ends the line there, expected YYYY-MM-DD HH:MM:SS (store date and time in "
          "this "
          "form)"}},
        {"intervencao",
         "data_hora_intervencao",
         "'2023-12'",
         {"intervencao[cont_cro=1].data_hora_intervencao: error date-form E09.6 \"Data da intervenção\": "
          "found "
          "\"2023-12\", which ends the line there, expected YYYY-MM-DD HH:MM:SS (store date and time in this "
          "form)"}},
        {"intervencao",
         "data_hora_intervencao",
         "'01/12/2023 10:00:00'",
         {"intervencao[cont_cro=1].data_hora_intervencao: error date-form E09.6 \"Data da intervenção\": "
          "found "
          "\"01/12/2023 10:00:00\", of which the wrong characters may be written, expected YYYY-MM-DD "
          "HH:MM:SS "
          "(store date and time in this form)"}},
        {"fita_detalhe",
         "data_hora_emissao",
         "'2024-01-06'",
         {"fita_detalhe[cont_cfd=1].data_hora_emissao: error date-form E10.6 \"Data de emissão\": found "
          "\"2024-01-06\", which a period sorts wrongly, expected YYYY-MM-DD HH:MM:SS (store date and time "
          "in this "
          "form)"}},
        {"fita_detalhe",
         "data_hora_emissao",
         "''",
         {"fita_detalhe[cont_cfd=1].data_hora_emissao: error date-form E10.6 \"Data de emissão\": found "
          "\"\", "
          "which ends the line there, expected YYYY-MM-DD HH:MM:SS (store date and time in this form)"}},
        {"intervencao",
         "data_hora_intervencao",
         "'2023-02-29 10:00:00'",
         {"intervencao[cont_cro=1].data_hora_intervencao: error date-impossible E09.6 \"Data da "
          "intervenção\": found "
          "\"2023-02-29 10:00:00\", expected a day and an hour that exist (correct it)"}},
        {"intervencao",
         "data_hora_intervencao",
         "'2023-12-01 24:00:00'",
         {"intervencao[cont_cro=1].data_hora_intervencao: error date-impossible E09.6 \"Data da "
          "intervenção\": found "
          "\"2023-12-01 24:00:00\", expected a day and an hour that exist (correct it)"}},
        {"intervencao", "data_hora_intervencao", "'2024-02-29 23:59:59'", {}},
    }));

TEST(Verificador, OutsidePeriod) {
  OpcoesDaConferencia opcoes;
  opcoes.de = "2024-01-06";
  opcoes.ate = "2024-01-31";
  const std::string data = "UPDATE fita_detalhe SET data_hora_emissao = ";
  EXPECT_EQ(
      depoisDe(data + "'2024-01-06'", opcoes),
      Linhas{
          "fita_detalhe[cont_cfd=1].data_hora_emissao: error outside-period E10.6 \"Data de emissão\": found "
          "\"2024-01-06\", which sorts before the first moment of the period, expected YYYY-MM-DD HH:MM:SS "
          "(store the time too)"});
  EXPECT_EQ(depoisDe(data + "'2024-01-06 00:00:00'", opcoes), Linhas());
}

TEST(Verificador, APeriodLooksAtItsOwnDocuments) {
  OpcoesDaConferencia opcoes;
  opcoes.de = opcoes.ate = "2024-01-04";
  const char* const kErrado = "UPDATE cupom_nf SET id_cancelado = ''";
  EXPECT_EQ(depoisDe(kErrado, opcoes), Linhas());
  opcoes.ate = "2024-01-05";
  EXPECT_EQ(depoisDe(kErrado, opcoes).size(), 1U);
}

TEST(Verificador, TheLayoutSetsTheCounters) {
  OpcoesDaConferencia opcoes;
  opcoes.alcance.leiaute = 2;
  EXPECT_EQ(depoisDe("UPDATE fita_detalhe SET coo_final = 123456789", opcoes), Linhas());
  EXPECT_EQ(depoisDe("UPDATE fita_detalhe SET coo_final = 1234567890", opcoes).size(), 1U);
}

TEST(Verificador, ARuleCanBeSwitchedOff) {
  OpcoesDaConferencia opcoes;
  opcoes.desligadas.desliga(conferencia::kTabelaAusente);
  EXPECT_EQ(depoisDe("DROP TABLE moeda", opcoes), Linhas());
}

TEST(Verificador, RuleNamesAreFoundAndDistinct) {
  for (const Regra* regra : conferencia::kRegras)
    EXPECT_EQ(Regras(conferencia::kRegras).acha(regra->nome), regra);
}

}  // namespace
}  // namespace cotepe::testes
