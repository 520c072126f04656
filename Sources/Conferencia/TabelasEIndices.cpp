// What the schema itself must have: tables, columns, and indexes for the queries' searches.
#include <algorithm>

#include "Conferencia/Partes.h"
#include "Idioma/Idioma.h"

namespace cotepe {

const Regra conferencia::kTabelaAusente{"table-missing", Severidade::Erro,
                                        marca("Every table that the registers read is there."),
                                        marca("create it; cotepe schema shows how")};
const Regra conferencia::kColunaAusente{"column-missing", Severidade::Erro,
                                        marca("Every column that the registers read is there."),
                                        marca("add it; cotepe schema shows how")};
const Regra conferencia::kSemIndice{"index-missing", Severidade::Aviso,
                                    marca("There is an index on each column that the queries search by."),
                                    marca("create the index; cotepe schema shows how")};

namespace {

void confereColunas(const Contexto& contexto, const FormaDaTabela& forma) {
  for (const FormaDaColuna& coluna : forma.colunas) {
    if (coluna.nome == nullptr || contexto.tem(forma.nome, coluna.nome)) continue;
    const std::string leitores = contexto.leitores(forma.nome, coluna.nome);
    if (leitores.empty()) continue;
    contexto.relata(conferencia::kColunaAusente, {forma.nome, "", coluna.nome}, leitores, nullptr,
                    traduz("no such column, without which the query fails"), traduz("the column"));
  }
}

void confereQuantasColunas(const Contexto& contexto, const FormaDaTabela& forma, std::size_t quantas) {
  const auto* const fim = std::find_if(forma.colunas.begin(), forma.colunas.end(),
                                       [](const FormaDaColuna& coluna) { return coluna.nome == nullptr; });
  const auto precisas = static_cast<std::size_t>(fim - forma.colunas.begin());
  if (quantas >= precisas) return;
  contexto.relata(conferencia::kColunaAusente, {forma.nome, "", ""}, contexto.leitores(forma.nome, ""),
                  nullptr,
                  fraseDe("{n} column, which is read by position", "{n} columns, which are read by position",
                          static_cast<long long>(quantas)),
                  frase("at least {1}", {std::to_string(precisas)}));
}

// The first column of each index of a table, and its row number where a column is an alias of it.
std::vector<std::string> colunasComIndice(const Contexto& contexto, const std::string& tabela) {
  std::vector<std::string> nomes;
  Pergunta indices(contexto.banco(), "SELECT c.name FROM pragma_index_list('" + tabela +
                                         "') i, pragma_index_info(i.name) c"
                                         " WHERE c.seqno = 0 AND c.name IS NOT NULL AND NOT i.partial");
  while (indices.avanca()) nomes.emplace_back(indices.texto(0));
  Pergunta chave(contexto.banco(),
                 "SELECT max(name) FROM pragma_table_info('" + tabela +
                     "') WHERE pk > 0 HAVING count(*) = 1 AND upper(max(type)) = 'INTEGER'");
  while (chave.avanca()) nomes.emplace_back(chave.texto(0));
  return nomes;
}

}  // namespace

void confereEsquema(const Contexto& contexto) {
  for (const FormaDaTabela& forma : kFormas) {
    if (!contexto.lida(forma.nome)) continue;
    const std::size_t quantas = contexto.colunas(forma.nome).size();
    if (quantas == 0)
      contexto.relata(conferencia::kTabelaAusente, {forma.nome, "", ""}, contexto.leitores(forma.nome, ""),
                      nullptr, traduz("no such table, without which the query fails"), traduz("the table"));
    else if (forma.porPosicao)
      confereQuantasColunas(contexto, forma, quantas);
    else
      confereColunas(contexto, forma);
  }
}

void confereIndices(const Contexto& contexto) {
  if (!contexto.ligada(conferencia::kSemIndice)) return;
  for (const BuscaPorColuna& busca : kBuscas) {
    if (!contexto.lida(busca.tabela) || !contexto.tem(busca.tabela, busca.coluna)) continue;
    const std::vector<std::string> nomes = colunasComIndice(contexto, busca.tabela);
    if (std::any_of(nomes.begin(), nomes.end(), [&](const std::string& nome) {
          return sqlite3_stricmp(nome.c_str(), busca.coluna) == 0;
        }))
      continue;
    contexto.relata(conferencia::kSemIndice, {busca.tabela, "", busca.coluna},
                    contexto.leitores(busca.tabela, busca.coluna), nullptr,
                    traduz("no index that begins with it, so that the table is read again and again"),
                    traduz("an index"));
  }
}

}  // namespace cotepe
