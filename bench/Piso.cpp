#include "Piso.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace bench {
namespace {

constexpr char kIdentidade[] =
    "select ecf.num_serie, ecf.modelo, usuario.seq_usuario from dados_ecf AS ecf LEFT JOIN dados_usuario AS "
    "usuario";

// The SQL with its "%s" filled with the first and the last moment alternately.
std::string comPeriodo(std::string sql, const Periodo& periodo) {
  bool primeiro = true;
  for (std::size_t i = 0; (i = sql.find("%s", i)) != std::string::npos; primeiro = !primeiro)
    sql.replace(i, 2, primeiro ? periodo.inicial : periodo.final);
  return sql;
}

// The columns that the list of fields names for a query; all that the query has, if the list names none.
std::vector<int> colunasLidas(const cotepe::Registro& registro, int consulta, int existentes) {
  std::vector<int> colunas;
  const auto junta = [&](int coluna) {
    const bool nova = std::find(colunas.begin(), colunas.end(), coluna) == colunas.end();
    if (coluna >= 0 && coluna < existentes && nova) colunas.push_back(coluna);
  };
  for (const cotepe::Campo& campo : registro.campos) {
    if (campo.origem.consulta != consulta) continue;
    junta(campo.origem.coluna);
    junta(campo.colunaDasCasas);
  }
  for (int coluna = 0; colunas.empty() && coluna < existentes; ++coluna) junta(coluna);
  return colunas;
}

// Steps a statement to its end and finalizes it.
long le(sqlite3* banco, sqlite3_stmt* declaracao, const std::vector<int>& colunas) {
  long linhas = 0;
  int resultado;
  for (; (resultado = sqlite3_step(declaracao)) == SQLITE_ROW; ++linhas)
    for (const int coluna : colunas) static_cast<void>(sqlite3_column_text(declaracao, coluna));
  sqlite3_finalize(declaracao);
  if (resultado != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(banco));
  return linhas;
}

sqlite3_stmt* prepara(sqlite3* banco, const std::string& sql) {
  sqlite3_stmt* declaracao = nullptr;
  if (sqlite3_prepare_v2(banco, sql.c_str(), static_cast<int>(sql.size() + 1), &declaracao, nullptr) !=
      SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(banco));
  return declaracao;
}

// The command decides which of E02's two grand totals is read: "MF" the first, any other the second.
bool lida(const cotepe::Registro& registro, int consulta, const std::string& comando) {
  if (registro.codigo != std::string("E02") || consulta == 0) return true;
  return consulta == (comando == "MF" ? 1 : 2);
}

}  // namespace

void pisoDaIdentidade(sqlite3* banco) { le(banco, prepara(banco, kIdentidade), {0, 1, 2}); }

long pisoDoRegistro(sqlite3* banco, const cotepe::Registro& registro, const std::string& comando,
                    const Periodo& periodo) {
  long linhas = 0;
  int consulta = 0;
  for (const auto& [sql, falha] : registro.consultas) {
    if (sql != nullptr && lida(registro, consulta, comando)) {
      sqlite3_stmt* declaracao = prepara(banco, comPeriodo(sql, periodo));
      linhas += le(banco, declaracao, colunasLidas(registro, consulta, sqlite3_column_count(declaracao)));
    }
    ++consulta;
  }
  return linhas;
}

}  // namespace bench
