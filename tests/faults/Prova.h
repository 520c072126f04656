// What the fault tests of reading share: a small fiscal database in a file, and a run over a database that
// may fail, judged by a second reading of the same database.
#pragma once

#include <sqlite3.h>
#include <unistd.h>

#include <string>
#include <vector>

/// No case may last more than ten seconds: the alarm ends the test program.
class Prazo {
 public:
  Prazo() { alarm(10); }
  ~Prazo() { alarm(0); }
  Prazo(const Prazo&) = delete;
  Prazo& operator=(const Prazo&) = delete;
};

/// An empty folder of the test's own, in memory where there is such a place, removed at the end.
class PastaDeProva {
 public:
  PastaDeProva();
  ~PastaDeProva();
  PastaDeProva(const PastaDeProva&) = delete;
  PastaDeProva& operator=(const PastaDeProva&) = delete;

  std::string em(const std::string& nome) const { return nome_ + "/" + nome; }

 private:
  std::string nome_;
};

std::string leBytes(const std::string& caminho);
void escreveBytes(const std::string& caminho, const std::string& bytes);

/// A report without the date and the hour of the run, with which E11 ends.
std::string semCarimbo(std::string relatorio);

/// A database that is open.
class BancoAberto {
 public:
  /// `sistema`: the VFS; null is the one that SQLite would take.
  explicit BancoAberto(const std::string& caminho, const char* sistema = nullptr,
                       int modo = SQLITE_OPEN_READWRITE);
  ~BancoAberto() { sqlite3_close(banco_); }
  BancoAberto(const BancoAberto&) = delete;
  BancoAberto& operator=(const BancoAberto&) = delete;

  sqlite3* get() const { return banco_; }
  int tenta(const std::string& sql) const;
  void sql(const std::string& texto) const;  // fails the test when it cannot

 private:
  sqlite3* banco_ = nullptr;
};

/// Makes a fiscal database with rows in every table, unused pages and a text longer than a page: January
/// 2024, two days.
void criaBancoDeProva(const std::string& caminho, int bytesDaPagina);

struct Escolha {
  const char* comando = "TDM";
  int versao = 1;
};

struct Corrida {
  int resultado = -1;
  std::string relatorio;
  std::vector<std::string> mensagens;
  std::vector<std::string> incompletos;  // registers; the second reading does not tell

  /// Whether the run says that something was wrong.
  bool avisou() const { return resultado != 0 || !mensagens.empty() || !incompletos.empty(); }
};

/// A run of the generator, and one of the second reading, over the same database.
Corrida corre(sqlite3* banco, const Escolha& escolha, const std::string& relatorio);
Corrida correReferencia(sqlite3* banco, const Escolha& escolha);

/// Every row of every table that the registers read, in the order of the tables, by no index; nothing where a
/// table cannot be read to its end.
std::string linhasDoBanco(sqlite3* banco);

/// Whether SQLite itself finds the whole file sound.
bool integro(sqlite3* banco);

/// What a database that is damaged turned out to be.
enum class Veredito { Avisado, Certo, OutroBanco };

/// Runs over a database that may be damaged, and expects: the same result, bytes and messages as the second
/// reading; and an error, or the report of the sound one (`certo`, made of the rows `linhas`). Where neither
/// is so, the damage must have made another database of it: its rows are others, or SQLite's own check of the
/// whole file finds what no query can see (an index that disagrees with its table).
Veredito julga(sqlite3* banco, const Escolha& escolha, const std::string& relatorio, const std::string& certo,
               const std::string& linhas);
