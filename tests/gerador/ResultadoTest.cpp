// What a run returns, and what it leaves behind, when it cannot do its work.
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <new>
#include <sstream>
#include <stdexcept>

#include "Bancada.h"
#include "Falhas.h"

namespace {

// Of this process alone, for tests run side by side.
const std::string kNomeDoRelatorio = "resultado-" + std::to_string(getpid()) + ".txt";
const char* const kRelatorio = kNomeDoRelatorio.c_str();

int descritoresAbertos() {
  int quantos = 0;
  DIR* pasta = opendir("/proc/self/fd");
  while (readdir(pasta) != nullptr) ++quantos;
  closedir(pasta);
  return quantos;
}

std::string conteudo(const char* nome) {
  std::ostringstream texto;
  texto << std::ifstream(nome, std::ios::binary).rdbuf();
  return texto.str();
}

bool existe(const char* nome) { return access(nome, F_OK) == 0; }

// Every test must leave as many descriptors open as it found, and no report behind.
class Resultado : public testing::Test {
 protected:
  void SetUp() override {
    unlink(kRelatorio);
    abertos_ = descritoresAbertos();
  }
  void TearDown() override {
    EXPECT_EQ(descritoresAbertos(), abertos_) << "the report was left open";
    unlink(kRelatorio);
  }
  int gera(const char* arquivo = kRelatorio, const char* comando = "TDM") {
    return bancada.gerador().GeraRegistrosTipoE(arquivo, "01012024", "31012024", comando);
  }
  // Versions of the software: as many lines of E07 of 62 characters, so that the report passes any buffer.
  void comVersoes(int quantas) {
    bancada.sql("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
                std::to_string(quantas) +
                ") INSERT INTO versao_sb SELECT 'V', '2023-12-30 23:58:57', i FROM n");
  }

  Bancada bancada;

