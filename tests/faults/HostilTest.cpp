// Contents that no printer writes: each column that is read holds each of them in its turn.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

#include "BancoCheio.h"
#include "Plano.h"
#include "Relato.h"
#include "referencia/Valor.h"

namespace {

using referencia::Valor;

std::string bytes(int de, int ate) {
  std::string texto;
  for (int byte = de; byte <= ate; ++byte) texto += static_cast<char>(byte);
  return texto;
}

std::vector<Valor> textos(const std::vector<std::string>& lista) {
  std::vector<Valor> valores;
  for (const std::string& texto : lista) valores.push_back(Valor::texto(texto));
  return valores;
}

// clang-format off
std::vector<Valor> hostis() {
  constexpr std::size_t kMegabyte = 1 << 20;
  std::vector<Valor> todos = textos({
      "", " ", "A\rB", "A\nB", "A\tB", "\r\n", "\n", "\t42", bytes(128, 255), bytes(1, 31) + "\x7f",
      std::string("AB\0CD", 5), std::string("\0", 1), std::string("12\0" "34", 5), std::string("2024-01-15\0 10:11:12", 20),
      "\xc3", "\xe2\x82", "\xf0\x9f\x98", "\xed\xa0\x80", "\xc0\x80", "A\x80Z", "\xff\xfe", "1\xe7" "2", "A\xc3\xa7\xc3\xa3o",
      "-1", "-0", "-1234567", "-123456789012345", "-0.005", "-99999999999999999999", "--1", "- 1",
      "1e5", "1E-2", "1.5e+3", "1e", "1e400", "-1e400", "1e-400", "0x1A", "0x1p4", "0b11", "0777",
      "  42", "+42", " +42", "   ", " \v\f42", "+-1", "1000000000000000000000000000000", "1e30", "-1e30",
      "1000000000000000000000000000000.99", "9223372036854775807", "9223372036854775808", "18446744073709551616",
      "nan", "NaN", "-nan", "inf", "-Infinity", "%s%n", "%d%d%d%d%n", "100%", "'", "''", "\"", "a'b\"c", "'; DROP TABLE moeda; --",
      "1,5", "1.234,56", "1.2.3", ".", ",", "0000-00-00 00:00:00", "0000-01-01 00:00:00", "9999-12-31 23:59:59",
      "10000-01-01 00:00:00", "2024-01-15", "2024-01-15T10:11:12", "15/01/2024 10:11:12", "T", "Talvez", "SIM", "CC", "RZ", "NCX"});
  const std::vector<Valor> outros = {
      {}, Valor::doInteiro(0), Valor::doInteiro(-1), Valor::doInteiro(1234567890123),
      Valor::doInteiro(std::numeric_limits<std::int64_t>::min()), Valor::doInteiro(std::numeric_limits<std::int64_t>::max()),
      Valor::doReal(0.5), Valor::doReal(-1.005), Valor::doReal(1e30), Valor::doReal(-1e300), Valor::doReal(HUGE_VAL),
      Valor::blob(""), Valor::blob("2024-01-15 10:11:12"), Valor::blob(std::string("AB\0CD", 5)), Valor::blob(bytes(0, 255)),
      Valor::texto(std::string(kMegabyte, 'x')), Valor::texto(std::string(kMegabyte, '9')),
      Valor::texto(std::string(kMegabyte, '\xe7')), Valor::blob(std::string(kMegabyte, '.'))};
  todos.insert(todos.end(), outros.begin(), outros.end());
  return todos;
}
// clang-format on

std::string descreve(const Valor& valor) {
  std::ostringstream texto;
  switch (valor.classe) {
    case Valor::Classe::Nulo:
      return "NULL";
    case Valor::Classe::Inteiro:
      texto << "integer " << valor.inteiro;
      break;
    case Valor::Classe::Real:
      texto << "real " << valor.real;
      break;
    default:
      texto << (valor.classe == Valor::Classe::Blob ? "blob of " : "text of ") << valor.bytes.size()
            << " bytes " << testing::PrintToString(valor.bytes.substr(0, 40));
  }
  return texto.str();
}

// One value of the database.
struct Lugar {
  std::string tabela, coluna;
  int linha;  // rowid
};

std::string inteiroDe(sqlite3* banco, const std::string& sql) {
  sqlite3_stmt* declaracao = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(banco, sql.c_str(), -1, &declaracao, nullptr), SQLITE_OK) << sql;
  EXPECT_EQ(sqlite3_step(declaracao), SQLITE_ROW) << sql;
  const std::string texto = reinterpret_cast<const char*>(sqlite3_column_text(declaracao, 0));
  sqlite3_finalize(declaracao);
  return texto;
}

