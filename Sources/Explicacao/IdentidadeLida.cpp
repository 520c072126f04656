#include "Explicacao/IdentidadeLida.h"

#include "Consulta.h"
#include "Leiaute/Texto.h"

namespace cotepe {

const char* const kConsultaDaIdentidade =
    "select ecf.num_serie, ecf.modelo, usuario.seq_usuario from dados_ecf AS ecf LEFT JOIN dados_usuario AS "
    "usuario";

IdentidadeLida leIdentidade(sqlite3* banco, Hospedeiro& hospedeiro) {
  IdentidadeLida lida;
  copiaLimitada(lida.nrFabricacao, hospedeiro.serial());
  copiaLimitada(lida.modelo, hospedeiro.modelo());
  Consulta consulta(banco, kConsultaDaIdentidade);
  while (consulta.avanca()) {
    const Fila fila = {consulta.texto(0), consulta.texto(1), consulta.texto(2)};
    if (!fila[IdentidadeLida::kSerie].empty()) {
      copiaLimitada(lida.nrFabricacao, fila[IdentidadeLida::kSerie].c_str());
      lida.filas[IdentidadeLida::kSerie] = fila;
    }
    if (!fila[IdentidadeLida::kModelo].empty()) {
      copiaLimitada(lida.modelo, fila[IdentidadeLida::kModelo].c_str());
      lida.filas[IdentidadeLida::kModelo] = fila;
    }
    copiaLimitada(lida.usuario, fila[IdentidadeLida::kUsuario].c_str());
    lida.filas[IdentidadeLida::kUsuario] = fila;
  }
  lida.completa = consulta.completa();
  return lida;
}

}  // namespace cotepe
