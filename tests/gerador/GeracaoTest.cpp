// Runs whose application is an object: what it is asked, and what it is told.
#include "Geracao.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <sstream>

#include "Bancada.h"

namespace {

class HospedeiroDeTeste : public cotepe::Hospedeiro {
 public:
  void registraLog(const char* mensagem) override { mensagens.emplace_back(mensagem); }
  const char* serial() override { return "SERIE"; }
  const char* modelo() override { return "MODELO"; }
  const char* tipo() override { return "TIPO"; }
  void dataHoraAtual(char* saida) override {
    std::memcpy(saida, "20240229 010203", 16);
    consultaAbertaNoRelogio.push_back(sqlite3_next_stmt(banco, nullptr) != nullptr);
  }
  void preenche(char* texto, char* destino, int largura) override {
    std::memcpy(destino, ie.data(), ie.size());
    recebido = std::string(texto) + "/" + std::to_string(largura);
  }
  void falhaSemMensagem() override { roteiro += "?"; }
  void inicia(const char* registro) override { roteiro += std::string("<") + registro; }
  void conclui(const char* /*registro*/, long linhas, bool completo) override {
    roteiro += " " + std::to_string(linhas) + (completo ? "> " : "!> ");
  }

  std::string ie = "IE EM CATORZE.";  // what the padding routine puts
  std::string recebido, roteiro;
  std::vector<std::string> mensagens;
  sqlite3* banco = nullptr;
  std::vector<bool> consultaAbertaNoRelogio;  // at each look at the clock
};

class GeracaoPorObjeto : public testing::Test {
 protected:
  void SetUp() override { hospedeiro.banco = bancada.banco(); }
  void TearDown() override { unlink(nome.c_str()); }

  std::vector<std::string> gera(const char* comando) {
    EXPECT_EQ(geracao.gera(nome.c_str(), "01012024", "31012024", comando), 0);
    std::ostringstream texto;
    texto << std::ifstream(nome, std::ios::binary).rdbuf();
    return linhasDe(texto.str());
  }

  const std::string nome = "geracao-" + std::to_string(getpid()) + ".txt";
  Bancada bancada;
  HospedeiroDeTeste hospedeiro;
  cotepe::Geracao geracao{bancada.banco(), hospedeiro};
};

TEST_F(GeracaoPorObjeto, IdentityTypeAndClockAreTheObjects) {
  bancada.sql("INSERT INTO dados_ecf VALUES('','','','','')");
  const auto linhas = gera("MF");
  EXPECT_EQ(posicoes(linhas[0], 1, 31),
            "E01"
            "SERIE               "
            " "
            "TIPO   ");
  const std::string& e11 = linhas[linhas.size() - 4];  // E12 and the two of E13 follow
  EXPECT_EQ(posicoes(e11, 1, 44),
            "E11"
            "SERIE               "
            " "
            "MODELO              ");
  EXPECT_EQ(posicoes(e11, 123, 136), "20240229010203");
}

TEST_F(GeracaoPorObjeto, ClockIsReadOnceAfterTheQueryOfE11HasEnded) {
  bancada.sql("INSERT INTO posicao_totalizadores_contadores(cont_crz) VALUES(1),(2),(3)");
  gera("TDM");
  EXPECT_EQ(hospedeiro.consultaAbertaNoRelogio, std::vector<bool>{false});
}

TEST_F(GeracaoPorObjeto, ClockIsNotReadWhereNoRegisterNeedsIt) {
  gera("MFD");
  EXPECT_TRUE(hospedeiro.consultaAbertaNoRelogio.empty());
}

TEST_F(GeracaoPorObjeto, PaddingIsAskedForWithTheCleanedText) {
  bancada.sql("INSERT INTO dados_usuario(ie, razao_social) VALUES('12.3-4','EMPRESA')");
  const std::string e02 = gera("").back();
  EXPECT_EQ(hospedeiro.recebido, "1234/14");
  EXPECT_EQ(posicoes(e02, 59, 79), "IE EM CATORZE.EMPRESA");
}

TEST_F(GeracaoPorObjeto, PaddingThatPutsTooLittleEndsTheLineThere) {
  bancada.sql("INSERT INTO dados_usuario(ie, razao_social) VALUES('1','EMPRESA')");
  hospedeiro.ie = "POUCO";
  EXPECT_EQ(gera("").back(), "E02" + preenchido("SERIE", 20) + " " + preenchido("MODELO", 20) +
                                 "00000000000000"
                                 "POUCO");
}

TEST_F(GeracaoPorObjeto, EachRegisterIsToldItsStartItsLinesAndWhetherItIsComplete) {
  bancada.sql("INSERT INTO dados_usuario(ie) VALUES('1'),('2'); DROP TABLE cupom_fiscal");
  gera("RZ");
  EXPECT_EQ(hospedeiro.roteiro, "<E01 1> <E02 2> <E14 0!> <E15 0!> <E16 1> ");
  EXPECT_EQ(hospedeiro.mensagens,
            (std::vector<std::string>{"Erro no select - TipoE14", "Erro no select - TipoE15"}));
  EXPECT_TRUE(g_mensagens.empty()) << "the linked log was called";
}

TEST_F(GeracaoPorObjeto, FailedSearchForTheGrandTotalIsToldThoughNotLogged) {
  bancada.sql("INSERT INTO dados_usuario(ie) VALUES('1'),('2'); ALTER TABLE reducao_z DROP COLUMN valor_gt");
  gera("MF");
  EXPECT_EQ(hospedeiro.roteiro.substr(0, 16), "<E01 1> <E02? 2!");
  EXPECT_TRUE(hospedeiro.mensagens.empty());
}

TEST_F(GeracaoPorObjeto, VersionAndCat52ModeAreItsOwn) {
  geracao.setVersaoAtoCotepe(2);
  geracao.setCAT52(true);
  bancada.sql("INSERT INTO tentativas_sb VALUES(1,'','2023-12-30 23:58:57','')");
  gera("MF");
  EXPECT_EQ(
      hospedeiro.roteiro,
      "<E01 1> <E02 0> <E05 1> <E06 1> <E07 1> <E08 1> <E09 0> <E10 0> <E11 1> <E12 0> <E13 1> <E22 1> ");
}

}  // namespace
