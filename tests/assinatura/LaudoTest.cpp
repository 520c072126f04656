// A signature and everything that may be wrong with it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "Chaves.h"

using namespace cotepe;
using D = Diagnostico;

namespace {

using Diagnosticos = std::set<Diagnostico>;

const std::string kLf = "E01ABC\nE02DEF\nE14 um cupom qualquer\n";
const std::string kCorpo = "E01ABC\r\nE02DEF\r\nE14 um cupom qualquer\r\n";

Laudo laudo(const std::string& texto) { return laudoDe(texto, chavePublica()); }

void espera(const std::string& texto, Parecer parecer, Conteudo conteudo, const Diagnosticos& diagnosticos) {
  const Laudo feito = laudo(texto);
  EXPECT_STREQ(nomeDe(feito.parecer), nomeDe(parecer));
  EXPECT_STREQ(nomeDe(feito.conteudo), nomeDe(conteudo));
  std::string nomes;
  for (const D d : feito.diagnosticos) nomes += std::string(nomeDe(d)) + ' ';
  EXPECT_EQ(feito.diagnosticos, diagnosticos) << nomes;
}

std::string trocado(std::string texto, const std::string& de, const std::string& para) {
  for (std::size_t i = texto.find(de); i != std::string::npos; i = texto.find(de, i + para.size()))
    texto.replace(i, de.size(), para);
  return texto;
}

ResumoMd5 invertido(ResumoMd5 resumo) {
  std::reverse(resumo.begin(), resumo.end());
  return resumo;
}

// The law's block with other filler.
BlocoRsa comEnchimento(std::uint8_t passo) {
  BlocoRsa bloco = compoeBloco(md5De(kCorpo), FormaDoBloco::Lei);
  for (std::size_t i = 17; i < bloco.size(); ++i) bloco[i] = static_cast<std::uint8_t>(passo * i + 3);
  return bloco;
}

TEST(Assina, MakesTheBytesOfTheFormAndOneMoreLine) {
  const std::string pronto = assinado(kLf);
  EXPECT_EQ(pronto.substr(0, kCorpo.size()), kCorpo);
  EXPECT_EQ(pronto.size(), kCorpo.size() + 3 + 256 + 2);
  EXPECT_EQ(pronto.substr(kCorpo.size(), 3), "EAD");
  EXPECT_EQ(pronto.substr(pronto.size() - 2), "\r\n");
  EXPECT_EQ(pronto.find_first_not_of("0123456789ABCDEF", kCorpo.size() + 3), pronto.size() - 2);
  EXPECT_EQ(assinado(kCorpo), pronto);
  EXPECT_EQ(assinado(pronto), pronto) << "signed again";
}

TEST(Verifica, BothFormsAndEveryFillerAreValid) {
  espera(assinado(kLf), Parecer::Valida, Conteudo::Confere, {});
  espera(assinado(kLf, FormaDoBloco::Pkcs1), Parecer::Valida, Conteudo::Confere, {D::Pkcs1});
  espera(kCorpo + eadDe(comEnchimento(0)), Parecer::Valida, Conteudo::Confere, {});
  espera(kCorpo + eadDe(comEnchimento(7)), Parecer::Valida, Conteudo::Confere, {});
}

// The digits' own case is of the line, which no hash covers; of the filler, a signature says nothing.
TEST(Verifica, NoByteCanBeFlippedUnseen) {
  for (const FormaDoBloco forma : {FormaDoBloco::Lei, FormaDoBloco::Pkcs1}) {
    const std::string inteiro = assinado(kLf, forma);
    for (std::size_t i = 0; i < inteiro.size(); ++i) {
      for (const int mascara : {0x01, 0x02, 0x07, 0x08, 0x20, 0x40, 0x80, 0xFF}) {
        std::string outro = inteiro;
        outro[i] = static_cast<char>(outro[i] ^ mascara);
        const Laudo feito = laudo(outro);
        EXPECT_NE(feito.parecer, Parecer::Valida) << "byte " << i << " mask " << mascara;
        EXPECT_FALSE(feito.diagnosticos.empty()) << "byte " << i << " mask " << mascara;
      }
    }
  }
}

TEST(Verifica, NoByteCanBeLostOrAddedUnseen) {
  const std::string inteiro = assinado(kLf);
  for (std::size_t i = 0; i < inteiro.size() - 2; ++i) {
    EXPECT_NE(laudo(inteiro.substr(0, i) + inteiro.substr(i + 1)).parecer, Parecer::Valida) << i;
    EXPECT_NE(laudo(inteiro.substr(0, i) + "\n" + inteiro.substr(i)).parecer, Parecer::Valida) << i;
    EXPECT_NE(laudo(inteiro.substr(0, i) + "0" + inteiro.substr(i)).parecer, Parecer::Valida) << i;
  }
}

TEST(Verifica, ChangedContentIsChanged) {
  espera(trocado(assinado(kLf), "cupom", "lapis"), Parecer::Alterada, Conteudo::Difere, {D::OutroConteudo});
  espera(trocado(assinado(kLf, FormaDoBloco::Pkcs1), "cupom", "lapis"), Parecer::Alterada, Conteudo::Difere,
         {D::Pkcs1, D::OutroConteudo});
}

TEST(Verifica, LineEndsThatWereChangedAreSaid) {
  espera(trocado(assinado(kLf), "\r\n", "\n"), Parecer::Alterada, Conteudo::Confere, {D::FinsDeLinha});
  const std::string assinadoEmLf = kLf + eadDe(compoeBloco(md5De(kLf), FormaDoBloco::Lei)) + "\n";
  espera(assinadoEmLf, Parecer::Valida, Conteudo::Confere, {});
  espera(trocado(assinadoEmLf, "\n", "\r\n"), Parecer::Alterada, Conteudo::Confere, {D::FinsDeLinha});
}

TEST(Verifica, ReversedHashIsSaid) {
  const std::string texto = kCorpo + eadDe(compoeBloco(invertido(md5De(kCorpo)), FormaDoBloco::Lei));
  espera(texto, Parecer::Alterada, Conteudo::Confere, {D::ResumoInvertido});
  espera(trocado(texto, "\r\n", "\n"), Parecer::Alterada, Conteudo::Confere,
         {D::ResumoInvertido, D::FinsDeLinha});
}

// A signature that begins with zeros is found by trying bodies.
TEST(Verifica, LostZerosAreSaid) {
  for (int tentativa = 0; tentativa < 10000; ++tentativa) {
    const std::string inteiro = assinado("E01 " + std::to_string(tentativa) + "\n");
    const std::size_t ead = inteiro.find("EAD") + 3;
    if (inteiro[ead] != '0') continue;
    const std::size_t digitos = inteiro.find_first_not_of('0', ead);
    const std::string semZeros = inteiro.substr(0, ead) + inteiro.substr(digitos);
    espera(inteiro, Parecer::Valida, Conteudo::Confere, {});
    espera(semZeros, Parecer::Alterada, Conteudo::Confere, {D::DigitosPerdidos});
    EXPECT_EQ(laudo(semZeros).digitos, 256 - (digitos - ead));
    return;
  }
  FAIL() << "no signature with a zero in front";
}

TEST(Verifica, DigitsLostElsewhereLeaveNothingToTell) {
  const std::string inteiro = assinado(kLf);
  espera(inteiro.substr(0, inteiro.size() - 12), Parecer::NaoSeSabe, Conteudo::NaoSeSabe,
         {D::DigitosPerdidos, D::OutraChave});
}

TEST(Verifica, PlainMd5IsSaid) {
  const std::string ead = "EAD" + textoDoResumo(md5De(kCorpo)) + "\r\n";
  espera(kCorpo + ead, Parecer::NaoSeSabe, Conteudo::Confere, {D::Md5Puro});
  espera(kLf + ead, Parecer::Alterada, Conteudo::Confere, {D::Md5Puro, D::FinsDeLinha});
  espera("E01\r\n" + ead, Parecer::Alterada, Conteudo::Difere, {D::Md5Puro, D::OutroConteudo});
}

TEST(Verifica, HashSignedAsTextIsSaid) {
  std::string digitos = textoDoResumo(md5De(kCorpo));
  for (const bool maiusculas : {false, true}) {
    if (maiusculas)
      std::transform(digitos.begin(), digitos.end(), digitos.begin(),
                     [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    for (const int inicio : {-1, 0x10, 0x20}) {
      BlocoRsa bloco{};
      if (inicio >= 0) bloco[0] = static_cast<std::uint8_t>(inicio);
      std::copy(digitos.begin(), digitos.end(), bloco.begin() + (inicio >= 0 ? 1 : 0));
      espera(kCorpo + eadDe(bloco), Parecer::Alterada, Conteudo::Confere, {D::ResumoEmTexto});
    }
    BlocoRsa pkcs1{};
    pkcs1.fill(0xFF);
    pkcs1[0] = 0;
    pkcs1[1] = 1;
    pkcs1[95] = 0;
    std::copy(digitos.begin(), digitos.end(), pkcs1.begin() + 96);
    espera(kCorpo + eadDe(pkcs1), Parecer::Alterada, Conteudo::Confere, {D::ResumoEmTexto});
  }
}

TEST(Verifica, WhatFollowsTheSignatureIsSaid) {
  const std::string inteiro = assinado(kLf);
  espera(inteiro + "\r\n", Parecer::Alterada, Conteudo::Confere, {D::TextoDepois});
  espera(inteiro + "\x1A", Parecer::Alterada, Conteudo::Confere, {D::TextoDepois});
  espera(inteiro + "E15 mais\r\n", Parecer::Alterada, Conteudo::Confere, {D::TextoDepois});
  espera(inteiro.substr(0, inteiro.size() - 2) + "  \r\n", Parecer::Alterada, Conteudo::Confere,
         {D::TextoDepois});
  EXPECT_EQ(laudo(inteiro + "E15 mais\r\n").depois, 10U);
}

TEST(Verifica, ByteOrderMarkIsSaid) {
  const std::string bom = "\xEF\xBB\xBF";
  espera(bom + assinado(kLf), Parecer::Alterada, Conteudo::Confere, {D::Bom});
  espera(bom + trocado(assinado(kLf), "\r\n", "\n"), Parecer::Alterada, Conteudo::Confere,
         {D::Bom, D::FinsDeLinha});
  const std::string comBom = bom + kCorpo;
  espera(comBom + eadDe(compoeBloco(md5De(comBom), FormaDoBloco::Lei)), Parecer::Valida, Conteudo::Confere,
         {D::Bom});
}

TEST(Verifica, TwoEadsAreSaid) {
  const std::string inteiro = assinado(kLf);
  espera(inteiro + inteiro.substr(kCorpo.size()), Parecer::Alterada, Conteudo::Confere,
         {D::DuasEads, D::TextoDepois});
  EXPECT_EQ(laudo(inteiro + inteiro.substr(kCorpo.size())).linhaDaEad, 4);
  espera(inteiro + eadDe(compoeBloco(md5De(inteiro), FormaDoBloco::Lei)), Parecer::Valida, Conteudo::Confere,
         {D::DuasEads});
  espera(inteiro + "E15\r\nEAD\r\n", Parecer::Alterada, Conteudo::Confere, {D::DuasEads, D::TextoDepois});
  espera(kCorpo + "EAD1\r\nEAD2\r\n", Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::DuasEads, D::SemDigitos});
}

TEST(Verifica, FileWithoutSignatureIsSaid) {
  espera("", Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::SemEad});
  espera(kCorpo, Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::SemEad});
  espera(kCorpo + "EAD\r\n", Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::SemDigitos});
  espera(kCorpo + "EAD" + std::string(256, 'G'), Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::SemDigitos});
}

