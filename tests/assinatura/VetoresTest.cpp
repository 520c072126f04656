// Known signatures of a throw-away key, whose private half is not here.
#include <gtest/gtest.h>

#include <cctype>

#include "Chaves.h"

using namespace cotepe;

namespace {

const std::string kCorpo = "E01ABC\r\nE02DEF\r\n";
constexpr char kMd5[] = "98621da7b08470b708f28ba38e3505f6";
constexpr char kLei[] =
    "8BCDF7E6C802129C0DDBBFE617D2D1F5855543D7A8D08BB5D8CE3976C47FAA943769BDAD04E4617278028FC52A1B292B89B4CE88"
    "44A26F93CC5458F9D900C30945246262B48AFA08A77D10BC1815B36C971BBFC0B2D83E5E86F7C8FD2BEBF82D85C54F0622DE55B5"
    "0EFBD466402B4B8AD49422C976E6AE3176A9609F26B44008";
constexpr char kInvertido[] =
    "3597DB2CC5A731726B90F2EB61E92EE90A6AFB813607950883315F7033B8EC3365ECDA6CDAE031F00800F137FF59858D3D2D60A7"
    "F3517463072E31063C471BF5AA38FC9D9A739859D225DBEA236782F21142D1C85543513210A397A3CE57225D14910242F204006E"
    "A8EA11E2D70A64E3325CC6BFC6B2224F327577625885ED46";
constexpr char kPkcs1[] =
    "5371D2129D2FB8B5A9CB1E176640B87B4B1FC28CB1C2B3AE3F35876EDDBADF3F4AF3C5E382AE3D93D11778D8882010EE9973A303"
    "DFCA121247F1F54ADB0271A26281A2A45277F3DC7E2739735037692289D950ACC727BF06F4EA15CD0173ECE3E0E2E36F4CD55BA7"
    "E1D2A72461716370A83F8033B8C71EA905BA97F9D2E8C999";

using Diagnosticos = std::set<Diagnostico>;

TEST(Vetores, HashIsThatOfTheBody) { EXPECT_EQ(textoDoResumo(md5De(kCorpo)), kMd5); }

TEST(Vetores, LawFormIsValid) {
  const Laudo laudo = laudoDe(kCorpo + "EAD" + kLei + "\r\n", chaveDoVetor());
  EXPECT_EQ(laudo.parecer, Parecer::Valida);
  EXPECT_EQ(laudo.conteudo, Conteudo::Confere);
  EXPECT_EQ(laudo.diagnosticos, Diagnosticos{});
  EXPECT_EQ(textoDoResumo(laudo.resumo), kMd5);
  EXPECT_EQ(textoDoResumo(laudo.assinado), kMd5);
  EXPECT_EQ(laudo.linhas, 3);
  EXPECT_EQ(laudo.linhaDaEad, 3);
}

TEST(Vetores, Pkcs1IsValidAndSaid) {
  const Laudo laudo = laudoDe(kCorpo + "EAD" + kPkcs1 + "\r\n", chaveDoVetor());
  EXPECT_EQ(laudo.parecer, Parecer::Valida);
  EXPECT_EQ(laudo.diagnosticos, Diagnosticos{Diagnostico::Pkcs1});
}

TEST(Vetores, ReversedHashIsAFaultThoughTheContentAgrees) {
  const Laudo laudo = laudoDe(kCorpo + "EAD" + kInvertido + "\r\n", chaveDoVetor());
  EXPECT_EQ(laudo.parecer, Parecer::Alterada);
  EXPECT_EQ(laudo.conteudo, Conteudo::Confere);
  EXPECT_EQ(laudo.diagnosticos, Diagnosticos{Diagnostico::ResumoInvertido});
}

TEST(Vetores, LineEndAfterTheSignatureAndCaseOfDigitsAreFree) {
  std::string minusculas = kLei;
  for (char& c : minusculas) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  for (const std::string& digitos : {std::string(kLei), minusculas})
    for (const char* fim : {"", "\n", "\r\n"})
      EXPECT_EQ(laudoDe(kCorpo + "EAD" + digitos + fim, chaveDoVetor()).parecer, Parecer::Valida) << fim;
}

TEST(Vetores, AnotherBodyIsChanged) {
  const Laudo laudo = laudoDe("E01ABC\r\nE02DEG\r\nEAD" + std::string(kLei) + "\r\n", chaveDoVetor());
  EXPECT_EQ(laudo.parecer, Parecer::Alterada);
  EXPECT_EQ(laudo.conteudo, Conteudo::Difere);
  EXPECT_EQ(laudo.diagnosticos, Diagnosticos{Diagnostico::OutroConteudo});
}

TEST(Vetores, BlocksAreTheLawsByteForByte) {
  ResumoMd5 resumo{};
  for (std::size_t i = 0; i < resumo.size(); ++i) resumo[i] = static_cast<std::uint8_t>(0xA0 + i);
  const BlocoRsa lei = compoeBloco(resumo, FormaDoBloco::Lei);
  EXPECT_EQ(emHexadecimal(lei.data(), lei.size()),
            "10A0A1A2A3A4A5A6A7A8A9AAABACADAEAF" + std::string(222, '0'));
  const BlocoRsa pkcs1 = compoeBloco(resumo, FormaDoBloco::Pkcs1);
  EXPECT_EQ(emHexadecimal(pkcs1.data(), pkcs1.size()),
            "0001" + std::string(2 * 91, 'F') +
                "003020300C06082A864886F70D020505000410A0A1A2A3A4A5A6A7A8A9AAABACADAEAF");
}

}  // namespace
