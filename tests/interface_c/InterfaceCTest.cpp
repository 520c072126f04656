// What the C interface does when all goes well: settings, identity, clock, log, version.
#include <ctime>

#include "Gerador.h"

namespace {

// As the clock of the bench stands.
constexpr cotepe_time kFimDeJaneiro = {2024, 1, 31, 23, 59, 59};

int guardaMensagem(void* usuario, const char* mensagem) {
  static_cast<std::vector<std::string>*>(usuario)->emplace_back(mensagem);
  return 0;
}

int guardaRegistro(void* usuario, const char* codigo, std::int64_t linhas, int completo) {
  *static_cast<std::string*>(usuario) +=
      std::string(codigo) + " " + std::to_string(linhas) + (completo != 0 ? "; " : "!; ");
  return 0;
}

class InterfaceC : public testing::Test {
 protected:
  Bancada bancada;
  Gerador gerador{bancada.banco()};
};

TEST_F(InterfaceC, WritesWhatTheClassWritesInEverySetting) {
  bancada.comIdentidade();
  bancada.sql(
      "INSERT INTO tentativas_sb VALUES(1,'','2023-12-30 23:58:57','');"
      "INSERT INTO cupom_fiscal(cont_ccf, cont_coo, data_hora_emissao, valor_subtotal, texto_suplementar) "
      "VALUES(1234567,7654321,'2024-01-10 12:00:00','5.00','OBRIGADO')");
  ASSERT_EQ(cotepe_set_time(gerador, &kFimDeJaneiro), COTEPE_DONE);
  for (const int versao : {1, 2, 3})
    for (const bool cat52 : {false, true})
      for (const char* comando : {"MF", "MFD", "TDM", "RZ"}) {
        ASSERT_EQ(cotepe_set_layout(gerador, versao), COTEPE_DONE);
        ASSERT_EQ(cotepe_set_cat52(gerador, cat52 ? 7 : 0), COTEPE_DONE);
        EXPECT_EQ(gerador.gera(comando), COTEPE_DONE);
        bancada.versao(versao).cat52(cat52);
        EXPECT_EQ(gerador.linhas(), bancada.gera(comando)) << versao << " " << cat52 << " " << comando;
        EXPECT_EQ(bancada.resultado, 0);
      }
}

TEST_F(InterfaceC, StartsInLayoutOneWithCat52ModeOff) {
  bancada.comIdentidade();
  ASSERT_EQ(cotepe_set_time(gerador, &kFimDeJaneiro), COTEPE_DONE);
  ASSERT_EQ(gerador.gera("TDM"), COTEPE_DONE);
  EXPECT_EQ(gerador.linhas(), bancada.versao(1).cat52(false).gera("TDM"));
}

TEST_F(InterfaceC, IdentityIsCopiedAndTheDatabaseGoesBeforeIt) {
  std::string serial = "SERIE", modelo = "MODELO DO HOSPEDEIRO", tipo = "TIPO";
  ASSERT_EQ(cotepe_set_identity(gerador, serial.c_str(), modelo.c_str(), tipo.c_str()), COTEPE_DONE);
  serial = modelo = tipo = "";
  bancada.sql("INSERT INTO dados_ecf VALUES('','DO BANCO','','','')");
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(posicoes(gerador.linhas()[0], 1, 31),
            "E01"
            "SERIE               "
            " "
            "TIPO   ");
  EXPECT_EQ(posicoes(linhaDo("E11", gerador.linhas()), 1, 44),
            "E11"
            "SERIE               "
            " "
            "DO BANCO            ");
}

TEST_F(InterfaceC, IdentityThatIsNullIsUnknown) {
  bancada.sql("INSERT INTO dados_ecf VALUES('','','','','')");
  ASSERT_EQ(cotepe_set_identity(gerador, "SERIE", "MODELO", "TIPO"), COTEPE_DONE);
  ASSERT_EQ(cotepe_set_identity(gerador, nullptr, nullptr, nullptr), COTEPE_DONE);
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(posicoes(gerador.linhas()[0], 1, 31), "E01" + brancos(28));
}

TEST_F(InterfaceC, InscriptionIsFilledWithBlanksAndCutAtFourteen) {
  bancada.comIdentidade();
  bancada.sql("UPDATE dados_usuario SET ie='12.3-4', razao_social='EMPRESA'");
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(posicoes(linhaDo("E02", gerador.linhas()), 59, 79), "1234          EMPRESA");
  bancada.sql("UPDATE dados_usuario SET ie='123456789012345'");
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(posicoes(linhaDo("E02", gerador.linhas()), 59, 79), "12345678901234EMPRESA");
}

std::string carimbo(const Gerador& gerador) { return posicoes(linhaDo("E11", gerador.linhas()), 123, 136); }

TEST_F(InterfaceC, ClockIsAFixedTimeOrACallbackWhicheverWasSetLast) {
  const cotepe_time dia29 = {2024, 2, 29, 1, 2, 3};
  cotepe_time dado = {1, 1, 1, 0, 0, 0};
  const cotepe_clock_callback relogio = [](void* usuario, cotepe_time* agora) {
    EXPECT_EQ(agora->year + agora->month + agora->day + agora->hour + agora->minute + agora->second, 0);
    *agora = *static_cast<cotepe_time*>(usuario);
    return 0;
  };
  ASSERT_EQ(cotepe_set_time(gerador, &dia29), COTEPE_DONE);
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(carimbo(gerador), "20240229010203");
  ASSERT_EQ(cotepe_set_clock(gerador, relogio, &dado), COTEPE_DONE);
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(carimbo(gerador), "00010101000000");
  dado = {9999, 12, 31, 23, 59, 59};
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(carimbo(gerador), "99991231235959");
  ASSERT_EQ(cotepe_set_time(gerador, &dia29), COTEPE_DONE);
  ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(carimbo(gerador), "20240229010203");
}

std::string agora() {
  const std::time_t momento = std::time(nullptr);
  std::tm local{};
  localtime_r(&momento, &local);
  char texto[15];
  std::strftime(texto, sizeof texto, "%Y%m%d%H%M%S", &local);
  return texto;
}

TEST_F(InterfaceC, ClockIsTheSystemsWhereNoneIsSet) {
  const auto confere = [&] {
    const std::string antes = agora();
    ASSERT_EQ(gerador.gera("MF"), COTEPE_DONE);
    EXPECT_LE(antes, carimbo(gerador));
    EXPECT_LE(carimbo(gerador), agora());
  };
  confere();
  ASSERT_EQ(cotepe_set_time(gerador, &kFimDeJaneiro), COTEPE_DONE);
  ASSERT_EQ(cotepe_set_time(gerador, nullptr), COTEPE_DONE);
  confere();
  ASSERT_EQ(cotepe_set_time(gerador, &kFimDeJaneiro), COTEPE_DONE);
  ASSERT_EQ(cotepe_set_clock(gerador, nullptr, nullptr), COTEPE_DONE);
  confere();
}

TEST_F(InterfaceC, FailedQueryIsLoggedNamedAndMakesTheResultIncomplete) {
  std::vector<std::string> mensagens;
  std::string registros;
  bancada.comIdentidade();
  bancada.sql("DROP TABLE cupom_fiscal");
  ASSERT_EQ(cotepe_set_log(gerador, guardaMensagem, &mensagens), COTEPE_DONE);
  ASSERT_EQ(cotepe_set_register_callback(gerador, guardaRegistro, &registros), COTEPE_DONE);
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_INCOMPLETE);
  EXPECT_EQ(registros, "E01 1; E02 1; E14 0!; E15 0!; E16 1; ");
  EXPECT_EQ(mensagens, (std::vector<std::string>{"Erro no select - TipoE14", "Erro no select - TipoE15"}));
  EXPECT_EQ(gerador.linhas().size(), 3U);

  EXPECT_EQ(gerador.gera("MF"), COTEPE_DONE) << "the run before counts no more";
  mensagens.clear();
  registros.clear();
  ASSERT_EQ(cotepe_set_log(gerador, nullptr, nullptr), COTEPE_DONE);
  ASSERT_EQ(cotepe_set_register_callback(gerador, nullptr, nullptr), COTEPE_DONE);
  EXPECT_EQ(gerador.gera("RZ"), COTEPE_INCOMPLETE);
  EXPECT_TRUE(mensagens.empty());
  EXPECT_EQ(registros, "");
  EXPECT_TRUE(g_mensagens.empty()) << "the linked log was called";
}

TEST(InterfaceCVersao, IsTheProjects) { EXPECT_STREQ(cotepe_version(), COTEPE_VERSAO_ESPERADA); }

}  // namespace
