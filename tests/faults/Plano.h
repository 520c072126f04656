// What a run asks of the database: its queries in their order, what each reads, what each says when it fails.
#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Corrida.h"
#include "Registros/Catalogo.h"

/// One query of a run; no register stands for the query of the printer's identity.
struct Passo {
  const cotepe::Registro* registro = nullptr;
  int consulta = 0;

  std::string codigo() const { return registro == nullptr ? "" : registro->codigo; }
  std::string sql() const;

  /// What is logged when it fails; empty for the two queries that log nothing.
  std::string mensagem() const;
};

inline std::string Passo::sql() const {
  if (registro == nullptr)
    return "select ecf.num_serie, ecf.modelo, usuario.seq_usuario from dados_ecf AS ecf LEFT JOIN "
           "dados_usuario "
           "AS usuario";
  std::string texto = registro->consultas[consulta].sql;
  bool inicial = true;
  for (std::size_t marca; (marca = texto.find("%s")) != std::string::npos; inicial = !inicial)
    texto.replace(marca, 2, inicial ? "2024-01-01 00:00:00" : "2024-01-31 23:59:59");
  return texto;
}

inline std::string Passo::mensagem() const {
  static const std::map<std::string, std::vector<std::string>> kMensagens = {
      {"", {"Erro no select - GeraRegistrosTipoE"}},
      {"E01",
       {"Erro no select 1 - TipoE01", "Erro no select 2 - TipoE01", "Erro no select 3 - TipoE01",
        "Erro no select 4 - TipoE01"}},
      {"E02", {"Erro no select - TipoE02", "", ""}},
      {"E05", {"Erro no select 1 - TipoE05", "Erro no select 2 - TipoE05"}},
      {"E06", {"Erro no select 1 - TipoE06", "Erro no select 2 - TipoE06"}},
      {"E07", {"Erro no select - TipoE07"}},
      {"E08", {"Erro no select - TipoE08"}},
      {"E09", {"Erro no select - TipoE09"}},
      {"E10", {"Erro no select 1 - TipoE10", "Erro no select 2 - TipoE10"}},
      {"E11", {"Erro no select - TipoE11"}},
      {"E12", {"Erro no select - TipoE12"}},
      {"E13", {"Erro no select 1 - TipoE13", "Erro no select 2 - TipoE13"}},
      {"E14", {"Erro no select - TipoE14"}},
      {"E15", {"Erro no select - TipoE15"}},
      {"E16", {"Erro no select - TipoE16"}},
      {"E17", {"Erro no select - TipoE"}},
      {"E18", {"Erro no select - TipoE18"}},
      {"E19", {"Erro no select - TipoE19"}},
      {"E20", {"Erro no select - TipoE20"}},
      {"E21", {"Erro no select - TipoE21"}},
      {"E22", {"Erro no select - TipoE21"}},
  };
  return kMensagens.at(codigo()).at(static_cast<std::size_t>(consulta));
}

/// The queries of a run in their order. E02 looks for the grand total first, where the command says.
inline std::vector<Passo> plano(const Modo& modo) {
  std::vector<Passo> passos = {{}};
  for (const cotepe::Registro* registro : cotepe::kCatalogo) {
    if (!registro->despachado(modo.comando.c_str(), modo.versao)) continue;
    if (std::string(registro->codigo) == "E02") {
      passos.push_back({registro, modo.comando == "MF" ? 1 : 2});
      passos.push_back({registro, 0});
      continue;
    }
    for (int i = 0; i < static_cast<int>(cotepe::Registro::kConsultas); ++i)
      if (registro->consultas[i].sql != nullptr) passos.push_back({registro, i});
  }
  return passos;
}

/// The lines of a report that a register wrote, or all but those. Only the placeholder of E07 has no head.
inline std::vector<std::string> linhasDo(const std::string& arquivo, const std::string& codigo,
                                         bool dele = true) {
  auto linhas = linhasDe(arquivo);
  const auto sai = [&](const std::string& linha) {
    const std::string doInicio = linha.compare(0, 1, "E") == 0 ? linha.substr(0, 3) : "E07";
    return (doInicio == codigo) != dele;
  };
  linhas.erase(std::remove_if(linhas.begin(), linhas.end(), sai), linhas.end());
  return linhas;
}

/// Every query that any run asks.
inline std::vector<Passo> todosOsPassos() {
  std::vector<Passo> passos = plano({"TDM", 2, false});
  passos.push_back({&cotepe::kE02, 1});
  return passos;
}

/// A column, after its table.
using Coluna = std::pair<std::string, std::string>;

/// The columns that a query joins by USING, of the table named before it and of those to the left that have
/// one of that name: SQLite reports none of these.
inline void acrescentaJuncoes(sqlite3* banco, const std::string& sql, std::set<Coluna>& colunas) {
  std::vector<std::string> tabelas;
  std::string semParenteses = sql;
  std::replace_if(
      semParenteses.begin(), semParenteses.end(), [](char c) { return c == '(' || c == ')'; }, ' ');
  std::istringstream palavras(semParenteses);
  for (std::string palavra; palavras >> palavra;) {
    if (palavra == "FROM") tabelas.clear();
    if (palavra == "FROM" || palavra == "JOIN") palavras >> tabelas.emplace_back();
    if (palavra != "USING") continue;
    palavras >> palavra;
    for (const std::string& tabela : tabelas)
      if (sqlite3_table_column_metadata(banco, nullptr, tabela.c_str(), palavra.c_str(), nullptr, nullptr,
                                        nullptr, nullptr, nullptr) == SQLITE_OK)
        colunas.emplace(tabela, palavra);
  }
}

/// The columns that a query names, as SQLite sees it when it prepares the query.
inline std::set<Coluna> colunasDe(sqlite3* banco, const std::string& sql) {
  std::set<Coluna> colunas;
  const auto anota = [](void* quais, int acao, const char* tabela, const char* coluna, const char* /*banco*/,
                        const char* /*visao*/) {
    if (acao == SQLITE_READ && *coluna != '\0')
      static_cast<std::set<Coluna>*>(quais)->emplace(tabela, coluna);
    return SQLITE_OK;
  };
  sqlite3_set_authorizer(banco, anota, &colunas);
  sqlite3_stmt* declaracao = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(banco, sql.c_str(), -1, &declaracao, nullptr), SQLITE_OK) << sql;
  sqlite3_finalize(declaracao);
  sqlite3_set_authorizer(banco, nullptr, nullptr);
  acrescentaJuncoes(banco, sql, colunas);
  return colunas;
}

/// Every column that some query names.
inline std::set<Coluna> colunasLidas(sqlite3* banco) {
  std::set<Coluna> todas;
  for (const Passo& passo : todosOsPassos())
    for (const Coluna& coluna : colunasDe(banco, passo.sql())) todas.insert(coluna);
  return todas;
}
