#include "BancoSomenteLeitura.h"

#include <sqlite3.h>

#include <cerrno>
#include <fstream>

#include "Idioma/Idioma.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

constexpr int kPausa = 20;      // milliseconds between two tries for a lock
constexpr int kTentativas = 6;  // for what may be a writer in the middle of a step

// The first reads nothing yet; the second begins to, and so fixes the state that all others see.
constexpr char kPreparo[] =
    "PRAGMA query_only = ON; PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON; BEGIN";
// The bound of the cache is that of the sorter too: 64 MiB are sorted in memory, 3 % of a run less.
constexpr char kPrimeiraLeitura[] = "SELECT count(*) FROM sqlite_schema; PRAGMA cache_size = -65536";

// Whether a file that is no database begins as a report does.
bool pareceRelatorio(const std::string& caminho) {
  std::string inicio(3, '\0');
  std::ifstream arquivo(caminho, std::ios::binary);
  return arquivo.read(inicio.data(), 3) && inicio == "E01";
}

// A journal that its writer removes just while it is looked at, by a ROLLBACK, seems to be one that was left
// behind: a connection that may not write cannot make sure, but it can look again.
bool talvezPassageira(int resultado) {
  return resultado == SQLITE_READONLY_ROLLBACK || resultado == SQLITE_READONLY_RECOVERY ||
         (resultado & 0xff) == SQLITE_CANTOPEN || (resultado & 0xff) == SQLITE_PROTOCOL;
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
    : situacao_(situacao), espera_{espera, std::chrono::steady_clock::now()} {
  exigeArquivo(caminho);
  // Without a mutex, for the program has one thread: 7 % fewer instructions.
  constexpr int kModo = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
  const int resultado = sqlite3_open_v2(comPasta(caminho).c_str(), &banco_, kModo, nullptr);
  try {
    if (resultado != SQLITE_OK) naoLe(caminho);
    prepara(caminho);
  } catch (...) {
    sqlite3_close(banco_);
    throw;
  }
}

BancoSomenteLeitura::~BancoSomenteLeitura() { sqlite3_close(banco_); }

// A pipe would be waited for, and a folder gives SQLite little to say.
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

void BancoSomenteLeitura::prepara(const std::string& caminho) {
  sqlite3_extended_result_codes(banco_, 1);
  sqlite3_busy_handler(banco_, aoOcupar, &espera_);
  espera_.desde = std::chrono::steady_clock::now();
  int resultado = sqlite3_exec(banco_, kPreparo, nullptr, nullptr, nullptr);
  for (int vez = 1; resultado == SQLITE_OK; ++vez) {
    resultado = sqlite3_exec(banco_, kPrimeiraLeitura, nullptr, nullptr, nullptr);
    if (resultado == SQLITE_OK) return;
    if (vez == kTentativas || !talvezPassageira(resultado) || sinalRecebido() != 0) break;
    sqlite3_sleep(kPausa);
    resultado = SQLITE_OK;
  }
  paraSeInterrompido();
  naoLe(caminho);
}

int BancoSomenteLeitura::aoOcupar(void* espera, int /*tentativas*/) {
  const auto* limite = static_cast<const Espera*>(espera);
  if (sinalRecebido() != 0 || std::chrono::steady_clock::now() - limite->desde >= limite->maximo) return 0;
  sqlite3_sleep(kPausa);
  return 1;
}

void BancoSomenteLeitura::paraComSinal() const {
  constexpr int kPassosEntreOlhares = 10000;  // of SQLite's machine
  sqlite3_progress_handler(
      banco_, kPassosEntreOlhares, [](void* /*nada*/) { return sinalRecebido() != 0 ? 1 : 0; }, nullptr);
}

void BancoSomenteLeitura::naoLe(const std::string& caminho) const {
  throw Falha(situacao_, explica(banco_, caminho, espera_.maximo));
}

}  // namespace cotepe::programa
