// The detail-tape registers of the second reading: E14 to E21.
#include "referencia/Consultas.h"
#include "referencia/Gerador.h"
#include "referencia/Texto.h"

namespace referencia {

// The types are always "V"; the surcharge is tested last and wins.
void Gerador::tipoE14() {
  Consulta consulta(banco_, comPeriodo(kE14));
  const bool comTextos = entrada_.versao == 2 && !entrada_.cat52;
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    const std::int64_t desconto = centavos(consulta.texto(4));
    const std::int64_t acrescimo = centavos(consulta.texto(5));
    std::string acrDesc = " ";
    if (desconto != 0) acrDesc = "D";
    if (acrescimo != 0) acrDesc = "A";

    reg.limpa();
    cabecaComUsuario(reg, "E14");
    reg.campo(contador(consulta.texto(0)), countSize_);
    reg.campo(contador(consulta.texto(1)), countSize_);
    reg.campo(formataData(consulta.texto(2)), 8);
    reg.campo(semSinal(centavos(consulta.texto(3)), 14), 14);
    reg.campo(semSinal(desconto, 13), 13);
    reg.campo("V", 1);
    reg.campo(semSinal(acrescimo, 13), 13);
    reg.campo("V", 1);
    reg.campo(semSinal(centavos(consulta.texto(6)), 14), 14);
    reg.campo(consulta.texto(7), 1);
    reg.campo(semSinal(centavos(consulta.texto(8)), 13), 13);
    reg.campo(acrDesc, 1);
    reg.campo(esquerda(consulta.texto(9), 40), 40);
    reg.campo(semSinal(inteiro(consulta.texto(10)), 14), 14);
    if (comTextos) {
      reg.campo(esquerda(removeNaoAscii(consulta.texto(15)), 560), 560);
      reg.campo(esquerda(removeNaoAscii(consulta.texto(16)), 84), 84);
      reg.campo(esquerda(consulta.texto(17), 44), 44);  // as it stands
    }
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE14");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E14");
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(brancos(8), 8);
    reg.campo(zeros(0, 14), 14);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 14), 14);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(brancos(40), 40);
    reg.campo(zeros(0, 14), 14);
    if (comTextos) {
      reg.campo(brancos(560), 560);
      reg.campo(brancos(84), 84);
      reg.campo(brancos(44), 44);
    }
    escreveLinha(reg);
  }
}

void Gerador::tipoE15() {
  Consulta consulta(banco_, comPeriodo(kE15));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    const std::int64_t casasQuantidade = inteiro(consulta.texto(15));
    const std::int64_t casasValor = inteiro(consulta.texto(16));
    const double escalaQuantidade = casasQuantidade == 3 ? 1000.0 : 100.0;
    const double escalaValor = casasValor == 3 ? 1000.0 : 100.0;

    reg.limpa();
    cabecaComUsuario(reg, "E15");
    reg.campo(contador(consulta.texto(0)), countSize_);
    reg.campo(contador(consulta.texto(1)), countSize_);
    reg.campo(zeros(inteiro(consulta.texto(2)) % 1000000, 3), 3);
    reg.campo(esquerda(consulta.texto(3), 14), 14);
    reg.campo(esquerda(consulta.texto(4), 100), 100);
    reg.campo(zeros(arredonda(decimal(consulta.texto(5)) * escalaQuantidade), 7), 7);
    reg.campo(esquerda(consulta.texto(6), 3), 3);
    reg.campo(zeros(arredonda(decimal(consulta.texto(7)) * escalaValor), 8), 8);
    reg.campo(zeros(arredonda(decimal(consulta.texto(8)) * 100.0), 8), 8);
    reg.campo(zeros(arredonda(decimal(consulta.texto(9)) * 100.0), 8), 8);
    reg.campo(semSinal(centavos(consulta.texto(10)), 14), 14);
    reg.campo(esquerda(remove(consulta.texto(11), '.'), 7), 7);
    reg.campo(consulta.texto(12), 1);
    reg.campo(zeros(0, 7), 7);    // cancelled quantity: never carried
    reg.campo(zeros(0, 13), 13);  // cancelled value: never carried
    reg.campo(semSinal(centavos(consulta.texto(13)), 13), 13);
    reg.campo(consulta.texto(14), 1);
    reg.campo(zeros(casasQuantidade, 1), 1);
    reg.campo(zeros(casasValor, 1), 1);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE15");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E15");
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, 3), 3);
    reg.campo(brancos(14), 14);
    reg.campo(brancos(100), 100);
    reg.campo(zeros(0, 7), 7);
    reg.campo(brancos(3), 3);
    for (int i = 0; i < 3; i++) reg.campo(zeros(0, 8), 8);
    reg.campo(zeros(0, 14), 14);
    reg.campo(brancos(7), 7);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 7), 7);
    reg.campo(zeros(0, 13), 13);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo("0", 1);
    reg.campo("0", 1);
    escreveLinha(reg);
  }
}

