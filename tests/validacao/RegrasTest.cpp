// For every rule a report that breaks just it, what is said word for word, and one that just does not.
#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "Relatorio.h"

namespace cotepe {
namespace {

using Mudanca = std::function<void(Relatorio&)>;

struct Caso {
  const char* regra;
  Mudanca quebra;
  std::vector<std::string> dito;  // behind "r.txt"
  Mudanca quase;
};

const std::string kGere = " (cotepe verify compares it with the database)";
const std::string kBanco = " (cotepe explain --db shows the rows behind it)";
const std::string kDocumentos = " (cotepe check looks for missing and repeated documents in the database)";
const std::string kFim = " (the file was converted or cut: take it as it was generated)";
const std::string kMedida =
    " (an empty flag, a short date or an over-long last text makes it so; cotepe explain --db shows the row)";

// The lines of the report: 1 E01, 2 E02, 3 E05, 4 E06, 5 E07, 6 E08, 7 E09, 8 E10, 9 E11, 10-11 E12, 12-19
// E13, 20-22 E14, 23-27 E15, 28-33 E16, 34-35 E17, 36-38 E18, 39-40 E19, 41-42 E20, 43-47 E21.
const std::vector<Caso>& casos() {
  static const std::vector<Caso> todos = {
      {"line-end",
       [](Relatorio& r) { r[47] += '\r'; },
       {":47: warning line-end E21: found CR and LF, as maybe on other lines, expected LF alone" + kFim},
       [](Relatorio& r) { r.troca(2, 59, "123456789 ", "1234\\n567 "); }},
      {"unknown-register",
       [](Relatorio& r) { r.troca(8, 1, "E10", "X10"); },
       {":8: error unknown-register: found \"X10\", expected E01 to E22" + kGere},
       [](Relatorio& r) { r.remove(8); }},
      {"line-length",
       [](Relatorio& r) { r[8] += '0'; },
       {":8: error line-length E10: found 85 bytes, expected 84" + kMedida},
       [](Relatorio& r) { r.troca(32, 65, "0007", "12345"); }},
      {"register-order",
       [](Relatorio& r) {
         const std::string e06 = r[4];
         r.remove(4);
         r.insere(3, e06);
       },
       {":4: error register-order E05: found E05 after E06, expected registers in ascending order" + kGere},
       [](Relatorio& r) { r.insere(6, r[5]); }},
      {"register-missing",
       [](Relatorio& r) { r.remove(6); },
       {": error register-missing E08: found no line of E08, expected at least one with the command \"TDM\" "
        "(cotepe generate names the registers whose query fails)"},
       [](Relatorio& r) { r.remove(7); }},
      {"register-extra",
       [](Relatorio& r) { r.insere(6, r[6]); },
       {":7: error register-extra E08: found a second E08, expected one line" + kGere},
       [](Relatorio& r) { r.insere(5, r[5]); }},
      {"placeholder",
       [](Relatorio& r) {
         r.insere(8, r[8].substr(0, 44) + "000000" + std::string(8, ' ') + std::string(26, '0'));
       },
       {":8: error placeholder E10: found a placeholder among 2 lines, expected a placeholder alone" + kGere},
       [](Relatorio& r) {
         r[8] = r[8].substr(0, 44) + "000000" + std::string(8, ' ') + std::string(26, '0');
       }},
      {"field-digits",
       [](Relatorio& r) { r.troca(36, 68, "0000000000500", "-000000000500"); },
       {":36:68-80: error field-digits E18.8 \"Valor acumulado\": found \"-000000000500\", expected 13 "
        "digits" +
        kBanco},
       [](Relatorio& r) { r.troca(36, 68, "0000000000500", "9999999999999"); }},
      {"field-width",
       [](Relatorio& r) { r.troca(32, 65, "0007", "00007"); },
       {R"(:32:65-69: error field-width E16.9 "CDC": found "00007", expected 4 digits)" + kGere},
       [](Relatorio& r) { r.troca(32, 65, "0007", "10007"); }},
      {"field-letter",
       [](Relatorio& r) { r.troca(23, 265, "A", "X"); },
       {":23:265-265: error field-letter E15.22 \"Arredondamento ou truncamento\": found \"X\", expected A "
        "or T" +
        kBanco},
       [](Relatorio& r) { r.troca(23, 265, "A", "T"); }},
      {"field-constant",
       [](Relatorio& r) { r.troca(21, 94, "V", "P"); },
       {R"(:21:94-94: error field-constant E14.11 "Tipo do desconto": found "P", expected "V")" + kGere},
       [](Relatorio& r) { r.troca(39, 94, "V", "P"); }},
      {"field-control",
       [](Relatorio& r) { r.troca(2, 77, " ", "\t"); },
       {":2:73-112: error field-control E02.7 \"Razão social\": found "
        "\"LOJA?DE EXEMPLO LTDA                    \", expected no control character" +
        kBanco},
       [](Relatorio& r) { r.troca(2, 77, " ", "~"); }},
      {"field-ascii",
       [](Relatorio& r) { r.troca(2, 73, "LOJA", "LOJ\xC1"); },
       {":2:73-112: warning field-ascii E02.7 \"Razão social\": found "
        "\"LOJ? DE EXEMPLO LTDA                    \", expected ASCII alone" +
        kBanco},
       [](Relatorio& r) { r.troca(2, 73, "LOJA", "#@|A"); }},
      {"field-alignment",
       [](Relatorio& r) { r.troca(5, 45, "01.00.00  ", " 1.00.00  "); },
       {":5:45-54: warning field-alignment E07.5 \"Versão do software básico\": found \" 1.00.00  \", "
        "expected no "
        "blank before the text" +
        kBanco},
       [](Relatorio& r) { r.troca(5, 45, "01.00.00  ", "1  00.00  "); }},
      {"field-date",
       [](Relatorio& r) { r.troca(7, 51, "20230601", "20230229"); },
       {":7:51-58: error field-date E09.6 \"Data da intervenção\": found \"20230229\", expected a day as "
        "AAAAMMDD" +
        kBanco},
       [](Relatorio& r) { r.troca(7, 51, "20230601", "20240229"); }},
      {"field-hour",
       [](Relatorio& r) { r.troca(7, 59, "070000", "240000"); },
       {":7:59-64: error field-hour E09.7 \"Hora da intervenção\": found \"240000\", expected an hour as "
        "HHMMSS" +
        kBanco},
       [](Relatorio& r) { r.troca(7, 59, "070000", "235959"); }},
      {"tax-number",
       [](Relatorio& r) { r.troca(20, 178, "00052998224725", "00052998224735"); },
       {":20:178-191: warning tax-number E14.19 \"CPF/CNPJ do consumidor\": found \"00052998224735\", "
        "expected a CPF "
        "or CNPJ with right check digits" +
        kBanco},
       [](Relatorio& r) { r.troca(20, 178, "00052998224725", "11222333000181"); }},
      {"identity",
       [](Relatorio& r) { r.troca(36, 25, "MODELO", "MODELA"); },
       {":36:25-44: error identity E18.4 \"Modelo do ECF\": found \"MODELA              \", expected "
        "\"MODELO              \" as in line 2" +
        kGere},
       [](Relatorio& r) { r.troca(1, 52, "MODELO", "MODELA"); }},
      {"identity",
       [](Relatorio& r) { r.troca(6, 45, "11222333000181", "11444777000161"); },
       {":6:45-58: error identity E08.5 \"CNPJ do usuário\": found \"11444777000161\", expected "
        "\"11222333000181\" as in E01" +
        kGere},
       [](Relatorio& r) {
         for (const auto& [linha, posicao] :
              std::vector<std::pair<int, int>>{{1, 99}, {2, 45}, {3, 45}, {4, 45}, {6, 45}, {8, 71}})
           r.troca(linha, posicao, "11222333000181", "11444777000161");
       }},
      {"key-order",
       [](Relatorio& r) { r.permuta(36, 37); },
       {":37:53-67: error key-order E18.7 \"Meio de pagamento\": found \"CARTAO         \" after \"DINHEIRO  "
        "     \", expected ascending keys (where counters are stored as texts 9 comes after 11; cotepe check "
        "tells)"},
       [](Relatorio& r) { r.troca(37, 53, "DINHEIRO", "dinheiro"); }},
      {"counter-repeat",
       [](Relatorio& r) { r.insere(9, r[8]); },
       {":9:45-50: error counter-repeat E10.5 \"CFD\": found \"000003\" a second time, expected each key "
        "once" +
        kDocumentos},
       [](Relatorio& r) { r.insere(8, r[7]); }},
      {"counter-gap",
       [](Relatorio& r) { r.troca(28, 53, "000051", "000050"); },
       {":29:53-58: error counter-gap E16.7 \"GNF\": found \"000052\" after \"000050\", expected \"000051\" "
        "between "
        "them" +
        kDocumentos},
       [](Relatorio& r) { r.troca(28, 53, "000051", "000000"); }},
      {"item-gap",
       [](Relatorio& r) { r.troca(24, 59, "002", "003"); },
       {":24:59-61: warning item-gap E15.8 \"Nº do item\": found \"003\", expected \"002\"" + kDocumentos},
       [](Relatorio& r) {
         r.insere(25, r[24]);
         r.troca(25, 59, "002", "003");
         r.troca(25, 231, "N", "S");
       }},
      {"date-backwards",
       [](Relatorio& r) { r.troca(21, 59, "20240102", "20231231"); },
       {":21:59-66: warning date-backwards E14.8 \"Data de emissão\": found \"20231231\" after \"20240102\", "
        "expected "
        "no earlier day" +
        kBanco},
       [](Relatorio& r) { r.troca(21, 59, "20240102", "20240103"); }},
      {"document-counters",
       [](Relatorio& r) { r.troca(29, 59, "000000", "000009"); },
       {":29:59-64: error document-counters E16.8 \"GRG\": found \"000009\" in a document \"CN\", expected "
        "zeros" +
        kGere},
       [](Relatorio& r) { r.troca(28, 59, "000021", "000009"); }},
      {"adjustment-letter",
       [](Relatorio& r) { r.troca(20, 137, "D", "A"); },
       {":20:137-137: error adjustment-letter E14.17 \"Ordem de desconto e acréscimo\": found \"A\", "
        "expected "
        "\"D\"" +
        kGere},
       [](Relatorio& r) {
         r.troca(20, 81, "0000000000100V0000000000000", "0000000000200V0000000000100");
         r.troca(20, 137, "D", "A");
       }},
      {"document-total",
       [](Relatorio& r) { r.troca(41, 90, "0000000000000", "0000000000100"); },
       {":41:116-128: error document-total E20.13 \"Valor líquido\": found 12,00, expected 11,00" + kBanco},
       [](Relatorio& r) { r.troca(41, 90, "00000000000000000000000000", "00000000001000000000000100"); }},
      {"item-total",
       [](Relatorio& r) { r.troca(23, 186, "00001000", "00001001"); },
       {":23:210-223: warning item-total E15.16 \"Valor total líquido\": found 20,00, expected 20,02" +
        kBanco},
       [](Relatorio& r) { r.troca(26, 186, "00000300", "00000301"); }},
      {"coupon-items",
       [](Relatorio& r) { r.troca(26, 231, "S", "N"); },
       {":21:67-80: error coupon-items E14.9 \"Subtotal\": found items in E15 of 3,00 more, expected items "
        "that "
        "add up to "
        "it" +
        kBanco},
       [](Relatorio& r) { r.troca(27, 231, "N", "S"); }},
      {"coupon-payments",
       [](Relatorio& r) { r.troca(45, 80, "0000000000500", "0000000000499"); },
       {":21:109-122: error coupon-payments E14.14 \"Valor total líquido\": found payments in E21 of 0,01 "
        "less, "
        "expected "
        "payments that add up to it" +
        kBanco},
       [](Relatorio& r) { r.troca(45, 80, "0000000000500N0000000000000", "0000000000600S0000000000100"); }},
      {"nonfiscal-items",
       [](Relatorio& r) {
         r.troca(41, 77, "0000000001200", "0000000001300");
         r.troca(41, 116, "0000000001200", "0000000001300");
       },
       {":39:67-80: error nonfiscal-items E19.9 \"Subtotal\": found items in E20 of 1,00 more, expected "
        "items that add up to it (an item whose totalizer is not registered is left out; cotepe check names "
        "it)"},
       [](Relatorio& r) {
         r.insere(42, r[41]);
         r.troca(42, 59, "001", "002");
         r.troca(42, 129, "N", "S");
       }},
      {"nonfiscal-payments",
       [](Relatorio& r) { r.troca(46, 80, "0000000001200", "0000000001100"); },
       {":39:109-122: error nonfiscal-payments E19.14 \"Valor total líquido\": found payments in E21 of 1,00 "
        "less, "
        "expected "
        "payments that add up to it" +
        kBanco},
       [](Relatorio& r) {
         r.troca(46, 80, "0000000001200", "0000000001100");
         r.troca(39, 123, "N", "S");
       }},
      {"payments-over",
       [](Relatorio& r) { r.troca(45, 80, "0000000000500", "0000000000600"); },
       {":21:109-122: warning payments-over E14.14 \"Valor total líquido\": found payments in E21 of 1,00 "
        "more, "
        "expected "
        "payments that add up to it (where change is not recorded as a payment TROCO, switch this rule off)"},
       [](Relatorio& r) {
         r.troca(43, 80, "0000000005000", "0000000006000");
         r.troca(44, 80, "0000000002100", "0000000003100");
       }},
      {"orphan-record",
       [](Relatorio& r) { r.troca(38, 47, "000011", "000012"); },
       {R"(:38:47-52: error orphan-record E18.6 "CRZ": found "000012", expected a CRZ of E12)" + kDocumentos},
       [](Relatorio& r) { r.remove(38); }},
      {"reduction-totals",
       [](Relatorio& r) { r.troca(12, 60, "0000000003400", "0000000003401"); },
       {":10:87-100: error reduction-totals E12.12 \"Venda bruta diária\": found 38,00, expected 38,01, the "
        "sum of "
        "E13" +
        kBanco},
       [](Relatorio& r) { r.troca(13, 60, "0000000000000", "0000000000100"); }},
      {"reduction-nonfiscal",
       [](Relatorio& r) { r.troca(18, 60, "0000000001200", "0000000001300"); },
       {":18:60-72: error reduction-nonfiscal E13.8 \"Valor acumulado\": found 13,00, expected 12,00, the "
        "sum of "
        "E17" +
        kBanco},
       [](Relatorio& r) {
         r.troca(18, 60, "0000000001200", "0000000001300");
         r.troca(34, 68, "0000000001200", "0000000001300");
       }},
      {"reduction-document",
       [](Relatorio& r) { r.troca(10, 53, "000105", "000104"); },
       {R"(:30:47-52: error reduction-document E16.6 "COO": found "000105", expected "000104" as in E12)" +
        kBanco},
       [](Relatorio& r) {
         r.remove(33);
         r.troca(11, 53, "000109", "000108");
       }},
      {"reduction-range",
       [](Relatorio& r) { r.troca(1, 122, "000011", "000012"); },
       {R"(:1:122-127: error reduction-range E01.14 "CRZ final": found "000012", expected "000011" as E12 has )"
        "it" +
        kBanco},
       [](Relatorio& r) {
         r.troca(1, 136, "20240103", "20240104");
         r.troca(11, 73, "20240103", "20240104");
       }},
      {"grand-total",
       [](Relatorio& r) { r.troca(2, 253, "000000000000104500", "000000000000004499"); },
       {":2:253-270: error grand-total E02.12 \"Totalizador geral (GT)\": found 44,99, expected no less than "
        "45,00, "
        "the gross "
        "sales of E12" +
        kBanco},
       [](Relatorio& r) { r.troca(2, 253, "000000000000104500", "000000000000004500"); }},
      {"position",
       [](Relatorio& r) { r.troca(9, 63, "000054", "000053"); },
       {R"(:9:63-68: error position E11.8 "GNF": found "000053", expected no less than "000054" of E16)" +
        kBanco},
       [](Relatorio& r) { r.troca(9, 63, "000054", "000055"); }},
      {"totalizer-items",
       [](Relatorio& r) {
         r.troca(12, 60, "0000000003400", "0000000003300");
         r.troca(10, 87, "00000000003800", "00000000003700");
       },
       {R"(:12:60-72: error totalizer-items E13.8 "Valor acumulado": found "01T1800" of 33,00, expected 34,00, the )"
        "sum in E15" +
        kBanco},
       [](Relatorio& r) {
         r.troca(25, 176, "0000100", "0000090");
         r.troca(25, 210, "00000000000500", "00000000000450");
         r.troca(21, 67, "00000000000500", "00000000000450");
         r.troca(21, 109, "00000000000500", "00000000000450");
         r.troca(45, 80, "0000000000500", "0000000000450");
         r.troca(36, 68, "0000000000500", "0000000000450");
         r.troca(12, 60, "0000000003400", "0000000003350");
         r.troca(10, 87, "00000000003800", "00000000003750");
       }},
      {"totalizer-adjustments",
       [](Relatorio& r) {
         r.troca(15, 60, "0000000000100", "0000000000200");
         r.troca(10, 87, "00000000003800", "00000000003900");
       },
       {R"(:15:60-72: error totalizer-adjustments E13.8 "Valor acumulado": found discounts of 2,00, expected 1,00, )"
        "as the coupons of the reduction and their items have it" +
        kBanco},
       [](Relatorio& r) { r.troca(15, 53, "DT     ", "DS     "); }},
      {"nonfiscal-totals",
       [](Relatorio& r) {
         r.troca(34, 68, "0000000001200", "0000000001100");
         r.troca(18, 60, "0000000001200", "0000000001100");
       },
       {R"(:34:68-80: error nonfiscal-totals E17.8 "Valor acumulado": found "CONTA DE LUZ" of 11,00, expected )"
        "12,00, the sum in E20" +
        kBanco},
       [](Relatorio& r) {
         r.troca(41, 90, "0000000000000", "0000000000100");
         r.troca(41, 116, "0000000001200", "0000000001100");
         r.troca(39, 67, "00000000001200", "00000000001100");
         r.troca(39, 109, "00000000001200", "00000000001100");
         r.troca(46, 80, "0000000001200", "0000000001100");
         r.troca(34, 68, "0000000001200", "0000000001100");
         r.troca(18, 60, "0000000001200", "0000000001100");
         r.troca(37, 68, "0000000004100", "0000000004000");
       }},
      {"payment-totals",
       [](Relatorio& r) { r.troca(36, 68, "0000000000500", "0000000000600"); },
       {R"(:36:68-80: error payment-totals E18.8 "Valor acumulado": found "CARTAO" of 6,00, expected 5,00, the )"
        "sum in E21" +
        kBanco},
       [](Relatorio& r) {
         std::string troco = r[37];
         troco.replace(52, 28, "TROCO          0000000002100");
         r.troca(37, 68, "0000000004100", "0000000006200");
         r.insere(38, troco);
       }},
      {"reduction-moment",
       [](Relatorio& r) { r.troca(30, 85, "200100", "200101"); },
       {R"(:30:85-90: error reduction-moment E16.13 "Hora final de emissão": found "200101", expected "200100" as )"
        "in E12" +
        kBanco},
       [](Relatorio& r) {
         r.troca(30, 85, "200100", "200101");
         r.troca(10, 81, "200100", "200101");
       }},
      {"receipt-document",
       [](Relatorio& r) { r.troca(29, 75, "CN", "NC"); },
       {R"(:39:47-52: error receipt-document E19.6 "COO": found "000104", expected a document CN of E16 with that )"
        "COO" +
        kDocumentos},
       [](Relatorio& r) {
         r.troca(32, 75, "CC", "CN");
         r.troca(32, 65, "0007", "0000");
       }},
      {"tape-range",
       [](Relatorio& r) {
         std::string fita = r[8];
         fita.replace(44, 6, "000004").replace(58, 12, "000111000112");
         r.troca(9, 99, "000003", "000004");
         r.insere(9, fita);
       },
       {R"(:9:59-64: error tape-range E10.7 "COO inicial": found "000111", expected "000110")" + kDocumentos},
       [](Relatorio& r) {
         std::string fita = r[8];
         fita.replace(44, 6, "000004").replace(58, 12, "000110000112");
         r.troca(9, 99, "000003", "000004");
         r.insere(9, fita);
       }},
      {"restart-known",
       [](Relatorio& r) { r.poe(2, 247, "000002"); },
       {R"(:2:247-252: error restart-known E02.11 "CRO": found "000002", expected a CRO of E09)" + kBanco},
       [](Relatorio& r) { r.poe(2, 247, "000000"); }},
      {"software-version",
       [](Relatorio& r) { r.troca(5, 45, "01.00.00  ", "01.00.01  "); },
       {R"(:1:72-81: error software-version E01.7 "Versão do software básico": found "01.00.00", expected )"
        R"("01.00.01" as in E07)" +
        kBanco},
       [](Relatorio& r) {
         std::string anterior = r[5];
         anterior.replace(44, 18, "00.09.00  20230101");
         r.insere(5, anterior);
       }},
      {"reversal",
       [](Relatorio& r) { r.troca(43, 93, "N", "S"); },
       {":43:93-93: error reversal E21.11 \"Estornado (S/N)\": found \"S\", expected \"N\" with a reversed "
        "amount "
        "of 0,00" +
        kBanco},
       [](Relatorio& r) {
         r.troca(43, 80, "0000000005000", "0000000005100");
         r.troca(43, 93, "N0000000000000", "S0000000000100");
       }},
      {"document-day",
       [](Relatorio& r) { r.troca(22, 59, "20240103", "20240105"); },
       {R"(:22:59-66: warning document-day E14.8 "Data de emissão": found "20240105", expected "20240103" or the )"
        "day after, as its reduction 11" +
        kBanco},
       [](Relatorio& r) { r.troca(22, 59, "20240103", "20240104"); }},
      {"reduction-day",
       [](Relatorio& r) {
         r.troca(11, 73, "20240103", "20240105");
         r.troca(33, 77, "20240103", "20240105");
         r.troca(1, 136, "20240103", "20240105");
       },
       {R"(:11:73-80: warning reduction-day E12.10 "Data de emissão": found "20240105", expected "20240103" or the )"
        "day after" +
        kBanco},
       [](Relatorio& r) {
         r.troca(11, 73, "20240103", "20240104");
         r.troca(33, 77, "20240103", "20240104");
         r.troca(1, 136, "20240103", "20240104");
       }},
      {"repeated-line",
       [](Relatorio& r) { r.insere(6, r[5]); },
       {":6: warning repeated-line E07: found the same line as the one before, expected a line of its own" +
        kDocumentos},
       [](Relatorio& r) {
         std::string anterior = r[5];
         anterior.replace(44, 18, "00.09.00  20230101");
         r.insere(5, anterior);
       }},
      {"surcharge-cancelled",
       [](Relatorio& r) { r.troca(21, 124, "0000000000000", "0000000000001"); },
       {R"(:21:124-136: error surcharge-cancelled E14.16 "Cancelamento de acréscimo": found 0,01, expected at most )"
        "0,00, the surcharge" +
        kBanco},
       [](Relatorio& r) {
         r.troca(21, 95, "0000000000000", "0000000000001");
         r.troca(21, 109, "00000000000500", "00000000000501");
         r.troca(21, 124, "0000000000000 ", "0000000000001A");
         r.troca(45, 80, "0000000000500", "0000000000501");
         r.troca(36, 68, "0000000000500", "0000000000501");
         r.troca(12, 60, "0000000003400", "0000000003401");
         r.troca(13, 60, "0000000000000", "0000000000001");
         r.troca(10, 87, "00000000003800", "00000000003801");
       }},
  };
  return todos;
}

std::vector<std::string> doArquivo(std::vector<std::string> dito) {
  for (std::string& texto : dito) texto.insert(0, "r.txt");
  return dito;
}

TEST(Regras, GoodReportHasNoFinding) {
  EXPECT_EQ(achados(Relatorio::bom(1).texto()), std::vector<std::string>());
  EXPECT_EQ(achados(Relatorio::bom(2).texto()), std::vector<std::string>());
}

TEST(Regras, EachOneIsBrokenAloneAndSaysSo) {
  for (const Caso& caso : casos()) {
    Relatorio relatorio = Relatorio::bom();
    caso.quebra(relatorio);
    EXPECT_EQ(achados(relatorio.texto()), doArquivo(caso.dito)) << caso.regra;
  }
}

// Those that rest on the whole file: a change that another rule just allows may well be one for them.
Supressoes doArquivoInteiroMenos(const std::string& uma) {
  Supressoes desligadas;
  for (const char* nome : {"totalizer-items", "totalizer-adjustments", "nonfiscal-totals", "payment-totals",
                           "reduction-moment", "receipt-document", "tape-range", "restart-known",
                           "software-version", "reversal", "document-day", "reduction-day", "repeated-line"})
    if (nome != uma) desligadas.desliga(*Regras(validacao::kRegras).acha(nome));
  return desligadas;
}

TEST(Regras, EachOneIsJustKept) {
  for (const Caso& caso : casos()) {
    Relatorio relatorio = Relatorio::bom();
    caso.quase(relatorio);
    EXPECT_EQ(achados(relatorio.texto(), doArquivoInteiroMenos(caso.regra)), std::vector<std::string>())
        << caso.regra;
  }
}

TEST(Regras, EachOneCanBeSwitchedOff) {
  for (const Caso& caso : casos()) {
    Relatorio relatorio = Relatorio::bom();
    caso.quebra(relatorio);
    const Regra* regra = Regras(validacao::kRegras).acha(caso.regra);
    ASSERT_NE(regra, nullptr) << caso.regra;
    Supressoes desligadas;
    desligadas.desliga(*regra);
    EXPECT_EQ(achados(relatorio.texto(), desligadas), std::vector<std::string>()) << caso.regra;
  }
}

TEST(Regras, OtherNamesAreNone) {
  EXPECT_EQ(Regras(validacao::kRegras).acha("line"), nullptr);
  EXPECT_EQ(Regras(validacao::kRegras).acha(""), nullptr);
}

TEST(Regras, EachOneHasACase) {
  std::set<std::string> comCaso, todas;
  for (const Caso& caso : casos()) comCaso.insert(caso.regra);
  for (const Regra* regra : validacao::kRegras) todas.insert(regra->nome);
  EXPECT_EQ(comCaso, todas);
}

}  // namespace
}  // namespace cotepe
