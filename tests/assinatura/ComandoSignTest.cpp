// The command sign, and openssl's own program over what it makes.
#include <sys/stat.h>

#include <algorithm>
#include <csignal>

#include <filesystem>

#include "CenaDeAssinatura.h"
#include "Chaves.h"

using namespace cotepe;

namespace fs = std::filesystem;

namespace {

using Nomes = std::vector<std::string>;

class Sign : public CenaDeAssinatura {
 protected:
  Sign() : plano_(leArquivo(em("r.txt"))), pronto_(assinado(plano_)) {}

  // The signature of the last line into "sig.bin".
  void tiraAssinatura(const std::string& relatorio) const {
    const std::string texto = leArquivo(em(relatorio));
    const BlocoRsa bytes = leEad(texto.substr(texto.size() - 261, 259)).assinatura;
    escreveArquivo(em("sig.bin"), std::string(bytes.begin(), bytes.end()));
  }
  std::string corpo() const { return pronto_.substr(0, pronto_.size() - 261); }

  std::string plano_, pronto_;
};

TEST_F(Sign, WritesInPlaceAndSaysWhatItDid) {
  const Fim fim = assina({});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.saida, "");
  EXPECT_TRUE(corresponde(fim.erros,
                          "r.txt: signed, [0-9]+ lines, [0-9]+ bytes, MD5 [0-9a-f]{32}; the line ends "
                          "were made CR/LF\n"))
      << fim.erros;
  EXPECT_EQ(leArquivo(em("r.txt")), pronto_);
  EXPECT_EQ(nomes(), (Nomes{"base.db", "k.pem", "p.pem", "p.xml", "r.txt"}));
  EXPECT_EQ(fim.erros.find(shell("head -c -261 r.txt | md5sum | head -c 32")), fim.erros.find("MD5 ") + 4);
}

TEST_F(Sign, RemovesTheOldSignatureAndSaysSo) {
  EXPECT_EQ(assina({"--quiet"}).erros, "");
  const Fim fim = assina({});
  EXPECT_TRUE(corresponde(fim.erros, ".*; the old EAD line was removed\n")) << fim.erros;
  EXPECT_EQ(leArquivo(em("r.txt")), pronto_);
}

