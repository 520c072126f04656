// Keys: the two forms of the public one, and what is refused.
#include <gtest/gtest.h>

#include "Assinatura/ChaveXml.h"
#include "Assinatura/ErroDaAssinatura.h"
#include "Chaves.h"

using namespace cotepe;
using P = ProblemaDaAssinatura;

namespace {

const std::string kVetor = kModuloDoVetor;

std::string xml(const std::string& modulo, const std::string& expoente) {
  return "<empresa_desenvolvedora><nome>CASA</nome><chave><modulo>" + modulo + "</modulo><expoente_publico>" +
         expoente + "</expoente_publico></chave></empresa_desenvolvedora>";
}

template <class Funcao>
P problemaDe(Funcao funcao) {
  try {
    funcao();
  } catch (const ErroDaAssinatura& erro) {
    return erro.problema();
  }
  ADD_FAILURE() << "it was taken";
  return P::Leitura;
}

P recusaPublica(const std::string& texto) {
  return problemaDe([&] { ChavePublica::le(texto); });
}
P recusaPrivada(const std::string& texto) {
  return problemaDe([&] { ChavePrivada::le(texto, nullptr); });
}

TEST(ChaveXml, IsWrittenInTheFormThatIsHandedIn) {
  EXPECT_EQ(chaveDoVetor().xml("SOFTWARE HOUSE"),
            "<empresa_desenvolvedora><nome>SOFTWARE HOUSE</nome><chave><modulo>" + kVetor +
                "</modulo><expoente_publico>010001</expoente_publico></chave></empresa_desenvolvedora>\n");
  EXPECT_EQ(chaveDoVetor().xml().substr(0, 40), "<empresa_desenvolvedora><nome>VETOR</nom");
  EXPECT_EQ(escreveChaveXml({"A<B&C>\"'", "ABC", "3"}),
            "<empresa_desenvolvedora><nome>A&lt;B&amp;C&gt;\"'</nome><chave><modulo>" +
                std::string(253, '0') +
                "ABC</modulo><expoente_publico>03</expoente_publico></chave></empresa_desenvolvedora>\n");
}

TEST(ChaveXml, IsReadUnderAnyRootWithBlanksZerosAndEitherCase) {
  std::string minusculas, espacado;
  for (const char c : kVetor) {
    minusculas += static_cast<char>(c >= 'A' ? c + 32 : c);
    espacado += c;
    if (espacado.size() % 7 == 0) espacado += espacado.size() % 2 == 0 ? " \t" : "\r\n";
  }
  const std::string certo = chaveDoVetor().pem();
  for (const std::string& texto :
       {xml(minusculas, "010001"), xml(espacado, "00 00 01\n00 01"), xml("00" + kVetor, "10001"),
        "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<!-- chave -->" + xml(kVetor, "10001") + "\n",
        "<outra versao='1'><modulo>" + kVetor +
            "</modulo><expoente_publico >10001</expoente_publico ></outra>",
        "<a><b/><modulo>" + kVetor + "</modulo><x>y</x><expoente_publico>10001</expoente_publico></a>"})
    EXPECT_EQ(ChavePublica::le(texto).pem(), certo) << texto;
}

TEST(ChaveXml, NameIsReadAndComesBack) {
  ChaveXml chave;
  EXPECT_EQ(leChaveXml("<a><nome>P&amp;B &lt;X&gt; &quot;&apos; &outra;</nome><modulo>1</modulo>"
                       "<expoente_publico>3</expoente_publico></a>",
                       chave),
            FaltaDaChaveXml::Nenhuma);
  EXPECT_EQ(chave.nome, "P&B <X> \"' &outra;");
  EXPECT_EQ(chave.modulo, "1");
}

TEST(ChaveXml, ZeroIsWrittenAsDigits) {
  EXPECT_EQ(escreveChaveXml({"", "", ""}), "<empresa_desenvolvedora><nome></nome><chave><modulo>" +
                                               std::string(256, '0') +
                                               "</modulo><expoente_publico>00</expoente_publico></chave>"
                                               "</empresa_desenvolvedora>\n");
}

TEST(ChaveXml, WhatIsNoKeyIsToldApart) {
  const struct {
    std::string texto;
    FaltaDaChaveXml falta;
  } casos[] = {
      {"", FaltaDaChaveXml::NaoEXml},
      {"<", FaltaDaChaveXml::NaoEXml},
      {"<a>", FaltaDaChaveXml::NaoEXml},
      {"<a></b>", FaltaDaChaveXml::NaoEXml},
      {"</a>", FaltaDaChaveXml::NaoEXml},
      {"<a/><b/>", FaltaDaChaveXml::NaoEXml},
      {"<a/>x", FaltaDaChaveXml::NaoEXml},
      {"<!DOCTYPE a><a/>", FaltaDaChaveXml::NaoEXml},
      {"<!-- a", FaltaDaChaveXml::NaoEXml},
      {"<a/>", FaltaDaChaveXml::SemModulo},
      {"<a><expoente_publico>3</expoente_publico></a>", FaltaDaChaveXml::SemModulo},
      {"<a><modulo>1</modulo></a>", FaltaDaChaveXml::SemExpoente},
      {"<a><modulo>1</modulo><modulo>1</modulo></a>", FaltaDaChaveXml::Repetida},
      {"<a><modulo>1G</modulo></a>", FaltaDaChaveXml::NaoEHexadecimal},
      {"<a><modulo></modulo></a>", FaltaDaChaveXml::NaoEHexadecimal},
      {"<a><modulo/></a>", FaltaDaChaveXml::NaoEHexadecimal},
  };
  for (const auto& caso : casos) {
    ChaveXml chave;
    EXPECT_EQ(leChaveXml(caso.texto, chave), caso.falta) << caso.texto;
  }
}

TEST(ChavePublica, GoesToPemAndBack) {
  const std::string pem = chaveDoVetor().pem();
  EXPECT_EQ(pem.substr(0, 27), "-----BEGIN PUBLIC KEY-----\n");
  EXPECT_EQ(ChavePublica::le(pem).xml("VETOR"), chaveDoVetor().xml());
}

TEST(ChavePublica, OtherSizesExponentsAndKindsAreRefused) {
  EXPECT_EQ(recusaPublica(xml(kVetor.substr(2), "10001")), P::TamanhoDaChave);
  EXPECT_EQ(recusaPublica(xml(kVetor + kVetor, "10001")), P::TamanhoDaChave);
  EXPECT_EQ(recusaPublica(xml(std::string(100000, 'F'), "10001")), P::TamanhoDaChave);
  EXPECT_EQ(recusaPublica(xml("0", "10001")), P::TamanhoDaChave);
  EXPECT_EQ(recusaPublica(xml(kVetor, "1")), P::ExpoenteDaChave);
  EXPECT_EQ(recusaPublica(xml(kVetor, "0")), P::ExpoenteDaChave);
  EXPECT_EQ(recusaPublica(xml(kVetor, "10000")), P::ExpoenteDaChave);
  EXPECT_EQ(recusaPublica(xml("G", "10001")), P::XmlInvalido);
  EXPECT_EQ(recusaPublica(""), P::ChaveIlegivel);
  EXPECT_EQ(recusaPublica("a key"), P::ChaveIlegivel);
  EXPECT_EQ(recusaPublica("-----BEGIN PUBLIC KEY-----\nAAAA\n-----END PUBLIC KEY-----\n"), P::ChaveIlegivel);
  EXPECT_EQ(recusaPublica(chavePem()), P::EraPrivada);
}

TEST(ChavePrivada, OtherSizesAndKindsAreRefused) {
  EXPECT_EQ(recusaPrivada(novaChavePem(2048)), P::TamanhoDaChave);
  EXPECT_EQ(recusaPrivada(novaChavePem(512)), P::TamanhoDaChave);
  EXPECT_EQ(recusaPrivada(chavePublica().pem()), P::EraPublica);
  EXPECT_EQ(recusaPrivada(chavePublica().xml()), P::EraPublica);
  EXPECT_EQ(recusaPrivada(""), P::ChaveIlegivel);
  EXPECT_EQ(recusaPrivada(chavePem().substr(0, 200)), P::ChaveIlegivel);
}

TEST(ChavePrivada, SignsWhatItsPublicHalfOpens) {
  const BlocoRsa bloco = compoeBloco(md5De("x"), FormaDoBloco::Lei);
  BlocoRsa aberto{};
  EXPECT_TRUE(chavePublica().abre(chavePrivada().assina(bloco), aberto));
  EXPECT_EQ(aberto, bloco);
}

}  // namespace