TEST(Verifica, AnotherKeyCannotBeTold) {
  const std::string inteiro = assinado(kLf);
  int conhecidos = 0;
  for (int vez = 0; vez < 5; ++vez) {
    const ChavePublica outra = ChavePrivada::le(novaChavePem(), nullptr).publica();
    const Laudo feito = laudoDe(inteiro, outra);
    EXPECT_EQ(feito.parecer, Parecer::NaoSeSabe);
    conhecidos += feito.diagnosticos == Diagnosticos{D::OutraChave} ? 1 : 0;
  }
  EXPECT_GE(conhecidos, 3) << "chance makes one in 256 look like a hash";
}

TEST(Verifica, NumberAboveTheModulusCannotBeTold) {
  espera(kCorpo + "EAD" + std::string(256, 'F'), Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::OutraChave});
}

// The first byte alone is the mark.
TEST(Verifica, RandomFillerAndAnotherHashIsNotSaidToBeChanged) {
  BlocoRsa bloco = comEnchimento(7);
  bloco[5] = static_cast<std::uint8_t>(bloco[5] + 1);
  espera(kCorpo + eadDe(bloco), Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::OutroOuOutraChave});
}

TEST(Verifica, Pkcs1AroundAnotherHashIsSaid) {
  BlocoRsa bloco = compoeBloco(md5De(kCorpo), FormaDoBloco::Pkcs1);
  bloco[104] = 0x1A;  // of the name of the hash
  espera(kCorpo + eadDe(bloco), Parecer::NaoSeSabe, Conteudo::NaoSeSabe, {D::OutroResumo});
}

TEST(Verifica, Pkcs1AroundTheHashAloneIsValid) {
  BlocoRsa bloco{};
  bloco.fill(0xFF);
  bloco[0] = 0;
  bloco[1] = 1;
  bloco[111] = 0;
  const ResumoMd5 resumo = md5De(kCorpo);
  std::copy(resumo.begin(), resumo.end(), bloco.begin() + 112);
  espera(kCorpo + eadDe(bloco), Parecer::Valida, Conteudo::Confere, {D::Pkcs1});
}

TEST(Verifica, DigitsOfBothCasesAreSaid) {
  std::string texto = assinado(kLf);
  const std::size_t letra = texto.find_first_of("ABCDEF", kCorpo.size() + 3);
  texto[letra] = static_cast<char>(texto[letra] + ('a' - 'A'));
  espera(texto, Parecer::Alterada, Conteudo::Confere, {D::DigitosMisturados});
}

}  // namespace
