#include "BancoSomenteLeitura.h"

#include <sqlite3.h>

#include <cerrno>

#include "Idioma/Idioma.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

// Whether a file that is not a database begins like a report.
bool pareceRelatorio(const std::string& caminho) {
  std::string inicio(3, '\0');
  const Descritor arquivo = abreParaLer(caminho);
  return arquivo.aberto() && leEm(arquivo.numero(), 0, inicio.data(), 3) && inicio == "E01";
}

std::string explica(sqlite3* banco, const std::string& caminho, std::chrono::milliseconds espera) {
  const std::string motivo = sqlite3_errmsg(banco);
  const int completo = sqlite3_extended_errcode(banco);
  if (completo == SQLITE_READONLY_ROLLBACK || completo == SQLITE_READONLY_RECOVERY) {
    return frase(
        "cannot read the database {1}: a transaction was left unfinished in it; let the application that "
        "owns it open it once, then try again",
        {caminho});
  }
  switch (completo & 0xff) {
    case SQLITE_BUSY:
      return frase(
          "cannot read the database {1}: another process has had it locked for more than {2} ms; try again "
          "when that is done, or wait longer with --busy-timeout",
          {caminho, std::to_string(espera.count())});
    case SQLITE_NOTADB:
      return pareceRelatorio(caminho)
                 ? frase("cannot read the database {1}: it is a report, not a database", {caminho})
                 : frase("cannot read the database {1}: it is not an SQLite database", {caminho});
    case SQLITE_CORRUPT:
      return frase("cannot read the database {1}: {2}; restore it from a copy", {caminho, motivo});
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
      return frase(
          "cannot read the database {1}: its -wal, -shm or -journal files cannot be opened or created ({2}); "
          "copy the database together with those files to a folder that can be written, and read it there",
          {caminho, motivo});
    default:
      return frase("cannot read the database {1}: {2}", {caminho, motivo});
  }
}

}  // namespace

BancoSomenteLeitura::BancoSomenteLeitura(const std::string& caminho, std::chrono::milliseconds espera,
                                         int situacao)
    : situacao_(situacao), espera_(espera), conexao_(espera, []() noexcept { return sinalRecebido() != 0; }) {
  exigeArquivo(caminho);
  int resultado = conexao_.abre(caminho);
  if (resultado == SQLITE_OK) resultado = conexao_.comeca();
  if (resultado == SQLITE_OK) return;
  paraSeInterrompido();
  throw Falha(situacao_, explica(banco(), caminho, espera_));
}

// Opening a pipe would block, and of a folder SQLite has little to say.
void BancoSomenteLeitura::exigeArquivo(const std::string& caminho) const {
  switch (tipoDoArquivo(caminho)) {
    case TipoDeArquivo::Nenhuma:
      naoAbre(caminho, motivoDoSistema(errno));
    case TipoDeArquivo::Pasta:
      naoAbre(caminho, traduz("it is a folder"));
    case TipoDeArquivo::Outra:
      naoAbre(caminho, traduz("it is not a regular file"));
    case TipoDeArquivo::Regular:
      if (!podeLer(caminho)) naoAbre(caminho, motivoDoSistema(errno));
  }
}

void BancoSomenteLeitura::naoAbre(const std::string& caminho, const std::string& encontrado) const {
  throw Falha(situacao_, frase("cannot open the database {1}: {2}", {caminho, encontrado}));
}

void BancoSomenteLeitura::paraComSinal() const {
  constexpr int kPassosEntreOlhares = 10000;  // of SQLite's machine
  sqlite3_progress_handler(
      banco(), kPassosEntreOlhares, [](void* /*nada*/) { return sinalRecebido() != 0 ? 1 : 0; }, nullptr);
}

}  // namespace cotepe::programa
