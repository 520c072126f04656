#include "Explicacao/Varredura.h"

#include <algorithm>

#include "Consulta.h"

namespace cotepe {
namespace {

constexpr long kRowidsMostrados = 10;

std::vector<std::string> primeiraColuna(sqlite3* banco, const std::string& sql) {
  std::vector<std::string> valores;
  Consulta consulta(banco, sql);
  while (consulta.avanca()) valores.emplace_back(consulta.texto(0));
  return valores;
}

// Includes the generated ones, which "*" covers too.
std::vector<std::string> colunasDa(sqlite3* banco, const std::string& tabela) {
  return primeiraColuna(banco, "SELECT name FROM pragma_table_xinfo(" + emAspasSql(tabela, '\'') +
                                   ") WHERE hidden <> 1 ORDER BY cid");
}

/// What identifies the rows of a table.
struct ChaveDaTabela {
  std::string apelido;
  std::vector<std::string> colunas;
  bool temRowid = false;
};

ChaveDaTabela chaveDa(sqlite3* banco, const TabelaNomeada& tabela) {
  const std::string nome = emAspasSql(tabela.nome, '\'');
  ChaveDaTabela chave{
      tabela.apelido,
      primeiraColuna(banco, "SELECT name FROM pragma_table_info(" + nome + ") WHERE pk > 0 ORDER BY pk"),
      false};
  chave.temRowid = !primeiraColuna(banco, "SELECT 1 FROM pragma_table_list WHERE name = " + nome +
                                              " AND type = 'table' AND wr = 0")
                        .empty();
  return chave;
}

/// One SELECT of the query without sums and orders. Its columns: the list, an extreme or a sum as 0; then of
/// the column looked for its text and its literal; then the key of that column's table and its rowid.
class Varredura {
 public:
  Varredura(sqlite3* banco, const SelectAnalisado& select, const Fila& fila, std::size_t coluna)
      : select_(select), expressao_(select.lista[coluna]), fila_(fila), coluna_(coluna) {
    for (const TabelaNomeada& tabela : select.tabelas)
      if (tabela.nome == expressao_.tabela) chave_ = chaveDa(banco, tabela);
    consulta_ = std::make_unique<Consulta>(banco, sql());
  }

  /// Goes to the next row from which the wanted row can have been made.
  bool proxima() {
    while (consulta_->avanca())
      if (igual()) return true;
    return false;
  }

  Achada achada() const {
    Achada a{expressao_.tabela, expressao_.coluna, "", "", texto(1), 0, ""};
    for (std::size_t i = 0; i < chave_.colunas.size(); ++i)
      a.chave += (i == 0 ? "" : ", ") + chave_.colunas[i] + '=' + texto(2 + i);
    if (chave_.temRowid) a.rowid = texto(2 + chave_.colunas.size());
    return a;
  }

 private:
  std::string sql() const {
    std::string lista;
    for (const Expressao& e : select_.lista)
      lista += e.soma() || e.extremo() ? std::string("0, ") : e.sql + ", ";
    const std::string lida = expressao_.constante() ? expressao_.sql : expressao_.argumento;
    lista += lida + ", quote(" + lida + ')';
    for (const std::string& nome : chave_.colunas)
      lista += ", quote(" + chave_.apelido + '.' + emAspasSql(nome, '"') + ')';
    if (chave_.temRowid) lista += ", " + chave_.apelido + ".rowid";
    return "SELECT " + lista + ' ' + select_.resto;
  }

  bool igual() const {
    for (std::size_t i = 0; i < select_.lista.size() && i < fila_.size(); ++i) {
      const Expressao& e = select_.lista[i];
      if (!e.soma() && !e.extremo() && fila_[i] != consulta_->texto(static_cast<int>(i))) return false;
    }
    return !expressao_.extremo() || texto(0) == fila_[coluna_];
  }

  // Counted from the end of the list.
  std::string texto(std::size_t coluna) const {
    return consulta_->texto(static_cast<int>(select_.lista.size() + coluna));
  }

  const SelectAnalisado& select_;
  const Expressao& expressao_;
  const Fila& fila_;
  std::size_t coluna_;
  ChaveDaTabela chave_;
  std::unique_ptr<Consulta> consulta_;
};

bool soma(Varredura& varredura, Achada& achada) {
  long linhas = 0;
  std::string rowids;
  for (; varredura.proxima(); ++linhas) {
    achada = varredura.achada();
    if (linhas < kRowidsMostrados && !achada.rowid.empty())
      rowids += (linhas == 0 ? "" : ", ") + achada.rowid;
  }
  if (linhas > kRowidsMostrados && !rowids.empty()) rowids += ", ...";
  achada.linhas = linhas;
  achada.rowids = rowids;
  return linhas > 0;
}

}  // namespace

bool procura(sqlite3* banco, const std::string& sql, const Fila& fila, std::size_t coluna, long vez,
             Achada& achada) {
  bool alguma = false;
  for (const SelectAnalisado& analisado : analisa(sql)) {
    const SelectAnalisado select = analisado.comColunas(colunasDa(banco, analisado.tabelas.front().nome));
    if (coluna >= select.lista.size()) continue;
    Varredura varredura(banco, select, fila, coluna);
    if (select.lista[coluna].soma()) return soma(varredura, achada);
    for (; vez > 0 && varredura.proxima(); --vez) {
      achada = varredura.achada();
      alguma = true;
    }
    if (vez == 0) return true;
  }
  return alguma;
}

}  // namespace cotepe
