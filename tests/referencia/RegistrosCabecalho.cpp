// The header registers of the second reading: E01 to E04.
#include "referencia/Consultas.h"
#include "referencia/Gerador.h"
#include "referencia/Texto.h"

namespace referencia {

void Gerador::tipoE01() {
  Registro reg;
  reg.campo("E01", 3);
  reg.campo(esquerda(nrFabricacao_, 20), 20);
  reg.campo(" ", 1);

  std::string numEcf;
  if (!e01DadosEcf(reg, numEcf)) return gravaLog("Erro no select 1 - TipoE01");
  if (!e01VersaoSb(reg)) return gravaLog("Erro no select 2 - TipoE01");
  reg.campo(zeros(inteiro(numEcf), 3), 3);
  if (!cnpjDosUsuarios(reg)) return gravaLog("Erro no select 3 - TipoE01");
  reg.campo(esquerda(comando_, 3), 3);
  if (!e01Reducoes(reg)) return gravaLog("Erro no select 4 - TipoE01");
  reg.campo(esquerda("02.00.02", 8), 8);
  reg.campo(esquerda(entrada_.versao == 1 ? "AC1704 01.00.00" : "AC1704 02.00.00", 15), 15);
  escreveLinha(reg);
}

// Several rows repeat the type, the brand and the model; no row leaves them out.
bool Gerador::e01DadosEcf(Registro& reg, std::string& numEcf) {
  Consulta consulta(banco_, kE01_1);
  while (consulta.linha()) {
    std::string tipo = consulta.texto(0);
    if (tipo.empty() && !entrada_.tipoGlobal.empty()) tipo = entrada_.tipoGlobal;
    reg.campo(esquerda(tipo, 7), 7);
    reg.campo(esquerda(consulta.texto(1), 20), 20);
    reg.campo(esquerda(consulta.texto(2), 20), 20);
    // A placeholder of the software version; the cursor does not move.
    std::string versaoSb = consulta.texto(3);
    if (versaoSb.empty()) versaoSb = entrada_.versaoSbGlobal;
    reg.escreve(esquerda(versaoSb, 10));
    numEcf = limita(consulta.texto(4), 3);
  }
  return consulta.terminou();
}

// Without a row the version is left out: 14 blanks for the date and the time only.
bool Gerador::e01VersaoSb(Registro& reg) {
  Consulta consulta(banco_, kE01_2);
  int row = 0;
  while (consulta.linha()) {
    reg.campo(esquerda(consulta.texto(0), 10), 10);
    reg.campo(formataData(consulta.texto(1)), 8);
    reg.campo(formataHora(consulta.texto(1)), 6);
    row++;
  }
  if (!consulta.terminou()) return false;
  if (row == 0) {
    reg.campo(brancos(8), 8);
    reg.campo(brancos(6), 6);
  }
  return true;
}

bool Gerador::e01Reducoes(Registro& reg) {
  Consulta consulta(banco_, comPeriodo(kE01_4));
  int row = 0;
  while (consulta.linha()) {
    if (consulta.bytes(0) == 0) continue;
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(zeros(inteiro(consulta.texto(1)) % 1000000, 6), 6);
    reg.campo(consulta.bytes(2) != 0 ? formataData(consulta.texto(2)) : brancos(8), 8);
    reg.campo(consulta.bytes(3) != 0 ? formataData(consulta.texto(3)) : brancos(8), 8);
    row++;
  }
  if (!consulta.terminou()) return false;
  if (row == 0) {
    reg.campo(zeros(0, 6), 6);
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(8), 8);
    reg.campo(brancos(8), 8);
  }
  return true;
}

void Gerador::tipoE02() {
  const std::string gt = e02Gt();
  Consulta consulta(banco_, kE02);
  Registro reg;
  while (consulta.linha()) {
    reg.limpa();
    cabeca(reg, "E02");
    reg.campo(semSinal(inteiro(consulta.texto(0)), 14), 14);
    reg.campo(preenche(remove(remove(consulta.texto(1), '.'), '-'), 14), 14);
    reg.campo(esquerda(consulta.texto(2), 40), 40);
    reg.campo(esquerda(consulta.texto(3), 120), 120);
    reg.campo(formataData(consulta.texto(4)), 8);
    reg.campo(formataHora(consulta.texto(4)), 6);
    reg.campo(zeros(inteiro(consulta.texto(5)) % 1000000, 6), 6);
    reg.campo(semSinal(centavos(!gt.empty() ? gt : consulta.texto(6)), 18), 18);
    reg.campo(zeros(1, 2), 2);
    escreveLinha(reg);
  }
  if (!consulta.terminou()) gravaLog("Erro no select - TipoE02");
}

// The grand total for every user, or an empty text: at most 18 characters are taken, 17 are used.
std::string Gerador::e02Gt() {
  Consulta consulta(banco_, comando_ == "MF" ? kE02GtMf : kE02Gt);
  if (!consulta.linha() || consulta.nula(0)) return "";
  const std::string maximo = consulta.texto(0);
  return maximo.size() <= 18 ? limita(maximo, 17) : "";
}

void Gerador::tipoE03() {
  Registro reg;
  cabeca(reg, "E03");
  reg.campo(zeros(0, 2), 2);
  reg.campo(brancos(8), 8);
  reg.campo(brancos(6), 6);
  reg.campo(zeros(0, 14), 14);
  reg.campo(zeros(0, 14), 14);
  reg.campo(zeros(0, 18), 18);
  escreveLinha(reg);
}

void Gerador::tipoE04() {
  if (entrada_.cat52) return;
  Registro reg;
  cabecaComUsuario(reg, "E04");
  reg.campo(brancos(8), 8);
  reg.campo(brancos(6), 6);
  reg.campo(zeros(0, 14), 14);
  reg.campo(zeros(0, 14), 14);
  reg.campo(zeros(0, 6), 6);
  reg.campo(zeros(0, 18), 18);
  escreveLinha(reg);
}

}  // namespace referencia
