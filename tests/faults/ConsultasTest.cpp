// Queries that fail: at their preparation, for want of a table or a column, and at each of their steps.
#include <gtest/gtest.h>

#include <algorithm>

#include "BancoCheio.h"
#include "LeituraFalha.h"
#include "Plano.h"
#include "Relato.h"
#include "Vigia.h"

namespace {

std::vector<Modo> modos() {
  std::vector<Modo> todos = {{"TDM", 1, false}, {"TDM", 2, false}, {"MF", 1, false}};
  if (formaLonga())
    todos.insert(todos.end(), {{"TDM", 1, true},
                               {"TDM", 2, true},
                               {"TDM", 3, false},
                               {"MF", 2, true},
                               {"MFD", 1, false},
                               {"MFD", 2, false},
                               {"RZ", 1, false},
                               {"RZ", 2, false}});
  return todos;
}

std::vector<std::string> soSeHouver(const std::string& mensagem) {
  return mensagem.empty() ? std::vector<std::string>{} : std::vector<std::string>{mensagem};
}

// --- Tables and columns that are not there ---

// What is done to a table, or to one column of it where there is one.
struct Estrago {
  std::string tabela, coluna, sql;

  // Deliberate: the query of E22 takes all columns by position, whatever they are called.
  bool quebra(const std::set<Coluna>& lidas) const {
    return std::any_of(lidas.begin(), lidas.end(), [this](const Coluna& lida) {
      return lida.first == tabela && (coluna.empty() || (lida.second == coluna && tabela != "tentativas_sb"));
    });
  }
};

std::vector<Estrago> estragos(sqlite3* banco, const std::string& daTabela, const std::string& daColuna) {
  std::vector<Estrago> todos;
  std::set<std::string> tabelas;
  for (const auto& [tabela, coluna] : colunasLidas(banco)) {
    if (tabelas.insert(tabela).second) todos.push_back({tabela, "", daTabela});
    todos.push_back({tabela, coluna, daColuna});
  }
  for (Estrago& estrago : todos)
    for (const auto& [marca, nome] : {std::pair{"{t}", estrago.tabela}, std::pair{"{c}", estrago.coluna}})
      for (std::size_t i; (i = estrago.sql.find(marca)) != std::string::npos;)
        estrago.sql.replace(i, 3, nome);
  return todos;
}

// What a run must be where each query that `quebrados` marks cannot be prepared: the first of a register is
// logged and ends it. Where the query is one that logs nothing, or its columns only have moved (`movido`),
// the register is what the second reading says; every other is what it was.
Corrida semConsultas(const Corrida& inteira, const std::vector<Passo>& passos,
                     const std::vector<bool>& quebrados, const std::string& movido, const Corrida& segunda) {
  if (quebrados[0]) return {5, "", {passos[0].mensagem()}};
  Corrida esperada{0, "", {}};
  std::set<std::string> falharam, mudaram = {movido};
  for (std::size_t i = 1; i < passos.size(); ++i) {
    if (!quebrados[i]) continue;
    const std::string mensagem = passos[i].mensagem();
    if (mensagem.empty())
      mudaram.insert(passos[i].codigo());
    else if (falharam.insert(passos[i].codigo()).second)
      esperada.mensagens.push_back(mensagem);
  }
  for (const cotepe::Registro* registro : cotepe::kCatalogo) {
    if (falharam.count(registro->codigo) != 0) continue;
    const std::string& de = (mudaram.count(registro->codigo) != 0 ? segunda : inteira).arquivo;
    for (const auto& linha : linhasDo(de, registro->codigo)) esperada.arquivo += linha + "\n";
  }
  return esperada;
}

void confereEstragos(Relato& relato, const std::string& daTabela, const std::string& daColuna) {
  Bancada bancada;
  enche(bancada);
  const NomeDoRelatorio relatorio;
  const auto todos = estragos(bancada.banco(), daTabela, daColuna);
  EXPECT_GT(todos.size(), 120U);
  for (const Modo& modo : modos()) {
    const auto passos = plano(modo);
    const Corrida inteira = corre(bancada.gerador(), modo, relatorio);
    std::vector<std::set<Coluna>> lidas;
    for (const Passo& passo : passos) lidas.push_back(colunasDe(bancada.banco(), passo.sql()));
    for (const Estrago& estrago : todos) {
      std::vector<bool> quebrados;
      for (const auto& colunas : lidas) quebrados.push_back(estrago.quebra(colunas));
      bancada.sql("BEGIN;" + estrago.sql);
      const Corrida segunda = segundaLeitura(bancada.banco(), modo);
      const Corrida corrida = corre(bancada.gerador(), modo, relatorio);
      bancada.sql("ROLLBACK");
      const std::string movido = estrago.tabela == "tentativas_sb" && !estrago.coluna.empty() ? "E22" : "";
      const Corrida esperada = semConsultas(inteira, passos, quebrados, movido, segunda);
      EXPECT_EQ(corrida.resultado, esperada.resultado) << estrago.sql << ", " << modo;
      EXPECT_EQ(corrida.mensagens, esperada.mensagens) << estrago.sql << ", " << modo;
      EXPECT_EQ(corrida.arquivo, esperada.arquivo) << estrago.sql << ", " << modo;
      EXPECT_TRUE(corrida == segunda) << "not as the second reading: " << estrago.sql << ", " << modo;
      relato.caso();
    }
    EXPECT_TRUE(corre(bancada.gerador(), modo, relatorio) == inteira) << "something stayed behind: " << modo;
  }
}

TEST(Consultas, EveryTableAndColumnDroppedIsTheFailureOfItsReadersAlone) {
  Relato relato("Queries", "every table and every column dropped, under each command and layout");
  confereEstragos(relato, "DROP TABLE {t}", "ALTER TABLE {t} DROP COLUMN {c}");
}

TEST(Consultas, EveryTableAndColumnRenamedIsTheFailureOfItsReadersAlone) {
  Relato relato("Queries", "every table and every column renamed, under each command and layout");
  confereEstragos(relato, "ALTER TABLE {t} RENAME TO {t}_outra",
                  "ALTER TABLE {t} RENAME COLUMN {c} TO {c}_outra");
}

// --- Steps that fail ---

// How many lines of its register a query leaves that fails after `dadas` rows, `antes` being the lines of the
// register's query before it: none where a line is written after the last row only.
std::size_t linhasQueFicam(const Passo& passo, int dadas, int antes) {
  const std::string codigo = passo.codigo();
  if (codigo == "E01" || codigo == "E08" || codigo == "E11") return 0;
  if (passo.consulta == 0 && (codigo == "E05" || codigo == "E06" || codigo == "E10")) return 0;
  const bool segundaPassada = codigo == "E13" && passo.consulta == 1;
  return static_cast<std::size_t>(segundaPassada ? antes + dadas : dadas);
}

// The run in which the query `alvo` of the plan failed after some rows (the last ones that `vigia` counted
// for it), against the whole one.
void confereQuebrada(const Modo& modo, const Corrida& corrida, const Corrida& inteira, int alvo,
                     const std::vector<int>& linhas) {
  const auto passos = plano(modo);
  const Passo& passo = passos[static_cast<std::size_t>(alvo)];
  EXPECT_EQ(corrida.mensagens, soSeHouver(passo.mensagem()));
  EXPECT_EQ(corrida.resultado, alvo == 0 ? 5 : 0);
  if (alvo == 0) {
    EXPECT_EQ(corrida.arquivo, "");
    return;
  }
  const std::string codigo = passo.codigo();
  EXPECT_EQ(linhasDo(corrida.arquivo, codigo, false), linhasDo(inteira.arquivo, codigo, false));
  if (passo.mensagem().empty()) return;  // the line is another, not shorter: the second reading knows it
  auto esperadas = linhasDo(inteira.arquivo, codigo);
  const auto i = static_cast<std::size_t>(alvo);
  ASSERT_LT(i, linhas.size());
  // A first pass without a row has a placeholder, which stays.
  const int antes = std::max(linhas[i - 1], modo.cat52 ? 0 : 1);
  const std::size_t ficam = linhasQueFicam(passo, linhas[i], antes);
  ASSERT_LE(ficam, esperadas.size());
  esperadas.resize(ficam);
  EXPECT_EQ(linhasDo(corrida.arquivo, codigo), esperadas);
}

// The rows of each query of a whole run, which must ask what the plan says.
std::vector<int> linhasDoPlano(Bancada& bancada, const Modo& modo, const NomeDoRelatorio& relatorio) {
  const Vigia vigia(bancada.banco());
  corre(bancada.gerador(), modo, relatorio);
  EXPECT_EQ(vigia.linhas().size(), plano(modo).size()) << modo;
  return vigia.linhas();
}

void confereInterrupcoes(Relato& relato, Bancada& bancada) {
  const NomeDoRelatorio relatorio;
  for (const Modo& modo : modos()) {
    const auto passos = plano(modo);
    const auto linhas = linhasDoPlano(bancada, modo, relatorio);
    ASSERT_EQ(linhas.size(), passos.size());
    const Corrida inteira = corre(bancada.gerador(), modo, relatorio);
    ASSERT_TRUE(inteira.mensagens.empty());
    for (int alvo = 0; alvo < static_cast<int>(passos.size()); ++alvo)
      for (int passo = 1; passo <= linhas[static_cast<std::size_t>(alvo)] + 1; ++passo) {
        SCOPED_TRACE(testing::Message()
                     << modo << ", step " << passo << " of " << passos[static_cast<std::size_t>(alvo)].sql());
        // E02 takes one step of its search for the grand total, however many there are.
        if (passo > 1 && passos[static_cast<std::size_t>(alvo)].mensagem().empty()) continue;
        Corrida segunda;
        {
          Vigia vigia(bancada.banco());
          vigia.interrompe(alvo, passo);
          segunda = segundaLeitura(bancada.banco(), modo);
        }
        Vigia vigia(bancada.banco());
        vigia.interrompe(alvo, passo);
        const Corrida corrida = corre(bancada.gerador(), modo, relatorio);
        confereQuebrada(modo, corrida, inteira, alvo, vigia.linhas());
        EXPECT_TRUE(corrida == segunda) << "not as the second reading";
        relato.caso();
      }
    EXPECT_TRUE(corre(bancada.gerador(), modo, relatorio) == inteira) << "something stayed behind: " << modo;
  }
}

TEST(Consultas, EveryStepInterruptedLeavesTheLinesBeforeItAndAllOthers) {
  Relato relato("Queries",
                "every query interrupted at every step from the first to the one after its last row");
  Bancada bancada;
  enche(bancada);
  confereInterrupcoes(relato, bancada);
}

TEST(Consultas, EveryFirstStepInterruptedWithoutARowLeavesNoPlaceholder) {
  Relato relato("Queries", "every query of an empty database interrupted at every step");
  Bancada bancada;
  confereInterrupcoes(relato, bancada);
}

// Calls of falha(value), which is the value, until one of them raises.
struct Estouro {
  const Vigia* vigia = nullptr;
  int alvo = -1;
  long faltam = -1;
  bool deu = false;
};

void falha(sqlite3_context* contexto, int /*quantos*/, sqlite3_value** valores) {
  auto& estouro = *static_cast<Estouro*>(sqlite3_user_data(contexto));
  if (estouro.vigia != nullptr && estouro.vigia->atual() == estouro.alvo && estouro.faltam-- == 0) {
    estouro.deu = true;
    return sqlite3_result_error(contexto, "raised", -1);
  }
  sqlite3_result_value(contexto, valores[0]);
}

// In the place of each table a view of it whose every value goes through falha().
void trocaPorVisoes(Bancada& bancada, Estouro& estouro) {
  std::map<std::string, std::string> colunas;
  for (const auto& [tabela, coluna] : colunasLidas(bancada.banco()))
    colunas[tabela] += (colunas[tabela].empty() ? "falha(" : ", falha(") + coluna + ") AS " + coluna;
  // A table that is read by position keeps its order.
  colunas["tentativas_sb"] = "falha(numero) AS numero, versao, falha(data_hora) AS data_hora, resultado";
  ASSERT_EQ(
      sqlite3_create_function(bancada.banco(), "falha", 1, SQLITE_UTF8, &estouro, falha, nullptr, nullptr),
      SQLITE_OK);
  for (const auto& [tabela, lista] : colunas)
    bancada.sql("ALTER TABLE " + tabela + " RENAME TO " + tabela + "_real; CREATE VIEW " + tabela +
                " AS SELECT " + lista + " FROM " + tabela + "_real");
}

TEST(Consultas, EveryValueOfAViewThatRaisesLeavesTheLinesBeforeItAndAllOthers) {
  Relato relato("Queries", "every value of a view in the place of a table raising in its turn");
  Bancada bancada;
  Estouro estouro;
  enche(bancada);
  trocaPorVisoes(bancada, estouro);
  const NomeDoRelatorio relatorio;
  const long salto = casos(23L, 1L);
  for (const Modo& modo : modos()) {
    const auto passos = plano(modo);
    const Corrida inteira = corre(bancada.gerador(), modo, relatorio);
    ASSERT_TRUE(inteira.mensagens.empty());
    for (int alvo = 0; alvo < static_cast<int>(passos.size()); ++alvo)
      for (long n = 0;; n += salto) {
        const Vigia vigia(bancada.banco());
        estouro = {&vigia, alvo, n, false};
        const Corrida corrida = corre(bancada.gerador(), modo, relatorio);
        estouro.vigia = nullptr;
        SCOPED_TRACE(testing::Message()
                     << modo << ", value " << n << " of " << passos[static_cast<std::size_t>(alvo)].sql());
        if (!estouro.deu) {
          EXPECT_TRUE(corrida == inteira);
          EXPECT_GT(n, 0) << "the query reads nothing";
          break;
        }
        confereQuebrada(modo, corrida, inteira, alvo, vigia.linhas());
        relato.caso();
      }
  }
}

// --- Reads of the database file that fail ---

TEST(Consultas, EveryReadThatFailsLeavesTheLinesBeforeItAndAllOthers) {
  Relato relato("Queries", "every read of the database file failing in its turn");
  Bancada cheia;
  enche(cheia, 20);
  BancoEmArquivo arquivo(cheia.banco());
  CotepeManager gerador(arquivo.banco());
  const NomeDoRelatorio relatorio;
  const long salto = casos(5L, 1L);
  for (const Modo& modo : modos()) {
    const auto passos = plano(modo);
    const Corrida inteira = corre(gerador, modo, relatorio);
    ASSERT_TRUE(inteira.mensagens.empty());
    bool falhou = true;
    for (long n = 0; falhou; n += salto) {
      SCOPED_TRACE(testing::Message() << modo << ", read " << n);
      const Vigia vigia(arquivo.banco());
      int alvo = -1;
      arquivo.esvaziaCache();
      arquivo.falhaNaLeitura(n, [&] { alvo = vigia.atual(); });
      const Corrida corrida = corre(gerador, modo, relatorio);
      falhou = arquivo.falhou();
      if (!falhou) {
        EXPECT_TRUE(corrida == inteira);
        break;
      }
      ASSERT_GE(alvo, 0);
      confereQuebrada(modo, corrida, inteira, alvo, vigia.linhas());
      relato.caso();
    }
    EXPECT_TRUE(corre(gerador, modo, relatorio) == inteira) << "something stayed behind: " << modo;
  }
}

}  // namespace
