// The class over a clock of the application's own layout, in C++11: relogio DATABASE REPORT FIRST_DAY
// LAST_DAY.
#include <sqlite3.h>

#include <cstdio>
#include <cstring>

#include "CotepeManager.h"
#include "RtcClasses.h"

int RtcAbsoluteTime::construidos = 0;
int RtcAbsoluteTime::destruidos = 0;

RtcAbsoluteTime::RtcAbsoluteTime() : texto_("") {
  ++construidos;
  std::memset(cheio_, 'x', sizeof cheio_);
}
RtcAbsoluteTime::~RtcAbsoluteTime() { ++destruidos; }
void RtcAbsoluteTime::GetCurrentDateTime() { texto_ = "20240229 083000"; }
void RtcAbsoluteTime::ToStrDateTime(char*, char*, char* out) {
  if (cheio_[sizeof cheio_ - 1] == 'x') std::strcpy(out, texto_);
}

int main(int argc, char** argv) {
  sqlite3* banco = nullptr;
  if (argc != 5 || sqlite3_open_v2(argv[1], &banco, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) return 64;
  const int resultado = [&] {
    CotepeManager gerador(banco);
    gerador.setVersaoAtoCotepe(2);
    return gerador.GeraRegistrosTipoE(argv[2], argv[3], argv[4], "TDM");
  }();
  sqlite3_close(banco);
  if (RtcAbsoluteTime::construidos != 1 || RtcAbsoluteTime::destruidos != 1) return 65;
  return resultado;
}
