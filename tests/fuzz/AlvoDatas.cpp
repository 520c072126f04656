// Any bytes as the days, the command and the settings of a run, and as the date and hour that the database
// and the clock give: the result is the second reading's. As the day of a command line, only days that exist.
#include <ctime>

#include "Confronto.h"
#include "Corrida/Dia.h"
#include "Leiaute/Texto.h"
#include "referencia/BancoAleatorio.h"
#include "referencia/BancoDeTeste.h"
#include "referencia/Texto.h"

namespace {

// Every table, with one row of the same text in every column.
class Banco {
 public:
  Banco() {
    for (const referencia::Tabela& tabela : referencia::tabelas()) {
      std::string colunas, valores;
      for (const referencia::Coluna& coluna : tabela.colunas) {
        colunas += (colunas.empty() ? "" : ", ") + std::string(coluna.nome);
        valores += valores.empty() ? "?1" : ", ?1";
      }
      banco_.executa(std::string("CREATE TABLE ") + tabela.nome + " (" + colunas + ")");
      inserts_.push_back(std::string("INSERT INTO ") + tabela.nome + " VALUES (" + valores + ")");
      deletes_ += std::string("DELETE FROM ") + tabela.nome + ";";
    }
  }

  void preenche(const std::string& texto) {
    banco_.executa(deletes_);
    for (const std::string& insert : inserts_) {
      sqlite3_stmt* linha = nullptr;
      EXIGE(sqlite3_prepare_v2(banco_.get(), insert.c_str(), -1, &linha, nullptr) == SQLITE_OK);
      EXIGE(referencia::Valor::texto(texto).liga(linha, 1) == SQLITE_OK);
      EXIGE(sqlite3_step(linha) == SQLITE_DONE);
      sqlite3_finalize(linha);
    }
  }

  sqlite3* get() { return banco_.get(); }

 private:
  referencia::BancoDeTeste banco_;
  std::vector<std::string> inserts_;
  std::string deletes_;
};

void confereCorte(const std::string& texto) {
  char data[9], hora[7];
  cotepe::formataData(texto.c_str(), data);
  cotepe::formataHora(texto.c_str(), hora);
  const std::string inteiro = texto.c_str();
  EXIGE(referencia::formataData(inteiro) == data);
  EXIGE(referencia::formataHora(inteiro) == hora);
}

// The C library knows which days there are.
void confereDia(const std::string& texto) {
  const auto dia = cotepe::programa::Dia::le(texto);
  int ano = 0, mes = 0, doMes = 0;
  bool forma = texto.size() == 8 || texto.size() == 10;
  for (std::size_t i = 0; i < texto.size(); ++i) {
    const bool hifen = texto.size() == 10 && (i == 4 || i == 7);
    forma = forma && (hifen ? texto[i] == '-' : texto[i] >= '0' && texto[i] <= '9');
  }
  EXIGE(forma || !dia);
  if (!forma) return;
  if (texto.size() == 10)
    EXIGE(std::sscanf(texto.c_str(), "%4d-%2d-%2d", &ano, &mes, &doMes) == 3);
  else
    EXIGE(std::sscanf(texto.c_str(), "%2d%2d%4d", &doMes, &mes, &ano) == 3);
  std::tm momento{};
  momento.tm_year = ano - 1900;
  momento.tm_mon = mes - 1;
  momento.tm_mday = doMes;
  timegm(&momento);
  const bool existe =
      ano >= 1 && momento.tm_year == ano - 1900 && momento.tm_mon == mes - 1 && momento.tm_mday == doMes;
  EXIGE(dia.has_value() == existe);
  if (!dia) return;
  EXIGE(cotepe::programa::Dia::le(dia->iso())->ddmmaaaa() == dia->ddmmaaaa());
  EXIGE(texto == (texto.size() == 8 ? dia->ddmmaaaa() : dia->iso()));
}

// A null among the arguments is refused, and no file is made.
void confereNulos(CotepeManager& gerador, const referencia::Entrada& entrada, int quais) {
  const char* arquivo = "/nowhere/relatorio.txt";
  EXIGE(gerador.GeraRegistrosTipoE(
            (quais & 1) != 0 ? nullptr : arquivo, (quais & 2) != 0 ? nullptr : entrada.inicial.c_str(),
            (quais & 4) != 0 ? nullptr : entrada.final.c_str(),
            (quais & 8) != 0 ? nullptr : entrada.comando.c_str()) == cotepe::kArgumentoInvalido);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  static Banco banco;
  CotepeManager gerador(banco.get());
  Bytes bytes(dados, tamanho);
  referencia::Entrada entrada;
  const std::uint8_t ajustes = bytes.byte();
  entrada.cat52 = (ajustes & 1) != 0;
  entrada.versao = (ajustes & 2) != 0 ? bytes.numero<std::int32_t>() : (ajustes >> 2 & 3);
  entrada.inicial = bytes.ateTerminador();
  entrada.final = bytes.ateTerminador();
  entrada.comando = bytes.ateTerminador();
  const std::string texto = bytes.ateTerminador();
  entrada.dataHoraDoSistema = texto.substr(0, 20);
  confereDia(entrada.inicial);
  confereCorte(texto);
  if (ajustes >> 4 != 0) confereNulos(gerador, entrada, ajustes >> 4);
  banco.preenche(texto);
  confronta(banco.get(), gerador, entrada);
  return 0;
}
