// What is given as a report: the report, under gzip or not, and what is recognised as something else.
#include "Entrada/ConteudoDoRelatorio.h"

#include <sys/stat.h>
#include <zlib.h>

#include "Cena.h"

namespace {

// The text as one member of a gzip file.
std::string comprimido(const std::string& texto) {
  z_stream fluxo{};
  std::string saida(texto.size() + 1000, '\0');
  EXPECT_EQ(deflateInit2(&fluxo, 9, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY), Z_OK);
  std::string entrada = texto;
  fluxo.next_in = reinterpret_cast<Bytef*>(entrada.data());
  fluxo.avail_in = static_cast<uInt>(entrada.size());
  fluxo.next_out = reinterpret_cast<Bytef*>(saida.data());
  fluxo.avail_out = static_cast<uInt>(saida.size());
  EXPECT_EQ(deflate(&fluxo, Z_FINISH), Z_STREAM_END);
  saida.resize(saida.size() - fluxo.avail_out);
  deflateEnd(&fluxo);
  return saida;
}

class Conteudo : public Cena {
 protected:
  Conteudo() {
    criaBanco();
    EXPECT_EQ(gera({"--quiet", "--output", "r.txt"}).situacao, 0);
    relatorio_ = leArquivo(em("r.txt"));
  }

  std::string mostra(const std::string& conteudo) const {
    escreveArquivo(em("x"), conteudo);
    return roda({"show", "x"}, pasta()).saida;
  }

  void recusa(const std::string& conteudo, const std::string& porque) const {
    escreveArquivo(em("x"), conteudo);
    for (const std::vector<std::string>& comando : {std::vector<std::string>{"validate", "x"},
                                                    {"show", "x"},
                                                    {"diff", "r.txt", "x"},
                                                    {"explain", "x:1"},
                                                    {"verify", "--db", "base.db", "x"}}) {
      const Fim fim = roda(comando, pasta());
      EXPECT_EQ(fim.situacao, 2) << comando[0];
      EXPECT_EQ(fim.erros, "cotepe: error: " + porque + "\n") << comando[0];
    }
  }

  std::string relatorio_;
};

TEST_F(Conteudo, GzipIsReadAsTheReportThatIsInIt) {
  const std::string inteiro = mostra(relatorio_);
  ASSERT_NE(inteiro, "");
  EXPECT_EQ(mostra(comprimido(relatorio_)), inteiro);
  const std::string zeros(512, '\0');
  EXPECT_EQ(mostra(comprimido(relatorio_) + zeros), inteiro);
  const std::size_t meio = relatorio_.size() / 2;
  EXPECT_EQ(mostra(comprimido(relatorio_.substr(0, meio)) + comprimido(relatorio_.substr(meio))), inteiro);
}

TEST_F(Conteudo, GzipIsVerifiedAndComparedToo) {
  escreveArquivo(em("r.txt.gz"), comprimido(relatorio_));
  EXPECT_EQ(roda({"diff", "r.txt", "r.txt.gz"}, pasta()).situacao, 0);
  EXPECT_EQ(roda({"verify", "--db", "base.db", "r.txt.gz"}, pasta()).situacao, 0);
}

TEST_F(Conteudo, GzipThatIsNotWholeIsRefused) {
  const std::string inteiro = comprimido(relatorio_);
  recusa(inteiro.substr(0, inteiro.size() / 2), "the gzip file x is cut short");
  std::string outro = inteiro;
  outro[outro.size() - 6] = static_cast<char>(outro[outro.size() - 6] + 1);  // of the checksum
  recusa(outro, "the gzip file x is damaged");
}

TEST_F(Conteudo, WhatIsNoReportIsRecognised) {
  using namespace std::string_literals;
  recusa("", "cannot read the report x: it is empty");
  recusa(leArquivo(em("base.db")),
         "cannot read the report x: it is a database, not a report; give it as --db");
  recusa("PK\x03\x04" + relatorio_, "cannot read the report x: it is a zip archive; unpack it first");
  recusa("\xef\xbb\xbf" + relatorio_,
         "cannot read the report x: it begins with a UTF-8 byte order mark: an editor has saved it; take the "
         "file as "
         "it was generated");
  const char* const utf16 =
      "cannot read the report x: it is UTF-16 text: an editor has saved it; take the file as it was "
      "generated";
  recusa("\xff\xfe" + "E\0000\0001\0"s, utf16);
  recusa("E\0000\0001\0"s, utf16);
  recusa("\0E\0000\0001"s, utf16);
  recusa("\n <!DOCTYPE html>", "cannot read the report x: it is HTML or XML, not a report");
  recusa("E01\rE02\r",
         "cannot read the report x: its lines end with CR alone: it was converted; take the file as it was "
         "generated");
  recusa(comprimido("<html>"), "cannot read the report x: it is HTML or XML, not a report");
}

TEST_F(Conteudo, AReportGivenAsADatabaseIsRecognised) {
  const Fim fim = roda({"check", "--db", "r.txt"}, pasta());
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(fim.erros, "cotepe: error: cannot read the database r.txt: it is a report, not a database\n");
}

TEST_F(Conteudo, WhatIsReadTwiceIsNoPipe) {
  ASSERT_EQ(mkfifo(em("cano").c_str(), 0600), 0);
  for (const std::string nome : {"cano", "/dev/null"}) {
    const Fim fim = roda({"verify", "--db", "base.db", nome}, pasta());
    EXPECT_EQ(fim.situacao, 2);
    EXPECT_EQ(fim.erros,
              "cotepe: error: " + nome + ": the report is read more than once, so it must be a file\n");
  }
}

TEST_F(Conteudo, AnOrdinaryBeginningIsLeftToTheRules) {
  for (const char* inicio : {"E01", "ABC\n", "E\n", "x\r\ny\r\n", "\n"})
    EXPECT_EQ(cotepe::programa::oQueNaoERelatorio(inicio, true), nullptr) << inicio;
  EXPECT_EQ(cotepe::programa::oQueNaoERelatorio("", false), nullptr);
}

}  // namespace
