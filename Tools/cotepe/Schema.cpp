// cotepe schema: the SQL of the fiscal database.

#include "BancoFiscal/Esquema.h"
#include "Comandos.h"
#include "Sistema/Descritor.h"

namespace cotepe::programa {

Acao declaraSchema(CLI::App& /*comando*/) {
  return [] { escreveNaSaidaPadrao(esquemaSql()); };
}

}  // namespace cotepe::programa
