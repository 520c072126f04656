// Records as people and programs see them.
#include <gtest/gtest.h>

#include <sstream>

#include "Exibicao/Exibicao.h"
#include "Exibicao/Selecao.h"
#include "Relatorio.h"

namespace cotepe {
namespace {

std::string mostra(const Relatorio& relatorio, FormatoDeExibicao formato, const Selecao& selecao,
                   bool mascara = false) {
  const std::string texto = relatorio.texto();
  std::ostringstream saida;
  const auto exibicao = novaExibicao(formato, saida, mascara);
  LeitorDeLinhas linhas{std::string_view(texto)};
  LeitorDeRegistros registros(linhas);
  for (RegistroLido lido; registros.proximo(lido);)
    if (selecao.aceita(lido)) exibicao->mostra(lido);
  return saida.str();
}

Selecao daLinha(long linha) {
  Selecao selecao;
  selecao.linha = linha;
  return selecao;
}

Selecao doRegistro(const char* codigo) {
  Selecao selecao;
  selecao.registros = {kCatalogo.indiceDe(codigo)};
  return selecao;
}

TEST(Exibicao, TextIsABlockOfLabelsAndValues) {
  EXPECT_EQ(mostra(Relatorio::bom(), FormatoDeExibicao::Texto, daLinha(39)),
            "E19, line 39: Comprovante Não Fiscal\n"
            "  Tipo do registro               E19\n"
            "  Nº de fabricação do ECF        SERIAL\n"
            "  MF adicional\n"
            "  Modelo do ECF                  MODELO\n"
            "  Nº de ordem do usuário         01\n"
            "  COO                            000104\n"
            "  GNF                            000052\n"
            "  Data de emissão                02/01/2024\n"
            "  Subtotal                       12,00\n"
            "  Desconto                       0,00\n"
            "  Tipo do desconto               V\n"
            "  Acréscimo                      0,00\n"
            "  Tipo do acréscimo              V\n"
            "  Valor total líquido            12,00\n"
            "  Cancelado (S/N)                N\n"
            "  Cancelamento de acréscimo      0,00\n"
            "  Ordem de desconto e acréscimo\n"
            "  Nome do consumidor\n"
            "  CPF/CNPJ do consumidor         00000000000000\n");
}

TEST(Exibicao, TableHasARowARecordWithoutTheHead) {
  Selecao selecao = doRegistro("E17");
  selecao.registros.push_back(kCatalogo.indiceDe("E13"));
  selecao.crz = 11;
  EXPECT_EQ(mostra(Relatorio::bom(), FormatoDeExibicao::Tabela, selecao),
            "E13: Detalhe da Redução Z - Totalizadores Parciais\n"
            "    line       CRZ  Totalizador parcial    Valor acumulado\n"
            "      16    000011  01T1800                           0,00\n"
            "      17    000011  Can-T                             7,00\n"
            "      19    000011  OPNF                              8,00\n"
            "\n"
            "E17: Detalhe da Redução Z - Totalizadores Não Fiscais\n"
            "    line       CRZ  Totalizador não fiscal    Valor acumulado\n"
            "      35    000011  SUPRIMENTO                           8,00\n");
}

TEST(Exibicao, JsonHasNumbersAndIsoDates) {
  EXPECT_EQ(
      mostra(Relatorio::bom(), FormatoDeExibicao::Json, daLinha(10)),
      "{\"line\":10,\"register\":\"E12\",\"fields\":{\"Tipo do registro\":\"E12\",\"Nº de fabricação do "
      "ECF\":\"SERIAL\",\"MF adicional\":\"\",\"Modelo do ECF\":\"MODELO\",\"Nº de ordem do usuário\":1,"
      "\"CRZ\":10,\"COO\":105,\"CRO\":1,\"Data do movimento\":\"2024-01-02\",\"Data de "
      "emissão\":\"2024-01-02\","
      "\"Hora de emissão\":\"20:01:00\",\"Venda bruta diária\":38.00,\"Indicador\":\"S\"}}\n");
}

TEST(Exibicao, CsvOfOneRegisterHasARowARecord) {
  EXPECT_EQ(
      mostra(Relatorio::bom(), FormatoDeExibicao::CsvDeUmRegistro, doRegistro("E17")),
      "line,Tipo do registro,Nº de fabricação do ECF,MF adicional,Modelo do ECF,Nº de ordem do usuário,CRZ,"
      "Totalizador não fiscal,Valor acumulado\n"
      "34,E17,SERIAL,,MODELO,1,10,CONTA DE LUZ,12.00\n"
      "35,E17,SERIAL,,MODELO,1,11,SUPRIMENTO,8.00\n");
}

TEST(Exibicao, CsvQuotesWhatItMust) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(34, 53, "CONTA DE LUZ", "LUZ, \"AGUA\" ");
  const std::string csv = mostra(relatorio, FormatoDeExibicao::Csv, daLinha(34));
  EXPECT_NE(csv.find("34,E17,7,Totalizador não fiscal,\"LUZ, \"\"AGUA\"\"\"\n"), std::string::npos) << csv;
}

TEST(Exibicao, QuantitiesHaveTheDecimalPlacesThatTheItemSays) {
  const std::string json = mostra(Relatorio::bom(), FormatoDeExibicao::Json, daLinha(24));
  EXPECT_NE(json.find("\"Quantidade\":1.250,"), std::string::npos) << json;
  EXPECT_NE(json.find("\"Valor unitário\":8.000,"), std::string::npos) << json;
  const std::string outro = mostra(Relatorio::bom(), FormatoDeExibicao::Json, daLinha(23));
  EXPECT_NE(outro.find("\"Quantidade\":2.00,"), std::string::npos) << outro;
}

TEST(Exibicao, MaskHidesTheConsumer) {
  const std::string texto = mostra(Relatorio::bom(2), FormatoDeExibicao::Texto, daLinha(20), true);
  EXPECT_NE(texto.find("Nome do consumidor             ***** ** *****\n"), std::string::npos) << texto;
  EXPECT_NE(texto.find("CPF/CNPJ do consumidor         **************\n"), std::string::npos) << texto;
  EXPECT_NE(texto.find("Texto suplementar              ********\n"), std::string::npos) << texto;
  EXPECT_NE(texto.find("Valor total líquido            29,00\n"), std::string::npos) << texto;
  EXPECT_EQ(texto.find("MARIA"), std::string::npos);
  EXPECT_EQ(texto.find("52998224725"), std::string::npos);
}

TEST(Exibicao, DamagedFieldsStandAsTheyAre) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(10, 65, "20240102", "20241301");
  relatorio.troca(10, 87, "00000000003800", "-0000000003800");
  const std::string json = mostra(relatorio, FormatoDeExibicao::Json, daLinha(10));
  EXPECT_NE(json.find("\"Data do movimento\":\"20241301\""), std::string::npos) << json;
  EXPECT_NE(json.find("\"Venda bruta diária\":\"-0000000003800\""), std::string::npos) << json;
}

