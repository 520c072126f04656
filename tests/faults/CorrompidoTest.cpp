// Damaged databases: whatever stands in the file, a run ends, and with an error, or with the right report, or
// with the report of the other database that the damage made of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>

#include "Cena.h"
#include "Prova.h"
#include "Relato.h"

namespace {

constexpr std::size_t kPasso = 512;
constexpr int kPaginas[] = {512, 1024, 4096};

// What the cases of a test turned out to be.
struct Contas {
  long avisados = 0, certos = 0, outros = 0;
  void soma(Veredito veredito) {
    ++(veredito == Veredito::Avisado ? avisados : veredito == Veredito::Certo ? certos : outros);
  }
  ~Contas() {
    std::printf("  %ld errors, %ld right reports, %ld reports of another database\n", avisados, certos,
                outros);
  }
};

// A sound database as the bytes of its file and of its write-ahead log or journal, and what a run makes of
// it.
class Sao {
 public:
  explicit Sao(int bytesDaPagina) : pagina_(static_cast<std::size_t>(bytesDaPagina)) {
    criaBancoDeProva(caminho(), bytesDaPagina);
    banco = leBytes(caminho());
  }

  // Keeps what `passos` leave beside the database in the file of that suffix, while a writer lives.
  void comAnexo(const std::string& sufixo, const std::function<void(const BancoAberto&)>& passos) {
    anexo_ = sufixo;
    const BancoAberto escritor(caminho());
    passos(escritor);
    banco = leBytes(caminho());
    anexo = leBytes(caminho() + sufixo);
    EXPECT_GT(anexo.size(), 0U) << sufixo;
    sqlite3_db_config(escritor.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }

  // What each choice gives over the sound files.
  void guardaCertos() {
    poe(banco, anexo);
    const BancoAberto aberto = abre();
    for (std::size_t i = 0; i < std::size(kEscolhas); ++i) {
      const Corrida corrida = ::corre(aberto.get(), kEscolhas[i], relatorio());
      EXPECT_FALSE(corrida.avisou());
      EXPECT_GT(corrida.relatorio.size(), 500U);
      certos_[i] = corrida.relatorio;
    }
    linhas_ = linhasDoBanco(aberto.get());
    EXPECT_FALSE(linhas_.empty());
    EXPECT_TRUE(integro(aberto.get()));
  }

  // A run over damaged copies of the files.
  Veredito julga(const std::string& danificado, const std::string& anexoDanificado, std::size_t vez) const {
    const Prazo prazo;
    poe(danificado, anexoDanificado);
    const BancoAberto aberto = abre();
    const std::size_t i = vez % std::size(kEscolhas);
    return ::julga(aberto.get(), kEscolhas[i], relatorio(), certos_[i], linhas_);
  }

  // The first choice alone, unjudged.
  Corrida corre(const std::string& danificado, const std::string& anexoDanificado) const {
    const Prazo prazo;
    poe(danificado, anexoDanificado);
    return ::corre(abre().get(), kEscolhas[0], relatorio());
  }

  std::size_t pagina() const { return pagina_; }
  std::size_t quantas() const { return banco.size() / pagina_; }

  std::string banco, anexo;

 private:
  static constexpr Escolha kEscolhas[] = {{"TDM", 2}, {"TDM", 1}, {"MF", 2}, {"MFD", 1}, {"RZ", 2}};

  std::string caminho() const { return pasta_.em("base.db"); }
  std::string relatorio() const { return pasta_.em("r.txt"); }
  BancoAberto abre() const { return BancoAberto(caminho()); }

  void poe(const std::string& danificado, const std::string& anexoDanificado) const {
    for (const char* sufixo : {"-wal", "-shm", "-journal"}) unlink((caminho() + sufixo).c_str());
    escreveBytes(caminho(), danificado);
    if (!anexo_.empty()) escreveBytes(caminho() + anexo_, anexoDanificado);
  }

  PastaDeProva pasta_;
  std::size_t pagina_;
  std::string anexo_, linhas_;
  std::string certos_[std::size(kEscolhas)];
};

using Acaso = std::mt19937;

char byte(Acaso& acaso) { return static_cast<char>(acaso() & 0xffU); }

void sorteia(std::string& texto, std::size_t de, std::size_t quantos, Acaso& acaso) {
  for (std::size_t i = de; i < std::min(de + quantos, texto.size()); ++i) texto[i] = byte(acaso);
}

// Up to eight bytes within the block.
void salpica(std::string& texto, std::size_t de, std::size_t quantos, Acaso& acaso) {
  for (unsigned n = 1 + acaso() % 8; n > 0; --n)
    texto[std::min(de + acaso() % quantos, texto.size() - 1)] = byte(acaso);
}

// Damage to the block of bytes `de` to `de + quantos` of a file.
using Dano = std::function<void(std::string& texto, std::size_t de, std::size_t quantos, Acaso& acaso)>;

void zera(std::string& texto, std::size_t de, std::size_t quantos, Acaso& /*acaso*/) {
  std::fill_n(texto.begin() + static_cast<std::ptrdiff_t>(de), std::min(quantos, texto.size() - de), '\0');
}

class Corrompido : public testing::TestWithParam<int> {
 protected:
  Corrompido() : sao(GetParam()) { sao.guardaCertos(); }

