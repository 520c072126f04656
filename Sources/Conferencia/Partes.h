// What the parts of the checker share: a query, what a table contains, and how findings are made.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <vector>

#include "BancoFiscal/FormasDasTabelas.h"
#include "Conferencia/Celula.h"
#include "Conferencia/Conferencia.h"

namespace cotepe {

/// One SQL statement. Throws ErroDoBanco when SQLite fails.
class Pergunta {
 public:
  Pergunta(sqlite3* banco, const std::string& sql);
  ~Pergunta() { sqlite3_finalize(declaracao_); }
  Pergunta(const Pergunta&) = delete;
  Pergunta& operator=(const Pergunta&) = delete;

  /// Parameters are counted from 1, in the order of the statement's text.
  void vincula(int parametro, const std::string& texto);
  bool avanca();
  int tipo(int coluna) const { return sqlite3_column_type(declaracao_, coluna); }
  /// Of the current row, valid until the next one; empty for NULL.
  std::string_view texto(int coluna) const;

 private:
  [[noreturn]] void falha() const;

  sqlite3* banco_;
  sqlite3_stmt* declaracao_ = nullptr;
};

struct Lugar {
  std::string tabela, chave, coluna;
};

/// The tables as they are, the selected reports, and the findings.
class Contexto {
 public:
  Contexto(sqlite3* banco, const OpcoesDaConferencia& opcoes, RecebeAchados& recebe)
      : banco_(banco), opcoes_(opcoes), recebe_(recebe) {}

  sqlite3* banco() const { return banco_; }
  const OpcoesDaConferencia& opcoes() const { return opcoes_; }
  bool ligada(const Regra& regra) const { return opcoes_.desligadas.ligada(regra); }

  /// The columns of a table, in their order; none when there is no such table.
  std::vector<std::string> colunas(const std::string& tabela) const;
  bool tem(const std::string& tabela, const std::string& coluna) const;
  /// Whether the selected reports read it.
  bool lida(std::string_view tabela) const { return !leitores(tabela, "").empty(); }
  /// The registers that read the column ("" for any), in words; the identity query counts as all of them.
  std::string leitores(std::string_view tabela, std::string_view coluna) const;

  /// Reports a finding if its rule is on; `registro` is one or more codes, the field may be null. `conserto`,
  /// to be translated, replaces the rule's own advice.
  void relata(const Regra& regra, const Lugar& lugar, const std::string& registro, const Destino* destino,
              std::string encontrado, std::string esperado, const char* conserto = nullptr) const;

 private:
  sqlite3* banco_;
  const OpcoesDaConferencia& opcoes_;
  RecebeAchados& recebe_;
};

/// The parts of a list "a,b".
std::vector<std::string> separa(std::string_view lista);

// The parts themselves.
void confereEsquema(const Contexto& contexto);
void confereLinhas(const Contexto& contexto, const FormaDaTabela& forma);
void confereLigacoes(const Contexto& contexto);
void confereUnicidade(const Contexto& contexto);
void confereIndices(const Contexto& contexto);

}  // namespace cotepe
