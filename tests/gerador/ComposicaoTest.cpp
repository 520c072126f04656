// The engine alone, over rows and a report of the test's own: what no register of the file asks of it.
#include "Leiaute/Composicao.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "Leiaute/Especies.h"
#include "Leiaute/Registro.h"
#include "Leiaute/Texto.h"

namespace {

using namespace cotepe;

class SemAplicacao : public Hospedeiro {
 public:
  void registraLog(const char* /*mensagem*/) override {}
  const char* serial() override { return ""; }
  const char* modelo() override { return ""; }
  const char* tipo() override { return ""; }
  void dataHoraAtual(char* /*saida*/) override {}
  void preenche(char* /*texto*/, char* /*destino*/, int /*largura*/) override {}
};

// Puts the text whole, blanks up to the width, and so many characters more; no terminator.
class ComSobra : public SemAplicacao {
 public:
  explicit ComSobra(std::size_t sobra) : sobra_(sobra) {}
  void preenche(char* texto, char* destino, int largura) override {
    std::string posto(texto);
    posto.resize(std::max(posto.size(), static_cast<std::size_t>(largura)), ' ');
    posto.append(sobra_, '!');
    std::copy(posto.begin(), posto.end(), destino);
  }

 private:
  std::size_t sobra_;
};

// So many rows whose every column is "x".
class Linhas : public Leitura {
 public:
  explicit Linhas(int quantas) : quantas_(quantas) {}
  bool avanca() override { return quantas_-- > 0; }
  bool completa() const override { return true; }
  void finaliza() override {}
  const char* texto(int /*coluna*/) const override { return "x"; }
  int bytes(int /*coluna*/) const override { return 1; }

 private:
  int quantas_;
};

class EmMemoria : public Execucao {
 public:
  EmMemoria(bool cat52, int linhas, SemAplicacao& aplicacao)
      : Execucao(comCat52(cat52), aplicacao), quantas_(linhas) {}
  std::unique_ptr<Leitura> consulta(const char* /*sql*/) override {
    return std::make_unique<Linhas>(quantas_);
  }
  void grava(Linha& linha) override { gravadas.emplace_back(linha.texto()); }
  void falha(const char* /*mensagem*/) override { ADD_FAILURE() << "no query of these fails"; }

  std::vector<std::string> gravadas;

