// Whole runs against whole files: each folder beside this source is a database, a run over it, and the report
// and the log that it must leave, byte for byte.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <locale>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Bancada.h"
#include "Identidade.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> casos() {
  std::vector<fs::path> pastas;
  for (const auto& entrada : fs::directory_iterator(COTEPE_GOLDEN))
    if (entrada.is_directory()) pastas.push_back(entrada.path());
  std::sort(pastas.begin(), pastas.end());
  return pastas;
}

std::string conteudo(const fs::path& arquivo) {
  std::ifstream entrada(arquivo, std::ios::binary);
  if (!entrada) throw std::runtime_error("cannot read " + arquivo.string());
  std::ostringstream texto;
  texto << entrada.rdbuf();
  return texto.str();
}

// The SQL of a file. A line ".read FILE" stands for the SQL of that file, as in SQLite's shell.
std::string sqlDe(const fs::path& arquivo) {
  constexpr char kLe[] = ".read ";
  std::istringstream linhas(conteudo(arquivo));
  std::string sql;
  for (std::string linha; std::getline(linhas, linha);) {
    if (linha.rfind(kLe, 0) == 0)
      sql += sqlDe(arquivo.parent_path() / linha.substr(sizeof kLe - 1));
    else
      sql += linha + "\n";
  }
  return sql;
}

// Lines "name=value".
std::map<std::string, std::string> argumentosDe(const fs::path& arquivo) {
  std::istringstream linhas(conteudo(arquivo));
  std::map<std::string, std::string> argumentos;
  for (std::string linha; std::getline(linhas, linha);) {
    const std::size_t igual = linha.find('=');
    if (igual == std::string::npos)
      throw std::runtime_error("no value in " + arquivo.string() + ": " + linha);
    argumentos[linha.substr(0, igual)] = linha.substr(igual + 1);
  }
  return argumentos;
}

template <std::size_t N>
void fixa(char (&global)[N], const std::string& texto) {
  ASSERT_LT(texto.size(), N);
  std::memset(global, 0, N);
  std::memcpy(global, texto.data(), texto.size());
}

// The locale of the process, where COTEPE_LOCALIDADE names one: the bytes must not depend on it.
class Localidade : public testing::Environment {
  void SetUp() override {
    if (const char* nome = std::getenv("COTEPE_LOCALIDADE")) std::locale::global(std::locale(nome));
  }
};
const auto* const kLocalidade = testing::AddGlobalTestEnvironment(new Localidade);

class Golden : public testing::TestWithParam<fs::path> {
 protected:
  void SetUp() override {
    ASSERT_EQ(sqlite3_open(":memory:", &banco_), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(banco_, sqlDe(GetParam() / "banco.sql").c_str(), nullptr, nullptr, nullptr),
              SQLITE_OK)
        << sqlite3_errmsg(banco_);
    argumentos_ = argumentosDe(GetParam() / "argumentos");
    fixa(g_Serial, argumentos_.at("serial"));
    fixa(g_Modelo, argumentos_.at("modelo"));
    fixa(g_Tipo, argumentos_.at("tipo"));
    fixa(g_VersaoSB, argumentos_.at("versao_sb"));
    g_carimbo = argumentos_.at("relogio");
    g_mensagens.clear();
    g_aoRegistrar = nullptr;
  }
  void TearDown() override { EXPECT_EQ(sqlite3_close(banco_), SQLITE_OK) << "a statement was left open"; }

  // Runs the generator and returns the report.
  std::string gera() {
    const std::string arquivo =
        testing::TempDir() + "golden-" + std::to_string(getpid()) + GetParam().filename().string();
    CotepeManager gerador(banco_);
    gerador.setVersaoAtoCotepe(std::stoi(argumentos_.at("leiaute")));
    gerador.setCAT52(argumentos_.at("cat52") == "sim");
    const int resultado =
        gerador.GeraRegistrosTipoE(arquivo.c_str(), argumentos_.at("inicio").c_str(),
                                   argumentos_.at("fim").c_str(), argumentos_.at("comando").c_str());
    EXPECT_EQ(std::to_string(resultado), argumentos_.at("resultado"));
    std::string relatorio = conteudo(arquivo);
    fs::remove(arquivo);
    return relatorio;
  }

  static std::string log() {
    std::string linhas;
    for (const std::string& mensagem : g_mensagens) linhas += mensagem + "\n";
    return linhas;
  }

 private:
  sqlite3* banco_ = nullptr;
  std::map<std::string, std::string> argumentos_;
};

TEST_P(Golden, LeavesTheExpectedReportAndLog) {
  EXPECT_EQ(gera(), conteudo(GetParam() / "esperado.txt"));
  EXPECT_EQ(log(), conteudo(GetParam() / "esperado.err"));
}

INSTANTIATE_TEST_SUITE_P(Casos, Golden, testing::ValuesIn(casos()),
                         [](const auto& caso) { return caso.param.filename().string(); });

TEST(GoldenFolders, AreFound) { EXPECT_FALSE(casos().empty()); }

}  // namespace
