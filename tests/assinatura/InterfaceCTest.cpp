// The interface for C, through the shared library that is installed.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

#include "Chaves.h"
#include "cotepe-sign.h"

namespace fs = std::filesystem;

namespace {

class AssinaturaC : public testing::Test {
 protected:
  AssinaturaC() : pasta_(testing::TempDir() + "assina-XXXXXX") {
    EXPECT_NE(mkdtemp(pasta_.data()), nullptr);
    grava("k.pem", chavePem());
    grava("p.xml", chavePublica().xml());
    grava("p.pem", chavePublica().pem());
    grava("r.txt", "E01ABC\nE02DEF\n");
    EXPECT_EQ(cotepe_sign_open_private(em("k.pem").c_str(), nullptr, &privada_), COTEPE_SIGN_DONE);
    EXPECT_EQ(cotepe_sign_open_public(em("p.xml").c_str(), &publica_), COTEPE_SIGN_DONE);
  }
  ~AssinaturaC() override {
    cotepe_sign_close(privada_);
    cotepe_sign_close(publica_);
    fs::remove_all(pasta_);
  }

  std::string em(const std::string& nome) const { return pasta_ + "/" + nome; }
  void grava(const std::string& nome, const std::string& texto) const {
    std::ofstream(em(nome), std::ios::binary) << texto;
  }
  std::string le(const std::string& nome) const {
    std::ostringstream texto;
    texto << std::ifstream(em(nome), std::ios::binary).rdbuf();
    return texto.str();
  }
  int assina(const char* relatorio, const char* saida, unsigned modos = 0) const {
    return cotepe_sign_file(privada_, em(relatorio).c_str(), saida == nullptr ? nullptr : em(saida).c_str(),
                            modos);
  }
  int abre(const char* arquivo, const char* frase = nullptr) const {
    cotepe_sign_key* chave = privada_;
    const int resultado = cotepe_sign_open_private(em(arquivo).c_str(), frase, &chave);
    EXPECT_EQ(chave != nullptr, resultado == COTEPE_SIGN_DONE);
    cotepe_sign_close(chave);
    return resultado;
  }

