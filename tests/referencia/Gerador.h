// The state of one run of the second reading and one writer per register.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>

#include "referencia/Referencia.h"
#include "referencia/Registro.h"

namespace referencia {

class Gerador {
 public:
  Gerador(sqlite3* banco, const Entrada& entrada) : banco_(banco), entrada_(entrada) {}

  Saida gera();
  Saida geraRegistro(const std::string& codigo);

 private:
  bool prepara();
  bool leIdentidade();
  void chama(const std::string& codigo);

  void tipoE01();
  bool e01DadosEcf(Registro& reg, std::string& numEcf);
  bool e01VersaoSb(Registro& reg);
  bool e01Reducoes(Registro& reg);
  void tipoE02();
  std::string e02Gt();
  void tipoE03();
  void tipoE04();

  void tipoE05();
  void tipoE06();
  void tipoE07();
  void tipoE08();
  void tipoE09();
  void tipoE10();
  void tipoE11();
  void tipoE12();
  void tipoE13();
  bool e13Linhas(Registro& reg, const char* sql, const char* mensagem, int& row);
  void tipoE22();

  void tipoE14();
  void tipoE15();
  void tipoE16();
  void tipoE17();
  void tipoE18();
  void tipoE19();
  void tipoE20();
  void tipoE21();

  // Fields 1 to 4 of most registers: the code, the manufacture number, one blank and the model.
  void cabeca(Registro& reg, const char* codigo) const;
  // The same and field 5, the user's number.
  void cabecaComUsuario(Registro& reg, const char* codigo) const;
  // One CNPJ of 14 digits for every row of dados_usuario, or one of zeros; false when the query failed.
  bool cnpjDosUsuarios(Registro& reg);

  // A counter at m_iCountSize digits, after the remainder by m_iDivCount.
  std::string contador(const std::string& texto) const;

  // The query with its "%s" filled with the first and the last moment of the period, by turns.
  std::string comPeriodo(const std::string& sql) const;

  void escreveLinha(const Registro& reg) { saida_.arquivo += reg.linha() + "\n"; }
  void gravaLog(const std::string& mensagem) { saida_.log.push_back(mensagem); }

  sqlite3* banco_;
  const Entrada& entrada_;
  Saida saida_;

  std::string dataHoraInicial_;  // YYYY-MM-DD 00:00:00
  std::string dataHoraFinal_;    // YYYY-MM-DD 23:59:59
  std::string nrFabricacao_;     // up to 20 bytes
  std::string modelo_;           // up to 20 bytes
  std::string usuario_;          // up to 2 bytes
  std::string comando_;          // up to 3 bytes
  int countSize_ = 6;
  std::int64_t divCount_ = 1000000;
};

}  // namespace referencia
