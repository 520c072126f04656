// What the program asks of the system, on Windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>
#include <clocale>
#include <cmath>

#include "Sistema/Arquivo.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/ArquivoSemNome.h"
#include "Sistema/ConflitoDeArquivos.h"
#include "Sistema/FalhaDeArquivo.h"
#include "Sistema/Numeros.h"
#include "Sistema/TextoDoWindows.h"

namespace {

using namespace cotepe;

// A folder of its own, with accents in its name and so deep that no path in it fits the old limit.
class Sistema : public testing::Test {
 protected:
  void SetUp() override {
    for (int nivel = 0; nivel < 6; ++nivel) {
      pasta_ += "pasta-de-relatórios-e-de-bancos-de-dados-do-mês-de-março";
      ASSERT_NE(CreateDirectoryW(caminhoLargo(pasta_).c_str(), nullptr), 0);
      pastas_.push_back(pasta_);
      pasta_ += '/';
    }
    ASSERT_GT(pasta_.size(), 300U);
  }
  void TearDown() override {
    for (const std::string& nome : nomes()) removeArquivo(pasta_ + nome);
    for (auto qual = pastas_.rbegin(); qual != pastas_.rend(); ++qual)
      EXPECT_NE(RemoveDirectoryW(caminhoLargo(*qual).c_str()), 0) << *qual;
  }

