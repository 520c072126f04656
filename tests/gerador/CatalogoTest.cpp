#include "Registros/Catalogo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "Bancada.h"
#include "Leiaute/Composicao.h"

namespace {

using cotepe::Campo;
using cotepe::kCatalogo;
using cotepe::Registro;

// A host that knows nothing, and a run that only has settings.
class Ninguem final : public cotepe::Hospedeiro {
 public:
  void registraLog(const char* /*mensagem*/) override {}
  const char* serial() override { return ""; }
  const char* modelo() override { return ""; }
  const char* tipo() override { return ""; }
  void dataHoraAtual(char* /*saida*/) override {}
  void preenche(char* /*texto*/, char* /*destino*/, int /*largura*/) override {}
};

class SoAjustes final : public cotepe::Execucao {
 public:
  SoAjustes(const cotepe::Ajustes& ajustes, cotepe::Hospedeiro& hospedeiro) : Execucao(ajustes, hospedeiro) {}
  std::unique_ptr<cotepe::Leitura> consulta(const char* /*sql*/) override { return nullptr; }
  void grava(cotepe::Linha& /*linha*/) override {}
  void falha(const char* /*mensagem*/) override {}
};

// A row that notes which of its columns are read, all of them being `texto`.
class FonteEspia final : public cotepe::Fonte {
 public:
  explicit FonteEspia(const char* texto) : texto_(texto) {}
  const char* texto(int coluna) const override {
    lidas.insert(coluna);
    return texto_;
  }
  int bytes(int coluna) const override {
    lidas.insert(coluna);
    return 1;
  }
  mutable std::set<int> lidas;

