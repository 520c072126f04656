// The sample database through the generator and back: a report that the generator wrote has no finding, and
// all of it is read.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "Amostra/Amostra.h"
#include "BancoFiscal/Esquema.h"
#include "CotepeManager.h"
#include "Relatorio.h"

namespace cotepe {
namespace {

/// A folder that goes with the test.
class GeraLeValida : public testing::Test {
 protected:
  void SetUp() override {
    std::string molde = testing::TempDir() + "leitorXXXXXX";
    ASSERT_NE(mkdtemp(molde.data()), nullptr);
    pasta_ = molde + '/';
  }
  void TearDown() override {
    for (const char* nome : {"amostra.db", "relatorio.txt"}) unlink((pasta_ + nome).c_str());
    rmdir(pasta_.c_str());
  }

  void abre(const std::string& nome) { ASSERT_EQ(sqlite3_open((pasta_ + nome).c_str(), &banco_), SQLITE_OK); }

  std::string gera(int leiaute, bool cat52, const std::string& comando, const std::string& ate = "31012024") {
    const std::string nome = pasta_ + "relatorio.txt";
    CotepeManager gerador(banco_);
    gerador.setVersaoAtoCotepe(leiaute);
    gerador.setCAT52(cat52);
    EXPECT_EQ(gerador.GeraRegistrosTipoE(nome.c_str(), "01012024", ate.c_str(), comando.c_str()), 0);
    std::ostringstream texto;
    texto << std::ifstream(nome).rdbuf();
    return texto.str();
  }

  // Every command in every setting, with the number of its lines, at least one.
  void confereTodos() {
    for (const int leiaute : {1, 2, 3})
      for (const bool cat52 : {false, true})
        for (const char* comando : {"MF", "MFD", "TDM", "RZ", "mf"}) {
          const std::string relatorio = gera(leiaute, cat52, comando);
          EXPECT_FALSE(relatorio.empty());
          EXPECT_EQ(achados(relatorio), std::vector<std::string>())
              << comando << " in layout " << leiaute << (cat52 ? " with CAT52" : "");
        }
  }

  std::string pasta_;
  sqlite3* banco_ = nullptr;
};

TEST_F(GeraLeValida, SampleHasNoFinding) {
  criaBancoDeAmostra(pasta_ + "amostra.db");
  abre("amostra.db");
  confereTodos();
  EXPECT_EQ(achados(gera(1, false, "TDM", "10012024")), std::vector<std::string>());
  sqlite3_close(banco_);
}

TEST_F(GeraLeValida, EmptyDatabaseHasNoFinding) {
  abre("amostra.db");
  ASSERT_EQ(sqlite3_exec(banco_, std::string(esquemaSql()).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  confereTodos();
  sqlite3_close(banco_);
}

// The lines that grow: several users and several codings, which a database without the reference constraints
// can hold.
TEST_F(GeraLeValida, GrownLinesAreNoDamage) {
  criaBancoDeAmostra(pasta_ + "amostra.db");
  abre("amostra.db");
  const char* sql =
      "DROP INDEX codificacao_gt_uma_linha; DROP INDEX moeda_uma_linha;"
      "INSERT INTO codificacao_gt SELECT '2024-01-05 10:00:00', 'ABCDEFGHIJ';"
      "INSERT INTO codificacao_gt SELECT '2024-01-06 10:00:00', '9876543210';"
      "INSERT INTO moeda SELECT '2024-01-05 10:00:00', 'US$';"
      "INSERT INTO dados_usuario SELECT * FROM dados_usuario;";
  ASSERT_EQ(sqlite3_exec(banco_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(banco_);
  confereTodos();
  sqlite3_close(banco_);
}

}  // namespace
}  // namespace cotepe
