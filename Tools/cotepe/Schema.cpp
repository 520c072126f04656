// cotepe schema: the SQL of the fiscal database.

#include "Comandos.h"
#include "Descritor.h"
#include "Esquema.h"

namespace cotepe::programa {

Execucao declaraSchema(CLI::App& /*comando*/) {
  return [] { escreveNaSaidaPadrao(esquemaSql()); };
}

}  // namespace cotepe::programa
