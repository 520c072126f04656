// The fiscal-memory registers of the second reading: E05 to E13 and E22.
#include "referencia/Consultas.h"
#include "referencia/Gerador.h"
#include "referencia/Texto.h"

namespace referencia {

// The record and the cursor are never rewound: a second row continues the line of the first, over its coding.
void Gerador::tipoE05() {
  Registro reg;
  cabeca(reg, "E05");
  if (!cnpjDosUsuarios(reg)) return gravaLog("Erro no select 1 - TipoE05");

  Consulta consulta(banco_, kE05);
  int row = 0;
  while (consulta.linha()) {
    reg.campo(formataData(consulta.texto(0)), 8);
    reg.campo(formataHora(consulta.texto(0)), 6);
    reg.escreve(consulta.texto(1));
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select 2 - TipoE05");
  if (row == 0) {
    reg.campo(brancos(8), 8);
    reg.campo(brancos(6), 6);
    reg.escreve(brancos(10));
    escreveLinha(reg);
  }
}

// As E05, but the symbol has a width and moves the cursor: a second row appends a whole group.
void Gerador::tipoE06() {
  Registro reg;
  cabeca(reg, "E06");
  if (!cnpjDosUsuarios(reg)) return gravaLog("Erro no select 1 - TipoE06");

  Consulta consulta(banco_, kE06);
  int row = 0;
  while (consulta.linha()) {
    reg.campo(formataData(consulta.texto(0)), 8);
    reg.campo(formataHora(consulta.texto(0)), 6);
    reg.campo(esquerda(consulta.texto(1), 4), 4);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select 2 - TipoE06");
  if (row == 0) {
    reg.campo(brancos(8), 8);
    reg.campo(brancos(6), 6);
    reg.campo(brancos(4), 4);
    escreveLinha(reg);
  }
}

// The filler is bare: the record is still empty and the cursor still at 0.
void Gerador::tipoE07() {
  Consulta consulta(banco_, kE07);
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabeca(reg, "E07");
    reg.campo(esquerda(consulta.texto(0), 10), 10);
    reg.campo(formataData(consulta.texto(1)), 8);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE07");
  if (row == 0) {
    reg.campo(brancos(10), 10);
    reg.campo(brancos(8), 8);
    escreveLinha(reg);
  }
}

void Gerador::tipoE08() {
  Registro reg;
  cabeca(reg, "E08");
  if (!cnpjDosUsuarios(reg)) return gravaLog("Erro no select - TipoE08");
  reg.campo(brancos(20), 20);
  escreveLinha(reg);
}

void Gerador::tipoE09() {
  Consulta consulta(banco_, kE09);
  const bool versao2 = entrada_.versao == 2;
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabeca(reg, "E09");
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(formataData(consulta.texto(1)), 8);
    reg.campo(formataHora(consulta.texto(1)), 6);
    reg.campo(consulta.texto(2), 1);
    if (versao2) {
      const std::string tipo = consulta.texto(3);
      const bool comecaComT = !tipo.empty() && tipo[0] == 'T';
      reg.campo(comecaComT ? "F" : tipo, 1);
      reg.campo(zeros(inteiro(consulta.texto(4)) % 10000, 4), 4);
      reg.campo(zeros(inteiro(consulta.texto(5)) % 1000000000, 9), 9);
    }
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE09");
  if (row == 0 && !entrada_.cat52) {
    cabeca(reg, "E09");
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(8), 8);
    reg.campo(brancos(6), 6);
    reg.campo(" ", 1);
    if (versao2) {
      reg.escreve(" ");  // the cursor stays: the CRZ takes this place
      reg.campo(zeros(0, 4), 4);
      reg.campo(zeros(0, 9), 9);
    }
    escreveLinha(reg);
  }
}

void Gerador::tipoE10() {
  std::string cnpj;
  {
    Consulta consulta(banco_, kCnpj);
    int row = 0;
    while (consulta.linha()) {
      cnpj = consulta.texto(0);
      row++;
    }
    if (!consulta.terminou()) return gravaLog("Erro no select 1 - TipoE10");
    if (row == 0) cnpj = zeros(0, 14);
  }

  Consulta consulta(banco_, comPeriodo(kE10));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabeca(reg, "E10");
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(formataData(consulta.texto(1)), 8);
    reg.campo(contador(consulta.texto(2)), countSize_);
    reg.campo(contador(consulta.texto(3)), countSize_);
    reg.campo(semSinal(inteiro(cnpj), 14), 14);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select 2 - TipoE10");
  if (row == 0 && !entrada_.cat52) {
    cabeca(reg, "E10");
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(8), 8);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, 14), 14);  // zeros even when there is a CNPJ
    escreveLinha(reg);
  }
}