TEST_F(Sign, OutputIsAFileOrAFolderWhereItGetsTheLawsName) {
  fs::create_directory(em("d"));
  EXPECT_EQ(assina({"--output", "s.txt"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("s.txt")), pronto_);
  EXPECT_EQ(assina({"--output", "d"}).situacao, 0);
  const std::string nome = fs::directory_iterator(em("d"))->path().filename();
  EXPECT_TRUE(corresponde(nome, "TDMSERIAL_[0-9]{8}_[0-9]{6}\\.TXT")) << nome;
  const std::size_t e11 = plano_.find("\nE11") + 1;
  EXPECT_EQ(nome.substr(10, 15), plano_.substr(e11 + 122, 8) + "_" + plano_.substr(e11 + 130, 6));
  fs::rename(em("r.txt"), em("MFXYZ_20240131_235959.TXT"));
  EXPECT_EQ(comando({"sign", "MFXYZ_20240131_235959.TXT", "--key", "k.pem", "--output", "d"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("d/MFXYZ_20240131_235959.TXT")), pronto_);
}

TEST_F(Sign, StdoutGetsTheWholeReport) {
  const Fim fim = assina({"--output", "-", "--quiet"});
  EXPECT_EQ(fim.situacao, 0) << fim.erros;
  EXPECT_EQ(fim.saida, pronto_);
}

TEST_F(Sign, ExistingOutputIsReplacedOnlyByForce) {
  escreveArquivo(em("s.txt"), "old");
  const Fim fim = assina({"--output", "s.txt"});
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros.substr(0, 62), "cotepe: error: cannot create the output s.txt: the file exists")
      << fim.erros;
  EXPECT_EQ(leArquivo(em("s.txt")), "old");
  EXPECT_EQ(assina({"--output", "s.txt", "--force"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("s.txt")), pronto_);
  EXPECT_EQ(assina({"--output", "k.pem", "--force"}).situacao, 2);
  EXPECT_EQ(leArquivo(em("k.pem")), chavePem());
}

TEST_F(Sign, WhatIsNoReportIsSignedOnlyByForce) {
  const struct {
    const char* texto;
    const char* achado;
  } casos[] = {
      {"", "it has no records"},
      {"hello\n", "its first line is not record E01"},
      {"\xEF\xBB\xBF"
       "E01\n",
       "a byte-order mark stands in front of it"},
      {"E01\n<html>\n", "line 2 begins with no register"},
      {"E01\r\r\n", "line 1 has a carriage return inside"},
      {"E01\nEAD1\nE02\n", "line 3 follows an EAD line"},
  };
  for (const auto& caso : casos) {
    escreveArquivo(em("x.txt"), caso.texto);
    const Fim fim = comando({"sign", "x.txt", "--key", "k.pem"});
    EXPECT_EQ(fim.situacao, 1) << caso.achado;
    EXPECT_EQ(fim.erros, std::string("cotepe: error: x.txt is no report, and was not signed: ") +
                             caso.achado + "; --force signs it as it is; the temporary file was removed\n");
    EXPECT_EQ(leArquivo(em("x.txt")), caso.texto);
    const Fim forcado = comando({"sign", "x.txt", "--key", "k.pem", "--force", "--quiet"});
    EXPECT_EQ(forcado.situacao, 0);
    EXPECT_EQ(forcado.erros,
              std::string("cotepe: x.txt was signed, though it is no report: ") + caso.achado + "\n");
    EXPECT_EQ(confere("x.txt").situacao, 0) << caso.achado;
  }
}

TEST_F(Sign, OpensslOpensOurSignatures) {
  EXPECT_EQ(assina({"--output", "lei.txt"}).situacao, 0);
  EXPECT_EQ(assina({"--output", "pkcs1.txt", "--form", "pkcs1"}).situacao, 0);
  const ResumoMd5 resumo = md5De(corpo());
  for (const char* nome : {"lei.txt", "pkcs1.txt"}) {
    tiraAssinatura(nome);
    const BlocoRsa bloco =
        compoeBloco(resumo, std::string(nome) == "lei.txt" ? FormaDoBloco::Lei : FormaDoBloco::Pkcs1);
    const std::string esperado(bloco.begin(), bloco.end());
    EXPECT_EQ(shell(COTEPE_OPENSSL " rsautl -verify -raw -pubin -inkey p.pem -in sig.bin 2>/dev/null"),
              esperado)
        << nome;
    EXPECT_EQ(shell(COTEPE_OPENSSL
                    " pkeyutl -verifyrecover -pkeyopt rsa_padding_mode:none -pubin -inkey p.pem -in sig.bin"),
              esperado)
        << nome;
  }
  escreveArquivo(em("corpo.txt"), corpo());
  EXPECT_EQ(shell(COTEPE_OPENSSL " dgst -md5 -verify p.pem -signature sig.bin corpo.txt"), "Verified OK\n");
}

TEST_F(Sign, WhatOpensslSignsIsValid) {
  const std::string corpoDela = corpo();
  const ResumoMd5 resumo = md5De(corpoDela);
  const BlocoRsa bloco = compoeBloco(resumo, FormaDoBloco::Lei);
  escreveArquivo(em("bloco.bin"), std::string(bloco.begin(), bloco.end()));
  escreveArquivo(em("corpo.txt"), corpoDela);
  for (const char* comando : {" rsautl -sign -raw -inkey k.pem -in bloco.bin 2>/dev/null",
                              " pkeyutl -decrypt -pkeyopt rsa_padding_mode:none -inkey k.pem -in bloco.bin",
                              " dgst -md5 -sign k.pem corpo.txt"}) {
    const std::string assinatura = shell(std::string(COTEPE_OPENSSL) + comando);
    BlocoRsa bytes{};
    ASSERT_EQ(assinatura.size(), bytes.size());
    std::copy(assinatura.begin(), assinatura.end(), bytes.begin());
    escreveArquivo(em("o.txt"), corpoDela + escreveEad(bytes));
    const Fim fim = confere("o.txt");
    EXPECT_EQ(fim.situacao, 0) << comando << fim.saida;
    EXPECT_EQ(fim.saida.substr(0, 13), "o.txt: valid\n");
  }
}

TEST_F(Sign, PermissionsOfAReportSignedInPlaceStay) {
  chmod(em("r.txt").c_str(), 0600);
  EXPECT_EQ(assina({}).situacao, 0);
  struct stat estado {};
  EXPECT_EQ(stat(em("r.txt").c_str(), &estado), 0);
  EXPECT_EQ(estado.st_mode & 0777, 0600U);
}

TEST_F(Sign, FullDiskGivesFourAndLeavesTheOldReport) {
  const Fim fim = Processo({"sign", "r.txt", "--key", "k.pem"})
                      .naPasta(pasta())
                      .comLimiteDeArquivo(plano_.size() / 2)
                      .inicia()
                      .espera();
  EXPECT_EQ(fim.situacao, 4);
  EXPECT_EQ(fim.erros,
            "cotepe: error: cannot write r.txt: File too large; free some space and try again; the temporary "
            "file was removed\n");
  EXPECT_EQ(leArquivo(em("r.txt")), plano_);
  EXPECT_EQ(nomes(), (Nomes{"base.db", "k.pem", "p.pem", "p.xml", "r.txt"}));
}

// Killed before and after each call that writes, syncs, closes or names a file.
TEST_F(Sign, OldReportOrWholeNewOneWhereverItIsKilled) {
  const auto sob = [&](const Regra& regra) {
    return Processo({"sign", "r.txt", "--key", "k.pem", "--quiet"})
        .naPasta(pasta())
        .comRegra(regra)
        .inicia()
        .espera();
  };
  long total = 0;
  EXPECT_EQ(sob([&](const Chamada& chamada) {
              total += grava(chamada) ? 1 : 0;
              return Destino{};
            }).situacao,
            0);
  EXPECT_GT(total, 5);
  for (long vez = 1; vez <= total; ++vez) {
    for (const auto tipo : {Destino::MataAntes, Destino::MataDepois}) {
      escreveArquivo(em("r.txt"), plano_);
      long chamadas = 0;
      const Fim fim = sob([&](const Chamada& chamada) {
        return grava(chamada) && ++chamadas == vez ? Destino{tipo} : Destino{};
      });
      SCOPED_TRACE(std::to_string(vez) + (tipo == Destino::MataAntes ? " before" : " after"));
      EXPECT_EQ(fim.sinal, SIGKILL);
      const std::string agora = leArquivo(em("r.txt"));
      EXPECT_TRUE(agora == plano_ || agora == pronto_) << agora.size();
      EXPECT_EQ(assina({"--quiet"}).situacao, 0);
      EXPECT_TRUE(leArquivo(em("r.txt")) == pronto_);
      EXPECT_EQ(nomes(), (Nomes{"base.db", "k.pem", "p.pem", "p.xml", "r.txt"}));
    }
  }
}

}  // namespace
