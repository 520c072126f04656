// The generator against the second reading of the layout, over random databases.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): mkdtemp

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "CotepeManager.h"
#include "faults/Relato.h"
#include "referencia/BancoAleatorio.h"
#include "referencia/BancoDeTeste.h"
#include "referencia/Hospedeiro.h"
#include "referencia/Referencia.h"
#include "referencia/Sorteio.h"

// The door to the two writers that no command calls.
class CotepeManagerTest {
 public:
  static void escreveE03E04(CotepeManager& gerador, FILE* relatorio) {
    gerador.ReportFile = relatorio;
    gerador.TipoE03();
    gerador.TipoE04();
    gerador.ReportFile = nullptr;
  }
};

namespace referencia {
namespace {

namespace fs = std::filesystem;

std::uint64_t doAmbiente(const char* nome, std::uint64_t padrao) {
  const char* texto = std::getenv(nome);
  return texto == nullptr ? padrao : std::strtoull(texto, nullptr, 10);
}

// A folder of the test's own, in memory where there is such a place, removed at the end.
class Pasta {
 public:
  Pasta() {
    const fs::path onde = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    std::string modelo = (onde / "cotepe-diferencial-XXXXXX").string();
    if (mkdtemp(modelo.data()) == nullptr) throw std::runtime_error("mkdtemp");
    pasta_ = modelo;
  }
  ~Pasta() {
    std::error_code ignorado;
    fs::remove_all(pasta_, ignorado);
  }
  Pasta(const Pasta&) = delete;
  Pasta& operator=(const Pasta&) = delete;

  std::string arquivo(const std::string& nome) const { return (pasta_ / nome).string(); }

 private:
  fs::path pasta_;
};

// Everything that can be seen of one run, the queries that were started included.
struct Vista {
  Saida saida;
  std::vector<std::string> consultas;
};

int anota(unsigned tipo, void* consultas, void* /*stmt*/, void* sql) {
  if (tipo == SQLITE_TRACE_STMT)
    static_cast<std::vector<std::string>*>(consultas)->emplace_back(static_cast<const char*>(sql));
  return 0;
}

// When queries are broken off: after every `passos` steps of SQLite's machine, by the lot of `sorteio`.
struct Interrupcao {
  int passos = 0;  // 0: never
  int umaEm = 1;
  std::uint64_t semente = 0;
};

int interrompe(void* sorteio) {
  auto* lote = static_cast<std::pair<Sorteio, int>*>(sorteio);
  return lote->first.umaEm(lote->second) ? 1 : 0;
}

// Watches a database during one run: notes its queries and breaks some of them off.
class Vigia {
 public:
  Vigia(sqlite3* banco, const Interrupcao& interrupcao, std::vector<std::string>& consultas)
      : banco_(banco), lote_(Sorteio(interrupcao.semente), interrupcao.umaEm) {
    sqlite3_trace_v2(banco_, SQLITE_TRACE_STMT, anota, &consultas);
    sqlite3_progress_handler(banco_, interrupcao.passos, interrompe, &lote_);
  }
  ~Vigia() {
    sqlite3_progress_handler(banco_, 0, nullptr, nullptr);
    sqlite3_trace_v2(banco_, 0, nullptr, nullptr);
  }
  Vigia(const Vigia&) = delete;
  Vigia& operator=(const Vigia&) = delete;

