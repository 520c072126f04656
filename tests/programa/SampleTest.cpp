// The commands sample and schema.
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "Cena.h"

#include "BancoFiscal/Esquema.h"

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
  EXPECT_EQ(
      fim.erros,
      "cotepe: error: cannot create the database: ./base.db: found a file that exists already, expected a "
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
  EXPECT_EQ(fim.erros.substr(0, 41), "cotepe: error: cannot write the database:") << fim.erros;
  EXPECT_EQ(nomes(), Nomes{});
}

// The steps by which a whole database gets its name.
class NomeDaAmostra : public Cena {
 protected:
  // The run of `sample` in which the n-th call (from 1) of each of these kinds fails.
  struct Erro {
    long chamada;
    int vez, codigo;
  };
  Fim amostraCom(const std::vector<Erro>& erros) const {
    std::vector<int> vezes(erros.size());
    return amostraSob([&](const Chamada& chamada) {
      for (std::size_t i = 0; i < erros.size(); ++i)
        if (chamada.numero == erros[i].chamada && ++vezes[i] == erros[i].vez)
          return Destino{Destino::Erra, erros[i].codigo};
      return Destino{};
    });
  }
  Fim amostraSob(const Regra& regra) const {
    Processo processo({"sample", "base.db", "--days", "1", "--coupons-per-day", "1", "--quiet"});
    return processo.naPasta(pasta()).comRegra(regra).inicia().espera();
  }
};

TEST_F(NomeDaAmostra, DiskWithoutLinksIsServedByARename) {
  for (const int codigo : {EPERM, EOPNOTSUPP, ENOSYS}) {
    const Fim fim = amostraCom({{SYS_renameat2, 1, EINVAL}, {SYS_link, 1, codigo}});
    EXPECT_EQ(fim.situacao, 0) << fim.erros;
    EXPECT_EQ(nomes(), Nomes{"base.db"}) << codigo;
    EXPECT_EQ(gera({"--output", "r.txt", "--force"}).situacao, 0) << codigo;
    for (const auto& nome : nomes()) unlink(em(nome).c_str());
  }
}

TEST_F(NomeDaAmostra, NoneIsGivenAndNothingIsLeftWhereALinkARenameOrTheDiskFails) {
  const std::vector<std::pair<std::vector<Erro>, const char*>> casos = {
      {{{SYS_renameat2, 1, EIO}}, "Input/output error"},
      {{{SYS_renameat2, 1, EINVAL}, {SYS_link, 1, EIO}}, "Input/output error"},
      {{{SYS_renameat2, 1, EINVAL}, {SYS_link, 1, EPERM}, {SYS_rename, 1, EACCES}}, "Permission denied"},
      {{{SYS_fsync, 1, EIO}}, "Input/output error"},
  };
  for (const auto& [erros, achado] : casos) {
    const Fim fim = amostraCom(erros);
    EXPECT_EQ(fim.situacao, 4) << achado;
    EXPECT_EQ(fim.erros, std::string("cotepe: error: cannot create the database: ./base.db: found ") +
                             achado +
                             ", expected a folder that can be written and has room; choose another place or "
                             "free some space\n");
    EXPECT_EQ(nomes(), Nomes{}) << achado;
  }
}

TEST_F(NomeDaAmostra, ThatDoesNotReachTheDiskIsAFailureThoughTheDatabaseIsWhole) {
  const Fim fim = amostraCom({{SYS_fsync, 2, EIO}});
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(fim.erros.substr(0, 73),
            "cotepe: error: cannot create the database: ./: found Input/output error, ");
  EXPECT_EQ(nomes(), Nomes{"base.db"});
}

TEST_F(NomeDaAmostra, FolderThatCannotBeOpenedIsAFailureBeforeAnythingIsMade) {
  const Fim fim = amostraSob([](const Chamada& chamada) {
    const bool daPasta = chamada.numero == SYS_openat && (chamada.argumentos[2] & O_DIRECTORY) != 0;
    return daPasta ? Destino{Destino::Erra, EIO} : Destino{};
  });
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros.substr(0, 80),
            "cotepe: error: cannot create the database: ./base.db: found Input/output error, ");
  EXPECT_EQ(nomes(), Nomes{});
}

TEST_F(NomeDaAmostra, TemporaryFileRemovedBeforeItIsLockedIsLeftToItsRemover) {
  std::string removido, segundo;
  const Fim fim = amostraSob([&](const Chamada& chamada) {
    if (chamada.numero == SYS_flock && removido.empty()) {
      removido = chamada.alvo();
      EXPECT_EQ(unlink(removido.c_str()), 0);
    } else if (chamada.numero == SYS_flock) {
      segundo = chamada.alvo();
    }
    return Destino{};
  });
  EXPECT_EQ(fim.situacao, 0) << fim.erros;
  EXPECT_NE(removido, "");
  EXPECT_NE(segundo, "");
  EXPECT_NE(segundo, removido);
  EXPECT_EQ(nomes(), Nomes{"base.db"});
}

TEST_F(Sample, FolderThatIsAFileGivesThree) {
  escreveArquivo(em("file"), "");
  const Fim fim = roda({"sample", "file/base.db"}, pasta());
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros.substr(0, 71),
            "cotepe: error: cannot create the database: ./file/base.db: found Not a ");
  EXPECT_EQ(leArquivo(em("file")), "");
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
