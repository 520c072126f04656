// Runs without memory: every allocation fails in its turn, once or for ever after, until a run needs no more.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "BancoCheio.h"
#include "Corrida.h"
#include "LeituraFalha.h"
#include "MemoriaContada.h"
#include "Plano.h"
#include "Relato.h"

using cotepe::testes::g_memoria;
using cotepe::testes::MemoriaContada;

namespace {

// Allocations of SQLite, counted from before its first use.
MemoriaContada g_doSqlite;

// SQLite's own allocator behind a count. Set before the library is first used, that is before any test.
class AlocadorDoSqlite {
 public:
  AlocadorDoSqlite() {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &proprio_);
    sqlite3_mem_methods contado = proprio_;
    contado.xMalloc = [](int bytes) -> void* {
      if (g_doSqlite.nega()) return nullptr;
      g_doSqlite.conta(1);
      return proprio_.xMalloc(bytes);
    };
    contado.xRealloc = [](void* memoria, int bytes) -> void* {
      return g_doSqlite.nega() ? nullptr : proprio_.xRealloc(memoria, bytes);
    };
    contado.xFree = [](void* memoria) {
      if (memoria != nullptr) g_doSqlite.conta(-1);
      proprio_.xFree(memoria);
    };
    posto_ = sqlite3_config(SQLITE_CONFIG_MALLOC, &contado) == SQLITE_OK;
  }
  bool posto() const { return posto_; }

 private:
  static inline sqlite3_mem_methods proprio_{};
  bool posto_ = false;
};
const AlocadorDoSqlite kAlocador;

// All of them for the few allocations of ours.
std::vector<Modo> modos(const MemoriaContada& memoria) {
  std::vector<Modo> todos = {{"TDM", 1, false}, {"TDM", 2, false}, {"MF", 1, false}};
  if (formaLonga() || &memoria == &g_memoria)
    todos.insert(todos.end(), {{"MF", 2, false},
                               {"MFD", 1, false},
                               {"MFD", 2, false},
                               {"RZ", 1, false},
                               {"RZ", 2, false},
                               {"TDM", 2, true}});
  return todos;
}

// Whether no line is another than that of the whole report, and each register with fewer lines has a message
// of its own in the log.
bool oLogDizOQueFalta(const Corrida& corrida, const Corrida& inteira, const Modo& modo) {
  std::map<std::string, std::vector<std::string>> mensagens;
  for (const Passo& passo : plano(modo)) mensagens[passo.codigo()].push_back(passo.mensagem());
  std::vector<std::string> ditas = corrida.mensagens;
  for (const auto& [codigo, dele] : mensagens) {
    const auto linhas = linhasDo(corrida.arquivo, codigo), todas = linhasDo(inteira.arquivo, codigo);
    if (linhas.size() > todas.size() || !std::equal(linhas.begin(), linhas.end(), todas.begin()))
      return false;
    if (linhas.size() == todas.size()) continue;
    const auto dita = std::find_first_of(ditas.begin(), ditas.end(), dele.begin(), dele.end());
    if (dita == ditas.end()) return false;
    ditas.erase(dita);
  }
  return !corrida.mensagens.empty();
}

