// The queries of the registers, parsed: what each column of a row is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cotepe {

/// A name or a text as SQL quotes it, with the given quote.
std::string emAspasSql(const std::string& texto, char aspa);

/// One expression of a SELECT's list.
struct Expressao {
  std::string sql;             // without its alias
  std::string funcao;          // the outermost function, in capitals; empty for a column or a constant
  std::string argumento;       // the column in it, as the query names it; empty for a constant
  std::string tabela, coluna;  // the same, resolved

  bool constante() const { return argumento.empty(); }
  bool soma() const { return funcao == "SUM"; }
  bool extremo() const { return funcao == "MIN" || funcao == "MAX"; }

  /// The number of characters that SUBSTR keeps of the column; 0 for all.
  int usados() const;

  /// What is read, for people: "the first 39 characters of cupom_fiscal.nome_consumidor".
  std::string emPalavras() const;
};

struct TabelaNomeada {
  std::string apelido, nome;
};

/// One SELECT of a query, the only one or one of a compound.
struct SelectAnalisado {
  std::vector<Expressao> lista;  // empty where the query says "*"
  std::vector<TabelaNomeada> tabelas;
  std::string resto;               // from FROM on, without GROUP BY and ORDER BY
  std::vector<std::string> nomes;  // every word in it, as written, those in parentheses too

  /// Whether it reads the table, and names a column of it ("" for any) anywhere.
  bool nomeia(std::string_view tabela, std::string_view coluna) const;

  /// The same with the columns that "*" covers, those of its one table.
  SelectAnalisado comColunas(const std::vector<std::string>& daTabela) const;
};

/// The same for a query with static storage duration, parsed once; none for null.
const std::vector<SelectAnalisado>& analisada(const char* sql);

/// Parses SELECTs as the registers write them: tables after FROM and JOIN, aliases after AS.
std::vector<SelectAnalisado> analisa(std::string_view sql);

}  // namespace cotepe