TEST(Exibicao, ThousandsAreGrouped) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(36, 68, "0000000000500", "1234567890123");
  const std::string texto = mostra(relatorio, FormatoDeExibicao::Texto, daLinha(36));
  EXPECT_NE(texto.find("12.345.678.901,23\n"), std::string::npos) << texto;
}

TEST(Exibicao, RepeatedLabelsAreNumbered) {
  Relatorio relatorio = Relatorio::bom();
  relatorio.troca(1, 99, "11222333000181", "1122233300018199888777000166");
  const std::string json = mostra(relatorio, FormatoDeExibicao::Json, daLinha(1));
  EXPECT_NE(json.find("\"CNPJ do usuário\":\"11222333000181\",\"CNPJ do usuário (2)\":\"99888777000166\""),
            std::string::npos)
      << json;
}

TEST(Selecao, FindsByCounter) {
  const auto linhas = [](const Selecao& selecao) {
    std::string csv = mostra(Relatorio::bom(), FormatoDeExibicao::Csv, selecao), achadas;
    std::istringstream entrada(csv);
    for (std::string linha; std::getline(entrada, linha);)
      if (linha.find(",1,Tipo do registro,") != std::string::npos)
        achadas += linha.substr(0, linha.find(',')) + ' ';
    return achadas;
  };
  Selecao coo, crz, tudo;
  coo.coo = 102;
  EXPECT_EQ(linhas(coo), "20 23 24 43 44 ");
  crz.crz = 11;
  EXPECT_EQ(linhas(crz), "9 11 16 17 19 33 35 38 ");
  tudo.coo = 102;
  tudo.registros = {kCatalogo.indiceDe("E15")};
  EXPECT_EQ(linhas(tudo), "23 24 ");
}

}  // namespace
}  // namespace cotepe