  std::string pasta_;
  cotepe_sign_key* privada_ = nullptr;
  cotepe_sign_key* publica_ = nullptr;
};

TEST_F(AssinaturaC, SignsAndVerifiesAFile) {
  EXPECT_EQ(assina("r.txt", "s.txt"), COTEPE_SIGN_DONE);
  EXPECT_EQ(le("s.txt"), assinado("E01ABC\nE02DEF\n"));
  EXPECT_EQ(le("r.txt"), "E01ABC\nE02DEF\n");
  cotepe_sign_report achado;
  std::memset(&achado, 0xFF, sizeof achado);
  EXPECT_EQ(cotepe_sign_verify(publica_, em("s.txt").c_str(), &achado), COTEPE_SIGN_DONE);
  EXPECT_EQ(achado.verdict, COTEPE_SIGN_VALID);
  EXPECT_EQ(achado.findings, 0U);
  EXPECT_EQ(achado.content_agrees, 1);
  EXPECT_STREQ(achado.md5, "98621da7b08470b708f28ba38e3505f6");
  EXPECT_EQ(cotepe_sign_verify(privada_, em("s.txt").c_str(), &achado), COTEPE_SIGN_DONE);
  EXPECT_EQ(achado.verdict, COTEPE_SIGN_VALID);
}

TEST_F(AssinaturaC, SignsInPlaceAndKeepsThePermissions) {
  chmod(em("r.txt").c_str(), 0600);
  EXPECT_EQ(assina("r.txt", nullptr), COTEPE_SIGN_DONE);
  EXPECT_EQ(le("r.txt"), assinado("E01ABC\nE02DEF\n"));
  struct stat estado {};
  EXPECT_EQ(stat(em("r.txt").c_str(), &estado), 0);
  EXPECT_EQ(estado.st_mode & 0777, 0600U);
}

TEST_F(AssinaturaC, FlagsSayFormReplacementAndAnyFile) {
  EXPECT_EQ(assina("r.txt", "s.txt", COTEPE_SIGN_PKCS1), COTEPE_SIGN_DONE);
  cotepe_sign_report achado;
  EXPECT_EQ(cotepe_sign_verify(publica_, em("s.txt").c_str(), &achado), COTEPE_SIGN_DONE);
  EXPECT_EQ(achado.findings, unsigned{COTEPE_SIGN_PKCS1_FORM});
  EXPECT_EQ(assina("r.txt", "s.txt"), COTEPE_SIGN_CANNOT_OPEN);
  EXPECT_EQ(assina("r.txt", "s.txt", COTEPE_SIGN_REPLACE), COTEPE_SIGN_DONE);
  grava("outro.txt", "hello\n");
  EXPECT_EQ(assina("outro.txt", "o.txt"), COTEPE_SIGN_NO_REPORT);
  EXPECT_FALSE(fs::exists(em("o.txt")));
  EXPECT_EQ(assina("outro.txt", "o.txt", COTEPE_SIGN_ANY_FILE), COTEPE_SIGN_DONE);
  EXPECT_EQ(assina("r.txt", "x.txt", 8), COTEPE_SIGN_BAD_ARGUMENT);
}

TEST_F(AssinaturaC, WhatCannotBeDoneHasItsResultAndLeavesNothing) {
  EXPECT_EQ(assina("none.txt", "s.txt"), COTEPE_SIGN_CANNOT_OPEN);
  EXPECT_EQ(assina(".", "s.txt"), COTEPE_SIGN_CANNOT_READ);
  EXPECT_EQ(assina("r.txt", "none/s.txt"), COTEPE_SIGN_CANNOT_OPEN);
  EXPECT_EQ(cotepe_sign_file(publica_, em("r.txt").c_str(), em("s.txt").c_str(), 0), COTEPE_SIGN_BAD_KEY);
  EXPECT_EQ(abre("none.pem"), COTEPE_SIGN_CANNOT_OPEN);
  EXPECT_EQ(abre("p.pem"), COTEPE_SIGN_BAD_KEY);
  EXPECT_EQ(abre("r.txt"), COTEPE_SIGN_BAD_KEY);
  grava("grande.pem", novaChavePem(2048));
  EXPECT_EQ(abre("grande.pem"), COTEPE_SIGN_KEY_SIZE);
  EXPECT_EQ(std::distance(fs::directory_iterator(pasta_), fs::directory_iterator()), 5);
}

TEST_F(AssinaturaC, EncryptedKeyTakesItsPassPhraseAlone) {
  ASSERT_EQ(std::system((COTEPE_OPENSSL " pkcs8 -topk8 -in " + em("k.pem") + " -out " + em("c.pem") +
                         " -passout pass:abre")
                            .c_str()),
            0);
  EXPECT_EQ(abre("c.pem"), COTEPE_SIGN_PASSPHRASE);
  EXPECT_EQ(abre("c.pem", "fecha"), COTEPE_SIGN_PASSPHRASE);
  EXPECT_EQ(abre("c.pem", "abre"), COTEPE_SIGN_DONE);
}

TEST_F(AssinaturaC, NullIsRefusedAndNeverFollowed) {
  cotepe_sign_key* chave = privada_;
  cotepe_sign_report achado;
  EXPECT_EQ(cotepe_sign_open_private(nullptr, nullptr, &chave), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(chave, nullptr);
  EXPECT_EQ(cotepe_sign_open_private("k", nullptr, nullptr), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_open_public(nullptr, &chave), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_open_public("k", nullptr), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_file(nullptr, "r", "s", 0), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_file(privada_, nullptr, "s", 0), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_verify(nullptr, "r", &achado), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_verify(publica_, nullptr, &achado), COTEPE_SIGN_BAD_ARGUMENT);
  EXPECT_EQ(cotepe_sign_verify(publica_, "r", nullptr), COTEPE_SIGN_BAD_ARGUMENT);
  cotepe_sign_close(nullptr);
}

TEST_F(AssinaturaC, EveryNumberHasWords) {
  for (int i = 0; i <= COTEPE_SIGN_FAILED; ++i)
    EXPECT_STRNE(cotepe_sign_result_text(i), "unknown result") << i;
  EXPECT_STREQ(cotepe_sign_result_text(99), "unknown result");
  EXPECT_STREQ(cotepe_sign_verdict_text(COTEPE_SIGN_CHANGED), "changed");
  EXPECT_STREQ(cotepe_sign_verdict_text(9), "unknown verdict");
  for (int i = 0; i < 16; ++i) EXPECT_STRNE(cotepe_sign_finding_text(1U << i), "unknown finding") << i;
  EXPECT_STREQ(cotepe_sign_finding_text(COTEPE_SIGN_HASH_DIFFERS), "hash-differs");
  EXPECT_STREQ(cotepe_sign_finding_text(0), "unknown finding");
  EXPECT_STREQ(cotepe_sign_finding_text(1U << 16), "unknown finding");
  EXPECT_STRNE(cotepe_sign_version(), "");
}

TEST_F(AssinaturaC, OneKeyServesSeveralThreads) {
  std::vector<std::thread> todos;
  for (int i = 0; i < 4; ++i)
    todos.emplace_back([this, i] {
      const std::string saida = "s" + std::to_string(i) + ".txt";
      for (int vez = 0; vez < 20; ++vez) {
        EXPECT_EQ(assina("r.txt", saida.c_str(), COTEPE_SIGN_REPLACE), COTEPE_SIGN_DONE);
        cotepe_sign_report achado;
        EXPECT_EQ(cotepe_sign_verify(publica_, em(saida).c_str(), &achado), COTEPE_SIGN_DONE);
        EXPECT_EQ(achado.verdict, COTEPE_SIGN_VALID);
      }
    });
  for (auto& um : todos) um.join();
}

}  // namespace
