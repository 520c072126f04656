// A hostile value in every column that the registers read: where the report comes out damaged, the checker
// must have said so of that column.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "BancoLimpo.h"
#include "Conferencia/Partes.h"
#include "CotepeManager.h"
#include "Leiaute/Releitura.h"
#include "Registros/Catalogo.h"
#include "faults/Relato.h"

namespace cotepe::testes {
namespace {

// A place for the report, in memory where there is one.
class Lugar {
 public:
  Lugar() {
    const std::filesystem::path memoria = "/dev/shm";
    std::string molde =
        (std::filesystem::exists(memoria) ? memoria : std::filesystem::temp_directory_path()) / "danosXXXXXX";
    close(mkstemp(molde.data()));
    nome_ = molde;
  }
  ~Lugar() { unlink(nome_.c_str()); }
  Lugar(const Lugar&) = delete;
  Lugar& operator=(const Lugar&) = delete;
  const std::string& nome() const { return nome_; }

 private:
  std::string nome_;
};

// Position from 0 of a field in its register.
std::size_t lugarDe(const Registro& registro, const Campo& procurado, int leiaute) {
  int cursor = 0;
  for (const Campo& campo : registro.campos) {
    if (!campo.existe(leiaute, false)) continue;
    if (campo.posicao != 0) cursor = campo.posicao - 1;
    if (&campo == &procurado) break;
    cursor += larguraNominal(campo, leiaute);
  }
  return static_cast<std::size_t>(cursor);
}

// The hour at which the report was made is no two runs' own.
std::string semCarimbo(std::string linha, int leiaute) {
  if (linha.compare(0, 3, "E11") != 0) return linha;
  for (const Campo& campo : kE11.campos) {
    if (campo.especie != Especie::DataPronta && campo.especie != Especie::HoraPronta) continue;
    const std::size_t de = lugarDe(kE11, campo, leiaute);
    if (de < linha.size())
      linha.replace(de, static_cast<std::size_t>(campo.largura), static_cast<std::size_t>(campo.largura),
                    '0');
  }
  return linha;
}

Linhas gera(sqlite3* banco, int leiaute, const std::string& arquivo) {
  CotepeManager gerador(banco);
  gerador.setVersaoAtoCotepe(leiaute);
  static_cast<void>(gerador.GeraRegistrosTipoE(arquivo.c_str(), "01012024", "31012024", "TDM"));
  Linhas linhas;
  std::ifstream relatorio(arquivo, std::ios::binary);
  for (std::string linha; std::getline(relatorio, linha);) linhas.push_back(semCarimbo(linha, leiaute));
  return linhas;
}

// Which bytes of a line, from 0, are those of the column's fields.
struct Trecho {
  std::string codigo;
  std::size_t de, quantos;
  const Campo* campo;
};

std::vector<Trecho> trechosDe(const std::vector<Destino>& destinos, int leiaute) {
  std::vector<Trecho> trechos;
  for (const Destino& destino : destinos)
    trechos.push_back({destino.registro->codigo, lugarDe(*destino.registro, *destino.campo, leiaute),
                       static_cast<std::size_t>(larguraNominal(*destino.campo, leiaute)), destino.campo});
  return trechos;
}

// Told by two amounts, and right whatever they are.
constexpr std::string_view kOrdem = "Ordem de desconto e acréscimo";

// What is wrong with a line that stood as `antes` with a good value; empty for nothing.
std::string danoDaLinha(const std::string& antes, const std::string& depois,
                        const std::vector<Trecho>& trechos, const std::string& inteiro, int leiaute) {
  if (antes.size() != depois.size()) return "another length";
  std::string nominal = antes;
  for (const Registro* registro : {&kE14, &kE19})
    for (const Campo& campo : registro->campos)
      if (antes.compare(0, 3, registro->codigo) == 0 && std::string_view(campo.rotulo) == kOrdem)
        nominal[lugarDe(*registro, campo, leiaute)] = depois[lugarDe(*registro, campo, leiaute)];
  for (const Trecho& trecho : trechos) {
    if (depois.compare(0, 3, trecho.codigo) != 0 || trecho.de + trecho.quantos > depois.size()) continue;
    const std::string bytes = depois.substr(trecho.de, trecho.quantos);
    nominal.replace(trecho.de, trecho.quantos, bytes);
    if (std::any_of(bytes.begin(), bytes.end(), controla)) return "a control character";
    const bool algarismos = numerica(trecho.campo->especie);
    if (algarismos && bytes.find_first_not_of("0123456789") != std::string::npos) return "no number";
    const bool contado =
        trecho.campo->especie == Especie::Numero || trecho.campo->especie == Especie::Contador;
    if (contado && trecho.campo->origem.tipo == Origem::Tipo::Coluna && !inteiro.empty() &&
        std::stoll(bytes) != std::stoll(inteiro))
      return "digits lost";
  }
  return nominal == depois ? "" : "other fields changed";
}

std::string dano(const Linhas& antes, const Linhas& depois, const std::vector<Trecho>& trechos,
                 const std::string& inteiro, int leiaute) {
  if (antes.size() != depois.size()) return "another number of lines";
  for (std::size_t i = 0; i < antes.size(); ++i) {
    const bool mudou = antes[i] != depois[i];
    const std::string achado = mudou ? danoDaLinha(antes[i], depois[i], trechos, inteiro, leiaute) : "";
    if (!achado.empty()) return achado + " in " + antes[i].substr(0, 3);
  }
  return "";
}

// Findings by column; a row that others join is found in theirs.
class Colunas final : public RecebeAchados {
 public:
  void recebe(const Achado& achado) override { achadas_.insert(achado.tabela + '.' + achado.coluna); }
  bool tem(const std::string& tabela, const std::string& coluna) const {
    if (achadas_.count(tabela + '.' + coluna) != 0) return true;
    return std::any_of(kLigacoes.begin(), kLigacoes.end(), [&](const Ligacao& ligacao) {
      return (tabela == ligacao.alvo || (ligacao.outroAlvo != nullptr && tabela == ligacao.outroAlvo)) &&
             coluna == ligacao.colunaDoAlvo &&
             achadas_.count(std::string(ligacao.tabela) + '.' + ligacao.coluna) != 0;
    });
  }

