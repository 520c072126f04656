// A host of the differential test's own: every symbol that the generator asks of its application.
#include "referencia/Hospedeiro.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "GravaLog.h"
#include "Identidade.h"
#include "PreencheComChar.h"
#include "RtcClasses.h"
#include "referencia/Texto.h"

char g_Serial[30];
char g_Modelo[30];
char g_Tipo[15];
char g_VersaoSB[15];

namespace referencia {
namespace {

std::vector<std::string> mensagens;
std::string agora;

template <std::size_t N>
void copia(char (&destino)[N], const std::string& texto) {
  if (texto.size() >= N) throw std::invalid_argument("too long for its global: " + texto);
  std::memset(destino, 0, N);
  std::memcpy(destino, texto.data(), texto.size());
}

}  // namespace

std::vector<std::string> recolheLog() {
  std::vector<std::string> recolhidas;
  recolhidas.swap(mensagens);
  return recolhidas;
}

void acertaRelogio(const std::string& dataHora) { agora = dataHora; }

void identifica(const std::string& serial, const std::string& modelo, const std::string& tipo,
                const std::string& versaoSb) {
  copia(g_Serial, serial);
  copia(g_Modelo, modelo);
  copia(g_Tipo, tipo);
  copia(g_VersaoSB, versaoSb);
}

}  // namespace referencia

void Quorvel_GravaLog(char* mensagem) { referencia::mensagens.emplace_back(mensagem); }

// The signatures below are the host's.
// NOLINTBEGIN(readability-make-member-function-const,readability-non-const-parameter)

// A clock that was never loaded shows nothing.
void RtcAbsoluteTime::GetCurrentDateTime() { tm_.tm_year = 2024; }

void RtcAbsoluteTime::ToStrDateTime(char* dateFormat, char* timeFormat, char* out) {
  const bool certo = tm_.tm_year == 2024 && std::strcmp(dateFormat, "yyyymmdd") == 0 &&
                     std::strcmp(timeFormat, "hhmmss") == 0;
  const std::string texto = certo ? referencia::agora : "";
  std::memcpy(out, texto.c_str(), texto.size() + 1);
}

// Only mode 1 is known here; any other leaves question marks.
void PreencheComChar(char* texto, char* destino, int tamanho, char caractere, int modo) {
  const std::string campo = modo == 1 && caractere == ' '
                                ? referencia::preenche(texto, tamanho)
                                : std::string(static_cast<std::size_t>(tamanho), '?');
  std::copy(campo.begin(), campo.end(), destino);
}

// NOLINTEND(readability-make-member-function-const,readability-non-const-parameter)
