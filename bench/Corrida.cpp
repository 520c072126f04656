// One run of one engine in a process of its own, and what it took, as one line of JSON.
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "Geracao.h"
#include "HospedeiroParado.h"
#include "Piso.h"
#include "referencia/Referencia.h"

namespace {

// Elapsed nanoseconds, and those of CPU time: other work on the machine shows in the first and hardly in the
// second.
struct Tempo {
  long long decorrido = 0;
  long long trabalhado = 0;
};

long long le(clockid_t relogio) {
  timespec t{};
  clock_gettime(relogio, &t);
  return t.tv_sec * 1'000'000'000LL + t.tv_nsec;
}

Tempo agora() { return {le(CLOCK_MONOTONIC), le(CLOCK_PROCESS_CPUTIME_ID)}; }

Tempo desde(const Tempo& inicio) {
  const Tempo fim = agora();
  return {fim.decorrido - inicio.decorrido, fim.trabalhado - inicio.trabalhado};
}

struct DoRegistro {
  long linhas = 0;
  Tempo tempo;
};

struct Pedido {
  const char* motor;
  const char* banco;
  int versao;
  const char* comando;
  const char* inicial;  // DDMMYYYY
  const char* final;
  const char* arquivo;
  std::vector<std::string> preparo;  // of the handle, each one a case to measure by itself
};

struct Medida {
  std::map<std::string, DoRegistro> registros;
  Tempo total;
};

// Stops the time of each register.
class Cronometro final : public bench::HospedeiroParado {
 public:
  explicit Cronometro(Medida& medida) : medida_(medida) {}

  void inicia(const char* /*registro*/) override { inicio_ = agora(); }
  void conclui(const char* registro, long linhas, bool /*completo*/) override {
    medida_.registros[registro] = {linhas, desde(inicio_)};
  }

 private:
  Medida& medida_;
  Tempo inicio_;
};

void piso(sqlite3* banco, const Pedido& pedido, Medida& medida) {
  const auto limite = [](const char* dia, const char* hora) {
    const std::string d = dia;
    return d.substr(4, 4) + "-" + d.substr(2, 2) + "-" + d.substr(0, 2) + " " + hora;
  };
  const bench::Periodo periodo = {limite(pedido.inicial, "00:00:00"), limite(pedido.final, "23:59:59")};
  bench::pisoDaIdentidade(banco);
  for (const cotepe::Registro* registro : cotepe::kCatalogo) {
    if (!registro->despachado(pedido.comando, pedido.versao)) continue;
    const Tempo inicio = agora();
    const long linhas = bench::pisoDoRegistro(banco, *registro, pedido.comando, periodo);
    medida.registros[registro->codigo] = {linhas, desde(inicio)};
  }
}

void gerador(sqlite3* banco, const Pedido& pedido, Medida& medida) {
  Cronometro cronometro(medida);
  cotepe::Geracao geracao(banco, cronometro);
  geracao.setVersaoAtoCotepe(pedido.versao);
  const int resultado = geracao.gera(pedido.arquivo, pedido.inicial, pedido.final, pedido.comando);
  if (resultado != cotepe::kGerado) throw std::runtime_error("result " + std::to_string(resultado));
}

void referencia(sqlite3* banco, const Pedido& pedido) {
  referencia::Entrada entrada;
  entrada.versao = pedido.versao;
  entrada.inicial = pedido.inicial;
  entrada.final = pedido.final;
  entrada.comando = pedido.comando;
  entrada.dataHoraDoSistema = bench::HospedeiroParado::kDataHora;
  const referencia::Saida saida = referencia::gera(banco, entrada);
  if (saida.codigo != 0 || !saida.log.empty()) throw std::runtime_error("the second reading failed");
  std::ofstream arquivo(pedido.arquivo, std::ios::binary);
  arquivo << saida.arquivo;
  if (!arquivo.flush()) throw std::runtime_error("the report cannot be written");
}

// Peak of the process's resident memory, in KiB. Not getrusage, which starts at the size of the parent.
long picoDeMemoria() {
  std::ifstream estado("/proc/self/status");
  for (std::string linha; std::getline(estado, linha);)
    if (linha.rfind("VmHWM:", 0) == 0) return std::atol(linha.c_str() + 6);
  return 0;
}

// Times are [elapsed, CPU], memory in KiB.
void imprime(const Medida& medida) {
  std::printf("{\"ns\": [%lld, %lld], \"kib\": %ld, \"sqlite_kib\": %lld, \"registros\": {",
              medida.total.decorrido, medida.total.trabalhado, picoDeMemoria(),
              static_cast<long long>(sqlite3_memory_highwater(0) / 1024));
  const char* virgula = "";
  for (const auto& [codigo, registro] : medida.registros) {
    std::printf("%s\"%s\": {\"linhas\": %ld, \"ns\": [%lld, %lld]}", virgula, codigo.c_str(), registro.linhas,
                registro.tempo.decorrido, registro.tempo.trabalhado);
    virgula = ", ";
  }
  std::printf("}}\n");
}

// Opens the database and prepares the handle as asked: "nomutex", "lookaside SIZE COUNT", or any SQL.
sqlite3* abre(const Pedido& pedido) {
  const auto pede = [&](const char* nome) {
    return std::find(pedido.preparo.begin(), pedido.preparo.end(), nome) != pedido.preparo.end();
  };
  sqlite3* banco = nullptr;
  const int modo = SQLITE_OPEN_READONLY | (pede("nomutex") ? SQLITE_OPEN_NOMUTEX : 0);
  if (sqlite3_open_v2(pedido.banco, &banco, modo, nullptr) != SQLITE_OK)
    throw std::runtime_error("the database cannot be opened");
  for (const std::string& preparo : pedido.preparo) {
    int bytes = 0, quantos = 0, resultado = SQLITE_OK;
    if (std::sscanf(preparo.c_str(), "lookaside %d %d", &bytes, &quantos) == 2)
      resultado = sqlite3_db_config(banco, SQLITE_DBCONFIG_LOOKASIDE, nullptr, bytes, quantos);
    else if (preparo != "nomutex")
      resultado = sqlite3_exec(banco, preparo.c_str(), nullptr, nullptr, nullptr);
    if (resultado != SQLITE_OK) throw std::runtime_error(preparo + ": " + sqlite3_errmsg(banco));
  }
  return banco;
}

void corre(const Pedido& pedido) {
  sqlite3* banco = abre(pedido);
  Medida medida;
  const std::string motor = pedido.motor;
  const Tempo inicio = agora();
  if (motor == "piso")
    piso(banco, pedido, medida);
  else if (motor == "gerador")
    gerador(banco, pedido, medida);
  else if (motor == "referencia")
    referencia(banco, pedido);
  else
    throw std::runtime_error("no such engine");
  medida.total = desde(inicio);
  imprime(medida);
  sqlite3_close(banco);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::string(argv[1]) == "--sqlite") {
    std::printf("%s\n", sqlite3_libversion());
    return 0;
  }
  if (argc < 8) {
    std::fprintf(
        stderr,
        "usage: %s piso|gerador|referencia DATABASE VERSION COMMAND FROM TO REPORT [PREPARATION...]\n"
        "       --sqlite as the one argument: prints the version of SQLite\n",
        argv[0]);
    return 2;
  }
  try {
    corre(
        {argv[1], argv[2], std::atoi(argv[3]), argv[4], argv[5], argv[6], argv[7], {argv + 8, argv + argc}});
    return 0;
  } catch (const std::exception& erro) {
    std::fprintf(stderr, "%s: %s\n", argv[1], erro.what());
    return 1;
  }
}
