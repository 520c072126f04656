// The log: a line a message, with its time, escaped, at the end of a file or on stderr.
#include "ArquivoDeLog.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

#include "GravaLog.h"

namespace {

std::string conteudo(const std::string& nome) {
  std::ostringstream texto;
  texto << std::ifstream(nome, std::ios::binary).rdbuf();
  return texto.str();
}

std::string agora() {
  const std::time_t segundos = std::time(nullptr);
  std::tm local{};
  localtime_r(&segundos, &local);
  std::array<char, 32> texto{};
  return {texto.data(), std::strftime(texto.data(), texto.size(), "%Y-%m-%d %H:%M:%S", &local)};
}

class Log : public testing::Test {
 protected:
  void SetUp() override { unlink(nome.c_str()); }
  void TearDown() override { unlink(nome.c_str()); }

  // What the message becomes in the file, behind the time and its blank.
  std::string gravada(const char* mensagem) {
    unlink(nome.c_str());
    ArquivoDeLog log;
    EXPECT_TRUE(log.abre(nome.c_str()));
    EXPECT_TRUE(log.escreve(mensagem));
    const std::string linha = conteudo(nome);
    return linha.size() < 20 ? linha : linha.substr(20);
  }

  const std::string nome = "log-" + std::to_string(getpid()) + ".txt";
};

TEST_F(Log, LineIsTheLocalTimeABlankTheMessageAndALineFeed) {
  ArquivoDeLog log;
  ASSERT_TRUE(log.abre(nome.c_str()));
  const std::string antes = agora();
  EXPECT_TRUE(log.escreve("Erro no select - TipoE12"));
  const std::string depois = agora();
  const std::string linha = conteudo(nome);
  ASSERT_GT(linha.size(), 20U);
  EXPECT_LE(antes, linha.substr(0, 19));
  EXPECT_LE(linha.substr(0, 19), depois);
  EXPECT_EQ(linha.substr(19), " Erro no select - TipoE12\n");
}

TEST_F(Log, EachMessageIsOneLineAtOnceInTheFile) {
  ArquivoDeLog log;
  ASSERT_TRUE(log.abre(nome.c_str()));
  for (std::size_t linhas = 1; linhas <= 3; ++linhas) {
    EXPECT_TRUE(log.escreve("mensagem"));
    EXPECT_EQ(conteudo(nome).size(), linhas * 29);
  }
}

TEST_F(Log, ControlCharactersAndBackslashesAreEscaped) {
  EXPECT_EQ(gravada("duas\nlinhas"), "duas\\nlinhas\n");
  EXPECT_EQ(gravada("\r\n\t"), "\\r\\n\\t\n");
  EXPECT_EQ(gravada("C:\\pasta"), "C:\\\\pasta\n");
  EXPECT_EQ(gravada("\x01\x1F\x7F\x1B[0m"), "\\x01\\x1f\\x7f\\x1b[0m\n");
}

TEST_F(Log, OtherCharactersStandAsTheyAre) {
  EXPECT_EQ(gravada(""), "\n");
  EXPECT_EQ(gravada("Redução nº 1: \"ç\" ~ %s %n"), "Redução nº 1: \"ç\" ~ %s %n\n");
  const std::string longa(100000, 'x');
  EXPECT_EQ(gravada(longa.c_str()), longa + "\n");
}

TEST_F(Log, FileIsAppendedTo) {
  std::ofstream(nome) << "de antes\n";
  ArquivoDeLog log;
  ASSERT_TRUE(log.abre(nome.c_str()));
  EXPECT_TRUE(log.escreve("nova"));
  const std::string texto = conteudo(nome);
  EXPECT_EQ(texto.substr(0, 9), "de antes\n");
  EXPECT_EQ(texto.substr(28), " nova\n");
}

TEST_F(Log, FileThatCannotBeOpenedLeavesTheLogWhereItWas) {
  ArquivoDeLog log;
  ASSERT_TRUE(log.abre(nome.c_str()));
  errno = 0;
  EXPECT_FALSE(log.abre("pasta-que-nao-existe/log.txt"));
  EXPECT_EQ(errno, ENOENT);
  errno = 0;
  EXPECT_FALSE(log.abre("."));
  EXPECT_EQ(errno, EISDIR);
  EXPECT_TRUE(log.escreve("ainda aqui"));
  EXPECT_EQ(conteudo(nome).substr(19), " ainda aqui\n");
}

TEST_F(Log, OpeningAnotherFileLeavesTheFirst) {
  const std::string outro = nome + ".2";
  ArquivoDeLog log;
  ASSERT_TRUE(log.abre(nome.c_str()));
  EXPECT_TRUE(log.escreve("um"));
  ASSERT_TRUE(log.abre(outro.c_str()));
  EXPECT_TRUE(log.escreve("dois"));
  EXPECT_EQ(conteudo(nome).substr(19), " um\n");
  EXPECT_EQ(conteudo(outro).substr(19), " dois\n");
  unlink(outro.c_str());
}

TEST_F(Log, FullDiskIsTold) {
  ArquivoDeLog log;
  ASSERT_TRUE(log.abre("/dev/full"));
  EXPECT_FALSE(log.escreve("perdida"));
}

TEST_F(Log, GoesToStderrUntilAFileIsOpened) {
  ArquivoDeLog log;
  testing::internal::CaptureStderr();
  const bool escrita = log.escreve("para a tela");
  const std::string tela = testing::internal::GetCapturedStderr();
  EXPECT_TRUE(escrita);
  EXPECT_EQ(tela.substr(19), " para a tela\n");
}

TEST_F(Log, OfTheApplicationIsWhereTheGeneratorsMessagesGo) {
  ASSERT_TRUE(logDoAplicativo().abre(nome.c_str()));
  char mensagem[] = "Erro no select 2 - TipoE01";
  Quorvel_GravaLog(mensagem);
  EXPECT_EQ(conteudo(nome).substr(19), " Erro no select 2 - TipoE01\n");
}

}  // namespace
