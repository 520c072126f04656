// The class over the symbols of the application: log, identity, clock, padding. It is delivered as source
// because the application compiles it with its own headers of those names, so that sizes and constructors are
// its own. C++11 is enough.
#include <cstddef>

#include "CotepeManager.h"
#include "Geracao.h"
#include "GravaLog.h"
#include "Identidade.h"
#include "PreencheComChar.h"
#include "RtcClasses.h"

namespace {

// As much of `origem` as `destino` and `maximo` bytes hold, terminated.
template <std::size_t N>
char* copia(char (&destino)[N], const char* origem, std::size_t maximo = N) {
  std::size_t i = 0;
  for (; i < maximo && i < N - 1 && origem[i] != '\0'; ++i) destino[i] = origem[i];
  destino[i] = '\0';
  return destino;
}

class HospedeiroLigado final : public cotepe::Hospedeiro {
 public:
  void registraLog(const char* mensagem) override {
    char modificavel[128];
    Quorvel_GravaLog(copia(modificavel, mensagem));
  }
  const char* serial() override { return copia(serial_, g_Serial, sizeof g_Serial); }
  const char* modelo() override { return copia(modelo_, g_Modelo, sizeof g_Modelo); }
  const char* tipo() override { return copia(tipo_, g_Tipo, sizeof g_Tipo); }

  void dataHoraAtual(char* saida) override {
    char formatoDaData[] = "yyyymmdd";
    char formatoDaHora[] = "hhmmss";
    RtcAbsoluteTime agora;
    agora.GetCurrentDateTime();
    agora.ToStrDateTime(formatoDaData, formatoDaHora, saida);
  }

  void preenche(char* texto, char* destino, int largura) override {
    PreencheComChar(texto, destino, largura, ' ', 1);
  }

 private:
  // Terminated copies of the globals.
  char serial_[sizeof g_Serial + 1];
  char modelo_[sizeof g_Modelo + 1];
  char tipo_[sizeof g_Tipo + 1];
};

}  // namespace

int CotepeManager::GeraRegistrosTipoE(const char* szReportFileName, const char* szDataInicial,
                                      const char* szDataFinal, const char* szCmd) {
  HospedeiroLigado hospedeiro;
  return gera(szReportFileName, szDataInicial, szDataFinal, szCmd, hospedeiro);
}

void CotepeManager::escreve(const char* codigo) {
  HospedeiroLigado hospedeiro;
  escreve(codigo, hospedeiro);
}

void CotepeManager::TipoE01() { escreve("E01"); }
void CotepeManager::TipoE02() { escreve("E02"); }
void CotepeManager::TipoE03() { escreve("E03"); }
void CotepeManager::TipoE04() { escreve("E04"); }
void CotepeManager::TipoE05() { escreve("E05"); }
void CotepeManager::TipoE06() { escreve("E06"); }
void CotepeManager::TipoE07() { escreve("E07"); }
void CotepeManager::TipoE08() { escreve("E08"); }
void CotepeManager::TipoE09() { escreve("E09"); }
void CotepeManager::TipoE10() { escreve("E10"); }
void CotepeManager::TipoE11() { escreve("E11"); }
void CotepeManager::TipoE12() { escreve("E12"); }
void CotepeManager::TipoE13() { escreve("E13"); }
void CotepeManager::TipoE14() { escreve("E14"); }
void CotepeManager::TipoE15() { escreve("E15"); }
void CotepeManager::TipoE16() { escreve("E16"); }
void CotepeManager::TipoE17() { escreve("E17"); }
void CotepeManager::TipoE18() { escreve("E18"); }
void CotepeManager::TipoE19() { escreve("E19"); }
void CotepeManager::TipoE20() { escreve("E20"); }
void CotepeManager::TipoE21() { escreve("E21"); }
void CotepeManager::TipoE22() { escreve("E22"); }
