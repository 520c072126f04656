// What the tests of the program share: a folder of their own and small fiscal databases in it.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "Banco.h"
#include "Processo.h"

std::string leArquivo(const std::string& caminho);
void escreveArquivo(const std::string& caminho, const std::string& texto);

/// Whether a POSIX extended regular expression describes the whole text.
bool corresponde(const std::string& texto, const std::string& padrao);

/// Log lines with a "@" in the place of date and hour.
std::string semHora(const std::string& log);

/// A test in an empty folder that everybody may write to and that is removed at the end.
class Cena : public testing::Test {
 protected:
  Cena();
  ~Cena() override;

  std::string em(const std::string& nome) const { return pasta_ + "/" + nome; }
  const std::string& pasta() const { return pasta_; }
  std::vector<std::string> nomes() const;  // in the folder, sorted

  /// The database base.db: one printer "SERIAL" / "MODELO", user 1, and two Z reductions in January 2024;
  /// then whatever `sql` says.
  void criaBanco(const std::string& sql = "");

  /// `generate` over base.db and January 2024, and more arguments.
  static std::vector<std::string> generate(const std::vector<std::string>& mais = {});
  Fim gera(const std::vector<std::string>& mais = {}) const { return roda(generate(mais), pasta_); }

  /// The name in the folder that begins so, once it is there; fails the test when it does not come.
  std::string esperaNome(const std::string& inicio) const;

 private:
  std::string pasta_;
};

/// SQL that makes the query of E06 run for ever, or for a second or so, without a row.
extern const char* const kMoedaSemFim;
extern const char* const kMoedaLenta;