 private:
  static Ajustes comCat52(bool cat52) {
    Ajustes ajustes;
    ajustes.cat52 = cat52;
    return ajustes;
  }
  int quantas_;
};

using Gravadas = std::vector<std::string>;

Gravadas escreve(Campos campos, Vazio vazio, bool cat52, int linhas) {
  Registro registro = Registro("E99", "", campos, escreveTabela).consulta("", "").nosComandos(kTodos);
  registro.vazio = vazio;
  SemAplicacao aplicacao;
  EmMemoria execucao(cat52, linhas, aplicacao);
  registro.escreve(execucao, registro);
  return execucao.gravadas;
}

constexpr std::array<Campo, 2> kConstantes = {leiaute::tipoDoRegistro("E99"), texto("", 2, constante("a"))};
constexpr std::array<Campo, 2> kUmaColuna = {leiaute::tipoDoRegistro("E99"), texto("", 2, coluna(0))};

TEST(Tabela, OfConstantsAloneIsTheSameInEveryRecordAndInThePlaceholder) {
  EXPECT_EQ(escreve(kConstantes, Vazio::Sempre, false, 2), (Gravadas{"E99a ", "E99a "}));
  EXPECT_EQ(escreve(kConstantes, Vazio::Sempre, false, 0), Gravadas{"E99a "});
}

TEST(Tabela, WithoutARowHasThePlaceholderThatTheRegisterSays) {
  EXPECT_EQ(escreve(kUmaColuna, Vazio::Sempre, true, 0), Gravadas{"E99  "});
  EXPECT_EQ(escreve(kUmaColuna, Vazio::Sempre, false, 0), Gravadas{"E99  "});
  EXPECT_EQ(escreve(kUmaColuna, Vazio::ForaDoCat52, true, 0), Gravadas{});
  EXPECT_EQ(escreve(kUmaColuna, Vazio::ForaDoCat52, false, 0), Gravadas{"E99  "});
  EXPECT_EQ(escreve(kUmaColuna, Vazio::Nunca, false, 0), Gravadas{});
}

TEST(Tabela, WithRowsHasNoPlaceholder) {
  EXPECT_EQ(escreve(kUmaColuna, Vazio::Sempre, false, 1), Gravadas{"E99x "});
}

TEST(Tabela, ThatBeginsWithAColumnHasItsBlankInThePlaceholder) {
  static constexpr std::array<Campo, 1> kLetra = {letra("", coluna(0))};
  EXPECT_EQ(escreve(kLetra, Vazio::Sempre, false, 1), Gravadas{"x"});
  EXPECT_EQ(escreve(kLetra, Vazio::Sempre, false, 0), Gravadas{" "});
}

TEST(Tabela, CountsItsRecords) {
  SemAplicacao aplicacao;
  EmMemoria execucao(false, 0, aplicacao);
  Linhas linhas(3);
  EXPECT_EQ(gravaLinhas(execucao, kUmaColuna, linhas, linhas), 3);
  EXPECT_EQ(execucao.gravadas.size(), 3U);
}

std::string composta(Campos campos, const Fonte& fonte, SemAplicacao&& aplicacao = {}) {
  EmMemoria execucao(false, 0, aplicacao);
  Linha linha;
  compoe(linha, campos, fonte, execucao);
  return std::string(linha.texto());
}

TEST(Composicao, TheDecimalPlacesMayStandInTheFirstColumn) {
  const std::array<Campo, 1> kDecimal = {decimal("", 7, coluna(1)).casas(0)};
  const SemFonte nada;
  EXPECT_EQ(composta(kDecimal, FonteCom(FonteCom(nada, 0, "3"), 1, "1.5")), "0001500");
  EXPECT_EQ(composta(kDecimal, FonteCom(FonteCom(nada, 0, "2"), 1, "1.5")), "0000150");
  const std::array<Campo, 1> kSempreDuas = {decimal("", 7, coluna(1))};
  EXPECT_EQ(composta(kSempreDuas, FonteCom(FonteCom(nada, 0, "3"), 1, "1.5")), "0000150");
}

TEST(Composicao, OfWhatTheHostPutsNoMoreIsTakenThanTheWidthOrTheText) {
  const std::array<Campo, 1> kNome = {preenchido("", 5, coluna(0))};
  const SemFonte nada;
  EXPECT_EQ(composta(kNome, FonteCom(nada, 0, "ab"), ComSobra(1)), "ab   ");
  EXPECT_EQ(composta(kNome, FonteCom(nada, 0, "abcdefg"), ComSobra(1)), "abcdefg");
}

// What is put outside the room is seen by a sanitizer, or by the allocator.
TEST(Composicao, ATextStaysInItsRoomWhereverTheLineEnds) {
  const std::string texto(90, 'x');
  for (int antes = 800; antes < 1100; ++antes) {
    const std::string inicio(static_cast<std::size_t>(antes), 'a');
    const std::array<Campo, 2> campos = {cotepe::texto("", antes, constante(inicio.c_str())),
                                         cotepe::texto("", 100, constante(texto.c_str()))};
    EXPECT_EQ(composta(campos, SemFonte()), inicio + texto + "          ") << antes;
  }
}

TEST(Composicao, ATextThatTheHostPlacesStaysInItsRoomHoweverLong) {
  for (std::size_t tamanho = 3000; tamanho < 3040; ++tamanho) {
    const std::string texto(tamanho, 'x');
    for (const std::size_t largura : {std::size_t{20}, std::size_t{3100}}) {
      const std::array<Campo, 1> campos = {
          preenchido("", static_cast<int>(largura), constante(texto.c_str()))};
      const std::size_t sobram = largura > tamanho ? largura - tamanho : 0;
      EXPECT_EQ(composta(campos, SemFonte(), ComSobra(0)), texto + std::string(sobram, ' ')) << tamanho;
    }
  }
}

TEST(Ajustes, OfWhichNothingIsSaidAreThoseOfLayout1OutsideCat52) {
  const Ajustes ajustes;
  EXPECT_EQ(ajustes.versao, 1);
  EXPECT_FALSE(ajustes.cat52);
  EXPECT_EQ(ajustes.larguraDoContador, 0);
  EXPECT_EQ(ajustes.moduloDoContador, 0);
  EXPECT_STREQ(ajustes.modelo, "");
}

TEST(SemFonte, HasEmptyTexts) {
  const SemFonte nenhuma;
  EXPECT_STREQ(nenhuma.texto(0), "");
  EXPECT_EQ(nenhuma.bytes(0), 0);
}

TEST(FonteCom, ChangesOneColumnAlone) {
  const Linhas linhas(1);
  const FonteCom comOutra(linhas, 4, "quatro");
  EXPECT_STREQ(comOutra.texto(4), "quatro");
  EXPECT_STREQ(comOutra.texto(3), "x");
  EXPECT_EQ(comOutra.bytes(3), 1);
  EXPECT_EQ(comOutra.bytes(4), 6);
}

TEST(Especies, ADateThatIsReadyIsEightWideAndAnHourSix) {
  EXPECT_EQ(dataPronta("", coluna(0)).largura, 8);
  EXPECT_EQ(horaPronta("", coluna(0)).largura, 6);
  EXPECT_EQ(kLarguraData, 8U);  // AAAAMMDD
  EXPECT_EQ(kLarguraHora, 6U);  // HHMMSS
}

}  // namespace
