// A host whose own symbols serve the class: hospedeiro DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY.
#include <sqlite3.h>

#include <cstdio>

#include "CotepeManager.h"

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  sqlite3* banco = nullptr;
  if (sqlite3_open_v2(argv[1], &banco, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) return 3;
  CotepeManager gerador(banco);
  gerador.setVersaoAtoCotepe(2);
  const int resultado = gerador.GeraRegistrosTipoE(argv[2], argv[3], argv[4], "TDM");
  if (resultado != cotepe::kGerado) std::fprintf(stderr, "hospedeiro: resultado %d\n", resultado);
  sqlite3_close(banco);
  return resultado;
}
