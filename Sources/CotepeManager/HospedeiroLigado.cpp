#include "HospedeiroLigado.h"

#include "GravaLog.h"
#include "Identidade.h"
#include "Leiaute/Texto.h"
#include "PreencheComChar.h"
#include "RtcClasses.h"

namespace cotepe {
namespace {

template <std::size_t N, std::size_t M>
const char* copia(std::array<char, N>& destino, const char (&global)[M]) {
  static_assert(N == M + 1);
  copiaLimitada(destino.data(), N, global);
  return destino.data();
}

}  // namespace

void HospedeiroLigado::registraLog(const char* mensagem) {
  char modificavel[128];
  copiaLimitada(modificavel, mensagem);
  Quorvel_GravaLog(modificavel);
}

const char* HospedeiroLigado::serial() { return copia(serial_, g_Serial); }
const char* HospedeiroLigado::modelo() { return copia(modelo_, g_Modelo); }
const char* HospedeiroLigado::tipo() { return copia(tipo_, g_Tipo); }

void HospedeiroLigado::dataHoraAtual(char* saida) {
  char formatoDaData[] = "yyyymmdd";
  char formatoDaHora[] = "hhmmss";
  RtcAbsoluteTime agora;
  agora.GetCurrentDateTime();
  agora.ToStrDateTime(formatoDaData, formatoDaHora, saida);
}

void HospedeiroLigado::preenche(char* texto, char* destino, int largura) {
  PreencheComChar(texto, destino, largura, ' ', 1);
}

}  // namespace cotepe
