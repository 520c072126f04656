#include "Explicacao/IdentidadeLida.h"

#include "Consulta.h"
#include "Leiaute/Texto.h"

namespace cotepe {

IdentidadeLida leIdentidade(sqlite3* banco, Hospedeiro& hospedeiro) {
  IdentidadeLida lida;
  copiaLimitada(lida.nrFabricacao, hospedeiro.serial());
  copiaLimitada(lida.modelo, hospedeiro.modelo());
  Consulta consulta(banco, kConsultaDaIdentidade);
  while (consulta.avanca()) {
    const Fila fila = {consulta.texto(0), consulta.texto(1), consulta.texto(2)};
    if (!fila[kColunaSerie].empty()) {
      copiaLimitada(lida.nrFabricacao, fila[kColunaSerie].c_str());
      lida.filas[kColunaSerie] = fila;
    }
    if (!fila[kColunaModelo].empty()) {
      copiaLimitada(lida.modelo, fila[kColunaModelo].c_str());
      lida.filas[kColunaModelo] = fila;
    }
    copiaLimitada(lida.usuario, fila[kColunaUsuario].c_str());
    lida.filas[kColunaUsuario] = fila;
  }
  lida.completa = consulta.completa();
  return lida;
}

}  // namespace cotepe