// A counter is read only for the document type that owns it; the CDC is never clipped.
void Gerador::tipoE16() {
  Consulta consulta(banco_, comPeriodo(kE16));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    const std::string tipoDoc = consulta.texto(5);
    const bool temGnf = tipoDoc == "CN" || tipoDoc == "RG" || tipoDoc == "CC" || tipoDoc == "NC";

    reg.limpa();
    cabecaComUsuario(reg, "E16");
    reg.campo(contador(consulta.texto(0)), countSize_);
    reg.campo(temGnf ? contador(consulta.texto(1)) : zeros(0, countSize_), countSize_);
    reg.campo(tipoDoc == "RG" ? contador(consulta.texto(2)) : zeros(0, countSize_), countSize_);
    reg.campoNuncaCortado(zeros(tipoDoc == "CC" ? inteiro(consulta.texto(3)) : 0, 4), 4);
    reg.campo(zeros(tipoDoc == "RZ" ? inteiro(consulta.texto(4)) % 1000000 : 0, 6), 6);
    reg.campo(esquerda(tipoDoc, 2), 2);
    reg.campo(formataData(consulta.texto(6)), 8);
    reg.campo(formataHora(consulta.texto(6)), 6);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE16");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E16");
    for (int i = 0; i < 3; i++) reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, 4), 4);
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(2), 2);
    reg.campo(brancos(8), 8);
    reg.campo(brancos(6), 6);
    escreveLinha(reg);
  }
}

// The message carries no register number.
void Gerador::tipoE17() {
  Consulta consulta(banco_, comPeriodo(kE17));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabecaComUsuario(reg, "E17");
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(esquerda(consulta.texto(1), 15), 15);
    reg.campo(semSinal(centavos(consulta.texto(2)), 13), 13);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E17");
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(15), 15);
    reg.campo(zeros(0, 13), 13);
    escreveLinha(reg);
  }
}

// As E17, but the amount is first rounded to two places as a floating-point number.
void Gerador::tipoE18() {
  Consulta consulta(banco_, comPeriodo(kE18));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    const std::string valor = remove(duasCasas(decimal(consulta.texto(2))), ' ');

    reg.limpa();
    cabecaComUsuario(reg, "E18");
    reg.campo(zeros(inteiro(consulta.texto(0)) % 1000000, 6), 6);
    reg.campo(esquerda(consulta.texto(1), 15), 15);
    reg.campo(semSinal(centavos(valor), 13), 13);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE18");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E18");
    reg.campo(zeros(0, 6), 6);
    reg.campo(brancos(15), 15);
    reg.campo(zeros(0, 13), 13);
    escreveLinha(reg);
  }
}