// What a run without memory may be: the whole report; 4; 5, with its message and nothing written; or 0 with
// the failure of each register that is not whole in the log. No line is ever another than that of the whole
// report.
testing::AssertionResult honesta(const Corrida& corrida, const Corrida& inteira, const Modo& modo) {
  if (corrida == inteira || corrida.resultado == 4) return testing::AssertionSuccess();
  if (corrida.resultado == 5)
    return corrida.arquivo.empty() && corrida.mensagens == std::vector<std::string>{plano(modo)[0].mensagem()}
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "an identity that failed, with something written";
  if (corrida.resultado == 0 && oLogDizOQueFalta(corrida, inteira, modo)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "result " << corrida.resultado << ", log "
                                     << testing::PrintToString(corrida.mensagens) << ", report\n"
                                     << corrida.arquivo << "instead of\n"
                                     << inteira.arquivo;
}

// What is held when nothing runs; our own counts include what the tests themselves hold.
struct Guardado {
  long nosso, doSqlite;
  sqlite3_int64 bytes;
};
Guardado guardado(sqlite3* banco = nullptr) {
  // A handle keeps the text of its last error, let it be this one; and pages of its file.
  if (banco != nullptr) sqlite3_exec(banco, "no SQL", nullptr, nullptr, nullptr);
  if (banco != nullptr) sqlite3_db_release_memory(banco);
  return {g_memoria.pendentes(), g_doSqlite.pendentes(), sqlite3_memory_used()};
}

testing::AssertionResult nadaFicou(const Guardado& antes, sqlite3* banco) {
  const Guardado agora = guardado(banco);
  if (agora.nosso == antes.nosso && agora.doSqlite == antes.doSqlite && agora.bytes == antes.bytes)
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << "blocks " << agora.nosso - antes.nosso << " of ours, "
                                     << agora.doSqlite - antes.doSqlite << " of SQLite ("
                                     << agora.bytes - antes.bytes << " bytes) were left";
}

// The run alone: its file and its messages are looked at when there is memory again.
int geraSem(MemoriaContada& memoria, CotepeManager& gerador, const Modo& modo,
            const NomeDoRelatorio& relatorio, long boas, bool paraSempre, long& falhas) {
  gerador.setVersaoAtoCotepe(modo.versao);
  gerador.setCAT52(modo.cat52);
  memoria.falha(boas, paraSempre);
  const int resultado =
      gerador.GeraRegistrosTipoE(relatorio.nome(), "01012024", "31012024", modo.comando.c_str());
  falhas = memoria.concede();
  return resultado;
}

// Every allocation of one kind fails in its turn, or every `salto`-th; at the end a run is left untouched.
void falhaEmCadaUma(Relato& relato, MemoriaContada& memoria, sqlite3* banco, CotepeManager& gerador,
                    const Modo& modo, bool paraSempre, long salto) {
  const NomeDoRelatorio relatorio;
  const Corrida inteira = corre(gerador, modo, relatorio);
  ASSERT_EQ(inteira.resultado, 0);
  ASSERT_EQ(plano(modo)[0].mensagem(), "Erro no select - GeraRegistrosTipoE");  // made before the counting
  ASSERT_TRUE(inteira.mensagens.empty());
  long falhas = 1;
  for (long n = 0; falhas > 0; n += salto) {
    SCOPED_TRACE(testing::Message() << modo << ", allocation " << n
                                    << (paraSempre ? " and all after it" : " alone"));
    const Guardado antes = guardado(banco);
    {
      Corrida corrida;
      corrida.resultado = geraSem(memoria, gerador, modo, relatorio, n, paraSempre, falhas);
      g_mensagens.swap(corrida.mensagens);
      corrida.arquivo = relatorio.conteudo();
      EXPECT_TRUE(honesta(corrida, inteira, modo));
      EXPECT_TRUE(falhas > 0 || corrida == inteira);
    }
    EXPECT_EQ(sqlite3_next_stmt(banco, nullptr), nullptr) << "a statement was left open";
    EXPECT_TRUE(corre(gerador, modo, relatorio) == inteira) << "the next run is not whole";
    EXPECT_TRUE(nadaFicou(antes, banco));
    relato.caso();
  }
}

void confere(Relato& relato, MemoriaContada& memoria, bool lookaside, bool paraSempre, long saltoCurto) {
  ASSERT_TRUE(kAlocador.posto());
  const Guardado antes = guardado();
  {
    Bancada bancada;
    enche(bancada);
    ASSERT_EQ(sqlite3_db_config(bancada.banco(), SQLITE_DBCONFIG_LOOKASIDE, nullptr, lookaside ? 1200 : 0,
                                lookaside ? 100 : 0),
              SQLITE_OK);
    for (const Modo& modo : modos(memoria))
      falhaEmCadaUma(relato, memoria, bancada.banco(), bancada.gerador(), modo, paraSempre,
                     casos(saltoCurto, 1L));
    // Integers, whose texts SQLite makes when they are asked for.
    bancada.sql(
        "UPDATE posicao_totalizadores_contadores SET valor_gt = 98765432, cont_coo = 12345;"
        "UPDATE dados_ecf SET num_serie = 4711; UPDATE cupom_fiscal SET valor_total = 12.5, cont_ccf = 1");
    falhaEmCadaUma(relato, memoria, bancada.banco(), bancada.gerador(), {"TDM", 2, false}, paraSempre,
                   casos(saltoCurto, 1L));
  }
  EXPECT_EQ(sqlite3_memory_used(), antes.bytes) << "the closed database left memory behind";
}

// As Debian's is: all its allocations then come to the allocator, and there is nothing to switch on.
bool semLookaside() { return sqlite3_compileoption_used("OMIT_LOOKASIDE") != 0; }

TEST(Memoria, OneAllocationOfSqliteThatFailsWithLookaside) {
  if (semLookaside()) GTEST_SKIP() << "this SQLite is built without lookaside";
  Relato relato("Memory", "every allocation of SQLite failing alone, with lookaside");
  confere(relato, g_doSqlite, true, false, 5);
}

TEST(Memoria, OneAllocationOfSqliteThatFailsWithoutLookaside) {
  Relato relato("Memory", "every allocation of SQLite failing alone, without lookaside");
  confere(relato, g_doSqlite, false, false, 17);
}

TEST(Memoria, AllAllocationsOfSqliteThatFailFromOneOnWithLookaside) {
  if (semLookaside()) GTEST_SKIP() << "this SQLite is built without lookaside";
  Relato relato("Memory", "every allocation of SQLite failing with all after it, with lookaside");
  confere(relato, g_doSqlite, true, true, 5);
}

TEST(Memoria, AllAllocationsOfSqliteThatFailFromOneOnWithoutLookaside) {
  Relato relato("Memory", "every allocation of SQLite failing with all after it, without lookaside");
  confere(relato, g_doSqlite, false, true, 17);
}

// Pages have to be read, and to be held, into memory of SQLite's as well.
void confereSobreArquivo(Relato& relato, bool paraSempre) {
  Bancada cheia;
  enche(cheia);
  const BancoEmArquivo arquivo(cheia.banco());
  CotepeManager gerador(arquivo.banco());
  for (const Modo& modo : {Modo{"TDM", 2, false}, Modo{"MF", 1, false}})
    falhaEmCadaUma(relato, g_doSqlite, arquivo.banco(), gerador, modo, paraSempre, casos(13L, 1L));
}

TEST(Memoria, OneAllocationOfSqliteThatFailsOverAFile) {
  Relato relato("Memory", "every allocation of SQLite failing alone, over a database file");
  confereSobreArquivo(relato, false);
}

TEST(Memoria, AllAllocationsOfSqliteThatFailFromOneOnOverAFile) {
  Relato relato("Memory", "every allocation of SQLite failing with all after it, over a database file");
  confereSobreArquivo(relato, true);
}

// From the first event of the kind `tipo` of the query with `trecho` on, SQLite has no memory.
Corrida semMemoriaDesde(Bancada& bancada, unsigned tipo, const char* trecho) {
  static const char* procurado;
  procurado = trecho;
  const auto acaba = [](unsigned /*tipo*/, void* /*nada*/, void* declaracao, void* /*sql*/) {
    const char* sql = sqlite3_sql(static_cast<sqlite3_stmt*>(declaracao));
    if (std::strstr(sql, procurado) != nullptr) g_doSqlite.falha(0, true);
    return 0;
  };
  EXPECT_EQ(sqlite3_db_config(bancada.banco(), SQLITE_DBCONFIG_LOOKASIDE, nullptr, 0, 0), SQLITE_OK);
  const NomeDoRelatorio relatorio;
  sqlite3_trace_v2(bancada.banco(), tipo, acaba, nullptr);
  const Corrida corrida = corre(bancada.gerador(), {"TDM", 1, false}, relatorio);
  g_doSqlite.concede();
  sqlite3_trace_v2(bancada.banco(), 0, nullptr, nullptr);
  return corrida;
}

// The query logs nothing: without the result nobody would know that the user's own total stands there.
TEST(Memoria, GrandTotalThatCannotBeSoughtForWantOfItIsFour) {
  Bancada bancada;
  enche(bancada);
  const Corrida corrida = semMemoriaDesde(bancada, SQLITE_TRACE_STMT, "MAX(valor_gt)");
  EXPECT_EQ(corrida.resultado, 4);
  EXPECT_EQ(linhasDo(corrida.arquivo, "E02"), std::vector<std::string>{});
}

// SQLite gives no text, as for NULL, and fails a step too late.
TEST(Memoria, ValueWithoutMemoryForItsTextIsFourAndLeavesNoLine) {
  Bancada bancada;
  enche(bancada);
  bancada.sql("UPDATE fita_detalhe SET coo_final = 123456");
  const Corrida corrida = semMemoriaDesde(bancada, SQLITE_TRACE_ROW, "fita_detalhe");
  EXPECT_EQ(corrida.resultado, 4);
  EXPECT_TRUE(corrida.mensagens.empty());
  EXPECT_EQ(linhasDo(corrida.arquivo, "E10"), std::vector<std::string>{});
}

TEST(Memoria, OneAllocationOfOursThatFails) {
  Relato relato("Memory", "every allocation of the generator failing alone");
  confere(relato, g_memoria, true, false, 1);
}

TEST(Memoria, AllAllocationsOfOursThatFailFromOneOn) {
  Relato relato("Memory", "every allocation of the generator failing with all after it");
  confere(relato, g_memoria, true, true, 1);
}

}  // namespace
