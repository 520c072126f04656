// One run of the second reading: the period, the identity, the choice of registers.
#include "referencia/Gerador.h"

#include <map>

#include "referencia/Consultas.h"
#include "referencia/Texto.h"

namespace referencia {
namespace {

// DDMMYYYY to YYYY-MM-DD.
std::string dia(const std::string& ddmmaaaa) {
  return ddmmaaaa.substr(4, 4) + "-" + ddmmaaaa.substr(2, 2) + "-" + ddmmaaaa.substr(0, 2);
}

}  // namespace

bool Gerador::prepara() {
  if (entrada_.inicial.size() < 8 || entrada_.final.size() < 8) {
    saida_.codigo = 2;
    return false;
  }
  dataHoraInicial_ = dia(entrada_.inicial) + " 00:00:00";
  dataHoraFinal_ = dia(entrada_.final) + " 23:59:59";
  countSize_ = entrada_.versao == 1 ? 6 : 9;
  divCount_ = entrada_.versao == 1 ? 1000000 : 1000000000;
  modelo_ = limita(entrada_.modeloGlobal, 20);
  nrFabricacao_ = limita(entrada_.serialGlobal, 20);
  comando_ = limita(entrada_.comando, 3);
  return leIdentidade();
}

bool Gerador::leIdentidade() {
  Consulta consulta(banco_, kIdentidade);
  while (consulta.linha()) {
    if (!consulta.texto(0).empty()) nrFabricacao_ = limita(consulta.texto(0), 20);
    if (!consulta.texto(1).empty()) modelo_ = limita(consulta.texto(1), 20);
    usuario_ = limita(consulta.texto(2), 2);
  }
  if (consulta.terminou()) return true;
  gravaLog("Erro no select - GeraRegistrosTipoE");
  saida_.codigo = 5;
  return false;
}

Saida Gerador::gera() {
  if (!prepara()) return saida_;
  const std::string& comando = entrada_.comando;

  chama("E01");
  chama("E02");
  if (comando == "MF" || comando == "TDM")
    for (const char* codigo : {"E05", "E06", "E07", "E08", "E09", "E10", "E11", "E12", "E13"}) chama(codigo);
  if (comando == "MFD" || comando == "TDM" || comando == "RZ")
    for (const char* codigo : {"E14", "E15", "E16"}) chama(codigo);
  if (comando == "MFD" || comando == "TDM")
    for (const char* codigo : {"E17", "E18", "E19", "E20", "E21"}) chama(codigo);
  if ((comando == "MF" || comando == "TDM") && entrada_.versao == 2) chama("E22");
  return saida_;
}

Saida Gerador::geraRegistro(const std::string& codigo) {
  if (prepara()) chama(codigo);
  return saida_;
}

void Gerador::chama(const std::string& codigo) {
  using Escritor = void (Gerador::*)();
  static const std::map<std::string, Escritor> kEscritores = {
      {"E01", &Gerador::tipoE01}, {"E02", &Gerador::tipoE02}, {"E03", &Gerador::tipoE03},
      {"E04", &Gerador::tipoE04}, {"E05", &Gerador::tipoE05}, {"E06", &Gerador::tipoE06},
      {"E07", &Gerador::tipoE07}, {"E08", &Gerador::tipoE08}, {"E09", &Gerador::tipoE09},
      {"E10", &Gerador::tipoE10}, {"E11", &Gerador::tipoE11}, {"E12", &Gerador::tipoE12},
      {"E13", &Gerador::tipoE13}, {"E14", &Gerador::tipoE14}, {"E15", &Gerador::tipoE15},
      {"E16", &Gerador::tipoE16}, {"E17", &Gerador::tipoE17}, {"E18", &Gerador::tipoE18},
      {"E19", &Gerador::tipoE19}, {"E20", &Gerador::tipoE20}, {"E21", &Gerador::tipoE21},
      {"E22", &Gerador::tipoE22}};
  (this->*kEscritores.at(codigo))();
}

void Gerador::cabeca(Registro& reg, const char* codigo) const {
  reg.campo(codigo, 3);
  reg.campo(esquerda(nrFabricacao_, 20), 20);
  reg.campo(" ", 1);
  reg.campo(esquerda(modelo_, 20), 20);
}

void Gerador::cabecaComUsuario(Registro& reg, const char* codigo) const {
  cabeca(reg, codigo);
  reg.campo(zeros(inteiro(usuario_), 2), 2);
}

bool Gerador::cnpjDosUsuarios(Registro& reg) {
  Consulta consulta(banco_, kCnpj);
  int row = 0;
  while (consulta.linha()) {
    reg.campo(semSinal(inteiro(consulta.texto(0)), 14), 14);
    row++;
  }
  if (!consulta.terminou()) return false;
  if (row == 0) reg.campo(zeros(0, 14), 14);
  return true;
}

std::string Gerador::contador(const std::string& texto) const {
  return zeros(inteiro(texto) % divCount_, countSize_);
}

std::string Gerador::comPeriodo(const std::string& sql) const {
  std::string preenchida = sql;
  bool primeiro = true;
  std::size_t posicao = 0;
  while ((posicao = preenchida.find("%s", posicao)) != std::string::npos) {
    const std::string& limite = primeiro ? dataHoraInicial_ : dataHoraFinal_;
    preenchida.replace(posicao, 2, limite);
    posicao += limite.size();
    primeiro = !primeiro;
  }
  return preenchida;
}

Saida gera(sqlite3* banco, const Entrada& entrada) { return Gerador(banco, entrada).gera(); }

Saida geraRegistro(sqlite3* banco, const Entrada& entrada, const std::string& codigo) {
  return Gerador(banco, entrada).geraRegistro(codigo);
}

}  // namespace referencia