// Every column that is read, in a row with others on both sides: of each kind of rows that a table has, one.
std::vector<Lugar> lugares(sqlite3* banco) {
  std::vector<Lugar> todos;
  for (const auto& [tabela, coluna] : colunasLidas(banco)) {
    const int linhas = std::stoi(inteiroDe(banco, "SELECT COUNT(*) FROM " + tabela));
    EXPECT_GE(linhas, 3) << tabela;
    todos.push_back({tabela, coluna, 2});
    if (linhas > 3) todos.push_back({tabela, coluna, linhas - 1});
  }
  return todos;
}

void poe(sqlite3* banco, const Lugar& lugar, const Valor& valor) {
  sqlite3_stmt* declaracao = nullptr;
  const std::string sql =
      "UPDATE " + lugar.tabela + " SET " + lugar.coluna + " = ? WHERE rowid = " + std::to_string(lugar.linha);
  ASSERT_EQ(sqlite3_prepare_v2(banco, sql.c_str(), -1, &declaracao, nullptr), SQLITE_OK) << sql;
  EXPECT_EQ(valor.liga(declaracao, 1), SQLITE_OK);
  EXPECT_EQ(sqlite3_step(declaracao), SQLITE_DONE);
  EXPECT_EQ(sqlite3_finalize(declaracao), SQLITE_OK);
  EXPECT_EQ(sqlite3_changes(banco), 1);
}

// --- What of a report has to stay ---

// A report with gaps: the bytes that stand between them.
using ComLacunas = std::vector<std::string>;

testing::AssertionResult corresponde(const std::string& arquivo, const ComLacunas& partes) {
  std::size_t de = 0;
  for (std::size_t i = 0; i < partes.size(); ++i) {
    const std::size_t onde = i == 0 ? 0 : arquivo.find(partes[i], de);
    if (onde == std::string::npos || arquivo.compare(onde, partes[i].size(), partes[i]) != 0)
      return testing::AssertionFailure() << "these lines are not where they were:\n" << partes[i];
    de = onde + partes[i].size();
  }
  const std::string& fim = partes.back();
  const bool noFim =
      arquivo.size() >= fim.size() && arquivo.compare(arquivo.size() - fim.size(), fim.size(), fim) == 0;
  return noFim ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "these lines are not the last:\n"
                                             << fim;
}

// Whether a query that reads the column also chooses, joins or sorts rows by it, or may: it names it behind
// its columns.
bool escolheLinhas(const std::string& sql, const std::string& coluna) {
  const auto separa = [](char c) { return c != '_' && std::isalnum(static_cast<unsigned char>(c)) == 0; };
  for (std::size_t i = sql.find(" FROM "); (i = sql.find(coluna, i)) != std::string::npos; ++i)
    if (separa(sql[i - 1]) && (i + coluna.size() == sql.size() || separa(sql[i + coluna.size()])))
      return true;
  return false;
}

// What of a report does not depend on the value in one place: all of the registers that do not read its
// column; of the others, unless the column chooses rows or the row's content stands in a line with that of
// others, the lines that stay, in one piece before and one behind, when the row is deleted.
class Intocado {
 public:
  Intocado(Bancada& bancada, const Modo& modo, const NomeDoRelatorio& relatorio)
      : bancada_(bancada),
        modo_(modo),
        relatorio_(relatorio),
        inteira_(corre(bancada.gerador(), modo, relatorio)) {}

