// What the class takes from the application that it is linked into: here, an application of our own.
#include <cstdio>
#include <cstring>

#include "GravaLog.h"
#include "Identidade.h"
#include "PreencheComChar.h"
#include "RtcClasses.h"

// The application's log. The text may be changed, and is the generator's.
void Quorvel_GravaLog(char* mensagem) { std::fprintf(stderr, "hospedeiro: %s\n", mensagem); }

// What the application knows of its printer, in case the database does not.
char g_Serial[30] = "BR0000000000000001";
char g_Modelo[30] = "IMPRESSORA";
char g_Tipo[15] = "ECF-IF";
char g_VersaoSB[15] = "01.00.00";

// The printer's clock: this one stands still.
void RtcAbsoluteTime::GetCurrentDateTime() {
  ano_ = 2024;
  mes_ = 2;
  dia_ = 29;
  hora_ = 8;
  minuto_ = 30;
  segundo_ = 0;
}

// The generator asks for "yyyymmdd" and "hhmmss" alone.
void RtcAbsoluteTime::ToStrDateTime(char* /*dateFormat*/, char* /*timeFormat*/, char* out) {
  std::sprintf(out, "%04d%02d%02d %02d%02d%02d", ano_, mes_, dia_, hora_, minuto_, segundo_);
}

// The generator asks for mode 1, left-aligned, alone.
void PreencheComChar(char* texto, char* destino, int tamanho, char caractere, int /*modo*/) {
  const auto largura = static_cast<std::size_t>(tamanho);
  std::memset(destino, caractere, largura);
  std::memcpy(destino, texto, strnlen(texto, largura));
}
