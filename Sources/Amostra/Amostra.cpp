#include "Amostra/Amostra.h"

#include <sqlite3.h>

#include <cerrno>
#include <memory>

#include "Amostra/Calendario.h"
#include "Amostra/Loja.h"
#include "BancoFiscal/Esquema.h"
#include "Idioma/Idioma.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/FalhaDeArquivo.h"

namespace cotepe {
namespace {

constexpr int kMaximoDeDias = 36500;
constexpr int kMaximoDeCupons = 1000000;
constexpr const char* kPrimeiroInicio = "1900-01-01";
constexpr const char* kUltimoFim = "9999-12-30";

struct FechaBanco {
  void operator()(sqlite3* banco) const { sqlite3_close_v2(banco); }
};
using Banco = std::unique_ptr<sqlite3, FechaBanco>;

[[noreturn]] void falhaDeOpcao(const std::string& opcao, const std::string& valor,
                               const std::string& esperado) {
  throw ErroDoBanco({traduz("cannot make the sample"), opcao, valor, esperado, traduz("correct the option")});
}

void exigeFaixa(const char* opcao, int valor, int maximo) {
  if (valor >= 1 && valor <= maximo) return;
  falhaDeOpcao(opcao, std::to_string(valor), frase("a number from 1 to {1}", {std::to_string(maximo)}));
}

// The number of the first day, when all options are in order.
int confere(const OpcoesDaAmostra& opcoes) {
  exigeFaixa(traduz("number of days"), opcoes.dias, kMaximoDeDias);
  exigeFaixa(traduz("coupons per day"), opcoes.cuponsPorDia, kMaximoDeCupons);
  const auto primeiro = loja::leDia(opcoes.inicio);
  const int limite = *loja::leDia(kUltimoFim) - opcoes.dias + 1;
  if (!primeiro || *primeiro < *loja::leDia(kPrimeiroInicio) || *primeiro > limite) {
    falhaDeOpcao(traduz("first day"), "'" + opcoes.inicio + "'",
                 frase("a day YYYY-MM-DD from {1} to {2}", {kPrimeiroInicio, loja::textoDoDia(limite)}));
  }
  return *primeiro;
}

void executa(sqlite3* banco, const char* sql, const std::string& onde) {
  if (sqlite3_exec(banco, sql, nullptr, nullptr, nullptr) == SQLITE_OK) return;
  throw ErroDoBanco({traduz("cannot write the database"), onde, sqlite3_errmsg(banco),
                     traduz("a database that can be written"),
                     traduz("free some space or choose another place")});
}

[[noreturn]] void naoCria(const FalhaDeArquivo& falha) {
  if (falha.passo() == PassoDeArquivo::Existe) {
    throw ErroDoBanco({traduz("cannot create the database"), falha.caminho(),
                       traduz("a file that exists already"), traduz("a name that is free"),
                       traduz("choose another name, or move the file away")});
  }
  const bool daPasta = falha.passo() == PassoDeArquivo::NomeNaoEscrito;
  throw ErroDoBanco({traduz("cannot create the database"),
                     daPasta ? pastaDe(falha.caminho()) : falha.caminho(), motivoDoSistema(falha.erro()),
                     traduz("a folder that can be written and has room"),
                     traduz("choose another place or free some space")});
}

// A journal left behind by an earlier database of that name would be played back into the new one.
void exigeLivre(const std::string& caminho) {
  if (caminho.empty()) throw FalhaDeArquivo(PassoDeArquivo::NaoCria, "''", ENOENT);
  for (const char* sufixo : {"", "-journal", "-wal", "-shm"}) {
    const std::string nome = comPasta(caminho) + sufixo;
    if (tipoDoNome(nome) != TipoDeArquivo::Nenhuma)
      throw FalhaDeArquivo(PassoDeArquivo::Existe, nome, EEXIST);
    if (errno != ENOENT) throw FalhaDeArquivo(PassoDeArquivo::NaoCria, nome, errno);
  }
}

// The file has a temporary name and is thrown away on failure: it needs neither a journal nor order of
// writes, and is flushed to disk once, when complete.
Banco abre(const std::string& arquivo, const std::string& caminho) {
  sqlite3* aberto = nullptr;
  const int resultado =
      sqlite3_open_v2(caminhoDoBanco(arquivo).c_str(), &aberto, SQLITE_OPEN_READWRITE, vfsDoBanco());
  Banco banco(aberto);
  if (resultado != SQLITE_OK) {
    throw ErroDoBanco({traduz("cannot create the database"), caminho, sqlite3_errstr(resultado),
                       traduz("a file that can be written"), traduz("choose another place")});
  }
  executa(aberto,
          "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
          "PRAGMA cache_size = -65536",
          caminho);
  return banco;
}

ResumoDaAmostra cria(const std::string& caminho, const OpcoesDaAmostra& opcoes, int primeiroDia) {
  exigeLivre(caminho);
  ArquivoSeguro arquivo(comPasta(caminho));
  auto banco = abre(arquivo.temporario(), caminho);
  executa(banco.get(), "BEGIN", caminho);
  executa(banco.get(), esquemaSql(), caminho);
  auto resumo = loja::preencheBanco(banco.get(), opcoes, primeiroDia);
  executa(banco.get(), "ANALYZE; COMMIT", caminho);
  banco.reset();  // everything is written by now, and closing fails only while a statement is open
  exigeLivre(caminho);
  arquivo.publica(comPasta(caminho), false);
  return resumo;
}

}  // namespace

ResumoDaAmostra criaBancoDeAmostra(const std::string& caminho, const OpcoesDaAmostra& opcoes) {
  const int primeiroDia = confere(opcoes);
  try {
    return cria(caminho, opcoes, primeiroDia);
  } catch (const FalhaDeArquivo& falha) {
    naoCria(falha);
  }
}

}  // namespace cotepe
