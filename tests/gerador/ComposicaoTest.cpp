// The engine alone, over rows and a report of the test's own: what no register of the file asks of it.
#include "Leiaute/Composicao.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "Leiaute/Especies.h"
#include "Leiaute/Registro.h"

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
  const Registro registro = {"E99", "", campos, {{"", ""}}, kTodos, false, vazio, false, escreveTabela};
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
}

TEST(Especies, ADateThatIsReadyIsEightWideAndAnHourSix) {
  EXPECT_EQ(dataPronta("", coluna(0)).largura, 8);
  EXPECT_EQ(horaPronta("", coluna(0)).largura, 6);
}

}  // namespace
