// What the C interface returns when something is wrong: every code, and no exception.
#include <cerrno>

#include "Gerador.h"
#include "MemoriaContada.h"

using cotepe::testes::g_memoria;  // what the shared library allocates is counted too

namespace {

class InterfaceCFalhas : public testing::Test {
 protected:
  InterfaceCFalhas() { bancada.comIdentidade(); }

  Bancada bancada;
  Gerador gerador{bancada.banco()};
};

TEST(InterfaceCResultado, EachHasItsText) {
  const struct {
    int resultado;
    const char* texto;
  } kTextos[] = {
      {0, "done"},
      {1, "a query failed: the report may lack lines"},
      {2, "an argument is null, or the days or the command are not valid"},
      {3, "the report cannot be opened"},
      {4, "the report cannot be written"},
      {5, "the printer's identity cannot be read"},
      {6, "out of memory"},
      {7, "the generator is running"},
      {8, "the clock gave no time of the calendar"},
      {9, "an exception left a callback"},
      {10, "a callback cancelled the run"},
      {11, "the database cannot be opened or read"},
      {12, "the database is locked"},
      {13, "the file is no SQLite database, or is damaged"},
      {14, "unknown result"},
      {-1, "unknown result"},
  };
  for (const auto& caso : kTextos) EXPECT_STREQ(cotepe_result_text(caso.resultado), caso.texto);
}

TEST_F(InterfaceCFalhas, NullIsABadArgument) {
  const cotepe_time momento = {2024, 1, 31, 23, 59, 59};
  auto* nenhum = reinterpret_cast<cotepe_generator*>(&bancada);
  EXPECT_EQ(cotepe_create(nullptr, &nenhum), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(nenhum, nullptr);
  EXPECT_EQ(cotepe_create(bancada.banco(), nullptr), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_destroy(nullptr), COTEPE_DONE);
  EXPECT_EQ(cotepe_set_layout(nullptr, 2), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_set_cat52(nullptr, 1), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_set_identity(nullptr, "", "", ""), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_set_log(nullptr, nullptr, nullptr), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_set_register_callback(nullptr, nullptr, nullptr), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_set_clock(nullptr, nullptr, nullptr), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_set_time(nullptr, &momento), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate(nullptr, "nao-ha", "01012024", "31012024", "TDM"), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate(gerador, nullptr, "01012024", "31012024", "TDM"), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate(gerador, "nao-ha", nullptr, "31012024", "TDM"), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate(gerador, "nao-ha", "01012024", nullptr, "TDM"), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate(gerador, "nao-ha", "01012024", "31012024", nullptr), COTEPE_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_generate(gerador, "nao-ha", "1012024", "31012024", "TDM"), COTEPE_BAD_ARGUMENT);
  EXPECT_NE(access("nao-ha", F_OK), 0) << "a report was made";
}

TEST_F(InterfaceCFalhas, ReportThatCannotBeOpenedOrWritten) {
  EXPECT_EQ(cotepe_generate(gerador, "nao-ha/relatorio", "01012024", "31012024", "TDM"), COTEPE_CANNOT_OPEN);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(cotepe_generate(gerador, "/dev/full", "01012024", "31012024", "TDM"), COTEPE_CANNOT_WRITE);
  EXPECT_EQ(gerador.gera("TDM"), COTEPE_DONE) << "after the failures";
}

TEST_F(InterfaceCFalhas, IdentityThatCannotBeRead) {
  bancada.sql("DROP TABLE dados_ecf");
  EXPECT_EQ(gerador.gera("TDM"), COTEPE_NO_IDENTITY);
  EXPECT_EQ(gerador.relatorio(), "");
}

TEST_F(InterfaceCFalhas, TimeThatIsNoneOfTheCalendar) {
  const cotepe_time nenhuns[] = {
      {2023, 2, 29, 0, 0, 0},   {2024, 0, 1, 0, 0, 0},       {2024, 13, 1, 0, 0, 0},  {2024, 1, 0, 0, 0, 0},
      {2024, 4, 31, 0, 0, 0},   {2024, 1, 1, 24, 0, 0},      {2024, 1, 1, 0, 60, 0},  {2024, 1, 1, 0, 0, 60},
      {0, 1, 1, 0, 0, 0},       {10000, 1, 1, 0, 0, 0},      {-2024, 1, 1, 0, 0, 0},  {2024, -1, 1, 0, 0, 0},
      {2024, 1, 101, 0, 0, 0},  {2024, 1, 1, -1, 0, 0},      {2024, 1, 1, 0, 100, 0}, {0, 0, 0, 0, 0, 0},
      {2024, 1, 1, 0, 0, -100}, {2147483647, 1, 1, 0, 0, 0},
  };
  const cotepe_time bom = {2024, 2, 29, 1, 2, 3};
  ASSERT_EQ(cotepe_set_time(gerador, &bom), COTEPE_DONE);
  for (const cotepe_time& nenhum : nenhuns) {
    EXPECT_EQ(cotepe_set_time(gerador, &nenhum), COTEPE_BAD_TIME) << &nenhum - nenhuns;
    ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
    EXPECT_EQ(posicoes(linhaDo("E11", gerador.linhas()), 123, 136), "20240229010203");
  }
  ASSERT_EQ(cotepe_set_clock(
                gerador, [](void*, cotepe_time*) { return 0; }, nullptr),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("MF"), COTEPE_BAD_TIME);
  EXPECT_EQ(gerador.gera("MFD"), COTEPE_DONE) << "no register there asks the clock";
}

TEST_F(InterfaceCFalhas, GeneratorIsBusyWithinItsOwnCallbacksAndOthersAreNot) {
  struct Contexto {
    Gerador& mesmo;
    Gerador& outro;
    int chamadas = 0;
  };
  Gerador outro(bancada.banco());
  Contexto contexto{gerador, outro};
  ASSERT_EQ(cotepe_set_register_callback(
                gerador,
                [](void* usuario, const char*, std::int64_t, int) {
                  auto& c = *static_cast<Contexto*>(usuario);
                  EXPECT_EQ(c.mesmo.gera("TDM"), COTEPE_BUSY);
                  EXPECT_EQ(cotepe_destroy(c.mesmo), COTEPE_BUSY);
                  EXPECT_EQ(cotepe_set_layout(c.mesmo, 2), COTEPE_BUSY);
                  EXPECT_EQ(cotepe_set_identity(c.mesmo, "X", "Y", "Z"), COTEPE_BUSY);
                  EXPECT_EQ(cotepe_set_register_callback(c.mesmo, nullptr, nullptr), COTEPE_BUSY);
                  EXPECT_EQ(c.outro.gera("RZ"), COTEPE_DONE);
                  ++c.chamadas;
                  return 0;
                },
                &contexto),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_DONE);
  EXPECT_EQ(contexto.chamadas, 5);
  EXPECT_EQ(gerador.relatorio(), outro.relatorio());
}

TEST_F(InterfaceCFalhas, ExceptionOfACallbackGoesNoFurther) {
  bancada.sql("DROP TABLE cupom_fiscal");
  ASSERT_EQ(cotepe_set_log(
                gerador, [](void*, const char*) -> int { throw 7; }, nullptr),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_CALLBACK_FAILED);
  EXPECT_EQ(gerador.relatorio(), "");
  EXPECT_EQ(gerador.gera("MF"), COTEPE_DONE) << "no query fails there";
  ASSERT_EQ(cotepe_set_clock(
                gerador, [](void*, cotepe_time*) -> int { throw std::exception(); }, nullptr),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("MF"), COTEPE_CALLBACK_FAILED);
}

TEST_F(InterfaceCFalhas, AnyOtherAnswerOfACallbackThanZeroEndsTheRunAndLeavesTheReportEmpty) {
  ASSERT_EQ(cotepe_set_clock(
                gerador, [](void*, cotepe_time*) { return -1; }, nullptr),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("MF"), COTEPE_CANCELLED);
  EXPECT_EQ(gerador.relatorio(), "");
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_DONE) << "no register there asks the clock";

  std::string registros;
  ASSERT_EQ(cotepe_set_register_callback(
                gerador,
                [](void* usuario, const char* codigo, std::int64_t, int) {
                  *static_cast<std::string*>(usuario) += codigo;
                  return std::string(codigo) == "E14" ? 1 : 0;
                },
                &registros),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_CANCELLED);
  EXPECT_EQ(registros, "E01E02E14");
  EXPECT_EQ(gerador.relatorio(), "");
  ASSERT_EQ(cotepe_set_register_callback(gerador, nullptr, nullptr), COTEPE_DONE);

  bancada.sql("DROP TABLE cupom_fiscal");
  ASSERT_EQ(cotepe_set_log(
                gerador, [](void*, const char*) { return 1; }, nullptr),
            COTEPE_DONE);
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_CANCELLED);
  EXPECT_EQ(gerador.relatorio(), "");
}

