// The way to CR/LF, whatever the pieces in which a file comes.
#include <gtest/gtest.h>

#include <cerrno>

#include "Assinatura/ErroDaAssinatura.h"
#include "Chaves.h"

using namespace cotepe;

namespace {

struct Passagem {
  std::string saida;
  Estranheza estranheza;
  long linha, linhas;
  bool ead;
};

Passagem passa(const std::string& texto, std::size_t pedaco, FinsDeLinha fins = FinsDeLinha::CrLf,
               bool tiraBom = false) {
  std::string saida;
  FormaDeEntrega forma(fins, [&](std::string_view bytes) { saida += bytes; });
  if (tiraBom) forma.tiraBom();
  passaTudo(leituraDe(texto, pedaco), forma);
  return {saida, forma.estranheza(), forma.linhaEstranha(), forma.linhas(), forma.acabaEmEad()};
}

struct Caso {
  const char* nome;
  std::string texto, crlf;
  Estranheza estranheza = Estranheza::Nenhuma;
  long linha = 0;
  bool ead = false;
};

const std::string kE07(18, ' ');

const Caso kCasos[] = {
    {"LF", "E01\nE02 a\n", "E01\r\nE02 a\r\n"},
    {"CR/LF", "E01\r\nE02 a\r\n", "E01\r\nE02 a\r\n"},
    {"both", "E01\r\nE02\nE03\r\n", "E01\r\nE02\r\nE03\r\n"},
    {"no end", "E01\nE02", "E01\r\nE02\r\n"},
    {"E07 without its code", "E01\n" + kE07 + "\nE08\n", "E01\r\n" + kE07 + "\r\nE08\r\n"},
    {"old EAD", "E01\nEAD12\n", "E01\r\n", Estranheza::Nenhuma, 0, true},
    {"old EAD without end", "E01\r\nEAD12", "E01\r\n", Estranheza::Nenhuma, 0, true},
    {"nothing", "", "", Estranheza::Vazio, 0},
    {"EAD alone", "EAD12\n", "", Estranheza::Vazio, 1, true},
    {"byte-order mark",
     "\xEF\xBB\xBF"
     "E01\n",
     "\xEF\xBB\xBF"
     "E01\r\n",
     Estranheza::Bom, 1},
    {"E02 first", "E02\nE03\n", "E02\r\nE03\r\n", Estranheza::PrimeiraNaoEE01, 1},
    {"text", "E01\nE02\nhello\nE03\n", "E01\r\nE02\r\nhello\r\nE03\r\n", Estranheza::SemRegistro, 3},
    {"empty line", "E01\n\nE02\n", "E01\r\n\r\nE02\r\n", Estranheza::SemRegistro, 2},
    {"two CRs", "E01\r\r\nE02\n", "E01\r\r\nE02\r\n", Estranheza::CrNaLinha, 1},
    {"CR inside", "E01\nE02 a\rb\n", "E01\r\nE02 a\rb\r\n", Estranheza::CrNaLinha, 2},
    {"CR at the end of the file", "E01\nE02\r", "E01\r\nE02\r\r\n", Estranheza::CrNaLinha, 2},
    {"two EADs", "E01\nEAD1\nEAD2\n", "E01\r\nEAD1\r\n", Estranheza::EadNoMeio, 3, true},
    {"records after EAD", "E01\nEAD1\nE02\n", "E01\r\nEAD1\r\nE02\r\n", Estranheza::EadNoMeio, 3},
};

TEST(FormaDeEntrega, LineEndsEadAndWhatIsNoReportInPiecesOfEverySize) {
  for (const Caso& caso : kCasos) {
    for (const std::size_t pedaco : {1U, 2U, 3U, 5U, 7U, 1000U}) {
      SCOPED_TRACE(std::string(caso.nome) + " in pieces of " + std::to_string(pedaco));
      const Passagem feita = passa(caso.texto, pedaco);
      EXPECT_EQ(feita.saida, caso.crlf);
      EXPECT_EQ(feita.estranheza, caso.estranheza);
      EXPECT_EQ(feita.linha, caso.linha);
      EXPECT_EQ(feita.ead, caso.ead);
    }
  }
}

TEST(FormaDeEntrega, AsTheyAreAndLfChangeNothingElse) {
  const std::string texto = "E01\r\nE02\nE03";
  EXPECT_EQ(passa(texto, 2, FinsDeLinha::ComoEstao).saida, texto);
  EXPECT_EQ(passa(texto, 2, FinsDeLinha::Lf).saida, "E01\nE02\nE03\n");
  EXPECT_EQ(passa("\xEF\xBB\xBF"
                  "E01\n",
                  2, FinsDeLinha::Lf, true)
                .saida,
            "E01\n");
}

// Lines about as long as what is kept of one, and as a block, with CRs where a piece may end.
TEST(FormaDeEntrega, LongLinesComeWhole) {
  for (const std::size_t tamanho :
       {FormaDeEntrega::kLinha - 1, FormaDeEntrega::kLinha, FormaDeEntrega::kLinha + 1,
        FormaDeEntrega::kBloco, 3 * FormaDeEntrega::kBloco}) {
    for (const std::size_t pedaco : {std::size_t{1000}, FormaDeEntrega::kLinha, FormaDeEntrega::kLinha + 1}) {
      const std::string longa = "E14" + std::string(tamanho - 3, 'x');
      for (const char* fim : {"\n", "\r\n"}) {
        const Passagem feita = passa("E01\n" + longa + fim + "E15\n", pedaco);
        EXPECT_TRUE(feita.saida == "E01\r\n" + longa + "\r\nE15\r\n") << tamanho << ' ' << pedaco;
        EXPECT_EQ(feita.estranheza, Estranheza::Nenhuma);
        EXPECT_EQ(feita.linhas, 3);
      }
    }
  }
}

TEST(FormaDeEntrega, LineThatIsTooLongForASignatureIsNoEad) {
  const std::string longa = "EAD" + std::string(2 * FormaDeEntrega::kLinha, '0');
  const Passagem feita = passa("E01\n" + longa, 1000);
  EXPECT_TRUE(feita.saida == "E01\r\n" + longa + "\r\n");
  EXPECT_FALSE(feita.ead);
}

TEST(FormaDeEntrega, ReadingThatFailsIsTold) {
  FormaDeEntrega forma(FinsDeLinha::CrLf, [](std::string_view) {});
  try {
    passaTudo(
        [](char*, std::size_t) {
          errno = EIO;
          return -1L;
        },
        forma);
    FAIL();
  } catch (const ErroDaAssinatura& erro) {
    EXPECT_EQ(erro.problema(), ProblemaDaAssinatura::Leitura);
    EXPECT_EQ(erro.numero(), EIO);
  }
}

}  // namespace
