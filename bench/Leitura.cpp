// What the reader gets done in a second on one core over a report of the sample shop, and the memory that it
// needs:
//   leitura [COUPONS_PER_DAY [DAYS]]
#include <sqlite3.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Amostra/Amostra.h"
#include "Comparacao/Comparacao.h"
#include "CotepeManager.h"
#include "Exibicao/Exibicao.h"
#include "Validacao/Validacao.h"

namespace {

using namespace cotepe;

constexpr int kVezes = 5;

// Discards the bytes that it receives.
class Nada final : public std::streambuf {
  int overflow(int c) override { return c; }
  std::streamsize xsputn(const char* /*bytes*/, std::streamsize quantos) override { return quantos; }
};

class Contagem final : public RecebeAchados {
 public:
  void recebe(const Achado& /*achado*/) override { ++total; }
  long total = 0;
};

double segundosDeTrabalho() {
  timespec tempo{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &tempo);
  return static_cast<double>(tempo.tv_sec) + static_cast<double>(tempo.tv_nsec) / 1e9;
}

std::string depoisDe(const char* arquivo, const std::string& inicio) {
  std::ifstream linhas(arquivo);
  for (std::string linha; std::getline(linhas, linha);)
    if (linha.compare(0, inicio.size(), inicio) == 0) return linha.substr(linha.find(':') + 1);
  return "unknown";
}

void dizOnde() {
  utsname sistema{};
  uname(&sistema);
  std::printf("machine: %s, %s %s\ncompiler: %s\n\n", depoisDe("/proc/cpuinfo", "model name").c_str(),
              sistema.sysname, sistema.machine,
#ifdef __clang__
              __VERSION__
#else
              "g++ " __VERSION__
#endif
  );
}

// A report of the sample shop, by command TDM in layout 1.
std::string relatorio(const std::string& pasta, int cuponsPorDia, int dias) {
  const std::string banco = pasta + "/amostra.db", arquivo = pasta + "/relatorio.txt";
  std::filesystem::remove(banco);
  OpcoesDaAmostra amostra;
  amostra.cuponsPorDia = cuponsPorDia;
  amostra.dias = dias;
  criaBancoDeAmostra(banco, amostra);
  sqlite3* aberto = nullptr;
  if (sqlite3_open(banco.c_str(), &aberto) != SQLITE_OK) throw std::runtime_error(banco);
  CotepeManager gerador(aberto);
  const int resultado = gerador.GeraRegistrosTipoE(arquivo.c_str(), "01012024", "31122123", "TDM");
  sqlite3_close(aberto);
  if (resultado != 0) throw std::runtime_error("result " + std::to_string(resultado));
  std::ostringstream texto;
  texto << std::ifstream(arquivo, std::ios::binary).rdbuf();
  return texto.str();
}

long valida(const std::string& texto) {
  Contagem achados;
  LeitorDeLinhas linhas{std::string_view(texto)};
  Validacao(achados, {"r.txt", {}}).valida(linhas);
  return achados.total;
}

void exibe(const std::string& texto, FormatoDeExibicao formato) {
  Nada nada;
  std::ostream saida(&nada);
  const auto exibicao = novaExibicao(formato, saida, false);
  LeitorDeLinhas linhas{std::string_view(texto)};
  LeitorDeRegistros registros(linhas);
  for (RegistroLido lido; registros.proximo(lido);) exibicao->mostra(lido);
}

void le(const std::string& texto) {
  LeitorDeLinhas linhas{std::string_view(texto)};
  LeitorDeRegistros registros(linhas);
  for (RegistroLido lido; registros.proximo(lido);) {
  }
}

void compara(const std::string& texto) {
  Contagem achados;
  LeitorDeLinhas um{std::string_view(texto)}, outro{std::string_view(texto)};
  Comparacao(achados, {"a", "b", false}).compara(um, outro);
  if (achados.total != 0) throw std::runtime_error("a report differs from itself");
}

void mede(const char* nome, const std::string& texto, const std::function<void()>& trabalho) {
  const auto linhas = static_cast<double>(std::count(texto.begin(), texto.end(), '\n'));
  std::vector<double> tempos;
  for (int i = 0; i < kVezes; ++i) {
    const double antes = segundosDeTrabalho();
    trabalho();
    tempos.push_back(segundosDeTrabalho() - antes);
  }
  std::sort(tempos.begin(), tempos.end());
  const double mediano = tempos[kVezes / 2];
  std::printf("%-22s %12.0f lines/s %8.1f MB/s   (%.3f s, %.3f to %.3f)\n", nome, linhas / mediano,
              static_cast<double>(texto.size()) / mediano / 1e6, mediano, tempos.front(), tempos.back());
}

// In a process of its own, whose memory holds nothing else: reads the file as validate does and prints the
// most memory that it needed, in kilobytes.
int dizPico(const char* arquivo) {
  std::FILE* aberto = std::fopen(arquivo, "rb");
  if (aberto == nullptr) return 1;
  Contagem achados;
  LeitorDeLinhas linhas(fileno(aberto));
  Validacao(achados, {"r.txt", {}}).valida(linhas);
  std::fclose(aberto);
  std::printf("%s\n", depoisDe("/proc/self/status", "VmHWM").c_str());
  return achados.total == 0 ? 0 : 1;
}

std::string picoDaValidacao(const std::string& arquivo) {
  const std::string programa = std::filesystem::read_symlink("/proc/self/exe");
  std::FILE* saida = popen(('\'' + programa + "' --peak '" + arquivo + '\'').c_str(), "r");
  if (saida == nullptr) throw std::runtime_error("popen");
  char texto[64] = "";
  const bool lido = std::fgets(texto, sizeof texto, saida) != nullptr;
  if (pclose(saida) != 0 || !lido) throw std::runtime_error("validate");
  std::string pico = texto;
  pico.erase(0, pico.find_first_not_of("\t "));
  return pico.substr(0, pico.find('\n'));
}

int mede(int cuponsPorDia, int dias) {
  const char* temporaria = std::getenv("TMPDIR");
  std::string pasta = std::string(temporaria == nullptr ? "/tmp" : temporaria) + "/leituraXXXXXX";
  if (mkdtemp(pasta.data()) == nullptr) throw std::runtime_error(pasta);
  dizOnde();
  std::vector<std::string> picos;
  for (const int parte : {100, 10, 1}) {
    const std::string texto = relatorio(pasta, std::max(1, cuponsPorDia / parte), dias);
    picos.push_back(std::to_string(std::count(texto.begin(), texto.end(), '\n')) +
                    " lines: " + picoDaValidacao(pasta + "/relatorio.txt"));
  }
  std::ostringstream lido;
  lido << std::ifstream(pasta + "/relatorio.txt", std::ios::binary).rdbuf();
  const std::string texto = lido.str();
  if (valida(texto) != 0) throw std::runtime_error("the report is not clean");
  std::printf("%ld lines, %zu bytes; CPU time of one core, median of %d\n",
              static_cast<long>(std::count(texto.begin(), texto.end(), '\n')), texto.size(), kVezes);
  mede("read", texto, [&] { le(texto); });
  mede("validate", texto, [&] { valida(texto); });
  mede("diff with itself", texto, [&] { compara(texto); });
  mede("show, text", texto, [&] { exibe(texto, FormatoDeExibicao::Texto); });
  mede("show, table", texto, [&] { exibe(texto, FormatoDeExibicao::Tabela); });
  mede("show, json", texto, [&] { exibe(texto, FormatoDeExibicao::Json); });
  mede("show, csv", texto, [&] { exibe(texto, FormatoDeExibicao::Csv); });
  std::printf("\npeak memory of validate\n");
  for (const std::string& pico : picos) std::printf("%s\n", pico.c_str());
  std::filesystem::remove_all(pasta);
  return 0;
}

}  // namespace

int main(int quantos, char** argumentos) {
  try {
    if (quantos > 2 && std::string_view(argumentos[1]) == "--peak") return dizPico(argumentos[2]);
    return mede(quantos > 1 ? std::atoi(argumentos[1]) : 1000, quantos > 2 ? std::atoi(argumentos[2]) : 100);
  } catch (const std::exception& erro) {
    std::fprintf(stderr, "leitura: %s\n", erro.what());
    return 1;
  }
}