  // Each page damaged so, `vezes` times with other luck.
  void cadaPagina(Relato& relato, const Dano& dano, int vezes) {
    Acaso acaso(static_cast<unsigned>(GetParam()));
    for (int vez = 0; vez < vezes; ++vez) {
      for (std::size_t i = 0; i < sao.quantas(); ++i) {
        SCOPED_TRACE("page " + std::to_string(i + 1) + ", time " + std::to_string(vez));
        std::string danificado = sao.banco;
        dano(danificado, i * sao.pagina(), sao.pagina(), acaso);
        contas.soma(sao.julga(danificado, sao.anexo, i + static_cast<std::size_t>(vez)));
        relato.caso();
      }
    }
  }

  // The number of times that makes about `total` cases of this page size.
  int vezes(std::size_t total) const {
    return static_cast<int>(std::max<std::size_t>(total / sao.quantas(), 1));
  }

  Sao sao;
  Contas contas;
};

TEST_P(Corrompido, EveryPageZeroed) {
  Relato relato("Reads", "Database with a page of zeros");
  cadaPagina(relato, zera, 1);
}

TEST_P(Corrompido, EveryPageOverwrittenWithRandomBytes) {
  Relato relato("Reads", "Database with a page of random bytes");
  cadaPagina(relato, sorteia, casos(1, vezes(2000)));
}

TEST_P(Corrompido, RandomBytesWithinEveryPage) {
  Relato relato("Reads", "Database with one to eight random bytes in a page");
  cadaPagina(relato, salpica, casos(1, vezes(4000)));
}

TEST_P(Corrompido, TruncatedAtEvery512Bytes) {
  Relato relato("Reads", "Database cut short at a multiple of 512 bytes");
  const std::size_t passo = kPasso * casos<std::size_t>(8, 1);
  for (std::size_t tamanho = 0; tamanho < sao.banco.size(); tamanho += passo) {
    SCOPED_TRACE(std::to_string(tamanho) + " bytes");
    contas.soma(sao.julga(sao.banco.substr(0, tamanho), sao.anexo, tamanho / kPasso));
    relato.caso();
  }
}

TEST_P(Corrompido, EveryByteOfTheHeader) {
  Relato relato("Reads", "Database with a wrong byte in its header");
  Acaso acaso(7);
  for (std::size_t i = 0; i < 100; i += casos<std::size_t>(6, 1)) {
    for (const char novo : {'\0', '\x01', '\x7f', '\xff', byte(acaso)}) {
      SCOPED_TRACE("byte " + std::to_string(i));
      std::string danificado = sao.banco;
      danificado[i] = novo;
      contas.soma(sao.julga(danificado, sao.anexo, i));
      relato.caso();
    }
  }
}

// The first trunk of the list of unused pages, by its number at byte 32: a run reads none of them.
TEST_P(Corrompido, RandomBytesInTheFreelist) {
  Relato relato("Reads", "Database with a damaged list of unused pages");
  std::size_t tronco = 0;
  for (std::size_t i = 32; i < 36; ++i) tronco = tronco * 256 + static_cast<unsigned char>(sao.banco[i]);
  ASSERT_GT(tronco, 0U);
  Acaso acaso(11);
  for (int vez = 0; vez < casos(4, 100); ++vez) {
    std::string danificado = sao.banco;
    sorteia(danificado, (tronco - 1) * sao.pagina(), 8 + acaso() % 64, acaso);
    EXPECT_EQ(sao.julga(danificado, sao.anexo, static_cast<std::size_t>(vez)), Veredito::Certo);
    relato.caso();
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, Corrompido, testing::ValuesIn(kPaginas));

// Changes in three transactions, kept in the write-ahead log.
void mudaTresVezes(const BancoAberto& escritor, const std::function<void()>& aposCada) {
  escritor.sql("PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0");
  for (const char* mudanca : {"UPDATE cupom_fiscal SET valor_total = 12.34",
                              "UPDATE tentativas_sb SET resultado = printf('%.*c', 9000, 's')",
                              "BEGIN; DELETE FROM item_cupom_fiscal WHERE seq_item = 1; UPDATE dados_ecf SET "
                              "modelo = 'OUTRO'; COMMIT"}) {
    escritor.sql(mudanca);
    aposCada();
  }
}

// Every page or frame of the write-ahead log or journal damaged, and the file cut short.
void danificaAnexo(Relato& relato, const Sao& sao, std::size_t passo) {
  Contas contas;
  Acaso acaso(13);
  for (const Dano& dano : {Dano(zera), Dano(sorteia), Dano(salpica)}) {
    for (std::size_t de = 0; de < sao.anexo.size(); de += kPasso * passo) {
      SCOPED_TRACE("from " + std::to_string(de));
      std::string danificado = sao.anexo;
      dano(danificado, de, kPasso, acaso);
      contas.soma(sao.julga(sao.banco, danificado, de / kPasso));
      relato.caso();
    }
  }
}

class CorrompidoComWal : public testing::Test {
 protected:
  // The report after each transaction is kept: what a log that lost its end may give, beside an error.
  CorrompidoComWal() : sao(1024) {
    sao.comAnexo("-wal", [this](const BancoAberto& escritor) {
      const auto guarda = [&] { estados.push_back(correReferencia(escritor.get(), {"TDM", 2}).relatorio); };
      guarda();
      mudaTresVezes(escritor, guarda);
    });
    sao.guardaCertos();
  }

  Sao sao;
  std::vector<std::string> estados;
};

TEST_F(CorrompidoComWal, LogCutShortGivesTheReportOfACommit) {
  Relato relato("Reads", "Write-ahead log cut short at a multiple of 512 bytes");
  for (std::size_t tamanho = 0; tamanho < sao.anexo.size(); tamanho += kPasso * casos<std::size_t>(4, 1)) {
    SCOPED_TRACE(std::to_string(tamanho) + " bytes");
    const Corrida corrida = sao.corre(sao.banco, sao.anexo.substr(0, tamanho));
    EXPECT_FALSE(corrida.avisou());
    EXPECT_TRUE(std::find(estados.begin(), estados.end(), corrida.relatorio) != estados.end());
    relato.caso();
  }
}

TEST_F(CorrompidoComWal, LogDamagedAnywhere) {
  Relato relato("Reads", "Write-ahead log with 512 bytes of zeros or random bytes");
  danificaAnexo(relato, sao, casos<std::size_t>(16, 1));
}

TEST_F(CorrompidoComWal, EveryPageUnderASoundLog) {
  Relato relato("Reads", "Database with a damaged page under a sound write-ahead log");
  Contas contas;
  Acaso acaso(17);
  for (std::size_t i = 0; i < sao.quantas(); i += casos<std::size_t>(8, 1)) {
    for (const Dano& dano : {Dano(zera), Dano(sorteia), Dano(salpica)}) {
      SCOPED_TRACE("page " + std::to_string(i + 1));
      std::string danificado = sao.banco;
      dano(danificado, i * sao.pagina(), sao.pagina(), acaso);
      contas.soma(sao.julga(danificado, sao.anexo, i));
      relato.caso();
    }
  }
}

class CorrompidoComDiario : public testing::Test {
 protected:
  // A transaction that its writer left half-way, a part of it in the database already.
  CorrompidoComDiario() : sao(1024) {
    sao.comAnexo("-journal", [](const BancoAberto& escritor) {
      escritor.sql(
          "PRAGMA cache_size = 5; BEGIN IMMEDIATE; UPDATE cupom_fiscal SET valor_total = 12.34;"
          "UPDATE item_cupom_fiscal SET valor_total = 1; UPDATE tentativas_sb SET resultado = 's'");
    });
    sao.guardaCertos();
  }

  Sao sao;
};

TEST_F(CorrompidoComDiario, JournalDamagedAnywhere) {
  Relato relato("Reads", "Journal of an unfinished transaction with 512 bytes of zeros or random bytes");
  danificaAnexo(relato, sao, casos<std::size_t>(8, 1));
}

TEST_F(CorrompidoComDiario, JournalCutShort) {
  Relato relato("Reads", "Journal of an unfinished transaction cut short at a multiple of 512 bytes");
  Contas contas;
  for (std::size_t tamanho = 0; tamanho < sao.anexo.size(); tamanho += kPasso * casos<std::size_t>(4, 1)) {
    SCOPED_TRACE(std::to_string(tamanho) + " bytes");
    contas.soma(sao.julga(sao.banco, sao.anexo.substr(0, tamanho), tamanho / kPasso));
    relato.caso();
  }
}

// The program over a copy of base.db with a damaged page, or cut short.
class CorrompidoNoPrograma : public Cena {
 protected:
  CorrompidoNoPrograma() {
    criaBancoDeProva(em("base.db"), kPagina);
    banco_ = leBytes(em("base.db"));
  }

  std::string danificado(int vez, Acaso& acaso) const {
    static const Dano kDanos[] = {zera, sorteia, salpica};
    std::string bytes = banco_;
    const std::size_t pagina = acaso() % (bytes.size() / kPagina);
    if (vez % 4 == 3) return bytes.substr(0, (acaso() % (bytes.size() / kPasso)) * kPasso);
    kDanos[vez % 4](bytes, pagina * kPagina, kPagina, acaso);
    return bytes;
  }

  // Its status is one of those that the help names, and only 0 leaves a report: what the second reading makes
  // of the same file, without a message.
  void confere(const Fim& fim) {
    EXPECT_TRUE(fim.situacao == 0 || fim.situacao == 1 || fim.situacao == 3 || fim.situacao == 5)
        << fim.erros;
    EXPECT_EQ(fim.sinal, 0);
    EXPECT_EQ(fim.situacao == 0, fim.erros.empty());
    EXPECT_EQ(nomes(), fim.situacao == 0 ? (std::vector<std::string>{"base.db", "r.txt"})
                                         : std::vector<std::string>{"base.db"});
    if (fim.situacao != 0) return;
    // Of a database that is opened for reading alone, SQLite does not look at the constraints.
    const BancoAberto banco(em("base.db"), nullptr, SQLITE_OPEN_READONLY);
    const Corrida segunda = correReferencia(banco.get(), {"TDM", 2});
    EXPECT_FALSE(segunda.avisou()) << testing::PrintToString(segunda.mensagens);
    EXPECT_TRUE(semCarimbo(leBytes(em("r.txt"))) == semCarimbo(segunda.relatorio));
  }

 private:
  static constexpr std::size_t kPagina = 512;

  std::string banco_;
};

TEST_F(CorrompidoNoPrograma, StatusIsADocumentedErrorOrTheReportIsRight) {
  Relato relato("Reads", "cotepe generate over a damaged database");
  Acaso acaso(19);
  for (int vez = 0; vez < casos(80, 2000); ++vez) {
    SCOPED_TRACE("time " + std::to_string(vez));
    const Prazo prazo;
    escreveBytes(em("base.db"), danificado(vez, acaso));
    confere(gera({"--output", "r.txt", "--quiet", "--layout", "2"}));
    unlink(em("r.txt").c_str());
    relato.caso();
  }
}

}  // namespace
