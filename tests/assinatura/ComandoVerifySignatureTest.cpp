// The command verify-signature: its words, its JSON and its statuses.
#include <algorithm>

#include "CenaDeAssinatura.h"
#include "Chaves.h"

using namespace cotepe;

namespace {

class VerifySignature : public CenaDeAssinatura {
 protected:
  VerifySignature() : pronto_(assinado(leArquivo(em("r.txt")))), ead_(pronto_.size() - 261) {}

  void espera(const std::string& texto, int situacao, const std::string& dito) const {
    escreveArquivo(em("s.txt"), texto);
    const Fim fim = confere("s.txt");
    EXPECT_EQ(fim.situacao, situacao) << dito;
    EXPECT_EQ(fim.saida, "s.txt: " + dito);
  }
  std::string corpo() const { return pronto_.substr(0, ead_); }

  std::string pronto_;
  std::size_t ead_;
};

TEST_F(VerifySignature, ValidIsZero) {
  espera(pronto_, 0, "valid\n");
  EXPECT_EQ(confere("s.txt").erros, "");
  EXPECT_EQ(comando({"verify-signature", "s.txt", "--public-key", "p.pem"}).situacao, 0);
  espera(assinado(corpo(), FormaDoBloco::Pkcs1), 0,
         "valid\n  pkcs1: signed in the form of PKCS#1 v1.5, which is not the law's\n");
}

TEST_F(VerifySignature, ChangedIsOne) {
  std::string outro = pronto_;
  outro[4] = outro[4] == 'X' ? 'Y' : 'X';
  espera(outro, 1,
         "changed\n  hash-differs: the hash differs: the EAD line holds MD5 " +
             textoDoResumo(md5De(corpo())) + ", the file before it has " +
             textoDoResumo(md5De(outro.substr(0, ead_))) + "\n");
  EXPECT_EQ(confere("s.txt").erros, "cotepe: s.txt: not what was signed\n");
  std::string lf;
  for (const char c : pronto_)
    if (c != '\r') lf += c;
  espera(lf, 1,
         "changed\n  line-ends-changed: the line ends were changed on the way; with those it had, the "
         "content is the "
         "one signed\n");
  espera(pronto_ + "X", 1,
         "changed\n  text-after-ead: 1 byte follows the signature of line " +
             std::to_string(std::count(pronto_.begin(), pronto_.end(), '\n')) +
             "; it must be the end of the file\n");
  espera("\xEF\xBB\xBF" + pronto_, 1,
         "changed\n  byte-order-mark: a byte-order mark stands in front of the file\n");
}

TEST_F(VerifySignature, CannotBeToldIsSix) {
  espera(corpo(), 6, "cannot be told\n  no-ead: no line begins with EAD: the file is not signed\n");
  EXPECT_EQ(confere("s.txt").erros, "cotepe: s.txt: nothing can be told of the signature\n");
  espera(corpo() + "EAD" + std::string(256, 'F') + "\r\n", 6,
         "cannot be told\n  other-key: signed with another key, or by a method of the maker's own\n");
  espera(corpo() + "EAD" + textoDoResumo(md5De(corpo())) + "\r\n", 6,
         "cannot be told\n  plain-md5: the EAD line is the MD5 of the file, which nobody signed: anyone can "
         "write "
         "it\n");
}

TEST_F(VerifySignature, JsonHasWhatTheTextHas) {
  escreveArquivo(em("s.txt"), "E01ABC\nE02DEF\nEAD" + pronto_.substr(ead_ + 3));
  const Fim fim = confere("s.txt", {"--format", "json"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida,
            "{\"file\":\"s.txt\",\"verdict\":\"changed\",\"content\":\"differs\",\"lines\":3,\"ead_lines\":1,"
            "\"ead_line\":3,\"md5\":\"" +
                textoDoResumo(md5De("E01ABC\nE02DEF\n")) + "\",\"signed_md5\":\"" +
                textoDoResumo(md5De(corpo())) +
                "\",\"findings\":[{\"name\":\"hash-differs\",\"text\":\"the hash "
                "differs: the EAD line holds MD5 " +
                textoDoResumo(md5De(corpo())) + ", the file before it has " +
                textoDoResumo(md5De("E01ABC\nE02DEF\n")) + "\"}]}\n");
}

TEST_F(VerifySignature, WhatCannotRunIsTwo) {
  EXPECT_EQ(confere("none.txt").situacao, 2);
  EXPECT_EQ(confere(".").situacao, 2);
  EXPECT_EQ(confere("-").situacao, 2);
  EXPECT_EQ(comando({"verify-signature", "r.txt"}).situacao, 2);
}

TEST_F(VerifySignature, HelpHasItsStatusesAndWhatMd5IsWorth) {
  for (const char* nome : {"sign", "verify-signature"}) {
    const std::string ajuda = comando({nome, "--help"}).saida;
    EXPECT_NE(ajuda.find("Exit status: 0 "), std::string::npos);
    EXPECT_NE(ajuda.find("they are no protection today"), std::string::npos);
  }
}

}  // namespace
