// A folder with a database and its report, in which a target runs the program.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "Amostra/Amostra.h"
#include "Bytes.h"
#include "LinhaDeComando.h"

namespace fs = std::filesystem;
using Argumentos = std::vector<std::string>;

inline std::string conteudo(const char* nome) {
  std::ifstream arquivo(nome, std::ios::binary);
  return {std::istreambuf_iterator<char>(arquivo), {}};
}

inline cotepe::programa::Acao le(const Argumentos& argumentos) {
  std::vector<const char*> ponteiros = {"cotepe"};
  for (const std::string& argumento : argumentos) ponteiros.push_back(argumento.c_str());
  return cotepe::programa::leLinhaDeComando(static_cast<int>(ponteiros.size()), ponteiros.data());
}

// The folder that the process stands in from now on.
class Pasta {
 public:
  Pasta() : nome_((fs::temp_directory_path() / "cotepe-comando-XXXXXX").string()) {
    EXIGE(mkdtemp(nome_.data()) != nullptr);
    fs::current_path(nome_);
    EXIGE(std::freopen("/dev/null", "r", stdin) != nullptr);
    cotepe::OpcoesDaAmostra opcoes;
    opcoes.dias = opcoes.cuponsPorDia = 1;
    cotepe::criaBancoDeAmostra("base.db", opcoes);
    le({"generate", "--db", "base.db", "--from", "01012024", "--to", "01012024", "--quiet", "--output",
        "r.txt"})();
    banco_ = conteudo("base.db");
    relatorio_ = conteudo("r.txt");
    EXIGE(!relatorio_.empty());
  }
  ~Pasta() {
    std::error_code ignorado;
    fs::current_path("/", ignorado);
    fs::remove_all(nome_, ignorado);
  }
  Pasta(const Pasta&) = delete;
  Pasta& operator=(const Pasta&) = delete;

  const std::string& relatorio() const { return relatorio_; }

  void confere() const { EXIGE(conteudo("base.db") == banco_); }

  void arruma() const {
    for (const auto& item : fs::directory_iterator("."))
      if (item.path().filename() != "base.db") fs::remove_all(item.path());
    std::ofstream("r.txt", std::ios::binary) << relatorio_;
  }

 private:
  std::string nome_, banco_, relatorio_;
};
