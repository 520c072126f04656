// The commands sample and schema.
#include "Cena.h"

#include "Esquema.h"

namespace {

using Nomes = std::vector<std::string>;

class Sample : public Cena {};

TEST_F(Sample, MakesADatabaseThatGenerateReadsWhole) {
  const Fim fim = roda({"sample", "base.db", "--days", "3", "--coupons-per-day", "5"}, pasta());
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida, "");
  EXPECT_EQ(fim.erros.substr(0, 47), "base.db: 2024-01-01 to 2024-01-03, 15 coupons, ") << fim.erros;
  EXPECT_EQ(nomes(), Nomes{"base.db"});
  const Fim gerado = gera({"--output", "r.txt"});
  EXPECT_EQ(gerado.situacao, 0) << gerado.erros;
  EXPECT_NE(gerado.erros.find("E12           3\n"), std::string::npos) << gerado.erros;
  EXPECT_NE(gerado.erros.find("E14          15\n"), std::string::npos) << gerado.erros;
}

TEST_F(Sample, OptionsReachTheSample) {
  EXPECT_EQ(roda({"sample", "a.db", "--days", "1", "--start", "29022024", "--quiet"}, pasta()).erros, "");
  EXPECT_EQ(roda({"sample", "b.db", "--days", "1", "--start", "2024-02-29", "--seed", "1"}, pasta())
                .erros.substr(0, 32),
            "b.db: 2024-02-29 to 2024-02-29, ");
  EXPECT_EQ(roda({"sample", "c.db", "--days", "1", "--start", "2024-02-29", "--seed", "2"}, pasta()).situacao,
            0);
  EXPECT_EQ(leArquivo(em("a.db")), leArquivo(em("b.db")));
  EXPECT_NE(leArquivo(em("a.db")), leArquivo(em("c.db")));
}

TEST_F(Sample, ExistingFileIsKept) {
  escreveArquivo(em("base.db"), "old");
  const Fim fim = roda({"sample", "base.db"}, pasta());
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros,
            "cotepe: cannot create the database: ./base.db: found a file that exists already, expected a "
            "name that is "
            "free; choose another name, or move the file away\n");
  EXPECT_EQ(leArquivo(em("base.db")), "old");
  EXPECT_EQ(nomes(), Nomes{"base.db"});
}

TEST_F(Sample, FolderThatIsMissingGivesThree) {
  EXPECT_EQ(roda({"sample", "fora/base.db"}, pasta()).situacao, 3);
}

TEST_F(Sample, FullDiskGivesFourAndLeavesNothing) {
  const Fim fim =
      Processo({"sample", "base.db"}).naPasta(pasta()).comLimiteDeArquivo(100000).inicia().espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(fim.erros.substr(0, 34), "cotepe: cannot write the database:") << fim.erros;
  EXPECT_EQ(nomes(), Nomes{});
}

TEST_F(Sample, SchemaMakesADatabaseWithoutRows) {
  const Fim fim = roda({"schema"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.erros, "");
  EXPECT_EQ(fim.saida, cotepe::esquemaSql());
  Banco(em("base.db")).sql(fim.saida);
  const Fim gerado = gera({"--output", "r.txt"});
  EXPECT_EQ(gerado.situacao, 0) << gerado.erros;
}

}  // namespace
