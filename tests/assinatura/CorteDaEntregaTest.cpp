// generate --deliver killed, and failed by the disk, at each of its calls: the folder has the whole report or
// none.
#include <fcntl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "CenaDeAssinatura.h"
#include "Chaves.h"

using namespace cotepe;
namespace fs = std::filesystem;

namespace {

struct Modo {
  const char* nome;
  bool comChave;
  bool todosTemNome;  // a file system without files that have no name
};

class CorteDaEntrega : public CenaDeAssinatura, public testing::WithParamInterface<Modo> {
 protected:
  CorteDaEntrega() {
    fs::create_directory(em("d"));
    EXPECT_EQ(entrega(nullptr).situacao, 0);
    for (const std::string& nome : naPastaDaEntrega()) inteiro_ = semCarimbo(leArquivo(em("d/" + nome)));
    EXPECT_GT(inteiro_.size(), leArquivo(em("r.txt")).size());
  }

  Fim entrega(const Regra& regra, const std::vector<std::string>& mais = {}) const {
    std::vector<std::string> opcoes = {"--deliver", "d", "--quiet"};
    if (GetParam().comChave) opcoes.insert(opcoes.end(), {"--key", "k.pem"});
    opcoes.insert(opcoes.end(), mais.begin(), mais.end());
    const auto decide = [&](const Chamada& chamada) {
      const bool semNome = chamada.numero == SYS_openat && (chamada.argumentos[2] & O_TMPFILE) == O_TMPFILE;
      if (semNome && GetParam().todosTemNome) return Destino{Destino::Erra, EOPNOTSUPP};
      return regra ? regra(chamada) : Destino{};
    };
    return Processo(generate(opcoes)).naPasta(pasta()).comRegra(decide).inicia().espera();
  }

  std::vector<std::string> naPastaDaEntrega() const {
    std::vector<std::string> lista;
    for (const auto& item : fs::directory_iterator(em("d"))) lista.push_back(item.path().filename());
    return lista;
  }

  void recomeca() const {
    fs::remove_all(em("d"));
    fs::create_directory(em("d"));
  }

  // Without the hour of the generation, and without the signature, which covers it; that is verified.
  std::string semCarimbo(std::string texto) const {
    if (GetParam().comChave && texto.size() > 261) texto.replace(texto.size() - 258, 256, 256, '-');
    const std::size_t e11 = texto.find("\nE11");
    return e11 == std::string::npos ? texto : texto.replace(e11 + 123, 14, 14, '-');
  }

  // Whether a name is that of a report; then it is a whole one.
  bool confereInteiro(const std::string& nome) const {
    if (!corresponde(nome, "TDMSERIAL_[0-9]{8}_[0-9]{6}\\.TXT")) return false;
    EXPECT_TRUE(semCarimbo(leArquivo(em("d/" + nome))) == inteiro_) << nome;
    EXPECT_EQ(confere("d/" + nome).situacao, GetParam().comChave ? 0 : 6) << nome;
    return true;
  }

  std::string inteiro_;
};

TEST_P(CorteDaEntrega, WholeReportOrNoneWhereverItIsKilled) {
  recomeca();
  long total = 0;
  const auto conta = [&](const Chamada& chamada) {
    total += grava(chamada) ? 1 : 0;
    return Destino{};
  };
  EXPECT_EQ(entrega(conta).situacao, 0);
  EXPECT_GT(total, 5);
  int comRelatorio = 0, semRelatorio = 0;
  for (long vez = 1; vez <= total; ++vez) {
    for (const auto tipo : {Destino::MataAntes, Destino::MataDepois}) {
      SCOPED_TRACE(std::to_string(vez) + (tipo == Destino::MataAntes ? " before" : " after"));
      recomeca();
      long chamadas = 0;
      const auto mata = [&](const Chamada& chamada) {
        return grava(chamada) && ++chamadas == vez ? Destino{tipo} : Destino{};
      };
      EXPECT_EQ(entrega(mata).sinal, SIGKILL);
      bool ha = false;
      for (const std::string& nome : naPastaDaEntrega()) {
        ha = confereInteiro(nome) || ha;
        EXPECT_TRUE(nome[0] == '.' || ha) << nome;
      }
      ++(ha ? comRelatorio : semRelatorio);
      EXPECT_EQ(entrega(nullptr, {"--force"}).situacao, 0);
      for (const std::string& nome : naPastaDaEntrega()) EXPECT_TRUE(confereInteiro(nome)) << nome;
    }
  }
  EXPECT_GT(comRelatorio, 0);
  EXPECT_GT(semRelatorio, 5);
}

TEST_P(CorteDaEntrega, NoRoomForAnyOfItsWritesLeavesNothing) {
  const auto escreve = [](const Chamada& chamada) {
    return (chamada.numero == SYS_write || chamada.numero == SYS_fsync) &&
           chamada.alvo().find("/d/") != std::string::npos;
  };
  long total = 0;
  recomeca();
  EXPECT_EQ(entrega([&](const Chamada& chamada) {
              total += escreve(chamada) ? 1 : 0;
              return Destino{};
            }).situacao,
            0);
  EXPECT_GE(total, 3);  // the plain report, the delivered one, and that one to the disk
  for (long vez = 1; vez <= total; ++vez) {
    SCOPED_TRACE(vez);
    recomeca();
    long chamadas = 0;
    const Fim fim = entrega([&](const Chamada& chamada) {
      return escreve(chamada) && ++chamadas == vez ? Destino{Destino::Erra, ENOSPC} : Destino{};
    });
    EXPECT_EQ(fim.situacao, 4) << fim.erros;
    EXPECT_NE(fim.erros.find("No space left on device"), std::string::npos) << fim.erros;
    EXPECT_EQ(naPastaDaEntrega(), std::vector<std::string>());
  }
}

INSTANTIATE_TEST_SUITE_P(Modes, CorteDaEntrega,
                         testing::Values(Modo{"Plain", false, false}, Modo{"Signed", true, false},
                                         Modo{"SignedNamed", true, true}),
                         [](const auto& modo) { return std::string(modo.param.nome); });

}  // namespace