 private:
  const char* texto_;
};

// The columns of its query that a field reads from a row of `texto`, counted from 0.
std::set<int> lidasDe(const Campo& campo, const char* texto) {
  Ninguem ninguem;
  cotepe::Ajustes ajustes;
  ajustes.versao = 2;
  ajustes.larguraDoContador = 9;
  ajustes.moduloDoContador = 1000000000;
  SoAjustes execucao(ajustes, ninguem);
  const FonteEspia fonte(texto);
  cotepe::Linha linha;
  compoe(linha, cotepe::Campos(&campo, 1), fonte, execucao);
  return fonte.lidas;
}

// The columns of its query that a field reads or names.
std::set<int> colunasLidas(const Campo& campo) {
  std::set<int> lidas = lidasDe(campo, "");
  if (campo.origem.deColuna()) lidas.insert(campo.origem.coluna);
  return lidas;
}

std::string comLimites(std::string sql) {
  for (std::size_t onde; (onde = sql.find("%s")) != std::string::npos;)
    sql.replace(onde, 2, "2024-01-01 00:00:00");
  return sql;
}

// How many columns a query returns on the bench's tables; -1 when it cannot be prepared.
int colunasDa(sqlite3* banco, const char* sql) {
  sqlite3_stmt* declaracao = nullptr;
  if (sqlite3_prepare_v2(banco, comLimites(sql).c_str(), -1, &declaracao, nullptr) != SQLITE_OK) return -1;
  const int colunas = sqlite3_column_count(declaracao);
  sqlite3_finalize(declaracao);
  return colunas;
}

// Fields whose column the writer puts behind those of the query.
bool vemDoEscritor(const Registro& registro, const Campo& campo) {
  return campo.origem.tipo == cotepe::Origem::Tipo::Relogio ||
         std::string(registro.codigo) + " " + campo.rotulo == "E10 CNPJ do usuário";
}

TEST(Catalogo, HoldsE01ToE22InOrderAndFindsEachByItsCode) {
  const std::vector<std::string> kCodigos = {"E01", "E02", "E03", "E04", "E05", "E06", "E07", "E08",
                                             "E09", "E10", "E11", "E12", "E13", "E14", "E15", "E16",
                                             "E17", "E18", "E19", "E20", "E21", "E22"};
  ASSERT_EQ(kCatalogo.size(), kCodigos.size());
  for (std::size_t i = 0; i < kCodigos.size(); ++i) {
    EXPECT_EQ(kCatalogo[i]->codigo, kCodigos[i]);
    EXPECT_EQ(cotepe::registroDe(kCodigos[i].c_str()), kCatalogo[i]);
  }
  for (const char* outro : {"E00", "E23", "e14", "E1", "E144", ""})
    EXPECT_EQ(cotepe::registroDe(outro), nullptr) << outro;
}

TEST(Catalogo, EveryQueryPreparesAndReturnsTheColumnsThatItsListReads) {
  Bancada bancada;
  for (const Registro* registro : kCatalogo) {
    SCOPED_TRACE(registro->codigo);
    std::vector<int> colunas;
    for (const auto& consulta : registro->consultas) {
      if (consulta.sql == nullptr) continue;
      colunas.push_back(colunasDa(bancada.banco(), consulta.sql));
      EXPECT_GT(colunas.back(), 0) << consulta.sql;
    }
    for (const Campo& campo : registro->campos) {
      SCOPED_TRACE(campo.rotulo);
      if (vemDoEscritor(*registro, campo)) continue;
      for (const int lida : colunasLidas(campo)) {
        const bool deCada = campo.origem.consulta == cotepe::Origem::kDeCadaConsulta;
        const auto consulta = static_cast<std::size_t>(deCada ? 0 : campo.origem.consulta);
        ASSERT_LT(consulta, colunas.size());
        for (std::size_t i = consulta; i < (deCada ? colunas.size() : consulta + 1); ++i)
          EXPECT_LT(lida, colunas[i]);
      }
    }
  }
}

// Those who trace a value back to the database rest on it.
TEST(Catalogo, AFieldThatIsWorkedOutNamesTheColumnThatDecidesIt) {
  const struct {
    const char *codigo, *rotulo, *texto;  // of a row of this text
    std::set<int> lidas;
  } kCasos[] = {{"E01", "Tipo de ECF", "", {0}}, {"E01", "Data inicial", "", {2}},
                {"E01", "Data final", "", {3}},  {"E09", "Tipo de intervenção", "X", {3}},
                {"E16", "GNF", "CN", {1, 5}},    {"E16", "GRG", "RG", {2, 5}},
                {"E16", "CDC", "CC", {3, 5}},    {"E16", "CRZ", "RZ", {4, 5}}};
  for (const auto& caso : kCasos) {
    SCOPED_TRACE(testing::Message() << caso.codigo << " " << caso.rotulo);
    const auto campos = cotepe::registroDe(caso.codigo)->campos;
    const auto* campo = std::find_if(campos.begin(), campos.end(),
                                     [&](const Campo& c) { return std::string(c.rotulo) == caso.rotulo; });
    ASSERT_NE(campo, campos.end());
    EXPECT_EQ(lidasDe(*campo, caso.texto), caso.lidas);
    EXPECT_EQ(campo->origem.coluna, *caso.lidas.begin());
  }
}

TEST(Catalogo, EveryQueryOfARegisterIsThere) {
  const struct {
    const char* codigo;
    int consultas;
  } kCasos[] = {{"E01", 4}, {"E02", 3}, {"E03", 0}, {"E04", 0}, {"E05", 2}, {"E06", 2},
                {"E07", 1}, {"E08", 1}, {"E09", 1}, {"E10", 2}, {"E11", 1}, {"E12", 1},
                {"E13", 2}, {"E14", 1}, {"E15", 1}, {"E16", 1}, {"E17", 1}, {"E18", 1},
                {"E19", 1}, {"E20", 1}, {"E21", 1}, {"E22", 1}};
  for (const auto& caso : kCasos) {
    const auto& consultas = cotepe::registroDe(caso.codigo)->consultas;
    EXPECT_EQ(std::count_if(std::begin(consultas), std::end(consultas), [](const auto& c) { return c.sql; }),
              caso.consultas)
        << caso.codigo;
  }
}

TEST(Catalogo, RecordsHaveTheirLengthInEverySetting) {
  const struct {
    const char* codigo;
    int foraDoCat52[3];  // layouts 1, 2 and 3
    int noCat52[3];
  } kCasos[] = {{"E01", {166, 166, 166}, {166, 166, 166}}, {"E02", {272, 272, 272}, {272, 272, 272}},
                {"E03", {106, 106, 106}, {106, 106, 106}}, {"E04", {112, 112, 112}, {112, 112, 112}},
                {"E05", {82, 82, 82}, {82, 82, 82}},       {"E06", {76, 76, 76}, {76, 76, 76}},
                {"E07", {62, 62, 62}, {62, 62, 62}},       {"E08", {78, 78, 78}, {78, 78, 78}},
                {"E09", {65, 79, 65}, {65, 79, 65}},       {"E10", {84, 90, 90}, {84, 90, 90}},
                {"E11", {136, 136, 136}, {136, 136, 136}}, {"E12", {101, 104, 104}, {101, 104, 104}},
                {"E13", {72, 72, 72}, {72, 72, 72}},       {"E14", {191, 885, 197}, {191, 197, 197}},
                {"E15", {267, 273, 273}, {267, 273, 273}}, {"E16", {90, 99, 99}, {90, 99, 99}},
                {"E17", {80, 80, 80}, {80, 80, 80}},       {"E18", {80, 80, 80}, {80, 80, 80}},
                {"E19", {191, 197, 197}, {191, 197, 197}}, {"E20", {142, 148, 148}, {142, 148, 148}},
                {"E21", {106, 115, 115}, {106, 115, 115}}, {"E22", {55, 55, 55}, {55, 55, 55}}};
  EXPECT_EQ(std::size(kCasos), kCatalogo.size());
  for (const auto& caso : kCasos) {
    for (const int versao : {1, 2, 3}) {
      SCOPED_TRACE(testing::Message() << caso.codigo << " in layout " << versao);
      const auto campos = cotepe::registroDe(caso.codigo)->campos;
      EXPECT_EQ(comprimento(campos, versao, false), caso.foraDoCat52[versao - 1]);
      EXPECT_EQ(comprimento(campos, versao, true), caso.noCat52[versao - 1]);
    }
  }
}

TEST(Catalogo, PlaceholdersAreAsLongAsDataExceptE07AndE09) {
  using Comprimentos = std::vector<std::size_t>;  // one a line
  const struct {
    const char* codigo;
    Comprimentos foraDoCat52[3];  // layouts 1, 2 and 3
    Comprimentos noCat52;         // the same in every layout
  } kCasos[] = {{"E03", {{106}, {106}, {106}}, {106}},
                {"E04", {{112}, {112}, {112}}, {}},
                {"E05", {{82}, {82}, {82}}, {82}},
                {"E06", {{76}, {76}, {76}}, {76}},
                {"E07", {{18}, {18}, {18}}, {18}},
                {"E08", {{78}, {78}, {78}}, {78}},
                {"E09", {{65}, {78}, {65}}, {}},
                {"E10", {{84}, {90}, {90}}, {}},
                {"E11", {{136}, {136}, {136}}, {136}},
                {"E12", {{101}, {104}, {104}}, {}},
                {"E13", {{72, 72}, {72, 72}, {72, 72}}, {72}},
                {"E14", {{191}, {885}, {197}}, {}},
                {"E15", {{267}, {273}, {273}}, {}},
                {"E16", {{90}, {99}, {99}}, {}},
                {"E17", {{80}, {80}, {80}}, {}},
                {"E18", {{80}, {80}, {80}}, {}},
                {"E19", {{191}, {197}, {197}}, {}},
                {"E20", {{142}, {148}, {148}}, {}},
                {"E21", {{106}, {115}, {115}}, {}},
                {"E22", {{}, {}, {}}, {}},
                {"E02", {{}, {}, {}}, {}}};
  const auto comprimentos = [](const std::vector<std::string>& linhas) {
    Comprimentos tamanhos;
    for (const std::string& linha : linhas) tamanhos.push_back(linha.size());
    return tamanhos;
  };
  for (const auto& caso : kCasos) {
    for (const int versao : {1, 2, 3}) {
      SCOPED_TRACE(testing::Message() << caso.codigo << " in layout " << versao);
      Bancada bancada;
      bancada.versao(versao);
      EXPECT_EQ(comprimentos(bancada.registro(caso.codigo)), caso.foraDoCat52[versao - 1]);
      bancada.cat52(true);
      EXPECT_EQ(comprimentos(bancada.registro(caso.codigo)), caso.noCat52);
    }
  }
}

TEST(Catalogo, LabelsAreUniqueWithinARegister) {
  for (const Registro* registro : kCatalogo) {
    std::set<std::string> vistos;
    for (const Campo& campo : registro->campos) {
      EXPECT_NE(std::string(campo.rotulo), "") << registro->codigo;
      EXPECT_TRUE(vistos.insert(campo.rotulo).second) << registro->codigo << ": " << campo.rotulo;
    }
  }
}

TEST(Catalogo, EveryFieldHasAWidth) {
  for (const Registro* registro : kCatalogo)
    for (const Campo& campo : registro->campos)
      EXPECT_GT(larguraNominal(campo, 1), 0) << registro->codigo << ": " << campo.rotulo;
}

}  // namespace