 private:
  sqlite3* banco_;
  std::pair<Sorteio, int> lote_;
};

std::string conteudo(const std::string& nome) {
  std::ifstream arquivo(nome, std::ios::binary);
  if (!arquivo) throw std::runtime_error("no report: " + nome);
  std::ostringstream bytes;
  bytes << arquivo.rdbuf();
  return bytes.str();
}

// The object is given from outside: a run must not be touched by what an earlier one left in it.
Vista doGerador(sqlite3* banco, CotepeManager& gerador, const Entrada& entrada,
                const Interrupcao& interrupcao, const std::string& relatorio) {
  identifica(entrada.serialGlobal, entrada.modeloGlobal, entrada.tipoGlobal, entrada.versaoSbGlobal);
  acertaRelogio(entrada.dataHoraDoSistema);
  recolheLog();
  gerador.setVersaoAtoCotepe(entrada.versao);
  gerador.setCAT52(entrada.cat52);

  Vista vista;
  {
    const Vigia vigia(banco, interrupcao, vista.consultas);
    vista.saida.codigo = gerador.GeraRegistrosTipoE(relatorio.c_str(), entrada.inicial.c_str(),
                                                    entrada.final.c_str(), entrada.comando.c_str());
  }
  vista.saida.arquivo = conteudo(relatorio);
  vista.saida.log = recolheLog();
  return vista;
}

Vista daReferencia(sqlite3* banco, const Entrada& entrada, const Interrupcao& interrupcao) {
  Vista vista;
  const Vigia vigia(banco, interrupcao, vista.consultas);
  vista.saida = gera(banco, entrada);
  return vista;
}

std::vector<std::string> linhas(const std::string& texto) {
  std::vector<std::string> partes;
  std::istringstream entrada(texto);
  for (std::string linha; std::getline(entrada, linha);) partes.push_back(linha);
  return partes;
}

// A long line is shown around the place where the two part.
std::string trecho(const std::string& linha, std::size_t lugar) {
  const std::size_t inicio = lugar < 120 ? 0 : lugar - 120;
  return testing::PrintToString(linha.substr(inicio, 240));
}

// The first line that differs, with its neighbours.
std::string diferenca(const std::string& nome, const std::vector<std::string>& referencia,
                      const std::vector<std::string>& gerador) {
  const auto [r, g] = std::mismatch(referencia.begin(), referencia.end(), gerador.begin(), gerador.end());
  const auto i = static_cast<std::size_t>(r - referencia.begin());
  const std::string fim = "(no more lines)";
  const std::string daReferencia = r == referencia.end() ? fim : *r;
  const std::string doGerador = g == gerador.end() ? fim : *g;
  const auto [rc, gc] =
      std::mismatch(daReferencia.begin(), daReferencia.end(), doGerador.begin(), doGerador.end());
  const auto coluna = static_cast<std::size_t>(rc - daReferencia.begin());

  std::ostringstream texto;
  texto << nome << " differs at line " << i + 1 << ", position " << coluna + 1 << "\n";
  if (i > 0) texto << "  before:    " << trecho(referencia[i - 1], 0) << "\n";
  texto << "  reference: " << trecho(daReferencia, coluna) << "\n";
  texto << "  generator: " << trecho(doGerador, coluna) << "\n";
  if (i + 1 < referencia.size()) texto << "  after:     " << trecho(referencia[i + 1], 0) << "\n";
  return texto.str();
}

testing::AssertionResult iguais(const Vista& referencia, const Vista& gerador) {
  if (referencia.saida.codigo != gerador.saida.codigo)
    return testing::AssertionFailure()
           << "result: reference " << referencia.saida.codigo << ", generator " << gerador.saida.codigo;
  if (referencia.saida.arquivo != gerador.saida.arquivo)
    return testing::AssertionFailure()
           << diferenca("report", linhas(referencia.saida.arquivo), linhas(gerador.saida.arquivo));
  if (referencia.saida.log != gerador.saida.log)
    return testing::AssertionFailure() << diferenca("log", referencia.saida.log, gerador.saida.log);
  if (referencia.consultas != gerador.consultas)
    return testing::AssertionFailure() << diferenca("queries", referencia.consultas, gerador.consultas);
  return testing::AssertionSuccess();
}

// The host's texts and the period of one database; a dirty one may be given anything.
Entrada sorteiaEntrada(Sorteio& sorteio, Nivel nivel) {
  Entrada entrada;
  entrada.inicial = "01012024";
  entrada.final = "31012024";
  entrada.dataHoraDoSistema = sorteio.umaEm(2) ? "20240131 235959" : "19991231 000001";
  if (sorteio.umaEm(2)) entrada.serialGlobal = "GLOBALSERIAL";
  if (sorteio.umaEm(2)) entrada.modeloGlobal = "GLOBALMODELO";
  if (sorteio.umaEm(2)) entrada.tipoGlobal = "GLOBALTIPO";
  if (sorteio.umaEm(2)) entrada.versaoSbGlobal = "01.02.03";
  if (nivel == Nivel::Limpo) return entrada;

  if (sorteio.umaEm(4)) entrada.serialGlobal = "29 BYTES OF SERIAL NUMBER ...";
  if (sorteio.umaEm(4)) entrada.modeloGlobal = "29 BYTES OF MODEL .......\xe7\xe3\x01.";
  if (sorteio.umaEm(4)) entrada.tipoGlobal = "14 BYTES.%s%n.";
  if (sorteio.umaEm(20)) entrada.inicial = "01012000";
  if (sorteio.umaEm(20)) entrada.final = "31129999 and more";
  if (sorteio.umaEm(60)) entrada.inicial = "'1012024";
  if (sorteio.umaEm(60)) entrada.final = "%s%n%d  ";
  if (sorteio.umaEm(60)) entrada.final = "\xff\xfe\x80\x01\x02\x03\x04\x05";
  return entrada;
}

Interrupcao sorteiaInterrupcao(Sorteio& sorteio, Nivel nivel) {
  Interrupcao interrupcao;
  if (nivel == Nivel::Limpo || !sorteio.umaEm(4)) return interrupcao;
  interrupcao.passos = sorteio.escolhe<int>({10, 40, 150});
  interrupcao.umaEm = sorteio.escolhe<int>({10, 50});
  interrupcao.semente = sorteio.proximo();
  return interrupcao;
}

std::string descreve(std::uint64_t semente, Nivel nivel, const Entrada& entrada,
                     const Interrupcao& interrupcao) {
  std::ostringstream texto;
  texto << "seed " << semente << (nivel == Nivel::Limpo ? " clean" : " dirty") << ", command "
        << entrada.comando << ", version " << entrada.versao << ", CAT52 " << (entrada.cat52 ? "on" : "off");
  if (interrupcao.passos != 0) texto << ", with queries broken off";
  return texto.str();
}

// Every command and setting over one database and one object; the first disagreement ends it.
testing::AssertionResult concordam(std::uint64_t semente, Nivel nivel, const Pasta& pasta) {
  BancoDeTeste banco;
  criaBancoAleatorio(banco.get(), semente, nivel);
  CotepeManager objeto(banco.get());
  Sorteio sorteio(~semente);
  for (const char* comando : {"MF", "MFD", "TDM", "RZ", "XX", "TDMX"})
    for (const int versao : {1, 2, 3})
      for (const bool cat52 : {false, true}) {
        Entrada entrada = sorteiaEntrada(sorteio, nivel);
        entrada.comando = comando;
        entrada.versao = versao;
        entrada.cat52 = cat52;
        const Interrupcao interrupcao = sorteiaInterrupcao(sorteio, nivel);
        const Vista referencia = daReferencia(banco.get(), entrada, interrupcao);
        const Vista gerador =
            doGerador(banco.get(), objeto, entrada, interrupcao, pasta.arquivo("relatorio.txt"));
        testing::AssertionResult resultado = iguais(referencia, gerador);
        if (!resultado) return resultado << descreve(semente, nivel, entrada, interrupcao);
      }
  return testing::AssertionSuccess();
}

// COTEPE_DIFERENCIAL: how many databases, 60 or in the long form 20,000; COTEPE_SEMENTE: the first seed. One
// database in four is clean.
TEST(Diferencial, GeneratorAgreesWithTheSecondReading) {
  const std::uint64_t quantos = doAmbiente("COTEPE_DIFERENCIAL", casos<std::uint64_t>(60, 20000));
  Relato relato("Differential",
                "random databases, all commands, layouts and modes, against a second reading");
  const std::uint64_t primeira = doAmbiente("COTEPE_SEMENTE", 1);
  const int maximoDeFalhas = 5;
  // Whatever locale the environment asks for must not matter.
  const char* idioma = std::setlocale(LC_ALL, "");
  RecordProperty("locale", idioma == nullptr ? "C" : idioma);
  const Pasta pasta;
  int falhas = 0;
  for (std::uint64_t semente = primeira; semente < primeira + quantos; semente++) {
    const testing::AssertionResult resultado =
        concordam(semente, semente % 4 == 0 ? Nivel::Limpo : Nivel::Sujo, pasta);
    EXPECT_TRUE(resultado);
    relato.caso();
    if (!resultado && ++falhas == maximoDeFalhas) break;
  }
}

std::string e03E04DoGerador(sqlite3* banco, const Entrada& entrada, const Pasta& pasta) {
  CotepeManager objeto(banco);
  const std::string relatorio = pasta.arquivo("relatorio.txt");
  EXPECT_EQ(doGerador(banco, objeto, entrada, {}, relatorio).saida.codigo, 0);
  FILE* arquivo = std::fopen(relatorio.c_str(), "wb");
  if (arquivo == nullptr) throw std::runtime_error("fopen");
  CotepeManagerTest::escreveE03E04(objeto, arquivo);
  if (std::fclose(arquivo) != 0) throw std::runtime_error("fclose");
  return conteudo(relatorio);
}

TEST(Diferencial, PlaceholdersOfNoCommandAgree) {
  const Pasta pasta;
  for (std::uint64_t semente = 1; semente <= 20; semente++) {
    BancoDeTeste banco;
    criaBancoAleatorio(banco.get(), semente, Nivel::Limpo);
    Sorteio sorteio(semente);
    Entrada entrada = sorteiaEntrada(sorteio, Nivel::Sujo);
    for (const int versao : {1, 2, 3})
      for (const bool cat52 : {false, true}) {
        entrada.versao = versao;
        entrada.cat52 = cat52;
        const std::string esperado = geraRegistro(banco.get(), entrada, "E03").arquivo +
                                     geraRegistro(banco.get(), entrada, "E04").arquivo;
        EXPECT_EQ(e03E04DoGerador(banco.get(), entrada, pasta), esperado)
            << descreve(semente, Nivel::Limpo, entrada, {});
      }
  }
}

}  // namespace
}  // namespace referencia
