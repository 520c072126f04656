// Any bytes as the rows of a fiscal database, a table, a kind and a value at a time: its reports under every
// command and in every layout and mode are the second reading's.
#include "Confronto.h"
#include "referencia/BancoAleatorio.h"
#include "referencia/BancoDeTeste.h"
#include "referencia/Sorteio.h"

namespace {

using referencia::Tabela;
using referencia::Valor;

constexpr int kMaximoDeLinhas = 60;

void criaTabelas(referencia::BancoDeTeste& banco) {
  for (const Tabela& tabela : referencia::tabelas()) {
    std::string colunas;
    for (const referencia::Coluna& coluna : tabela.colunas)
      colunas += (colunas.empty() ? "" : ", ") + std::string(coluna.nome);
    banco.executa(std::string("CREATE TABLE ") + tabela.nome + " (" + colunas + ")");
  }
}

Valor valor(Bytes& bytes, referencia::Tipo tipo) {
  const std::uint8_t especie = bytes.byte();
  switch (especie) {
    case 0:
      return {};
    case 1:
      return Valor::doInteiro(bytes.numero<std::int64_t>());
    case 2:
      return Valor::doReal(bytes.numero<double>());
    case 3:
      return Valor::texto(bytes.texto());
    case 4:
      return Valor::blob(bytes.texto());
    case 5: {
      referencia::Sorteio sorteio(bytes.byte());
      return valorHostil(sorteio, valorLimpo(sorteio, tipo));
    }
    default: {
      referencia::Sorteio sorteio(especie);
      return valorLimpo(sorteio, tipo);
    }
  }
}

void insereLinha(referencia::BancoDeTeste& banco, Bytes& bytes) {
  const auto& tabelas = referencia::tabelas();
  const Tabela& tabela = tabelas[bytes.byte() % tabelas.size()];
  std::string sql = std::string("INSERT INTO ") + tabela.nome + " VALUES (?";
  for (std::size_t i = 1; i < tabela.colunas.size(); ++i) sql += ", ?";
  sqlite3_stmt* linha = nullptr;
  EXIGE(sqlite3_prepare_v2(banco.get(), (sql + ")").c_str(), -1, &linha, nullptr) == SQLITE_OK);
  int posicao = 0;
  for (const referencia::Coluna& coluna : tabela.colunas)
    EXIGE(valor(bytes, coluna.tipo).liga(linha, ++posicao) == SQLITE_OK);
  EXIGE(sqlite3_step(linha) == SQLITE_DONE);
  sqlite3_finalize(linha);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  referencia::BancoDeTeste banco;
  banco.executa("BEGIN");
  criaTabelas(banco);
  Bytes bytes(dados, tamanho);
  for (int linha = 0; linha < kMaximoDeLinhas && !bytes.acabou(); ++linha) insereLinha(banco, bytes);
  banco.executa("COMMIT");

  CotepeManager gerador(banco.get());
  referencia::Entrada entrada;
  entrada.inicial = "01012024";
  entrada.final = "31012024";
  entrada.dataHoraDoSistema = "20240131 235959";
  entrada.serialGlobal = "GLOBALSERIAL";
  entrada.tipoGlobal = "GLOBALTIPO";
  // Every register in every setting; the other commands, which choose among the same registers, in one of
  // them.
  std::size_t ajuste = 0;
  for (const int versao : {1, 2, 3})
    for (const bool cat52 : {false, true}) {
      entrada.versao = versao;
      entrada.cat52 = cat52;
      const bool todos = ajuste++ == tamanho % 6;
      for (const char* comando : {"TDM", "MF", "MFD", "RZ", "XX"}) {
        entrada.comando = comando;
        confronta(banco.get(), gerador, entrada);
        if (!todos) break;
      }
    }
  return 0;
}
