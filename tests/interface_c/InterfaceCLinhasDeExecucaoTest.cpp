// Generators at work at the same time on threads of their own.
#include <thread>

#include "Gerador.h"

namespace {

constexpr int kVezes = 30;

// A generator with all that it needs, unlike the others in everything that can differ.
struct Posto {
  explicit Posto(int numero) : gerador(bancada.banco()) {
    const std::string serie = "SERIE" + std::to_string(numero);
    momento = {2024, 1, numero, 1, 2, 3};
    bancada.sql("INSERT INTO dados_ecf VALUES('','','','',''); DROP TABLE cupom_nf");
    bancada.sql("INSERT INTO codificacao_gt VALUES('2023-12-30 23:58:57','" +
                std::string(static_cast<std::size_t>(numero) * 3000, 'c') + "')");
    EXPECT_EQ(cotepe_set_layout(gerador, numero), COTEPE_DONE);
    EXPECT_EQ(cotepe_set_identity(gerador, serie.c_str(), "MODELO", "TIPO"), COTEPE_DONE);
    EXPECT_EQ(cotepe_set_clock(gerador, relogio, this), COTEPE_DONE);
    EXPECT_EQ(cotepe_set_log(gerador, log, this), COTEPE_DONE);
  }

  static int relogio(void* usuario, cotepe_time* agora) {
    *agora = static_cast<Posto*>(usuario)->momento;
    return 0;
  }
  static int log(void* usuario, const char* mensagem) {
    auto& posto = *static_cast<Posto*>(usuario);
    EXPECT_EQ(std::this_thread::get_id(), posto.dono);
    posto.mensagens.emplace_back(mensagem);
    return 0;
  }

  // Each time the same report; it and the messages of all times stay.
  void trabalha() {
    dono = std::this_thread::get_id();
    for (int vez = 0; vez < kVezes; ++vez) {
      EXPECT_EQ(gerador.gera("TDM"), COTEPE_INCOMPLETE);
      if (vez == 0) relatorio = gerador.relatorio();
      EXPECT_EQ(gerador.relatorio(), relatorio);
    }
  }

  Bancada bancada;
  Gerador gerador;
  cotepe_time momento{};
  std::thread::id dono;
  std::vector<std::string> mensagens;
  std::string relatorio;
};

TEST(InterfaceCLinhasDeExecucao, GeneratorsDoNotDisturbEachOther) {
  Posto um(1), dois(2), umSozinho(1), doisSozinho(2);
  umSozinho.trabalha();
  doisSozinho.trabalha();
  std::thread outra([&] { dois.trabalha(); });
  um.trabalha();
  outra.join();
  EXPECT_EQ(um.relatorio, umSozinho.relatorio);
  EXPECT_EQ(dois.relatorio, doisSozinho.relatorio);
  EXPECT_NE(um.relatorio, dois.relatorio);
  EXPECT_EQ(um.mensagens, umSozinho.mensagens);
  EXPECT_EQ(um.mensagens.size(), 3U * kVezes) << "E19, E20 and E21";
}

TEST(InterfaceCLinhasDeExecucao, OneGeneratorRunsOneReportAtATime) {
  Posto posto(1);
  struct Espera {
    Posto& posto;
    int resultado = -1;
  } espera{posto};
  ASSERT_EQ(cotepe_set_register_callback(
                posto.gerador,
                [](void* usuario, const char*, std::int64_t, int) {
                  auto& e = *static_cast<Espera*>(usuario);
                  std::thread outra([&] {
                    e.resultado = e.posto.gerador.gera("TDM");
                    EXPECT_EQ(cotepe_destroy(e.posto.gerador), COTEPE_BUSY);
                  });
                  outra.join();
                  return 0;
                },
                &espera),
            COTEPE_DONE);
  EXPECT_EQ(posto.gerador.gera("MF"), COTEPE_DONE);
  EXPECT_EQ(espera.resultado, COTEPE_BUSY);
}

}  // namespace
