#include "Conferencia/Conferencia.h"

#include "Conferencia/Partes.h"

namespace cotepe {

void confereBanco(sqlite3* banco, const OpcoesDaConferencia& opcoes, RecebeAchados& recebe) {
  const Contexto contexto(banco, opcoes, recebe);
  confereEsquema(contexto);
  for (const FormaDaTabela& forma : kFormas)
    if (contexto.lida(forma.nome)) confereLinhas(contexto, forma);
  confereLigacoes(contexto);
  confereUnicidade(contexto);
  confereIndices(contexto);
}

}  // namespace cotepe
