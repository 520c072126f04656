#include "ArquivosDoBanco.h"

#include <sqlite3.h>

#include "Sistema/ConflitoDeArquivos.h"

namespace cotepe {
namespace {

// The name of the n-th database of a connection; null after the last.
const char* nomeDoBanco(sqlite3* banco, int n) {
#if SQLITE_VERSION_NUMBER >= 3039000
  return sqlite3_db_name(banco, n);
#else
  static_cast<void>(banco);
  return n == 0 ? "main" : nullptr;
#endif
}

}  // namespace

bool arruinaOBanco(sqlite3* banco, const char* caminho) {
  if (banco == nullptr) return false;
  for (int n = 0; const char* nome = nomeDoBanco(banco, n); ++n) {
    const char* arquivo = sqlite3_db_filename(banco, nome);
    if (arquivo != nullptr && *arquivo != '\0' && pertenceAoBanco(caminho, arquivo)) return true;
  }
  return false;
}

}  // namespace cotepe