  std::vector<std::string> nomes() const {
    std::vector<std::string> todos;
    for (const std::string& nome : nomesNaPasta(pasta_))
      if (nome != "." && nome != "..") todos.push_back(nome);
    return todos;
  }
  void escreve(const std::string& nome, const std::string& texto) const {
    std::FILE* fluxo = abreFluxo(pasta_ + nome, "wb");
    ASSERT_NE(fluxo, nullptr) << nome;
    std::fwrite(texto.data(), 1, texto.size(), fluxo);
    std::fclose(fluxo);
  }
  std::string le(const std::string& nome) const {
    const Descritor arquivo = abreParaLer(pasta_ + nome);
    std::string texto(static_cast<std::size_t>(tamanhoDe(arquivo.numero())), '\0');
    EXPECT_TRUE(leEm(arquivo.numero(), 0, texto.data(), texto.size()));
    return texto;
  }
  template <class Passos>
  static PassoDeArquivo passo(const Passos& passos) {
    try {
      passos();
    } catch (const FalhaDeArquivo& falha) {
      return falha.passo();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
  }

  std::string pasta_;

 private:
  std::vector<std::string> pastas_;
};

TEST_F(Sistema, SafeFileAppearsWholeAndReplacesOnlyWhereItMay) {
  const std::string destino = pasta_ + "relatório.txt";
  {
    ArquivoSeguro arquivo(destino);
    EXPECT_TRUE(escreveEm(arquivo.numero(), 0, "a\nb\n", 4));
    EXPECT_EQ(nomes().size(), 1U);
    EXPECT_EQ(tipoDoNome(destino), TipoDeArquivo::Nenhuma);
    EXPECT_EQ(errno, ENOENT);
    arquivo.publica(destino, false);
  }
  EXPECT_EQ(le("relatório.txt"), "a\nb\n");
  ArquivoSeguro segundo(destino);
  EXPECT_TRUE(escreveEm(segundo.numero(), 0, "c", 1));
  EXPECT_EQ(passo([&] { segundo.publica(destino, false); }), PassoDeArquivo::Existe);
  EXPECT_EQ(le("relatório.txt"), "a\nb\n");
  segundo.publica(destino, true);
  EXPECT_EQ(le("relatório.txt"), "c");
  EXPECT_EQ(nomes(), std::vector<std::string>{"relatório.txt"});
}

TEST_F(Sistema, SafeFileThatIsGivenUpLeavesNothing) {
  { const ArquivoSeguro arquivo(pasta_ + "r.txt"); }
  EXPECT_TRUE(nomes().empty());
}

TEST_F(Sistema, SafeFileCanBeWrittenByItsNameMeanwhile) {
  ArquivoSeguro arquivo(pasta_ + "r.txt");
  std::FILE* outro = abreFluxo(arquivo.temporario(), "wb");
  ASSERT_NE(outro, nullptr);
  EXPECT_EQ(std::fwrite("abc\n", 1, 4, outro), 4U);
  EXPECT_EQ(std::fclose(outro), 0);
  EXPECT_EQ(arquivo.tamanho(), 4);
}

TEST_F(Sistema, LeftoverOfTheDeadIsRemovedAndTheFileOfTheLivingIsNot) {
  ArquivoSeguro vivo(pasta_ + "r.txt");
  escreve(".r.txt.cotepe-abcdef.tmp", "half");
  escreve(".s.txt.cotepe-abcdef.tmp", "of another");
  { const ArquivoSeguro outro(pasta_ + "r.txt"); }
  EXPECT_EQ(nomes().size(), 2U);
  EXPECT_EQ(tipoDoNome(vivo.temporario()), TipoDeArquivo::Regular);
  EXPECT_EQ(tipoDoNome(pasta_ + ".s.txt.cotepe-abcdef.tmp"), TipoDeArquivo::Regular);
}

TEST_F(Sistema, DestinationThatIsNoFileIsToldApart) {
  escreve("r.txt", "");
  EXPECT_EQ(passo([&] { exigeDestino(pasta_, true); }), PassoDeArquivo::NomeDePasta);
  EXPECT_EQ(passo([&] { exigeDestino(pasta_.substr(0, pasta_.size() - 1), true); }), PassoDeArquivo::Pasta);
  EXPECT_EQ(passo([&] { exigeDestino(pasta_ + "r.txt", false); }), PassoDeArquivo::Existe);
  EXPECT_EQ(passo([&] { ArquivoSeguro(pasta_ + "nada/r.txt"); }), PassoDeArquivo::NaoCria);
  EXPECT_EQ(passo([&] { ArquivoSeguro(pasta_ + "r.txt/r.txt"); }), PassoDeArquivo::NaoCria);
}

TEST_F(Sistema, FileWithoutANameIsReadAgainAndGoes) {
  {
    const ArquivoSemNome arquivo(pasta_);
    std::FILE* fluxo = abreFluxo(arquivo.caminho(), "wb");
    ASSERT_NE(fluxo, nullptr);
    EXPECT_EQ(std::fwrite("abc\n", 1, 4, fluxo), 4U);
    EXPECT_EQ(std::fclose(fluxo), 0);
    std::string texto(4, ' ');
    EXPECT_TRUE(leEm(arquivo.numero(), 0, texto.data(), 4));
    EXPECT_EQ(texto, "abc\n");
    EXPECT_FALSE(leEm(arquivo.numero(), 1, texto.data(), 4)) << "there are three";
  }
  EXPECT_TRUE(nomes().empty());
}

TEST_F(Sistema, TwoNamesOfOneFileAreOne) {
  escreve("Loja.db", "x");
  ASSERT_NE(CreateHardLinkW(caminhoLargo(pasta_ + "outro.db").c_str(),
                            caminhoLargo(pasta_ + "Loja.db").c_str(), nullptr),
            0);
  EXPECT_TRUE(mesmoArquivo(pasta_ + "Loja.db", pasta_ + "outro.db"));
  EXPECT_TRUE(pertenceAoBanco(pasta_ + "LOJA.DB", pasta_ + "Loja.db"));
  EXPECT_TRUE(pertenceAoBanco(pasta_ + "loja.db-WAL", pasta_ + "Loja.db")) << "not there yet";
  EXPECT_FALSE(pertenceAoBanco(pasta_ + "loja2.db", pasta_ + "Loja.db"));
}

TEST_F(Sistema, AppendingGoesToTheEnd) {
  escreve("log", "a\n");
  std::FILE* fluxo = abreFluxo(pasta_ + "log", "ab");
  ASSERT_NE(fluxo, nullptr);
  EXPECT_EQ(std::fwrite("b\n", 1, 2, fluxo), 2U);
  std::fclose(fluxo);
  EXPECT_EQ(le("log"), "a\nb\n");
}

// Typed from the definition of the numbers: the nearest double, whatever the locale.
TEST(Numeros, AreReadExactlyAndWithoutALocale) {
  EXPECT_EQ(leDecimalEmC("1.5"), 1.5);
  EXPECT_EQ(leDecimalEmC("  -2.5e3x"), -2500.0);
  EXPECT_EQ(leDecimalEmC("1,5"), 1.0);
  EXPECT_EQ(leDecimalEmC("0x10"), 16.0);
  EXPECT_EQ(leDecimalEmC("none"), 0.0);
  EXPECT_TRUE(std::isinf(leDecimalEmC("1e999")));
  EXPECT_TRUE(std::isnan(leDecimalEmC("nan")));
  EXPECT_EQ(leDecimalEmC("9007199254740993"), 9007199254740992.0) << "half way goes to the even one";
  EXPECT_EQ(leDecimalEmC("9007199254740993.0000000000000000000001"), 9007199254740994.0);
  if (std::setlocale(LC_ALL, "Portuguese_Brazil") != nullptr) {
    EXPECT_EQ(leDecimalEmC("1.5"), 1.5);
    std::setlocale(LC_ALL, "C");
  }
}

}  // namespace