TEST_F(InterfaceCFalhas, PeriodOrCommandThatIsNoneIsABadArgument) {
  const struct {
    const char *primeiro, *ultimo, *comando;
  } kCasos[] = {
      {"2024-01-01", "31012024", "TDM"}, {"01012024", "2024-01-31", "TDM"}, {"99999999", "99999999", "TDM"},
      {"31012024", "30012024", "TDM"},   {"01022024", "31012024", "TDM"},   {"01012025", "31122024", "TDM"},
      {"29022023", "31032023", "TDM"},   {"00012024", "31012024", "TDM"},   {"01002024", "31012024", "TDM"},
      {"01010000", "31012024", "TDM"},   {"010120244", "31012024", "TDM"},  {"0101202x", "31012024", "TDM"},
      {"", "31012024", "TDM"},           {"01012024", "", "TDM"},           {"01012024", "31012024", "tdm"},
      {"01012024", "31012024", ""},      {"01012024", "31012024", "MFDD"},  {"01012024", "31012024", "M"},
  };
  for (const auto& caso : kCasos)
    EXPECT_EQ(cotepe_generate(gerador, "nao-ha", caso.primeiro, caso.ultimo, caso.comando),
              COTEPE_BAD_ARGUMENT)
        << caso.primeiro << " " << caso.ultimo << " " << caso.comando;
  EXPECT_NE(access("nao-ha", F_OK), 0) << "a report was made";
  EXPECT_EQ(cotepe_generate(gerador, "/dev/null", "29022024", "29022024", "RZ"), COTEPE_DONE);
}

