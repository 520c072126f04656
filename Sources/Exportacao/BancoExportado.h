// An export as an SQLite database.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "Exportacao/DestinoDaExportacao.h"

struct sqlite3;
struct sqlite3_stmt;

namespace cotepe::exportacao {

/// Makes these tables in an empty database:
///   E01 ... E22   a row per line of the register: arquivo, linha, forma, vazio, then a column per field
///   arquivo       the reports
///   campo         which columns are on the lines of a register under a form, in their order, and how wide
///   repetido      all values of the fields that a line has more than once
///   linha_literal the bytes of the lines that do not follow from their columns
///   formato       the version of all this
/// and views on them. The line of a row that has a form is its columns, each padded to its width: numbers
/// with leading zeros, everything else with trailing blanks, dates and hours without separators; then the
/// line end of the report. All other lines are in linha_literal.
class BancoExportado final : public DestinoDaExportacao {
 public:
  /// Opens the file, which must be empty; an empty name makes a database that disappears with the object.
  /// `nome` is its name in messages. Throws Falha.
  BancoExportado(const std::string& caminho, std::string nome);
  ~BancoExportado() override;
  BancoExportado(const BancoExportado&) = delete;
  BancoExportado& operator=(const BancoExportado&) = delete;

  void registro(const ArquivoExportado& arquivo, const RegistroLido& lido, const LinhaTipada& linha) override;
  void literal(const ArquivoExportado& arquivo, long linha, std::string_view bytes) override;
  void arquivo(const ArquivoExportado& arquivo) override;

  /// Makes the indexes and views; then the database is complete, and closed unless it has no name.
  void conclui() override;

  /// The database, still owned by the object.
  sqlite3* banco() const { return banco_.get(); }

 private:
  struct Fecha {
    void operator()(sqlite3* banco) const;
    void operator()(sqlite3_stmt* comando) const;
  };
  using Comando = std::unique_ptr<sqlite3_stmt, Fecha>;

  [[noreturn]] void naoEscreve(int resultado) const;
  void exige(int resultado) const;
  void executa(const std::string& sql) const;
  Comando prepara(const std::string& sql) const;
  void passo(sqlite3_stmt* comando) const;
  void criaTabelas();
  void descreveCampos();
  void criaIndices();
  void repetidas(const ArquivoExportado& arquivo, const RegistroLido& lido, const LinhaTipada& linha);

  std::string nome_;
  bool semNome_;
  std::unique_ptr<sqlite3, Fecha> banco_;
  std::array<Comando, kCatalogo.size()> registros_;
  Comando literal_, repetido_, arquivo_;
};

/// Binds a value to a place of a statement, from 1; the value must outlive the step.
int liga(sqlite3_stmt* comando, int lugar, const ValorTipado& celula);

}  // namespace cotepe::exportacao
