// How many tampered reports the rules find at a right line, by class of tampering; the rates are printed and
// must not fall.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <sstream>

#include "Adulterado.h"
#include "Amostra/Amostra.h"
#include "CotepeManager.h"
#include "Validacao/Validacao.h"

namespace cotepe {
namespace {

constexpr double kTaxaQueSeGuarda = 88;  // per cent

struct Guarda : RecebeAchados {
  void recebe(const Achado& achado) override { achados.push_back({achado.linha, achado.registro}); }
  std::vector<std::pair<long, std::string>> achados;
};

std::vector<std::pair<long, std::string>> achadosDe(const std::string& relatorio) {
  Guarda guarda;
  Validacao validacao(guarda, {"r.txt", {}});
  LeitorDeLinhas linhas{std::string_view(relatorio)};
  EXPECT_TRUE(validacao.valida(linhas));
  return guarda.achados;
}

/// Good reports: each command in both layouts, of a shop of nine days.
class Adulteracao : public testing::Test {
 protected:
  void SetUp() override {
    std::string molde = testing::TempDir() + "adulteracaoXXXXXX";
    ASSERT_NE(mkdtemp(molde.data()), nullptr);
    const std::string banco = molde + "/loja.db", nome = molde + "/loja.txt";
    OpcoesDaAmostra opcoes;
    opcoes.dias = 9;
    opcoes.cuponsPorDia = 5;
    criaBancoDeAmostra(banco, opcoes);
    sqlite3* aberto = nullptr;
    ASSERT_EQ(sqlite3_open(banco.c_str(), &aberto), SQLITE_OK);
    for (const int leiaute : {1, 2})
      for (const char* comando : {"MF", "MFD", "TDM", "RZ"}) {
        CotepeManager gerador(aberto);
        gerador.setVersaoAtoCotepe(leiaute);
        ASSERT_EQ(gerador.GeraRegistrosTipoE(nome.c_str(), "01012024", "31012024", comando), 0);
        std::ostringstream texto;
        texto << std::ifstream(nome).rdbuf();
        relatorios_.emplace_back(texto.str());
      }
    sqlite3_close(aberto);
    for (const std::string& arquivo : {banco, nome}) unlink(arquivo.c_str());
    rmdir(molde.c_str());
  }

  struct Taxa {
    long casos = 0, certos = 0, achados = 0;
  };

  Taxa taxaDa(const Classe& classe) const {
    Taxa taxa;
    for (const Adulterado& relatorio : relatorios_)
      for (const int vez : {0, 1, 2}) {
        Adulterado adulterado = relatorio;
        if (!classe.altera(adulterado, vez, classe)) continue;
        ++taxa.casos;
        const auto achados = achadosDe(adulterado.relatorio());
        if (!achados.empty()) ++taxa.achados;
        for (const auto& [linha, registro] : achados)
          if (adulterado.certo(linha, registro)) {
            ++taxa.certos;
            break;
          }
      }
    return taxa;
  }

  std::vector<Adulterado> relatorios_;
};

double porCento(long parte, long todo) {
  return 100.0 * static_cast<double>(parte) / static_cast<double>(todo);
}

TEST_F(Adulteracao, IsFoundAtARightLine) {
  std::vector<Classe> classes;
  for (const auto& familia :
       {classesDeBytes(), classesDeCampos(), classesDeRegistros(), classesDeConjuntos()})
    classes.insert(classes.end(), familia.begin(), familia.end());
  Taxa todas;
  long inteiras = 0;
  for (const Classe& classe : classes) {
    const Taxa taxa = taxaDa(classe);
    EXPECT_GT(taxa.casos, 0) << classe.nome << ": no report has anything of the kind";
    if (taxa.certos == taxa.casos)
      ++inteiras;
    else
      std::cout << classe.nome << ": " << taxa.certos << " of " << taxa.casos << " (" << taxa.achados
                << " anywhere)\n";
    todas.casos += taxa.casos;
    todas.certos += taxa.certos;
    todas.achados += taxa.achados;
  }
  std::cout << classes.size() << " classes, " << inteiras << " found in every case; " << todas.casos
            << " cases, " << todas.certos << " found at a right line (" << porCento(todas.certos, todas.casos)
            << " %), " << todas.achados << " found (" << porCento(todas.achados, todas.casos) << " %)\n";
  EXPECT_GE(classes.size(), 150U);
  EXPECT_GE(porCento(todas.certos, todas.casos), kTaxaQueSeGuarda);
}

TEST_F(Adulteracao, GoodReportsHaveNoFinding) {
  for (const Adulterado& relatorio : relatorios_)
    EXPECT_EQ(achadosDe(relatorio.relatorio()).size(), 0U) << relatorio.texto(0);
}

}  // namespace
}  // namespace cotepe
