// Several generators on several threads, each over its own handle.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "ArquivoDeLog.h"
#include "CotepeManager.h"
#include "GravaLog.h"
#include "Relato.h"
#include "RtcClasses.h"
#include "referencia/BancoAleatorio.h"

// The host's own log; a clock that stands still, so that reports can be compared.
void Quorvel_GravaLog(char* mensagem) { logDoAplicativo().escreve(mensagem); }
void RtcAbsoluteTime::GetCurrentDateTime() { tm_ = std::tm{}; }
void RtcAbsoluteTime::ToStrDateTime(char* /*dateFormat*/, char* /*timeFormat*/, char* out) {
  std::strcpy(out, "20240131 235959");
}

namespace {

constexpr int kGeradores = 4;

std::string conteudo(const std::string& nome) {
  std::ostringstream texto;
  texto << std::ifstream(nome, std::ios::binary).rdbuf();
  return texto.str();
}

std::string nomeDe(const std::string& oQue) {
  return "threads-" + std::to_string(getpid()) + "-" + oQue + ".txt";
}

class Banco {
 public:
  // A copy of its own, in memory or shared in a file.
  explicit Banco(const std::string& nome) { EXPECT_EQ(sqlite3_open(nome.c_str(), &banco_), SQLITE_OK); }
  ~Banco() { EXPECT_EQ(sqlite3_close(banco_), SQLITE_OK) << "a statement was left open"; }
  Banco(const Banco&) = delete;
  Banco& operator=(const Banco&) = delete;

  sqlite3* get() const { return banco_; }
  void sql(const char* texto) const {
    EXPECT_EQ(sqlite3_exec(banco_, texto, nullptr, nullptr, nullptr), SQLITE_OK) << texto;
  }

 private:
  sqlite3* banco_ = nullptr;
};

// `vezes` runs in every mode over one handle; the reports one after another, and whether all runs said 0.
struct Trabalho {
  std::string relatorios;
  bool todosGerados = true;
};

Trabalho trabalha(sqlite3* banco, int quem, int vezes) {
  Trabalho feito;
  const std::string nome = nomeDe(std::to_string(quem));
  CotepeManager gerador(banco);
  for (int i = 0; i < vezes; ++i)
    for (const char* comando : {"TDM", "MF", "RZ"}) {
      gerador.setVersaoAtoCotepe(1 + i % 2);
      gerador.setCAT52(i % 3 == 0);
      if (gerador.GeraRegistrosTipoE(nome.c_str(), "01012024", "31012024", comando) != 0)
        feito.todosGerados = false;
      feito.relatorios += conteudo(nome);
    }
  unlink(nome.c_str());
  return feito;
}

// All at once, each over its database; compared with the same work done one after another.
void confere(Relato& relato, const std::vector<sqlite3*>& bancos, int vezes) {
  std::vector<Trabalho> juntos(bancos.size());
  std::vector<std::thread> linhas;
  for (std::size_t i = 0; i < bancos.size(); ++i)
    linhas.emplace_back([&, i] { juntos[i] = trabalha(bancos[i], static_cast<int>(i), vezes); });
  for (std::thread& linha : linhas) linha.join();
  for (std::size_t i = 0; i < bancos.size(); ++i) {
    const Trabalho sozinho = trabalha(bancos[i], static_cast<int>(i), vezes);
    EXPECT_TRUE(juntos[i].todosGerados && sozinho.todosGerados) << "generator " << i;
    EXPECT_FALSE(sozinho.relatorios.empty());
    EXPECT_TRUE(juntos[i].relatorios == sozinho.relatorios) << "generator " << i << " wrote other reports";
    for (int n = 0; n < 3 * vezes; ++n) relato.caso();
  }
}

std::vector<sqlite3*> handles(const std::vector<std::unique_ptr<Banco>>& bancos) {
  std::vector<sqlite3*> todos;
  for (const auto& banco : bancos) todos.push_back(banco->get());
  return todos;
}

TEST(Threads, GeneratorsOverDatabasesOfTheirOwnDoNotMeet) {
  Relato relato("Threads", "generators on four threads, each over a database of its own");
  std::vector<std::unique_ptr<Banco>> bancos;
  for (int i = 0; i < kGeradores; ++i) {
    bancos.push_back(std::make_unique<Banco>(":memory:"));
    referencia::criaBancoAleatorio(bancos.back()->get(), static_cast<std::uint64_t>(100 + i),
                                   referencia::Nivel::Limpo);
  }
  confere(relato, handles(bancos), casos(20, 500));
}

TEST(Threads, GeneratorsOverOneFileEachByAHandleOfItsOwnDoNotMeet) {
  Relato relato("Threads", "generators on four threads over one file, each by a handle of its own");
  const std::string nome = nomeDe("db");
  unlink(nome.c_str());
  {
    std::vector<std::unique_ptr<Banco>> bancos;
    for (int i = 0; i < kGeradores; ++i) bancos.push_back(std::make_unique<Banco>(nome));
    bancos[0]->sql("PRAGMA synchronous = OFF");
    referencia::criaBancoAleatorio(bancos[0]->get(), 7, referencia::Nivel::Limpo);
    confere(relato, handles(bancos), casos(20, 500));
  }
  unlink(nome.c_str());
}

// The host's log is one for all: each failure of each generator is a line of it.
TEST(Threads, FailuresOfAllGeneratorsReachTheOneLogLineByLine) {
  Relato relato("Threads", "generators on four threads whose queries fail into one log");
  const std::string log = nomeDe("log");
  unlink(log.c_str());
  ASSERT_TRUE(logDoAplicativo().abre(log.c_str()));
  std::vector<std::unique_ptr<Banco>> bancos;
  for (int i = 0; i < kGeradores; ++i) {
    bancos.push_back(std::make_unique<Banco>(":memory:"));
    referencia::criaBancoAleatorio(bancos.back()->get(), static_cast<std::uint64_t>(200 + i),
                                   referencia::Nivel::Limpo);
    bancos.back()->sql("DROP TABLE cupom_fiscal");
  }
  const int vezes = casos(10, 200);
  confere(relato, handles(bancos), vezes);

  // E14, E15 and E21 under TDM, the first two under RZ; with threads and without.
  const int esperadas = 2 * kGeradores * vezes * 5;
  std::istringstream linhas(conteudo(log));
  int quantas = 0;
  for (std::string linha; std::getline(linhas, linha); ++quantas) {
    ASSERT_EQ(linha.size(), 40U) << linha;
    const std::string mensagem = linha.substr(16);
    EXPECT_TRUE(mensagem == "Erro no select - TipoE14" || mensagem == "Erro no select - TipoE15" ||
                mensagem == "Erro no select - TipoE21")
        << linha;
  }
  EXPECT_EQ(quantas, esperadas);
  unlink(log.c_str());
}

}  // namespace