// Exactly one line: the last row, or zeros; its stamp stands at fixed positions.
void Gerador::tipoE11() {
  Registro reg;
  {
    Consulta consulta(banco_, kE11);
    int row = 0;
    while (consulta.linha()) {
      reg.limpa();
      cabeca(reg, "E11");
      reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
      reg.campo(zeros(inteiro(consulta.texto(1)) % 1000000, 6), 6);
      reg.campo(contador(consulta.texto(2)), countSize_);
      reg.campo(contador(consulta.texto(3)), countSize_);
      reg.campo(contador(consulta.texto(4)), countSize_);
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(0, 6), 6);
      reg.campo(contador(consulta.texto(5)), countSize_);
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(inteiro(consulta.texto(6)) % 1000000, 6), 6);
      reg.campo(semSinal(centavos(consulta.texto(7)), 18), 18);
      row++;
    }
    if (!consulta.terminou()) return gravaLog("Erro no select - TipoE11");
    if (row == 0) {
      cabeca(reg, "E11");
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(0, 6), 6);
      for (int i = 0; i < 3; i++) reg.campo(zeros(0, countSize_), countSize_);
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(0, countSize_), countSize_);
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(0, 6), 6);
      reg.campo(zeros(0, 18), 18);
    }
  }
  // Positions counted from 1: the date from 123, the time from 131, a terminator at 138.
  const std::string& agora = entrada_.dataHoraDoSistema;
  reg.escreve(123 - 1, agora);
  reg.escreve(131 - 1, agora.size() > 9 ? agora.substr(9) : "");
  reg.escreve(138 - 1, "");
  escreveLinha(reg);
}

void Gerador::tipoE12() {
  Consulta consulta(banco_, comPeriodo(kE12));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabecaComUsuario(reg, "E12");
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(contador(consulta.texto(1)), countSize_);
    reg.campo(zeros(inteiro(consulta.texto(2)) % 1000000, 6), 6);
    reg.campo(formataData(consulta.texto(3)), 8);
    reg.campo(formataData(consulta.texto(4)), 8);
    reg.campo(formataHora(consulta.texto(4)), 6);
    reg.campo(semSinal(centavos(consulta.texto(5)), 14), 14);
    reg.campo("S", 1);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE12");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E12");
    reg.campo(zeros(0, 6), 6);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(8), 8);
    reg.campo(brancos(8), 8);
    reg.campo(brancos(6), 6);
    reg.campo(zeros(0, 14), 14);
    reg.campo(" ", 1);  // not "S"
    escreveLinha(reg);
  }
}

// First the fiscal totalizers, then the sums of the others; only the first filler heeds CAT52.
void Gerador::tipoE13() {
  Registro reg;
  int row = 0;
  if (!e13Linhas(reg, kE13_1, "Erro no select 1 - TipoE13", row)) return;
  if (row == 0 && !entrada_.cat52) {
    reg.limpa();
    cabecaComUsuario(reg, "E13");
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(7), 7);
    reg.campo(zeros(0, 13), 13);
    escreveLinha(reg);
  }

  row = 0;
  if (!e13Linhas(reg, kE13_2, "Erro no select 2 - TipoE13", row)) return;
  if (row == 0) {
    reg.limpa();
    cabecaComUsuario(reg, "E13");
    reg.campo(zeros(0, 6), 6);
    reg.campo(esquerda("OPNF", 7), 7);
    reg.campo(zeros(0, 13), 13);
    escreveLinha(reg);
  }
}

bool Gerador::e13Linhas(Registro& reg, const char* sql, const char* mensagem, int& row) {
  Consulta consulta(banco_, comPeriodo(sql));
  while (consulta.linha()) {
    reg.limpa();
    cabecaComUsuario(reg, "E13");
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(esquerda(remove(consulta.texto(1), '.'), 7), 7);
    reg.campo(semSinal(centavos(consulta.texto(2)), 13), 13);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) gravaLog(mensagem);
  return consulta.terminou();
}

// No blank between the manufacture number and the model, no user, no filler; the number is never clipped,
// and the message is the one of the register before.
void Gerador::tipoE22() {
  Consulta consulta(banco_, kE22);
  Registro reg;
  while (consulta.linha()) {
    reg.limpa();
    reg.campo("E22", 3);
    reg.campo(esquerda(nrFabricacao_, 20), 20);
    reg.campo(esquerda(modelo_, 20), 20);
    reg.campoNuncaCortado(zeros(inteiro(consulta.texto(0)), 4), 4);
    reg.campo(formataData(consulta.texto(2)), 8);
    escreveLinha(reg);
  }
  if (!consulta.terminou()) gravaLog("Erro no select - TipoE21");
}

}  // namespace referencia
