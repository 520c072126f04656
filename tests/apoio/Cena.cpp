#include "Cena.h"

#include <regex.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "BancoFiscal/Esquema.h"

namespace fs = std::filesystem;

const char* const kMoedaSemFim =
    "DROP TABLE moeda; CREATE VIEW moeda AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)"
    " SELECT '' AS data_hora_gravacao, '' AS simbolo_moeda FROM n WHERE i < 0";
const char* const kMoedaLenta =
    "DROP TABLE moeda; CREATE VIEW moeda AS"
    " WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 5000000)"
    " SELECT '' AS data_hora_gravacao, '' AS simbolo_moeda FROM n WHERE i < 0";

std::string leArquivo(const std::string& caminho) {
  std::ifstream arquivo(caminho, std::ios::binary);
  EXPECT_TRUE(arquivo.is_open()) << caminho;
  std::ostringstream texto;
  texto << arquivo.rdbuf();
  return texto.str();
}

void escreveArquivo(const std::string& caminho, const std::string& texto) {
  std::ofstream(caminho, std::ios::binary) << texto;
}

bool corresponde(const std::string& texto, const std::string& padrao) {
  regex_t expressao;
  if (regcomp(&expressao, ("^" + padrao + "$").c_str(), REG_EXTENDED | REG_NOSUB) != 0) {
    ADD_FAILURE() << "not an expression: " << padrao;
    return false;
  }
  const bool achado = regexec(&expressao, texto.c_str(), 0, nullptr, 0) == 0;
  regfree(&expressao);
  return achado;
}

std::string semHora(const std::string& log) {
  constexpr std::size_t kLargura = 19;
  std::istringstream linhas(log);
  std::string linha, texto;
  while (std::getline(linhas, linha)) {
    const bool tem =
        corresponde(linha.substr(0, kLargura), "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}");
    texto += (tem ? "@" + linha.substr(kLargura) : linha) + "\n";
  }
  return texto;
}

Cena::Cena() : pasta_(testing::TempDir() + "cena-XXXXXX") {
  EXPECT_NE(mkdtemp(pasta_.data()), nullptr);
  fs::permissions(pasta_, fs::perms::all);
}

Cena::~Cena() { fs::remove_all(pasta_); }

std::vector<std::string> Cena::nomes() const {
  std::vector<std::string> lista;
  for (const auto& item : fs::directory_iterator(pasta_)) lista.push_back(item.path().filename());
  std::sort(lista.begin(), lista.end());
  return lista;
}

void Cena::criaBanco(const std::string& sql) {
  Banco banco(em("base.db"));
  banco.sql("PRAGMA synchronous = OFF; BEGIN");
  banco.sql(cotepe::esquemaSql());
  banco.sql(
      "INSERT INTO dados_ecf VALUES ('SERIAL', 'MODELO', 'ECF-IF', 'MARCA', 7);"
      "INSERT INTO dados_usuario VALUES (1, '12345678000195', '123', 'LOJA', 'RUA A', '2023-05-06 07:08:09', "
      "2, 10.5);"
      "INSERT INTO versao_sb VALUES ('01.00.01', '2023-06-15 09:20:00', 1);"
      "INSERT INTO moeda VALUES ('2023-01-02 03:04:05', 'R$');"
      "INSERT INTO reducao_z VALUES (11, 101, 1, '2024-01-10 00:00:00', '2024-01-10 22:00:00', 1.25, 1.25);"
      "INSERT INTO reducao_z VALUES (12, 102, 1, '2024-01-11 00:00:00', '2024-01-11 22:00:00', 2.5, 3.75); "
      "COMMIT");
  if (!sql.empty()) banco.sql(sql);
}

std::vector<std::string> Cena::generate(const std::vector<std::string>& mais) {
  std::vector<std::string> todos = {"generate", "--db", "base.db", "--from", "01012024", "--to", "31012024"};
  todos.insert(todos.end(), mais.begin(), mais.end());
  return todos;
}

std::string Cena::esperaNome(const std::string& inicio) const {
  const auto prazo = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (std::chrono::steady_clock::now() < prazo) {
    for (const std::string& nome : nomes())
      if (nome.compare(0, inicio.size(), inicio) == 0) return nome;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ADD_FAILURE() << "no " << inicio << "... in the folder";
  return {};
}
