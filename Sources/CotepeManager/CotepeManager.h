/// @file
/// The generator of the type-E register file (Ato COTEPE/ICMS 17/04) from a fiscal printer's database.
#pragma once

#include <cstdio>
#include <memory>

struct sqlite3;

namespace cotepe {
struct Ajustes;
struct Registro;
class Geracao;
class Hospedeiro;

/// What a run ends with.
enum Resultado : int {
  kGerado = 0,              ///< the registers of the command were written; a failed query was logged
  kArgumentoInvalido = 2,   ///< an argument is null or a day has fewer than 8 characters; nothing was touched
  kRelatorioNaoAberto = 3,  ///< the report could not be opened for writing, or is a file of the database
  kEscritaFalhou = 4,       ///< the report is not whole: disk full, I/O error, out of memory
  kIdentidadeFalhou = 5     ///< the printer's identity could not be read; the report is closed and empty
};
}  // namespace cotepe

/// Generates reports from one database, one at a time, on the caller's thread. An object may run many times
/// and must not be shared between simultaneous runs. At link time it needs four things from the application:
/// the log function, the identity globals, the clock and the padding routine declared by the headers in
/// Host/.
class CotepeManager {
 public:
  /// Borrows the open database, which must outlive the object. The object never closes it, writes to it or
  /// begins a transaction on it: each query sees what is committed when it begins. A host that wants a report
  /// of one state while others write holds a read transaction of its own around the run (BEGIN, COMMIT) and
  /// sets sqlite3_busy_timeout. Starts in layout version 1, CAT52 mode off.
  explicit CotepeManager(sqlite3* banco);
  /// A report still open because longjmp left its run is closed and left empty.
  ~CotepeManager();
  CotepeManager(const CotepeManager&) = delete;
  CotepeManager& operator=(const CotepeManager&) = delete;

  /// Layout version. 1: document counters of 6 digits. Any other value: of 9 digits. Exactly 2 adds the
  /// fields of layout 2 and register E22.
  void setVersaoAtoCotepe(int versao);
  /// The value last set.
  int getVersaoAtoCotepe() const;

  /// CAT52 mode: no placeholder records for registers without a row, and no texts in E14.
  void setCAT52(bool cat52);
  /// The value last set.
  bool isCAT52() const;

  /// Writes the report of a period to the named file, which is created or truncated: one record per line, LF
  /// line endings. The first and last day are DDMMYYYY, both included. `szCmd` is "MF", "MFD", "TDM" or "RZ",
  /// compared as a whole; any other text gives E01 and E02 only. A register whose query fails is logged
  /// through Quorvel_GravaLog and the run goes on. A report that would be written over the database, or over
  /// a journal of it, is refused with result 3 and errno EBUSY before anything is touched. An exception
  /// thrown by one of the application's functions leaves this one after the report has been closed and left
  /// empty. Returns a cotepe::Resultado.
  int GeraRegistrosTipoE(const char* szReportFileName, const char* szDataInicial, const char* szDataFinal,
                         const char* szCmd);

 private:
  friend class CotepeManagerTest;
  friend class cotepe::Geracao;

  int gera(const char* arquivo, const char* dataInicial, const char* dataFinal, const char* comandoDado,
           cotepe::Hospedeiro& hospedeiro);
  int abreRelatorio(const char* arquivo);
  int geraNoArquivoAberto(const char* comandoDado, cotepe::Hospedeiro& hospedeiro);
  void fixaPeriodo(const char* dataInicial, const char* dataFinal);
  bool leIdentidade(cotepe::Hospedeiro& hospedeiro);
  bool fechaRelatorio();
  void abandonaRelatorio() noexcept;
  cotepe::Ajustes ajustes() const;
  void escreve(const cotepe::Registro& registro, cotepe::Hospedeiro& hospedeiro);
  void escreve(const char* codigo, cotepe::Hospedeiro& hospedeiro);
  void escreve(const char* codigo);

  // Text helpers; `dst` holds 9 bytes for a date, 7 for an hour. The others work in place and return `s`.
  static void formataData(char* src, char* dst);
  static void formataHora(char* src, char* dst);
  static int RoundInteger(double x);
  static char* CharRemove(char* s, char c);
  static char* CharReplace(char* s, char from, char to);
  static char* CharRemoveNonAscii(char* s);

  // One writer per register: each appends its lines to ReportFile, whatever the command. E03 and E04 belong
  // to no command.
  void TipoE01();
  void TipoE02();
  void TipoE03();
  void TipoE04();
  void TipoE05();
  void TipoE06();
  void TipoE07();
  void TipoE08();
  void TipoE09();
  void TipoE10();
  void TipoE11();
  void TipoE12();
  void TipoE13();
  void TipoE14();
  void TipoE15();
  void TipoE16();
  void TipoE17();
  void TipoE18();
  void TipoE19();
  void TipoE20();
  void TipoE21();
  void TipoE22();

  sqlite3* db;                    // borrowed
  char dataHoraInicial[20] = {};  // YYYY-MM-DD 00:00:00
  char dataHoraFinal[20] = {};    // YYYY-MM-DD 23:59:59
  char nrFabricacao[21] = {};
  char modelo[21] = {};
  char usuario[3] = {};  // order number of the user, as text
  char comando[4] = {};
  int m_iVersaoAtoCotepe = 1;
  bool m_bCAT52 = false;
  int m_iCountSize = 6;              // width of a document counter; this and the next are set by each run
  int m_iDivCount = 1000000;         // its modulus
  FILE* ReportFile = nullptr;        // open during a run only
  std::unique_ptr<char[]> m_buffer;  // of that stream
};