 private:
  int abertos_ = 0;
};

TEST_F(Resultado, ZeroWhenTheReportIsWritten) {
  bancada.comIdentidade();
  EXPECT_EQ(gera(kRelatorio, "RZ"), 0);
  EXPECT_EQ(linhasDe(conteudo(kRelatorio)).size(), 5U);
}

TEST_F(Resultado, ReportIsTruncatedFirst) {
  bancada.comIdentidade();
  std::ofstream(kRelatorio) << std::string(100000, 'x');
  EXPECT_EQ(gera(kRelatorio, "RZ"), 0);
  EXPECT_EQ(linhasDe(conteudo(kRelatorio)).size(), 5U);
}

TEST_F(Resultado, TwoWhenAnArgumentIsNullOrADayIsShort) {
  bancada.comIdentidade();
  const struct {
    const char *arquivo, *inicial, *final, *comando;
  } kCasos[] = {{nullptr, "01012024", "31012024", "TDM"},   {kRelatorio, nullptr, "31012024", "TDM"},
                {kRelatorio, "01012024", nullptr, "TDM"},   {kRelatorio, "01012024", "31012024", nullptr},
                {kRelatorio, "0101202", "31012024", "TDM"}, {kRelatorio, "01012024", "3101202", "TDM"},
                {kRelatorio, "", "31012024", "TDM"},        {kRelatorio, "01012024", "", "TDM"}};
  for (const auto& caso : kCasos) {
    EXPECT_EQ(bancada.gerador().GeraRegistrosTipoE(caso.arquivo, caso.inicial, caso.final, caso.comando), 2);
    EXPECT_FALSE(existe(kRelatorio));
  }
  EXPECT_EQ(CotepeManagerTest::nrFabricacao(bancada.gerador()), "");
  EXPECT_TRUE(g_mensagens.empty());
}

TEST_F(Resultado, ThreeWhenTheReportCannotBeOpened) {
  bancada.comIdentidade();
  EXPECT_EQ(gera("pasta-que-nao-existe/relatorio.txt"), 3);
  EXPECT_EQ(gera("."), 3);
  EXPECT_EQ(gera(""), 3);
  EXPECT_TRUE(g_mensagens.empty());
  EXPECT_EQ(gera(), 0);
}

// A database in a file, one attached to it, and one that is in memory.
TEST_F(Resultado, ThreeWhereTheReportWouldBeTheDatabaseAndNothingIsTouched) {
  const std::string banco = "resultado-" + std::to_string(getpid()) + ".db", anexo = banco + ".anexo";
  sqlite3* aberto = nullptr;
  ASSERT_EQ(sqlite3_open(banco.c_str(), &aberto), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(aberto,
                         ("CREATE TABLE t(x); ATTACH ':memory:' AS nenhum; ATTACH '" + anexo +
                          "' AS anexo; CREATE TABLE anexo.t(x)")
                             .c_str(),
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  const std::string antes = conteudo(banco.c_str()), doAnexo = conteudo(anexo.c_str());
  CotepeManager gerador(aberto);
  for (const std::string& relatorio :
       {banco, "./" + banco, banco + "-journal", banco + "-wal", banco + "-shm", anexo}) {
    errno = 0;
    EXPECT_EQ(gerador.GeraRegistrosTipoE(relatorio.c_str(), "01012024", "31012024", "TDM"), 3) << relatorio;
    EXPECT_EQ(errno, EBUSY);
  }
  EXPECT_FALSE(existe((banco + "-journal").c_str()) || existe((banco + "-wal").c_str()));
  EXPECT_EQ(conteudo(banco.c_str()), antes);
  EXPECT_EQ(conteudo(anexo.c_str()), doAnexo);
  EXPECT_TRUE(g_mensagens.empty());
  EXPECT_EQ(gerador.GeraRegistrosTipoE(kRelatorio, "01012024", "31012024", "TDM"), 5)
      << "no database of ours";
  sqlite3_close(aberto);
  unlink(banco.c_str());
  unlink(anexo.c_str());
}

TEST_F(Resultado, FourWhenTheDiskIsFullAtTheEnd) {
  bancada.comIdentidade();
  for (const char* comando : {"MF", "MFD", "TDM", "RZ", ""})
    EXPECT_EQ(gera("/dev/full", comando), 4) << comando;
  EXPECT_EQ(gera(), 0);
}

TEST_F(Resultado, FourWhenTheDiskIsFullHalfWayAndTheLaterRegistersAreNotRead) {
  bancada.comIdentidade();
  comVersoes(40000);
  bancada.sql("DROP TABLE intervencao");
  EXPECT_EQ(gera("/dev/full"), 4);
  EXPECT_TRUE(g_mensagens.empty()) << "E09 was read although the report had failed";
  EXPECT_EQ(gera(), 0);
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - TipoE09"});
}

// While it lives, no file may grow beyond `bytes`.
class LimiteDeArquivo {
 public:
  explicit LimiteDeArquivo(rlim_t bytes) : sinal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &antes_);
    const rlimit agora{bytes, antes_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &agora);
  }
  ~LimiteDeArquivo() {
    setrlimit(RLIMIT_FSIZE, &antes_);
    static_cast<void>(std::signal(SIGXFSZ, sinal_));
  }
  LimiteDeArquivo(const LimiteDeArquivo&) = delete;
  LimiteDeArquivo& operator=(const LimiteDeArquivo&) = delete;

 private:
  void (*sinal_)(int);
  rlimit antes_{};
};

TEST_F(Resultado, FourWhereverTheFileStopsGrowing) {
  bancada.comIdentidade();
  comVersoes(40000);
  ASSERT_EQ(gera(), 0);
  const auto inteiro = conteudo(kRelatorio);
  for (const rlim_t limite :
       {rlim_t{0}, rlim_t{1}, rlim_t{1000}, rlim_t{1} << 20, rlim_t{inteiro.size() - 1}}) {
    int resultado = 0;
    {
      const LimiteDeArquivo cheio(limite);
      resultado = gera();
    }
    EXPECT_EQ(resultado, 4) << limite;
    EXPECT_EQ(conteudo(kRelatorio), inteiro.substr(0, limite)) << limite;
  }
  const LimiteDeArquivo justo(inteiro.size());
  EXPECT_EQ(gera(), 0);
}

TEST_F(Resultado, FourWhenTheReaderOfAPipeIsGone) {
  bancada.comIdentidade();
  ASSERT_EQ(mkfifo(kRelatorio, 0600), 0);
  // The reader goes after the report was opened: when the first message is logged.
  static int leitor = -1;
  leitor = open(kRelatorio, O_RDONLY | O_NONBLOCK);
  ASSERT_GE(leitor, 0);
  bancada.sql("DROP TABLE versao_sb");
  g_aoRegistrar = [] {
    if (leitor >= 0) close(leitor);
    leitor = -1;
  };
  const auto antes = std::signal(SIGPIPE, SIG_IGN);
  EXPECT_EQ(gera(), 4);
  static_cast<void>(std::signal(SIGPIPE, antes));
}

TEST_F(Resultado, FiveWhenTheIdentityCannotBeReadAndTheReportIsClosedAndEmpty) {
  for (const char* estrago :
       {"DROP TABLE dados_usuario", "ALTER TABLE dados_ecf RENAME COLUMN modelo TO outra"}) {
    g_mensagens.clear();
    bancada.sql(estrago);
    std::ofstream(kRelatorio) << "de antes";
    EXPECT_EQ(gera(), 5);
    EXPECT_TRUE(existe(kRelatorio));
    EXPECT_EQ(conteudo(kRelatorio), "");
    EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - GeraRegistrosTipoE"});
  }
}

TEST_F(Resultado, FiveWhenTheIdentityQueryFailsAfterARow) {
  bancada.comIdentidade();
  {
    const FalhaNaLinha falha(bancada.banco(), "select ecf.num_serie", 1);
    EXPECT_EQ(gera(), 5);
    EXPECT_EQ(falha.abertas, std::vector<int>{1});
  }
  EXPECT_EQ(conteudo(kRelatorio), "");
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - GeraRegistrosTipoE"});
  EXPECT_EQ(gera(kRelatorio, "RZ"), 0);
  EXPECT_EQ(linhasDe(conteudo(kRelatorio)).size(), 5U);
}

TEST_F(Resultado, FiveAlsoWhereNothingCanBeWritten) {
  bancada.sql("DROP TABLE dados_usuario");
  EXPECT_EQ(gera("/dev/full"), 5);
}

TEST_F(Resultado, FiveWithoutADatabase) {
  CotepeManager semBanco(nullptr);
  EXPECT_EQ(semBanco.GeraRegistrosTipoE(kRelatorio, "01012024", "31012024", "TDM"), 5);
  EXPECT_EQ(conteudo(kRelatorio), "");
  EXPECT_EQ(g_mensagens, std::vector<std::string>{"Erro no select - GeraRegistrosTipoE"});
}

TEST_F(Resultado, EveryQueryMayFailAndTheRunIsStillDone) {
  bancada.comIdentidade();
  std::string estrago;
  for (const char* tabela :
       {"versao_sb", "tentativas_sb", "codificacao_gt", "moeda", "intervencao", "fita_detalhe",
        "posicao_totalizadores_contadores", "reducao_z", "totalizador_reducao", "meio_pagamento_reducao",
        "cupom_fiscal", "item_cupom_fiscal", "outros_documentos", "cupom_nf", "item_cupom_nf",
        "totalizador_nao_fiscal", "pagamento_cupom", "meio_pagamento"})
    estrago += std::string("DROP TABLE ") + tabela + ";";
  bancada.sql(estrago);
  const auto linhas = bancada.versao(2).gera("TDM");
  EXPECT_EQ(bancada.resultado, 0);
  ASSERT_EQ(linhas.size(), 2U);
  EXPECT_EQ(posicoes(linhas[0], 1, 3), "E02");
  EXPECT_EQ(posicoes(linhas[1], 1, 3), "E08");
  EXPECT_EQ(g_mensagens,
            (std::vector<std::string>{
                "Erro no select 2 - TipoE01", "Erro no select 2 - TipoE05", "Erro no select 2 - TipoE06",
                "Erro no select - TipoE07", "Erro no select - TipoE09", "Erro no select 2 - TipoE10",
                "Erro no select - TipoE11", "Erro no select - TipoE12", "Erro no select 1 - TipoE13",
                "Erro no select - TipoE14", "Erro no select - TipoE15", "Erro no select - TipoE16",
                "Erro no select - TipoE", "Erro no select - TipoE18", "Erro no select - TipoE19",
                "Erro no select - TipoE20", "Erro no select - TipoE21", "Erro no select - TipoE21"}));
}

TEST_F(Resultado, FourWithoutMemoryAndTheReportIsClosedWithTheLinesBefore) {
  bancada.comIdentidade();
  ASSERT_EQ(gera(), 0);
  const auto inteiro = conteudo(kRelatorio);
  bancada.sql("DROP TABLE intervencao");
  g_aoRegistrar = [] { throw std::bad_alloc(); };
  EXPECT_EQ(gera(), 4);
  g_aoRegistrar = nullptr;
  EXPECT_EQ(conteudo(kRelatorio), inteiro.substr(0, inteiro.find("E09")));
}

TEST_F(Resultado, ExceptionOfTheHostPassesThroughAndClosesTheReport) {
  bancada.comIdentidade();
  bancada.sql("DROP TABLE intervencao");
  g_aoRegistrar = [] { throw std::runtime_error("do hospedeiro"); };
  EXPECT_THROW(gera(), std::runtime_error);
  EXPECT_EQ(conteudo(kRelatorio), "");
  g_aoRegistrar = nullptr;
  EXPECT_EQ(gera(), 0);
}

}  // namespace
