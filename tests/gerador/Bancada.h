// A test bench around the generator: an empty fiscal database in memory, the host's services, whole runs and
// single writers.
#pragma once

#include <string>
#include <vector>

#include "Banco.h"
#include "CotepeManager.h"

/// Reaches the private members of the generator.
class CotepeManagerTest {
 public:
  static void escreve(CotepeManager& gerador, const std::string& codigo, FILE* relatorio);
  static std::string periodo(CotepeManager& gerador, const char* inicial, const char* final);
  static std::string formataData(CotepeManager& gerador, const std::string& texto);
  static std::string formataHora(CotepeManager& gerador, const std::string& texto);
  static int roundInteger(CotepeManager& /*gerador*/, double x) { return CotepeManager::RoundInteger(x); }
  static std::string charRemove(CotepeManager& gerador, std::string texto, char c);
  static std::string charReplace(CotepeManager& gerador, std::string texto, char de, char para);
  static std::string charRemoveNonAscii(CotepeManager& gerador, std::string texto);
  static std::string nrFabricacao(const CotepeManager& gerador) { return gerador.nrFabricacao; }
  static std::string modelo(const CotepeManager& gerador) { return gerador.modelo; }
  static std::string usuario(const CotepeManager& gerador) { return gerador.usuario; }
  static std::string comando(const CotepeManager& gerador) { return gerador.comando; }
  static void fixaIdentidade(CotepeManager& gerador, const char* nrFabricacao, const char* modelo,
                             const char* usuario, const char* comando);
};

/// What the generator logged since the bench was made, in order.
extern std::vector<std::string> g_mensagens;
/// Called at each logged message, where it is set: what the database looks like at that moment.
extern void (*g_aoRegistrar)();
/// What the clock gives: AAAAMMDD, a separator, HHMMSS.
extern std::string g_carimbo;

class Bancada {
 public:
  /// Every table of the fiscal database, empty, with columns that keep any value as it is given. The host's
  /// identity globals are empty and the clock stands at 31/01/2024 23:59:59.
  Bancada();

  sqlite3* banco() const { return banco_.aberto(); }
  CotepeManager& gerador() { return gerador_; }

  /// Runs SQL and fails the test when it cannot.
  void sql(const std::string& texto);

  /// From now on a join visits the rows as they were inserted, so that only a query's own order shows.
  void semIndicesAutomaticos() { sql("PRAGMA automatic_index=OFF"); }

  /// One printer "SERIAL" / "MODELO" and its user number 1, as most tests want them.
  void comIdentidade();

  /// The settings of the runs that follow. The period is January 2024 unless it is set.
  Bancada& versao(int v);
  Bancada& cat52(bool ligado);
  Bancada& periodo(const std::string& inicial, const std::string& final);  // DDMMYYYY

  /// A whole run into a real file; `resultado` is what it returned.
  std::vector<std::string> gera(const std::string& comando);
  int resultado = -1;

  /// One writer alone, as after the identity query of a run with `comando`: its lines.
  std::vector<std::string> registro(const std::string& codigo, const std::string& comando = "TDM");

  /// The only line of one writer alone; fails the test when there is not exactly one.
  std::string linha(const std::string& codigo, const std::string& comando = "TDM");

 private:
  Banco banco_;
  CotepeManager gerador_;
  std::string inicial_ = "01012024", final_ = "31012024";
};

/// The lines of a report text; the last one must end with a line-feed, or the text be empty.
std::vector<std::string> linhasDe(const std::string& texto);

/// Bytes `de` to `ate` of a line, positions from 1, both included.
std::string posicoes(const std::string& linha, std::size_t de, std::size_t ate);

/// `texto` blank-filled to `largura`, and as many times a blank.
std::string preenchido(const std::string& texto, std::size_t largura);
std::string brancos(std::size_t quantos);

/// The heads of the lines after `comIdentidade`: code, "SERIAL", a blank, "MODELO"; and the user number 01.
std::string cabecalho(const std::string& codigo);
std::string cabecalhoDoUsuario(const std::string& codigo);
