// A register that no law has, of one query: what its file says is all that every command needs to know of it.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "Comparacao/Comparacao.h"
#include "ExecucaoSqlite.h"
#include "Exibicao/Exibicao.h"
#include "Explicacao/Explicacao.h"
#include "Explicacao/Procedencia.h"
#include "Leiaute/Especies.h"
#include "TabelaDoLeiaute.h"
#include "Validacao/Validacao.h"

namespace cotepe {
namespace {

constexpr Codigo kRespostas[] = {{"S", "attended"}, {"N", "not attended"}};

// clang-format off
constexpr auto kCampos = registroComum("E99", {
    contador6("Nº da visita",         coluna(0)),
    data     ("Data da visita",       coluna(1)).sempreHa(),
    letra    ("Atendida (S/N)",       coluna(2)).podeSer(kRespostas),
    texto    ("Nome do visitante", 6, coluna(3)).pessoal().nota("cut after six letters"),
    dinheiro ("Valor gasto",       9, coluna(4)),
});
// clang-format on
static_assert(comprimento(kCampos, 1, false) == 74);

constexpr Registro kE99 = Registro("E99", "Visitas", kCampos, escreveTabela)
                              .consulta(
                                  "SELECT numero, dia, atendida, nome, gasto FROM visita"
                                  " WHERE dia >= '%s' AND dia <= '%s' ORDER BY numero",
                                  "Erro no select - TipoE99")
                              .nosComandos(kTDM)
                              .vazioForaDoCat52()
                              .comChave("Nº da visita")
                              .emOrdemDe("Nº da visita")
                              .semRepetirChave()
                              .comData("Data da visita");

constexpr std::array<const Registro*, 2> kLista = {&kE01, &kE99};
constexpr Catalogo kComVisitas = kLista;

const std::string kCabecalho = "E990000000000000ABC0001 MODELO              ";
const std::string kPrimeira = kCabecalho + "00000720240115SMARIA 000012345";
const std::string kSegunda = kCabecalho + "00000820240116NJOSE  000000005";
const std::string kVazia = kCabecalho + "000000               000000000";

class Aplicacao final : public Hospedeiro {
 public:
  void registraLog(const char* mensagem) override { log += mensagem; }
  const char* serial() override { return ""; }
  const char* modelo() override { return ""; }
  const char* tipo() override { return ""; }
  void dataHoraAtual(char* /*saida*/) override {}
  void preenche(char* /*texto*/, char* /*destino*/, int /*largura*/) override {}

  std::string log;
};

class Achados final : public RecebeAchados {
 public:
  void recebe(const Achado& achado) override {
    ditos.push_back(achado.regra + " line " + std::to_string(achado.linha) + " " + achado.campo + ": " +
                    achado.encontrado + ", expected " + achado.esperado);
  }

  std::vector<std::string> ditos;
};

using Textos = std::vector<std::string>;

class RegistroNovo : public testing::Test {
 protected:
  RegistroNovo() {
    sqlite3* banco = nullptr;
    sqlite3_open(":memory:", &banco);
    banco_.reset(banco);
    ajustes_.larguraDoContador = larguraDoContador(1);
    ajustes_.moduloDoContador = moduloDoContador(1);
    ajustes_.nrFabricacao = "0000000000000ABC0001";
    ajustes_.modelo = "MODELO";
    ajustes_.comando = "TDM";
    ajustes_.dataHoraInicial = "2024-01-01 00:00:00";
    ajustes_.dataHoraFinal = "2024-01-31 23:59:59";
    executa("CREATE TABLE visita (numero INTEGER PRIMARY KEY, dia, atendida, nome, gasto)");
  }

  void executa(const char* sql) {
    ASSERT_EQ(sqlite3_exec(banco_.get(), sql, nullptr, nullptr, nullptr), SQLITE_OK);
  }

  void comVisitas() {
    executa(
        "INSERT INTO visita VALUES (8, '2024-01-16 10:00:00', 'N', 'JOSE', '0.05'),"
        " (7, '2024-01-15 09:00:00', 'S', 'MARIA', '123.45'), (9, '2024-02-01 08:00:00', 'S', 'ANA', '1')");
  }

  std::string gera() {
    char* texto = nullptr;
    std::size_t tamanho = 0;
    FILE* relatorio = open_memstream(&texto, &tamanho);
    ExecucaoSqlite execucao(banco_.get(), relatorio, ajustes_, aplicacao_);
    kE99.escreve(execucao, kE99);
    std::fclose(relatorio);
    std::string gerado(texto, tamanho);
    std::free(texto);
    return gerado;
  }

