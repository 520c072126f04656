// What the class does with the application's own symbols, apart from the run itself, which needs none of
// them: who runs by object links no such symbol.
#include "CotepeManager.h"
#include "HospedeiroLigado.h"
#include "Registros/Catalogo.h"

int CotepeManager::GeraRegistrosTipoE(const char* szReportFileName, const char* szDataInicial,
                                      const char* szDataFinal, const char* szCmd) {
  cotepe::HospedeiroLigado hospedeiro;
  return gera(szReportFileName, szDataInicial, szDataFinal, szCmd, hospedeiro);
}

void CotepeManager::escreve(const cotepe::Registro& registro) {
  cotepe::HospedeiroLigado hospedeiro;
  escreve(registro, hospedeiro);
}

void CotepeManager::TipoE01() { escreve(cotepe::kE01); }
void CotepeManager::TipoE02() { escreve(cotepe::kE02); }
void CotepeManager::TipoE03() { escreve(cotepe::kE03); }
void CotepeManager::TipoE04() { escreve(cotepe::kE04); }
void CotepeManager::TipoE05() { escreve(cotepe::kE05); }
void CotepeManager::TipoE06() { escreve(cotepe::kE06); }
void CotepeManager::TipoE07() { escreve(cotepe::kE07); }
void CotepeManager::TipoE08() { escreve(cotepe::kE08); }
void CotepeManager::TipoE09() { escreve(cotepe::kE09); }
void CotepeManager::TipoE10() { escreve(cotepe::kE10); }
void CotepeManager::TipoE11() { escreve(cotepe::kE11); }
void CotepeManager::TipoE12() { escreve(cotepe::kE12); }
void CotepeManager::TipoE13() { escreve(cotepe::kE13); }
void CotepeManager::TipoE14() { escreve(cotepe::kE14); }
void CotepeManager::TipoE15() { escreve(cotepe::kE15); }
void CotepeManager::TipoE16() { escreve(cotepe::kE16); }
void CotepeManager::TipoE17() { escreve(cotepe::kE17); }
void CotepeManager::TipoE18() { escreve(cotepe::kE18); }
void CotepeManager::TipoE19() { escreve(cotepe::kE19); }
void CotepeManager::TipoE20() { escreve(cotepe::kE20); }
void CotepeManager::TipoE21() { escreve(cotepe::kE21); }
void CotepeManager::TipoE22() { escreve(cotepe::kE22); }
