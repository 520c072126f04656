// The sample database as a file: the same bytes from the same options, whole or not there at all.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "Amostra/Amostra.h"
#include "ComEsquema.h"

namespace cotepe::testes {
namespace {

std::string conteudo(const std::string& arquivo) {
  std::ifstream entrada(arquivo, std::ios::binary);
  return {std::istreambuf_iterator<char>(entrada), {}};
}

// What was wrong, or "" when the file was made.
std::string erroAoCriar(const std::string& arquivo, const OpcoesDaAmostra& opcoes = {}) {
  try {
    criaBancoDeAmostra(arquivo, opcoes);
  } catch (const ErroDoBanco& erro) {
    return erro.what();
  }
  return "";
}

class Amostra : public testing::Test {
 protected:
  static OpcoesDaAmostra pequena(std::uint64_t semente) {
    OpcoesDaAmostra opcoes;
    opcoes.dias = 3;
    opcoes.semente = semente;
    return opcoes;
  }

  Pasta pasta_;
};

TEST_F(Amostra, SameSeedGivesTheSameBytes) {
  criaBancoDeAmostra(pasta_.arquivo("a"), pequena(5));
  criaBancoDeAmostra(pasta_.arquivo("b"), pequena(5));
  const auto bytes = conteudo(pasta_.arquivo("a"));
  EXPECT_EQ(bytes.substr(0, 15), "SQLite format 3");
  EXPECT_TRUE(bytes == conteudo(pasta_.arquivo("b")));
}

TEST_F(Amostra, AnotherSeedGivesOtherBytes) {
  criaBancoDeAmostra(pasta_.arquivo("a"), pequena(5));
  criaBancoDeAmostra(pasta_.arquivo("b"), pequena(6));
  EXPECT_FALSE(conteudo(pasta_.arquivo("a")) == conteudo(pasta_.arquivo("b")));
}

// A Brazilian locale made for this test, so that it does not matter which ones the machine has.
TEST_F(Amostra, DependsOnNeitherLocaleNorTimeZone) {
  criaBancoDeAmostra(pasta_.arquivo("a"), pequena(5));
  const auto feito = "localedef -i pt_BR -f UTF-8 " + pasta_.arquivo("pt_BR.UTF-8") + " >/dev/null 2>&1";
  // NOLINTNEXTLINE(cert-env33-c): the command is fixed here
  if (std::system(feito.c_str()) != 0) GTEST_SKIP() << "no sources of locales here";
  ASSERT_EQ(setenv("LOCPATH", pasta_.arquivo("").c_str(), 1), 0);
  ASSERT_EQ(setenv("TZ", "America/Sao_Paulo", 1), 0);
  tzset();
  ASSERT_NE(setlocale(LC_ALL, "pt_BR.UTF-8"), nullptr);
  EXPECT_STREQ(localeconv()->decimal_point, ",");
  criaBancoDeAmostra(pasta_.arquivo("b"), pequena(5));
  ASSERT_NE(setlocale(LC_ALL, "C"), nullptr);
  unsetenv("TZ");
  unsetenv("LOCPATH");
  EXPECT_TRUE(conteudo(pasta_.arquivo("a")) == conteudo(pasta_.arquivo("b")));
}

TEST_F(Amostra, TellsWhatItMade) {
  auto opcoes = pequena(5);
  opcoes.inicio = "2024-02-28";
  std::vector<int> dias;
  opcoes.progresso = [&](int dia, int de) {
    EXPECT_EQ(de, 3);
    dias.push_back(dia);
  };
  const auto resumo = criaBancoDeAmostra(pasta_.arquivo("a"), opcoes);
  EXPECT_EQ(dias, (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(resumo.primeiroDia, "2024-02-28");
  EXPECT_EQ(resumo.ultimoDia, "2024-03-01");
  EXPECT_EQ(resumo.cupons, 120);
  Banco banco(pasta_.arquivo("a"));
  EXPECT_EQ(banco.numero("SELECT COUNT(*) FROM item_cupom_fiscal"), resumo.itens);
  EXPECT_EQ(banco.numero("SELECT COUNT(*) FROM pagamento_cupom"), resumo.pagamentos);
  EXPECT_EQ(banco.numero("SELECT COUNT(*) FROM outros_documentos"), resumo.outrosDocumentos);
}

TEST_F(Amostra, AnExistingFileIsRefusedAndUnharmed) {
  const auto arquivo = pasta_.arquivo("a");
  std::ofstream(arquivo) << "mine";
  EXPECT_EQ(erroAoCriar(arquivo), "cannot create the database: " + arquivo +
                                      ": found a file that exists already, expected a name that is free; "
                                      "choose another name, or move the file away");
  EXPECT_EQ(conteudo(arquivo), "mine");
  EXPECT_EQ(pasta_.nomes(), std::vector<std::string>{"a"});
}

TEST_F(Amostra, AJournalLeftBehindIsNotPlayedIntoTheNewFile) {
  for (const char* sufixo : {"-journal", "-wal", "-shm"}) {
    const auto resto = pasta_.arquivo(std::string("a") + sufixo);
    std::ofstream(resto) << "old";
    EXPECT_NE(erroAoCriar(pasta_.arquivo("a")).find(resto + ": found a file that exists"), std::string::npos);
    EXPECT_EQ(conteudo(resto), "old");
    unlink(resto.c_str());
  }
  EXPECT_EQ(erroAoCriar(pasta_.arquivo("a"), pequena(1)), "");
}

TEST_F(Amostra, WhatAKilledWriterLeftIsRemovedAndWhatALivingOneHasIsNot) {
  const auto morto = pasta_.arquivo(".a.cotepe-aaaaaa.tmp"), vivo = pasta_.arquivo(".a.cotepe-bbbbbb.tmp");
  std::ofstream(morto) << "half";
  const int escritor = open(vivo.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
  ASSERT_EQ(flock(escritor, LOCK_EX), 0);
  EXPECT_EQ(erroAoCriar(pasta_.arquivo("a"), pequena(1)), "");
  EXPECT_EQ(pasta_.nomes(), (std::vector<std::string>{".a.cotepe-bbbbbb.tmp", "a"}));
  close(escritor);
}

TEST_F(Amostra, WithoutADescriptorForTheDatabaseNothingIsLeft) {
  const std::string arquivo = pasta_.arquivo("a");
  // A sanitizer opens a pipe when it meets the first object of a kind: let that be now.
  ASSERT_NE(erroAoCriar(pasta_.arquivo("none/a")), "");
  rlimit antes{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &antes), 0);
  const int livre = dup(STDERR_FILENO);  // the one that the folder will have; the temporary file has the next
  const int seguinte = dup(STDERR_FILENO);
  close(livre);
  close(seguinte);
  const rlimit doisSo{static_cast<rlim_t>(seguinte) + 1, antes.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &doisSo), 0);
  const auto erro = erroAoCriar(arquivo);
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &antes), 0);
  EXPECT_EQ(erro, "cannot create the database: " + arquivo +
                      ": found unable to open database file, expected a file that can be written; choose "
                      "another place");
  EXPECT_TRUE(pasta_.nomes().empty());
}

TEST_F(Amostra, ADanglingLinkIsRefused) {
  ASSERT_EQ(symlink("/nowhere/at/all", pasta_.arquivo("a").c_str()), 0);
  EXPECT_NE(erroAoCriar(pasta_.arquivo("a")), "");
  EXPECT_EQ(pasta_.nomes(), std::vector<std::string>{"a"});
}

TEST_F(Amostra, AFolderThatIsNotThereIsNamed) {
  const auto arquivo = pasta_.arquivo("none/a");
  EXPECT_EQ(erroAoCriar(arquivo), "cannot create the database: " + arquivo +
                                      ": found No such file or directory, expected a folder that can be "
                                      "written and has room; choose another place or free some space");
  EXPECT_NE(erroAoCriar(""), "");
}

TEST_F(Amostra, AFileThatAppearsMeanwhileIsNotReplaced) {
  const auto arquivo = pasta_.arquivo("a");
  auto opcoes = pequena(1);
  opcoes.progresso = [&](int, int) { std::ofstream(arquivo) << "theirs"; };
  EXPECT_NE(erroAoCriar(arquivo, opcoes).find("a file that exists already"), std::string::npos);
  EXPECT_EQ(conteudo(arquivo), "theirs");
  EXPECT_EQ(pasta_.nomes(), std::vector<std::string>{"a"});
}

TEST_F(Amostra, WhenTheCallerBreaksOffNothingIsLeft) {
  auto opcoes = pequena(1);
  opcoes.progresso = [](int dia, int) {
    if (dia == 2) throw std::runtime_error("enough");
  };
  EXPECT_THROW(criaBancoDeAmostra(pasta_.arquivo("a"), opcoes), std::runtime_error);
  EXPECT_TRUE(pasta_.nomes().empty());
}

// In a process of its own, since the limit stays: a disk that takes no more than so many bytes.
std::string erroComDiscoDe(rlim_t bytes, const std::string& arquivo) {
  int tubo[2];
  EXPECT_EQ(pipe(tubo), 0);
  const pid_t filho = fork();
  if (filho == 0) {
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    const rlimit limite{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limite);
    const auto erro = erroAoCriar(arquivo);
    _exit(write(tubo[1], erro.data(), erro.size()) == static_cast<ssize_t>(erro.size()) ? 0 : 1);
  }
  close(tubo[1]);
  std::string erro;
  char parte[4096];
  for (ssize_t lidos = 0; (lidos = read(tubo[0], parte, sizeof parte)) > 0;) {
    erro.append(parte, static_cast<std::size_t>(lidos));
  }
  close(tubo[0]);
  int situacao = -1;
  EXPECT_EQ(waitpid(filho, &situacao, 0), filho);
  EXPECT_EQ(situacao, 0);
  return erro;
}

TEST_F(Amostra, AFullDiskLeavesNothing) {
  ASSERT_EQ(erroAoCriar(pasta_.arquivo("whole")), "");
  const auto inteiro = conteudo(pasta_.arquivo("whole")).size();
  for (const auto bytes : {std::size_t{0}, std::size_t{100}, std::size_t{4096}, inteiro / 2, inteiro - 1}) {
    const auto erro = erroComDiscoDe(bytes, pasta_.arquivo("a"));
    EXPECT_NE(erro.find("cannot write the database: "), std::string::npos) << bytes << ": " << erro;
    EXPECT_EQ(pasta_.nomes(), std::vector<std::string>{"whole"}) << bytes;
  }
  EXPECT_EQ(erroComDiscoDe(inteiro, pasta_.arquivo("a")), "");
  EXPECT_TRUE(conteudo(pasta_.arquivo("a")) == conteudo(pasta_.arquivo("whole")));
}

TEST_F(Amostra, OptionsOutOfRangeAreNamed) {
  struct Caso {
    int dias, cupons;
    const char *inicio, *erro;
  };
  const std::vector<Caso> casos = {
      {0, 1, "2024-01-01", "number of days: found 0, expected a number from 1 to 36500"},
      {36501, 1, "2024-01-01", "number of days: found 36501, expected a number from 1 to 36500"},
      {1, 0, "2024-01-01", "coupons per day: found 0, expected a number from 1 to 1000000"},
      {1, 1000001, "2024-01-01", "coupons per day: found 1000001, expected a number from 1 to 1000000"},
      {1, 1, "2023-02-29",
       "first day: found '2023-02-29', expected a day YYYY-MM-DD from 1900-01-01 to 9999-12-30"},
      {2, 1, "9999-12-30",
       "first day: found '9999-12-30', expected a day YYYY-MM-DD from 1900-01-01 to 9999-12-29"},
      {1, 1, "1899-12-31", "first day: found '1899-12-31', expected"},
      {1, 1, "2024-1-1", "first day: found '2024-1-1', expected"},
      {1, 1, "01/01/2024", "first day: found '01/01/2024', expected"},
      {1, 1, "", "first day: found '', expected"}};
  for (const auto& caso : casos) {
    OpcoesDaAmostra opcoes;
    opcoes.dias = caso.dias;
    opcoes.cuponsPorDia = caso.cupons;
    opcoes.inicio = caso.inicio;
    EXPECT_EQ(
        erroAoCriar(pasta_.arquivo("a"), opcoes).find(std::string("cannot make the sample: ") + caso.erro),
        0U)
        << caso.erro;
  }
  EXPECT_TRUE(pasta_.nomes().empty());
}

TEST_F(Amostra, TheLastPossibleDayIsPossible) {
  OpcoesDaAmostra opcoes;
  opcoes.dias = opcoes.cuponsPorDia = 1;
  opcoes.inicio = "9999-12-30";
  EXPECT_EQ(erroAoCriar(pasta_.arquivo("a"), opcoes), "");
}

TEST_F(Amostra, ANameLikeAUriIsAName) {
  const auto aqui = std::filesystem::current_path();
  std::filesystem::current_path(pasta_.arquivo(""));
  EXPECT_EQ(erroAoCriar("file:a?mode=memory", pequena(1)), "");
  std::filesystem::current_path(aqui);
  EXPECT_EQ(pasta_.nomes(), std::vector<std::string>{"file:a?mode=memory"});
}

TEST(ErroDoBancoTest, KeepsItsParts) {
  const ErroDoBanco erro({"a", "b", "c", "d", "e"});
  EXPECT_STREQ(erro.what(), "a: b: found c, expected d; e");
  EXPECT_EQ(erro.partes().onde, "b");
  EXPECT_EQ(erro.partes().oQueFazer, "e");
}

}  // namespace
}  // namespace cotepe::testes
