#include "Verificacao/Verificador.h"

#include "Verificacao/Partes.h"

namespace cotepe {

void verificaBanco(sqlite3* banco, const OpcoesDaVerificacao& opcoes, RecebeAchados& recebe) {
  const Contexto contexto(banco, opcoes, recebe);
  confereEsquema(contexto);
  for (const FormaDaTabela& forma : kFormas)
    if (contexto.lida(forma.nome)) confereLinhas(contexto, forma);
  confereLigacoes(contexto);
  confereUnicidade(contexto);
  confereIndices(contexto);
}

}  // namespace cotepe