 private:
  std::set<std::string> achadas_;
};

// SQL expressions, whatever the column.
const std::vector<std::string> kHostis = {"NULL",
                                          "''",
                                          "' '",
                                          "'A'",
                                          "'AB'",
                                          "char(10)",
                                          "char(9)",
                                          "char(127)",
                                          "char(0)",
                                          "'1' || char(10)",
                                          "'A' || char(10) || 'B'",
                                          "'A' || char(13)",
                                          "'A' || char(0) || 'B'",
                                          "'1' || char(0) || '2'",
                                          "x'41'",
                                          "x'00'",
                                          "x'FF'",
                                          "x'3131'",
                                          "-1",
                                          "'-1'",
                                          "'+1'",
                                          "' 1'",
                                          "'1 '",
                                          "'1,5'",
                                          "'1.234,56'",
                                          "1.5",
                                          "'1.5'",
                                          "'.'",
                                          "'1e3'",
                                          "1e20",
                                          "-1e20",
                                          "9e999",
                                          "'NaN'",
                                          "'0x12'",
                                          "9223372036854775807",
                                          "-9223372036854775808",
                                          "'99999999999999999999999'",
                                          "'é'",
                                          "'éé'",
                                          "'S '",
                                          "'s'",
                                          "'SS'",
                                          "'2024-01-05'",
                                          "'2024-01-05 10:00'",
                                          "'2024-01-05T10:00:00'",
                                          "'2024-01-05 10.00.00'",
                                          "'05/01/2024 10:00:00'",
                                          "'2024-01-05 10:00:00.5'",
                                          "'2024-13-05 10:00:00'",
                                          "'2024-01-05 25:00:00'",
                                          "printf('%18s', '')",
                                          "printf('%20s', '')",
                                          "'11.222.333/0001-81'",
                                          "printf('%.*c', 700, 'x')",
                                          "printf('%.*c', 700, '9')"};

// Those at the edge of the column's own fields: as many bytes or digits as fit, and one more.
std::vector<std::string> naBorda(const std::vector<Trecho>& trechos) {
  std::set<std::string> valores;
  for (const Trecho& trecho : trechos)
    for (std::size_t n = trecho.quantos - 1; n <= trecho.quantos + 1; ++n) {
      const std::string quantos = std::to_string(n);
      for (const char* c : {"x", "9", "é"}) {
        std::string texto;
        for (std::size_t i = 0; i < n; ++i) texto += c;
        valores.insert('\'' + texto + '\'');
      }
      valores.insert('\'' + std::string(n, '9') + ".99'");
    }
  return {valores.begin(), valores.end()};
}

class Danos : public testing::TestWithParam<int> {
 protected:
  void tenta(const FormaDaTabela& tabela, const FormaDaColuna& coluna, const std::string& nome,
             const std::string& valor, const std::string& qual);

