// Findings as people and programs get them, word for word.
#include <gtest/gtest.h>

#include <sys/ioctl.h>
#include <cstdlib>

#include <sstream>

#include "Achados/Citacao.h"
#include "Achados/Json.h"
#include "Achados/SaidaDeAchados.h"
#include "Achados/Trecho.h"
#include "Idioma/Utf8.h"
#include "PseudoTerminal.h"

namespace cotepe {
namespace {

Achado noRelatorio() {
  Achado achado;
  achado.regra = "field-letter";
  achado.arquivo = "r.txt";
  achado.linha = 2;
  achado.de = 3;
  achado.ate = 5;
  achado.conteudo = "ABxyzCD";
  achado.registro = "E14";
  achado.numero = 15;
  achado.campo = "Cancelado (S/N)";
  achado.encontrado = "\"xyz\"";
  achado.esperado = "S or N";
  achado.conserto = "correct it";
  return achado;
}

Achado noBanco() {
  Achado achado;
  achado.severidade = Severidade::Aviso;
  achado.regra = "text-length";
  achado.arquivo = "loja.db";
  achado.tabela = "cupom_fiscal";
  achado.chave = "cont_coo=12";
  achado.coluna = "id_cancelado";
  achado.encontrado = "an empty text";
  return achado;
}

std::string saida(const SaidaDeAchados::Opcoes& opcoes, const std::vector<Achado>& achados) {
  std::ostringstream texto;
  SaidaDeAchados saida(texto, opcoes);
  for (const Achado& achado : achados) saida.recebe(achado);
  saida.termina();
  return texto.str();
}

TEST(SaidaDeAchados, TextIsALineAFindingAndTheCounts) {
  EXPECT_EQ(saida({}, {}), "");
  EXPECT_EQ(saida({}, {noRelatorio(), noBanco()}),
            "r.txt:2:3-5: error field-letter E14.15 \"Cancelado (S/N)\": found \"xyz\", expected S or N "
            "(correct it)\n"
            "loja.db: cupom_fiscal[cont_coo=12].id_cancelado: warning text-length: found an empty text\n"
            "  field-letter            1\n"
            "  text-length             1\n"
            "1 error, 1 warning\n");
}

TEST(SaidaDeAchados, WhatAFindingLacksIsLeftOut) {
  Achado achado;
  achado.regra = "rule";
  achado.esperado = "this";
  EXPECT_EQ(textoDoAchado(achado), "error rule: expected this");
  achado.registro = "E08";
  achado.arquivo = "r.txt";
  EXPECT_EQ(textoDoAchado(achado), "r.txt: error rule E08: expected this");
}

TEST(SaidaDeAchados, CountsStayWholeBeyondTheLimit) {
  SaidaDeAchados::Opcoes opcoes;
  opcoes.maximo = 1;
  EXPECT_EQ(saida(opcoes, {noBanco(), noRelatorio(), noRelatorio(), noRelatorio()}),
            "loja.db: cupom_fiscal[cont_coo=12].id_cancelado: warning text-length: found an empty text\n"
            "r.txt:2:3-5: error field-letter E14.15 \"Cancelado (S/N)\": found \"xyz\", expected S or N "
            "(correct it)\n"
            "field-letter: ... and 2 more like this; --all shows them\n"
            "  field-letter            3\n"
            "  text-length             1\n"
            "3 errors, 1 warning (2 shown)\n");
  opcoes.formato = FormatoDeAchados::Json;
  opcoes.maximo = 0;
  EXPECT_EQ(saida(opcoes, {noBanco(), noRelatorio(), noRelatorio()}),
            "{\"summary\":{\"errors\":2,\"warnings\":1,\"shown\":0}}\n");
}

TEST(SaidaDeAchados, TerminalSeesTheLineWithACaret) {
  SaidaDeAchados::Opcoes opcoes;
  opcoes.comLinha = true;
  EXPECT_EQ(saida(opcoes, {noRelatorio()}),
            "r.txt:2:3-5: error field-letter E14.15 \"Cancelado (S/N)\": found \"xyz\", expected S or N "
            "(correct it)\n"
            "  ABxyzCD\n"
            "    ^~~\n"
            "1 error, 0 warnings\n");
  opcoes.cores = true;
  EXPECT_EQ(saida(opcoes, {noRelatorio()}),
            "r.txt:2:3-5: \033[1;31merror\033[0m field-letter E14.15 \"Cancelado (S/N)\": found \"xyz\", "
            "expected S or "
            "N (correct it)\n"
            "  ABxyzCD\n"
            "  \033[1;32m  ^~~\033[0m\n"
            "1 error, 0 warnings\n");
}

TEST(SaidaDeAchados, JsonIsAnObjectALine) {
  SaidaDeAchados::Opcoes opcoes;
  opcoes.formato = FormatoDeAchados::Json;
  EXPECT_EQ(
      saida(opcoes, {noRelatorio(), noBanco()}),
      "{\"severity\":\"error\",\"rule\":\"field-letter\",\"file\":\"r.txt\",\"line\":2,\"columns\":[3,5],"
      "\"register\":\"E14\",\"field\":15,\"label\":\"Cancelado (S/N)\",\"found\":\"\\\"xyz\\\"\","
      "\"expected\":\"S or N\",\"fix\":\"correct it\"}\n"
      "{\"severity\":\"warning\",\"rule\":\"text-length\",\"file\":\"loja.db\",\"table\":\"cupom_fiscal\","
      "\"key\":\"cont_coo=12\",\"column\":\"id_cancelado\",\"found\":\"an empty text\"}\n"
      "{\"summary\":{\"errors\":1,\"warnings\":1,\"shown\":2}}\n");
}

TEST(SaidaDeAchados, SarifIsOneDocument) {
  SaidaDeAchados::Opcoes opcoes;
  opcoes.formato = FormatoDeAchados::Sarif;
  const std::string abre =
      "{\"$schema\":\"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
      "sarif-schema-2.1.0.json\","
      "\"version\":\"2.1.0\",\"runs\":[{\"results\":[";
  EXPECT_EQ(saida(opcoes, {}), abre +
                                   "\n],\"tool\":{\"driver\":{\"name\":\"cotepe\",\"rules\":[]}},"
                                   "\"properties\":{\"errors\":0,\"warnings\":0,\"shown\":0}}]}\n");
  EXPECT_EQ(
      saida(opcoes, {noRelatorio(), noBanco()}),
      abre +
          "\n{\"ruleId\":\"field-letter\",\"level\":\"error\",\"message\":{\"text\":\"E14.15 \\\"Cancelado "
          "(S/N)\\\": found \\\"xyz\\\", expected S or N (correct "
          "it)\"},\"locations\":[{\"physicalLocation\":{"
          "\"artifactLocation\":{\"uri\":\"r.txt\"},\"region\":{\"startLine\":2,\"startColumn\":3,"
          "\"endColumn\":6}}}]},\n"
          "{\"ruleId\":\"text-length\",\"level\":\"warning\",\"message\":{\"text\":\"found an empty text\"},"
          "\"locations\":[{\"physicalLocation\":{\"artifactLocation\":{\"uri\":\"loja.db\"}},"
          "\"logicalLocations\":[{\"fullyQualifiedName\":\"cupom_fiscal[cont_coo=12].id_cancelado\"}]}]}\n"
          "],\"tool\":{\"driver\":{\"name\":\"cotepe\",\"rules\":[{\"id\":\"field-letter\"},"
          "{\"id\":\"text-length\"}]}},\"properties\":{\"errors\":1,\"warnings\":1,\"shown\":2}}]}\n");
}

TEST(SaidaDeAchados, ColoursAreForTerminals) {
  const SaidaDeAchados::Opcoes opcoes = SaidaDeAchados::opcoesPara(-1);
  EXPECT_FALSE(opcoes.comLinha);
  EXPECT_FALSE(opcoes.cores);
}

TEST(SaidaDeAchados, OnATerminalOnlyAFilledNoColorTakesTheColoursAway) {
  EXIGE_TERMINAL();
  const PseudoTerminal aberto;
  const int terminal = aberto.descritor();
  unsetenv("NO_COLOR");
  EXPECT_TRUE(SaidaDeAchados::opcoesPara(terminal).cores);
  setenv("NO_COLOR", "", 1);
  EXPECT_TRUE(SaidaDeAchados::opcoesPara(terminal).cores);
  setenv("NO_COLOR", "1", 1);
  EXPECT_FALSE(SaidaDeAchados::opcoesPara(terminal).cores);
  EXPECT_TRUE(SaidaDeAchados::opcoesPara(terminal).comLinha);
  unsetenv("NO_COLOR");
}

TEST(SaidaDeAchados, FormatsHaveNames) {
  FormatoDeAchados formato{};
  EXPECT_TRUE(formatoDeAchados("sarif", formato));
  EXPECT_EQ(formato, FormatoDeAchados::Sarif);
  EXPECT_FALSE(formatoDeAchados("xml", formato));
}

TEST(Json, AnyBytesMakeAValidString) {
  EXPECT_EQ(textoJson("a\"b\\c\n\x1F"), "\"a\\\"b\\\\c\\n\\u001f\"");
  EXPECT_EQ(textoJson("Nº"), "\"Nº\"");
  EXPECT_EQ(textoJson("N\xBA"), "\"Nº\"");
  EXPECT_EQ(textoJson(std::string("\0", 1)), "\"\\u0000\"");
}

TEST(Utf8, BytesThatAreNoneAreTakenAsLatin1) {
  EXPECT_EQ(emUtf8("\xC0\x80"), "\xC3\x80\xC2\x80");              // overlong
  EXPECT_EQ(emUtf8("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xC2\x80");  // a surrogate
  EXPECT_EQ(emUtf8("\xE0\x9F\xBF"), "\xC3\xA0\xC2\x9F\xC2\xBF");  // overlong
  EXPECT_EQ(emUtf8("\xF0\x8F\xBF\xBF"), "\xC3\xB0\xC2\x8F\xC2\xBF\xC2\xBF");
  EXPECT_EQ(emUtf8("\xF4\x90\x80\x80"), "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80");  // beyond the last
  EXPECT_EQ(emUtf8("\xF5\x80\x80\x80"), "\xC3\xB5\xC2\x80\xC2\x80\xC2\x80");
  EXPECT_EQ(emUtf8("\xE2\x82"), "\xC3\xA2\xC2\x82");  // cut short
  EXPECT_EQ(emUtf8("\xC3("), "\xC3\x83(");
  const std::string extremos = "\xE0\xA0\x80\xED\x9F\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  EXPECT_EQ(emUtf8(extremos), extremos);
  EXPECT_EQ(caracteresUtf8(extremos), 4U);
}

TEST(SaidaDeAchados, ADumbTerminalHasNoColours) {
  EXIGE_TERMINAL();
  const PseudoTerminal aberto;
  unsetenv("NO_COLOR");
  const char* antes = getenv("TERM");
  const std::string guardado = antes != nullptr ? antes : "";
  setenv("TERM", "dumb", 1);
  EXPECT_FALSE(SaidaDeAchados::opcoesPara(aberto.descritor()).cores);
  EXPECT_TRUE(SaidaDeAchados::opcoesPara(aberto.descritor()).comLinha);
  setenv("TERM", guardado.c_str(), 1);
}

TEST(SaidaDeAchados, TheLineFitsTheTerminal) {
  EXIGE_TERMINAL();
  const PseudoTerminal aberto;
  Achado achado = noRelatorio();
  achado.conteudo = std::string(885, 'a');
  achado.de = 700;
  achado.ate = 702;
  for (const unsigned short colunas : std::initializer_list<unsigned short>{60, 80, 200}) {
    const winsize tamanho{24, colunas, 0, 0};
    ASSERT_EQ(ioctl(aberto.descritor(), TIOCSWINSZ, &tamanho), 0);
    SaidaDeAchados::Opcoes opcoes = SaidaDeAchados::opcoesPara(aberto.descritor());
    opcoes.cores = false;
    std::istringstream texto(saida(opcoes, {achado}));
    std::string lugar, linha, marca;
    std::getline(std::getline(std::getline(texto, lugar), linha), marca);
    EXPECT_EQ(linha.size(), colunas) << linha;
    EXPECT_EQ(linha.substr(0, 5), "  ...") << linha;
    EXPECT_EQ(linha.substr(linha.size() - 3), "...") << linha;
    EXPECT_LE(marca.size(), colunas);
    EXPECT_EQ(marca.substr(marca.size() - 3), "^~~");
  }
}

TEST(Json, UriOfAFileKeepsLettersDigitsAndSeparatorsAlone) {
  EXPECT_EQ(uriDoArquivo("/azAZ09-._~/a b"), "/azAZ09-._~/a%20b");
  EXPECT_EQ(uriDoArquivo("m\xC3\xAAs%#?.txt"), "m%C3%AAs%25%23%3F.txt");
}

TEST(Trecho, LongLineIsCutAroundTheBytesMeant) {
  std::string linha(300, 'a');
  linha.replace(199, 3, "XYZ");
  const Trecho meio = trechoDaLinha(linha, 200, 202, 20);
  EXPECT_EQ(meio.linha, "...aaaaaaaXYZaaaa...");
  EXPECT_EQ(meio.marca, "          ^~~");
  const Trecho comeco = trechoDaLinha(linha, 1, 3, 20);
  EXPECT_EQ(comeco.linha, "aaaaaaaaaaaaaa...");
  EXPECT_EQ(comeco.marca, "^~~");
  const Trecho alem = trechoDaLinha("abc", 200, 202, 20);
  EXPECT_EQ(alem.linha, "abc");
  EXPECT_EQ(alem.marca, "   ^");
  const Trecho fim = trechoDaLinha(linha, 299, 300, 20);
  EXPECT_EQ(fim.linha, "...aaaaaaaaa");
  EXPECT_EQ(fim.marca, "          ^~");
}

TEST(Trecho, WhatCannotBeShownIsAQuestionMark) { EXPECT_EQ(mostravel("a\tb\xC1~\x7F"), "a?b?~?"); }

}  // namespace
}  // namespace cotepe