  struct Fecha {
    void operator()(sqlite3* banco) const { sqlite3_close(banco); }
  };
  std::unique_ptr<sqlite3, Fecha> banco_;
  Ajustes ajustes_;
  Aplicacao aplicacao_;
};

TEST_F(RegistroNovo, IsWrittenWithItsRowsItsPlaceholderAndItsMessage) {
  EXPECT_EQ(gera(), kVazia + '\n');
  comVisitas();
  EXPECT_EQ(gera(), kPrimeira + '\n' + kSegunda + '\n');
  ajustes_.cat52 = true;
  executa("DELETE FROM visita");
  EXPECT_EQ(gera(), "");
  executa("DROP TABLE visita");
  EXPECT_EQ(gera(), "");
  EXPECT_EQ(aplicacao_.log, "Erro no select - TipoE99");
}

TEST_F(RegistroNovo, IsReadAndItsPlaceholderKnown) {
  const std::string texto = kPrimeira + '\n' + kVazia + '\n';
  LeitorDeLinhas linhas{std::string_view(texto)};
  LeitorDeRegistros registros(linhas, kComVisitas);
  RegistroLido lido;
  ASSERT_TRUE(registros.proximo(lido));
  EXPECT_EQ(lido.registro, &kE99);
  EXPECT_TRUE(lido.medidaCerta);
  EXPECT_FALSE(lido.vazio);
  EXPECT_EQ(Coluna(kE99, "Nome do visitante").bytes(lido), "MARIA ");
  ASSERT_TRUE(registros.proximo(lido));
  EXPECT_TRUE(lido.vazio);
}

TEST_F(RegistroNovo, IsValidatedByWhatItsRowsSay) {
  std::string ruim = kSegunda + '\n' + kPrimeira + '\n' + kPrimeira + '\n' + kPrimeira + '\n';
  ruim.replace(ruim.size() - 17, 1, "X");  // the flag of the last line
  ruim.replace(2 * (kPrimeira.size() + 1) + kCabecalho.size() + 6, 8, "        ");  // the day of the third
  LeitorDeLinhas linhas{std::string_view(ruim)};
  Achados achados;
  OpcoesDeValidacao opcoes;
  opcoes.catalogo = kComVisitas;
  ASSERT_TRUE(Validacao(achados, opcoes).valida(linhas));
  EXPECT_EQ(
      achados.ditos,
      (Textos{
          "key-order line 2 Nº da visita: \"000007\" after \"000008\", expected ascending keys",
          "date-backwards line 2 Data da visita: \"20240115\" after \"20240116\", expected no earlier day",
          "field-date line 3 Data da visita: \"        \", expected a day as AAAAMMDD",
          "counter-repeat line 3 Nº da visita: \"000007\" a second time, expected each key once",
          "field-letter line 4 Atendida (S/N): \"X\", expected S or N",
          "counter-repeat line 4 Nº da visita: \"000007\" a second time, expected each key once",
          "register-missing line 0 : no line of E01, expected E01 as the first register"}));
}

TEST_F(RegistroNovo, IsShownWithItsPersonalDataMasked) {
  LeitorDeLinhas linhas{std::string_view(kPrimeira)};
  LeitorDeRegistros registros(linhas, kComVisitas);
  std::ostringstream saida;
  const auto exibicao = novaExibicao(FormatoDeExibicao::CsvDeUmRegistro, saida, true);
  RegistroLido lido;
  ASSERT_TRUE(registros.proximo(lido));
  exibicao->mostra(lido);
  EXPECT_EQ(saida.str(),
            "line,Tipo do registro,Nº de fabricação do ECF,MF adicional,Modelo do ECF,Nº da visita,Data da "
            "visita,Atendida (S/N),Nome do visitante,Valor gasto\n"
            "1,E99,0000000000000ABC0001,,MODELO,7,2024-01-15,S,*****,123.45\n");
}

TEST_F(RegistroNovo, HasATable) {
  const auto tabelas = programa::tabelasDe(kE99, {1, 2}, false);
  ASSERT_EQ(tabelas.size(), 1U);
  EXPECT_EQ(tabelas[0].comprimento, 74);
  EXPECT_EQ(programa::comandosDe(kE99), Textos{"TDM"});
  const auto& nome = tabelas[0].linhas[7];
  EXPECT_EQ(nome.chave, "nome_visitante");
  EXPECT_EQ(nome.de, 60);
  EXPECT_EQ(nome.ate, 65);
  EXPECT_STREQ(nome.vazio.modelo, "blanks");
}

TEST_F(RegistroNovo, IsComparedByItsKey) {
  std::string outra = kPrimeira;
  outra.replace(outra.size() - 9, 9, "000099999");
  const std::string esperado = kPrimeira + '\n' + kSegunda + '\n', encontrado = outra + '\n';
  LeitorDeLinhas a{std::string_view(esperado)}, b{std::string_view(encontrado)};
  Achados achados;
  Comparacao::Opcoes opcoes;
  opcoes.catalogo = kComVisitas;
  Comparacao(achados, opcoes).compara(a, b);
  EXPECT_EQ(achados.ditos, (Textos{"field line 1 Valor gasto: 999,99, expected 123,45",
                                   "missing line 0 : none, expected a record: Nº da visita 8"}));
}

TEST_F(RegistroNovo, IsExplainedToTheRow) {
  comVisitas();
  LeitorDeLinhas linhas{std::string_view(kPrimeira)};
  LeitorDeRegistros registros(linhas, kComVisitas);
  RegistroLido lido;
  ASSERT_TRUE(registros.proximo(lido));
  const ExplicacaoDaLinha explicacao = explica(lido, registros.ajuste());
  EXPECT_EQ(explicacao.campos[6].significado, "S: attended");
  EXPECT_EQ(explicacao.campos[7].fonte, "visita.nome");
  EXPECT_EQ(explicacao.campos[7].nota, "cut after six letters");

  Rastro rastro(banco_.get(), kE99, ajustes_, aplicacao_, kPrimeira, 1);
  kE99.escreve(rastro, kE99);
  ASSERT_TRUE(rastro.achada());
  const auto origens = procedencias(banco_.get(), lido, rastro, {}, -1);
  EXPECT_EQ(origens[8].coluna.tabela, "visita");
  EXPECT_EQ(origens[8].coluna.coluna, "gasto");
  EXPECT_EQ(origens[8].coluna.chave, "numero=7");
  EXPECT_EQ(origens[8].coluna.valor, "'123.45'");
}

}  // namespace
}  // namespace cotepe