  // Empty when nothing is known to stay.
  ComLacunas exceto(const Lugar& lugar) {
    ComLacunas partes = {""};
    if (le(plano(modo_)[0], lugar)) return {};
    const std::string semEla = semALinha(lugar);
    for (const cotepe::Registro* registro : cotepe::kCatalogo) {
      if (!registro->despachado(modo_.comando.c_str(), modo_.versao)) continue;
      const auto linhas = linhasDo(inteira_.arquivo, registro->codigo);
      if (!leitores(lugar).count(registro->codigo)) {
        junta(partes.back(), linhas.begin(), linhas.end());
        continue;
      }
      const auto ficam = linhasDo(semEla, registro->codigo);
      auto [antes, depois] = escolhidas(lugar, registro->codigo) ? std::pair<std::size_t, std::size_t>()
                                                                 : doisLados(linhas, ficam);
      junta(partes.back(), linhas.begin(), linhas.begin() + static_cast<std::ptrdiff_t>(antes));
      partes.emplace_back();
      junta(partes.back(), linhas.end() - static_cast<std::ptrdiff_t>(depois), linhas.end());
    }
    return partes;
  }

  // Whether in some register only the row's own lines may change.
  bool temLinhaPropria(const Lugar& lugar) {
    const auto codigos = leitores(lugar);
    return std::any_of(codigos.begin(), codigos.end(), [&](const std::string& codigo) {
      const auto [antes, depois] =
          doisLados(linhasDo(inteira_.arquivo, codigo), linhasDo(semALinha(lugar), codigo));
      return !codigo.empty() && !escolhidas(lugar, codigo) && antes + depois > 0;
    });
  }

 private:
  using Linhas = std::vector<std::string>;

  static void junta(std::string& parte, Linhas::const_iterator de, Linhas::const_iterator ate) {
    for (; de != ate; ++de) parte += *de + "\n";
  }

  // How many lines stand before and behind those that go with a row; none when lines change as it goes.
  static std::pair<std::size_t, std::size_t> doisLados(const Linhas& todas, const Linhas& ficam) {
    const auto [fim, daqui] = std::mismatch(todas.begin(), todas.end(), ficam.begin(), ficam.end());
    const auto antes = static_cast<std::size_t>(fim - todas.begin());
    const auto depois = static_cast<std::size_t>(ficam.end() - daqui);
    const bool inteiras =
        ficam.size() < todas.size() && std::equal(daqui, ficam.end(), todas.end() - (ficam.end() - daqui));
    return inteiras ? std::pair(antes, depois) : std::pair<std::size_t, std::size_t>();
  }

  bool le(const Passo& passo, const Lugar& lugar) {
    auto& lidas = lidas_[passo.sql()];
    if (lidas.empty()) lidas = colunasDe(bancada_.banco(), passo.sql());
    return lidas.count({lugar.tabela, lugar.coluna}) != 0;
  }

  std::set<std::string> leitores(const Lugar& lugar) {
    std::set<std::string> codigos;
    for (const Passo& passo : plano(modo_))
      if (le(passo, lugar)) codigos.insert(passo.codigo());
    return codigos;
  }

  bool escolhidas(const Lugar& lugar, const std::string& codigo) {
    const auto passos = plano(modo_);
    return std::any_of(passos.begin(), passos.end(), [&](const Passo& passo) {
      return passo.codigo() == codigo && le(passo, lugar) && escolheLinhas(passo.sql(), lugar.coluna);
    });
  }

  std::string semALinha(const Lugar& lugar) {
    const std::string sql = "DELETE FROM " + lugar.tabela + " WHERE rowid = " + std::to_string(lugar.linha);
    auto& relatorio = semLinha_[sql];
    if (!relatorio.empty()) return relatorio;
    bancada_.sql("BEGIN;" + sql);
    relatorio = corre(bancada_.gerador(), modo_, relatorio_).arquivo;
    bancada_.sql("ROLLBACK");
    return relatorio;
  }