// Unlike E14, the types of discount and surcharge are copied as they stand, and the name is not cut.
void Gerador::tipoE19() {
  Consulta consulta(banco_, comPeriodo(kE19));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    const std::int64_t desconto = centavos(consulta.texto(4));
    const std::int64_t acrescimo = centavos(consulta.texto(5));
    std::string acrDesc = " ";
    if (desconto != 0) acrDesc = "D";
    if (acrescimo != 0) acrDesc = "A";

    reg.limpa();
    cabecaComUsuario(reg, "E19");
    reg.campo(contador(consulta.texto(0)), countSize_);
    reg.campo(contador(consulta.texto(1)), countSize_);
    reg.campo(formataData(consulta.texto(2)), 8);
    reg.campo(semSinal(centavos(consulta.texto(3)), 14), 14);
    reg.campo(semSinal(desconto, 13), 13);
    reg.campo(consulta.texto(12), 1);
    reg.campo(semSinal(acrescimo, 13), 13);
    reg.campo(consulta.texto(11), 1);
    reg.campo(semSinal(centavos(consulta.texto(6)), 14), 14);
    reg.campo(consulta.texto(7), 1);
    reg.campo(semSinal(centavos(consulta.texto(8)), 13), 13);
    reg.campo(acrDesc, 1);
    reg.campo(esquerda(consulta.texto(9), 40), 40);
    reg.campo(semSinal(inteiro(consulta.texto(10)), 14), 14);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE19");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E19");
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(brancos(8), 8);
    reg.campo(zeros(0, 14), 14);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 14), 14);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(brancos(40), 40);
    reg.campo(zeros(0, 14), 14);
    escreveLinha(reg);
  }
}

// The item number is never clipped.
void Gerador::tipoE20() {
  Consulta consulta(banco_, comPeriodo(kE20));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabecaComUsuario(reg, "E20");
    reg.campo(contador(consulta.texto(0)), countSize_);
    reg.campo(contador(consulta.texto(1)), countSize_);
    reg.campoNuncaCortado(zeros(inteiro(consulta.texto(2)), 3), 3);
    reg.campo(esquerda(consulta.texto(3), 15), 15);
    for (int coluna = 4; coluna <= 7; coluna++) reg.campo(semSinal(centavos(consulta.texto(coluna)), 13), 13);
    reg.campo(consulta.texto(8), 1);
    reg.campo(semSinal(centavos(consulta.texto(9)), 13), 13);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE20");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E20");
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(zeros(0, 3), 3);
    reg.campo(brancos(15), 15);
    for (int i = 0; i < 4; i++) reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 13), 13);
    escreveLinha(reg);
  }
}

void Gerador::tipoE21() {
  Consulta consulta(banco_, comPeriodo(kE21_1) + " UNION ALL " + comPeriodo(kE21_2));
  Registro reg;
  int row = 0;
  while (consulta.linha()) {
    reg.limpa();
    cabecaComUsuario(reg, "E21");
    reg.campo(contador(consulta.texto(0)), countSize_);
    reg.campo(contador(consulta.texto(1)), countSize_);
    reg.campo(contador(consulta.texto(2)), countSize_);
    reg.campo(esquerda(consulta.texto(3), 15), 15);
    reg.campo(semSinal(centavos(consulta.texto(4)), 13), 13);
    reg.campo(consulta.texto(5), 1);
    reg.campo(semSinal(centavos(consulta.texto(6)), 13), 13);
    escreveLinha(reg);
    row++;
  }
  if (!consulta.terminou()) return gravaLog("Erro no select - TipoE21");
  if (row == 0 && !entrada_.cat52) {
    cabecaComUsuario(reg, "E21");
    for (int i = 0; i < 3; i++) reg.campo(zeros(0, countSize_), countSize_);
    reg.campo(brancos(15), 15);
    reg.campo(zeros(0, 13), 13);
    reg.campo(" ", 1);
    reg.campo(zeros(0, 13), 13);
    escreveLinha(reg);
  }
}

}  // namespace referencia