TEST_F(InterfaceCFalhas, WithoutMemoryNothingIsMade) {
  auto* nenhum = reinterpret_cast<cotepe_generator*>(&bancada);
  g_memoria.falha(0, true);
  const int resultado = cotepe_create(bancada.banco(), &nenhum);
  g_memoria.concede();
  EXPECT_EQ(resultado, COTEPE_NO_MEMORY);
  EXPECT_EQ(nenhum, nullptr);
}

TEST_F(InterfaceCFalhas, WithoutMemoryTheIdentityStays) {
  const std::string longo(100, 'X');
  bancada.sql("UPDATE dados_ecf SET num_serie='', modelo='', tipo=''");
  ASSERT_EQ(cotepe_set_identity(gerador, "SERIE", "MODELO", "TIPO"), COTEPE_DONE);
  for (long concedidas = 0; concedidas < 3; ++concedidas) {
    g_memoria.falha(concedidas, true);
    const int resultado = cotepe_set_identity(gerador, longo.c_str(), longo.c_str(), longo.c_str());
    g_memoria.concede();
    EXPECT_EQ(resultado, COTEPE_NO_MEMORY) << concedidas;
  }
  ASSERT_EQ(gerador.gera("RZ"), COTEPE_DONE);
  EXPECT_EQ(posicoes(gerador.linhas()[0], 1, 31),
            "E01"
            "SERIE               "
            " "
            "TIPO   ");
}

TEST_F(InterfaceCFalhas, WhicheverAllocationFailsTheReportIsWholeOrTheResultSaysNot) {
  const cotepe_time momento = {2024, 1, 31, 23, 59, 59};
  ASSERT_EQ(cotepe_set_time(gerador, &momento), COTEPE_DONE);
  ASSERT_EQ(gerador.gera("TDM"), COTEPE_DONE);
  const std::string inteiro = gerador.relatorio();
  int falhas = 0;
  for (long concedidas = 0, negadas = 1; negadas != 0; ++concedidas) {
    g_memoria.falha(concedidas, true);
    const int resultado = cotepe_generate(gerador, "sem-memoria.txt", "01012024", "31012024", "TDM");
    negadas = g_memoria.concede();
    if (resultado == COTEPE_DONE) continue;
    EXPECT_EQ(resultado, COTEPE_CANNOT_WRITE) << concedidas;
    ++falhas;
  }
  EXPECT_GT(falhas, 20);
  unlink("sem-memoria.txt");
  EXPECT_EQ(gerador.gera("TDM"), COTEPE_DONE);
  EXPECT_EQ(gerador.relatorio(), inteiro);
}

// By name, and whole or not at all: the database is opened or it is not, and the old report stays or there is
// a new one.
TEST_F(InterfaceCFalhas, WhicheverAllocationFailsADatabaseByNameIsNotOpenedAndTheOldReportStays) {
  const std::string banco = "sem-memoria-" + std::to_string(getpid()) + ".db", relatorio = banco + ".txt";
  bancada.sql("VACUUM INTO '" + banco + "'");
  std::ofstream(relatorio) << "de antes";
  cotepe_generator* aberto = nullptr;
  int falhas = 0;
  for (long concedidas = 0; aberto == nullptr; ++concedidas) {
    g_memoria.falha(concedidas, true);
    const int resultado = cotepe_open(banco.c_str(), 0, &aberto);
    g_memoria.concede();
    EXPECT_EQ(resultado, aberto == nullptr ? COTEPE_NO_MEMORY : COTEPE_DONE) << concedidas;
    falhas += aberto == nullptr ? 1 : 0;
  }
  EXPECT_GT(falhas, 1);
  falhas = 0;
  for (long concedidas = 0, negadas = 1; negadas != 0; ++concedidas) {
    g_memoria.falha(concedidas, true);
    const int resultado = cotepe_generate_whole(aberto, relatorio.c_str(), "01012024", "31012024", "TDM", 1);
    negadas = g_memoria.concede();
    std::string inicio(8, ' ');
    std::ifstream(relatorio).read(&inicio[0], 8);
    EXPECT_EQ(inicio == "de antes", resultado != COTEPE_DONE) << concedidas;
    if (resultado == COTEPE_DONE) break;
    EXPECT_TRUE(resultado == COTEPE_CANNOT_WRITE || resultado == COTEPE_NO_MEMORY)
        << concedidas << ": " << resultado;
    ++falhas;
  }
  EXPECT_GT(falhas, 20);
  EXPECT_EQ(cotepe_destroy(aberto), COTEPE_DONE);
  unlink(banco.c_str());
  unlink(relatorio.c_str());
}

}  // namespace
