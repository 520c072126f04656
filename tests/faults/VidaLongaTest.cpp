// One object that runs for ever: nothing grows.
#include <dirent.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <fstream>

#include "BancoCheio.h"
#include "Corrida.h"
#include "Relato.h"

namespace {

// What the process holds. Of the allocator's two numbers the one is what it gave out, the other what the
// system gave it.
struct Posse {
  int descritores = 0, declaracoes = 0;
  sqlite3_int64 doSqlite = 0;
  std::size_t alocados = 0;
  long paginas = 0;  // resident
};

int descritoresAbertos() {
  int quantos = 0;
  DIR* pasta = opendir("/proc/self/fd");
  while (readdir(pasta) != nullptr) ++quantos;
  closedir(pasta);
  return quantos;
}

Posse posse(sqlite3* banco) {
  Posse agora;
  agora.descritores = descritoresAbertos();
  for (sqlite3_stmt* s = nullptr; (s = sqlite3_next_stmt(banco, s)) != nullptr;) ++agora.declaracoes;
  // A handle keeps the text of its last error: let it be this one.
  sqlite3_exec(banco, "no SQL", nullptr, nullptr, nullptr);
  agora.doSqlite = sqlite3_memory_used();
  agora.alocados = mallinfo2().uordblks;
  long tamanho = 0;
  std::ifstream("/proc/self/statm") >> tamanho >> agora.paginas;
  return agora;
}

// What is freed under the address sanitizer comes back late; it looks for leaks itself.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kLiberaTarde = true;
#elif defined(__has_feature)
constexpr bool kLiberaTarde = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#elif defined(__SANITIZE_THREAD__)
constexpr bool kLiberaTarde = true;
#else
constexpr bool kLiberaTarde = false;
#endif

// The allocator may keep a freed block at hand, and the system may place a page, when they like: in the long
// form a byte a run would be more than that.
void confereQueNaoCresceu(const Posse& antes, const Posse& depois) {
  constexpr std::size_t kBlocosAMao = std::size_t{64} << 10;
  constexpr long kPaginas = 64;
  EXPECT_EQ(depois.descritores, antes.descritores);
  EXPECT_EQ(depois.declaracoes, 0);
  EXPECT_EQ(depois.doSqlite, antes.doSqlite);
  if (kLiberaTarde) return;
  EXPECT_LE(depois.alocados, antes.alocados + kBlocosAMao);
  EXPECT_LE(depois.paginas, antes.paginas + kPaginas);
}

const Modo kModos[] = {{"TDM", 1, false}, {"TDM", 2, false}, {"MF", 2, false},
                       {"MFD", 1, true},  {"RZ", 2, false},  {"nenhum", 1, false}};

// Runs in every mode by turns; between the fifth part and the end nothing may grow.
void vive(Relato& relato, Bancada& bancada, long corridas) {
  const NomeDoRelatorio relatorio;
  std::vector<Corrida> primeiras;
  for (const Modo& modo : kModos) primeiras.push_back(corre(bancada.gerador(), modo, relatorio));
  Posse antes;
  for (long i = 0; i < corridas; ++i) {
    if (i == corridas / 5) antes = posse(bancada.banco());
    const auto qual = static_cast<std::size_t>(i) % primeiras.size();
    const bool igual = corre(bancada.gerador(), kModos[qual], relatorio) == primeiras[qual];
    EXPECT_TRUE(igual) << "run " << i << ", " << kModos[qual];
    relato.caso();
  }
  confereQueNaoCresceu(antes, posse(bancada.banco()));
}

TEST(VidaLonga, NothingGrowsFromRunToRun) {
  Relato relato("Long life", "runs on one object over one handle");
  Bancada bancada;
  enche(bancada);
  vive(relato, bancada, casos(2000L, 100000L));
}

TEST(VidaLonga, NothingGrowsWhereQueriesFail) {
  Relato relato("Long life", "runs on one object whose queries fail");
  Bancada bancada;
  enche(bancada);
  bancada.sql("DROP TABLE moeda; ALTER TABLE cupom_fiscal DROP COLUMN cont_ccf; DROP TABLE tentativas_sb");
  vive(relato, bancada, casos(1000L, 100000L));
}

TEST(VidaLonga, NothingGrowsWhereThereIsNoIdentity) {
  Relato relato("Long life", "runs on one object over a database without an identity");
  Bancada bancada;
  bancada.sql("DROP TABLE dados_usuario");
  vive(relato, bancada, casos(1000L, 100000L));
}

TEST(VidaLonga, NothingGrowsWhereTheReportCannotBeOpenedOrWritten) {
  Relato relato("Long life", "runs on one object whose report cannot be opened, or not be written");
  Bancada bancada;
  enche(bancada);
  Posse antes;
  const long corridas = casos(1000L, 100000L);
  for (long i = 0; i < corridas; ++i) {
    if (i == corridas / 5) antes = posse(bancada.banco());
    const bool cheio = i % 2 == 0;
    EXPECT_EQ(bancada.gerador().GeraRegistrosTipoE(cheio ? "/dev/full" : "/nowhere/r.txt", "01012024",
                                                   "31012024", "TDM"),
              cheio ? 4 : 3);
    relato.caso();
  }
  confereQueNaoCresceu(antes, posse(bancada.banco()));
}

}  // namespace