  std::string inteiroDe(const std::string& valor) const {
    return valor.size() < 18 && valor.find_first_not_of("'0123456789") == std::string::npos &&
                   valor.find_first_of("0123456789") != std::string::npos
               ? valor.substr(valor[0] == '\'' ? 1 : 0, valor.size() - (valor[0] == '\'' ? 2 : 0))
               : "";
  }

  BancoLimpo banco_;
  Lugar lugar_;
  Linhas bom_ = gera(banco_.aberto(), GetParam(), lugar_.nome());
  Relato relato_{"Hostile values in the database", "a value that damages the report is found by check"};
  long danos_ = 0, tentados_ = 0;
};

void Danos::tenta(const FormaDaTabela& tabela, const FormaDaColuna& coluna, const std::string& nome,
                  const std::string& valor, const std::string& qual) {
  const std::vector<Trecho> trechos =
      trechosDe(destinosDe(tabela.nome, tabela.porPosicao ? nome : coluna.nome, {"TDM", GetParam(), false}),
                GetParam());
  const std::string daTabela = std::string(tabela.porPosicao ? "data_hora" : coluna.nome);
  const std::string real = !tabela.porPosicao ? coluna.nome : nome == "0" ? "numero" : daTabela;
  banco_.executa("SAVEPOINT antes; UPDATE " + std::string(tabela.nome) + " SET " + real + " = " + valor +
                 " WHERE rowid = (SELECT " + qual + "(rowid) FROM " + tabela.nome + ")");
  const std::string achado =
      dano(bom_, gera(banco_.aberto(), GetParam(), lugar_.nome()), trechos, inteiroDe(valor), GetParam());
  if (!achado.empty()) {
    ++danos_;
    Colunas colunas;
    OpcoesDaConferencia opcoes;
    opcoes.alcance = {"TDM", GetParam(), false};
    const Contexto contexto(banco_.aberto(), opcoes, colunas);
    confereLinhas(contexto, tabela);
    if (!colunas.tem(tabela.nome, real)) {
      confereLigacoes(contexto);
      confereUnicidade(contexto);
    }
    EXPECT_TRUE(colunas.tem(tabela.nome, real))
        << tabela.nome << '.' << real << " = " << valor << " in the " << qual << " row: " << achado;
    relato_.caso();
  }
  banco_.executa("ROLLBACK TO antes; RELEASE antes");
}

TEST_P(Danos, AreAllFoundInTheirColumn) {
  for (const FormaDaTabela& tabela : kFormas)
    for (std::size_t i = 0; i < tabela.colunas.size() && tabela.colunas[i].nome != nullptr; ++i) {
      const FormaDaColuna& coluna = tabela.colunas[i];
      if (tabela.porPosicao && i == 1) continue;
      const std::string nome = std::to_string(i);
      std::vector<std::string> valores = kHostis;
      const std::vector<std::string> borda = naBorda(trechosDe(
          destinosDe(tabela.nome, tabela.porPosicao ? nome : coluna.nome, {"TDM", GetParam(), false}),
          GetParam()));
      valores.insert(valores.end(), borda.begin(), borda.end());
      for (const std::string& valor : valores)
        for (const char* qual : {"min", "max"})
          if (formaLonga() || tentados_++ % 7 == 0) tenta(tabela, coluna, nome, valor, qual);
    }
  EXPECT_GT(danos_, 500);
  RecordProperty("damaged", std::to_string(danos_));
  std::cout << danos_ << " damaged reports\n";
}

INSTANTIATE_TEST_SUITE_P(Layouts, Danos, testing::Values(1, 2));

}  // namespace
}  // namespace cotepe::testes
