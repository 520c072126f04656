// Databases opened by name, and reports that appear only when they are whole.
#include <cerrno>
#include <filesystem>
#include <iterator>

#include "Gerador.h"

namespace {

namespace fs = std::filesystem;

// A folder of its own with a database in a file, as the bench has it.
class PeloNome : public testing::Test {
 public:
  void SetUp() override {
    ASSERT_TRUE(fs::create_directory(pasta));
    bancada.comIdentidade();
    bancada.sql("VACUUM INTO '" + banco + "'");
  }
  void TearDown() override {
    EXPECT_EQ(cotepe_destroy(gerador), COTEPE_DONE);
    EXPECT_GT(fs::remove_all(pasta), 0U);
  }

  void abre(int espera = 0) { ASSERT_EQ(cotepe_open(banco.c_str(), espera, &gerador), COTEPE_DONE); }
  int gera(const char* comando = "TDM") {
    return cotepe_generate(gerador, relatorio.c_str(), "01012024", "31012024", comando);
  }
  int geraInteiro(int substitui = 1, const char* comando = "TDM") {
    return cotepe_generate_whole(gerador, relatorio.c_str(), "01012024", "31012024", comando, substitui);
  }
  void noBanco(const char* sql) {
    sqlite3* outro = nullptr;
    ASSERT_EQ(sqlite3_open(banco.c_str(), &outro), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(outro, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(outro);
    sqlite3_close(outro);
  }
  static std::string conteudo(const std::string& nome) {
    std::ostringstream texto;
    texto << std::ifstream(nome, std::ios::binary).rdbuf();
    return texto.str();
  }
  long arquivos() const {
    return static_cast<long>(std::distance(fs::directory_iterator(pasta), fs::directory_iterator()));
  }

  const std::string pasta = "pelo-nome-" + std::to_string(getpid());
  const std::string banco = pasta + "/loja.db", relatorio = pasta + "/relatorio.txt";
  Bancada bancada;
  cotepe_generator* gerador = nullptr;
};

TEST_F(PeloNome, ReportIsThatOfTheHostsOwnConnectionInPlaceAndWhole) {
  const cotepe_time momento = {2024, 1, 31, 23, 59, 59};
  abre();
  ASSERT_EQ(cotepe_set_time(gerador, &momento), COTEPE_DONE);
  const std::vector<std::string> esperado = bancada.gera("TDM");
  ASSERT_EQ(gera(), COTEPE_DONE);
  EXPECT_EQ(linhasDe(conteudo(relatorio)), esperado);
  ASSERT_EQ(unlink(relatorio.c_str()), 0);
  ASSERT_EQ(geraInteiro(0), COTEPE_DONE);
  EXPECT_EQ(linhasDe(conteudo(relatorio)), esperado);
  EXPECT_EQ(arquivos(), 2);
  EXPECT_STREQ(cotepe_reason(gerador), "");
}

TEST_F(PeloNome, WhatIsNoDatabase) {
  EXPECT_EQ(cotepe_open((pasta + "/nao-ha.db").c_str(), 0, &gerador), COTEPE_CANNOT_READ);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_STREQ(cotepe_reason(nullptr), "No such file or directory");
  EXPECT_EQ(cotepe_open(pasta.c_str(), 0, &gerador), COTEPE_CANNOT_READ);
  EXPECT_EQ(errno, EISDIR);
  EXPECT_EQ(cotepe_open(COTEPE_NULO, 0, &gerador), COTEPE_CANNOT_READ);
  EXPECT_EQ(errno, EINVAL);
  std::ofstream(relatorio) << std::string(4096, 'x');
  EXPECT_EQ(cotepe_open(relatorio.c_str(), 0, &gerador), COTEPE_NOT_A_DATABASE);
  EXPECT_STREQ(cotepe_reason(nullptr), "file is not a database");
  EXPECT_EQ(cotepe_open("", 0, &gerador), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_open(":memory:", 0, &gerador), COTEPE_CANNOT_READ);
  EXPECT_EQ(cotepe_open(nullptr, 0, &gerador), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_open(banco.c_str(), -1, &gerador), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_open(banco.c_str(), 0, nullptr), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(gerador, nullptr);
  EXPECT_EQ(arquivos(), 2) << "something was made";
}

TEST_F(PeloNome, LockedDatabaseIsSaidToBeAndNothingIsTouched) {
  abre();
  std::ofstream(relatorio) << "de antes";
  sqlite3* outro = nullptr;
  ASSERT_EQ(sqlite3_open(banco.c_str(), &outro), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(outro, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  cotepe_generator* novo = gerador;
  EXPECT_EQ(cotepe_open(banco.c_str(), 0, &novo), COTEPE_LOCKED);
  EXPECT_EQ(novo, nullptr);
  EXPECT_EQ(gera(), COTEPE_LOCKED);
  EXPECT_STREQ(cotepe_reason(gerador), "database is locked");
  EXPECT_EQ(geraInteiro(), COTEPE_LOCKED);
  EXPECT_EQ(conteudo(relatorio), "de antes");
  ASSERT_EQ(sqlite3_exec(outro, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(gera(), COTEPE_DONE);
  sqlite3_close(outro);
}

// The writer commits between two registers: the report has none of it, and the next one has.
TEST_F(PeloNome, ReportIsOfOneCommittedState) {
  noBanco("PRAGMA journal_mode=WAL");
  abre();
  ASSERT_EQ(geraInteiro(1, "RZ"), COTEPE_DONE);
  const std::string antes = conteudo(relatorio);
  ASSERT_EQ(cotepe_set_register_callback(
                gerador,
                [](void* usuario, const char* codigo, std::int64_t, int) {
                  if (std::string(codigo) == "E01")
                    static_cast<PeloNome*>(usuario)->noBanco("UPDATE dados_usuario SET razao_social='OUTRA'");
                  return 0;
                },
                this),
            COTEPE_DONE);
  ASSERT_EQ(geraInteiro(1, "RZ"), COTEPE_DONE);
  EXPECT_EQ(conteudo(relatorio), antes);
  ASSERT_EQ(cotepe_set_register_callback(gerador, nullptr, nullptr), COTEPE_DONE);
  ASSERT_EQ(geraInteiro(1, "RZ"), COTEPE_DONE);
  EXPECT_NE(conteudo(relatorio), antes);
  noBanco("UPDATE dados_usuario SET razao_social='AINDA OUTRA'");  // nobody holds a lock between two runs
}

TEST_F(PeloNome, WithoutReplaceAFileThatIsThereIsRefused) {
  abre();
  std::ofstream(relatorio) << "de antes";
  EXPECT_EQ(geraInteiro(0), COTEPE_CANNOT_OPEN);
  EXPECT_EQ(errno, EEXIST);
  EXPECT_STREQ(cotepe_reason(gerador), "File exists");
  EXPECT_EQ(conteudo(relatorio), "de antes");
  EXPECT_EQ(geraInteiro(1), COTEPE_DONE);
  EXPECT_NE(conteudo(relatorio), "de antes");
}

TEST_F(PeloNome, ReportThatIsNotWholeLeavesTheOldOne) {
  abre();
  std::ofstream(relatorio) << "de antes";
  noBanco("DROP TABLE cupom_fiscal");
  EXPECT_EQ(geraInteiro(), COTEPE_INCOMPLETE);
  EXPECT_STREQ(cotepe_reason(gerador), "no such table: cupom_fiscal");
  ASSERT_EQ(cotepe_set_register_callback(
                gerador, [](void*, const char*, std::int64_t, int) { return 1; }, nullptr),
            COTEPE_DONE);
  EXPECT_EQ(geraInteiro(), COTEPE_CANCELLED);
  noBanco("DROP TABLE dados_ecf");
  EXPECT_EQ(geraInteiro(), COTEPE_NO_IDENTITY);
  EXPECT_EQ(geraInteiro(1, "tdm"), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(conteudo(relatorio), "de antes");
  EXPECT_EQ(arquivos(), 2);
}

TEST_F(PeloNome, ReportThatIsTheDatabaseOrNoFileIsRefused) {
  abre();
  const std::string antes = conteudo(banco);
  fs::create_hard_link(banco, relatorio);
  EXPECT_EQ(geraInteiro(), COTEPE_CANNOT_OPEN);
  EXPECT_EQ(errno, EBUSY);
  EXPECT_STREQ(cotepe_reason(gerador), "it is the database, or a journal of it");
  EXPECT_EQ(gera(), COTEPE_CANNOT_OPEN);
  EXPECT_EQ(errno, EBUSY);
  EXPECT_STREQ(cotepe_reason(gerador), "it is the database, or a journal of it");
  EXPECT_EQ(conteudo(banco), antes);
  EXPECT_EQ(cotepe_generate_whole(gerador, pasta.c_str(), "01012024", "31012024", "RZ", 1),
            COTEPE_CANNOT_OPEN);
  EXPECT_EQ(errno, EISDIR);
  EXPECT_EQ(cotepe_generate_whole(gerador, "nao-ha/relatorio", "01012024", "31012024", "RZ", 1),
            COTEPE_CANNOT_OPEN);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(cotepe_generate_whole(gerador, nullptr, "01012024", "31012024", "RZ", 1), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate_whole(nullptr, "x", "01012024", "31012024", "RZ", 1), COTEPE_BAD_ARGUMENT);
  EXPECT_STREQ(cotepe_reason(nullptr), "") << "the last opening did not fail";
}

TEST_F(PeloNome, ReasonIsThereDuringTheLog) {
  abre();
  noBanco("DROP TABLE versao_sb");
  struct Visto {
    cotepe_generator* gerador;
    std::string motivo;
  } visto{gerador, ""};
  ASSERT_EQ(cotepe_set_log(
                gerador,
                [](void* usuario, const char*) {
                  auto& v = *static_cast<Visto*>(usuario);
                  v.motivo = cotepe_reason(v.gerador);
                  return 0;
                },
                &visto),
            COTEPE_DONE);
  EXPECT_EQ(gera("MF"), COTEPE_INCOMPLETE);
  EXPECT_EQ(visto.motivo, "no such table: versao_sb");
}

TEST_F(PeloNome, DatabaseIsNeverWritten) {
  const std::string antes = conteudo(banco);
  abre();
  fs::permissions(banco, fs::perms::owner_read);
  EXPECT_EQ(geraInteiro(), COTEPE_DONE);
  EXPECT_EQ(conteudo(banco), antes);
  EXPECT_EQ(arquivos(), 2) << "a journal was left";
  fs::permissions(banco, fs::perms::owner_all);  // or some systems do not remove it
}

}  // namespace
