#include "Exportacao/BancoExportado.h"

#include <sqlite3.h>

#include "Exportacao/Visoes.h"
#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"

namespace cotepe::exportacao {
namespace {

constexpr int kVersaoDoFormato = 1;
constexpr int kColunasProprias = 4;  // arquivo, linha, forma, vazio

const char* tipoSql(Tipo tipo) {
  switch (tipo) {
    case Tipo::Inteiro:
    case Tipo::Centavos:
      return "INTEGER";
    case Tipo::Decimal:
      return "REAL";
    default:
      return "TEXT";
  }
}

std::string criacao(const TabelaDoRegistro& tabela) {
  std::string sql =
      std::string("CREATE TABLE ") + tabela.registro->codigo +
      " (arquivo INTEGER NOT NULL, linha INTEGER NOT NULL, forma INTEGER, vazio INTEGER NOT NULL";
  for (const ColunaDaTabela& coluna : tabela.colunas) sql += ", " + coluna.nome + ' ' + tipoSql(coluna.tipo);
  return sql + ", PRIMARY KEY (arquivo, linha)) WITHOUT ROWID;";
}

std::string insercao(const std::string& tabela, std::size_t colunas) {
  std::string sql = "INSERT INTO " + tabela + " VALUES (?";
  for (std::size_t i = 1; i < colunas; ++i) sql += ",?";
  return sql + ')';
}

std::string indices(const TabelaDoRegistro& tabela) {
  const std::string codigo = tabela.registro->codigo;
  const auto indice = [&codigo](const std::string& nome, const std::string& colunas) {
    return "CREATE INDEX " + codigo + '_' + nome + " ON " + codigo + " (" + colunas + ", arquivo);";
  };
  std::string sql, chave;
  for (const std::string& coluna : tabela.chave) chave += (chave.empty() ? "" : ", ") + coluna;
  if (!chave.empty()) sql += indice("chave", chave);
  for (const ColunaDaTabela& coluna : tabela.colunas)
    if (coluna.indexada && (tabela.chave.empty() || tabela.chave.front() != coluna.nome))
      sql += indice(coluna.nome, coluna.nome);
  return sql;
}

int ligaTexto(sqlite3_stmt* comando, int lugar, std::string_view texto) {
  return sqlite3_bind_text(comando, lugar, texto.data(), static_cast<int>(texto.size()), SQLITE_STATIC);
}

}  // namespace

int liga(sqlite3_stmt* comando, int lugar, const ValorTipado& celula) {
  if (celula.nula) return sqlite3_bind_null(comando, lugar);
  switch (celula.tipo) {
    case Tipo::Inteiro:
    case Tipo::Centavos:
      return sqlite3_bind_int64(comando, lugar, celula.numero);
    case Tipo::Decimal:
      return sqlite3_bind_double(comando, lugar,
                                 static_cast<double>(celula.numero) / (celula.casas == 3 ? 1000 : 100));
    default:
      return ligaTexto(comando, lugar, celula.texto);
  }
}

void BancoExportado::Fecha::operator()(sqlite3* banco) const { sqlite3_close_v2(banco); }
void BancoExportado::Fecha::operator()(sqlite3_stmt* comando) const { sqlite3_finalize(comando); }

BancoExportado::BancoExportado(const std::string& caminho, std::string nome)
    : nome_(std::move(nome)), semNome_(caminho.empty()) {
  sqlite3* aberto = nullptr;
  const std::string onde = caminho.empty() ? caminho : caminhoDoBanco(caminho);
  const int resultado = sqlite3_open_v2(onde.c_str(), &aberto, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                                        caminho.empty() ? nullptr : vfsDoBanco());
  banco_.reset(aberto);
  exige(resultado);
  // Nobody sees the file before it is complete, and whoever publishes it flushes it to disk.
  executa(
      "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
      "PRAGMA cache_size = -16384; PRAGMA application_id = 1129271365; BEGIN");
  criaTabelas();
  descreveCampos();
}

BancoExportado::~BancoExportado() = default;

void BancoExportado::naoEscreve(int resultado) const {
  if (resultado == SQLITE_NOMEM) throw std::bad_alloc();
  throw programa::Falha(programa::kNaoEscreve,
                        frase("cannot write the output {1}: {2}; check the disk and try again",
                              {nome_, banco_ ? sqlite3_errmsg(banco_.get()) : sqlite3_errstr(resultado)}));
}

void BancoExportado::exige(int resultado) const {
  if (resultado != SQLITE_OK) naoEscreve(resultado);
}

void BancoExportado::executa(const std::string& sql) const {
  exige(sqlite3_exec(banco_.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

BancoExportado::Comando BancoExportado::prepara(const std::string& sql) const {
  sqlite3_stmt* comando = nullptr;
  exige(sqlite3_prepare_v3(banco_.get(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &comando, nullptr));
  return Comando(comando);
}

void BancoExportado::passo(sqlite3_stmt* comando) const {
  const int resultado = sqlite3_step(comando);
  if (resultado != SQLITE_DONE) naoEscreve(resultado);
  exige(sqlite3_reset(comando));
}

void BancoExportado::criaTabelas() {
  executa(
      "CREATE TABLE formato (versao INTEGER NOT NULL);"
      "CREATE TABLE arquivo (arquivo INTEGER PRIMARY KEY, nome TEXT NOT NULL, numero_fabricacao TEXT, modelo "
      "TEXT,"
      " cnpj TEXT, comando TEXT, leiaute INTEGER NOT NULL, cat52 INTEGER NOT NULL, fim_de_linha TEXT NOT "
      "NULL,"
      " linhas INTEGER NOT NULL, bytes INTEGER NOT NULL);"
      "CREATE TABLE campo (registro TEXT NOT NULL, forma INTEGER NOT NULL, ordem INTEGER NOT NULL, coluna "
      "TEXT NOT"
      " NULL, rotulo TEXT NOT NULL, tipo TEXT NOT NULL, largura INTEGER NOT NULL, coluna_das_casas TEXT,"
      " PRIMARY KEY (registro, forma, ordem)) WITHOUT ROWID;"
      "CREATE TABLE repetido (arquivo INTEGER NOT NULL, linha INTEGER NOT NULL, coluna TEXT NOT NULL, vez "
      "INTEGER"
      " NOT NULL, valor, PRIMARY KEY (arquivo, linha, coluna, vez)) WITHOUT ROWID;"
      "CREATE TABLE linha_literal (arquivo INTEGER NOT NULL, linha INTEGER NOT NULL, bytes BLOB NOT NULL,"
      " PRIMARY KEY (arquivo, linha)) WITHOUT ROWID;"
      "INSERT INTO formato VALUES (" +
      std::to_string(kVersaoDoFormato) + ")");
  for (std::size_t i = 0; i < kCatalogo.size(); ++i) {
    const TabelaDoRegistro& tabela = tabelas()[i];
    executa(criacao(tabela));
    registros_[i] = prepara(insercao(tabela.registro->codigo, kColunasProprias + tabela.colunas.size()));
  }
  literal_ = prepara(insercao("linha_literal", 3));
  repetido_ = prepara(insercao("repetido", 5));
  arquivo_ = prepara(insercao("arquivo", 11));
}

void BancoExportado::descreveCampos() {
  const Comando campo = prepara(insercao("campo", 8));
  for (std::size_t i = 0; i < kCatalogo.size(); ++i)
    for (int ajuste = 0; ajuste < static_cast<int>(std::size(kAjustesPossiveis)); ++ajuste) {
      int ordem = 0;
      for (const CampoLido& lido : forma(static_cast<int>(i), ajuste, false).campos) {
        const auto& colunas = tabelas()[i].colunas;
        const ColunaDaTabela& coluna = colunas[static_cast<std::size_t>(lido.numero - 1)];
        ligaTexto(campo.get(), 1, kCatalogo[i]->codigo);
        sqlite3_bind_int(campo.get(), 2, ajuste + 1);
        sqlite3_bind_int(campo.get(), 3, ++ordem);
        ligaTexto(campo.get(), 4, coluna.nome);
        ligaTexto(campo.get(), 5, coluna.campo->rotulo);
        ligaTexto(campo.get(), 6, nomeDoTipo(coluna.tipo));
        sqlite3_bind_int(campo.get(), 7, lido.largura);
        if (coluna.casas >= 0)
          ligaTexto(campo.get(), 8, colunas[static_cast<std::size_t>(coluna.casas)].nome);
        else
          sqlite3_bind_null(campo.get(), 8);
        passo(campo.get());
      }
    }
}

void BancoExportado::registro(const ArquivoExportado& arquivo, const RegistroLido& lido,
                              const LinhaTipada& linha) {
  const auto indice = static_cast<std::size_t>(lido.indice);
  sqlite3_stmt* comando = registros_[indice].get();
  sqlite3_bind_int64(comando, 1, arquivo.numero);
  sqlite3_bind_int64(comando, 2, lido.linha.numero);
  if (linha.forma() == LinhaTipada::kLiteral)
    sqlite3_bind_null(comando, 3);
  else
    sqlite3_bind_int(comando, 3, linha.forma() + 1);
  sqlite3_bind_int(comando, 4, lido.vazio ? 1 : 0);
  int lugar = kColunasProprias;
  for (std::size_t i = 0; i < tabelas()[indice].colunas.size(); ++i)
    exige(liga(comando, ++lugar, linha.celulas()[i]));
  passo(comando);
  if (!linha.repetidas().empty()) repetidas(arquivo, lido, linha);
}

void BancoExportado::repetidas(const ArquivoExportado& arquivo, const RegistroLido& lido,
                               const LinhaTipada& linha) {
  for (const Repetida& repetida : linha.repetidas()) {
    const ColunaDaTabela& coluna = tabelas()[static_cast<std::size_t>(lido.indice)].colunas[repetida.coluna];
    sqlite3_bind_int64(repetido_.get(), 1, arquivo.numero);
    sqlite3_bind_int64(repetido_.get(), 2, lido.linha.numero);
    ligaTexto(repetido_.get(), 3, coluna.nome);
    sqlite3_bind_int(repetido_.get(), 4, repetida.vez);
    exige(liga(repetido_.get(), 5, repetida.celula));
    passo(repetido_.get());
  }
}

void BancoExportado::literal(const ArquivoExportado& arquivo, long linha, std::string_view bytes) {
  sqlite3_bind_int64(literal_.get(), 1, arquivo.numero);
  sqlite3_bind_int64(literal_.get(), 2, linha);
  exige(sqlite3_bind_blob(literal_.get(), 3, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC));
  passo(literal_.get());
}

void BancoExportado::arquivo(const ArquivoExportado& arquivo) {
  const std::string textos[] = {emUtf8(arquivo.nome), emUtf8(arquivo.fabricacao), emUtf8(arquivo.modelo),
                                emUtf8(arquivo.cnpj), emUtf8(arquivo.comando)};
  sqlite3_bind_int64(arquivo_.get(), 1, arquivo.numero);
  for (int i = 0; i < 5; ++i) exige(ligaTexto(arquivo_.get(), 2 + i, textos[i]));
  sqlite3_bind_int(arquivo_.get(), 7, arquivo.leiaute.versao);
  sqlite3_bind_int(arquivo_.get(), 8, arquivo.leiaute.cat52 ? 1 : 0);
  ligaTexto(arquivo_.get(), 9, arquivo.fim);
  sqlite3_bind_int64(arquivo_.get(), 10, arquivo.linhas);
  sqlite3_bind_int64(arquivo_.get(), 11, static_cast<sqlite3_int64>(arquivo.bytes));
  passo(arquivo_.get());
}

void BancoExportado::criaIndices() {
  for (const TabelaDoRegistro& tabela : tabelas()) executa(indices(tabela));
  executa("PRAGMA analysis_limit = 1000; ANALYZE");  // otherwise a query by a counter reads a whole report
}

void BancoExportado::conclui() {
  for (Comando& comando : registros_) comando.reset();
  literal_.reset();
  repetido_.reset();
  arquivo_.reset();
  criaIndices();
  executa(visoesSql());
  executa("COMMIT");
  if (semNome_) return;
  sqlite3* fechado = banco_.release();
  const int resultado = sqlite3_close(fechado);
  if (resultado != SQLITE_OK) naoEscreve(resultado);
}

}  // namespace cotepe::exportacao
