// Any bytes as the arguments of the program, each ended by a terminator, in a folder with a database and a
// report: it ends with a status that the help documents, and the database stays as it is.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "Amostra/Amostra.h"
#include "Bytes.h"
#include "LinhaDeComando.h"
#include "Sistema/Falha.h"

namespace {

namespace fs = std::filesystem;
using Argumentos = std::vector<std::string>;

std::string conteudo(const char* nome) {
  std::ifstream arquivo(nome, std::ios::binary);
  return {std::istreambuf_iterator<char>(arquivo), {}};
}

cotepe::programa::Execucao le(const Argumentos& argumentos) {
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

  void confere() const { EXIGE(conteudo("base.db") == banco_); }

  void arruma() const {
    for (const auto& item : fs::directory_iterator("."))
      if (item.path().filename() != "base.db") fs::remove_all(item.path());
    std::ofstream("r.txt", std::ios::binary) << relatorio_;
  }

 private:
  std::string nome_, banco_, relatorio_;
};

// No argument names anything outside the folder.
Argumentos argumentosDe(Bytes bytes) {
  Argumentos argumentos;
  while (!bytes.acabou() && argumentos.size() < 40) {
    std::string argumento = bytes.ateTerminador();
    std::replace(argumento.begin(), argumento.end(), '/', '_');
    argumentos.push_back(std::move(argumento));
  }
  return argumentos;
}

// A sample may be told to be of a hundred years.
bool demora(const Argumentos& argumentos) {
  return std::find(argumentos.begin(), argumentos.end(), "sample") != argumentos.end();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  static const Pasta pasta;
  const Argumentos argumentos = argumentosDe(Bytes(dados, tamanho));
  try {
    const auto execucao = le(argumentos);
    if (!demora(argumentos)) execucao();
  } catch (const cotepe::programa::Falha& falha) {
    EXIGE(falha.situacao() >= cotepe::programa::kIncompleto &&
          falha.situacao() <= cotepe::programa::kSemIdentidade);
    EXIGE(*falha.what() != '\0');
  }
  pasta.confere();
  pasta.arruma();
  return 0;
}