  Bancada& bancada_;
  const Modo modo_;
  const NomeDoRelatorio& relatorio_;
  const Corrida inteira_;
  std::map<std::string, std::set<Coluna>> lidas_;
  std::map<std::string, std::string> semLinha_;
};

std::vector<Modo> modos() {
  std::vector<Modo> todos = {{"TDM", 1, false}, {"TDM", 2, false}};
  if (formaLonga()) todos.insert(todos.end(), {{"TDM", 2, true}, {"MF", 1, false}, {"MF", 2, false}});
  return todos;
}

TEST(Hostil, LineThatChangesElsewhereWouldBeSeen) {
  Bancada bancada;
  enche(bancada);
  const NomeDoRelatorio relatorio;
  Intocado intocado(bancada, {"TDM", 1, false}, relatorio);
  const ComLacunas partes = intocado.exceto({"cupom_fiscal", "valor_total", 2});
  ASSERT_EQ(partes.size(), 2U) << "one gap, for the line of the row";
  const std::string arquivo = corre(bancada.gerador(), {"TDM", 1, false}, relatorio).arquivo;
  const std::string dela =
      arquivo.substr(partes[0].size(), arquivo.size() - partes[0].size() - partes[1].size());
  ASSERT_EQ(linhasDe(dela).size(), 1U);
  EXPECT_EQ(posicoes(dela, 1, 3), "E14");
  EXPECT_TRUE(corresponde(arquivo, partes));
  EXPECT_TRUE(corresponde(partes[0] + "anything\nat all\n" + partes[1], partes));
  for (const std::size_t byte :
       {std::size_t{0}, partes[0].size() - 2, arquivo.size() - partes[1].size(), arquivo.size() - 2}) {
    std::string outro = arquivo;
    outro[byte] = '#';
    EXPECT_FALSE(corresponde(outro, partes)) << "byte " << byte;
  }
}

TEST(Hostil, EveryValueInEveryColumnIsAsTheSecondReadingHasItAndTouchesNoOtherLine) {
  Relato relato("Hostile contents", "every column that is read holding every hostile value, layouts 1 and 2");
  Bancada bancada;
  enche(bancada);
  const NomeDoRelatorio relatorio;
  const auto todosOsLugares = lugares(bancada.banco());
  const auto valores = hostis();
  EXPECT_GT(todosOsLugares.size(), 110U);
  const std::size_t salto = casos(11U, 1U);
  ASSERT_NE(valores.size() % salto, salto == 1 ? 1 : 0) << "the short form would try some values only";
  std::size_t vez = 0, conhecidos = 0, comLinhaPropria = 0;
  for (const Modo& modo : modos()) {
    Intocado intocado(bancada, modo, relatorio);
    for (const Lugar& lugar : todosOsLugares) {
      const ComLacunas partes = intocado.exceto(lugar);
      if (!partes.empty()) ++conhecidos;
      if (intocado.temLinhaPropria(lugar)) ++comLinhaPropria;
      for (const Valor& valor : valores) {
        if (vez++ % salto != 0) continue;
        bancada.sql("BEGIN");
        poe(bancada.banco(), lugar, valor);
        const Corrida segunda = segundaLeitura(bancada.banco(), modo);
        const Corrida corrida = corre(bancada.gerador(), modo, relatorio);
        bancada.sql("ROLLBACK");
        const auto caso = [&] {
          return lugar.tabela + "." + lugar.coluna + " of row " + std::to_string(lugar.linha) + " is " +
                 descreve(valor);
        };
        EXPECT_TRUE(corrida == segunda) << modo << ": not as the second reading: " << caso();
        EXPECT_EQ(corrida.resultado, 0) << modo << ": " << caso();
        EXPECT_TRUE(partes.empty() || corresponde(corrida.arquivo, partes)) << modo << ": " << caso();
        relato.caso();
      }
    }
  }
  EXPECT_EQ(conhecidos, (todosOsLugares.size() - 3) * modos().size()) << "all but the three of the identity";
  EXPECT_GT(comLinhaPropria, conhecidos / 3) << "places where only the row's own lines may change";
}

}  // namespace
